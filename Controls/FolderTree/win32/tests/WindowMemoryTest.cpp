// WindowMemoryTest: memory runs out at every allocation of all that the window does; it survives, and leaks nothing.
#include <iostream>
#include <new>
#include <optional>

#include "WindowFixture.h"
// After <windows.h>, which it needs
#include <winternl.h>

#include <oleacc.h>

#include "automation_testing/FailingMemory.h"
#include "automation_win32/Bstr.h"
#include "automation_win32/ComPtr.h"
#include "win32/window/ControlWindow.h"

namespace foldertree {
namespace {

using namespace sample;

using automation::testing::FailEachAllocation;
using automation::testing::FailingMemory;
using automation::testing::MemoryPlan;

/// GDI objects of this process. Wine does not count them, but keeps them in the table where Windows does.
DWORD GdiObjects() {
    GdiFlush();
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS); counted != 0) return counted;
    constexpr size_t tableInProcess = sizeof(void*) == 8 ? 0xF8 : 0x94;
    constexpr size_t entrySize = 24;
    constexpr size_t typeInEntry = 14;
    constexpr size_t entries = 0x4000;
    const auto* process = reinterpret_cast<const BYTE*>(NtCurrentTeb()->ProcessEnvironmentBlock);
    const auto* table = *reinterpret_cast<const BYTE* const*>(process + tableInProcess);
    DWORD count = 0;
    for (size_t entry = 0; entry < entries; ++entry) count += table[entry * entrySize + typeInEntry] != 0;
    return count;
}

/// Counts what it is told, without memory.
class CountingEvents : public GridEvents {
  public:
    int before = 0;
    int after = 0;
    void fgd_BeforeEdit(int32_t, int32_t, bool&) override { ++before; }
    void fgd_ValidateEdit(int32_t, int32_t, bool&) override {}
    void fgd_AfterEdit(int32_t, int32_t) override { ++after; }
    void fgd_BeforeCollapse(int32_t, int16_t, bool&) override {}
    void fgd_DblClick() override {}
};

/// A device context to draw into.
struct Canvas {
    Canvas() = default;
    ~Canvas() { DeleteDC(dc); }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    const HDC dc = CreateCompatibleDC(nullptr);
};

constexpr int32_t lastFolder = 21;

/// A control with more rows than fit, on a form.
class Form {
  public:
    explicit Form(HWND host) : host_(host) {
        SetUpGrid(grid);
        AddFolder(grid, 0, "Mailbox", rowKind::store);
        for (int row = 0; row < 20; ++row) AddFolder(grid, 1, "A folder whose name needs memory");
        for (int row = 0; row < 3; ++row) AddFolder(grid, 2, "Below the last folder");
        TickRow(grid, 3, "12");
        grid.DeliverChanges();
    }

    void Make() {
        control.emplace(ControlParts{grid, events, [this] { ++cancels; }, HasBox}, keeper);
    }
    void Show() {
        if (!control) Make();
        control->Create(host_, {10, 10, 260, 130});
    }
    HWND Grid() const { return control->Grid().Handle(); }
    const GridLayout& Layout() const { return control->Grid().Layout(); }
    void Send(UINT message, WPARAM wParam, LPARAM lParam = 1) const { SendMessageW(Grid(), message, wParam, lParam); }
    void Click(POINT point) const { Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y)); }
    void ClickBox(int32_t position) const { Click(Middle(Layout().Box(Layout().Cell(position, colSel)))); }
    void InEditor(UINT message, WPARAM wParam) const {
        if (const NumberEditor* editor = control->Grid().Editor()) SendMessageW(editor->Handle(), message, wParam, 1);
    }
    void Repaint() const {
        InvalidateRect(Grid(), nullptr, FALSE);
        UpdateWindow(Grid());
    }

    TreeGrid grid{sample::schema};
    CountingEvents events;
    TestKeeper keeper;
    int cancels = 0;
    std::optional<ControlWindow> control;

  private:
    HWND host_;
};

class WindowMemory : public testing::Test {
  protected:
    using Step = std::function<void(Form&)>;

    HostWindow host_;

    /// Plays the scenario once for each allocation that it makes in `act`.
    void Play(const Step& prepare, const Step& act) {
        Run({}, prepare, act);  // what Windows and its fonts keep for themselves is there from now on
        for (const bool andAllAfter : {false, true}) {
            const int64_t failures = FailEachAllocation(andAllAfter, [&](const MemoryPlan& plan) {
                return !HasFailure() && RunWithoutLeak(plan, prepare, act);
            });
            EXPECT_GT(failures, 0);
            std::cout << failures << (andAllAfter ? " allocations, from then on\n" : " allocations, once\n");
        }
    }
    static void Shown(Form& form) {
        form.Show();
        HostWindow::Pump();
    }
    /// How many allocations failed.
    static int64_t Fail(const MemoryPlan& plan, Form& form, const Step& act) {
        const FailingMemory memory(plan);
        try {
            act(form);
        } catch (const std::bad_alloc&) {
            // Whoever calls a member of the window hears of it.
        }
        return memory.Refused();
    }

