// AccessibleObject: a window's client area as assistive programs hold it.
#include "win32/AccessibleObject.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "automation_win32/Bstr.h"
#include "automation_win32/ComError.h"

namespace foldertree {

using automation::ComPtr;

namespace {

constexpr LONG self = CHILDID_SELF;

/// The system's description of IAccessible. The import library of oleacc.dll has identifiers of these names that are
/// code, so they are not taken from there.
constexpr GUID accessibilityLibrary = {0x1ea4dbf0, 0x3c3b, 0x11cf, {0x81, 0x0c, 0x00, 0xaa, 0x00, 0x38, 0x9b, 0x71}};

/// Of a variant by which a child is named; the object itself where it is left out.
std::optional<LONG> ChildOf(const VARIANT& child) {
    if (V_VT(&child) == VT_I4) return V_I4(&child);
    const bool leftOut = V_VT(&child) == VT_ERROR && V_ERROR(&child) == DISP_E_PARAMNOTFOUND;
    return leftOut || V_VT(&child) == VT_EMPTY ? std::optional(self) : std::nullopt;
}

void TellNumber(VARIANT* variant, LONG number) {
    V_VT(variant) = VT_I4;
    V_I4(variant) = number;
}

/// Nothing where it is 0.
HRESULT TellChild(VARIANT* variant, LONG child, HRESULT none) {
    if (child == self) return none;
    TellNumber(variant, child);
    return S_OK;
}

/// For late-bound callers.
HRESULT LoadTypeInfo(ITypeInfo** info) {
    ComPtr<ITypeLib> library;
    if (FAILED(LoadRegTypeLib(accessibilityLibrary, 1, 1, LOCALE_NEUTRAL, library.GetAddressOf())) &&
        FAILED(LoadTypeLib(L"oleacc.dll", library.ReleaseAndGetAddressOf())))
        return E_NOTIMPL;
    return library->GetTypeInfoOfGuid(__uuidof(IAccessible), info);
}

}  // namespace

// ---- The edge

void* AccessibleObject::FindInterface(REFIID iid) {
    return iid == IID_IDispatch ? static_cast<IDispatch*>(static_cast<IAccessible*>(this)) : nullptr;
}

bool AccessibleObject::Connected() const {
    return connection_->answers != nullptr && connection_->answers->Window() == connection_->window;
}

/// Runs `body(answers)`. What it calls may let go of this object and of everything behind it.
template <class Body>
HRESULT AccessibleObject::Ask(Body&& body) noexcept {
    if (GetCurrentThreadId() != connection_->thread) return RPC_E_WRONG_THREAD;
    if (!Connected()) return CO_E_OBJNOTCONNECTED;
    const ComPtr<IAccessible> kept(this);
    const Held held(*connection_->keeper);
    return automation::ComBoundary([&] { return body(*connection_->answers); });
}

/// The same for a child that must be there.
template <class Body>
HRESULT AccessibleObject::AskOf(const VARIANT& child, Body&& body) noexcept {
    return Ask([&](AccessibleAnswers& answers) {
        const std::optional<LONG> number = ChildOf(child);
        if (!number || (*number != self && !answers.Has(*number))) return E_INVALIDARG;
        return body(answers, *number);
    });
}

// ---- IDispatch

HRESULT AccessibleObject::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT AccessibleObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return index == 0 ? LoadTypeInfo(info) : DISP_E_BADINDEX;
}

HRESULT AccessibleObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    ComPtr<ITypeInfo> info;
    const HRESULT loaded = LoadTypeInfo(info.GetAddressOf());
    return FAILED(loaded) ? loaded : DispGetIDsOfNames(info.Get(), names, count, ids);
}

HRESULT AccessibleObject::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                 EXCEPINFO* exception, UINT* wrongArgument) {
    ComPtr<ITypeInfo> info;
    const HRESULT loaded = LoadTypeInfo(info.GetAddressOf());
    if (FAILED(loaded)) return loaded;
    return DispInvoke(static_cast<IAccessible*>(this), info.Get(), member, flags, parameters, result, exception,
                      wrongArgument);
}

// ---- The tree

HRESULT AccessibleObject::get_accParent(IDispatch** parent) {
    if (parent == nullptr) return E_POINTER;
    *parent = nullptr;
    return Ask([&](AccessibleAnswers&) {
        return AccessibleObjectFromWindow(connection_->window, static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                                          reinterpret_cast<void**>(parent));
    });
}

HRESULT AccessibleObject::get_accChildCount(LONG* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return Ask([&](AccessibleAnswers& answers) {
        *count = answers.Count();
        return S_OK;
    });
}

