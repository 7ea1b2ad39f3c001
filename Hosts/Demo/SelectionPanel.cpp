// SelectionPanel: reading items and listing them.
#include "SelectionPanel.h"

#include <commctrl.h>

#include "Widgets.h"

namespace demo {
namespace {

constexpr int panelId = 200;

struct ItemType {
    long value;
    const wchar_t* name;
};
constexpr ItemType itemTypes[] = {{-1, L"Unknown"}, {0, L"Mail"},   {1, L"Appointment"},
                                  {2, L"Contact"},  {3, L"Task"},   {4, L"Journal"},
                                  {5, L"Note"},     {6, L"Post"},   {7, L"Distribution list"},
                                  {8, L"Trash"},    {9, L"Inbox"},  {10, L"Outbox"},
                                  {11, L"Sent"},    {12, L"Draft"}, {13, L"Home"}};

struct Column {
    const wchar_t* caption;
    int width;
};
constexpr Column columns[] = {{L"No.", 36}, {L"Type", 80}, {L"Path", 240}, {L"Record", 52}, {L"Key", 400}};

}  // namespace

std::wstring ItemTypeName(long type) {
    for (const ItemType& known : itemTypes) {
        if (known.value == type) return known.name;
    }
    return std::to_wstring(type);
}

SelectedFolder ReadItem(IDispatch* item) {
    SelectedFolder folder;
    folder.index = Get(item, L"Index").AsLong();
    folder.name = Get(item, L"Name").AsText();
    folder.path = Get(item, L"Path").AsText();
    folder.typeName = ItemTypeName(Get(item, L"ItemType").AsLong());
    folder.key = Get(item, L"Key").AsText();
    folder.incomplete = Get(item, L"Incomplete").AsBool();
    folder.saved.recordId = Get(item, L"FolderRecID").AsLong();
    folder.saved.storeId = Get(item, L"StoreID").AsText();
    folder.saved.entryId = Get(item, L"EntryID").AsText();
    folder.saved.entryIdShort = Get(item, L"EntryIDShort").AsText();
    folder.saved.addressListId = Get(item, L"AddressListID").AsText();
    return folder;
}

std::vector<SelectedFolder> ReadCollection(IDispatch* collection) {
    std::vector<SelectedFolder> folders;
    if (collection == nullptr) return folders;
    const long count = Get(collection, L"Count").AsLong();
    for (long i = 1; i <= count; ++i) folders.push_back(ReadItem(Get(collection, L"Item", {i}).AsObject().Get()));
    return folders;
}

void SelectionPanel::Create(HWND form) {
    group_ = AddWidget(form, WC_BUTTONW, L"Selection", BS_GROUPBOX, panelId);
    list_ = AddWidget(form, WC_LISTVIEWW, L"", LVS_REPORT | LVS_NOSORTHEADER | LVS_SHOWSELALWAYS | WS_TABSTOP, panelId,
                      WS_EX_CLIENTEDGE);
    ListView_SetExtendedListViewStyle(list_, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    int index = 0;
    for (const Column& column : columns) {
        LVCOLUMNW item = {};
        item.mask = LVCF_TEXT | LVCF_WIDTH;
        item.cx = Scaled(column.width);
        std::wstring caption = column.caption;
        item.pszText = caption.data();
        SendMessageW(list_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index++), reinterpret_cast<LPARAM>(&item));
    }
}

void SelectionPanel::Arrange(const RECT& place) {
    Place(group_, place);
    Place(list_, InsideGroup(place));
}

size_t SelectionPanel::Chosen() const {
    const int chosen = ListView_GetNextItem(list_, -1, LVNI_SELECTED);
    return chosen < 0 ? 0 : static_cast<size_t>(chosen);
}

void SelectionPanel::Show(const std::vector<SelectedFolder>& folders) {
    SetWindowTextW(group_, (L"Selection (" + std::to_wstring(folders.size()) + L")").c_str());
    SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    ListView_DeleteAllItems(list_);
    int row = 0;
    for (const SelectedFolder& folder : folders) {
        std::wstring cells[] = {std::to_wstring(folder.index),
                                folder.incomplete ? L"(not in the tree)" : folder.typeName, folder.path,
                                folder.saved.recordId == 0 ? L"" : std::to_wstring(folder.saved.recordId), folder.key};
        LVITEMW item = {};
        item.mask = LVIF_TEXT;
        item.iItem = row;
        item.pszText = cells[0].data();
        SendMessageW(list_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        for (int column = 1; column < static_cast<int>(std::size(cells)); ++column) {
            item.iSubItem = column;
            item.pszText = cells[column].data();
            SendMessageW(list_, LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        }
        ++row;
    }
    SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list_, nullptr, TRUE);
}

}  // namespace demo
