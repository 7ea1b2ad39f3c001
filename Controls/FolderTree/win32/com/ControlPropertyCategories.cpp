// ControlPropertyCategories: ICategorizeProperties of the control: its properties by group in a designer's list.
#include "win32/com/ControlPropertyCategories.h"

#include "common/Members.h"
#include "win32/com/ControlObject.h"

namespace foldertree {

namespace {

int CategoryOf(Member property) {
    switch (property) {
        case Member::font:
            return fontCategory;
        case Member::highlightContactFolders:
        case Member::highlightJournalFolders:
        case Member::highlightTaskFolders:
        case Member::showAddressBook:
        case Member::extendToLevel:
            return appearanceCategory;
        case Member::enabled:
        case Member::multiSelect:
        case Member::allowIndexing:
            return behaviorCategory;
        default:
            return dataCategory;
    }
}

}  // namespace

ControlPropertyCategories::ControlPropertyCategories(ControlObject& object) : ComPart(object) {}

HRESULT ControlPropertyCategories::MapPropertyToCategory(DISPID property, int* category) {
    if (category == nullptr) return E_POINTER;
    *category = 0;
    const MemberInfo* const member = FindMember(property);
    const bool isProperty =
        member != nullptr && member->kind != MemberKind::method && member->kind != MemberKind::methodOnVariable;
    if (!isProperty) return E_FAIL;
    *category = CategoryOf(member->member);
    return S_OK;
}

HRESULT ControlPropertyCategories::GetCategoryName(int, LCID, BSTR* name) {
    if (name == nullptr) return E_POINTER;
    *name = nullptr;
    return S_FALSE;
}

}  // namespace foldertree
