// FakeMailbox: a scripted RDO session over stores and folders that a test writes down.
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

/// What a hierarchy table tells of a folder. The long identifier is the byte 00 and the one or two bytes of `id`, the
/// short one EF and those.
struct FakeFolder {
    std::string name;
    uint16_t id = 0;
    std::optional<std::string> folderClass;  ///< no value: the table row has no such property
    std::vector<FakeFolder> children;

    int32_t type = 1;
    bool hasLongID = true;
    bool hasShortID = true;
    /// The folder cannot be opened.
    std::optional<automation::Error> openError;
    /// Changes the cells of the folder's row before they are delivered.
    std::function<void(std::vector<automation::Value>& cells)> adjustRow;
    /// Changes the table of the folder's children before it is handed out.
    std::function<void(automation::testing::ScriptedObject& table)> adjustTable;
    /// The table gives at most so many rows a call; 0 for no limit.
    int32_t rowsPerCall = 0;
    std::optional<int32_t> rowCount;  ///< what the table says it has, if that is not the truth
    int32_t lowerBound = 0;           ///< of the arrays of rows and of cells
};

FakeFolder Folder(std::string name, uint16_t id, std::string folderClass, std::vector<FakeFolder> children = {});
FakeFolder Mail(std::string name, uint16_t id, std::vector<FakeFolder> children = {});
FakeFolder Contacts(std::string name, uint16_t id, std::vector<FakeFolder> children = {});
FakeFolder Journal(std::string name, uint16_t id, std::vector<FakeFolder> children = {});
FakeFolder Tasks(std::string name, uint16_t id, std::vector<FakeFolder> children = {});

struct FakeStore {
    std::string name;
    std::string id;
    bool isDefault = false;
    std::vector<FakeFolder> folders;
    std::string provider;
    std::function<void(automation::testing::ScriptedObject& store)> adjust;
    std::function<void(FakeFolder& root)> adjustRoot;
};

/// Objects are made when they are asked for, as by the real library, so that one that is still alive after a load was
/// not released. The session shows the stores as they were when Session() was called.
class FakeMailbox {
  public:
    std::vector<FakeStore> stores;
    std::map<int32_t, std::string> defaultFolders{{6, "0001"}};  ///< by Outlook's numbers; others are not there
    std::shared_ptr<automation::testing::CallLog> log = std::make_shared<automation::testing::CallLog>();

    std::shared_ptr<automation::testing::ScriptedObject> Session() const;
    /// A "NOXMAPI.NOXMAPIUtils" that knows the stores' providers.
    automation::ObjectRef Utilities() const;
};

/// Two levels below each of two stores, of which the second is the default one:
///   Archive (A1)   Old mail 30
///   Mailbox (B2)   Inbox 01 { Projects 11 { Alpha 21 }, Zoo 12 }, People 02 (contacts), Diary 03 (journal), To do 04
///   (tasks)
FakeMailbox SmallMailbox();

/// An identifier as the tree shows it: two hexadecimal digits a byte.
std::string LongID(uint16_t id);
std::string ShortID(uint16_t id);

}  // namespace foldertree::testing
