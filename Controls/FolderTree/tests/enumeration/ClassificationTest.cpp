// ClassificationTest: container classes, and the default folders of each access mode.
#include "enumeration/Classification.h"

#include "common/GridSetup.h"
#include "enumeration/DefaultFolders.h"
#include "modes/CdoReader.h"
#include "modes/OutlookReader.h"
#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using automation::Invocation;
using automation::Value;
using automation::testing::ScriptedObject;

TEST(Classification, FolderAndMessageClassesAreKnownInAnyLetterCase) {
    const std::vector<std::pair<std::string, enuFTIItemType>> known{
        {"note", FTIMailItem},       {"contact", FTIContactItem}, {"appointment", FTIAppointmentItem},
        {"journal", FTIjournalItem}, {"stickynote", FTINoteItem}, {"task", FTITaskItem}};
    for (const auto& [name, type] : known) {
        EXPECT_EQ(GetItemTypeFromMessageClass("ipf." + name), type) << name;
        EXPECT_EQ(GetItemTypeFromMessageClass("ipm." + name), type) << name;
        EXPECT_EQ(GetItemTypeFromMessageClass("IPF." + name), type) << name;
    }
    EXPECT_EQ(GetItemTypeFromMessageClass("IPF.Note"), FTIMailItem);
    EXPECT_EQ(GetItemTypeFromMessageClass("ipm.note"), FTIMailItem);
    EXPECT_EQ(GetItemTypeFromMessageClass("IPM.StickyNote"), FTINoteItem);
}

TEST(Classification, AClassThatOnlyBeginsWithAKnownOneIsUnknown) {
    for (const char* other : {"IPF.Note.OutlookHomepage", "IPF.Contact.MOC.QuickContacts", "ipf.note.", "IPF.Imap",
                              "IPF.Configuration", "ipf.notes", "ipf", "note", " ipf.note", "ipf.note "})
        EXPECT_EQ(GetItemTypeFromMessageClass(other), FTIUnknown) << other;
}

TEST(Classification, AnEmptyClassIsUnknown) {
    EXPECT_EQ(GetItemTypeFromMessageClass(""), FTIUnknown);
}

TEST(Classification, AClassWithANulOrForeignLettersIsUnknown) {
    EXPECT_EQ(GetItemTypeFromMessageClass(std::string("ipf.note\0", 9)), FTIUnknown);
    EXPECT_EQ(GetItemTypeFromMessageClass("ipf.not\u00E9"), FTIUnknown);
    EXPECT_EQ(GetItemTypeFromMessageClass("\u0131pf.note"), FTIUnknown) << "a dotless i";
    EXPECT_EQ(GetItemTypeFromMessageClass("\xED\xA0\x80"), FTIUnknown);
}

using DefaultFolders = ControlTest;

TEST_F(DefaultFolders, AreAskedForByOutlooksNumbersInOneOrder) {
    mailbox.defaultFolders = {{6, "01"}, {16, "02"}, {4, "03"}, {3, "04"}, {5, "05"}, {12, "06"}};
    control->SetRDOSessionRef(mailbox.Session());
    Lines calls;
    for (const std::string& line : mailbox.log->Lines())
        if (line.starts_with("Session")) calls.push_back(line);
    EXPECT_EQ(calls,
              (Lines{"Session.GetDefaultFolder(6)", "Session.GetDefaultFolder(16)", "Session.GetDefaultFolder(4)",
                     "Session.GetDefaultFolder(3)", "Session.GetDefaultFolder(5)", "Session.GetDefaultFolder(12)"}));
}

TEST_F(DefaultFolders, ThoseReadBeforeAnErrorStay) {
    mailbox.defaultFolders = {{6, LongID(0x01)}, {16, LongID(0x11)}};
    Load();
    EXPECT_EQ(PictureOf(Grid(), Row("Inbox")), Picture::Inbox);
    EXPECT_EQ(PictureOf(Grid(), Row("Projects")), Picture::Draft);
    EXPECT_EQ(PictureOf(Grid(), Row("Zoo")), Picture::Mail);
}

TEST_F(DefaultFolders, AnErrorIsTracedInTheShorterForm) {
    control->SetRDOSessionRef(mailbox.Session());
    EXPECT_EQ(platform.Trace(), Lines{"Error in ctlFolderTree.GetFolderIDs(?): 0x8004010F] No such default folder."});
}

TEST_F(DefaultFolders, WithoutAnRdoSessionModesZeroAndOneTraceAnError) {
    control->SetRDOSessionRef(nullptr);
    control->SetInfoStoreAccessMode(eISAccess_RDO_Objects);
    ASSERT_EQ(platform.Trace().size(), 2u);
    for (const std::string& line : platform.Trace())
        EXPECT_EQ(line.substr(0, 51), "Error in ctlFolderTree.GetFolderIDs(?): 0x5B] Objec");
}

