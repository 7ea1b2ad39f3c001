// Snapshot: what a user and a host see of a control: its rows, and what is in the selection.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "attack/Checks.h"
#include "attack/World.h"

namespace foldertree::attack {

struct Snapshot {
    struct Row {
        std::string identity;  ///< tells rows apart, also when texts in them change
        std::vector<std::string> texts;
        int level = 0;
        bool isNode = false;
        int state = 0;
        bool operator==(const Row&) const = default;
    };
    std::vector<Row> rows;       ///< data rows only
    std::set<std::string> keys;  ///< of the items in the world's collection
    std::vector<int> settings;
    bool operator==(const Snapshot&) const = default;
};

/// Asks nothing that changes the selection.
Snapshot Take(World& world);

/// What a member may leave behind that has not run to its end.
struct Expectations {
    Snapshot before;
    Snapshot after;                ///< of the member that did run to its end
    bool rereads = false;          ///< the rows are read anew: those that were there before may be gone
    bool defaultsAllowed = false;  ///< a setting that cannot be read gets its default
};

/// Rows and texts are each as before or as after, in the order of either; rows and items that are there before and
/// after are there; no others are. A row that is read anew may be unfinished if the trace tells of it.
void CheckBetween(const Snapshot& now, const Expectations& expected, bool told, Findings& findings);

}  // namespace foldertree::attack
