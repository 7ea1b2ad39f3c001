// WindowsPlatform: what the control asks of Windows and of its container.
#include "win32/com/WindowsPlatform.h"

#include <olectl.h>

#include <algorithm>
#include <exception>
#include <utility>

#include "FolderTree.idl.h"
#include "automation_win32/Bstr.h"
#include "automation_win32/Crossing.h"
#include "win32/com/ControlInterfaces.h"
#include "win32/com/ControlObject.h"
#include "win32/com/TypeLibrary.h"

namespace foldertree {

using automation::ComPtr;
using automation::ToWide;

namespace {

constexpr DISPID changedEvent = 1;

std::string ToAnsi(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string ansi(static_cast<size_t>(std::max(size, 0)), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, ansi.data(), size, nullptr, nullptr);
    return ansi;
}

/// DISPID_UNKNOWN, which means "any property", when the name is not one of the type library's.
DISPID PropertyId(std::string_view name) {
    std::wstring wide = ToWide(name);
    LPOLESTR text = wide.data();
    DISPID id = DISPID_UNKNOWN;
    TypeInfoDispatch(__uuidof(_ctlFolderTree)).GetIDsOfNames(&text, 1, &id);
    return id;
}

}  // namespace

void WindowsPlatform::Yield() {
    const ControlObject::Use use(object_);
    if (!object_.Window().PumpMessages()) object_.Core().CancelLoad();
}

void WindowsPlatform::SetBusyPointer(bool busy) {
    if (window_ != nullptr) window_->SetBusyPointer(busy);
}

void WindowsPlatform::ShowWaitPanel(bool visible) {
    // Hiding the panel moves the focus, and the container may let go of the control when it hears of that.
    const ControlObject::Use use(object_);
    if (window_ != nullptr) window_->ShowWaitPanel(visible);
}

void WindowsPlatform::SetWaitCaptions(std::string_view pleaseWait, std::string_view cancel) {
    if (window_ != nullptr) window_->SetWaitCaptions(pleaseWait, cancel);
}

void WindowsPlatform::SetProgressText(std::string_view path) {
    if (window_ != nullptr) window_->SetProgressText(path);
}

void WindowsPlatform::SetProgress(double maximum, double value) {
    if (window_ != nullptr) window_->SetProgress(maximum, value);
}

automation::ObjectRef WindowsPlatform::CreateFont(std::string_view name) {
    std::wstring wide = ToWide(name);
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof(description);
    description.lpstrName = wide.data();
    description.cySize.int64 = 82500;  // 8.25 points, the size of Visual Basic's forms
    description.sWeight = FW_NORMAL;
    description.sCharset = DEFAULT_CHARSET;
    ComPtr<IDispatch> font;
    const HRESULT result =
        OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(font.GetAddressOf()));
    if (FAILED(result)) throw automation::Error(static_cast<uint32_t>(result), "The font cannot be made.");
    return automation::FromCom(font.Get());
}

automation::ObjectRef WindowsPlatform::AmbientFont() {
    return automation::FromCom(object_.Site().Font().Get());
}

int WindowsPlatform::TwipsPerPixel() {
    constexpr int twipsPerInch = 1440;
    const HDC screen = GetDC(nullptr);
    const int dotsPerInch = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return twipsPerInch / std::max(dotsPerInch, 1);
}

void WindowsPlatform::FreezeEvents(bool freeze) {
    if (freeze) {
        ++freezes_;
        return;
    }
    if (freezes_ > 0) --freezes_;
    if (freezes_ == 0 && std::exchange(heldBack_, false)) RaiseChanged();
}

void WindowsPlatform::RaiseChanged() {
    if (freezes_ > 0) {
        heldBack_ = true;
        return;
    }
    const ControlObject::Use use(object_);
    for (const auto& sink : object_.Interfaces().connectionPoints.events.Sinks()) {
        DISPPARAMS none = {};
        // A sink that fails, or that went away meanwhile, is its own affair.
        static_cast<IDispatch*>(sink.Get())
            ->Invoke(changedEvent, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr);
    }
}

void WindowsPlatform::PropertyChanged(std::string_view name) {
    const ControlObject::Use use(object_);
    object_.dirty = true;
    const DISPID property = PropertyId(name);
    for (const auto& sink : object_.Interfaces().connectionPoints.propertyNotifications.Sinks())
        static_cast<IPropertyNotifySink*>(sink.Get())->OnChanged(property);
    object_.Interfaces().view.SendViewChange();
}

// Error lines are written where an error has just been caught; tracing it must not raise the next one.
void WindowsPlatform::TraceLine(std::string_view line) noexcept {
    try {
        OutputDebugStringA(ToAnsi(ToWide(line)).c_str());
    } catch (const std::exception&) {
    }
}

}  // namespace foldertree
