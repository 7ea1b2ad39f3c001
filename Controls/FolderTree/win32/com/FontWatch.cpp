// FontWatch: notices when a host changes the members of the grid's font object, as in `Font.Size = 12`.
#include "win32/com/FontWatch.h"

#include <ocidl.h>
#include <olectl.h>

#include <utility>

#include "automation_win32/ComBase.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Crossing.h"

namespace foldertree {

using automation::ComPtr;

class FontWatch::Sink final : public automation::ComBase<IPropertyNotifySink> {
  public:
    Sink(ControlWindow& window, WindowKeeper& keeper) : window_(&window), keeper_(keeper) {}

    /// A font may keep its sink longer than we are there.
    void Stop() { window_ = nullptr; }

    STDMETHOD(OnChanged)(DISPID) override {
        if (window_ == nullptr) return S_OK;
        const Held held(keeper_);
        return automation::ComBoundary([this] {
            window_->FontChanged();
            return S_OK;
        });
    }
    STDMETHOD(OnRequestEdit)(DISPID) override { return S_OK; }

  private:
    ControlWindow* window_;
    WindowKeeper& keeper_;  ///< there as long as the window
};

FontWatch::FontWatch(std::shared_ptr<ctlFolderTree> control, ControlWindow& window, WindowKeeper& keeper)
    : control_(std::move(control)), sink_(automation::MakeCom<Sink>(window, keeper)) {
    control_->Grid().AddObserver(this);
    Follow();
}

FontWatch::~FontWatch() {
    Stop();
}

void FontWatch::Stop() {
    if (control_ == nullptr) return;
    control_->Grid().RemoveObserver(this);
    control_ = nullptr;
    Disconnect();
    sink_->Stop();
}

void FontWatch::GridChanged(const GridChanges& changes) noexcept {
    if (changes.appearance) Follow();
}

void FontWatch::Follow() noexcept {
    const automation::ObjectRef font = control_->Grid().Font();
    if (font == font_) return;
    Disconnect();
    font_ = font;
    automation::ComBoundary([&] {
        Connect(font);
        return S_OK;
    });
}

void FontWatch::Connect(const automation::ObjectRef& font) {
    ComPtr<IConnectionPointContainer> container;
    const ComPtr<IUnknown> object = automation::ToCom(font);
    if (!object || FAILED(object.As(&container))) return;
    ComPtr<IConnectionPoint> point;
    DWORD cookie = 0;
    if (FAILED(container->FindConnectionPoint(IID_IPropertyNotifySink, point.GetAddressOf()))) return;
    if (FAILED(point->Advise(sink_.Get(), &cookie))) return;
    // The font is the host's: in these calls the grid may have got another one, or the control may have ended.
    if (font != font_ || point_) {
        point->Unadvise(cookie);
        return;
    }
    point_ = std::move(point);
    cookie_ = cookie;
}

void FontWatch::Disconnect() {
    font_ = nullptr;
    const ComPtr<IConnectionPoint> point = std::exchange(point_, nullptr);
    if (point) point->Unadvise(cookie_);
}

}  // namespace foldertree
