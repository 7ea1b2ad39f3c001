// ScriptFormServer: what a script that is run by cscript lacks. ScriptForm.Form puts a control on a form, plays its
// user and hears its event; ScriptForm.Gauge tells whether the script's process holds more than before.
#include <windows.h>

#include <ole2.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "ChangedSink.h"
#include "ControlSite.h"
#include "LateBound.h"
#include "Resources.h"
#include "automation/Error.h"
#include "automation/TabledObject.h"
#include "automation_win32/Bstr.h"
#include "automation_win32/ComServer.h"
#include "automation_win32/Crossing.h"

namespace {

using automation::Arguments;
using automation::ObjectRef;
using automation::Value;

constexpr const wchar_t* formClass = L"ScriptForm.Form";
constexpr UINT_PTR closeTimer = 1;

void HandleMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

BOOL CALLBACK FindGrid(HWND window, LPARAM found) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    if (lstrcmpiW(name, L"ctlFolderTree.Grid") != 0) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

/// Members: `Show(progId)`, a new control on the form, with the settings of the one before; `Press(key)`;
/// `CloseIn(ms)`; `Close()`; `IsOpen`; `Listener`, an object whose method `Changed` is called when the user changed the
/// selection.
class Form : public automation::TabledObject<Form> {
  public:
    static std::span<const automation::MemberEntry<Form>> Members();

    ~Form() override { Close(); }

    ObjectRef Show(const std::wstring& progId) {
        Close();
        window_ = CreateWindowExW(WS_EX_CONTROLPARENT, WindowClass(), L"Form", WS_POPUP | WS_CLIPCHILDREN, 20, 20, 400,
                                  300, nullptr, nullptr, nullptr, nullptr);
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        ShowWindow(window_, SW_SHOWNA);
        site_ = demo::Adopt(new demo::ControlSite(window_));
        site_->Create(progId.c_str(), settings_, {0, 0, 400, 300});
        sink_ = demo::ChangedSink::Connect(site_->Control(), [this] {
            if (const ObjectRef listener = listener_) listener->Get("Changed");
        });
        HandleMessages();
        return automation::FromCom(site_->Control());
    }

    void Press(WPARAM key) const {
        HWND grid = nullptr;
        EnumChildWindows(window_, FindGrid, reinterpret_cast<LPARAM>(&grid));
        if (grid == nullptr) throw automation::Error(automation::errors::unspecified, "The form shows no tree.");
        // Posted, it has a time like a user's key: the control drops what waited for a read.
        PostMessageW(grid, WM_KEYDOWN, key, 1);
        PostMessageW(grid, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
        HandleMessages();
    }

    void CloseIn(UINT milliseconds) const { SetTimer(window_, closeTimer, milliseconds, nullptr); }

    void Close() {
        if (sink_) std::exchange(sink_, nullptr)->Disconnect();
        if (site_) {
            const auto site = std::exchange(site_, nullptr);
            site->Save(settings_);
            site->Close();
        }
        if (window_ != nullptr) DestroyWindow(std::exchange(window_, nullptr));
    }

    bool IsOpen() const { return window_ != nullptr; }
    void SetListener(ObjectRef listener) { listener_ = std::move(listener); }

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* form = reinterpret_cast<Form*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (form == nullptr || message != WM_TIMER || wParam != closeTimer)
            return DefWindowProcW(window, message, wParam, lParam);
        form->Close();
        return 0;
    }

    static const wchar_t* WindowClass() {
        WNDCLASSW description = {};
        description.lpfnWndProc = Procedure;
        description.lpszClassName = formClass;
        RegisterClassW(&description);  // fails, and does no harm, when it is there already
        return formClass;
    }

    HWND window_ = nullptr;
    demo::ComPtr<demo::ControlSite> site_;
    demo::ComPtr<demo::ChangedSink> sink_;
    std::map<std::string, std::string> settings_;
    ObjectRef listener_;
};

std::span<const automation::MemberEntry<Form>> Form::Members() {
    static constexpr automation::MemberEntry<Form> members[] = {
        {.name = "Show",
         .get =
             [](Form& form, const Arguments& arguments) {
                 try {
                     return Value(form.Show(automation::ToWide(arguments[0].ToText())));
                 } catch (const demo::AutomationFailure& failure) {
                     throw automation::Error(static_cast<uint32_t>(failure.error),
                                             automation::FromWide(failure.Message()));
                 }
             },
         .maxArguments = 1},
        {.name = "Press",
         .get =
             [](Form& form, const Arguments& arguments) {
                 form.Press(static_cast<WPARAM>(arguments[0].ToLong()));
                 return Value();
             },
         .maxArguments = 1},
        {.name = "CloseIn",
         .get =
             [](Form& form, const Arguments& arguments) {
                 form.CloseIn(static_cast<UINT>(arguments[0].ToLong()));
                 return Value();
             },
         .maxArguments = 1},
        {.name = "Close",
         .get =
             [](Form& form, const Arguments&) {
                 form.Close();
                 return Value();
             }},
        {.name = "IsOpen", .get = [](Form& form, const Arguments&) { return Value(form.IsOpen()); }},
        {.name = "Listener", .put = [](Form& form, const Value& listener) { form.SetListener(listener.ToObject()); }},
    };
    return members;
}

/// Members: `Begin()`, `Report`, a text with what the process held then and holds now, and `HasGrown`.
class Gauge : public automation::TabledObject<Gauge> {
  public:
    static std::span<const automation::MemberEntry<Gauge>> Members();

    void Begin() { first_ = soak::Resources::Now(); }
    std::vector<soak::Comparison> Compare() const { return soak::Compare(first_, soak::Resources::Now()); }

  private:
    soak::Resources first_;
};

std::span<const automation::MemberEntry<Gauge>> Gauge::Members() {
    static constexpr automation::MemberEntry<Gauge> members[] = {
        {.name = "Begin",
         .get =
             [](Gauge& gauge, const Arguments&) {
                 gauge.Begin();
                 return Value();
             }},
        {.name = "Report", .get = [](Gauge& gauge, const Arguments&) { return Value(Describe(gauge.Compare())); }},
        {.name = "HasGrown", .get = [](Gauge& gauge, const Arguments&) { return Value(AnyHasGrown(gauge.Compare())); }},
    };
    return members;
}

}  // namespace

automation::ComServer automation::DescribeServer(HMODULE module) {
    constexpr CLSID form = {0x5d0f6c1e, 0x3a47, 0x4c0b, {0x9e, 0x52, 0x7b, 0x11, 0xc8, 0x4d, 0x60, 0xa9}};
    constexpr CLSID gauge = {0x0c5b7e92, 0x61d3, 0x4f28, {0xa7, 0x0d, 0x3e, 0x95, 0x1b, 0x66, 0xf4, 0x2c}};
    return {module,
            false,
            {{form, formClass, L"A form for scripts", [] { return ToCom(std::make_shared<Form>()); }},
             {gauge, L"ScriptForm.Gauge", L"A gauge for scripts", [] { return ToCom(std::make_shared<Gauge>()); }}}};
}
