// ModelWalk: one walk per object model; a folder's children wait in a list, since nothing bounds their levels but us.
#include "ModelWalk.h"

#include <utility>
#include <vector>

#include "FuzzInput.h"
#include "automation/Collection.h"
#include "automation/Error.h"
#include "automation/Object.h"
#include "localstores/CdoSession.h"
#include "localstores/OpenStores.h"
#include "localstores/OutlookApplication.h"
#include "localstores/RdoSession.h"

namespace fuzz {
namespace {

using automation::ObjectRef;
using automation::Value;

/// More folders than this say nothing new.
constexpr size_t enoughFolders = 400;

ObjectRef Read(const ObjectRef& object, const char* member) {
    return object->Get(member).RequireObject();
}

void ReadTexts(const ObjectRef& object, std::initializer_list<const char*> members) {
    for (const char* member : members) object->Get(member).ToText();
}

/// The children, by enumeration; as many as the collection counts, unless it tells that it cannot count.
std::vector<ObjectRef> ItemsOf(const ObjectRef& collection) {
    std::vector<ObjectRef> items;
    const auto walk = automation::Collection(collection).Walk();
    for (Value item; walk->Next(item);) items.push_back(item.RequireObject());
    constexpr int32_t unknown = 0x7FFFFFFF;
    const int32_t count = collection->Get("Count").ToLong();
    Must(count == unknown || count == static_cast<int32_t>(items.size()), "a collection counts its items");
    return items;
}

void WalkTable(const ObjectRef& folders) {
    const ObjectRef table = Read(folders, "MAPITable");
    const int32_t count = table->Get("RowCount").ToLong();
    Must(count == folders->Get("Count").ToLong(), "a table has a row for each folder");
    table->Get("Sort", int32_t{0x3001001F}, false);
    // A stingy server gives a few at a time.
    size_t given = 0;
    for (Value rows = table->Get("GetRows", count); !rows.AsArray()->items.empty(); rows = table->Get("GetRows", count))
        given += rows.AsArray()->items.size();
    Must(static_cast<int32_t>(given) == count, "a table gives all its rows");
}

void VisitRdo(const ObjectRef& session, const ObjectRef& folder) {
    ReadTexts(folder, {"Name", "StoreID", "FolderKind", "DefaultItemType", "DefaultMessageClass"});
    const Value id = folder->Get("EntryID");
    const ObjectRef found = session->Get("GetFolderFromID", id).RequireObject();
    Must(found->Get("Name").ToText() == folder->Get("Name").ToText(), "a folder is found by its identifier");
    for (const int32_t tag : {0x3001001F, 0x0FFF0102, 0x3613001E, 0x3601000B, 0x360A000B}) folder->Get("Fields", tag);
    WalkTable(Read(folder, "Folders"));
}

void VisitOutlook(const ObjectRef&, const ObjectRef& folder) {
    ReadTexts(folder, {"Name", "EntryID", "StoreID", "FolderPath", "DefaultItemType", "DefaultMessageClass"});
}

void VisitCdo(const ObjectRef&, const ObjectRef& folder) {
    ReadTexts(folder, {"Name", "ID", "StoreID", "FolderID"});
    for (const ObjectRef& field : ItemsOf(Read(folder, "Fields"))) field->Get("Value");
}

template <class Visit>
void WalkFolders(const ObjectRef& session, const ObjectRef& top, Visit&& visit) {
    std::vector<ObjectRef> waiting{top};
    for (size_t visited = 0; !waiting.empty() && visited < enoughFolders; ++visited) {
        const ObjectRef folder = std::move(waiting.back());
        waiting.pop_back();
        visit(session, folder);
        for (ObjectRef& child : ItemsOf(Read(folder, "Folders"))) waiting.push_back(std::move(child));
    }
}

void WalkRdo(const std::string& path) {
    const ObjectRef session = localstores::MakeRdoSession();
    session->Get("Open", path);
    for (const ObjectRef& store : ItemsOf(Read(session, "Stores"))) {
        ReadTexts(store, {"Name", "EntryID", "Default", "StoreKind"});
        WalkFolders(session, Read(store, "RootFolder"), VisitRdo);
        for (int32_t role = 0; role < 25; ++role) {
            try {
                store->Get("GetDefaultFolder", role);
            } catch (const automation::Error&) {
                // Few stores have folders of all kinds.
            }
        }
    }
}

void WalkOutlook(const std::string& path) {
    const ObjectRef application = localstores::MakeOutlookApplication();
    application->Get("Open", path);
    const ObjectRef session = application->Get("GetNamespace", "MAPI").RequireObject();
    for (const ObjectRef& top : ItemsOf(Read(session, "Folders"))) WalkFolders(session, top, VisitOutlook);
}

void WalkCdo(const std::string& path) {
    const ObjectRef session = localstores::MakeCdoSession();
    session->Get("Open", path);
    session->Get("Logon");
    for (const ObjectRef& store : ItemsOf(Read(session, "InfoStores"))) {
        ReadTexts(store, {"Name", "ID", "ProviderName"});
        WalkFolders(session, Read(store, "RootFolder"), VisitCdo);
    }
}

bool Opens(const std::string& path) {
    try {
        return !localstores::OpenStores(path).empty();
    } catch (const automation::Error& error) {
        Must(error.Text().find(path) != std::string::npos, "a refusal names the path");
        return false;
    }
}

}  // namespace

bool WalkModels(const std::string& path) {
    if (!Opens(path)) return false;
    WalkRdo(path);
    WalkOutlook(path);
    WalkCdo(path);
    return true;
}

}  // namespace fuzz