  private:
    // What grows once is something that Windows keeps for later; what grows each time is lost.
    bool RunWithoutLeak(const MemoryPlan& plan, const Step& prepare, const Step& act) {
        bool refused = false;
        for (int time = 0; time < 3; ++time) {
            refused = Run(plan, prepare, act);
            if (!leaked_) return refused;
        }
        ADD_FAILURE() << "GDI objects are lost with allocation " << plan.first;
        return refused;
    }
    bool Run(const MemoryPlan& plan, const Step& prepare, const Step& act) {
        SCOPED_TRACE("allocation " + std::to_string(plan.first) + (plan.andAllAfter ? " and all after" : ""));
        const DWORD objects = GdiObjects();
        int64_t refused = 0;
        {
            Form form(host_.Handle());
            prepare(form);
            refused = Fail(plan, form, act);
            ExpectUsable(form);
        }
        EXPECT_EQ(GetWindow(host_.Handle(), GW_CHILD), nullptr);
        leaked_ = GdiObjects() > objects;
        return refused > 0;
    }
    /// Everything works as if nothing had been, and what is seen is what is there.
    static void ExpectUsable(Form& form) {
        Shown(form);
        ASSERT_NE(form.Grid(), nullptr);
        ASSERT_NE(form.control->Panel().Handle(), nullptr);
        form.control->ShowWaitPanel(false);
        form.Send(WM_VSCROLL, SB_TOP);
        const int told = form.events.after;
        form.ClickBox(1);
        EXPECT_EQ(form.events.after, told + 1);
        EXPECT_EQ(form.control->Grid().Editor(), nullptr) << "the click ends an edit";
        form.control->FlushPaint();
        const Pixels shown = OnScreen(form.Grid());
        form.Repaint();
        EXPECT_EQ(OnScreen(form.Grid()), shown);
        EXPECT_GT(shown.Drawn(form.Layout().NameText(form.Layout().Cell(1, colName), 1, true)), 20);
    }

    bool leaked_ = false;  ///< there are more GDI objects than before the last run
};

TEST_F(WindowMemory, RunsOutWhileTheControlIsMade) {
    Play([](Form&) {}, [](Form& form) { form.Make(); });
}

TEST_F(WindowMemory, RunsOutWhileTheWindowIsMade) {
    Play([](Form& form) { form.Make(); }, [](Form& form) { form.Show(); });
}

TEST_F(WindowMemory, RunsOutWhileAClassOfWindowsIsMadeKnown) {
    const SquarePictures pictures;
    FailEachAllocation(false, [&](const MemoryPlan& plan) {
        Form form(host_.Handle());
        const std::wstring name = L"A class for allocation " + std::to_wstring(plan.first);
        GridWindow window({form.grid, form.events, pictures, HasBox, name.c_str()}, form.keeper, [] {});
        const int64_t refused = Fail(plan, form, [&](Form&) { window.Create(host_.Handle(), {0, 0, 100, 100}); });
        EXPECT_NE(window.Create(host_.Handle(), {0, 0, 100, 100}), nullptr) << "after allocation " << plan.first;
        return refused > 0 && !HasFailure();
    });
}

TEST_F(WindowMemory, RunsOutWhileItPaints) {
    Play(Shown, [](Form& form) { form.Repaint(); });
}

TEST_F(WindowMemory, WhatCouldNotBePaintedIsPaintedWithTheNextFrame) {
    FailEachAllocation(false, [&](const MemoryPlan& plan) {
        Form form(host_.Handle());
        Shown(form);
        TickRow(form.grid, 2, "7");
        const int64_t refused = Fail(plan, form, [](Form& failing) { failing.control->FlushPaint(); });
        form.control->FlushPaint();
        const Pixels shown = OnScreen(form.Grid());
        form.Repaint();
        EXPECT_EQ(OnScreen(form.Grid()), shown) << "after allocation " << plan.first;
        EXPECT_GT(shown.Drawn(form.Layout().Cell(1, colName)), 20);
        return refused > 0 && !HasFailure();
    });
}

TEST_F(WindowMemory, RunsOutWhileItIsDrawnWithoutAWindow) {
    Play([](Form& form) { form.Make(); },
         [](Form& form) {
             const Canvas canvas;
             form.control->Draw(canvas.dc, {0, 0, 200, 100});
         });
}

TEST_F(WindowMemory, RunsOutWhileItScrolls) {
    Play(Shown, [](Form& form) {
        form.Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)));
        form.Send(WM_KEYDOWN, VK_END);
        form.Repaint();
    });
}

