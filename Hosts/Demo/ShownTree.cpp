// ShownTree: list-view messages within the process.
#include "ShownTree.h"

#include <commctrl.h>

#include "Text.h"

namespace demo {
namespace {

enum Column { boxColumn, numberColumn, nameColumn };

bool HasClass(HWND window, const wchar_t* name) {
    wchar_t buffer[64];
    return GetClassNameW(window, buffer, static_cast<int>(std::size(buffer))) > 0 && lstrcmpiW(buffer, name) == 0;
}

HWND FindListView(HWND parent) {
    HWND found = nullptr;
    EnumChildWindows(
        parent,
        [](HWND child, LPARAM result) -> BOOL {
            if (!HasClass(child, WC_LISTVIEWW)) return TRUE;
            *reinterpret_cast<HWND*>(result) = child;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

std::wstring CellText(HWND list, int row, int column) {
    std::vector<wchar_t> buffer(4096);
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = buffer.data();
    item.cchTextMax = static_cast<int>(buffer.size());
    SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return item.pszText != nullptr ? item.pszText : L"";
}

int Indent(HWND list, int row) {
    LVITEMW item = {};
    item.mask = LVIF_INDENT;
    item.iItem = row;
    SendMessageW(list, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    return item.iIndent;
}

RECT CellPlace(HWND list, int row, int column) {
    RECT place = {};
    ListView_GetSubItemRect(list, row, column, column == boxColumn ? LVIR_LABEL : LVIR_BOUNDS, &place);
    if (column == boxColumn) {
        // The label bounds of the first column begin behind the box; the box stands before them.
        RECT whole = {};
        ListView_GetItemRect(list, row, &whole, LVIR_BOUNDS);
        place.left = whole.left;
        place.right = whole.left + ListView_GetColumnWidth(list, boxColumn);
    }
    MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

POINT Middle(const RECT& place) {
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

ShownRow ReadRow(HWND list, int row) {
    constexpr UINT tickedImage = 2;
    ShownRow shown;
    shown.ticked = ListView_GetItemState(list, row, LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(tickedImage);
    shown.number = CellText(list, row, numberColumn);
    shown.name = CellText(list, row, nameColumn);
    shown.level = Indent(list, row);
    shown.box = Middle(CellPlace(list, row, boxColumn));
    shown.numberPlace = Middle(CellPlace(list, row, numberColumn));
    shown.namePlace = Middle(CellPlace(list, row, nameColumn));
    return shown;
}

std::string PointText(POINT point) {
    return std::to_string(point.x) + "\t" + std::to_string(point.y);
}

std::string CellOf(const std::wstring& text) {
    return EscapeCell(ToUtf8(text));
}

void AppendButton(HWND window, std::string& text) {
    RECT place = {};
    GetWindowRect(window, &place);
    wchar_t caption[256];
    GetWindowTextW(window, caption, static_cast<int>(std::size(caption)));
    text += "button\t" + CellOf(caption) + "\t" +
            std::to_string(SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED) + "\t" +
            std::to_string(IsWindowEnabled(window) != FALSE) + "\t" + PointText(Middle(place)) + "\n";
}

}  // namespace

std::vector<ShownRow> ReadShownTree(HWND control) {
    std::vector<ShownRow> rows;
    const HWND list = control != nullptr ? FindListView(control) : nullptr;
    if (list == nullptr) return rows;
    const int count = ListView_GetItemCount(list);
    for (int row = 0; row < count; ++row) rows.push_back(ReadRow(list, row));
    return rows;
}

std::string TreeAsText(const std::vector<ShownRow>& rows) {
    std::string text;
    for (const ShownRow& row : rows) {
        text += row.ticked ? "[x] " : "[ ] ";
        text += std::string(static_cast<size_t>(row.level) * 2, ' ') + CellOf(row.name) + "\n";
    }
    return text;
}

std::string WindowAsText(HWND form, const std::vector<ShownRow>& rows) {
    std::string text;
    for (const ShownRow& row : rows) {
        text += "row\t" + std::to_string(row.ticked) + "\t" + CellOf(row.number) + "\t" + std::to_string(row.level) +
                "\t" + CellOf(row.name) + "\t" + PointText(row.box) + "\t" + PointText(row.numberPlace) + "\t" +
                PointText(row.namePlace) + "\n";
    }
    EnumChildWindows(
        form,
        [](HWND child, LPARAM result) -> BOOL {
            if (IsWindowVisible(child) && HasClass(child, WC_BUTTONW)) {
                AppendButton(child, *reinterpret_cast<std::string*>(result));
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&text));
    return text;
}

}  // namespace demo
