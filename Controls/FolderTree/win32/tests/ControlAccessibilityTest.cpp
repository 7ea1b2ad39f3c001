// ControlAccessibilityTest: the whole control as assistive programs see it, also in the middle of its loads.
#include <gtest/gtest.h>

#include <ole2.h>
#include <olectl.h>

#include <map>
#include <sstream>

#include "AccessibleReader.h"
#include "OtherReader.h"
#include "WindowFixture.h"
#include "automation_win32/Bstr.h"
#include "automation_win32/ComBase.h"
#include "com/Mailbox.h"
#include "support/Golden.h"
#include "win32/com/ControlObject.h"

namespace foldertree::testing {
namespace {

using automation::ComPtr;
using automation::OwnedBstr;

class Ole : public ::testing::Environment {
  public:
    void SetUp() override { ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr))); }
    void TearDown() override { OleUninitialize(); }
};
[[maybe_unused]] ::testing::Environment* const ole = ::testing::AddGlobalTestEnvironment(new Ole);

constexpr HRESULT busy = static_cast<HRESULT>(0x800700AA);

/// A container that knows the control by a name, and nothing else.
class NamingSite final : public automation::ComBase<IOleClientSite, IDispatch> {
  public:
    STDMETHOD(SaveObject)() override { return S_OK; }
    STDMETHOD(GetMoniker)(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHOD(GetContainer)(IOleContainer**) override { return E_NOINTERFACE; }
    STDMETHOD(ShowObject)() override { return S_OK; }
    STDMETHOD(OnShowWindow)(BOOL) override { return S_OK; }
    STDMETHOD(RequestNewObjectLayout)() override { return E_NOTIMPL; }
    STDMETHOD(GetTypeInfoCount)(UINT* count) override { return *count = 0, S_OK; }
    STDMETHOD(GetTypeInfo)(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHOD(GetIDsOfNames)(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHOD(Invoke)
    (DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT*) override {
        if (member != DISPID_AMBIENT_DISPLAYNAME) return DISP_E_MEMBERNOTFOUND;
        V_VT(result) = VT_BSTR;
        V_BSTR(result) = automation::ToBstr("Folders to back up");
        return S_OK;
    }
};

/// Without what depends on how many rows the screen's fonts let fit.
std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        constexpr std::string_view offscreen = " offscreen";
        if (const size_t at = line.find(offscreen); at != std::string::npos) line.erase(at, offscreen.size());
        lines.push_back(line);
    }
    return lines;
}

/// The control on a form, with the sample mailbox to read.
class ControlAccessibility : public ::testing::Test {
  protected:
    ControlAccessibility() : control_(ControlObject::Create()), wire_(std::make_shared<Tripwire>()) {
        Core().SetExtendToLevel(0);
        Core().SetRDOSessionRef(SampleSession(wire_));
        Core().SetMultiSelect(true);
        Core().SetAllowIndexing(true);
        Core().SetEnabled(true);
        Core().Localize("No.", "Select", "Folder", "Address lists", "Please wait", "Cancel");
        Object().Window().Create(host_.Handle(), {0, 0, 440, 480});
        grid_ = AccessibleOf(Grid());
        panel_ = AccessibleOf(Panel());
    }
    ~ControlAccessibility() override {
        if (hook_ != nullptr) UnhookWinEvent(hook_);
        hearing_ = nullptr;
        control_ = nullptr;
    }

    ControlObject& Object() { return *static_cast<ControlObject*>(control_.Get()); }
    ctlFolderTree& Core() { return Object().Core(); }
    HWND Grid() { return Object().Window().Grid().Handle(); }
    HWND Panel() { return Object().Window().Panel().Handle(); }

    void Load() { Core().RefreshList(); }
    /// Runs the action inside every outside call of the next load, from the first one on.
    void AtEveryCall(std::function<void()> action) {
        wire_->action = [this, action = std::move(action)] {
            wire_->actAt = wire_->calls + 1;
            action();
        };
        wire_->actAt = wire_->calls + 1;
    }
    void AtCall(int number, std::function<void()> action) {
        wire_->action = std::move(action);
        wire_->actAt = wire_->calls + number;
    }

    LONG Child(std::string_view name) {
        for (const LONG child : ChildrenOf(*grid_.Get())) {
            OwnedBstr its;
            if (SUCCEEDED(grid_->get_accName(ChildNumber(child), its.Out())) && automation::FromBstr(its.Get()) == name)
                return child;
        }
        ADD_FAILURE() << "no row " << name;
        return 0;
    }
    HRESULT Act(std::string_view name) { return grid_->accDoDefaultAction(ChildNumber(Child(name))); }
    std::string Describe(std::string_view name) { return DescribeChild(*grid_.Get(), Child(name)); }

    /// Every text of every row.
    std::string Cells() {
        const TreeGrid& grid = Core().Grid();
        std::string text;
        for (int32_t row = 0; row < grid.RowCount(); ++row) {
            for (int col = 0; col < grid.ColCount(); ++col) text += grid.CellText(row, col) + "\t";
            text += std::to_string(grid.RowOutlineLevel(row)) + std::to_string(grid.NodeState(row)) + "\n";
        }
        return text;
    }

