// Members: the table itself, and what its rows must agree on.
#include "common/Members.h"

#include <algorithm>
#include <array>

#include "automation/Object.h"

namespace foldertree {

namespace {

using enum MemberKind;

/// A setting that is kept in a field of the state.
template <auto field>
constexpr Saving Kept(SavedAs type, int32_t place, int32_t defaultValue) {
    Saving saving;
    saving.type = type;
    saving.place = place;
    saving.defaultValue = defaultValue;
    saving.get = [](const ControlState& state) { return static_cast<int32_t>(state.*field); };
    saving.set = [](ControlState& state, int32_t value) {
        state.*field = static_cast<std::remove_reference_t<decltype(state.*field)>>(value);
    };
    return saving;
}

template <bool ControlState::*field>
constexpr Saving Boolean(int32_t place, bool defaultValue) {
    return Kept<field>(SavedAs::boolean, place, defaultValue ? 1 : 0);
}

template <auto field>
constexpr Saving Number(int32_t place, int32_t defaultValue) {
    return Kept<field>(SavedAs::number, place, defaultValue);
}

constexpr Saving Font(int32_t place) {
    Saving saving;
    saving.type = SavedAs::font;
    saving.place = place;
    return saving;
}

using State = ControlState;

// The numbers are those of FolderTree.idl; the negative ones have a meaning of their own for every container.
constexpr MemberInfo table[] = {
    {Member::application, "Application", 1, propertyByReference},
    {Member::cdoSession, "CDOSession", 2, readOnly},
    {Member::font, "Font", -512, propertyByReference, Font(9)},
    {Member::getMsgItem, "GetMsgItem", 3, method},
    {Member::getAdListItem, "GetAdListItem", 4, method},
    {Member::killCollection, "KillCollection", 5, methodOnVariable},
    {Member::listCount, "ListCount", 6, readOnly},
    {Member::selectedItem, "SelectedItem", 7, propertyByReference},
    {Member::selection, "Selection", 8, propertyByReference},
    {Member::enabled, "Enabled", -514, propertyByValue, Boolean<&State::enabled>(1, true)},
    {Member::highlightContactFolders, "HighlightContactFolders", 9, propertyByValue,
     Boolean<&State::highlightContactFolders>(2, false)},
    {Member::highlightJournalFolders, "HighlightJournalFolders", 10, propertyByValue,
     Boolean<&State::highlightJournalFolders>(3, false)},
    // A new control starts at level 1, but this default is 0: a saved 1 is written, and a missing key reads as all
    // levels.
    {Member::extendToLevel, "ExtendToLevel", 11, propertyByValue, Number<&State::extendToLevel>(8, 0)},
    {Member::rdoSessionRef, "RDOSessionRef", 12, propertyByReference},
    {Member::multiSelect, "MultiSelect", 13, propertyByValue, Boolean<&State::multiSelect>(5, true)},
    {Member::allowIndexing, "AllowIndexing", 14, propertyByValue, Boolean<&State::allowIndexing>(6, false)},
    {Member::showAddressBook, "ShowAddressBook", 15, propertyByValue, Boolean<&State::showAddressBook>(7, false)},
    {Member::selectNone, "SelectNone", 16, method},
    {Member::selectAll, "SelectAll", 17, method},
    {Member::selectByType, "SelectByType", 18, method},
    {Member::refreshList, "RefreshList", 19, method},
    {Member::localize, "Localize", 20, method},
    {Member::createSelItem, "CreateSelItem", 21, method},
    {Member::infoStoreAccessMode, "InfoStoreAccessMode", 22, propertyByValue,
     Number<&State::infoStoreAccessMode>(10, eISAccess_RDO_MAPITables)},
    {Member::bufferedToLevel, "BufferedToLevel", 23, readOnly},
    {Member::collapseToSelection, "CollapseToSelection", 24, method},
    {Member::collapseToType, "CollapseToType", 25, method},
    {Member::highlightTaskFolders, "HighlightTaskFolders", 26, propertyByValue,
     Boolean<&State::highlightTaskFolders>(4, false)},
};

constexpr size_t savedCount = std::count_if(
    std::begin(table), std::end(table), [](const MemberInfo& info) { return info.saving.type != SavedAs::nothing; });

constexpr auto saved = [] {
    std::array<const MemberInfo*, savedCount> members{};
    for (const MemberInfo& info : table)
        if (info.saving.type != SavedAs::nothing) members[static_cast<size_t>(info.saving.place - 1)] = &info;
    return members;
}();

constexpr bool EachRowStandsAtItsMember() {
    for (size_t row = 0; row < std::size(table); ++row)
        if (table[row].member != static_cast<Member>(row)) return false;
    return true;
}
static_assert(EachRowStandsAtItsMember());
static_assert(std::none_of(saved.begin(), saved.end(), [](const MemberInfo* info) { return info == nullptr; }),
              "each place is taken once");
static_assert(std::is_sorted(saved.begin(), saved.end(),
                             [](const MemberInfo* a, const MemberInfo* b) {
                                 return a->saving.sinceVersion < b->saving.sinceVersion;
                             }),
              "later versions add at the end");

}  // namespace

std::span<const MemberInfo> AllMembers() {
    return table;
}

const MemberInfo& Info(Member member) {
    return table[static_cast<size_t>(member)];
}

const MemberInfo* FindMember(std::string_view name) {
    for (const MemberInfo& info : table)
        if (automation::SameMember(info.name, name)) return &info;
    return nullptr;
}

const MemberInfo* FindMember(int32_t number) {
    for (const MemberInfo& info : table)
        if (info.number == number) return &info;
    return nullptr;
}

std::span<const MemberInfo* const> SavedMembers() {
    return saved;
}

}  // namespace foldertree