TEST_F(DefaultFolders, OutlookModeAsksTheNamespaceOfTheApplication) {
    const auto space = std::make_shared<ScriptedObject>("Namespace", mailbox.log);
    space->Method("GetDefaultFolder", [](const Invocation& call) {
        auto folder = std::make_shared<ScriptedObject>("Folder");
        folder->ReadOnly("EntryID", Value("0" + call.arguments[0].ToText()));
        return Value(folder);
    });
    const auto application = std::make_shared<ScriptedObject>("Application", mailbox.log);
    application->Method("GetNamespace", [space](const Invocation&) { return Value(space); });
    control->SetApplication(application);
    control->SetInfoStoreAccessMode(eISAccess_Outlook);
    EXPECT_EQ(mailbox.log->Lines(),
              (Lines{"Application.GetNamespace(\"MAPI\")", "Namespace.GetDefaultFolder(6)",
                     "Namespace.GetDefaultFolder(16)", "Namespace.GetDefaultFolder(4)", "Namespace.GetDefaultFolder(3)",
                     "Namespace.GetDefaultFolder(5)", "Namespace.GetDefaultFolder(12)"}));
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(DefaultFolders, OutlookModeWithoutAnApplicationReadsNone) {
    control->SetInfoStoreAccessMode(eISAccess_Outlook);
    EXPECT_EQ(platform.Trace(), Lines{});
    control->SetRDOSessionRef(mailbox.Session());
    EXPECT_EQ(mailbox.log->Count(), 0u) << "the other mode's session is not asked";
}

TEST_F(DefaultFolders, AreAllUnknownWithoutAnApplicationOrASessionSoFoldersShowTheirTypes) {
    ControlContext context(platform, factory);
    SelectionSet selection(context);
    SelectionView view(context, selection);
    OutlookReader outlook(context, view);
    CdoReader cdo(context, view);
    DefaultFolderIDs& ids = context.state.defaultFolders;
    for (StoreReader* reader : {static_cast<StoreReader*>(&outlook), static_cast<StoreReader*>(&cdo)}) {
        reader->ReadDefaultFolders(ids);
        EXPECT_EQ(ids.inbox + ids.drafts + ids.outbox + ids.deletedItems + ids.sentItems + ids.notes + ids.defaultStore,
                  "");
        EXPECT_EQ(GetIcon(context, FTIMailItem, "0001"), Picture::Mail);
        EXPECT_EQ(GetIcon(context, FTIMailItem, ""), Picture::Mail);
    }
}

TEST_F(DefaultFolders, CdoModeWithoutASessionReadsNoneSoFoldersShowTheirTypes) {
    control->SetInfoStoreAccessMode(eISAccess_CDO);
    EXPECT_EQ(platform.Trace(), Lines{"Could not instantiate CDO session: [0x80040154] Class not registered"});
    mailbox.defaultFolders.clear();
    control->SetInfoStoreAccessMode(eISAccess_RDO_MAPITables);
    Load();
    EXPECT_EQ(PictureOf(Grid(), Row("Inbox")), Picture::Mail);
}

TEST(DefaultFoldersCDO, AreReadFromTheSessionsOwnMembers) {
    const auto withID = [](const char* id) {
        auto object = std::make_shared<ScriptedObject>("Object");
        object->ReadOnly("ID", Value(id));
        return object;
    };
    const auto inbox = withID("01");
    inbox->Method("Fields", [](const Invocation& call) {
        EXPECT_EQ(call.arguments[0].ToLong(), 0x36D70102);
        auto field = std::make_shared<ScriptedObject>("Field");
        field->ReadOnly("Value", Value("02"));
        return Value(field);
    });
    const auto ref = std::make_shared<ScriptedObject>("Session");
    ref->ReadOnly("Inbox", Value(inbox)).ReadOnly("Outbox", Value(withID("03")));
    ref->Method("GetInfoStore", [&](const Invocation&) { return Value(withID("07")); });
    ref->Method("GetDefaultFolder", [&](const Invocation& call) {
        const int32_t number = call.arguments[0].ToLong();
        return Value(withID(number == 4 ? "04" : number == 3 ? "05" : number == 7 ? "06" : "other"));
    });
    DefaultFolderIDs ids;
    ReadDefaultFoldersCDO(ref, ids);
    const Lines read{ids.inbox, ids.drafts, ids.outbox, ids.deletedItems, ids.sentItems, ids.notes, ids.defaultStore};
    EXPECT_EQ(read, (Lines{"01", "02", "03", "04", "05", "06", "07"}));
}

}  // namespace
}  // namespace foldertree::testing
