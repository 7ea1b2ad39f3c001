// TypeLibraryTest: the order, names and kinds that hosts are compiled against, from a list of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "automation_win32/Bstr.h"
#include "com/Server.h"
#include "common/Members.h"

namespace foldertree::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

ComPtr<ITypeLib> Library() {
    ComPtr<ITypeLib> library;
    EXPECT_EQ(LoadTypeLibEx(ServerPath().c_str(), REGKIND_NONE, library.GetAddressOf()), S_OK);
    return library;
}

ComPtr<ITypeInfo> Info(const GUID& guid) {
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(Library()->GetTypeInfoOfGuid(guid, info.GetAddressOf()), S_OK);
    return info;
}

ComPtr<ITypeInfo> Info(const wchar_t* name) {
    ComPtr<ITypeInfo> info;
    std::wstring text = name;
    MEMBERID id = 0;
    USHORT found = 1;
    EXPECT_EQ(Library()->FindName(text.data(), 0, info.GetAddressOf(), &id, &found), S_OK);
    return info;
}

std::string NameOf(ITypeInfo& info, MEMBERID id) {
    BSTR name = nullptr;
    info.GetDocumentation(id, &name, nullptr, nullptr, nullptr);
    return Text(name);
}

const char* Kind(const FUNCDESC& function) {
    switch (function.invkind) {
        case INVOKE_PROPERTYGET:
            return "get ";
        case INVOKE_PROPERTYPUT:
            return "let ";
        case INVOKE_PROPERTYPUTREF:
            return "set ";
        default:
            return "call ";
    }
}

/// "kind name" or "kind name(arguments)", in slot order, the members of IDispatch left out.
std::vector<std::string> Members(ITypeInfo& info) {
    std::vector<std::string> members;
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(info.GetTypeAttr(&attributes), S_OK);
    for (WORD i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        EXPECT_EQ(info.GetFuncDesc(i, &function), S_OK);
        if ((function->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0) {
            BSTR names[10] = {};
            UINT count = 0;
            info.GetNames(function->memid, names, 10, &count);
            std::string text = Kind(*function) + Text(names[0]);
            std::string arguments;
            for (UINT n = 1; n < count; ++n) {
                const bool isResult =
                    (function->lprgelemdescParam[n - 1].paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
                const std::string argument = Text(names[n]);
                if (!isResult) arguments += (arguments.empty() ? "" : ", ") + argument;
            }
            if (!arguments.empty() && function->invkind == INVOKE_FUNC) text += "(" + arguments + ")";
            members.push_back(text);
        }
        info.ReleaseFuncDesc(function);
    }
    info.ReleaseTypeAttr(attributes);
    return members;
}

/// The vtable interface of a dual interface, whose order is the order of the slots.
ComPtr<ITypeInfo> Slots(const GUID& guid) {
    const auto info = Info(guid);
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> slots;
    if (SUCCEEDED(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)))
        info->GetRefTypeInfo(reference, slots.GetAddressOf());
    return slots != nullptr ? slots : info;
}

TEST(TypeLibrary, ListsTheMembersOfTheControlInInterfaceOrder) {
    EXPECT_THAT(
        Members(*Slots(__uuidof(_ctlFolderTree)).Get()),
        ElementsAre(
            "set Application", "get Application", "get CDOSession", "set Font", "get Font",
            "call GetMsgItem(sStoreID, sEntryID)", "call GetAdListItem(sAdListID, sAdListEntryID)",
            "call KillCollection(oColl)", "get ListCount", "set SelectedItem", "get SelectedItem", "set Selection",
            "get Selection", "get Enabled", "let Enabled", "get HighlightContactFolders", "let HighlightContactFolders",
            "get HighlightJournalFolders", "let HighlightJournalFolders", "get ExtendToLevel", "let ExtendToLevel",
            "get RDOSessionRef", "set RDOSessionRef", "get MultiSelect", "let MultiSelect", "get AllowIndexing",
            "let AllowIndexing", "get ShowAddressBook", "let ShowAddressBook", "call SelectNone", "call SelectAll",
            "call SelectByType(eType, bAdditional)", "call RefreshList",
            "call Localize(sIndexColName, sSelectionColName, sNameColName, sAddressListRowName, "
            "sPleaseWait, sCancel)",
            "call CreateSelItem(lFolderRecID, sStoreID, sEntryID, sEntryIDShort, sAdListID)", "get InfoStoreAccessMode",
            "let InfoStoreAccessMode", "get BufferedToLevel", "call CollapseToSelection", "call CollapseToType(veType)",
            "get HighlightTaskFolders", "let HighlightTaskFolders"));
}

TEST(TypeLibrary, ListsTheMembersOfTheItemInInterfaceOrder) {
    EXPECT_THAT(Members(*Slots(__uuidof(_clsFolderTreeItem)).Get()),
                ElementsAre("get Incomplete", "get IsAddressList", "get Key", "get Selected", "get StoreID",
                            "get EntryID", "get AddressListID", "get EntryIDShort", "get Name", "get Path", "let Index",
                            "get Index", "get ItemType", "get KeyShortEntryID", "get KeyAlternate", "get FolderRecID"));
}

TEST(TypeLibrary, ListsTheOneEvent) {
    const auto events = Info(__uuidof(__ctlFolderTree));
    EXPECT_THAT(Members(*events.Get()), ElementsAre("call Changed"));
}

std::vector<std::pair<std::string, int>> Constants(const wchar_t* name) {
    std::vector<std::pair<std::string, int>> constants;
    const auto info = Info(name);
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_ENUM);
    for (WORD i = 0; i < attributes->cVars; ++i) {
        VARDESC* constant = nullptr;
        EXPECT_EQ(info->GetVarDesc(i, &constant), S_OK);
        constants.emplace_back(NameOf(*info.Get(), constant->memid), V_I4(constant->lpvarValue));
        info->ReleaseVarDesc(constant);
    }
    info->ReleaseTypeAttr(attributes);
    return constants;
}

