// FontWatch: notices when a host changes the members of the grid's font object, as in `Font.Size = 12`.
#include "win32/com/FontWatch.h"

#include <ocidl.h>
#include <olectl.h>

#include "automation_win32/ComBase.h"
#include "automation_win32/Crossing.h"
#include "common/ErrorEdges.h"

namespace foldertree {

using automation::ComPtr;

class FontWatch::Sink final : public automation::ComBase<IPropertyNotifySink> {
  public:
    explicit Sink(ControlWindow& window) : window_(&window) {}

    /// A font may keep its sink longer than we are there.
    void Stop() { window_ = nullptr; }

    STDMETHOD(OnChanged)(DISPID) override {
        if (window_ != nullptr) window_->FontChanged();
        return S_OK;
    }
    STDMETHOD(OnRequestEdit)(DISPID) override { return S_OK; }

  private:
    ControlWindow* window_;
};

FontWatch::FontWatch(std::shared_ptr<ctlFolderTree> control, ControlWindow& window)
    : control_(std::move(control)), sink_(automation::MakeCom<Sink>(window)) {
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
    if (changes.appearance) Attempt([&] { Follow(); });
}

void FontWatch::Follow() {
    const automation::ObjectRef& font = control_->Grid().Font();
    if (font == font_) return;
    Disconnect();
    font_ = font;
    ComPtr<IConnectionPointContainer> container;
    const ComPtr<IUnknown> object = automation::ToCom(font);
    if (!object || FAILED(object.As(&container))) return;
    if (FAILED(container->FindConnectionPoint(IID_IPropertyNotifySink, point_.ReleaseAndGetAddressOf()))) return;
    if (FAILED(point_->Advise(sink_.Get(), &cookie_))) point_ = nullptr;
}

void FontWatch::Disconnect() {
    font_ = nullptr;
    const ComPtr<IConnectionPoint> point = std::exchange(point_, nullptr);
    if (point) point->Unadvise(cookie_);
}

}  // namespace foldertree
