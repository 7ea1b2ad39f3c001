// WatchText: collecting the facts.
#include "WatchText.h"

#include <commctrl.h>

#include <initializer_list>

#include "Text.h"
#include "Widgets.h"

namespace demo {
namespace {

std::string Line(const char* kind, std::initializer_list<std::wstring> cells) {
    std::string line = kind;
    for (const std::wstring& cell : cells) line += "\t" + EscapeCell(ToUtf8(cell));
    return line + "\n";
}

std::wstring Text(long number) {
    return std::to_wstring(number);
}

bool IsPressable(HWND window) {
    wchar_t name[32] = L"";
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    if (!IsWindowVisible(window)) return false;
    if (lstrcmpiW(name, WC_COMBOBOXW) == 0) return true;
    return lstrcmpiW(name, WC_BUTTONW) == 0 && (GetWindowLongW(window, GWL_STYLE) & BS_TYPEMASK) != BS_GROUPBOX;
}

void AppendButton(HWND button, std::string& text) {
    RECT place = {};
    GetWindowRect(button, &place);
    const bool checked = SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED;
    text += Line("button", {WindowText(button), Text(checked), Text((place.left + place.right) / 2),
                            Text((place.top + place.bottom) / 2)});
}

BOOL CALLBACK AppendIfPressable(HWND window, LPARAM text) {
    if (IsPressable(window)) AppendButton(window, *reinterpret_cast<std::string*>(text));
    return TRUE;
}

/// Where keys go.
std::string FocusLine() {
    const HWND focus = GetFocus();
    wchar_t name[64] = L"";
    GetClassNameW(focus, name, static_cast<int>(std::size(name)));
    RECT place = {};
    GetWindowRect(focus, &place);
    return Line("focus", {name, focus != nullptr ? WindowText(focus) : L"", Text(place.left), Text(place.top)});
}

}  // namespace

std::string WatchText(HWND form, HWND control, const TracedTree& tree, const std::vector<SelectedFolder>& selection) {
    std::string text;
    RECT place = {};
    if (control != nullptr && GetWindowRect(control, &place)) {
        text += Line("control", {Text(place.left), Text(place.top), Text(place.right), Text(place.bottom)});
    }
    for (const TracedRow& row : tree.Rows()) {
        if (!row.placeholder) text += Line("row", {Text(row.level), Text(row.itemType), Text(row.unread), row.name});
    }
    for (const SelectedFolder& folder : selection) {
        text += Line("selected", {Text(folder.index), folder.path, folder.typeName, Text(folder.incomplete)});
    }
    EnumChildWindows(form, AppendIfPressable, reinterpret_cast<LPARAM>(&text));
    return text + FocusLine();
}

}  // namespace demo