TEST(TypeLibrary, ListsTheItemTypesInTheOrderOfTheirDeclaration) {
    const std::pair<std::string, int> wanted[] = {
        {"FTIUnknown", -1},    {"FTIAppointmentItem", 1}, {"FTIContactItem", 2}, {"FTIDistributionList", 7},
        {"FTIjournalItem", 4}, {"FTIMailItem", 0},        {"FTINoteItem", 5},    {"FTIPostItem", 6},
        {"FTITaskItem", 3},    {"FTITrashcan", 8},        {"FTIInbox", 9},       {"FTIOutbox", 10},
        {"FTISent", 11},       {"FTIDraft", 12},          {"FTIHome", 13}};
    EXPECT_THAT(Constants(L"enuFTIItemType"), ElementsAreArray(wanted));
}

TEST(TypeLibrary, ListsTheAccessModes) {
    const std::pair<std::string, int> wanted[] = {
        {"eISAccess_RDO_MAPITables", 0}, {"eISAccess_RDO_Objects", 1}, {"eISAccess_Outlook", 2}, {"eISAccess_CDO", 3}};
    EXPECT_THAT(Constants(L"enuInfoStoreAccessMode"), ElementsAreArray(wanted));
}

DISPID IdOf(const wchar_t* name) {
    std::wstring text = name;
    LPOLESTR names[] = {text.data()};
    MEMBERID id = 0;
    EXPECT_EQ(Info(__uuidof(_ctlFolderTree))->GetIDsOfNames(names, 1, &id), S_OK);
    return id;
}

TEST(TypeLibrary, GivesEnabledAndFontTheNumbersThatContainersKnow) {
    EXPECT_EQ(IdOf(L"Enabled"), -514);
    EXPECT_EQ(IdOf(L"Font"), -512);
}

