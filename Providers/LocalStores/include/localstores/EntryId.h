// EntryId: the binary name under which a store or a folder can be found again.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace localstores {

/// The bytes of an identifier in its long form, which starts with four zero flag bytes and stays valid between runs.
using EntryId = std::vector<uint8_t>;

/// The 16 bytes that tell one store from all others.
using StoreUid = std::array<uint8_t, 16>;

/// Of a store: four zero bytes, a number of our own for the kind of store, and the store's uid.
EntryId MakeStoreId(std::string_view providerName, const StoreUid& store);
/// Of a folder: four zero bytes, the store's uid, and the 8 or 4 bytes of a number that is unique in the store.
EntryId MakeFolderId(const StoreUid& store, uint64_t number);
EntryId MakeShortNumberedFolderId(const StoreUid& store, uint32_t number);

/// The form that hierarchy tables give: the same identifier with 0xEF as its first flag byte.
EntryId ShortForm(EntryId id);
/// The long form of either form.
EntryId LongForm(EntryId id);

/// Upper-case hexadecimal digits.
std::string Hex(const EntryId& id);
/// Reads hexadecimal digits of either case; nothing when the text is not a whole number of bytes in hexadecimal.
std::optional<EntryId> FromHex(std::string_view text);

/// A number made of a text, the same in every run and on every machine. Not secret and not proof against forgery.
uint64_t Fingerprint(std::string_view text);
/// A store uid made of a text, for kinds of stores that record none of their own.
StoreUid UidOfText(std::string_view text);

}  // namespace localstores
