// The adapter with a script engine on the other side, in both directions.
#include <gtest/gtest.h>

#include "ScriptHost.h"
#include "automation/Collection.h"
#include "automation/KeyedCollection.h"
#include "automation_testing/ScriptedObject.h"

namespace automation {
namespace {

using testing::ScriptedObject;
using testing::ScriptHost;

template <class Action>
uint32_t FailureOf(Action action) {
    try {
        action();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

TEST(Script, ClassesOfAScriptStandInForAnObjectModel) {
    ScriptHost host;
    host.Run(
        "Class Folder\n Public Name\n Private m\n"
        " Public Property Get EntryID()\n  EntryID = \"00AB\"\n End Property\n"
        " Public Property Set Parent(p)\n  Set m = p\n End Property\n"
        " Public Property Get Parent()\n  Set Parent = m\n End Property\n"
        " Public Function Path(a, b)\n  Path = Name & a & b\n End Function\n"
        "End Class\n"
        "Function Make(n)\n Set Make = New Folder\n Make.Name = n\nEnd Function\n");
    const ObjectRef functions = host.Functions();
    const ObjectRef folder = functions->Get("Make", "In\xC3\xA4").RequireObject();
    EXPECT_EQ(folder->Get("name").ToText(), "In\xC3\xA4");
    EXPECT_EQ(folder->Get("EntryID").ToText(), "00AB");
    EXPECT_EQ(folder->Get("Path", "/", 7).ToText(), "In\xC3\xA4/7");
    folder->Put("Name", "Out");
    EXPECT_EQ(folder->Get("Name").ToText(), "Out");
    folder->PutRef("Parent", folder);
    EXPECT_EQ(folder->Get("Parent").ToObject(), folder);
    folder->PutRef("Parent", nullptr);
    EXPECT_EQ(folder->NewEnum(), nullptr);
    EXPECT_FALSE(folder->HasMember("StoreID"));
}

TEST(Script, AScriptUsesACollectionOfOurs) {
    ScriptHost host;
    host.Run(
        "Function Use(c)\n Dim x\n c.Add \"b\", \"two\"\n c.Add \"a\", \"one\", 1\n"
        " For Each x In c\n  Use = Use & x\n Next\n"
        " Use = Use & c.Count & c(1) & c(\"TWO\") & c.Item(2)\n c.Remove 1\nEnd Function\n");
    const auto collection = std::make_shared<KeyedCollection>();
    EXPECT_EQ(host.Functions()->Get("Use", collection).ToText(), "ab2abb");
    EXPECT_EQ(collection->Count(), 1);
}

TEST(Script, AScriptSeesTheNumbersThatItKnows) {
    ScriptHost host;
    host.Run(
        "Function Numbers(c)\n On Error Resume Next\n"
        " c.Add 1, \"k\"\n c.Add 2, \"K\"\n Numbers = Err.Number & \":\" & Err.Description\n Err.Clear\n"
        " c.Item(9)\n Numbers = Numbers & \"|\" & Err.Number\n Err.Clear\n"
        " c.Item(\"no\")\n Numbers = Numbers & \"|\" & Err.Number\n Err.Clear\n"
        " c.Nonsense\n Numbers = Numbers & \"|\" & Err.Number\nEnd Function\n");
    EXPECT_EQ(host.Functions()->Get("Numbers", std::make_shared<KeyedCollection>()).ToText(),
              "457:This key is already associated with an element of this collection|9|5|438");
}

TEST(Script, ObjectsThatPassThroughAScriptAreTheSame) {
    ScriptHost host;
    host.Run(
        "Dim kept\nSub Keep(o)\n Set kept = o\nEnd Sub\nFunction Give()\n Set Give = kept\n Set kept = Nothing\nEnd "
        "Function\n"
        "Function Same(a, b)\n Same = (a Is b)\nEnd Function\n");
    const int before = ScriptedObject::LiveCount();
    {
        const ObjectRef object = std::make_shared<ScriptedObject>();
        const ObjectRef functions = host.Functions();
        functions->Get("Keep", object);
        EXPECT_TRUE(functions->Get("Same", object, object).ToBoolean());
        EXPECT_EQ(functions->Get("Give").ToObject(), object);
    }
    EXPECT_EQ(ScriptedObject::LiveCount(), before);
}

TEST(Script, AScriptPutsPropertiesByValueAndByReference) {
    ScriptHost host;
    host.Run("Sub Fill(o, f)\n o.Name = \"n\"\n Set o.Font = f\n Set o.Font = Nothing\nEnd Sub\n");
    const auto log = std::make_shared<testing::CallLog>();
    const auto object = std::make_shared<ScriptedObject>("O", log);
    object->Property("Name", {}).Property("Font", {});
    host.Functions()->Get("Fill", object, object);
    EXPECT_EQ(log->Lines(), (std::vector<std::string>{"O.Name = \"n\"", "Set O.Font = <O>", "Set O.Font = Nothing"}));
}

TEST(Script, ArraysOfAScriptAreReadAndOursAreReadByIt) {
    ScriptHost host;
    host.Run(
        "Function Give()\n Give = Array(1, \"x\", Array(True, Empty))\nEnd Function\n"
        "Function Take(rows)\n Take = UBound(rows) & rows(0)(1) & rows(1)\nEnd Function\n");
    EXPECT_EQ(testing::Describe(host.Functions()->Get("Give")), "[1, \"x\", [True, Empty]]");
    EXPECT_EQ(host.Functions()->Get("Take", Array{0, {Array{0, {1, "y"}}, 5}}).ToText(), "1y5");
}

TEST(Script, AMemberThatAScriptClassLacksIsUnknown) {
    ScriptHost host;
    host.Run("Class Bare\nEnd Class\nFunction Make()\n Set Make = New Bare\nEnd Function\n");
    const ObjectRef bare = host.Functions()->Get("Make").RequireObject();
    EXPECT_EQ(FailureOf([&] { bare->Get("Name"); }), errors::unknownName);
    EXPECT_EQ(FailureOf([&] { bare->Put("Name", 1); }), errors::unknownName);
}

}  // namespace
}  // namespace automation
