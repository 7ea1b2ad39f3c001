// ControlObject: the COM object of the control: one life for the core, the window and the COM interfaces around them.
#include "win32/com/ControlObject.h"

#include "win32/com/ControlInterfaces.h"
#include "win32/com/WindowsPlatform.h"

namespace foldertree {

automation::ComPtr<IUnknown> ControlObject::Create() {
    automation::ComPtr<IUnknown> control;
    control.Attach(new ControlObject);
    return control;
}

ControlObject::ControlObject()
    : platform_(std::make_unique<WindowsPlatform>(*this)), interfaces_(std::make_unique<ControlInterfaces>(*this)) {
    core_ = ctlFolderTree::Create(*platform_, platform_->Factory());
    window_ = std::make_unique<ControlWindow>(*core_, static_cast<WindowKeeper&>(*this));
    platform_->Attach(*window_);
    window_->SetDisplayName([this] { return site_.DisplayName(); });
    fontWatch_ = std::make_unique<FontWatch>(core_, *window_, static_cast<WindowKeeper&>(*this));
    interfaces_->inPlace.WatchWindow();
}

ControlObject::~ControlObject() {
    ++uses_;  // what the end calls must not delete the object a second time
    End();
}

void ControlObject::Hold() noexcept {
    if (uses_++ == 0) platform_->CallBegins();
}

void ControlObject::LetGo() noexcept {
    if (--uses_ == 0 && references_ == 0) delete this;
}

ULONG ControlObject::AddRef() {
    return ++references_;
}

ULONG ControlObject::Release() {
    const ULONG left = --references_;
    if (left == 0) {
        const Use use(*this);
        End();
    }
    return left;
}

void ControlObject::StopRunning() {
    const Use use(*this);
    running = false;
    if (core_->Refreshing()) core_->CancelLoad();
    interfaces_->inPlace.InPlaceDeactivate();
}

void ControlObject::End() {
    if (ended_) return;
    ended_ = true;
    const Use use(*this);
    interfaces_->inPlace.InPlaceDeactivate();
    if (fontWatch_ != nullptr) fontWatch_->Stop();
    if (core_ != nullptr) core_->Close();
    interfaces_->connectionPoints.events.DisconnectAll();
    interfaces_->connectionPoints.propertyNotifications.DisconnectAll();
    site_.Set(nullptr);
}

HRESULT ControlObject::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    if (iid == IID_IUnknown) {
        AddRef();
        *object = static_cast<IUnknown*>(this);
        return S_OK;
    }
    *object = interfaces_->Find(iid);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

}  // namespace foldertree
