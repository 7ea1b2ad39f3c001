// AccessibleReader: a window as an assistive program reads it through oleacc, as text.
#include "AccessibleReader.h"

#include "automation_win32/Bstr.h"

namespace foldertree::testing {

using automation::ComPtr;
using automation::OwnedBstr;

namespace {

struct Named {
    LONG value;
    const char* name;
};
constexpr Named roles[] = {{ROLE_SYSTEM_OUTLINE, "outline"},         {ROLE_SYSTEM_OUTLINEITEM, "item"},
                           {ROLE_SYSTEM_DIALOG, "dialog"},           {ROLE_SYSTEM_STATICTEXT, "text"},
                           {ROLE_SYSTEM_PROGRESSBAR, "progressbar"}, {ROLE_SYSTEM_PUSHBUTTON, "button"}};
constexpr Named states[] = {{STATE_SYSTEM_FOCUSABLE, "focusable"},   {STATE_SYSTEM_FOCUSED, "focused"},
                            {STATE_SYSTEM_SELECTABLE, "selectable"}, {STATE_SYSTEM_SELECTED, "selected"},
                            {STATE_SYSTEM_CHECKED, "checked"},       {STATE_SYSTEM_EXPANDED, "expanded"},
                            {STATE_SYSTEM_COLLAPSED, "collapsed"},   {STATE_SYSTEM_OFFSCREEN, "offscreen"},
                            {STATE_SYSTEM_INVISIBLE, "invisible"},   {STATE_SYSTEM_UNAVAILABLE, "unavailable"},
                            {STATE_SYSTEM_READONLY, "readonly"}};

std::string RoleName(LONG role) {
    for (const Named& each : roles)
        if (each.value == role) return each.name;
    return "role " + std::to_string(role);
}

std::string StateNames(LONG state) {
    std::string names;
    for (const Named& each : states) {
        if ((state & each.value) == 0) continue;
        names += std::string(" ") + each.name;
        state &= ~each.value;
    }
    if (state != 0) names += " and " + std::to_string(state);
    return names;
}

using TextQuestion = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);

std::string Text(IAccessible& object, LONG child, TextQuestion question) {
    OwnedBstr text;
    const HRESULT result = (object.*question)(ChildNumber(child), text.Out());
    return SUCCEEDED(result) ? automation::FromBstr(text.Get()) : std::string();
}

LONG Number(const VARIANT& variant) {
    return V_VT(&variant) == VT_I4 ? V_I4(&variant) : -1;
}

}  // namespace

ComPtr<IAccessible> AccessibleOf(HWND window) {
    ComPtr<IAccessible> object;
    AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                               reinterpret_cast<void**>(object.GetAddressOf()));
    return object;
}

VARIANT ChildNumber(LONG child) {
    VARIANT variant;
    VariantInit(&variant);
    V_VT(&variant) = VT_I4;
    V_I4(&variant) = child;
    return variant;
}

std::vector<LONG> ChildrenOf(IAccessible& object, ULONG atOnce) {
    std::vector<LONG> children;
    ComPtr<IEnumVARIANT> walk;
    if (FAILED(object.QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(walk.GetAddressOf())))) return children;
    walk->Reset();
    std::vector<VARIANT> some(atOnce);
    ULONG fetched = 0;
    do {
        if (FAILED(walk->Next(atOnce, some.data(), &fetched))) break;
        for (ULONG each = 0; each < fetched; ++each) children.push_back(Number(some[each]));
    } while (fetched == atOnce);
    return children;
}

std::string DescribeChild(IAccessible& object, LONG child) {
    VARIANT role = ChildNumber(0);
    VARIANT state = ChildNumber(0);
    const HRESULT result = object.get_accRole(ChildNumber(child), &role);
    if (FAILED(result) || FAILED(object.get_accState(ChildNumber(child), &state))) return "gone";
    std::string line = RoleName(Number(role)) + " \"" + Text(object, child, &IAccessible::get_accName) + "\"";
    if (const std::string value = Text(object, child, &IAccessible::get_accValue); !value.empty()) line += " " + value;
    line += StateNames(Number(state));
    const std::string description = Text(object, child, &IAccessible::get_accDescription);
    if (!description.empty()) line += " (" + description + ")";
    const std::string action = Text(object, child, &IAccessible::get_accDefaultAction);
    return action.empty() ? line : line + ": " + action;
}

std::string DescribeTree(IAccessible& object) {
    std::string text = DescribeChild(object, CHILDID_SELF) + "\n";
    for (const LONG child : ChildrenOf(object)) text += "  " + DescribeChild(object, child) + "\n";
    return text;
}

}  // namespace foldertree::testing
