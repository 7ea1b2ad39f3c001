// MethodPanel: three lines of buttons.
#include "MethodPanel.h"

#include <commctrl.h>

#include "SelectionPanel.h"
#include "Widgets.h"

namespace demo {
namespace {

constexpr size_t buttonsPerLine = 4;
constexpr long firstType = -1, lastType = 13;

struct Button {
    const wchar_t* caption;
    MethodCommand command;
};
constexpr Button buttonTable[] = {{L"RefreshList", methodRefreshList},
                                  {L"Localize", methodLocalize},
                                  {L"SelectAll", methodSelectAll},
                                  {L"SelectNone", methodSelectNone},
                                  {L"CollapseToSelection", methodCollapseToSelection},
                                  {L"KillCollection", methodKillCollection},
                                  {L"Font…", methodFont},
                                  {L"Look up", methodLookUp},
                                  {L"SelectByType", methodSelectByType},
                                  {L"CollapseToType", methodCollapseToType}};

}  // namespace

void MethodPanel::Create(HWND form) {
    group_ = AddWidget(form, WC_BUTTONW, L"Methods", BS_GROUPBOX, methodOther);
    for (const Button& button : buttonTable)
        buttons_.push_back(AddWidget(form, WC_BUTTONW, button.caption, WS_TABSTOP, button.command));
    type_ = AddWidget(form, WC_COMBOBOXW, L"", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, methodOther);
    for (long type = firstType; type <= lastType; ++type) {
        const std::wstring name = ItemTypeName(type);
        SendMessageW(type_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    }
    SendMessageW(type_, CB_SETCURSEL, static_cast<WPARAM>(2 - firstType), 0);  // contacts
    additional_ = AddWidget(form, WC_BUTTONW, L"bAdditional", BS_AUTOCHECKBOX | WS_TABSTOP, methodOther);
}

void MethodPanel::Arrange(const RECT& place) {
    Place(group_, place);
    RECT rest = InsideGroup(place);
    const int width = (rest.right - rest.left - 3 * Scaled(6)) / static_cast<int>(buttonsPerLine);
    RECT line = {};
    for (size_t i = 0; i < buttons_.size(); ++i) {
        if (i % buttonsPerLine == 0) line = CutTop(rest, Scaled(24));
        const RECT cell = CutLeft(line, width);
        Place(buttons_[i], cell);
    }
    RECT list = CutLeft(line, width);
    list.bottom += Scaled(240);  // the opened list
    Place(type_, list);
    Place(additional_, line);
}

long MethodPanel::ItemType() const {
    return firstType + static_cast<long>(SendMessageW(type_, CB_GETCURSEL, 0, 0));
}

bool MethodPanel::Additional() const {
    return SendMessageW(additional_, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

}  // namespace demo