TEST(TypeLibrary, MarksTheControlClassAndItsDefaultInterfaces) {
    const auto info = Info(__uuidof(::ctlFolderTree));
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FCONTROL);
    EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FCANCREATE);
    ASSERT_EQ(attributes->cImplTypes, 2);
    info->ReleaseTypeAttr(attributes);
    INT flags = 0;
    EXPECT_EQ(info->GetImplTypeFlags(0, &flags), S_OK);
    EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
    EXPECT_EQ(info->GetImplTypeFlags(1, &flags), S_OK);
    EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);
}

/// How a type reads in a declaration.
std::string TypeText(ITypeInfo& info, const TYPEDESC& type) {
    switch (type.vt) {
        case VT_PTR:
            return TypeText(info, *type.lptdesc) + "*";
        case VT_USERDEFINED: {
            ComPtr<ITypeInfo> target;
            EXPECT_EQ(info.GetRefTypeInfo(type.hreftype, target.GetAddressOf()), S_OK);
            return NameOf(*target.Get(), MEMBERID_NIL);
        }
        case VT_BOOL:
            return "Boolean";
        case VT_I4:
            return "Long";
        case VT_BSTR:
            return "String";
        case VT_DISPATCH:
            return "Object";
        case VT_VARIANT:
            return "Variant";
        case VT_VOID:
            return "";
        default:
            return "type " + std::to_string(type.vt);
    }
}

