// GridAccessibility: a grid's window as assistive programs see it: questions, acts and events.
#pragma once

#include <windows.h>

#include <string>

#include "accessible/AccessibleActs.h"
#include "accessible/AccessibleEvents.h"
#include "accessible/AccessibleHost.h"
#include "accessible/AccessibleTree.h"
#include "win32/AccessibleAnswers.h"
#include "win32/AccessibleWindow.h"

namespace foldertree {

class GridWindow;

/// Puts the accessible tree of a grid into the words of MSAA. A part of the grid's window.
class GridAccessibility final : private AccessibleAnswers, private AccessibleView {
  public:
    /// What the window is made of; all of it outlives this.
    struct Parts {
        GridWindow& window;
        WindowKeeper& keeper;
        TreeGrid& grid;
        const RowHasBox& hasBox;
        GridInteraction& interaction;
        GridView& view;
        const AccessibleHost& host;
    };
    explicit GridAccessibility(const Parts& parts);

    /// The result of WM_GETOBJECT, where AccessibleWindow::Answers.
    LRESULT Answer(WPARAM wParam) { return objects_.Answer(wParam); }

    void Note(const GridChanges& changes) noexcept { events_.Note(changes); }
    void FocusCame() noexcept { events_.FocusCame(); }
    /// What happened until now happened without a window.
    void WindowCame() { events_.Drop(); }
    bool HasEvents() const { return events_.Pending(); }
    /// Tells whoever listens what there is to tell; wants to be called once a frame. A listener inside the process runs
    /// at once and may do anything, so the window may be gone afterwards.
    void SendEvents() noexcept;

  private:
    // AccessibleView
    bool Focused() const override;
    bool InView(int32_t row) const override;

    // AccessibleAnswers
    HWND Window() const override;
    void BringUpToDate() override;
    bool Has(LONG child) override { return tree_.RowOf(child) != 0; }
    LONG Count() override { return tree_.ChildCount(); }
    LONG ChildAt(LONG position) override { return IdOf(tree_.RowAt(position)); }
    LONG PositionOf(LONG child) override { return tree_.PositionOf(tree_.RowOf(child)).value_or(-1); }
    LONG ChildAtPoint(POINT point) override;
    LONG Step(LONG direction, LONG child) override;
    LONG Focus() override { return IdOf(tree_.CursorRow()); }
    LONG Selection() override { return IdOf(tree_.CursorRow()); }
    std::string Name(LONG child) override;
    std::string Value(LONG child) override;
    std::string Description(LONG child) override;
    LONG Role(LONG child) override;
    LONG State(LONG child) override;
    RECT Place(LONG child) override;
    std::string Action(LONG child) override;
    HRESULT DoAction(LONG child) override;
    HRESULT Select(LONG flags, LONG child) override;

    LONG IdOf(int32_t row) { return row != 0 ? tree_.IdOf(row) : 0; }
    RECT PlaceOfRow(int32_t row) const;
    void TakeKeyboard();

    GridWindow& window_;
    WindowKeeper& keeper_;
    AccessibleTree tree_;
    AccessibleActs acts_;
    AccessibleEvents events_;
    AccessibleWindow objects_;
};

}  // namespace foldertree
