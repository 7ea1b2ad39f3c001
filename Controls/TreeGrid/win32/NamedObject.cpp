// NamedObject: the system's own object of a window, with a name that the system cannot know.
#include "win32/NamedObject.h"

#include <oleacc.h>

#include "automation_win32/Bstr.h"
#include "automation_win32/ComBase.h"
#include "automation_win32/ComError.h"

namespace foldertree {
namespace {

using automation::ComPtr;

class NamedObject final : public automation::ComBase<IAccessible> {
  public:
    NamedObject(ComPtr<IAccessible> standard, std::string name)
        : standard_(std::move(standard)), name_(std::move(name)) {}

    STDMETHOD(get_accName)(VARIANT child, BSTR* name) override {
        if (name == nullptr) return E_POINTER;
        *name = nullptr;
        if (V_VT(&child) != VT_I4 || V_I4(&child) != CHILDID_SELF) return standard_->get_accName(child, name);
        return automation::ComBoundary([&] {
            *name = automation::ToBstr(name_);
            return S_OK;
        });
    }

    // All else is the standard object's
    STDMETHOD(GetTypeInfoCount)(UINT* count) override { return standard_->GetTypeInfoCount(count); }
    STDMETHOD(GetTypeInfo)(UINT index, LCID locale, ITypeInfo** info) override {
        return standard_->GetTypeInfo(index, locale, info);
    }
    STDMETHOD(GetIDsOfNames)(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
        return standard_->GetIDsOfNames(iid, names, count, locale, ids);
    }
    STDMETHOD(Invoke)
    (DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
     UINT* wrongArgument) override {
        return standard_->Invoke(member, iid, locale, flags, parameters, result, exception, wrongArgument);
    }
    STDMETHOD(get_accParent)(IDispatch** parent) override { return standard_->get_accParent(parent); }
    STDMETHOD(get_accChildCount)(LONG* count) override { return standard_->get_accChildCount(count); }
    STDMETHOD(get_accChild)(VARIANT child, IDispatch** object) override {
        return standard_->get_accChild(child, object);
    }
    STDMETHOD(get_accValue)(VARIANT child, BSTR* value) override { return standard_->get_accValue(child, value); }
    STDMETHOD(get_accDescription)(VARIANT child, BSTR* description) override {
        return standard_->get_accDescription(child, description);
    }
    STDMETHOD(get_accRole)(VARIANT child, VARIANT* role) override { return standard_->get_accRole(child, role); }
    STDMETHOD(get_accState)(VARIANT child, VARIANT* state) override { return standard_->get_accState(child, state); }
    STDMETHOD(get_accHelp)(VARIANT child, BSTR* help) override { return standard_->get_accHelp(child, help); }
    STDMETHOD(get_accHelpTopic)(BSTR* file, VARIANT child, LONG* topic) override {
        return standard_->get_accHelpTopic(file, child, topic);
    }
    STDMETHOD(get_accKeyboardShortcut)(VARIANT child, BSTR* shortcut) override {
        return standard_->get_accKeyboardShortcut(child, shortcut);
    }
    STDMETHOD(get_accFocus)(VARIANT* child) override { return standard_->get_accFocus(child); }
    STDMETHOD(get_accSelection)(VARIANT* children) override { return standard_->get_accSelection(children); }
    STDMETHOD(get_accDefaultAction)(VARIANT child, BSTR* action) override {
        return standard_->get_accDefaultAction(child, action);
    }
    STDMETHOD(accSelect)(LONG flags, VARIANT child) override { return standard_->accSelect(flags, child); }
    STDMETHOD(accLocation)(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override {
        return standard_->accLocation(left, top, width, height, child);
    }
    STDMETHOD(accNavigate)(LONG direction, VARIANT start, VARIANT* end) override {
        return standard_->accNavigate(direction, start, end);
    }
    STDMETHOD(accHitTest)(LONG left, LONG top, VARIANT* child) override {
        return standard_->accHitTest(left, top, child);
    }
    STDMETHOD(accDoDefaultAction)(VARIANT child) override { return standard_->accDoDefaultAction(child); }
    STDMETHOD(put_accName)(VARIANT child, BSTR name) override { return standard_->put_accName(child, name); }
    STDMETHOD(put_accValue)(VARIANT child, BSTR value) override { return standard_->put_accValue(child, value); }

  private:
    void* FindInterface(REFIID iid) override { return iid == IID_IDispatch ? static_cast<IDispatch*>(this) : nullptr; }

    const ComPtr<IAccessible> standard_;
    const std::string name_;
};

}  // namespace

LRESULT AnswerWithName(HWND window, WPARAM wParam, const std::string& name) {
    ComPtr<IAccessible> standard;
    if (FAILED(CreateStdAccessibleObject(window, OBJID_CLIENT, __uuidof(IAccessible),
                                         reinterpret_cast<void**>(standard.GetAddressOf()))))
        return 0;
    const auto named = automation::MakeCom<NamedObject>(std::move(standard), name);
    return LresultFromObject(__uuidof(IAccessible), wParam, static_cast<IAccessible*>(named.Get()));
}

}  // namespace foldertree
