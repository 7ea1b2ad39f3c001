// TracedTree: one handler for each kind of trace line.
#include "TracedTree.h"

#include <algorithm>
#include <cwchar>

#include "Text.h"

namespace demo {
namespace {

constexpr std::wstring_view prefix = L"ctlFolderTree: ";

/// What follows `label` at the start of `text`; false when the text starts with something else.
bool After(std::wstring_view text, std::wstring_view label, std::wstring_view& rest) {
    if (text.substr(0, label.size()) != label) return false;
    rest = text.substr(label.size());
    return true;
}

/// The value of "[type] value".
std::wstring_view WithoutType(std::wstring_view text) {
    const size_t end = text.find(L"] ");
    return end == std::wstring_view::npos ? std::wstring_view() : text.substr(end + 2);
}

std::wstring OnOneLine(std::wstring text) {
    std::replace_if(
        text.begin(), text.end(), [](wchar_t character) { return character < L' '; }, L' ');
    return text;
}

long Number(std::wstring_view text) {
    return std::wcstol(std::wstring(text).c_str(), nullptr, 10);
}

}  // namespace

void TracedTree::Read(std::wstring_view line) {
    std::wstring_view text, rest;
    if (!After(line, prefix, text)) return;
    text.remove_prefix(std::min(text.find_first_not_of(L' '), text.size()));

    if (text == L"GetFolders: Refreshing view") {
        BeginRefresh();
    } else if (After(text, L"Enumerating folders on level ", rest)) {
        BeginFolder(rest);
    } else if (After(text, L"Current StoreID is ", rest) || After(text, L"StoreID: ", rest)) {
        storeId_ = rest;
    } else if (After(text, L"Row number: ", rest)) {
        expanding_ = true;
        // The header is row 0, so the node's number is the place of the row below it.
        place_ = std::min(static_cast<size_t>(std::max(0L, Number(rest))), rows_.size());
    } else if (text == L"Removing 'expand' indicator") {
        if (place_ < rows_.size() && rows_[place_].placeholder)
            rows_.erase(rows_.begin() + static_cast<ptrdiff_t>(place_));
        if (place_ > 0 && place_ <= rows_.size()) rows_[place_ - 1].unread = false;
    } else if (After(text, L"Level: ", rest)) {
        row_ = {};
        row_.level = static_cast<int>(Number(rest));
    } else if (After(text, L"FolderName: [", rest)) {
        row_.name = WithoutType(rest);
    } else if (After(text, L"ItemType: ", rest)) {
        row_.itemType = Number(rest);
    } else if (After(text, L"EntryID [long]: ", rest)) {
        row_.key = L"S" + storeId_ + L"|" + std::wstring(rest);
    } else if (After(text, L"EntryID [short]: ", rest)) {
        Insert(row_);
    } else if (After(text, L"Next level too deep", rest) || After(text, L"Child folders present", rest)) {
        InsertPlaceholder();
    }
}

void TracedTree::BeginRefresh() {
    rows_.clear();
    storeId_.clear();
    expanding_ = false;
}

void TracedTree::BeginFolder(std::wstring_view text) {
    const size_t open = text.find(L" (");
    expanding_ = false;
    // An expansion names no path; below level 1 the folder's own row stands already.
    if (open == std::wstring_view::npos || Number(text) != 1) return;
    TracedRow store;
    store.name = text.substr(open + 2, text.size() - open - 3);
    Insert(store);
}

void TracedTree::Insert(TracedRow row) {
    if (!expanding_) place_ = rows_.size();
    rows_.insert(rows_.begin() + static_cast<ptrdiff_t>(place_++), std::move(row));
}

void TracedTree::InsertPlaceholder() {
    if (place_ == 0 || place_ > rows_.size()) return;
    rows_[place_ - 1].unread = true;
    TracedRow row;
    row.level = rows_[place_ - 1].level + 1;
    row.placeholder = true;
    Insert(row);
}

std::string TracedTree::AsText(const std::set<std::wstring>& selectedKeys) const {
    std::string text;
    for (const TracedRow& row : rows_) {
        if (row.placeholder) continue;
        text += !row.key.empty() && selectedKeys.count(row.key) != 0 ? "[x] " : "[ ] ";
        text += std::string(static_cast<size_t>(std::max(0, row.level)) * 2, ' ') + ToUtf8(OnOneLine(row.name));
        text += row.unread ? " +\n" : "\n";
    }
    return text;
}

}  // namespace demo
