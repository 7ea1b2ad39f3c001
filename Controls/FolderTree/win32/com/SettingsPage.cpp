// SettingsPage: the property page on which a designer sets what a form saves of the control.
#include "win32/com/SettingsPage.h"

#include <commdlg.h>
#include <ocidl.h>
#include <olectl.h>

#include <bitset>
#include <string>
#include <utility>
#include <vector>

#include "automation/Object.h"
#include "automation_win32/Bstr.h"
#include "automation_win32/ComBase.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Crossing.h"
#include "automation_win32/Module.h"
#include "common/Members.h"
#include "win32/com/AccessModeNames.h"
#include "win32/com/GivenText.h"

namespace foldertree {

using automation::ComBoundary;
using automation::ComPtr;
using automation::ObjectRef;
using automation::Value;

namespace {

constexpr SIZE pageUnits = {240, 148};  // of the dialog in the resources
constexpr int fontButton = 1100;
constexpr size_t mostSettings = 32;

int ItemOf(const MemberInfo& setting) {
    return settingItem + setting.saving.place;
}

bool IsAccessMode(const MemberInfo& setting) {
    return setting.member == Member::infoStoreAccessMode;
}

class SettingsPage final : public automation::ComBase<IPropertyPage> {
  public:
    STDMETHOD(SetPageSite)(IPropertyPageSite* site) override {
        if (site != nullptr && site_ != nullptr) return E_UNEXPECTED;
        site_ = site;
        return S_OK;
    }

    STDMETHOD(Activate)(HWND parent, LPCRECT place, BOOL) override {
        if (place == nullptr) return E_POINTER;
        if (window_ != nullptr || objects_.empty()) return E_UNEXPECTED;
        window_ = CreateDialogParamW(automation::ThisModule(), MAKEINTRESOURCEW(settingsDialog), parent, OnMessage,
                                     reinterpret_cast<LPARAM>(this));
        if (window_ == nullptr) return E_FAIL;
        const HRESULT result = Fill();
        if (FAILED(result)) {
            Deactivate();
            return result;
        }
        return Move(place);
    }

    STDMETHOD(Deactivate)() override {
        if (window_ == nullptr) return E_UNEXPECTED;
        DestroyWindow(std::exchange(window_, nullptr));
        return S_OK;
    }

    STDMETHOD(GetPageInfo)(PROPPAGEINFO* info) override {
        if (info == nullptr) return E_POINTER;
        if (info->cb < sizeof(*info)) return E_INVALIDARG;
        const ULONG size = info->cb;
        *info = {};
        info->cb = size;
        info->size = SizeInPixels();
        return GiveText(L"Settings", &info->pszTitle);
    }

    STDMETHOD(SetObjects)(ULONG count, IUnknown** objects) override {
        if (count > 0 && objects == nullptr) return E_POINTER;
        return ComBoundary([&] {
            std::vector<ObjectRef> wanted;
            for (ULONG i = 0; i < count; ++i) {
                if (objects[i] == nullptr) return E_POINTER;
                wanted.push_back(automation::FromCom(objects[i]));
            }
            objects_ = std::move(wanted);
            return S_OK;
        });
    }

    STDMETHOD(Show)(UINT command) override {
        if (window_ == nullptr) return E_UNEXPECTED;
        ShowWindow(window_, static_cast<int>(command));
        return S_OK;
    }

    STDMETHOD(Move)(LPCRECT place) override {
        if (place == nullptr) return E_POINTER;
        if (window_ == nullptr) return E_UNEXPECTED;
        if (place->right < place->left || place->bottom < place->top) return E_INVALIDARG;
        MoveWindow(window_, place->left, place->top, place->right - place->left, place->bottom - place->top, TRUE);
        return S_OK;
    }

    STDMETHOD(IsPageDirty)() override { return changed_.any() ? S_OK : S_FALSE; }

    STDMETHOD(Apply)() override {
        if (window_ == nullptr || objects_.empty()) return E_UNEXPECTED;
        const ComPtr<IUnknown> alive(this);
        return ComBoundary([&] {
            // Whoever is told of a setting may give the page other objects.
            const std::vector<ObjectRef> objects = objects_;
            for (const MemberInfo* setting : SavedMembers()) {
                if (!changed_[Index(*setting)]) continue;
                const Value value = Read(*setting);
                for (const ObjectRef& object : objects) Put(*object, *setting, value);
                changed_.reset(Index(*setting));
            }
            return S_OK;
        });
    }

    STDMETHOD(Help)(LPCOLESTR) override { return E_NOTIMPL; }

    STDMETHOD(TranslateAccelerator)(MSG* message) override {
        if (message == nullptr) return E_POINTER;
        if (window_ == nullptr || !IsChild(window_, message->hwnd)) return S_FALSE;
        return IsDialogMessageW(window_, message) ? S_OK : S_FALSE;
    }

  private:
    ~SettingsPage() override {
        if (window_ != nullptr) DestroyWindow(window_);
    }

    static size_t Index(const MemberInfo& setting) { return static_cast<size_t>(setting.saving.place); }

    /// The dialog's size on this screen: a dialog tells it itself.
    static SIZE SizeInPixels() {
        const HWND dialog = CreateDialogParamW(automation::ThisModule(), MAKEINTRESOURCEW(settingsDialog),
                                               GetDesktopWindow(), nullptr, 0);
        RECT units = {0, 0, pageUnits.cx, pageUnits.cy};
        if (dialog != nullptr) {
            MapDialogRect(dialog, &units);
            DestroyWindow(dialog);
        }
        return {units.right, units.bottom};
    }

    // ---- Between the dialog and the settings