/// The arguments and the result of the first member of that name and kind, as the late-bound interface declares them.
std::string Signature(const wchar_t* name, INVOKEKIND kind) {
    const auto info = Info(__uuidof(_ctlFolderTree));
    const DISPID id = IdOf(name);
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(info->GetTypeAttr(&attributes), S_OK);
    std::string text = "missing";
    for (WORD i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        EXPECT_EQ(info->GetFuncDesc(i, &function), S_OK);
        if (function->memid == id && function->invkind == kind) {
            text = "(";
            for (SHORT n = 0; n < function->cParams; ++n) {
                const ELEMDESC& argument = function->lprgelemdescParam[n];
                text += (n > 0 ? ", " : "");
                if ((argument.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0) text += "optional ";
                text += TypeText(*info.Get(), argument.tdesc);
            }
            text += ")";
            const std::string result = TypeText(*info.Get(), function->elemdescFunc.tdesc);
            if (!result.empty()) text += " As " + result;
        }
        info->ReleaseFuncDesc(function);
    }
    info->ReleaseTypeAttr(attributes);
    return text;
}

TEST(TypeLibrary, DeclaresTheTypesThatHostsPass) {
    EXPECT_EQ(Signature(L"Application", INVOKE_PROPERTYPUTREF), "(Object)");
    EXPECT_EQ(Signature(L"CDOSession", INVOKE_PROPERTYGET), "() As Object");
    EXPECT_EQ(Signature(L"Font", INVOKE_PROPERTYGET), "() As IFontDisp*");
    EXPECT_EQ(Signature(L"GetMsgItem", INVOKE_FUNC), "(String, String) As _clsFolderTreeItem*");
    EXPECT_EQ(Signature(L"KillCollection", INVOKE_FUNC), "(Variant*)");
    EXPECT_EQ(Signature(L"ListCount", INVOKE_PROPERTYGET), "() As Long");
    EXPECT_EQ(Signature(L"SelectedItem", INVOKE_PROPERTYPUTREF), "(_clsFolderTreeItem*)");
    EXPECT_EQ(Signature(L"Selection", INVOKE_PROPERTYGET), "() As Object");
    EXPECT_EQ(Signature(L"Enabled", INVOKE_PROPERTYPUT), "(Boolean)");
    EXPECT_EQ(Signature(L"ExtendToLevel", INVOKE_PROPERTYPUT), "(Long)");
    EXPECT_EQ(Signature(L"SelectByType", INVOKE_FUNC), "(enuFTIItemType, optional Boolean)");
    EXPECT_EQ(Signature(L"InfoStoreAccessMode", INVOKE_PROPERTYGET), "() As enuInfoStoreAccessMode");
    EXPECT_EQ(Signature(L"CreateSelItem", INVOKE_FUNC),
              "(optional Long, optional String, optional String, optional String, optional String) As "
              "_clsFolderTreeItem*");
}

// ---- The table of members

/// What the type library says of a member: its number, how it is used, and the type of its value.
struct Described {
    MEMBERID number = 0;
    int uses = 0;  ///< INVOKEKINDs
    std::string valueType;
    std::string arguments;
};

std::map<std::string, Described> DescribedMembers() {
    std::map<std::string, Described> members;
    const auto info = Info(__uuidof(_ctlFolderTree));
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(info->GetTypeAttr(&attributes), S_OK);
    for (WORD i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        EXPECT_EQ(info->GetFuncDesc(i, &function), S_OK);
        if ((function->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0) {
            Described& member = members[NameOf(*info.Get(), function->memid)];
            member.number = function->memid;
            member.uses |= function->invkind;
            if (function->invkind == INVOKE_PROPERTYGET)
                member.valueType = TypeText(*info.Get(), function->elemdescFunc.tdesc);
            if (function->invkind == INVOKE_FUNC && function->cParams == 1)
                member.arguments = TypeText(*info.Get(), function->lprgelemdescParam[0].tdesc);
        }
        info->ReleaseFuncDesc(function);
    }
    info->ReleaseTypeAttr(attributes);
    return members;
}

int UsesOf(MemberKind kind) {
    switch (kind) {
        case MemberKind::readOnly:
            return INVOKE_PROPERTYGET;
        case MemberKind::propertyByValue:
            return INVOKE_PROPERTYGET | INVOKE_PROPERTYPUT;
        case MemberKind::propertyByReference:
            return INVOKE_PROPERTYGET | INVOKE_PROPERTYPUTREF;
        default:
            return INVOKE_FUNC;
    }
}

TEST(MemberTable, TellsWhatTheTypeLibraryTells) {
    const auto described = DescribedMembers();
    EXPECT_EQ(described.size(), AllMembers().size());
    for (const MemberInfo& info : AllMembers()) {
        SCOPED_TRACE(info.name);
        const auto found = described.find(std::string(info.name));
        ASSERT_NE(found, described.end());
        EXPECT_EQ(found->second.number, info.number);
        EXPECT_EQ(found->second.uses, UsesOf(info.kind));
        EXPECT_EQ(found->second.arguments == "Variant*", info.kind == MemberKind::methodOnVariable);
        if (info.saving.type == SavedAs::boolean) {
            EXPECT_EQ(found->second.valueType, "Boolean");
        }
        if (info.saving.type == SavedAs::font) {
            EXPECT_EQ(found->second.valueType, "IFontDisp*");
        }
        if (info.saving.type == SavedAs::number) {
            EXPECT_THAT(found->second.valueType, ::testing::AnyOf("Long", "enuInfoStoreAccessMode"));
        }
        // What can be set by value is what containers save, and the font.
        EXPECT_EQ(info.saving.type != SavedAs::nothing,
                  info.kind == MemberKind::propertyByValue || info.member == Member::font);
    }
}

TEST(MemberTable, StandsInInterfaceOrder) {
    std::vector<std::string> slots;
    for (const std::string& slot : Members(*Slots(__uuidof(_ctlFolderTree)).Get())) {
        const std::string name = slot.substr(slot.find(' ') + 1);
        const std::string plain = name.substr(0, name.find('('));
        if (slots.empty() || slots.back() != plain) slots.push_back(plain);
    }
    std::vector<std::string> names;
    for (const MemberInfo& info : AllMembers()) names.emplace_back(info.name);
    EXPECT_EQ(names, slots);
}

}  // namespace
}  // namespace foldertree::testing
