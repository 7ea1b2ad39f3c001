// ControlSite: hosting one windowed control.
#include "ControlSite.h"

#include <olectl.h>

#include "FilePropertyBag.h"
#include "FontText.h"
#include "LateBound.h"

namespace demo {
namespace {

/// The frame as the control sees it: a window without menus, tool bars or border space.
class Frame : public ComObject<IOleInPlaceFrame> {
  public:
    explicit Frame(HWND window) : window_(window) {}

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override {
        *window = window_;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetBorder(RECT*) override { return INPLACE_E_NOTOOLSPACE; }
    HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
    HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject*, LPCOLESTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, OLEMENUGROUPWIDTHS*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, WORD) override { return S_FALSE; }

  private:
    HWND window_;
};

void Check(const wchar_t* what, HRESULT result) {
    if (FAILED(result)) throw AutomationFailure{what, result, L"The control refused."};
}

SIZEL ToHiMetric(int width, int height) {
    HDC screen = GetDC(nullptr);
    const SIZEL size = {MulDiv(width, 2540, GetDeviceCaps(screen, LOGPIXELSX)),
                        MulDiv(height, 2540, GetDeviceCaps(screen, LOGPIXELSY))};
    ReleaseDC(nullptr, screen);
    return size;
}

/// Empty for an ambient property that this container does not have.
Variant AmbientProperty(DISPID id) {
    switch (id) {
        case DISPID_AMBIENT_USERMODE:
            return true;
        case DISPID_AMBIENT_UIDEAD:
        case DISPID_AMBIENT_SHOWGRABHANDLES:
        case DISPID_AMBIENT_SHOWHATCHING:
            return false;
        case DISPID_AMBIENT_LOCALEID:
            return static_cast<long>(GetUserDefaultLCID());
        case DISPID_AMBIENT_BACKCOLOR:
            return static_cast<long>(GetSysColor(COLOR_BTNFACE));
        case DISPID_AMBIENT_FORECOLOR:
            return static_cast<long>(GetSysColor(COLOR_BTNTEXT));
        case DISPID_AMBIENT_DISPLAYNAME:
            return L"FolderTree1";
        case DISPID_AMBIENT_FONT: {
            ComPtr<IDispatch> font;
            if (const ComPtr<IFont> systemFont = SystemMessageFont()) systemFont.As(&font);
            return font ? Variant(font.Get()) : Variant();
        }
        default:
            return {};
    }
}

}  // namespace

void ControlSite::Create(const wchar_t* progId, std::map<std::string, std::string>& properties, const RECT& place) {
    place_ = place;
    control_ = CreateByProgId(progId);
    Check(L"IOleObject", control_.As(&object_));
    // Before loading, so that the control can ask for the ambient font while it loads.
    Check(L"SetClientSite", object_->SetClientSite(this));
    object_->SetHostNames(L"FolderTree demo", nullptr);
    Load(properties);
    Move(place);
    Check(L"DoVerb", object_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, this, 0, frame_, &place_));
}

void ControlSite::Load(std::map<std::string, std::string>& properties) {
    ComPtr<IPersistPropertyBag> persist;
    Check(L"IPersistPropertyBag", control_.As(&persist));
    if (properties.empty()) {
        Check(L"InitNew", persist->InitNew());
        return;
    }
    const ComPtr<FilePropertyBag> bag = Adopt(new FilePropertyBag(properties));
    Check(L"Load", persist->Load(bag.Get(), nullptr));
}

void ControlSite::Save(std::map<std::string, std::string>& properties) const {
    ComPtr<IPersistPropertyBag> persist;
    if (!control_ || FAILED(control_.As(&persist))) return;
    const ComPtr<FilePropertyBag> bag = Adopt(new FilePropertyBag(properties));
    // A value that equals its default is not written, so what an earlier run wrote must go.
    properties.clear();
    persist->Save(bag.Get(), TRUE, FALSE);
}

void ControlSite::Close() {
    if (!object_) return;
    if (inPlaceObject_) inPlaceObject_->InPlaceDeactivate();
    object_->Close(OLECLOSE_NOSAVE);
    object_->SetClientSite(nullptr);
    inPlaceObject_.Reset();
    object_.Reset();
    control_.Reset();
}

HWND ControlSite::Window() const {
    HWND window = nullptr;
    if (inPlaceObject_) inPlaceObject_->GetWindow(&window);
    return window;
}

void ControlSite::Move(const RECT& place) {
    place_ = place;
    if (!object_) return;
    SIZEL extent = ToHiMetric(place.right - place.left, place.bottom - place.top);
    object_->SetExtent(DVASPECT_CONTENT, &extent);
    if (inPlaceObject_) inPlaceObject_->SetObjectRects(&place_, &place_);
}

void ControlSite::Focus() {
    if (object_) object_->DoVerb(OLEIVERB_UIACTIVATE, nullptr, this, 0, frame_, &place_);
}

bool ControlSite::TranslateKey(MSG& message) {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
    const HWND window = Window();
    if (window == nullptr || (message.hwnd != window && !IsChild(window, message.hwnd))) return false;
    ComPtr<IOleInPlaceActiveObject> active;
    return SUCCEEDED(control_.As(&active)) && active->TranslateAccelerator(&message) == S_OK;
}

HRESULT ControlSite::QueryInterface(REFIID iid, void** object) {
    return ComObject::QueryInterface(iid == IID_IOleWindow ? IID_IOleInPlaceSite : iid, object);
}

HRESULT ControlSite::GetContainer(IOleContainer** container) {
    *container = nullptr;
    return E_NOINTERFACE;
}

HRESULT ControlSite::GetWindow(HWND* window) {
    *window = frame_;
    return S_OK;
}

HRESULT ControlSite::OnInPlaceActivate() {
    return object_.As(&inPlaceObject_);
}

HRESULT ControlSite::OnInPlaceDeactivate() {
    inPlaceObject_.Reset();
    return S_OK;
}

HRESULT ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* place, RECT* clip,
                                      OLEINPLACEFRAMEINFO* info) {
    *frame = new Frame(frame_);
    *document = nullptr;
    *place = place_;
    *clip = place_;
    info->fMDIApp = FALSE;
    info->hwndFrame = frame_;
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
}

HRESULT ControlSite::OnPosRectChange(LPCRECT) {
    // The form decides where the control stands.
    if (inPlaceObject_) inPlaceObject_->SetObjectRects(&place_, &place_);
    return S_OK;
}

HRESULT ControlSite::GetExtendedControl(IDispatch** extended) {
    *extended = nullptr;
    return E_NOTIMPL;
}

HRESULT ControlSite::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT ControlSite::GetTypeInfo(UINT, LCID, ITypeInfo**) {
    return E_NOTIMPL;
}

HRESULT ControlSite::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
    return DISP_E_UNKNOWNNAME;
}

HRESULT ControlSite::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT*) {
    const Variant value = AmbientProperty(id);
    if (value.vt == VT_EMPTY) return DISP_E_MEMBERNOTFOUND;
    if (result != nullptr) {
        VariantInit(result);
        CopyValue(*result, value);
    }
    return S_OK;
}

}  // namespace demo
