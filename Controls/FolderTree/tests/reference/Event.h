// Event: one thing that a user, a host or a mail provider does, small enough to be cut down and written out.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace foldertree::reference {

enum class Kind {
    // The user
    Tick,
    TypeNumber,    ///< through the editor: only where it may open
    CommitNumber,  ///< the text alone
    DoubleClick,
    OpenNode,
    CloseNode,
    MoveCursor,
    Cancel,
    // The host
    Refresh,
    SetMode,
    SetMultiSelect,
    SetAllowIndexing,
    SetShowAddressBook,
    SetHighlight,
    SetExtendToLevel,
    SetEnabled,
    SetSession,
    SetApplication,
    LoadSettings,
    Localize,
    ReadSelection,
    AssignSelection,
    ReadSelectedItem,
    AssignSelectedItem,
    MakeItem,
    MakeForeignItem,
    LookUp,
    AddToCollection,
    RemoveFromCollection,
    NumberItem,
    KillCollection,
    SelectNone,
    SelectAll,
    SelectByType,
    CollapseToSelection,
    CollapseToType,
    ReadCDOSession,
    Close,  ///< the control goes away; nothing happens to it any more
    // The provider
    AddFolder,
    AddManyFolders,  ///< several hundred below one parent
    RemoveFolder,
    ChangeFolder,
    MakeFolderOdd,
    ChangeStore,
    ChangeLists,
    FailCall,  ///< the call with that number from now on
    Count
};

/// When: at once, or inside the yield, the notification `Changed`, the notification of a changed property or the call
/// to the provider with that number from now on. A call to another process lets messages in, so a host can act inside
/// it.
enum class Place { Now, InYield, InChanged, InProperty, InCall };

/// Numbers mean something modulo what there is to choose from, so every part of a sequence is a sequence.
struct Event {
    Kind kind = Kind::Refresh;
    int a = 0;
    int b = 0;
    int c = 0;
    Place place = Place::Now;
    int wait = 0;
    bool operator==(const Event&) const = default;
};
using Sequence = std::vector<Event>;

/// "Tick 3; Refresh; SelectNone@yield2 1 0": as --replay takes it.
std::string Write(const Sequence& sequence);
/// Throws std::invalid_argument.
Sequence Read(std::string_view text);

/// A host that sets itself up and then `length` random events.
Sequence RandomSequence(std::mt19937& random, int length);

}  // namespace foldertree::reference
