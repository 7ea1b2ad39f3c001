// WindowsPlatform: what the control asks of Windows and of its container.
#include "win32/com/WindowsPlatform.h"

#include <olectl.h>

#include <algorithm>
#include <utility>

#include "automation_win32/Bstr.h"
#include "automation_win32/Crossing.h"
#include "common/Members.h"
#include "win32/com/ControlInterfaces.h"
#include "win32/com/ControlObject.h"

namespace foldertree {

using automation::ComPtr;
using automation::ToWide;

namespace {

constexpr DISPID changedEvent = 1;

/// DISPID_UNKNOWN, which means "any property", when no member has the name.
DISPID PropertyId(std::string_view name) {
    const MemberInfo* const member = FindMember(name);
    return member == nullptr ? DISPID_UNKNOWN : member->number;
}

/// What fails, for want of memory as a rule, is lost; the core goes on.
template <class Body>
void NoThrow(Body&& body) noexcept {
    try {
        body();
    } catch (...) {
    }
}

}  // namespace

void WindowsPlatform::Yield() noexcept {
    const ControlObject::Use use(object_);
    NoThrow([this] {
        if (!object_.Window().PumpMessages()) object_.Core().CancelLoad();
    });
}

void WindowsPlatform::SetBusyPointer(bool busy) noexcept {
    if (window_ != nullptr) NoThrow([&] { window_->SetBusyPointer(busy); });
}

void WindowsPlatform::ShowWaitPanel(bool visible) noexcept {
    // Hiding the panel moves the focus, and the container may let go of the control when it hears of that.
    const ControlObject::Use use(object_);
    if (window_ != nullptr) NoThrow([&] { window_->ShowWaitPanel(visible); });
}

void WindowsPlatform::SetWaitCaptions(std::string_view pleaseWait, std::string_view cancel) noexcept {
    if (window_ != nullptr) NoThrow([&] { window_->SetWaitCaptions(pleaseWait, cancel); });
}

void WindowsPlatform::SetProgressText(std::string_view path) noexcept {
    if (window_ != nullptr) NoThrow([&] { window_->SetProgressText(path); });
}

void WindowsPlatform::SetProgress(double maximum, double value) noexcept {
    if (window_ != nullptr) NoThrow([&] { window_->SetProgress(maximum, value); });
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

int WindowsPlatform::TwipsPerPixel() noexcept {
    constexpr int twipsPerInch = 1440;
    const HDC screen = GetDC(nullptr);
    const int dotsPerInch = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return twipsPerInch / std::max(dotsPerInch, 1);
}

void WindowsPlatform::FreezeEvents(bool freeze) noexcept {
    if (freeze) {
        ++freezes_;
        return;
    }
    if (freezes_ > 0) --freezes_;
    if (freezes_ == 0 && std::exchange(heldBack_, false)) RaiseChanged();
}

void WindowsPlatform::RaiseChanged() noexcept {
    if (freezes_ > 0) {
        heldBack_ = true;
        return;
    }
    const ControlObject::Use use(object_);
    object_.Interfaces().connectionPoints.events.ForEachSink([](IUnknown& sink) {
        DISPPARAMS none = {};
        // A sink that fails is its own affair.
        static_cast<IDispatch&>(sink).Invoke(changedEvent, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none,
                                             nullptr, nullptr, nullptr);
    });
    TellOfPicture();
}

void WindowsPlatform::TellOfPicture() noexcept {
    object_.Interfaces().view.SendViewChange();
    object_.Interfaces().data.SendDataChange();
}

void WindowsPlatform::PropertyChanged(std::string_view name) noexcept {
    const ControlObject::Use use(object_);
    object_.dirty = true;
    const DISPID property = PropertyId(name);
    object_.Interfaces().connectionPoints.propertyNotifications.ForEachSink(
        [property](IUnknown& sink) { static_cast<IPropertyNotifySink&>(sink).OnChanged(property); });
    TellOfPicture();
}

}  // namespace foldertree
