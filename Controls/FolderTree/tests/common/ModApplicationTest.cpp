// ModApplicationTest: the text helpers, property reading, the trace channel and the progress step.
#include <gtest/gtest.h>

#include "automation_testing/ScriptedObject.h"
#include "common/ControlContext.h"
#include "common/modApplication.h"
#include "enumeration/modCDODefs.h"
#include "support/FakePlatform.h"

namespace foldertree {
namespace {

using automation::Bytes;
using automation::Error;
using automation::Invocation;
using automation::ObjectRef;
using automation::Value;
using automation::testing::ScriptedObject;
using automation::testing::ScriptedObjectFactory;

TEST(ModApplication, PadLeftPadsOrCutsFromTheLeft) {
    EXPECT_EQ(PadLeft("ABC", 2, "0"), "BC");
    EXPECT_EQ(PadLeft("A", 3, "0"), "00A");
    EXPECT_EQ(PadLeft("", 0, "0"), "");
    EXPECT_EQ(PadLeft("AB", 2, "0"), "AB");
    EXPECT_EQ(PadLeft("A", 3, "xyz"), "xxA");
}

TEST(ModApplication, PadLeftCountsCharactersNotBytes) {
    EXPECT_EQ(PadLeft("\u00E4\u00F6", 3, "\u20AC"), "\u20AC\u00E4\u00F6");
    EXPECT_EQ(PadLeft("\u00E4\u00F6\u00FC", 2, "0"), "\u00F6\u00FC");
}

TEST(ModApplication, HexPaddedGivesTheRightmostDigits) {
    EXPECT_EQ(HexPadded(2, 10), "0A");
    EXPECT_EQ(HexPadded(2, 255), "FF");
    EXPECT_EQ(HexPadded(2, 256), "00");
    EXPECT_EQ(HexPadded(8, 0x8004010F), "8004010F");
}

TEST(ModApplication, BytesToHexGivesTwoDigitsAByte) {
    EXPECT_EQ(BytesToHex(Bytes{0, {0, 1, 239}}), "0001EF");
    EXPECT_EQ(BytesToHex(Bytes{-3, {0, 1, 239}}), "0001EF");
    EXPECT_EQ(BytesToHex(Bytes{}), "");
}

/// An object with a `Fields` collection that knows one property.
std::shared_ptr<ScriptedObject> SourceWith(const Value& fieldValue) {
    auto field = std::make_shared<ScriptedObject>("Field");
    field->ReadOnly("Value", fieldValue);
    auto source = std::make_shared<ScriptedObject>("Source");
    source->Method("Fields", [field](const Invocation& call) {
        if (call.arguments.empty() || call.arguments[0].ToLong() != propertyTag::PR_DEFAULT_STORE)
            throw Error(0x8004010F, "[MAPI_E_NOT_FOUND]");
        return Value(field);
    });
    return source;
}

TEST(ModApplication, GetFieldValueReadsThePropertysValue) {
    EXPECT_EQ(GetFieldValue(SourceWith(Value(int32_t{1})), propertyTag::PR_DEFAULT_STORE).ToLong(), 1);
}

TEST(ModApplication, GetFieldValueOfALackingPropertyIsEmptyAndNoError) {
    Value value{int32_t{1}};
    EXPECT_NO_THROW(value = GetFieldValue(SourceWith(Value(int32_t{1})), propertyTag::PR_DISPLAY_NAME_W));
    EXPECT_TRUE(value.IsEmpty());
}

TEST(ModApplication, GetFieldValueIsEmptyWhenTheValueCannotBeRead) {
    auto field = std::make_shared<ScriptedObject>("Field");
    field->Fails("Value", Error(0x80004005, "No."));
    auto source = std::make_shared<ScriptedObject>("Source");
    source->Method("Fields", [field](const Invocation&) { return Value(field); });
    EXPECT_TRUE(GetFieldValue(source, propertyTag::PR_DEFAULT_STORE).IsEmpty());
}

TEST(ModApplication, GetFieldValueIsEmptyWithoutAFieldObject) {
    auto source = std::make_shared<ScriptedObject>("Source");
    source->Method("Fields", [](const Invocation&) { return Value(nullptr); });
    EXPECT_TRUE(GetFieldValue(source, propertyTag::PR_DEFAULT_STORE).IsEmpty());
    EXPECT_TRUE(GetFieldValue(nullptr, propertyTag::PR_DEFAULT_STORE).IsEmpty());
}

class Context : public ::testing::Test {
  protected:
    testing::FakePlatform platform;
    ScriptedObjectFactory factory;
    ControlContext context{platform, factory};
};

TEST_F(Context, TraceLinesHaveThePrefixAndNoLineEnd) {
    context.Trace("GetFolders: ", "Done ", int32_t{-3});
    EXPECT_EQ(platform.lines, (std::vector<std::string>{"ctlFolderTree: GetFolders: Done -3"}));
}

TEST_F(Context, ALineThatNobodyCanReceiveIsNotWritten) {
    platform.traceIsHeard = false;
    context.Trace("GetFolders: Done");
    context.TraceError({"Error in ctlFolderTree.GetFolders ("}, automation::VbError(91));
    EXPECT_EQ(platform.lines, std::vector<std::string>{});
    platform.traceIsHeard = true;
    context.Trace("GetFolders: Done");
    EXPECT_EQ(platform.lines, std::vector<std::string>{"ctlFolderTree: GetFolders: Done"});
}

TEST_F(Context, AnErrorLineNamesPlaceNumberAndText) {
    Error error(0x8004010F, "[MAPI_E_NOT_FOUND]");
    error.SetLine(12);
    context.TraceError({"Error in ctlFolderTree.GetFolders (", ErrorDetail::Bracket}, error);
    context.TraceError({"Error in ctlFolderTree.ReIndex(", ErrorDetail::NoBracket}, error);
    EXPECT_EQ(platform.lines[0],
              "ctlFolderTree: Error in ctlFolderTree.GetFolders (12): [0x8004010F] [MAPI_E_NOT_FOUND]");
    EXPECT_EQ(platform.lines[1].substr(0, 53), "ctlFolderTree: Error in ctlFolderTree.ReIndex(12): 0x");
}

TEST_F(Context, AnErrorLineGivesSmallNumbersWithoutLeadingZeros) {
    context.TraceError({"Error in ctlFolderTree.GetFolders (", ErrorDetail::Bracket}, automation::VbError(91));
    EXPECT_EQ(platform.lines[0].substr(0, 61), "ctlFolderTree: Error in ctlFolderTree.GetFolders (0): [0x5B] ");
}

TEST_F(Context, AdvanceProgressAddsToMaximumAndValue) {
    LoadScope load(context);
    load.ResetProgress();
    context.AdvanceProgress(3, -1);
    EXPECT_EQ(platform.progressMaximum, 4);
    EXPECT_EQ(platform.progressValue, 0);
    context.AdvanceProgress(-1, 2);
    EXPECT_EQ(platform.progressMaximum, 4);
    EXPECT_EQ(platform.progressValue, 2);
    EXPECT_EQ(platform.yields, 2);
}

TEST_F(Context, AdvanceProgressOfNothingStillYieldsOnce) {
    LoadScope load(context);
    load.ResetProgress();
    context.AdvanceProgress(-1, -1);
    EXPECT_EQ(platform.progressMaximum, 1);
    EXPECT_EQ(platform.progressValue, 0);
    EXPECT_EQ(platform.yields, 1);
}

TEST_F(Context, TheProgressMaximumGoesBeyond32Bits) {
    LoadScope load(context);
    load.ResetProgress();
    context.AdvanceProgress(0x7FFFFFFF, -1);
    context.AdvanceProgress(0x7FFFFFFF, -1);
    EXPECT_EQ(platform.progressMaximum, 1.0 + 2.0 * 0x7FFFFFFF);
}

TEST(ModCDODefs, KeepsTheNamedPropertiesAndPropertySets) {
    EXPECT_EQ(namedPropertyIDs.size(), 24u);
    EXPECT_EQ(namedPropertyIDs.front(), "0x8700");
    EXPECT_EQ(namedPropertyIDs.back(), "0x8046");
    EXPECT_EQ(propertySetGUIDs.size(), 7u);
    EXPECT_EQ(propertySetGUIDs[4], "{2903020000000000C000000000000046}");
}

TEST(ModCDODefs, GivesThePropertyTagsTheirMapiNumbers) {
    EXPECT_EQ(propertyTag::PR_FOLDER_TYPE, 0x36010003);
    EXPECT_EQ(propertyTag::PR_SUBFOLDERS, 0x360A000B);
    EXPECT_EQ(propertyTag::PR_CONTAINER_CLASS, 0x3613001E);
    EXPECT_EQ(propertyTag::PR_DISPLAY_NAME_W, 0x3001001F);
    EXPECT_EQ(propertyTag::PR_LONGTERM_ENTRYID_FROM_TABLE, 0x66700102);
    EXPECT_EQ(propertyTag::PR_ENTRYID, 0x0FFF0102);
    EXPECT_EQ(propertyTag::PR_PROVIDER_DISPLAY, 0x3006001E);
    EXPECT_EQ(propertyTag::PR_DEFAULT_STORE, 0x3400000B);
}

}  // namespace
}  // namespace foldertree
