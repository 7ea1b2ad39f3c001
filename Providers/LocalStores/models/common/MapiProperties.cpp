// MapiProperties: which member answers which tag.
#include "models/common/MapiProperties.h"

#include <string>

namespace localstores {
namespace {

using automation::Value;

constexpr int32_t objectTypeStore = 1;
constexpr int32_t objectTypeFolder = 3;

uint32_t WithUnicodeText(uint32_t tag) {
    constexpr uint32_t string8 = 0x001E;
    return (tag & 0xFFFF) == string8 ? tag + 1 : tag;
}

Value Binary(const EntryId& id) {
    return automation::Bytes{0, id};
}

std::optional<Value> IdOfFolder(const Folder* folder) {
    if (folder == nullptr) return std::nullopt;
    return Binary(folder->id);
}

std::optional<Value> OptionalText(const std::optional<std::string>& text) {
    if (!text) return std::nullopt;
    return *text;
}

struct RoleTag {
    uint32_t tag;
    DefaultFolder role;
};

/// The inbox and the root know where these folders are.
constexpr RoleTag roleTags[] = {
    {tags::ipmAppointmentEntryId, DefaultFolder::Calendar}, {tags::ipmContactEntryId, DefaultFolder::Contacts},
    {tags::ipmJournalEntryId, DefaultFolder::Journal},      {tags::ipmNoteEntryId, DefaultFolder::Notes},
    {tags::ipmTaskEntryId, DefaultFolder::Tasks},           {tags::ipmDraftsEntryId, DefaultFolder::Drafts},
};

std::optional<Value> IdOfRole(const Store& store, const Folder& folder, uint32_t tag) {
    if (&folder != &store.Root() && &folder != store.Default(DefaultFolder::Inbox)) return std::nullopt;
    for (const RoleTag& each : roleTags)
        if (each.tag == tag) return IdOfFolder(store.Default(each.role));
    return std::nullopt;
}

}  // namespace

std::span<const uint32_t> StoreTags() {
    static constexpr uint32_t all[] = {tags::storeEntryId,      tags::objectType,       tags::entryId,
                                       tags::displayName,       tags::providerDisplay,  tags::defaultStore,
                                       tags::ipmSubtreeEntryId, tags::ipmOutboxEntryId, tags::ipmWastebasketEntryId,
                                       tags::ipmSentMailEntryId};
    return all;
}

std::span<const uint32_t> FolderTags() {
    static constexpr uint32_t all[] = {tags::parentEntryId,     tags::storeEntryId,      tags::objectType,
                                       tags::entryId,           tags::displayName,       tags::folderType,
                                       tags::subfolders,        tags::containerClass,    tags::ipmAppointmentEntryId,
                                       tags::ipmContactEntryId, tags::ipmJournalEntryId, tags::ipmNoteEntryId,
                                       tags::ipmTaskEntryId,    tags::ipmDraftsEntryId};
    return all;
}

std::optional<Value> StoreProperty(const Store& store, uint32_t tag) {
    switch (WithUnicodeText(tag)) {
        case tags::objectType:
            return objectTypeStore;
        case tags::storeEntryId:
        case tags::entryId:
            return Binary(store.Id());
        case tags::displayName:
            return store.Name();
        case tags::providerDisplay:
            return store.ProviderName();
        case tags::defaultStore:
            return store.IsDefault();
        case tags::ipmSubtreeEntryId:
            return Binary(store.IpmRoot().id);
        case tags::ipmOutboxEntryId:
            return IdOfFolder(store.Default(DefaultFolder::Outbox));
        case tags::ipmWastebasketEntryId:
            return IdOfFolder(store.Default(DefaultFolder::DeletedItems));
        case tags::ipmSentMailEntryId:
            return IdOfFolder(store.Default(DefaultFolder::SentMail));
        default:
            return std::nullopt;
    }
}

std::optional<Value> FolderProperty(const Store& store, const Folder& folder, uint32_t tag, IdForm form) {
    switch (WithUnicodeText(tag)) {
        case tags::objectType:
            return objectTypeFolder;
        case tags::parentEntryId:
            return IdOfFolder(folder.parent);
        case tags::storeEntryId:
            return Binary(store.Id());
        case tags::entryId:
            return Binary(form == IdForm::Short ? ShortForm(folder.id) : folder.id);
        case tags::longTermEntryIdFromTable:
            return Binary(folder.id);
        case tags::displayName:
            return folder.name;
        case tags::folderType:
            return static_cast<int32_t>(folder.type);
        case tags::subfolders:
            return !folder.children.empty();
        case tags::containerClass:
            return OptionalText(folder.containerClass);
        default:
            return IdOfRole(store, folder, tag);
    }
}

}  // namespace localstores
