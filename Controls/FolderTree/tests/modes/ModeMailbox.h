// ModeMailbox: one mailbox as an RDO session with objects and tables, as a mail client's object model and as a CDO
// session.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "automation_testing/CallLog.h"
#include "automation_testing/ScriptedObject.h"

namespace foldertree::testing {

struct ModeFolder {
    std::string name;
    std::string id;
    int32_t itemType = 0;                                    ///< as the RDO and the Outlook objects tell it
    std::optional<std::string> containerClass = "IPF.Note";  ///< as tables and CDO tell it; no value: no such property
    std::vector<ModeFolder> children;

    int32_t kind = 1;
    std::string messageClass = "IPM.Note";
    std::optional<int32_t> count;  ///< what the children's collection and table say, if that is not the truth
    bool hasFolders = true;        ///< false: the collection of children is Nothing
    bool isNothing = false;        ///< its place in the collection and the table of its parent holds Nothing
    bool containsItself = false;   ///< it is its own last child
    /// How many of the children there are at this moment; asked whenever somebody looks. Not set: all.
    std::function<size_t()> shown;
    /// Changes the folder's object before it is handed out.
    std::function<void(automation::testing::ScriptedObject& folder)> adjust;
};

ModeFolder MailFolder(std::string name, std::string id, std::vector<ModeFolder> children = {});
ModeFolder TypedFolder(std::string name, std::string id, int32_t itemType, std::string containerClass);

struct ModeStore {
    std::string name;
    std::string id;
    bool isDefault = false;
    std::vector<ModeFolder> folders;
    std::string provider = "";
};

struct ModeAddressList {
    std::string name;
    std::string id;
    std::vector<ModeAddressList> lists;
    std::optional<automation::Error> countError;    ///< its child lists cannot be counted
    std::optional<automation::Error> deliverError;  ///< they can be counted but not got
    bool containsItself = false;
    /// Changes the list's object before it is handed out.
    std::function<void(automation::testing::ScriptedObject& list)> adjust;
};

ModeAddressList AddressList(std::string name, std::string id, std::vector<ModeAddressList> lists = {});

/// Objects are made when they are asked for, so that one that is alive after a load was not released. A session shows
/// the data as they were when it was made. All members go to the log. Tables give an identifier's bytes as its long
/// form and, with EF as the first byte, as its short form.
class ModeMailbox {
  public:
    std::vector<ModeStore> stores;
    std::vector<ModeAddressList> addressLists;
    std::optional<int32_t> addressListCount;  ///< what their collection says, if that is not the truth
    std::string inboxID = "0001";
    /// What the CDO session calls its default store; by default the first one that has the flag.
    std::optional<std::string> defaultStoreID;
    /// The other default folders by Outlook's numbers; those of which a test says nothing have identifiers of their
    /// own.
    std::map<int32_t, std::string> defaultFolders;
    std::shared_ptr<automation::testing::CallLog> log = std::make_shared<automation::testing::CallLog>();

    std::shared_ptr<automation::testing::ScriptedObject> RdoSession() const;
    std::shared_ptr<automation::testing::ScriptedObject> Application() const;
    std::shared_ptr<automation::testing::ScriptedObject> CdoSession() const;
    /// A "NOXMAPI.NOXMAPIUtils" that knows the stores' providers.
    std::shared_ptr<automation::testing::ScriptedObject> Utilities() const;

    /// By Outlook's number.
    std::string DefaultFolderID(int32_t number) const;
};

/// The short form of an identifier, as tables give it.
std::string ShortForm(std::string id);

/// Two stores, of which the second is the default one:
///   Archive (A1)   Old mail 0030
///   Mailbox (B2)   Inbox 0001 { Projects 0011 { Alpha 0021 }, Zoo 0012 }, People 0002 (contacts), Diary 0003
///   (journal),
///                  To do 0004 (tasks)
ModeMailbox TwoStores();

}  // namespace foldertree::testing
