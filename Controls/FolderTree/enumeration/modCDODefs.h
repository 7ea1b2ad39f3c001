// modCDODefs: constants of MAPI and CDO: property tags, CDO folder numbers, named properties.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace foldertree {

/// MAPI property tags (mapitags.h): the high word is the property, the low word its type.
namespace propertyTag {
inline constexpr int32_t PR_FOLDER_TYPE = 0x36010003;                  // PT_LONG: 1 is a generic folder
inline constexpr int32_t PR_SUBFOLDERS = 0x360A000B;                   // PT_BOOLEAN: the folder has child folders
inline constexpr int32_t PR_CONTAINER_CLASS = 0x3613001E;              // PT_STRING8
inline constexpr int32_t PR_DISPLAY_NAME_W = 0x3001001F;               // PT_UNICODE
inline constexpr int32_t PR_LONGTERM_ENTRYID_FROM_TABLE = 0x66700102;  // PT_BINARY: valid beyond the session
inline constexpr int32_t PR_ENTRYID = 0x0FFF0102;                      // PT_BINARY: as the table gives it
inline constexpr int32_t PR_PROVIDER_DISPLAY = 0x3006001E;             // PT_STRING8: the store provider's name
inline constexpr int32_t PR_DEFAULT_STORE = 0x3400000B;                // PT_BOOLEAN: the profile's default store
inline constexpr int32_t PR_IPM_DRAFTS_ENTRYID = 0x36D70102;           // PT_BINARY, on the inbox
}  // namespace propertyTag

/// PR_FOLDER_TYPE of an ordinary folder; search folders and roots have others (mapidefs.h).
inline constexpr int32_t fkGeneric = 1;

/// Folder numbers of a CDO session's GetDefaultFolder.
enum CdoDefaultFolder : int32_t {
    CdoDefaultFolderSentItems = 3,
    CdoDefaultFolderDeletedItems = 4,
    CdoDefaultFolderNotes = 7
};

/// Identifiers of named properties of appointments, tasks and contacts, as CDO's Fields expects them. Kept for
/// reference.
inline constexpr std::array<std::string_view, 24> namedPropertyIDs{
    "0x8700", "0x8712", "0x8706", "0x8705", "0x853A", "0x804F", "0x8050", "0x8051",
    "0x8052", "0x8084", "0x8083", "0x8082", "0x8085", "0x8094", "0x8093", "0x8092",
    "0x8095", "0x80A4", "0x80A3", "0x80A2", "0x80A5", "0x8005", "0x8022", "0x8046"};

/// The property sets that they belong to, in CDO's byte order. Kept for reference.
inline constexpr std::array<std::string_view, 7> propertySetGUIDs{
    "{0220060000000000C000000000000046}", "{0320060000000000C000000000000046}", "{0420060000000000C000000000000046}",
    "{0820060000000000C000000000000046}", "{2903020000000000C000000000000046}", "{0E20060000000000C000000000000046}",
    "{0A20060000000000C000000000000046}"};

}  // namespace foldertree
