// Members: the control's public members in one table: what late-bound callers, bags, streams and containers know.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "common/ControlState.h"

namespace foldertree {

/// In interface order.
enum class Member : uint8_t {
    application,
    cdoSession,
    font,
    getMsgItem,
    getAdListItem,
    killCollection,
    listCount,
    selectedItem,
    selection,
    enabled,
    highlightContactFolders,
    highlightJournalFolders,
    extendToLevel,
    rdoSessionRef,
    multiSelect,
    allowIndexing,
    showAddressBook,
    selectNone,
    selectAll,
    selectByType,
    refreshList,
    localize,
    createSelItem,
    infoStoreAccessMode,
    bufferedToLevel,
    collapseToSelection,
    collapseToType,
    highlightTaskFolders,
};

enum class MemberKind : uint8_t {
    method,
    methodOnVariable,    ///< a method whose one argument is a variable of the caller's, which it sets
    readOnly,            ///< a property that is only read
    propertyByValue,     ///< a property that takes plain values
    propertyByReference  ///< a property that takes objects
};

enum class SavedAs : uint8_t { nothing, boolean, number, font };

/// What a container saves of a member, and where it lives while the control runs.
struct Saving {
    SavedAs type = SavedAs::nothing;
    /// What a missing value reads as, and what is not written into a bag: a number, or 0 and 1 for a Boolean. A font's
    /// default is the container's.
    int32_t defaultValue = 0;
    /// Streams that containers have saved depend on this order, which counts from 1. A new setting takes the next place
    /// and the next version of the stream.
    int32_t place = 0;
    uint32_t sinceVersion = 1;
    // Null for the font, which is the grid's.
    int32_t (*get)(const ControlState& state) = nullptr;
    void (*set)(ControlState& state, int32_t value) = nullptr;
};

struct MemberInfo {
    Member member;
    std::string_view name;
    int32_t number;  ///< the DISPID
    MemberKind kind;
    Saving saving = {};
};

/// All members in interface order.
std::span<const MemberInfo> AllMembers();
const MemberInfo& Info(Member member);
/// Null for a name or number that no member has. Names compare without regard to case.
const MemberInfo* FindMember(std::string_view name);
const MemberInfo* FindMember(int32_t number);

/// The members that a container saves, by their place.
std::span<const MemberInfo* const> SavedMembers();

}  // namespace foldertree