    /// Counts the grid's events from now on: of rows, and of the grid itself.
    void Listen() {
        hearing_ = this;
        hook_ = SetWinEventHook(EVENT_MIN, EVENT_MAX, nullptr, &ControlAccessibility::Hear, GetCurrentProcessId(), 0,
                                WINEVENT_OUTOFCONTEXT);
        Frames();
        rowEvents_ = reorders_ = alerts_ = 0;
    }
    /// Lets some frames go by.
    void Frames() {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(200);
        HostWindow::PumpUntil([&] { return std::chrono::steady_clock::now() > end; });
    }

    HostWindow host_;
    ComPtr<IUnknown> control_;
    std::shared_ptr<Tripwire> wire_;
    ComPtr<IAccessible> grid_, panel_;
    int rowEvents_ = 0;
    int reorders_ = 0;
    int alerts_ = 0;

  private:
    static void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD, DWORD) {
        if (hearing_ == nullptr || !hearing_->control_ || object != OBJID_CLIENT) return;
        if (window == hearing_->Panel() && event == EVENT_SYSTEM_ALERT) ++hearing_->alerts_;
        if (window != hearing_->Grid()) return;
        if (child != CHILDID_SELF) ++hearing_->rowEvents_;
        if (event == EVENT_OBJECT_REORDER) ++hearing_->reorders_;
    }

    static inline ControlAccessibility* hearing_ = nullptr;
    HWINEVENTHOOK hook_ = nullptr;
};

TEST_F(ControlAccessibility, AnotherProcessReadsTheSampleMailboxThroughAllThatHappensToIt) {
    Core().SetExtendToLevel(1);
    Load();
    std::string story = "Loaded to level 1\n" + ReadByOtherProcess(Grid());
    EXPECT_EQ(ReadByOtherProcess(Grid(), L" act Calendar"), "00000000\n");
    EXPECT_EQ(ReadByOtherProcess(Grid(), L" act Inbox"), "00000000\n");
    story += "\nCalendar and Inbox ticked\n" + ReadByOtherProcess(Grid());
    SetFocus(Grid());
    SendMessageW(Grid(), WM_KEYDOWN, VK_RIGHT, 1);
    story += "\nInbox opened by a key\n" + ReadByOtherProcess(Grid());
    Core().SetExtendToLevel(0);
    AtCall(40, [this] { Core().CancelLoad(); });
    Load();
    story += "\nA load that was cancelled\n" + ReadByOtherProcess(Grid());
    ExpectGolden("accessible/sample-mailbox.golden", Lines(story));
}

