// CallDigest: takes call lines apart at the dot between object and member.
#include "conformance/CallDigest.h"

#include <algorithm>

namespace foldertree::testing {

namespace {

std::string ObjectOf(const std::string& call) {
    return call.substr(0, call.find('.'));
}

/// "Inbox" of `Folder(Inbox)` and the like; empty for objects that stand for no folder.
std::string FolderOf(const std::string& object) {
    for (const std::string_view kind : {"Folder(", "Folders(", "Field(", "Table("})
        if (object.starts_with(kind)) return object.substr(kind.size(), object.size() - kind.size() - 1);
    return {};
}

}  // namespace

Lines DigestOf(const Lines& calls) {
    Lines digest;
    std::string current;
    for (const std::string& call : calls) {
        const std::string object = ObjectOf(call);
        const std::string member = call.size() > object.size() ? call.substr(object.size() + 1) : "";
        if (object == current) {
            digest.back() += ", " + member;
        } else {
            digest.push_back(object + ": " + member);
            current = object;
        }
    }
    return digest;
}

std::string CountsOf(const Lines& calls) {
    std::vector<std::pair<std::string, int>> counts;
    for (const std::string& call : calls) {
        const std::string folder = FolderOf(ObjectOf(call));
        if (folder.empty()) continue;
        const auto known =
            std::find_if(counts.begin(), counts.end(), [&](const auto& count) { return count.first == folder; });
        if (known == counts.end())
            counts.emplace_back(folder, 1);
        else
            ++known->second;
    }
    std::string text = std::to_string(calls.size()) + " calls";
    for (size_t i = 0; i < counts.size(); ++i)
        text += (i == 0 ? ": " : ", ") + counts[i].first + " " + std::to_string(counts[i].second);
    return text;
}

}  // namespace foldertree::testing
