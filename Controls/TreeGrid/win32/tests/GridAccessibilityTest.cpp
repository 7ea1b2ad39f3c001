// GridAccessibilityTest: a grid's window as assistive programs see it, in this process and from another one.
#include "win32/GridAccessibility.h"

#include <gtest/gtest.h>

#include <oleacc.h>

#include <thread>

#include "AccessibleReader.h"
#include "OtherReader.h"
#include "WindowFixture.h"
#include "automation_win32/Bstr.h"
#include "tests/AccessibleFixture.h"
#include "win32/GridWindow.h"

namespace foldertree::testing {
namespace {

using namespace sample;
using automation::ComPtr;
using automation::OwnedBstr;
using Log = std::vector<std::string>;

class Com : public ::testing::Environment {
  public:
    void SetUp() override { ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr))); }
    void TearDown() override { CoUninitialize(); }
};
[[maybe_unused]] ::testing::Environment* const com = ::testing::AddGlobalTestEnvironment(new Com);

constexpr HRESULT busy = static_cast<HRESULT>(0x800700AA);

class GridAccessibilityTest : public ::testing::Test {
  protected:
    GridAccessibilityTest() {
        SetUpGrid(grid_);
        AddFolder(grid_, 0, "Mailbox", rowKind::store);  // 1
        AddFolder(grid_, 1, "Calendar");                 // 2
        AddFolder(grid_, 1, "Inbox");                    // 3
        AddFolder(grid_, 2, "Customers");                // 4
        AddFolder(grid_, 1, "Tasks");                    // 5
        AddFolder(grid_, 2, "", rowKind::dummy);         // 6
        AddFolder(grid_, 1, "Trash");                    // 7
        grid_.SetNodeState(5, nodeCollapsed);
        Make();
    }
    ~GridAccessibilityTest() override {
        if (hook_ != nullptr) UnhookWinEvent(hook_);
        heard_ = nullptr;
    }

    void Make() {
        window_ = std::make_unique<GridWindow>(
            GridWindowParts{grid_, events_, pictures_, HasBox, L"TestGrid", nullptr, accessibleHost_}, keeper_, [] {});
        window_->Create(host_.Handle(), {0, 0, 400, 300});
        Update();
        object_ = AccessibleOf(window_->Handle());
        ASSERT_TRUE(object_);
    }
    void Update() {
        if (!window_) return;
        window_->Refresh();
        UpdateWindow(window_->Handle());
    }
    void EndEverything() {
        window_->DestroyHandle();
        keeper_.WhenFree([this] { window_.reset(); });
    }

