// EntryId: building identifiers, their two forms, and their text.
#include "localstores/EntryId.h"

#include <algorithm>

namespace localstores {
namespace {

constexpr uint8_t shortFormFlag = 0xEF;

uint64_t Fnv1a(std::string_view text, uint64_t hash) {
    for (const char c : text) hash = (hash ^ static_cast<uint8_t>(c)) * 0x100000001B3u;
    return hash;
}

void AppendLittleEndian(EntryId& id, uint64_t number, int bytes) {
    for (int i = 0; i < bytes; ++i) id.push_back(static_cast<uint8_t>(number >> (8 * i)));
}

EntryId FlagsAndUid(const StoreUid& uid) {
    EntryId id(4, 0);
    id.insert(id.end(), uid.begin(), uid.end());
    return id;
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

}  // namespace

EntryId MakeStoreId(std::string_view providerName, const StoreUid& store) {
    EntryId id = FlagsAndUid(UidOfText(providerName));
    id.insert(id.end(), store.begin(), store.end());
    return id;
}

EntryId MakeFolderId(const StoreUid& store, uint64_t number) {
    EntryId id = FlagsAndUid(store);
    AppendLittleEndian(id, number, 8);
    return id;
}

EntryId MakeShortNumberedFolderId(const StoreUid& store, uint32_t number) {
    EntryId id = FlagsAndUid(store);
    AppendLittleEndian(id, number, 4);
    return id;
}

EntryId ShortForm(EntryId id) {
    if (!id.empty()) id.front() = shortFormFlag;
    return id;
}

EntryId LongForm(EntryId id) {
    if (!id.empty() && id.front() == shortFormFlag) id.front() = 0;
    return id;
}

std::string Hex(const EntryId& id) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(id.size() * 2);
    for (const uint8_t byte : id) {
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

std::optional<EntryId> FromHex(std::string_view text) {
    if (text.size() % 2 != 0) return std::nullopt;
    EntryId id;
    id.reserve(text.size() / 2);
    for (size_t i = 0; i < text.size(); i += 2) {
        const int high = HexDigit(text[i]);
        const int low = HexDigit(text[i + 1]);
        if (high < 0 || low < 0) return std::nullopt;
        id.push_back(static_cast<uint8_t>(high << 4 | low));
    }
    return id;
}

uint64_t Fingerprint(std::string_view text) {
    return Fnv1a(text, 0xCBF29CE484222325u);
}

StoreUid UidOfText(std::string_view text) {
    EntryId bytes;
    AppendLittleEndian(bytes, Fingerprint(text), 8);
    AppendLittleEndian(bytes, Fnv1a(text, 0x9AE16A3B2F90404Fu), 8);
    StoreUid uid{};
    std::copy(bytes.begin(), bytes.end(), uid.begin());
    return uid;
}

}  // namespace localstores
