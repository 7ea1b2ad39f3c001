// TracePanel: an owner-data list over TraceLog.
#include "TracePanel.h"

#include "TraceLog.h"
#include "Widgets.h"

namespace demo {

void TracePanel::Create(HWND form) {
    group_ = AddWidget(form, WC_BUTTONW, L"Trace", BS_GROUPBOX, listId + 2);
    list_ = AddWidget(form, WC_LISTVIEWW, L"",
                      LVS_REPORT | LVS_OWNERDATA | LVS_NOCOLUMNHEADER | LVS_SHOWSELALWAYS | WS_TABSTOP, listId,
                      WS_EX_CLIENTEDGE);
    ListView_SetExtendedListViewStyle(list_, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    LVCOLUMNW column = {};
    column.mask = LVCF_WIDTH;
    column.cx = Scaled(2000);
    SendMessageW(list_, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    clear_ = AddWidget(form, WC_BUTTONW, L"Clear", WS_TABSTOP, clearId);
}

void TracePanel::Arrange(const RECT& place) {
    Place(group_, place);
    RECT inside = InsideGroup(place);
    const int buttonHeight = Scaled(24);
    Place(clear_, {inside.right - Scaled(80), inside.bottom - buttonHeight, inside.right, inside.bottom});
    inside.bottom -= buttonHeight + Scaled(6);
    Place(list_, inside);
}

void TracePanel::Update() {
    const TraceLog& log = TraceLog::Instance();
    const uint64_t total = log.Total();
    if (total == shown_) return;
    shown_ = total;
    const int last = static_cast<int>(log.KeptCount()) - 1;
    ListView_SetItemCountEx(list_, last + 1, LVSICF_NOSCROLL);
    if (last >= 0) ListView_EnsureVisible(list_, last, FALSE);
    // Once the log is full its lines move up without a change of their number.
    InvalidateRect(list_, nullptr, FALSE);
    SetWindowTextW(group_, (L"Trace (" + std::to_wstring(total) + L" lines)").c_str());
}

void TracePanel::Clear() {
    TraceLog::Instance().Clear();
    ListView_SetItemCount(list_, 0);
}

void TracePanel::Fill(NMLVDISPINFOW& question) {
    if ((question.item.mask & LVIF_TEXT) == 0) return;
    answer_ = TraceLog::Instance().Line(static_cast<size_t>(question.item.iItem));
    question.item.pszText = answer_.data();
}

}  // namespace demo
