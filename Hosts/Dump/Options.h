// Options: the command line of foldertree-dump.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// One of the control's operations on a tree that stands.
struct Step {
    enum class Kind { SelectAll, SelectNone, SelectByType, AddByType, CollapseToSelection, CollapseToType };
    Kind kind;
    int32_t itemType = 0;  ///< for those by type
};

struct Options {
    int32_t mode = 0;
    int32_t level = 1;
    bool addressBook = false;
    bool highlightContacts = false;
    bool highlightJournal = false;
    bool highlightTasks = false;
    std::vector<std::string> expand;  ///< folder paths, in order
    std::vector<std::string> select;  ///< row keys, in order
    std::vector<Step> steps;          ///< after those, in order
    std::string find;                 ///< the row key to look up instead of printing the tree; empty: print it
    bool trace = false;
    bool help = false;
    bool version = false;
    std::vector<std::string> stores;
};

/// Throws std::invalid_argument, whose text says what is wrong.
Options ParseOptions(int argumentCount, const char* const* arguments);

extern const char* const usage;
