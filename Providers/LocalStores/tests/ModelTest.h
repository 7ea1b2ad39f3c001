// ModelTest: reaching the members of an object model as a late-bound host does.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "automation/Collection.h"
#include "automation/Object.h"

namespace localstores {

class ModelTest : public testing::Test {
  protected:
    static automation::ObjectRef Object(const automation::ObjectRef& from, const char* member) {
        return from->Get(member).RequireObject();
    }
    static automation::ObjectRef Item(const automation::ObjectRef& collection, const automation::Value& index) {
        return collection->Get("Item", index).RequireObject();
    }
    static std::string Text(const automation::ObjectRef& object, const char* member) {
        return object->Get(member).ToText();
    }
    static std::vector<std::string> NamesIn(const automation::ObjectRef& collection) {
        std::vector<std::string> names;
        const auto walk = automation::Collection(collection).Walk();
        for (automation::Value item; walk->Next(item);) names.push_back(item.RequireObject()->Get("Name").ToText());
        return names;
    }
    static std::vector<std::string> NamesByCursor(const automation::ObjectRef& collection) {
        std::vector<std::string> names;
        for (auto item = collection->Get("GetFirst").ToObject(); item; item = collection->Get("GetNext").ToObject())
            names.push_back(item->Get("Name").ToText());
        return names;
    }
};

}  // namespace localstores
