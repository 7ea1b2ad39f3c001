// PersistenceTest: the settings that a container saves and gives back.
#include <algorithm>

#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using automation::Value;
using automation::testing::ScriptedObject;

/// A control that a container loads: it was never initialised as a new one.
class Persistence : public ControlTest {
  protected:
    Persistence() {
        control = ctlFolderTree::Create(platform, factory);
        platform.ambientFont = std::make_shared<ScriptedObject>("AmbientFont");
    }
    void TearDown() override {
        bag.values.clear();  // it may hold the control's font
        ControlTest::TearDown();
    }
    FakeBag bag;
};

TEST_F(Persistence, AnEmptyBagGivesTheDefaults) {
    control->UserControl_ReadProperties(bag);
    EXPECT_TRUE(control->Enabled());
    EXPECT_FALSE(control->HighlightContactFolders());
    EXPECT_FALSE(control->HighlightJournalFolders());
    EXPECT_FALSE(control->HighlightTaskFolders());
    EXPECT_TRUE(control->MultiSelect());
    EXPECT_FALSE(control->AllowIndexing());
    EXPECT_FALSE(control->ShowAddressBook());
    EXPECT_EQ(control->ExtendToLevel(), 0);
    EXPECT_EQ(control->InfoStoreAccessMode(), eISAccess_RDO_MAPITables);
    EXPECT_EQ(control->Font(), platform.ambientFont);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(Persistence, EveryKeyIsReadUnderItsName) {
    control->UserControl_ReadProperties(bag);
    std::sort(bag.reads.begin(), bag.reads.end());
    EXPECT_EQ(bag.reads, (Lines{"AllowIndexing", "Enabled", "ExtendToLevel", "Font", "HighlightContactFolders",
                                "HighlightJournalFolders", "HighlightTaskFolders", "InfoStoreAccessMode", "MultiSelect",
                                "ShowAddressBook"}));
}

TEST_F(Persistence, ANewControlSavesOnlyItsLevel) {
    control->UserControl_InitProperties();
    control->SetFont(platform.ambientFont);
    control->UserControl_WriteProperties(bag);
    ASSERT_EQ(bag.values.size(), 1u);
    EXPECT_EQ(bag.values.begin()->first, "ExtendToLevel");
    EXPECT_EQ(bag.values.begin()->second.ToLong(), 1);
}

TEST_F(Persistence, AFontThatIsNotTheContainersIsSaved) {
    control->UserControl_InitProperties();
    control->UserControl_WriteProperties(bag);
    ASSERT_EQ(bag.values.count("Font"), 1u);
    EXPECT_EQ(bag.values["Font"].ToObject(), control->Font());
}

TEST_F(Persistence, WhatWasSavedIsReadBack) {
    control->UserControl_InitProperties();
    control->SetEnabled(false);
    control->SetHighlightContactFolders(true);
    control->SetHighlightJournalFolders(true);
    control->SetHighlightTaskFolders(true);
    control->SetMultiSelect(false);
    control->SetAllowIndexing(true);
    control->SetShowAddressBook(true);
    control->SetInfoStoreAccessMode(eISAccess_CDO);
    control->UserControl_WriteProperties(bag);

    control = ctlFolderTree::Create(platform, factory);
    control->UserControl_ReadProperties(bag);
    EXPECT_FALSE(control->Enabled());
    EXPECT_TRUE(control->HighlightContactFolders());
    EXPECT_TRUE(control->HighlightJournalFolders());
    EXPECT_TRUE(control->HighlightTaskFolders());
    EXPECT_FALSE(control->MultiSelect());
    EXPECT_TRUE(control->AllowIndexing());
    EXPECT_TRUE(control->ShowAddressBook());
    EXPECT_EQ(control->ExtendToLevel(), 1);
    EXPECT_EQ(control->InfoStoreAccessMode(), eISAccess_CDO);
    EXPECT_EQ(control->Font()->Get("Name").ToText(), "Tahoma");
}

TEST_F(Persistence, EnabledReadFromABagRecoloursNothing) {
    const OleColor back = Grid().BackColor();
    const OleColor text = Grid().TextColor();
    bag.values["Enabled"] = Value(false);
    control->UserControl_ReadProperties(bag);
    EXPECT_FALSE(control->Enabled());
    EXPECT_EQ(Grid().BackColor(), back);
    EXPECT_EQ(Grid().TextColor(), text);
}

TEST_F(Persistence, ReadingRunsNoSideEffect) {
    bag.values["ExtendToLevel"] = Value(int32_t{5});
    bag.values["InfoStoreAccessMode"] = Value(int32_t{1});
    control->UserControl_ReadProperties(bag);
    EXPECT_EQ(platform.changedProperties, Lines{});
    EXPECT_EQ(platform.yields, 0);
    EXPECT_EQ(platform.Trace(), Lines{});
    EXPECT_EQ(control->BufferedToLevel(), 0);
}

TEST_F(Persistence, ReadingBlanksTheCaptionsAndShowsTheIndexColumnWhenSaved) {
    bag.values["AllowIndexing"] = Value(true);
    control->UserControl_ReadProperties(bag);
    EXPECT_EQ(Grid().CellText(0, colName), "");
    EXPECT_FALSE(Grid().ColHidden(colIndex));
}

TEST_F(Persistence, WithoutAnAmbientFontTahomaStays) {
    platform.ambientFont = nullptr;
    control->UserControl_ReadProperties(bag);
    ASSERT_NE(control->Font(), nullptr);
    EXPECT_EQ(control->Font()->Get("Name").ToText(), "Tahoma");
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(Persistence, AValueOfTheWrongTypeBecomesItsDefaultWithOneErrorLine) {
    bag.values["ExtendToLevel"] = Value("deep");
    bag.values["AllowIndexing"] = Value(true);
    bag.values["ShowAddressBook"] = Value(true);
    control->UserControl_ReadProperties(bag);
    EXPECT_EQ(control->ExtendToLevel(), 0);
    EXPECT_TRUE(control->AllowIndexing());
    EXPECT_TRUE(control->ShowAddressBook());
    ASSERT_EQ(platform.ErrorLines().size(), 1u);
    EXPECT_EQ(platform.ErrorLines()[0].substr(0, 65),
              "Error in ctlFolderTree.UserControl_ReadProperties (?): [0xD] Type");
}

TEST_F(Persistence, ABagFullOfWrongTypesGivesAllDefaults) {
    for (const char* key :
         {"Enabled", "HighlightContactFolders", "HighlightJournalFolders", "HighlightTaskFolders", "MultiSelect",
          "AllowIndexing", "ShowAddressBook", "ExtendToLevel", "Font", "InfoStoreAccessMode"})
        bag.values[key] = Value(automation::Array{-7, {Value("x")}});
    control->UserControl_ReadProperties(bag);
    EXPECT_TRUE(control->Enabled());
    EXPECT_TRUE(control->MultiSelect());
    EXPECT_FALSE(control->HighlightTaskFolders());
    EXPECT_EQ(control->ExtendToLevel(), 0);
    EXPECT_EQ(control->InfoStoreAccessMode(), eISAccess_RDO_MAPITables);
    EXPECT_EQ(control->Font(), platform.ambientFont);
    EXPECT_EQ(platform.ErrorLines().size(), 10u);
    EXPECT_EQ(platform.TraceCount("Error in ctlFolderTree.UserControl_ReadProperties ("), 10u);
}

TEST_F(Persistence, AnyOneReadThatFailsCostsOneLineAndItsOwnValueOnly) {
    for (int call = 1; call <= 10; ++call) {
        FakeBag failing;
        for (const char* key : {"HighlightContactFolders", "HighlightJournalFolders", "HighlightTaskFolders",
                                "AllowIndexing", "ShowAddressBook"})
            failing.values[key] = Value(true);
        failing.failCall = call;
        platform.ClearTrace();
        control = ctlFolderTree::Create(platform, factory);
        control->UserControl_ReadProperties(failing);
        const int on = control->HighlightContactFolders() + control->HighlightJournalFolders() +
                       control->HighlightTaskFolders() + control->AllowIndexing() + control->ShowAddressBook();
        const std::string& failed = failing.reads[static_cast<size_t>(call) - 1];
        EXPECT_EQ(on, failing.values.count(failed) ? 4 : 5) << failed;
        EXPECT_EQ(platform.Trace(),
                  Lines{"Error in ctlFolderTree.UserControl_ReadProperties (?): [0x80004005] Injected "
                        "fault"})
            << failed;
    }
}

TEST_F(Persistence, AWriteThatFailsIsTraced) {
    control->UserControl_InitProperties();
    bag.failCall = 1;
    control->UserControl_WriteProperties(bag);
    EXPECT_EQ(platform.Trace(),
              Lines{"Error in ctlFolderTree.UserControl_WriteProperties (?): [0x80004005] Injected fault"});
}

TEST_F(Persistence, ANumberOfAnotherWidthIsTaken) {
    bag.values["ExtendToLevel"] = Value::Integer(3);
    bag.values["InfoStoreAccessMode"] = Value("2");
    bag.values["MultiSelect"] = Value(int32_t{0});
    control->UserControl_ReadProperties(bag);
    EXPECT_EQ(control->ExtendToLevel(), 3);
    EXPECT_EQ(control->InfoStoreAccessMode(), eISAccess_Outlook);
    EXPECT_FALSE(control->MultiSelect());
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

}  // namespace
}  // namespace foldertree::testing
