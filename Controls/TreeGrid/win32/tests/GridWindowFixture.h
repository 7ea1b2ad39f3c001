// GridWindowFixture: a grid's window with a small tree in it.
#pragma once

#include "WindowFixture.h"
#include "win32/GridWindow.h"

namespace foldertree {

using Log = std::vector<std::string>;

class GridWindowTest : public testing::Test {
  protected:
    GridWindowTest() {
        SetUpGrid(grid_);
        AddFolder(grid_, 0, "Mailbox", sample::rowKind::store);  // 1
        AddFolder(grid_, 1, "Calendar");                         // 2
        AddFolder(grid_, 1, "Inbox");                            // 3
        AddFolder(grid_, 2, "Customers");                        // 4
        AddFolder(grid_, 1, "Tasks");                            // 5
        AddFolder(grid_, 2, "", sample::rowKind::dummy);         // 6
        AddFolder(grid_, 1, "Trash");                            // 7
        grid_.SetNodeState(5, nodeCollapsed);
        window_ = std::make_unique<GridWindow>(GridWindowParts{grid_, events_, pictures_, HasBox, L"TestGrid"}, keeper_,
                                               [this] { ++stale_; });
        window_->Create(host_.Handle(), {0, 0, 400, 300});
        Update();
    }

    void Update() {
        if (!window_) return;
        window_->Refresh();
        UpdateWindow(window_->Handle());
    }

    int32_t PositionOf(int32_t row) const { return grid_.VisiblePosition(row).value_or(-1000); }
    POINT BoxOfRow(int32_t row) const {
        return Middle(window_->Layout().Box(window_->Layout().Cell(PositionOf(row), sample::colSel)));
    }
    POINT SignOfRow(int32_t row) const {
        return Middle(window_->Layout().Glyph(window_->Layout().Cell(PositionOf(row), sample::colName),
                                              grid_.RowOutlineLevel(row)));
    }
    POINT NumberOfRow(int32_t row) const { return Middle(window_->Layout().Cell(PositionOf(row), sample::colIndex)); }
    POINT NameOfRow(int32_t row) const { return Middle(window_->Layout().Cell(PositionOf(row), sample::colName)); }

    void Send(UINT message, WPARAM wParam, LPARAM lParam) {
        SendMessageW(window_->Handle(), message, wParam, lParam);
        Update();
    }
    void Click(POINT point) { Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y)); }
    void DoubleClick(POINT point) {
        Click(point);
        if (window_) Send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    }
    void Press(WPARAM key) { Send(WM_KEYDOWN, key, 1); }
    void Type(wchar_t character) { Send(WM_CHAR, character, 1); }
    void InEditor(UINT message, WPARAM wParam) { SendMessageW(window_->Editor()->Handle(), message, wParam, 1); }
    void TypeInEditor(std::wstring_view text) {
        for (wchar_t character : text) InEditor(WM_CHAR, character);
    }

    /// The control ends, as a host may let it in the middle of a notification: the window goes away, and its object
    /// after the message that is running.
    void EndEverything() {
        window_->DestroyHandle();
        keeper_.WhenFree([this] { window_.reset(); });
    }

    HostWindow host_;
    TreeGrid grid_{sample::schema};
    RecordingEvents events_{grid_};
    SquarePictures pictures_;
    TestKeeper keeper_;
    std::unique_ptr<GridWindow> window_;
    int stale_ = 0;
};

}  // namespace foldertree
