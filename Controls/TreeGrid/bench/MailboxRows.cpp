// MailboxRows: names and identifiers, packed.
#include "MailboxRows.h"

namespace foldertree::bench {

std::string MailboxRows::Identifier(uint64_t seed, int bytes) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    text.reserve(static_cast<size_t>(bytes) * 2);
    for (int byte = 0; byte < bytes; ++byte) {
        // A finalised counter: neighbouring seeds give unrelated identifiers.
        uint64_t bits = seed * 1000 + static_cast<uint64_t>(byte) + 1;
        bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9;
        bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EB;
        text.push_back(digits[bits >> 60]);
        text.push_back(digits[(bits >> 56) & 15]);
    }
    return text;
}

MailboxRows::MailboxRows(int32_t folders) {
    rows_.reserve(static_cast<size_t>(folders + stores));
    texts_.reserve(static_cast<size_t>(folders) * 210);
    for (uint8_t store = 0; store < stores; ++store) {
        const std::string storeName = "Mailbox - User " + std::to_string(store);
        storeIds_.push_back(Identifier(store, 264));
        keys_.push_back("S" + storeIds_.back() + "|" + std::string(entryLength, '0'));
        Append(store, 0, storeName, {}, 0);
        std::string parent;
        for (int32_t folder = 0; folder < folders / stores; ++folder) {
            const bool top = folder % 101 == 0;
            const std::string name = "Folder " + std::to_string(folder);
            if (top) parent = storeName + "\\" + name;
            const auto seed = static_cast<uint64_t>(store) * 100'000'000 + static_cast<uint64_t>(folder) + 100;
            Append(store, top ? 1 : 2, name, top ? parent : parent + "\\" + name, seed);
        }
    }
}

void MailboxRows::Append(uint8_t store, uint8_t level, std::string_view name, std::string_view path, uint64_t seed) {
    rows_.push_back(
        {texts_.size(), static_cast<uint16_t>(name.size()), static_cast<uint16_t>(path.size()), store, level});
    texts_.append(name).append(path);
    if (level > 0) texts_.append(Identifier(seed, 46)).append(Identifier(seed + 50'000'000, 24));
}

MailboxRow MailboxRows::Row(int32_t index) {
    const Packed& packed = rows_[static_cast<size_t>(index)];
    std::string_view text = std::string_view(texts_).substr(packed.start);
    const auto take = [&text](size_t length) {
        const std::string_view taken = text.substr(0, length);
        text.remove_prefix(length);
        return taken;
    };
    MailboxRow row;
    row.level = packed.level;
    row.name = take(packed.name);
    row.path = take(packed.path);
    row.storeId = storeIds_[packed.store];
    if (packed.level == 0) return row;
    row.entryId = take(entryLength);
    row.shortEntryId = take(shortLength);
    std::string& key = keys_[packed.store];
    row.entryId.copy(key.data() + key.size() - entryLength, entryLength);
    row.key = key;
    return row;
}

}  // namespace foldertree::bench