TEST_F(ControlAccessibility, AReaderThatAsksEverythingAtEveryStepOfALoadChangesNothing) {
    for (const auto mode : {eISAccess_RDO_MAPITables, eISAccess_RDO_Objects}) {
        Core().SetInfoStoreAccessMode(mode);
        Load();
        const std::string expected = Cells();
        int64_t told = 0;
        Poster poster;
        const auto readAll = [&] {
            told += static_cast<int64_t>(DescribeTree(*grid_.Get()).size());
            told += static_cast<int64_t>(DescribeTree(*panel_.Get()).size());
            VARIANT child;
            RECT place{};
            GetWindowRect(Grid(), &place);
            EXPECT_EQ(grid_->accHitTest((place.left + place.right) / 2, place.top + 40, &child), S_OK);
        };
        AtEveryCall([&] {
            readAll();
            poster.Post(readAll);  // and at the next yield
        });
        Load();
        wire_->actAt = 0;
        HostWindow::Pump();
        EXPECT_EQ(Cells(), expected);
        EXPECT_GT(told, 100'000);
    }
}

TEST_F(ControlAccessibility, NoActIsTakenInTheMiddleOfALoad) {
    Load();
    const std::string expected = Cells();
    int refused = 0;
    AtEveryCall([&] {
        for (const LONG child : ChildrenOf(*grid_.Get())) {
            if (grid_->accDoDefaultAction(ChildNumber(child)) == busy)
                ++refused;
            else
                ADD_FAILURE() << "an act in the middle of a load";
        }
    });
    Load();
    wire_->actAt = 0;
    EXPECT_EQ(Cells(), expected);
    EXPECT_GT(refused, 100);
}

TEST_F(ControlAccessibility, RowsThatWentWithALoadAreInvalidAndNeverOthers) {
    Load();
    std::map<LONG, std::string> before;
    for (const LONG child : ChildrenOf(*grid_.Get())) before[child] = DescribeChild(*grid_.Get(), child);
    Load();
    for (const auto& [child, description] : before) EXPECT_EQ(DescribeChild(*grid_.Get(), child), "gone");
    for (const LONG child : ChildrenOf(*grid_.Get())) EXPECT_EQ(before.count(child), 0u);
}

TEST_F(ControlAccessibility, ThePanelTellsItsTextsItsProgressAndItsButton) {
    EXPECT_EQ(DescribeChild(*panel_.Get(), 0), "dialog \"Please wait\" invisible");
    std::string shown;
    AtCall(40, [&] { shown = DescribeTree(*panel_.Get()); });
    Load();
    EXPECT_TRUE(
        shown.starts_with("dialog \"Please wait\"\n"
                          "  text \"Please wait\" readonly\n"
                          "  text \""))
        << shown;
    EXPECT_NE(shown.find("  progressbar \"Please wait\" "), std::string::npos) << shown;
    EXPECT_NE(shown.find("% readonly\n"), std::string::npos) << shown;
    EXPECT_TRUE(shown.ends_with("  button \"Cancel\" focusable: Press\n")) << shown;
    EXPECT_EQ(panel_->accDoDefaultAction(ChildNumber(4)), E_ACCESSDENIED) << "no load runs";
    EXPECT_EQ(panel_->accDoDefaultAction(ChildNumber(3)), DISP_E_MEMBERNOTFOUND);
}

TEST_F(ControlAccessibility, TheButtonOfThePanelCancels) {
    Load();
    const int32_t rows = Core().ListCount();
    HRESULT pressed = E_FAIL;
    AtCall(40, [&] { pressed = panel_->accDoDefaultAction(ChildNumber(4)); });
    Load();
    EXPECT_EQ(pressed, S_OK);
    EXPECT_LT(Core().ListCount(), rows);
    LONG count = 0;
    EXPECT_EQ(grid_->get_accChildCount(&count), S_OK);
    EXPECT_GT(count, 0);
}

TEST_F(ControlAccessibility, NothingIsToldOfRowsWhileALoadRunsAndOneEventAfterIt) {
    Load();
    SetFocus(Grid());
    SendMessageW(Grid(), WM_KEYDOWN, VK_END, 1);
    Listen();
    Poster poster;
    AtEveryCall([&] {
        poster.Post([&] {
            if (!Core().Refreshing()) return;
            SendMessageW(Grid(), WM_KEYDOWN, VK_DOWN, 1);
            EXPECT_EQ(rowEvents_ + reorders_, 0);
        });
    });
    Load();
    wire_->actAt = 0;
    EXPECT_EQ(rowEvents_ + reorders_, 0);
    Frames();
    EXPECT_EQ(reorders_, 1);
    EXPECT_LE(rowEvents_, 2) << "where the cursor is now";
    EXPECT_EQ(alerts_, 1);
}

TEST_F(ControlAccessibility, SelectingAllIsAtMostTwoEvents) {
    Load();
    Listen();
    Core().SelectAll();
    Frames();
    EXPECT_EQ(reorders_, 1);
    EXPECT_EQ(rowEvents_, 0);
    Core().SelectNone();
    Frames();
    EXPECT_EQ(reorders_, 2);
    EXPECT_EQ(rowEvents_, 0);
}

TEST_F(ControlAccessibility, TickedRowsTellTheirPlaceAmongTheTicked) {
    Core().SetExtendToLevel(1);
    Load();
    EXPECT_EQ(Act("Inbox"), S_OK);
    EXPECT_EQ(Act("Calendar"), S_OK);
    EXPECT_NE(Describe("Inbox").find("(No. 1 of 2)"), std::string::npos) << Describe("Inbox");
    EXPECT_NE(Describe("Calendar").find("(No. 2 of 2)"), std::string::npos) << Describe("Calendar");
    Core().SetAllowIndexing(false);
    EXPECT_EQ(Describe("Inbox").find("No."), std::string::npos);
}

TEST_F(ControlAccessibility, TheGridHasTheNameThatTheContainerGivesTheControl) {
    EXPECT_EQ(DescribeChild(*grid_.Get(), 0), "outline \"Folder\" focusable (Select, No., Folder)");
    const auto site = automation::MakeCom<NamingSite>();
    Object().Site().Set(site.Get());
    EXPECT_EQ(DescribeChild(*grid_.Get(), 0), "outline \"Folders to back up\" focusable (Select, No., Folder)");
    Object().Window().SetUserMode(false);
    EXPECT_EQ(DescribeChild(*grid_.Get(), 0),
              "outline \"Folders to back up\" focusable unavailable (Select, No., Folder)");
    Object().Site().Set(nullptr);
}

TEST_F(ControlAccessibility, TheObjectsOutliveTheControlAlsoInTheMiddleOfALoad) {
    AtCall(40, [this] { control_ = nullptr; });
    {
        const ControlObject::Use use(Object());  // as every call of a host has one
        Load();
    }
    LONG count = 0;
    OwnedBstr name;
    EXPECT_EQ(grid_->get_accChildCount(&count), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(grid_->accDoDefaultAction(ChildNumber(1)), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(panel_->get_accName(ChildNumber(0), name.Out()), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(panel_->accDoDefaultAction(ChildNumber(4)), CO_E_OBJNOTCONNECTED);
}

}  // namespace
}  // namespace foldertree::testing
