// WindowFixture: a tree grid in a host window, a log of the grid's notifications, and hands for mouse and keyboard.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/Text.h"
#include "interaction/GridInteraction.h"
#include "rows/TreeGrid.h"
#include "tests/SampleSchema.h"
#include "win32/GridPictures.h"
#include "win32/Window.h"

namespace foldertree {

/// Stands for the control around the windows under test.
class TestKeeper : public WindowKeeper {
  public:
    void Hold() noexcept override { ++holds_; }
    void LetGo() noexcept override {
        --holds_;
        RunWhenFree();
    }
    /// Runs the action as soon as no message runs.
    void WhenFree(std::function<void()> action) {
        whenFree_ = std::move(action);
        RunWhenFree();
    }

  private:
    void RunWhenFree() {
        if (holds_ == 0 && whenFree_) std::exchange(whenFree_, nullptr)();
    }

    int holds_ = 0;
    std::function<void()> whenFree_;
};

/// Writes every notification into a log, together with what the grid holds at that moment.
class RecordingEvents : public GridEvents {
  public:
    explicit RecordingEvents(TreeGrid& grid) : grid_(grid) {}

    std::vector<std::string> log;
    bool refuse = false;                                   ///< sets `cancel` wherever there is one
    std::function<void(std::string_view)> onNotification;  ///< called with the line just logged

    void fgd_BeforeEdit(int32_t row, int32_t col, bool& cancel) override {
        cancel = refuse;
        Note("before-edit " + At(row, col));
    }
    void fgd_ValidateEdit(int32_t row, int32_t col, bool& cancel) override {
        cancel = refuse;
        Note("validate-edit " + At(row, col) + " text=" + grid_.EditText());
    }
    void fgd_AfterEdit(int32_t row, int32_t col) override { Note("after-edit " + At(row, col)); }
    void fgd_BeforeCollapse(int32_t row, int16_t state, bool& cancel) override {
        cancel = refuse;
        Note("before-collapse " + std::to_string(row) + " state=" + std::to_string(state));
    }
    void fgd_DblClick() override { Note("double-click " + std::to_string(grid_.CurrentRow())); }

  private:
    std::string At(int32_t row, int32_t col) const {
        return std::to_string(row) + "," + std::to_string(col) + " cell=" + grid_.CellText(row, col);
    }
    void Note(const std::string& line) {
        log.push_back(line);
        // What is called here may destroy everything but this log.
        const auto call = onNotification;
        if (call) call(line);
    }

    TreeGrid& grid_;
};

/// Every picture is a square in a colour of its own.
class SquarePictures : public GridPictures {
  public:
    void Draw(HDC dc, int picture, const RECT& square, bool) const noexcept override {
        if (picture == 0) return;
        SetBkColor(dc, RGB(picture * 10, 255 - picture * 10, 128));
        ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &square, nullptr, 0, nullptr);
    }
};

/// Placeholders have no box.
inline bool HasBox(const TreeGrid& grid, int32_t row) {
    return !automation::EqualNoCase(grid.CellText(row, sample::colRowKind), sample::rowKind::dummy);
}

/// The program's one window on the screen. Without a window manager it takes Wine seconds to be rid of one.
inline HWND Stage() {
    static const HWND stage = CreateWindowExW(0, L"STATIC", L"Test stage", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 40,
                                              40, 460, 500, nullptr, nullptr, nullptr, nullptr);
    return stage;
}

/// The form of a host, for the windows under test.
class HostWindow {
  public:
    HostWindow() {
        handle_ = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 460, 500, Stage(),
                                  nullptr, nullptr, nullptr);
        SetForegroundWindow(Stage());
        SetFocus(handle_);
        Pump();
    }
    ~HostWindow() { Close(); }
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    HWND Handle() const { return handle_; }
    void Close() {
        if (handle_ != nullptr) DestroyWindow(handle_);
        handle_ = nullptr;
    }

    /// Handles what waits in the message queue.
    static void Pump() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    /// Pumps until the condition holds; false after five seconds.
    static bool PumpUntil(const std::function<bool()>& condition) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end) return false;
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
            Pump();
        }
        return true;
    }

  private:
    HWND handle_ = nullptr;
};

/// Hears of one kind of message in place of the window that gets it; one for each window at a time.
class MessageSpy {
  public:
    using Heard = std::function<void(WPARAM, LPARAM)>;
    MessageSpy(HWND window, UINT message, Heard heard) : window_(window), message_(message), heard_(std::move(heard)) {
        SetPropW(window, property, this);
        standard_ =
            reinterpret_cast<WNDPROC>(SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
    }
    ~MessageSpy() {
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(standard_));
        RemovePropW(window_, property);
    }
    MessageSpy(const MessageSpy&) = delete;
    MessageSpy& operator=(const MessageSpy&) = delete;

