// MailboxesTarget: fuzzes the tree of folders that is made of mailbox names, and the names of sample mailboxes. The
// first byte chooses the separator, or the sample; the rest are names, each behind a zero byte.
#include <set>
#include <string>
#include <vector>

#include "FuzzInput.h"
#include "ModelWalk.h"
#include "StoreChecks.h"
#include "automation/Error.h"
#include "automation/Text.h"
#include "localstores/Store.h"
#include "model/MailboxTree.h"

namespace {

using fuzz::Must;
using namespace localstores;

std::vector<std::string> NamesIn(std::string_view text) {
    std::vector<std::string> names;
    while (true) {
        const size_t end = text.find('\0');
        names.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) return names;
        text.remove_prefix(end + 1);
    }
}

/// The full names of all folders that the names ask for, told in another way than the product does.
std::set<std::string> FoldersFor(const std::vector<std::string>& names, char separator) {
    std::set<std::string> folders;
    for (std::string name : names) {
        const std::string top = name.substr(0, name.find(separator));
        if (automation::EqualNoCase(top, "inbox")) name = "INBOX" + name.substr(top.size());
        for (size_t end = name.find(separator); end != std::string::npos; end = name.find(separator, end + 1))
            folders.insert(name.substr(0, end));
        folders.insert(name);
    }
    return folders;
}

void CheckMailboxes(std::string_view text, char separator) {
    const std::string path = "mailboxes";
    const std::vector<std::string> names = NamesIn(text);
    try {
        const auto store = MakeMailboxStore({path, path, "Maildir", separator, names});
        Must(fuzz::CheckStore(*store) == FoldersFor(names, separator).size() + 1,
             "each level of each name is one folder");
        for (int role = 0; role < 25; ++role)
            if (const Folder* folder = store->Default(static_cast<DefaultFolder>(role)))
                Must(folder->parent == &store->Root(), "default folders stand at the top");
    } catch (const automation::Error& error) {
        Must(error.Text().find(path) != std::string::npos, "a refusal names the path");
    }
}

/// Whether the mailbox would be as large or as slow as it is told to be, which shows nothing.
bool IsCostly(std::string_view options) {
    return options.find("folders=") != std::string_view::npos || options.find("delay=") != std::string_view::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::FuzzInput input(data, size);
    const uint8_t choice = input.TakeByte();
    if (choice % 16 != 15)
        CheckMailboxes(input.Rest(), choice % 2 == 0 ? '.' : '/');
    else if (!IsCostly(input.Rest()))
        fuzz::WalkModels("sample?" + std::string(input.Rest()));
    return 0;
}