    HRESULT Fill() {
        return ComBoundary([&] {
            for (const std::wstring_view name : accessModeNames)
                SendDlgItemMessageW(window_, ItemOf(Info(Member::infoStoreAccessMode)), CB_ADDSTRING, 0,
                                    reinterpret_cast<LPARAM>(std::wstring(name).c_str()));
            filling_ = true;
            for (const MemberInfo* setting : SavedMembers()) Write(*setting, objects_.front()->Get(setting->name));
            filling_ = false;
            changed_.reset();
            return S_OK;
        });
    }

    void Write(const MemberInfo& setting, const Value& value) {
        const int item = ItemOf(setting);
        if (setting.saving.type == SavedAs::boolean)
            CheckDlgButton(window_, item, value.ToBoolean() ? BST_CHECKED : BST_UNCHECKED);
        else if (setting.saving.type == SavedAs::font)
            ShowFont(value.ToObject());
        else if (IsAccessMode(setting))
            SendDlgItemMessageW(window_, item, CB_SETCURSEL, static_cast<WPARAM>(value.ToLong()), 0);
        else
            SetDlgItemInt(window_, item, static_cast<UINT>(value.ToLong()), TRUE);
    }

    Value Read(const MemberInfo& setting) const {
        const int item = ItemOf(setting);
        if (setting.saving.type == SavedAs::boolean) return IsDlgButtonChecked(window_, item) == BST_CHECKED;
        if (setting.saving.type == SavedAs::font) return font_;
        if (IsAccessMode(setting)) return static_cast<int32_t>(SendDlgItemMessageW(window_, item, CB_GETCURSEL, 0, 0));
        BOOL whole = FALSE;
        const UINT number = GetDlgItemInt(window_, item, &whole, TRUE);
        if (!whole) automation::Check(E_INVALIDARG);
        return static_cast<int32_t>(number);
    }

    static void Put(automation::Object& object, const MemberInfo& setting, const Value& value) {
        if (setting.saving.type == SavedAs::font)
            object.PutRef(setting.name, value);
        else
            object.Put(setting.name, value);
    }

    // ---- The font

    void ShowFont(const ObjectRef& font) {
        font_ = font;
        std::string text;
        if (font != nullptr) text = font->Get("Name").ToText() + ", " + font->Get("Size").ToText();
        SetDlgItemTextW(window_, ItemOf(Info(Member::font)), automation::ToWide(text).c_str());
    }

    void AskForFont() {
        LOGFONTW chosen = {};
        const HDC screen = GetDC(nullptr);
        const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
        ReleaseDC(nullptr, screen);
        if (font_ != nullptr) {
            const std::wstring name = automation::ToWide(font_->Get("Name").ToText());
            name.copy(chosen.lfFaceName, LF_FACESIZE - 1);
            chosen.lfHeight = -static_cast<LONG>(font_->Get("Size").ToDouble() * dpi / 72 + 0.5);
            chosen.lfWeight = font_->Get("Bold").ToBoolean() ? FW_BOLD : FW_NORMAL;
            chosen.lfItalic = font_->Get("Italic").ToBoolean();
        }
        CHOOSEFONTW dialog = {};
        dialog.lStructSize = sizeof(dialog);
        dialog.hwndOwner = window_;
        dialog.lpLogFont = &chosen;
        dialog.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_FORCEFONTEXIST;
        const ComPtr<IUnknown> alive(this);
        if (!ChooseFontW(&dialog) || window_ == nullptr) return;
        FONTDESC description = {};
        description.cbSizeofstruct = sizeof(description);
        description.lpstrName = chosen.lfFaceName;
        description.cySize.int64 = int64_t{dialog.iPointSize} * 1000;
        description.sWeight = static_cast<SHORT>(chosen.lfWeight);
        description.sCharset = chosen.lfCharSet;
        description.fItalic = chosen.lfItalic;
        ComPtr<IDispatch> font;
        automation::Check(
            OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(font.GetAddressOf())));
        ShowFont(automation::FromCom(font.Get()));
        NoteChange(Info(Member::font));
    }

    // ---- What the user does

    static INT_PTR CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITDIALOG) {
            SetWindowLongPtrW(window, GWLP_USERDATA, lParam);
            return TRUE;
        }
        auto* const page = reinterpret_cast<SettingsPage*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message != WM_COMMAND || page == nullptr) return FALSE;
        const ComPtr<IUnknown> alive(page);
        ComBoundary([&] {
            page->OnCommand(LOWORD(wParam), HIWORD(wParam));
            return S_OK;
        });
        return TRUE;
    }

    void OnCommand(int item, int notification) {
        if (filling_) return;
        if (item == fontButton && notification == BN_CLICKED) return AskForFont();
        for (const MemberInfo* setting : SavedMembers())
            if (item == ItemOf(*setting) && IsChange(*setting, notification)) NoteChange(*setting);
    }

    static bool IsChange(const MemberInfo& setting, int notification) {
        if (setting.saving.type == SavedAs::boolean) return notification == BN_CLICKED;
        if (setting.saving.type == SavedAs::font) return false;
        return notification == (IsAccessMode(setting) ? CBN_SELCHANGE : EN_CHANGE);
    }

    void NoteChange(const MemberInfo& setting) {
        changed_.set(Index(setting));
        const ComPtr<IPropertyPageSite> site = site_;
        if (site != nullptr) site->OnStatusChange(PROPPAGESTATUS_DIRTY | PROPPAGESTATUS_VALIDATE);
    }

    ComPtr<IPropertyPageSite> site_;
    std::vector<ObjectRef> objects_;
    HWND window_ = nullptr;
    bool filling_ = false;
    std::bitset<mostSettings> changed_;
    ObjectRef font_;  ///< as the page shows it
};

}  // namespace

ComPtr<IUnknown> MakeSettingsPage() {
    return automation::MakeCom<SettingsPage>();
}

}  // namespace foldertree