  private:
    static constexpr wchar_t property[] = L"MessageSpy";

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto& self = *static_cast<MessageSpy*>(GetPropW(window, property));
        if (message != self.message_) return CallWindowProcW(self.standard_, window, message, wParam, lParam);
        self.heard_(wParam, lParam);
        return 0;
    }

    HWND window_;
    UINT message_;
    Heard heard_;
    WNDPROC standard_ = nullptr;
};

/// Holds keys down for a scope.
class HeldKeys {
  public:
    HeldKeys(std::initializer_list<int> keys) {
        GetKeyboardState(before_);
        BYTE state[256];
        std::copy(std::begin(before_), std::end(before_), state);
        for (const int key : keys) state[key] = 0x80;
        SetKeyboardState(state);
    }
    ~HeldKeys() { SetKeyboardState(before_); }
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;

  private:
    BYTE before_[256];
};

/// An empty grid of the control's shape.
inline void SetUpGrid(TreeGrid& grid) {
    grid.SetColCount(sample::columnCount);
    grid.SetFixedColCount(0);
    grid.SetRowCount(1);
    grid.SetFixedRowCount(1);
    grid.SetCellText(0, sample::colSel, "Select");
    grid.SetCellText(0, sample::colIndex, "No.");
    grid.SetCellText(0, sample::colName, "Folder");
    grid.SetColDataType(sample::colSel, 11);
    for (int col = sample::colReserved; col < sample::columnCount; ++col) grid.SetColHidden(col, true);
}

inline void FillRow(TreeGrid& grid, int32_t row, int16_t level, std::string_view name, std::string_view kind) {
    grid.SetCellText(row, sample::colRowKind, kind);
    grid.SetCellText(row, sample::colName, name);
    grid.SetRowOutlineLevel(row, level);
    grid.SetIsNode(row, kind != sample::rowKind::dummy);
    if (kind == sample::rowKind::dummy) return;
    grid.SetCellFormat(CellSetting::Picture, row, sample::colName, sample::mailPicture);
    if (kind != sample::rowKind::store) return;
    grid.SetCellFormat(CellSetting::BackColor, row, 0, row, sample::columnCount - 1, colors::buttonFace);
    grid.SetCellFormat(CellSetting::Bold, row, 0, row, sample::columnCount - 1, 1);
}

inline int32_t AddFolder(TreeGrid& grid, int16_t level, std::string_view name,
                         std::string_view kind = sample::rowKind::folder) {
    const int32_t row = grid.RowCount();
    grid.SetRowCount(row + 1);
    FillRow(grid, row, level, name, kind);
    return row;
}

inline void TickRow(TreeGrid& grid, int32_t row, std::string_view number) {
    grid.SetCellText(row, sample::colSel, "-1");
    grid.SetCellText(row, sample::colIndex, number);
    grid.SetCellFormat(CellSetting::BackColor, row, sample::colName, row, sample::columnCount - 1, 0x0000FFFFu);
}

/// The pixels of a picture, 0x00RRGGBB.
struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<uint32_t> values;

    uint32_t At(int x, int y) const { return values[static_cast<size_t>(y * width + x)]; }
    uint32_t At(POINT point) const { return At(point.x, point.y); }
    bool operator==(const Pixels&) const = default;
    /// Number of pixels in the area that differ from its first one.
    int Drawn(const RECT& area) const {
        int count = 0;
        for (int y = area.top; y < area.bottom; ++y)
            for (int x = area.left; x < area.right; ++x) count += At(x, y) != At(area.left, area.top);
        return count;
    }
};

/// What `paint` draws into an area of that size.
inline Pixels Drawing(int width, int height, const std::function<void(HDC)>& paint) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HDC dc = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    paint(dc);
    GdiFlush();
    Pixels pixels{width, height, {}};
    const auto* first = static_cast<const uint32_t*>(bits);
    pixels.values.assign(first, first + static_cast<size_t>(width) * static_cast<size_t>(height));
    for (uint32_t& value : pixels.values) value &= 0xFFFFFF;
    SelectObject(dc, before);
    DeleteObject(bitmap);
    DeleteDC(dc);
    return pixels;
}

/// What stands in the window's client area on the screen.
inline Pixels OnScreen(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return Drawing(client.right, client.bottom, [&](HDC dc) {
        const HDC source = GetDC(window);
        BitBlt(dc, 0, 0, client.right, client.bottom, source, 0, 0, SRCCOPY);
        ReleaseDC(window, source);
    });
}

/// A system colour as the pixels hold it.
inline uint32_t SystemPixel(int color) {
    const COLORREF value = GetSysColor(color);
    return static_cast<uint32_t>(GetRValue(value) << 16 | GetGValue(value) << 8 | GetBValue(value));
}

inline POINT Middle(const RECT& area) {
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

}  // namespace foldertree
