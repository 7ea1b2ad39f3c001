// DefaultFolders: reads the entry identifiers of the profile's default folders from a session.
#include "enumeration/DefaultFolders.h"

#include "enumeration/modCDODefs.h"
#include "enumeration/modOLDefs.h"

namespace foldertree {

using automation::Deref;
using automation::ObjectRef;

void ReadDefaultFolders(const ObjectRef& session, DefaultFolderIDs& ids) {
    const auto entryID = [&](OlDefaultFolder folder) {
        return Deref(Deref(session).Get("GetDefaultFolder", int32_t{folder}).ToObject()).Get("EntryID").ToText();
    };
    ids.inbox = entryID(olFolderInbox);
    ids.drafts = entryID(olFolderDrafts);
    ids.outbox = entryID(olFolderOutbox);
    ids.deletedItems = entryID(olFolderDeletedItems);
    ids.sentItems = entryID(olFolderSentMail);
    ids.notes = entryID(olFolderNotes);
}

void ReadDefaultFoldersCDO(const ObjectRef& session, DefaultFolderIDs& ids) {
    automation::Object& cdo = Deref(session);
    const auto id = [](const automation::Value& object) { return Deref(object.ToObject()).Get("ID").ToText(); };
    ids.defaultStore = id(cdo.Get("GetInfoStore"));
    const ObjectRef inbox = cdo.Get("Inbox").ToObject();
    ids.inbox = id(inbox);
    // The session gives a binary property as hexadecimal text already.
    ids.drafts = Deref(Deref(inbox).Get("Fields", propertyTag::PR_IPM_DRAFTS_ENTRYID).ToObject()).Get("Value").ToText();
    ids.outbox = id(cdo.Get("Outbox"));
    ids.deletedItems = id(cdo.Get("GetDefaultFolder", int32_t{CdoDefaultFolderDeletedItems}));
    ids.sentItems = id(cdo.Get("GetDefaultFolder", int32_t{CdoDefaultFolderSentItems}));
    ids.notes = id(cdo.Get("GetDefaultFolder", int32_t{CdoDefaultFolderNotes}));
}

}  // namespace foldertree
