// RdoTest: reaching the members of an RDO session as a late-bound host does.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "automation/Collection.h"
#include "automation/Object.h"
#include "localstores/RdoSession.h"

namespace localstores {

/// A session with the sample mailbox open.
class RdoTest : public testing::Test {
  protected:
    automation::ObjectRef session_ = MakeRdoSession();
    automation::ObjectRef store_ = session_->Get("Open", "sample").RequireObject();

    automation::ObjectRef Object(const automation::ObjectRef& from, const char* member) {
        return from->Get(member).RequireObject();
    }
    automation::ObjectRef Inbox() { return store_->Get("GetDefaultFolder", 6).RequireObject(); }
    automation::ObjectRef TopFolders() { return Object(Object(store_, "IPMRootFolder"), "Folders"); }

    static std::string Text(const automation::ObjectRef& object, const char* member) {
        return object->Get(member).ToText();
    }
    static std::vector<std::string> NamesIn(const automation::ObjectRef& collection) {
        std::vector<std::string> names;
        const auto walk = automation::Collection(collection).Walk();
        for (automation::Value item; walk->Next(item);) names.push_back(item.RequireObject()->Get("Name").ToText());
        return names;
    }
};

}  // namespace localstores
