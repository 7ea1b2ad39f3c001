// Options: the command line of foldertree-dump.
#include "Options.h"

#include <charconv>
#include <stdexcept>
#include <string_view>

const char* const usage =
    "usage: foldertree-dump [--mode N] [--level N] [--expand PATH]... [--select KEY]... [--trace] STORE...\n"
    "  STORE          a PST file, a directory with a Maildir++ tree, or \"sample\"\n"
    "  --mode N       access mode: 0 MAPI tables, 1 RDO objects (default 0)\n"
    "  --level N      deepest level that is read at once; 0 reads all (default 1)\n"
    "  --expand PATH  then open the folder with this path (column colPath)\n"
    "  --select KEY   tick the row with this key (column colKey)\n"
    "  --trace        write the control's trace lines to standard error\n"
    "Prints the column names, then a line a row: outline level, node state, bold, back colour of the name cell and\n"
    "the 14 cells, separated by tabs; tab, line feed and backslash in a cell are written \\t, \\n and \\\\.\n";

namespace {

int32_t Number(std::string_view option, std::string_view text) {
    int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        throw std::invalid_argument(std::string(option) + " wants a whole number, not \"" + std::string(text) + "\"");
    return number;
}

}  // namespace

Options ParseOptions(int argumentCount, const char* const* arguments) {
    Options options;
    for (int i = 1; i < argumentCount; ++i) {
        const std::string_view option = arguments[i];
        const auto value = [&]() -> std::string {
            if (++i >= argumentCount) throw std::invalid_argument(std::string(option) + " wants a value");
            return arguments[i];
        };
        if (option == "--mode")
            options.mode = Number(option, value());
        else if (option == "--level")
            options.level = Number(option, value());
        else if (option == "--expand")
            options.expand.push_back(value());
        else if (option == "--select")
            options.select.push_back(value());
        else if (option == "--trace")
            options.trace = true;
        else if (option == "--help" || option == "-h")
            options.help = true;
        else if (option.starts_with("--"))
            throw std::invalid_argument("there is no option " + std::string(option));
        else
            options.stores.emplace_back(option);
    }
    if (options.stores.empty() && !options.help) throw std::invalid_argument("which store? Name a file or \"sample\"");
    return options;
}
