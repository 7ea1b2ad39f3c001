// Mail: one mailbox that changes while it is read, in the shapes of all four object models.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "automation/ObjectFactory.h"

namespace foldertree::reference {

/// What is odd about a folder or about the table of its children. Each is a small choice, so that any number is one.
struct MailOddities {
    int tableFails = 0;  ///< 0 never; else the step: its collection, table, columns, sort, start, count, rows
    int rowCount =
        0;  ///< what the table says: 0 the truth, 1 three more, 2 the largest number, 3 none, 4 fewer than none
    int rowsPerCall = 0;  ///< 0 no limit
    int row = 0;          ///< its own row: 0 sound, 1 no array, 2 too short, 3 wrong types, 4 all errors, 5 odd values
    int value = 0;        ///< the first of those values
    int lowerBound = 0;
    bool openFails = false;
    int count = 0;  ///< what the collection of children says: 0 the truth, 1 three more, 2 none, 3 the largest number
    bool noCollection = false;
    bool nothingInside = false;  ///< the collection has a Nothing in its middle
};

struct MailFolder {
    std::string name;
    int32_t id = 0;
    int folderClass = 0;  ///< see classes in Mail.cpp; 0 mail
    int32_t kind = 1;
    std::string textID;  ///< what the object models call it; empty: by its number, as the tables do
    bool hasLongID = true;
    bool hasShortID = true;
    MailOddities odd;
    std::vector<std::shared_ptr<MailFolder>> children;
};
using MailFolderRef = std::shared_ptr<MailFolder>;

struct MailStore {
    std::string name;
    std::string id;
    bool isDefault = false;
    int provider = 0;  ///< 0 none, 1 a name, 2 asking fails
    MailFolderRef root = std::make_shared<MailFolder>();
};
using MailStoreRef = std::shared_ptr<MailStore>;

struct MailList {
    std::string name;
    std::string id;
    int countFails = 0;  ///< 0 no, 1 not supported, 2 otherwise
    bool deliverFails = false;
    std::vector<std::shared_ptr<MailList>> lists;
};
using MailListRef = std::shared_ptr<MailList>;

struct Mail {
    std::vector<MailStoreRef> stores;
    std::vector<MailListRef> lists;
    std::string inbox = "0001";
    bool logonFails = false;
    int32_t nextID = 0x40;

    /// All folders, parents before children, each store's root first.
    std::vector<MailFolderRef> Folders() const;
    /// The same, without the roots.
    std::vector<MailFolderRef> FoldersBelowRoots() const;
    /// Nested ones too.
    std::vector<MailListRef> AllLists() const;
};

/// The mailbox that every sequence begins with.
std::shared_ptr<Mail> FirstMail();

/// Told of every call from outside before it is carried out, and may fail it.
class CallSink {
  public:
    virtual ~CallSink() = default;
    virtual void Called(const std::string& object, std::string_view member) = 0;
};

/// Objects over the mailbox as it is at each call.
automation::ObjectRef RdoSession(const std::shared_ptr<Mail>& mail, CallSink& sink);
automation::ObjectRef OutlookApplication(const std::shared_ptr<Mail>& mail, CallSink& sink);

/// Makes "NOXMAPI.NOXMAPIUtils" and "MAPI.Session".
class MailFactory : public automation::ObjectFactory {
  public:
    MailFactory(std::shared_ptr<Mail> mail, CallSink& sink) : mail_(std::move(mail)), sink_(sink) {}
    automation::ObjectRef Create(std::string_view progId) override;

  private:
    std::shared_ptr<Mail> mail_;
    CallSink& sink_;
};

}  // namespace foldertree::reference