    LONG Child(int32_t row) {
        const auto position = static_cast<size_t>(grid_.VisiblePosition(row).value_or(-1));
        return ChildrenOf(*object_.Get()).at(position);
    }
    std::string Describe(int32_t row) { return DescribeChild(*object_.Get(), Child(row)); }
    HRESULT Act(LONG child) { return object_->accDoDefaultAction(ChildNumber(child)); }
    HRESULT Select(LONG flags, LONG child) { return object_->accSelect(flags, ChildNumber(child)); }
    RECT Place(LONG child) {
        LONG left = -1, top = -1, width = -1, height = -1;
        EXPECT_EQ(object_->accLocation(&left, &top, &width, &height, ChildNumber(child)), S_OK);
        return {left, top, left + width, top + height};
    }
    RECT OnScreenPlace(RECT place) {
        MapWindowPoints(window_->Handle(), nullptr, reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    /// The child at a point of the screen; -1 for none, with S_FALSE.
    LONG Hit(POINT point) {
        VARIANT child = ChildNumber(-2);
        const HRESULT result = object_->accHitTest(point.x, point.y, &child);
        EXPECT_EQ(result, V_VT(&child) == VT_I4 ? S_OK : S_FALSE);
        return V_VT(&child) == VT_I4 ? V_I4(&child) : -1;
    }
    LONG Navigate(LONG direction, LONG from) {
        VARIANT child = ChildNumber(-2);
        const HRESULT result = object_->accNavigate(direction, ChildNumber(from), &child);
        EXPECT_EQ(result, V_VT(&child) == VT_I4 ? S_OK : S_FALSE);
        return V_VT(&child) == VT_I4 ? V_I4(&child) : -1;
    }
    LONG Answered(HRESULT (STDMETHODCALLTYPE IAccessible::*question)(VARIANT*)) {
        VARIANT child = ChildNumber(-2);
        EXPECT_EQ((object_.Get()->*question)(&child), S_OK);
        return V_VT(&child) == VT_I4 ? V_I4(&child) : -1;
    }

    /// What every member answers about a child.
    std::vector<HRESULT> AskAll(const VARIANT& child) {
        std::vector<HRESULT> results;
        for (const auto question : {&IAccessible::get_accName, &IAccessible::get_accValue,
                                    &IAccessible::get_accDescription, &IAccessible::get_accDefaultAction}) {
            OwnedBstr text;
            results.push_back((object_.Get()->*question)(child, text.Out()));
        }
        VARIANT answer = ChildNumber(0);
        LONG number = 0;
        ComPtr<IDispatch> object;
        results.push_back(object_->get_accRole(child, &answer));
        results.push_back(object_->get_accState(child, &answer));
        results.push_back(object_->get_accChild(child, object.GetAddressOf()));
        results.push_back(object_->accLocation(&number, &number, &number, &number, child));
        results.push_back(object_->accNavigate(NAVDIR_NEXT, child, &answer));
        results.push_back(object_->accSelect(SELFLAG_TAKESELECTION, child));
        results.push_back(object_->accDoDefaultAction(child));
        return results;
    }
    std::vector<HRESULT> AskAll(LONG child) { return AskAll(ChildNumber(child)); }
    void ExpectNotConnected() {
        for (const LONG child : {0, 1, 999})
            for (const HRESULT result : AskAll(child)) EXPECT_EQ(result, CO_E_OBJNOTCONNECTED);
        LONG count = 0;
        VARIANT answer = ChildNumber(0);
        HWND window = nullptr;
        ULONG fetched = 0;
        ComPtr<IDispatch> parent;
        ComPtr<IEnumVARIANT> walk, copy;
        ComPtr<IOleWindow> place;
        EXPECT_EQ(object_->get_accChildCount(&count), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object_->get_accParent(parent.GetAddressOf()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object_->get_accFocus(&answer), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object_->get_accSelection(&answer), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object_->accHitTest(100, 100, &answer), CO_E_OBJNOTCONNECTED);
        ASSERT_EQ(object_.As(&walk), S_OK);
        ASSERT_EQ(object_.As(&place), S_OK);
        EXPECT_EQ(walk->Next(1, &answer, &fetched), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(walk->Skip(1), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(walk->Clone(copy.GetAddressOf()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(place->GetWindow(&window), CO_E_OBJNOTCONNECTED);
    }

    /// Listens to events of the grid's client object from now on.
    void Listen() {
        heard_ = this;
        hook_ = SetWinEventHook(EVENT_MIN, EVENT_MAX, nullptr, &GridAccessibilityTest::Hear, GetCurrentProcessId(), 0,
                                WINEVENT_OUTOFCONTEXT);
        ASSERT_NE(hook_, nullptr);
        Frame();
    }
    /// What one frame tells, by rows.
    Log Frame() {
        window_->Refresh();
        window_->SendEvents();
        HostWindow::PumpUntil([this] {
            NotifyWinEvent(EVENT_OBJECT_HELPCHANGE, window_->Handle(), OBJID_CLIENT, ++lastMark_);
            HostWindow::Pump();
            return heardMark_ != 0;
        });
        HostWindow::Pump();
        heardMark_ = 0;
        return std::exchange(log_, {});
    }

    HostWindow host_;
    TreeGrid grid_{sample::schema};
    RecordingEvents events_{grid_};
    SquarePictures pictures_;
    TestKeeper keeper_;
    FakeHost accessibleHost_;
    std::unique_ptr<GridWindow> window_;
    ComPtr<IAccessible> object_;

  private:
    static void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD, DWORD) {
        if (heard_ == nullptr || heard_->window_ == nullptr || window != heard_->window_->Handle()) return;
        if (object != OBJID_CLIENT) return;
        if (event == EVENT_OBJECT_HELPCHANGE) {
            heard_->heardMark_ = child;
            return;
        }
        std::string line = event == EVENT_OBJECT_REORDER             ? "reorder"
                           : event == EVENT_OBJECT_SELECTION         ? "selection"
                           : event == EVENT_OBJECT_FOCUS             ? "focus"
                           : event == EVENT_OBJECT_STATECHANGE       ? "state"
                           : event == EVENT_OBJECT_DESCRIPTIONCHANGE ? "description"
                                                                     : "";
        if (line.empty()) return;
        if (child == CHILDID_SELF) {
            // The system itself tells of a window that gets the focus, or is switched on and off.
            if (line != "reorder") return;
        } else {
            OwnedBstr name;
            heard_->object_->get_accName(ChildNumber(child), name.Out());
            line += " " + automation::FromBstr(name.Get());
        }
        heard_->log_.push_back(line);
    }

    static inline GridAccessibilityTest* heard_ = nullptr;
    HWINEVENTHOOK hook_ = nullptr;
    LONG lastMark_ = 0;
    LONG heardMark_ = 0;
    Log log_;
};

/// A window procedure that reads its window when that is destroyed.
struct Asking {
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        const auto standard = reinterpret_cast<WNDPROC>(GetPropW(window, L"standard"));
        if (message == WM_DESTROY || message == WM_NCDESTROY) {
            const auto object = AccessibleOf(window);
            if (object) DescribeTree(*object.Get());
            ++asked;
        }
        return CallWindowProcW(standard, window, message, wParam, lParam);
    }
    static inline int asked = 0;
};

const std::string wholeTree =
    "outline \"Folder\" focusable (Select, No., Folder)\n"
    "  item \"Mailbox\" 0 focusable selectable expanded: Collapse\n"
    "  item \"Calendar\" 1 focusable selectable: Check\n"
    "  item \"Inbox\" 1 focusable selectable expanded: Check\n"
    "  item \"Customers\" 2 focusable selectable: Check\n"
    "  item \"Tasks\" 1 focusable selectable collapsed: Check\n"
    "  item \"Trash\" 1 focusable selectable: Check\n";

// ---- Questions

TEST_F(GridAccessibilityTest, TheWholeTreeIsTold) {
    EXPECT_EQ(DescribeTree(*object_.Get()), wholeTree);
    LONG count = 0;
    EXPECT_EQ(object_->get_accChildCount(&count), S_OK);
    EXPECT_EQ(count, 6);
}

TEST_F(GridAccessibilityTest, AnotherProcessReadsTheSame) {
    EXPECT_EQ(ReadByOtherProcess(window_->Handle()), wholeTree);
}

TEST_F(GridAccessibilityTest, AnotherProcessTicksAndOpens) {
    accessibleHost_.numbers = 3;
    EXPECT_EQ(ReadByOtherProcess(window_->Handle(), L" act Inbox"), "00000000\n");
    grid_.SetCellText(3, colIndex, "2");
    EXPECT_EQ(ReadByOtherProcess(window_->Handle(), L" act Mailbox"), "00000000\n");
    EXPECT_EQ(events_.log, (Log{"before-edit 3,0 cell=", "after-edit 3,0 cell=-1", "before-collapse 1 state=2"}));
    EXPECT_EQ(ReadByOtherProcess(window_->Handle()),
              "outline \"Folder\" focusable (Select, No., Folder)\n"
              "  item \"Mailbox\" 0 focusable selectable selected collapsed: "
              "Expand\n");
    EXPECT_EQ(ReadByOtherProcess(window_->Handle(), L" act Mailbox"), "00000000\n");
    EXPECT_EQ(Describe(3), "item \"Inbox\" 1 focusable selectable checked expanded (No. 2 of 3): Uncheck");
    accessibleHost_.busy = true;
    EXPECT_EQ(ReadByOtherProcess(window_->Handle(), L" act Trash"), "800700aa\n");
    accessibleHost_.busy = false;
    events_.refuse = true;
    EXPECT_EQ(ReadByOtherProcess(window_->Handle(), L" act Trash"), "80070005\n");
}

TEST_F(GridAccessibilityTest, APlaceholdersNameIsEmptyAndNoError) {
    grid_.SetNodeState(5, nodeExpanded);
    OwnedBstr name;
    EXPECT_EQ(object_->get_accName(ChildNumber(Child(6)), name.Out()), S_OK);
    EXPECT_NE(name.Get(), nullptr);
    EXPECT_EQ(SysStringLen(name.Get()), 0u);
    EXPECT_EQ(Describe(6), "item \"\" 2 focusable selectable");
}

TEST_F(GridAccessibilityTest, ALongNameAndAnyLettersComeWhole) {
    const std::string name = std::string(65536, 'x') + "\xE6\x97\xA5\xF0\x9F\x93\x81";
    grid_.SetCellText(3, colName, name);
    OwnedBstr told;
    ASSERT_EQ(object_->get_accName(ChildNumber(Child(3)), told.Out()), S_OK);
    EXPECT_EQ(automation::FromBstr(told.Get()), name);
}

TEST_F(GridAccessibilityTest, TheParentIsTheWindowsObject) {
    ComPtr<IDispatch> parent;
    EXPECT_EQ(object_->get_accParent(parent.GetAddressOf()), S_OK);
    EXPECT_TRUE(parent);
    HWND window = nullptr;
    EXPECT_EQ(WindowFromAccessibleObject(object_.Get(), &window), S_OK);
    EXPECT_EQ(window, window_->Handle());
}

TEST_F(GridAccessibilityTest, RowsAreSimpleElements) {
    ComPtr<IDispatch> object;
    EXPECT_EQ(object_->get_accChild(ChildNumber(Child(3)), object.GetAddressOf()), S_FALSE);
    EXPECT_FALSE(object);
}

TEST_F(GridAccessibilityTest, FocusAndSelectionAreTheCursorsRow) {
    EXPECT_EQ(Answered(&IAccessible::get_accFocus), -1);
    EXPECT_EQ(Answered(&IAccessible::get_accSelection), -1);
    grid_.SetCurrentRow(3);
    EXPECT_EQ(Answered(&IAccessible::get_accFocus), Child(3));
    EXPECT_EQ(Answered(&IAccessible::get_accSelection), Child(3));
    EXPECT_EQ(Describe(3), "item \"Inbox\" 1 focusable selectable selected expanded: Check");
    SetFocus(window_->Handle());
    EXPECT_EQ(Describe(3), "item \"Inbox\" 1 focusable focused selectable selected expanded: Check");
    EXPECT_EQ(DescribeChild(*object_.Get(), 0), "outline \"Folder\" focusable focused (Select, No., Folder)");
}

TEST_F(GridAccessibilityTest, ADisabledGridIsUnavailableWithAllItsRows) {
    grid_.SetEnabled(false);
    EXPECT_EQ(DescribeChild(*object_.Get(), 0), "outline \"Folder\" focusable unavailable (Select, No., Folder)");
    EXPECT_EQ(Describe(3), "item \"Inbox\" 1 focusable selectable expanded unavailable: Check");
    EXPECT_EQ(Act(Child(3)), E_ACCESSDENIED);
    EXPECT_EQ(Select(SELFLAG_TAKESELECTION, Child(3)), E_ACCESSDENIED);
    EXPECT_EQ(Select(SELFLAG_TAKEFOCUS, 0), E_ACCESSDENIED);
    EXPECT_TRUE(events_.log.empty());
}

TEST_F(GridAccessibilityTest, WaysLeadFromRowToRow) {
    EXPECT_EQ(Navigate(NAVDIR_FIRSTCHILD, 0), Child(1));
    EXPECT_EQ(Navigate(NAVDIR_LASTCHILD, 0), Child(7));
    EXPECT_EQ(Navigate(NAVDIR_NEXT, 0), -1);
    for (const LONG down : {NAVDIR_NEXT, NAVDIR_DOWN}) {
        EXPECT_EQ(Navigate(down, Child(5)), Child(7));
        EXPECT_EQ(Navigate(down, Child(7)), -1);
    }
    for (const LONG up : {NAVDIR_PREVIOUS, NAVDIR_UP}) {
        EXPECT_EQ(Navigate(up, Child(7)), Child(5));
        EXPECT_EQ(Navigate(up, Child(1)), -1);
    }
    EXPECT_EQ(Navigate(NAVDIR_LEFT, Child(4)), Child(3));
    EXPECT_EQ(Navigate(NAVDIR_LEFT, Child(1)), -1);
    EXPECT_EQ(Navigate(NAVDIR_RIGHT, Child(3)), Child(4));
    EXPECT_EQ(Navigate(NAVDIR_RIGHT, Child(5)), -1);
    VARIANT child;
    EXPECT_EQ(object_->accNavigate(99, ChildNumber(0), &child), E_INVALIDARG);
    EXPECT_EQ(object_->accNavigate(0, ChildNumber(0), &child), E_INVALIDARG);
}

TEST_F(GridAccessibilityTest, PlacesAreThoseOfTheRowsAndHitsAreTheirReverse) {
    for (const int32_t row : {1, 3, 7}) {
        const RECT place = Place(Child(row));
        const RECT expected = OnScreenPlace(window_->Layout().Row(*grid_.VisiblePosition(row)));
        EXPECT_TRUE(EqualRect(&place, &expected)) << row;
        EXPECT_EQ(Hit(Middle(place)), Child(row));
        EXPECT_EQ(Hit({place.left, place.top}), Child(row));
        EXPECT_EQ(Hit({place.right - 1, place.bottom - 1}), Child(row));
    }
    const RECT all = Place(0);
    EXPECT_EQ(Hit({all.left + 1, all.top + 1}), 0) << "the header";
    EXPECT_EQ(Hit({all.left + 1, all.bottom - 1}), 0) << "below the last row";
    EXPECT_EQ(Hit({all.left - 1, all.top + 1}), -1);
    EXPECT_EQ(Hit({all.left + 1, all.bottom}), -1);
}

TEST_F(GridAccessibilityTest, RowsOutsideTheWindowHaveNoPlace) {
    for (int row = 0; row < 100; ++row) AddFolder(grid_, 1, "More");
    const LONG first = Child(1);
    const LONG last = Child(grid_.RowCount() - 1);
    EXPECT_EQ(DescribeChild(*object_.Get(), last), "item \"More\" 1 focusable selectable offscreen: Check");
    RECT place = Place(last);
    EXPECT_TRUE(IsRectEmpty(&place));
    SendMessageW(window_->Handle(), WM_VSCROLL, SB_LINEDOWN, 0);
    place = Place(first);
    EXPECT_TRUE(IsRectEmpty(&place)) << "not under the header either";
    // The cut-off row at the bottom ends where the window does.
    const GridLayout& layout = window_->Layout();
    const LONG cut = Child(grid_.VisibleRow(layout.TopPosition() + layout.ShownRows() - 1));
    place = Place(cut);
    const RECT all = Place(0);
    EXPECT_EQ(place.bottom, all.bottom);
    EXPECT_LT(place.bottom - place.top, layout.Metrics().rowHeight);
    EXPECT_GT(place.bottom, place.top);
}

TEST_F(GridAccessibilityTest, ARowInsideAClosedNodeStillTellsItsNameAndValue) {
    const LONG customers = Child(4);
    grid_.SetNodeState(3, nodeCollapsed);
    EXPECT_EQ(DescribeChild(*object_.Get(), customers), "item \"Customers\" 2 focusable selectable invisible");
    const RECT place = Place(customers);
    EXPECT_TRUE(IsRectEmpty(&place));
    EXPECT_EQ(Navigate(NAVDIR_NEXT, customers), -1);
    EXPECT_EQ(Act(customers), E_ACCESSDENIED);
    EXPECT_EQ(ChildrenOf(*object_.Get()).size(), 5u);
}

TEST_F(GridAccessibilityTest, ChildrenThatAreNoneAreInvalidEverywhere) {
    const LONG gone = Child(3);
    grid_.RemoveRow(3);
    const size_t before = events_.log.size();
    for (const LONG child : {gone, LONG{-1}, LONG{12345}, LONG{INT32_MAX}, LONG{INT32_MIN}})
        for (const HRESULT result : AskAll(child)) EXPECT_EQ(result, E_INVALIDARG) << child;
    VARIANT text;
    VariantInit(&text);
    V_VT(&text) = VT_BSTR;
    V_BSTR(&text) = nullptr;
    for (const HRESULT result : AskAll(text)) EXPECT_EQ(result, E_INVALIDARG);
    EXPECT_EQ(events_.log.size(), before);
}

TEST_F(GridAccessibilityTest, NothingIsAskedOfNullPointers) {
    EXPECT_EQ(object_->get_accChildCount(nullptr), E_POINTER);
    EXPECT_EQ(object_->get_accName(ChildNumber(0), nullptr), E_POINTER);
    EXPECT_EQ(object_->get_accRole(ChildNumber(0), nullptr), E_POINTER);
    EXPECT_EQ(object_->get_accFocus(nullptr), E_POINTER);
    EXPECT_EQ(object_->accLocation(nullptr, nullptr, nullptr, nullptr, ChildNumber(0)), E_POINTER);
    EXPECT_EQ(object_->accHitTest(0, 0, nullptr), E_POINTER);
}

TEST_F(GridAccessibilityTest, LateBoundProgramsReadItToo) {
    ComPtr<IDispatch> object;
    ASSERT_EQ(object_.As(&object), S_OK);
    OLECHAR member[] = L"accName";
    OLECHAR* name = member;
    DISPID id = 0;
    ASSERT_EQ(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), S_OK);
    VARIANT child = ChildNumber(Child(3));
    DISPPARAMS parameters{&child, nullptr, 1, 0};
    VARIANT result;
    VariantInit(&result);
    ASSERT_EQ(
        object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &parameters, &result, nullptr, nullptr),
        S_OK);
    ASSERT_EQ(V_VT(&result), VT_BSTR);
    EXPECT_EQ(automation::FromBstr(V_BSTR(&result)), "Inbox");
    VariantClear(&result);
}

// ---- Going through the children

TEST_F(GridAccessibilityTest, ChildrenComeInAnyPortions) {
    const std::vector<LONG> all = ChildrenOf(*object_.Get(), 100);
    for (const ULONG atOnce : {1u, 2u, 5u, 6u, 7u}) EXPECT_EQ(ChildrenOf(*object_.Get(), atOnce), all);
    VARIANT some[4];
    LONG got = 0;
    ASSERT_EQ(AccessibleChildren(object_.Get(), 2, 4, some, &got), S_OK);
    ASSERT_EQ(got, 4);
    for (size_t each = 0; each < 4; ++each) EXPECT_EQ(V_I4(&some[each]), all[each + 2]);
}

TEST_F(GridAccessibilityTest, AWalkGoesOnBehindItsLastRowWhateverComesAndGoes) {
    const std::vector<LONG> all = ChildrenOf(*object_.Get());
    ComPtr<IEnumVARIANT> walk;
    ASSERT_EQ(object_.As(&walk), S_OK);
    walk->Reset();
    VARIANT some[10];
    ULONG fetched = 0;
    ASSERT_EQ(walk->Next(3, some, &fetched), S_OK);
    AddFolder(grid_, 0, "At the end");
    grid_.AddRow("", 2);
    grid_.RemoveRow(1);
    ASSERT_EQ(walk->Next(1, some, &fetched), S_OK);
    EXPECT_EQ(V_I4(&some[0]), all[3]);
    grid_.RemoveRow(4);  // the row that was told last
    ASSERT_EQ(walk->Next(1, some, nullptr), S_OK);
    EXPECT_EQ(V_I4(&some[0]), all[4]);
    ComPtr<IEnumVARIANT> copy;
    ASSERT_EQ(walk->Clone(copy.GetAddressOf()), S_OK);
    for (const auto& each : {walk, copy}) {
        ASSERT_EQ(each->Next(10, some, &fetched), S_FALSE);
        EXPECT_EQ(fetched, 2u);
        EXPECT_EQ(V_I4(&some[0]), all[5]);
        ASSERT_EQ(each->Next(1, some, &fetched), S_FALSE);
    }
    walk->Reset();
    EXPECT_EQ(walk->Skip(100), S_FALSE);
    walk->Reset();
    EXPECT_EQ(walk->Skip(2), S_OK);
    EXPECT_EQ(walk->Skip(ULONG_MAX), S_FALSE);
    EXPECT_EQ(walk->Next(10, nullptr, nullptr), E_POINTER);
}

TEST_F(GridAccessibilityTest, EachReaderHasAWalkOfItsOwn) {
    const auto other = AccessibleOf(window_->Handle());
    ComPtr<IEnumVARIANT> mine, its;
    ASSERT_EQ(object_.As(&mine), S_OK);
    ASSERT_EQ(other.As(&its), S_OK);
    VARIANT child;
    ASSERT_EQ(mine->Next(1, &child, nullptr), S_OK);
    ASSERT_EQ(mine->Next(1, &child, nullptr), S_OK);
    ASSERT_EQ(its->Next(1, &child, nullptr), S_OK);
    EXPECT_EQ(V_I4(&child), Child(1)) << "rows have the same numbers for all";
}

// ---- Acts

TEST_F(GridAccessibilityTest, ActionsAreTheGesturesOfTheUser) {
    EXPECT_EQ(Act(Child(3)), S_OK);
    EXPECT_EQ(Act(Child(1)), S_OK);
    EXPECT_EQ(Act(Child(1)), S_OK);
    EXPECT_EQ(events_.log, (Log{"before-edit 3,0 cell=", "after-edit 3,0 cell=-1", "before-collapse 1 state=2",
                                "before-collapse 1 state=0"}));
    grid_.SetNodeState(5, nodeExpanded);
    EXPECT_EQ(Act(Child(6)), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Act(0), DISP_E_MEMBERNOTFOUND);
    events_.refuse = true;
    EXPECT_EQ(Act(Child(3)), E_ACCESSDENIED);
    accessibleHost_.busy = true;
    EXPECT_EQ(Act(Child(3)), busy);
    EXPECT_EQ(Act(Child(6)), busy);
}

TEST_F(GridAccessibilityTest, SelectingBringsTheRowIntoView) {
    for (int row = 0; row < 100; ++row) AddFolder(grid_, 1, "More");
    const int32_t last = grid_.RowCount() - 1;
    EXPECT_EQ(Select(SELFLAG_TAKESELECTION, Child(last)), S_OK);
    EXPECT_EQ(grid_.CurrentRow(), last);
    EXPECT_NE(GetFocus(), window_->Handle());
    EXPECT_EQ(Describe(last), "item \"More\" 1 focusable selectable selected: Check");
    EXPECT_EQ(Select(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION, Child(1)), S_OK);
    EXPECT_EQ(grid_.CurrentRow(), 1);
    EXPECT_EQ(GetFocus(), window_->Handle());
    EXPECT_EQ(window_->Layout().TopPosition(), 0);
    for (const LONG flags : {LONG{SELFLAG_NONE}, LONG{SELFLAG_ADDSELECTION}, LONG{SELFLAG_EXTENDSELECTION},
                             LONG{SELFLAG_REMOVESELECTION}, LONG{SELFLAG_TAKESELECTION | SELFLAG_ADDSELECTION}})
        EXPECT_EQ(Select(flags, Child(3)), E_INVALIDARG) << flags;
    EXPECT_EQ(Select(SELFLAG_TAKESELECTION, 0), E_INVALIDARG);
    EXPECT_TRUE(events_.log.empty());
}

TEST_F(GridAccessibilityTest, TheGridItselfTakesTheFocus) {
    EXPECT_EQ(Select(SELFLAG_TAKEFOCUS, 0), S_OK);
    EXPECT_EQ(GetFocus(), window_->Handle());
}

// ---- Ends

TEST_F(GridAccessibilityTest, TheObjectOutlivesTheWindow) {
    window_->DestroyHandle();
    ExpectNotConnected();
    window_->Create(host_.Handle(), {0, 0, 400, 300});
    ExpectNotConnected();
    const auto again = AccessibleOf(window_->Handle());
    ASSERT_TRUE(again);
    EXPECT_EQ(DescribeTree(*again.Get()), wholeTree);
}

TEST_F(GridAccessibilityTest, TheObjectOutlivesAWindowThatGoesWithItsParent) {
    host_.Close();
    ExpectNotConnected();
}

TEST_F(GridAccessibilityTest, TheObjectOutlivesTheGridsWindowObject) {
    window_.reset();
    ExpectNotConnected();
}

TEST_F(GridAccessibilityTest, RowsKeepTheirNumbersThroughANewWindow) {
    const LONG inbox = Child(3);
    window_->DestroyHandle();
    window_->Create(host_.Handle(), {0, 0, 400, 300});
    object_ = AccessibleOf(window_->Handle());
    ASSERT_TRUE(object_);
    EXPECT_EQ(Child(3), inbox);
}

TEST_F(GridAccessibilityTest, EverythingMayEndInTheMiddleOfAnAct) {
    const LONG inbox = Child(3);
    events_.onNotification = [this](std::string_view) {
        if (window_ && window_->Handle() != nullptr) EndEverything();
    };
    EXPECT_EQ(Act(inbox), S_OK);
    EXPECT_EQ(window_, nullptr);
    ExpectNotConnected();
}

TEST_F(GridAccessibilityTest, TheReaderMayLetGoInTheMiddleOfItsAct) {
    const LONG mailbox = Child(1);
    events_.onNotification = [this](std::string_view) { object_ = nullptr; };
    IAccessible* const last = object_.Get();
    EXPECT_EQ(last->accDoDefaultAction(ChildNumber(mailbox)), S_OK);
    EXPECT_FALSE(object_);
}

TEST_F(GridAccessibilityTest, NoOtherThreadIsAnsweredDirectly) {
    HRESULT result = S_OK;
    std::thread([&] {
        LONG count = 0;
        result = object_->get_accChildCount(&count);
    }).join();
    EXPECT_EQ(result, RPC_E_WRONG_THREAD);
}

TEST_F(GridAccessibilityTest, ManyThreadsReadThroughOleaccAtOnceAndUntilTheEnd) {
    constexpr int readers = 4;
    std::atomic<int> running = readers;
    std::atomic<int> whole = 0;
    std::vector<std::thread> threads;
    const HWND window = window_->Handle();
    for (int each = 0; each < readers; ++each) {
        threads.emplace_back([&] {
            CoInitialize(nullptr);
            for (int time = 0; time < 200; ++time) {
                const auto object = AccessibleOf(window);
                if (!object) break;
                if (DescribeTree(*object.Get()) == wholeTree) ++whole;
            }
            CoUninitialize();
            --running;
        });
    }
    EXPECT_TRUE(HostWindow::PumpUntil([&] { return whole >= 2 * readers; }));
    window_->DestroyHandle();
    window_.reset();
    EXPECT_TRUE(HostWindow::PumpUntil([&] { return running == 0; }));
    for (std::thread& thread : threads) thread.join();
}

TEST_F(GridAccessibilityTest, AWindowThatIsBeingDestroyedCanBeAsked) {
    const HWND window = window_->Handle();
    SetPropW(window, L"standard",
             reinterpret_cast<HANDLE>(
                 SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Asking::Procedure))));
    host_.Close();
    EXPECT_EQ(Asking::asked, 2);
    ExpectNotConnected();
}

// ---- Events

TEST_F(GridAccessibilityTest, AKeyboardSessionIsTold) {
    Listen();
    SetFocus(window_->Handle());
    EXPECT_EQ(Frame(), Log()) << "there is no cursor yet";
    const auto press = [this](WPARAM key) {
        SendMessageW(window_->Handle(), WM_KEYDOWN, key, 1);
        return Frame();
    };
    EXPECT_EQ(press(VK_DOWN), (Log{"selection Mailbox", "focus Mailbox"}));
    EXPECT_EQ(press(VK_DOWN), (Log{"selection Calendar", "focus Calendar"}));
    EXPECT_EQ(press(VK_SPACE), (Log{"state Calendar"}));
    EXPECT_EQ(press(VK_UP), (Log{"selection Mailbox", "focus Mailbox"}));
    EXPECT_EQ(press(VK_LEFT), (Log{"state Mailbox"}));
    EXPECT_EQ(press(VK_RIGHT), (Log{"state Mailbox"}));
    EXPECT_EQ(press(VK_END), (Log{"selection Trash", "focus Trash"}));
    EXPECT_EQ(press(VK_DOWN), Log());
    SetFocus(host_.Handle());
    EXPECT_EQ(Frame(), Log());
    SetFocus(window_->Handle());
    EXPECT_EQ(Frame(), (Log{"focus Trash"}));
}

TEST_F(GridAccessibilityTest, EventsComeWithTheFrameAndNotBefore) {
    Listen();
    grid_.SetCellText(3, colSel, "-1");
    window_->Refresh();
    HostWindow::Pump();
    EXPECT_TRUE(window_->HasEvents());
    EXPECT_EQ(Frame(), (Log{"state Inbox"}));
    EXPECT_FALSE(window_->HasEvents());
}

TEST_F(GridAccessibilityTest, AHundredThousandTicksAreOneEvent) {
    grid_.SetRowCount(100'008);
    Listen();
    for (int32_t row = 1; row < grid_.RowCount(); ++row) grid_.SetCellText(row, colSel, "-1");
    EXPECT_EQ(Frame(), (Log{"reorder"}));
}

TEST_F(GridAccessibilityTest, AWindowThatComesHasNothingToTellOfBefore) {
    Listen();
    window_->DestroyHandle();
    AddFolder(grid_, 1, "New");
    grid_.SetCurrentRow(3);
    window_->Create(host_.Handle(), {0, 0, 400, 300});
    EXPECT_FALSE(window_->HasEvents());
}

// ---- The number editor

TEST_F(GridAccessibilityTest, TheNumberEditorHasTheNameOfItsColumn) {
    TickRow(grid_, 3, "1");
    Update();
    grid_.SetCurrentRow(3);
    SetFocus(window_->Handle());
    SendMessageW(window_->Handle(), WM_KEYDOWN, VK_F2, 1);
    ASSERT_NE(window_->Editor(), nullptr);
    const auto editor = AccessibleOf(window_->Editor()->Handle());
    ASSERT_TRUE(editor);
    OwnedBstr name;
    EXPECT_EQ(editor->get_accName(ChildNumber(0), name.Out()), S_OK);
    EXPECT_EQ(automation::FromBstr(name.Get()), "No.");
    EXPECT_EQ(Describe(3), "item \"Inbox\" 1 focusable selectable selected checked expanded: Uncheck")
        << "the editor has the keyboard, not the grid";
    SendMessageW(window_->Editor()->Handle(), WM_KEYDOWN, VK_ESCAPE, 1);
    OwnedBstr later;
    EXPECT_EQ(editor->get_accName(ChildNumber(0), later.Out()), S_OK) << "it outlives the editor";
}

}  // namespace
}  // namespace foldertree::testing