TEST_F(WindowMemory, RunsOutInAClickOnTheBox) {
    Play(Shown, [](Form& form) {
        form.ClickBox(1);
        form.control->FlushPaint();
    });
}

TEST_F(WindowMemory, RunsOutWhileANodeIsOpenedAndClosed) {
    Play(Shown, [](Form& form) {
        form.grid.SetCurrentRow(lastFolder);
        form.Send(WM_KEYDOWN, VK_LEFT);
        form.Send(WM_KEYDOWN, VK_RIGHT);
        form.Send(WM_CHAR, L'-');
        form.control->FlushPaint();
    });
}

TEST_F(WindowMemory, RunsOutWhileANumberIsEdited) {
    Play(Shown, [](Form& form) {
        form.grid.SetCurrentRow(3);
        form.Send(WM_KEYDOWN, VK_F2);
        form.InEditor(WM_CHAR, L'7');
        form.InEditor(WM_KEYDOWN, VK_RETURN);
        form.Send(WM_CHAR, L'4');
        form.InEditor(WM_KEYDOWN, VK_ESCAPE);
        form.control->FlushPaint();
    });
}

TEST_F(WindowMemory, RunsOutWhileALoadShowsItsProgress) {
    Play(Shown, [](Form& form) {
        form.control->SetWaitCaptions("Please wait, this takes its time", "Cancel, it takes too long");
        form.control->SetBusyPointer(true);
        form.control->ShowWaitPanel(true);
        form.control->SetProgressText("A mailbox\\with a folder that has a long name");
        form.control->SetProgress(10, 3);
        form.control->PumpMessages();
        form.control->FlushPaint();
        form.control->ShowWaitPanel(false);
        form.control->SetBusyPointer(false);
    });
}

TEST_F(WindowMemory, RunsOutWhileRowsComeAndGo) {
    Play(Shown, [](Form& form) {
        AddFolder(form.grid, 1, "One more folder, with a name of its own");
        form.grid.RemoveRow(2);
        form.grid.DeliverChanges();
        form.control->FlushPaint();
    });
}

TEST_F(WindowMemory, IsNotNeededToEnd) {
    Form form(host_.Handle());
    Shown(form);
    form.grid.SetCurrentRow(3);
    form.Send(WM_KEYDOWN, VK_F2);
    ASSERT_NE(form.control->Grid().Editor(), nullptr);
    const FailingMemory memory({1, true});
    form.control->Destroy();
    form.control.reset();
    EXPECT_EQ(memory.Asked(), 0);
}

TEST(WindowMemoryCount, SeesWhatIsMadeAndWhatIsGivenBack) {
    const DWORD before = GdiObjects();
    const HBITMAP bitmap = CreateBitmap(8, 8, 1, 32, nullptr);
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    EXPECT_EQ(GdiObjects(), before + 2);
    DeleteObject(bitmap);
    DeleteObject(brush);
    EXPECT_EQ(GdiObjects(), before);
}

// ---- Assistive programs

/// Asks for all there is, with no memory of its own.
void ReadAsAnAssistiveProgram(HWND window) {
    automation::ComPtr<IAccessible> object;
    AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                               reinterpret_cast<void**>(object.GetAddressOf()));
    automation::ComPtr<IEnumVARIANT> walk;
    if (!object || FAILED(object.As(&walk))) return;
    VARIANT child;
    VARIANT answer;
    V_VT(&child) = VT_I4;
    for (V_I4(&child) = CHILDID_SELF; V_VT(&child) == VT_I4;) {
        for (const auto question : {&IAccessible::get_accName, &IAccessible::get_accValue,
                                    &IAccessible::get_accDescription, &IAccessible::get_accDefaultAction}) {
            automation::OwnedBstr text;
            (object.Get()->*question)(child, text.Out());
        }
        object->get_accState(child, &answer);
        object->accNavigate(NAVDIR_NEXT, child, &answer);
        if (walk->Next(1, &child, nullptr) != S_OK) break;
    }
    automation::ComPtr<IEnumVARIANT> copy;
    walk->Clone(copy.GetAddressOf());
}

TEST_F(WindowMemory, AnAssistiveProgramIsToldThatThereIsNone) {
    ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr)));
    Play(Shown, [](Form& form) { ReadAsAnAssistiveProgram(form.Grid()); });
    Play(Shown, [](Form& form) { ReadAsAnAssistiveProgram(form.control->Panel().Handle()); });
    CoUninitialize();
}

TEST_F(WindowMemory, AnEventThatCannotBeToldNow) {
    Play(Shown, [](Form& form) {
        form.grid.SetCurrentRow(5);
        form.grid.SetCellText(4, colSel, "-1");
        form.control->FlushPaint();
    });
}

}  // namespace
}  // namespace foldertree
