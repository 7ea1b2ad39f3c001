// MapiProperties: the MAPI properties of stores and folders by tag.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "automation/Value.h"
#include "localstores/Store.h"

namespace localstores {

/// The tags that are answered. A tag is a property number and a type; 8-bit text (type 0x001E) is asked for in the same
/// way as Unicode text (0x001F) and answered alike.
namespace tags {
inline constexpr uint32_t parentEntryId = 0x0E090102;
inline constexpr uint32_t storeEntryId = 0x0FFB0102;
inline constexpr uint32_t objectType = 0x0FFE0003;
inline constexpr uint32_t entryId = 0x0FFF0102;
inline constexpr uint32_t displayName = 0x3001001F;
inline constexpr uint32_t providerDisplay = 0x3006001F;
inline constexpr uint32_t defaultStore = 0x3400000B;
inline constexpr uint32_t ipmSubtreeEntryId = 0x35E00102;
inline constexpr uint32_t ipmOutboxEntryId = 0x35E20102;
inline constexpr uint32_t ipmWastebasketEntryId = 0x35E30102;
inline constexpr uint32_t ipmSentMailEntryId = 0x35E40102;
inline constexpr uint32_t folderType = 0x36010003;
inline constexpr uint32_t subfolders = 0x360A000B;
inline constexpr uint32_t containerClass = 0x3613001F;
inline constexpr uint32_t ipmAppointmentEntryId = 0x36D00102;
inline constexpr uint32_t ipmContactEntryId = 0x36D10102;
inline constexpr uint32_t ipmJournalEntryId = 0x36D20102;
inline constexpr uint32_t ipmNoteEntryId = 0x36D30102;
inline constexpr uint32_t ipmTaskEntryId = 0x36D40102;
inline constexpr uint32_t ipmDraftsEntryId = 0x36D70102;
inline constexpr uint32_t longTermEntryIdFromTable = 0x66700102;
}  // namespace tags

/// A table gives the short form of an identifier where the object itself gives the long one.
enum class IdForm { Short, Long };

/// The tags of all properties that such an object can have, without those of table rows alone.
std::span<const uint32_t> StoreTags();
std::span<const uint32_t> FolderTags();

/// Nothing when the object lacks the property or has it as another type.
std::optional<automation::Value> StoreProperty(const Store& store, uint32_t tag);
std::optional<automation::Value> FolderProperty(const Store& store, const Folder& folder, uint32_t tag, IdForm form);

}  // namespace localstores
