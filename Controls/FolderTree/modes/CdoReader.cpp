// CdoReader: the access mode that reads folders through a CDO session, which the control logs on by itself.
#include "modes/CdoReader.h"

#include <array>

#include "common/modApplication.h"
#include "enumeration/Classification.h"
#include "enumeration/DefaultFolders.h"
#include "enumeration/modCDODefs.h"

namespace foldertree {

using automation::Deref;
using automation::NamedArgument;
using automation::ObjectRef;
using automation::Value;

namespace {

constexpr ObjectMode mode{.storeRowKind = rowKind::store,
                          .idMember = "ID",
                          .defaultStoreFirst = true,
                          .rowsNameTheirStore = true,
                          .readsAtLimit = false,
                          .walksByPosition = false,
                          .storeLine = errorLines::storeCDO,
                          .folderLine = errorLines::folderCDO,
                          .expandLine = errorLines::expandNodeCDO};

std::string ContainerClass(automation::Object& folder) {
    const ObjectRef field = folder.Get("Fields", propertyTag::PR_CONTAINER_CLASS).RequireObject();
    return field->Get("Value").ToText();
}

}  // namespace

CdoReader::CdoReader(ControlContext& context, SelectionView& view) : ObjectReader(context, view, mode) {}

ObjectRef CdoReader::CDOSession() {
    Guarded(context_, errorLines::cdoSession, [&] {
        if (session_ == nullptr) session_ = LoggedOnSession();
    });
    return session_;
}

ObjectRef CdoReader::LoggedOnSession() {
    ObjectRef session;
    Try("Could not instantiate CDO session: [0x", [&] { session = context_.Factory().Create("MAPI.Session"); });
    if (session == nullptr) return nullptr;
    // Quietly, and into the profile that is already open.
    const std::array<NamedArgument, 2> arguments{{{"ShowDialog", false}, {"NewSession", false}}};
    const bool loggedOn = Try("Failed to log on to CDO session: [0x", [&] { session->CallNamed("Logon", arguments); });
    // A log-on lets messages through, and with them the host.
    context_.ThrowIfClosed();
    return loggedOn ? session : nullptr;
}

template <class Step>
bool CdoReader::Try(std::string_view failure, Step&& step) {
    const auto error = Attempt(std::forward<Step>(step));
    if (error) context_.Trace(failure, Hex(error->Number()), "] ", error->Text());
    return !error;
}

void CdoReader::ReadDefaultFolders(DefaultFolderIDs& ids) {
    if (const ObjectRef session = CDOSession()) ReadDefaultFoldersCDO(session, ids);
}

bool CdoReader::Begin() {
    const bool available = CDOSession() != nullptr;
    context_.Trace(available ? "Mode: CDO" : "GetFolders: Mode: CDO, Cannot refresh, CDO session is not initialized");
    return available;
}

ObjectRef CdoReader::Stores() {
    return Deref(session_).Get("InfoStores").RequireObject();
}

bool CdoReader::IsDefaultStore(const ObjectRef& store) {
    const Value flag = GetFieldValue(store, propertyTag::PR_DEFAULT_STORE);
    return !flag.IsEmpty() && flag.ToDouble() != 0;
}

bool CdoReader::IsHomeStore(const ObjectRef&, const std::string& storeID) {
    return storeID == context_.state.defaultFolders.defaultStore;
}

ObjectRef CdoReader::RootFolder(const ObjectRef& store) {
    return Deref(store).Get("RootFolder").RequireObject();
}

ObjectRef CdoReader::OpenFolder(const std::string& entryID, const std::string& storeID) {
    return Deref(CDOSession()).Get("GetFolder", entryID, storeID).RequireObject();
}

bool CdoReader::ReadFolder(ObjectFolder& folder, Reading reading) {
    automation::Object& object = Deref(folder.object);
    folder.name = object.Get("Name").ToText();
    folder.storeID = object.Get("StoreID").ToText();
    folder.entryID = object.Get("ID").ToText();
    std::string containerClass = "ipf.note";
    const auto readClass = [&] { containerClass = ContainerClass(object); };
    // Roots and older stores have no container class. The walk takes their folders for mail; an expansion ends at the
    // first one.
    if (reading == Reading::Walk)
        Attempt(readClass);
    else
        readClass();
    folder.itemType = GetItemTypeFromMessageClass(containerClass);
    return true;
}

}  // namespace foldertree
