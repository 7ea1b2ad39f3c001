// AccessibleObject: a window's client area as assistive programs hold it.
#pragma once

#include <windows.h>

#include <oleacc.h>
#include <oleidl.h>

#include <memory>
#include <optional>

#include "automation_win32/ComBase.h"
#include "win32/AccessibleWindow.h"

namespace foldertree {

/// One for each program that asks, since each goes through the children at its own pace (IEnumVARIANT). It knows
/// nothing but its connection: every call looks whether the window is still there and answers CO_E_OBJNOTCONNECTED when
/// it is not, and RPC_E_WRONG_THREAD on any thread but the window's. Calls come in wherever messages do, in the middle
/// of a load too. A child that is not one, or not any more, is E_INVALIDARG.
class AccessibleObject final : public automation::ComBase<IAccessible, IEnumVARIANT, IOleWindow> {
  public:
    explicit AccessibleObject(std::shared_ptr<AccessibleConnection> connection) : connection_(std::move(connection)) {}

    // IDispatch
    STDMETHOD(GetTypeInfoCount)(UINT* count) override;
    STDMETHOD(GetTypeInfo)(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHOD(GetIDsOfNames)(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHOD(Invoke)
    (DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
     UINT* wrongArgument) override;

    // IAccessible
    STDMETHOD(get_accParent)(IDispatch** parent) override;
    STDMETHOD(get_accChildCount)(LONG* count) override;
    STDMETHOD(get_accChild)(VARIANT child, IDispatch** object) override;
    STDMETHOD(get_accName)(VARIANT child, BSTR* name) override;
    STDMETHOD(get_accValue)(VARIANT child, BSTR* value) override;
    STDMETHOD(get_accDescription)(VARIANT child, BSTR* description) override;
    STDMETHOD(get_accRole)(VARIANT child, VARIANT* role) override;
    STDMETHOD(get_accState)(VARIANT child, VARIANT* state) override;
    STDMETHOD(get_accHelp)(VARIANT child, BSTR* help) override;
    STDMETHOD(get_accHelpTopic)(BSTR* file, VARIANT child, LONG* topic) override;
    STDMETHOD(get_accKeyboardShortcut)(VARIANT child, BSTR* shortcut) override;
    STDMETHOD(get_accFocus)(VARIANT* child) override;
    STDMETHOD(get_accSelection)(VARIANT* children) override;
    STDMETHOD(get_accDefaultAction)(VARIANT child, BSTR* action) override;
    STDMETHOD(accSelect)(LONG flags, VARIANT child) override;
    STDMETHOD(accLocation)(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override;
    STDMETHOD(accNavigate)(LONG direction, VARIANT start, VARIANT* end) override;
    STDMETHOD(accHitTest)(LONG left, LONG top, VARIANT* child) override;
    STDMETHOD(accDoDefaultAction)(VARIANT child) override;
    STDMETHOD(put_accName)(VARIANT child, BSTR name) override;
    STDMETHOD(put_accValue)(VARIANT child, BSTR value) override;

    // IEnumVARIANT
    STDMETHOD(Next)(ULONG count, VARIANT* children, ULONG* fetched) override;
    STDMETHOD(Skip)(ULONG count) override;
    STDMETHOD(Reset)() override;
    STDMETHOD(Clone)(IEnumVARIANT** clone) override;

    // IOleWindow
    STDMETHOD(GetWindow)(HWND* window) override;
    STDMETHOD(ContextSensitiveHelp)(BOOL enter) override;

  private:
    void* FindInterface(REFIID iid) override;
    bool Connected() const;
    template <class Body>
    HRESULT Ask(Body&& body) noexcept;
    template <class Body>
    HRESULT AskOf(const VARIANT& child, Body&& body) noexcept;
    HRESULT TellText(const VARIANT& child, BSTR* text, std::string (AccessibleAnswers::*question)(LONG));
    LONG NextPosition(AccessibleAnswers& answers) const;

    const std::shared_ptr<AccessibleConnection> connection_;
    LONG position_ = 0;   ///< of the enumeration, when it starts or its last child has gone
    LONG lastChild_ = 0;  ///< behind which the enumeration goes on, wherever that stands by then
};

}  // namespace foldertree
