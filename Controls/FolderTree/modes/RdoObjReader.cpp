// RdoObjReader: the access mode that reads folders through the objects of an RDO session.
#include "modes/RdoObjReader.h"

#include "automation/Text.h"
#include "enumeration/DefaultFolders.h"
#include "enumeration/modCDODefs.h"

namespace foldertree {

using automation::Deref;
using automation::ObjectRef;

namespace {

constexpr ObjectMode mode{.storeRowKind = rowKind::store,
                          .idMember = "EntryID",
                          .defaultStoreFirst = true,
                          .rowsNameTheirStore = true,
                          .readsAtLimit = true,
                          .walksByPosition = false,
                          .storeLine = errorLines::storeRDOObj,
                          .folderLine = errorLines::folderRDOObj,
                          .expandLine = errorLines::expandNodeRDOObj};

/// Folders in which a mail client keeps its own settings have a class of that ending.
bool IsConfigurationClass(std::string_view messageClass) {
    constexpr std::string_view ending = "configuration";
    return messageClass.size() >= ending.size() &&
           automation::EqualNoCase(messageClass.substr(messageClass.size() - ending.size()), ending);
}

}  // namespace

RdoObjReader::RdoObjReader(ControlContext& context, SelectionView& view) : ObjectReader(context, view, mode) {}

void RdoObjReader::ReadDefaultFolders(DefaultFolderIDs& ids) {
    foldertree::ReadDefaultFolders(context_.state.rdoSession, ids);
}

ObjectRef RdoObjReader::Stores() {
    return Deref(context_.state.rdoSession).Get("Stores").RequireObject();
}

bool RdoObjReader::IsDefaultStore(const ObjectRef& store) {
    return Deref(store).Get("Default").ToBoolean();
}

bool RdoObjReader::IsHomeStore(const ObjectRef& store, const std::string&) {
    return IsDefaultStore(store);
}

ObjectRef RdoObjReader::RootFolder(const ObjectRef& store) {
    return Deref(store).Get("IPMRootFolder").RequireObject();
}

ObjectRef RdoObjReader::OpenFolder(const std::string& entryID, const std::string& storeID) {
    // Held: inside a call the host may take the session away or close the control.
    const ObjectRef session = context_.state.rdoSession;
    // Opens the store if need be: the session looks for the folder in the stores that are open. Held until then.
    const ObjectRef store = Deref(session).Get("GetStoreFromID", storeID).RequireObject();
    return session->Get("GetFolderFromID", entryID).RequireObject();
}

bool RdoObjReader::ReadFolder(ObjectFolder& folder, Reading reading) {
    automation::Object& object = Deref(folder.object);
    folder.hasSubfolders = object.Get("Fields", propertyTag::PR_SUBFOLDERS).ToBoolean();
    if (object.Get("FolderKind").ToLong() != fkGeneric) return false;
    folder.name = object.Get("Name").ToText();
    folder.entryID = object.Get("EntryID").ToText();
    folder.itemType = object.Get("DefaultItemType").ToLong();
    if (reading == Reading::Expansion) return true;

    // Only the walk passes over configuration folders; below a node that the user opens they show.
    if (IsConfigurationClass(object.Get("DefaultMessageClass").ToText())) folder.itemType = FTIUnknown;
    folder.hasRow = folder.itemType != FTIUnknown;
    return true;
}

}  // namespace foldertree
