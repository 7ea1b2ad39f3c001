// Options: the command line of foldertree-dump.
#include "Options.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <stdexcept>
#include <string_view>

const char* const usage =
    "usage: foldertree-dump [OPTION]... STORE...\n"
    "  STORE                  a PST file, a directory with a Maildir++ tree, or \"sample\"\n"
    "  --mode N               access mode: 0 MAPI tables, 1 RDO objects, 2 Outlook, 3 CDO (default 0)\n"
    "  --level N              deepest level that is read at once; 0 reads all (default 1)\n"
    "  --address-book         show the address lists too\n"
    "  --highlight WHAT       stress the folders of \"contacts\", \"journal\" or \"tasks\" (repeatable)\n"
    "  --trace                write the control's trace lines to standard error\n"
    "  --version              print the version and end\n"
    "When the tree stands:\n"
    "  --expand PATH          open the folder with this path (column colPath)\n"
    "  --select KEY           tick the row with this key (column colKey)\n"
    "and after those, in the order given:\n"
    "  --select-all, --select-none\n"
    "  --select-type N        tick the folders of this item type (column colItemType) and no others\n"
    "  --add-type N           tick them beside what is ticked\n"
    "  --collapse-selection   open what holds ticked rows, close what does not\n"
    "  --collapse-type N      the same for the folders of an item type\n"
    "  --find KEY             print the path that the lookup of a folder gives, instead of the tree\n"
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

int32_t Mode(std::string_view text) {
    const int32_t mode = Number("--mode", text);
    if (mode < 0 || mode > 3) throw std::invalid_argument("--mode takes 0, 1, 2 or 3, not " + std::string(text));
    return mode;
}

struct StepOption {
    std::string_view name;
    Step::Kind kind;
    bool byType;
};
constexpr StepOption stepOptions[] = {{"--select-all", Step::Kind::SelectAll, false},
                                      {"--select-none", Step::Kind::SelectNone, false},
                                      {"--select-type", Step::Kind::SelectByType, true},
                                      {"--add-type", Step::Kind::AddByType, true},
                                      {"--collapse-selection", Step::Kind::CollapseToSelection, false},
                                      {"--collapse-type", Step::Kind::CollapseToType, true}};

const StepOption* FindStep(std::string_view name) {
    const auto found = std::find_if(std::begin(stepOptions), std::end(stepOptions),
                                    [&](const StepOption& option) { return option.name == name; });
    return found != std::end(stepOptions) ? found : nullptr;
}

void Highlight(Options& options, const std::string& what) {
    if (what == "contacts")
        options.highlightContacts = true;
    else if (what == "journal")
        options.highlightJournal = true;
    else if (what == "tasks")
        options.highlightTasks = true;
    else
        throw std::invalid_argument("--highlight takes contacts, journal or tasks, not \"" + what + "\"");
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
            options.mode = Mode(value());
        else if (option == "--level")
            options.level = Number(option, value());
        else if (option == "--expand")
            options.expand.push_back(value());
        else if (option == "--select")
            options.select.push_back(value());
        else if (option == "--find")
            options.find = value();
        else if (option == "--address-book")
            options.addressBook = true;
        else if (option == "--highlight")
            Highlight(options, value());
        else if (const StepOption* step = FindStep(option))
            options.steps.push_back({step->kind, step->byType ? Number(option, value()) : 0});
        else if (option == "--trace")
            options.trace = true;
        else if (option == "--help" || option == "-h")
            options.help = true;
        else if (option == "--version")
            options.version = true;
        else if (option.starts_with("--"))
            throw std::invalid_argument("there is no option " + std::string(option));
        else
            options.stores.emplace_back(option);
    }
    if (options.stores.empty() && !options.help && !options.version)
        throw std::invalid_argument("which store? Name a file or \"sample\"");
    return options;
}