// The children are simple elements: they have no object of their own.
HRESULT AccessibleObject::get_accChild(VARIANT child, IDispatch** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    return AskOf(child, [&](AccessibleAnswers&, LONG number) {
        if (number != self) return S_FALSE;
        AddRef();
        *object = static_cast<IAccessible*>(this);
        return S_OK;
    });
}

HRESULT AccessibleObject::accNavigate(LONG direction, VARIANT start, VARIANT* end) {
    if (end == nullptr) return E_POINTER;
    VariantInit(end);
    return AskOf(start, [&](AccessibleAnswers& answers, LONG child) {
        if (direction <= NAVDIR_MIN || direction >= NAVDIR_MAX) return E_INVALIDARG;
        LONG to = 0;
        if (child != self)
            to = answers.Step(direction, child);
        else if (direction == NAVDIR_FIRSTCHILD)
            to = answers.ChildAt(0);
        else if (direction == NAVDIR_LASTCHILD)
            to = answers.ChildAt(answers.Count() - 1);
        return TellChild(end, to, S_FALSE);
    });
}

HRESULT AccessibleObject::get_accFocus(VARIANT* child) {
    if (child == nullptr) return E_POINTER;
    VariantInit(child);
    return Ask([&](AccessibleAnswers& answers) { return TellChild(child, answers.Focus(), S_OK); });
}

HRESULT AccessibleObject::get_accSelection(VARIANT* children) {
    if (children == nullptr) return E_POINTER;
    VariantInit(children);
    return Ask([&](AccessibleAnswers& answers) { return TellChild(children, answers.Selection(), S_OK); });
}

// ---- Texts and numbers

HRESULT AccessibleObject::TellText(const VARIANT& child, BSTR* text, std::string (AccessibleAnswers::*question)(LONG)) {
    if (text == nullptr) return E_POINTER;
    *text = nullptr;
    return AskOf(child, [&](AccessibleAnswers& answers, LONG number) {
        const std::string answer = (answers.*question)(number);
        if (answer.empty()) return S_FALSE;
        *text = automation::ToBstr(answer);
        return S_OK;
    });
}

// A name may be empty, which is another answer than having none.
HRESULT AccessibleObject::get_accName(VARIANT child, BSTR* name) {
    const HRESULT result = TellText(child, name, &AccessibleAnswers::Name);
    if (result != S_FALSE) return result;
    *name = SysAllocString(L"");
    return *name != nullptr ? S_OK : E_OUTOFMEMORY;
}

HRESULT AccessibleObject::get_accValue(VARIANT child, BSTR* value) {
    return TellText(child, value, &AccessibleAnswers::Value);
}

HRESULT AccessibleObject::get_accDescription(VARIANT child, BSTR* description) {
    return TellText(child, description, &AccessibleAnswers::Description);
}

HRESULT AccessibleObject::get_accDefaultAction(VARIANT child, BSTR* action) {
    return TellText(child, action, &AccessibleAnswers::Action);
}

HRESULT AccessibleObject::get_accRole(VARIANT child, VARIANT* role) {
    if (role == nullptr) return E_POINTER;
    VariantInit(role);
    return AskOf(child, [&](AccessibleAnswers& answers, LONG number) {
        TellNumber(role, answers.Role(number));
        return S_OK;
    });
}

HRESULT AccessibleObject::get_accState(VARIANT child, VARIANT* state) {
    if (state == nullptr) return E_POINTER;
    VariantInit(state);
    return Ask([&](AccessibleAnswers& answers) {
        answers.BringUpToDate();
        return AskOf(child, [&](AccessibleAnswers& fresh, LONG number) {
            TellNumber(state, fresh.State(number));
            return S_OK;
        });
    });
}

// ---- Places

HRESULT AccessibleObject::accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) {
    if (left == nullptr || top == nullptr || width == nullptr || height == nullptr) return E_POINTER;
    *left = *top = *width = *height = 0;
    return Ask([&](AccessibleAnswers& answers) {
        answers.BringUpToDate();
        return AskOf(child, [&](AccessibleAnswers& fresh, LONG number) {
            RECT place = fresh.Place(number);
            if (IsRectEmpty(&place)) return S_OK;
            MapWindowPoints(connection_->window, nullptr, reinterpret_cast<POINT*>(&place), 2);
            *left = place.left;
            *top = place.top;
            *width = place.right - place.left;
            *height = place.bottom - place.top;
            return S_OK;
        });
    });
}

