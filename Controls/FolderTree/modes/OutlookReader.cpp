// OutlookReader: the access mode that reads folders through the object model of the host's mail client.
#include "modes/OutlookReader.h"

#include "enumeration/DefaultFolders.h"

namespace foldertree {

using automation::Deref;
using automation::ObjectRef;

namespace {

constexpr ObjectMode mode{.storeRowKind = rowKind::folder,
                          .idMember = "EntryID",
                          .defaultStoreFirst = false,
                          .rowsNameTheirStore = false,
                          .readsAtLimit = false,
                          .walksByPosition = true,
                          .storeLine = errorLines::storeOOM,
                          .folderLine = errorLines::folderOOM,
                          .expandLine = errorLines::expandNodeOOM};

}  // namespace

OutlookReader::OutlookReader(ControlContext& context, SelectionView& view) : ObjectReader(context, view, mode) {}

ObjectRef OutlookReader::Namespace() {
    return Deref(context_.state.application).Get("GetNamespace", "MAPI").RequireObject();
}

void OutlookReader::ReadDefaultFolders(DefaultFolderIDs& ids) {
    if (context_.state.application != nullptr) foldertree::ReadDefaultFolders(Namespace(), ids);
}

bool OutlookReader::Begin() {
    context_.Trace("GetFolders: Mode: Outlook");
    return true;
}

ObjectRef OutlookReader::Stores() {
    return Namespace()->Get("Folders").RequireObject();
}

ObjectRef OutlookReader::OpenFolder(const std::string& entryID, const std::string&) {
    return Namespace()->Get("GetFolderFromID", entryID).RequireObject();
}

bool OutlookReader::ReadFolder(ObjectFolder& folder, Reading) {
    automation::Object& object = Deref(folder.object);
    folder.name = object.Get("Name").ToText();
    folder.entryID = object.Get("EntryID").ToText();
    folder.itemType = object.Get("DefaultItemType").ToLong();
    return true;
}

}  // namespace foldertree
