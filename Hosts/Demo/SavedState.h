// SavedState: what the demo keeps between two runs: the control's properties and the user's selection.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace demo {

/// One selected folder or address list: identifiers only, for the tree knows the rest.
struct SavedItem {
    long recordId = 0;
    std::wstring storeId;
    std::wstring entryId;
    std::wstring entryIdShort;
    std::wstring addressListId;
};

/// A text file in UTF-8 with two sections. A line that makes no sense is passed over.
struct SavedState {
    std::map<std::string, std::string> properties;  ///< by name; the value with its kind, see FilePropertyBag
    std::vector<SavedItem> selection;

    static SavedState Load(const std::wstring& file);
    bool Save(const std::wstring& file) const;
};

}  // namespace demo
