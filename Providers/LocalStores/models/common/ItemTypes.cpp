// ItemTypes: the table.
#include "models/common/ItemTypes.h"

#include "automation/Text.h"

namespace localstores {
namespace {

constexpr ItemType itemTypes[] = {
    {"IPF.Note", "IPM.Note", 0}, {"IPF.Appointment", "IPM.Appointment", 1}, {"IPF.Contact", "IPM.Contact", 2},
    {"IPF.Task", "IPM.Task", 3}, {"IPF.Journal", "IPM.Activity", 4},        {"IPF.StickyNote", "IPM.StickyNote", 5},
};

bool IsClassOrSubclass(std::string_view text, std::string_view folderClass) {
    if (!automation::EqualNoCase(text.substr(0, folderClass.size()), folderClass)) return false;
    return text.size() == folderClass.size() || text[folderClass.size()] == '.';
}

}  // namespace

const ItemType& ItemTypeOf(const Folder& folder) {
    const std::string_view text = folder.containerClass ? *folder.containerClass : std::string_view();
    for (const ItemType& type : itemTypes)
        if (IsClassOrSubclass(text, type.folderClass)) return type;
    return itemTypes[0];
}

}  // namespace localstores
