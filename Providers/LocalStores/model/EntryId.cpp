// EntryId: building identifiers, their two forms, and their text.
#include "localstores/EntryId.h"

#include <algorithm>
#include <tuple>

namespace localstores {
namespace {

constexpr uint8_t shortFormFlag = 0xEF;

uint64_t Fnv1a(std::string_view text, uint64_t hash) {
    for (const char c : text) hash = (hash ^ static_cast<uint8_t>(c)) * 0x100000001B3u;
    return hash;
}

constexpr size_t flagBytes = 4;
constexpr size_t headSize = flagBytes + std::tuple_size_v<StoreUid>;

/// Four zero flag bytes, a uid, and room for more.
EntryId HeadAndRoom(const StoreUid& uid, size_t room) {
    EntryId id(headSize + room);
    std::copy(uid.begin(), uid.end(), id.begin() + flagBytes);
    return id;
}

template <class Iterator>
void WriteLittleEndian(uint64_t number, Iterator first, Iterator last) {
    for (; first != last; ++first, number >>= 8) *first = static_cast<uint8_t>(number);
}

EntryId NumberedId(const StoreUid& store, uint64_t number, size_t numberSize) {
    EntryId id = HeadAndRoom(store, numberSize);
    WriteLittleEndian(number, id.begin() + headSize, id.end());
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
    EntryId id = HeadAndRoom(UidOfText(providerName), store.size());
    std::copy(store.begin(), store.end(), id.begin() + headSize);
    return id;
}

EntryId MakeFolderId(const StoreUid& store, uint64_t number) {
    return NumberedId(store, number, 8);
}

EntryId MakeShortNumberedFolderId(const StoreUid& store, uint32_t number) {
    return NumberedId(store, number, 4);
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
    StoreUid uid{};
    const auto middle = uid.begin() + uid.size() / 2;
    WriteLittleEndian(Fingerprint(text), uid.begin(), middle);
    WriteLittleEndian(Fnv1a(text, 0x9AE16A3B2F90404Fu), middle, uid.end());
    return uid;
}

}  // namespace localstores
