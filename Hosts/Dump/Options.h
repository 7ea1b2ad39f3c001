// Options: the command line of foldertree-dump.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct Options {
    int32_t mode = 0;
    int32_t level = 1;
    std::vector<std::string> expand;  ///< folder paths, in order
    std::vector<std::string> select;  ///< row keys, in order
    bool trace = false;
    bool help = false;
    std::vector<std::string> stores;
};

/// Throws std::invalid_argument, whose text says what is wrong.
Options ParseOptions(int argumentCount, const char* const* arguments);

extern const char* const usage;
