// PropertyPanel: widgets in, Put calls out.
#include "PropertyPanel.h"

#include <commctrl.h>

#include <cstdlib>
#include <iterator>

#include "Widgets.h"

namespace demo {
namespace {

constexpr const wchar_t* flagNames[] = {L"Enabled",
                                        L"MultiSelect",
                                        L"AllowIndexing",
                                        L"ShowAddressBook",
                                        L"HighlightContactFolders",
                                        L"HighlightJournalFolders",
                                        L"HighlightTaskFolders"};
constexpr size_t flagsInFirstColumn = 4;

constexpr const wchar_t* modeNames[] = {L"0  RDO, MAPI tables", L"1  RDO objects", L"2  Outlook", L"3  CDO"};

constexpr int flagId = PropertyPanel::firstId;  // one a flag, in the order of flagNames
constexpr int levelId = PropertyPanel::firstId + 20;
constexpr int modeId = PropertyPanel::firstId + 21;
constexpr int otherId = PropertyPanel::firstId + 22;
constexpr int greatestLevel = 99;

}  // namespace

void PropertyPanel::Create(HWND form) {
    group_ = AddWidget(form, WC_BUTTONW, L"Properties", BS_GROUPBOX, otherId);
    for (size_t i = 0; i < std::size(flagNames); ++i) {
        flags_.push_back(
            AddWidget(form, WC_BUTTONW, flagNames[i], BS_AUTOCHECKBOX | WS_TABSTOP, flagId + static_cast<int>(i)));
    }
    levelLabel_ = AddWidget(form, WC_STATICW, L"ExtendToLevel", SS_CENTERIMAGE, otherId);
    level_ = AddWidget(form, WC_EDITW, L"", ES_NUMBER | WS_TABSTOP, levelId, WS_EX_CLIENTEDGE);
    levelArrows_ = AddWidget(form, UPDOWN_CLASSW, L"",
                             UDS_SETBUDDYINT | UDS_ALIGNRIGHT | UDS_ARROWKEYS | UDS_NOTHOUSANDS, otherId);
    SendMessageW(levelArrows_, UDM_SETBUDDY, reinterpret_cast<WPARAM>(level_), 0);
    SendMessageW(levelArrows_, UDM_SETRANGE32, 0, greatestLevel);
    modeLabel_ = AddWidget(form, WC_STATICW, L"InfoStoreAccessMode", SS_CENTERIMAGE, otherId);
    mode_ = AddWidget(form, WC_COMBOBOXW, L"", CBS_DROPDOWNLIST | WS_TABSTOP, modeId);
    for (const wchar_t* name : modeNames) SendMessageW(mode_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
    counts_ = AddWidget(form, WC_STATICW, L"", SS_CENTERIMAGE, otherId);
}

void PropertyPanel::Arrange(const RECT& place) {
    Place(group_, place);
    RECT rest = InsideGroup(place);
    const int line = Scaled(22);
    RECT first = CutLeft(rest, Scaled(130));
    RECT second = CutLeft(rest, Scaled(175));
    for (size_t i = 0; i < flags_.size(); ++i) {
        RECT& column = i < flagsInFirstColumn ? first : second;
        RECT cell = column;
        cell.bottom = cell.top + line;
        column.top = cell.bottom + Scaled(4);
        Place(flags_[i], cell);
    }
    RECT cell = CutTop(rest, line);
    Place(levelLabel_, CutLeft(cell, Scaled(125)));
    Place(level_, CutLeft(cell, Scaled(56)));
    SendMessageW(levelArrows_, UDM_SETBUDDY, reinterpret_cast<WPARAM>(level_), 0);  // places the arrows anew
    Place(modeLabel_, CutTop(rest, line));
    cell = CutTop(rest, line);
    cell.bottom += Scaled(200);  // the opened list
    Place(mode_, cell);
    rest.bottom = rest.top + line;
    Place(counts_, {second.left, second.top, rest.right, second.top + line});
}

void PropertyPanel::Show(IDispatch* control) {
    for (size_t i = 0; i < flags_.size(); ++i) {
        const bool checked = Get(control, flagNames[i]).AsBool();
        SendMessageW(flags_[i], BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
    }
    SetWindowTextW(level_, Get(control, L"ExtendToLevel").AsText().c_str());
    SendMessageW(mode_, CB_SETCURSEL, static_cast<WPARAM>(Get(control, L"InfoStoreAccessMode").AsLong()), 0);
    const std::wstring counts = L"ListCount " + Get(control, L"ListCount").AsText() + L"     BufferedToLevel " +
                                Get(control, L"BufferedToLevel").AsText();
    SetWindowTextW(counts_, counts.c_str());
}

void PropertyPanel::Command(int id, int notification, IDispatch* control) {
    const auto flag = static_cast<size_t>(id - flagId);
    if (flag < flags_.size()) {
        Put(control, flagNames[flag], SendMessageW(flags_[flag], BM_GETCHECK, 0, 0) == BST_CHECKED);
    } else if (id == modeId && notification == CBN_SELCHANGE) {
        Put(control, L"InfoStoreAccessMode", static_cast<long>(SendMessageW(mode_, CB_GETCURSEL, 0, 0)));
    }
}

void PropertyPanel::CommitLevel(IDispatch* control) {
    if (GetFocus() == level_) Put(control, L"ExtendToLevel", std::wcstol(WindowText(level_).c_str(), nullptr, 10));
}

}  // namespace demo