HRESULT AccessibleObject::accHitTest(LONG left, LONG top, VARIANT* child) {
    if (child == nullptr) return E_POINTER;
    VariantInit(child);
    return Ask([&](AccessibleAnswers& answers) {
        answers.BringUpToDate();
        return Ask([&](AccessibleAnswers& fresh) {
            POINT point{left, top};
            RECT client{};
            MapWindowPoints(nullptr, connection_->window, &point, 1);
            GetClientRect(connection_->window, &client);
            if (!PtInRect(&client, point)) return S_FALSE;
            TellNumber(child, fresh.ChildAtPoint(point));
            return S_OK;
        });
    });
}

// ---- Acts

HRESULT AccessibleObject::accSelect(LONG flags, VARIANT child) {
    return AskOf(child, [&](AccessibleAnswers& answers, LONG number) { return answers.Select(flags, number); });
}

HRESULT AccessibleObject::accDoDefaultAction(VARIANT child) {
    return AskOf(child, [&](AccessibleAnswers& answers, LONG number) { return answers.DoAction(number); });
}

// ---- What nothing here has

HRESULT AccessibleObject::get_accHelp(VARIANT, BSTR* help) {
    if (help != nullptr) *help = nullptr;
    return DISP_E_MEMBERNOTFOUND;
}

HRESULT AccessibleObject::get_accHelpTopic(BSTR* file, VARIANT, LONG* topic) {
    if (file != nullptr) *file = nullptr;
    if (topic != nullptr) *topic = 0;
    return DISP_E_MEMBERNOTFOUND;
}

HRESULT AccessibleObject::get_accKeyboardShortcut(VARIANT, BSTR* shortcut) {
    if (shortcut != nullptr) *shortcut = nullptr;
    return DISP_E_MEMBERNOTFOUND;
}

HRESULT AccessibleObject::put_accName(VARIANT, BSTR) {
    return DISP_E_MEMBERNOTFOUND;
}

HRESULT AccessibleObject::put_accValue(VARIANT, BSTR) {
    return DISP_E_MEMBERNOTFOUND;
}

// ---- IEnumVARIANT

LONG AccessibleObject::NextPosition(AccessibleAnswers& answers) const {
    if (lastChild_ == 0) return position_;
    const LONG last = answers.Has(lastChild_) ? answers.PositionOf(lastChild_) : -1;
    // Where the last child has gone, the next one stands in its place: rather one twice than one left out.
    return last >= 0 ? last + 1 : position_ - 1;
}

HRESULT AccessibleObject::Next(ULONG count, VARIANT* children, ULONG* fetched) {
    if (fetched != nullptr) *fetched = 0;
    if (children == nullptr || (fetched == nullptr && count != 1)) return E_POINTER;
    return Ask([&](AccessibleAnswers& answers) {
        LONG position = NextPosition(answers);
        LONG last = lastChild_;
        ULONG found = 0;
        for (LONG child; found < count && (child = answers.ChildAt(position)) != 0; ++position, ++found) {
            VariantInit(&children[found]);
            TellNumber(&children[found], last = child);
        }
        position_ = position;
        lastChild_ = last;
        if (fetched != nullptr) *fetched = found;
        return found == count ? S_OK : S_FALSE;
    });
}

HRESULT AccessibleObject::Skip(ULONG count) {
    return Ask([&](AccessibleAnswers& answers) {
        const LONG position = NextPosition(answers);
        const auto left = static_cast<ULONG>(std::max<LONG>(0, answers.Count() - position));
        position_ = position + static_cast<LONG>(std::min(count, left));
        lastChild_ = 0;
        return count <= left ? S_OK : S_FALSE;
    });
}

HRESULT AccessibleObject::Reset() {
    position_ = lastChild_ = 0;
    return S_OK;
}

HRESULT AccessibleObject::Clone(IEnumVARIANT** clone) {
    if (clone == nullptr) return E_POINTER;
    *clone = nullptr;
    return Ask([&](AccessibleAnswers&) {
        auto other = automation::MakeCom<AccessibleObject>(connection_);
        other->position_ = position_;
        other->lastChild_ = lastChild_;
        *clone = other.Detach();
        return S_OK;
    });
}

// ---- IOleWindow

HRESULT AccessibleObject::GetWindow(HWND* window) {
    if (window == nullptr) return E_POINTER;
    *window = nullptr;
    return Ask([&](AccessibleAnswers&) {
        *window = connection_->window;
        return S_OK;
    });
}

HRESULT AccessibleObject::ContextSensitiveHelp(BOOL) {
    return E_NOTIMPL;
}

}  // namespace foldertree
