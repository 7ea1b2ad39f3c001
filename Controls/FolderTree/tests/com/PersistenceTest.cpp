// PersistenceTest: the control's settings in a container's property bag and in a stream.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <olectl.h>

#include <map>

#include "automation_win32/Bstr.h"
#include "automation_win32/ComBase.h"
#include "automation_win32/Variant.h"
#include "com/Server.h"

namespace foldertree::testing {
namespace {

using automation::Value;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Key;

/// A container's property bag in memory.
class Bag final : public automation::ComBase<IPropertyBag> {
  public:
    std::map<std::string, Value> values;
    HRESULT readFailure = S_OK;

    STDMETHOD(Read)(LPCOLESTR name, VARIANT* value, IErrorLog*) override {
        if (FAILED(readFailure)) return readFailure;
        const auto found = values.find(automation::FromWide(name));
        if (found == values.end()) return E_INVALIDARG;
        VariantClear(value);
        automation::ToVariant(found->second, *value);
        return S_OK;
    }
    STDMETHOD(Write)(LPCOLESTR name, VARIANT* value) override {
        values.insert_or_assign(automation::FromWide(name), automation::FromVariant(*value));
        return S_OK;
    }
};

ComPtr<Bag> Save(const ComPtr<_ctlFolderTree>& control) {
    auto bag = automation::MakeCom<Bag>();
    EXPECT_EQ(As<IPersistPropertyBag>(control)->Save(bag.Get(), TRUE, FALSE), S_OK);
    return bag;
}

void ChangeEverything(const ComPtr<_ctlFolderTree>& control) {
    control->put_Enabled(VARIANT_FALSE);
    control->put_HighlightContactFolders(VARIANT_TRUE);
    control->put_HighlightJournalFolders(VARIANT_TRUE);
    control->put_HighlightTaskFolders(VARIANT_TRUE);
    control->put_MultiSelect(VARIANT_FALSE);
    control->put_AllowIndexing(VARIANT_TRUE);
    control->put_ShowAddressBook(VARIANT_TRUE);
    control->put_ExtendToLevel(3);
    control->put_InfoStoreAccessMode(::eISAccess_CDO);
}

void ExpectEverythingChanged(const ComPtr<_ctlFolderTree>& control) {
    const auto tree = LateBound(control.Get());
    EXPECT_FALSE(tree->Get("Enabled").ToBoolean());
    EXPECT_TRUE(tree->Get("HighlightContactFolders").ToBoolean());
    EXPECT_TRUE(tree->Get("HighlightJournalFolders").ToBoolean());
    EXPECT_TRUE(tree->Get("HighlightTaskFolders").ToBoolean());
    EXPECT_FALSE(tree->Get("MultiSelect").ToBoolean());
    EXPECT_TRUE(tree->Get("AllowIndexing").ToBoolean());
    EXPECT_TRUE(tree->Get("ShowAddressBook").ToBoolean());
    EXPECT_EQ(tree->Get("ExtendToLevel").ToLong(), 3);
    EXPECT_EQ(tree->Get("InfoStoreAccessMode").ToLong(), 3);
}

std::string FontName(const ComPtr<_ctlFolderTree>& control) {
    return LateBound(control.Get())->Get("Font").RequireObject()->Get("Name").ToText();
}

TEST(PropertyBagPersistence, WritesOnlyWhatDiffersFromItsDefault) {
    const auto control = NewControl();
    ASSERT_EQ(As<IPersistPropertyBag>(control)->InitNew(), S_OK);
    // A new control starts at level 1, which is not what a missing key reads as.
    EXPECT_THAT(Save(control)->values, ElementsAre(Key("ExtendToLevel"), Key("Font")));
    control->put_ExtendToLevel(0);
    control->put_HighlightTaskFolders(VARIANT_TRUE);
    EXPECT_THAT(Save(control)->values, ElementsAre(Key("Font"), Key("HighlightTaskFolders")));
}

TEST(PropertyBagPersistence, BringsEverySettingBack) {
    const auto saved = NewControl();
    ChangeEverything(saved);
    const auto bag = Save(saved);
    EXPECT_EQ(bag->values.size(), 10u);

    const auto loaded = NewControl();
    ASSERT_EQ(As<IPersistPropertyBag>(loaded)->Load(bag.Get(), nullptr), S_OK);
    ExpectEverythingChanged(loaded);
    EXPECT_EQ(FontName(loaded), FontName(saved));
}

TEST(PropertyBagPersistence, ReadsAMissingKeyAsItsDefault) {
    const auto control = NewControl();
    ASSERT_EQ(As<IPersistPropertyBag>(control)->Load(automation::MakeCom<Bag>().Get(), nullptr), S_OK);
    const auto tree = LateBound(control.Get());
    EXPECT_EQ(tree->Get("ExtendToLevel").ToLong(), 0);
    EXPECT_TRUE(tree->Get("MultiSelect").ToBoolean());
    EXPECT_TRUE(tree->Get("Enabled").ToBoolean());
    EXPECT_EQ(FontName(control), FontName(NewControl()));
}

TEST(PropertyBagPersistence, ReadsTextsAsPagesKeepThem) {
    const auto bag = automation::MakeCom<Bag>();
    bag->values = {{"Enabled", "False"}, {"ExtendToLevel", "4"}, {"AllowIndexing", "-1"}};
    const auto control = NewControl();
    ASSERT_EQ(As<IPersistPropertyBag>(control)->Load(bag.Get(), nullptr), S_OK);
    const auto tree = LateBound(control.Get());
    EXPECT_FALSE(tree->Get("Enabled").ToBoolean());
    EXPECT_EQ(tree->Get("ExtendToLevel").ToLong(), 4);
    EXPECT_TRUE(tree->Get("AllowIndexing").ToBoolean());
}

TEST(PropertyBagPersistence, SurvivesABagFullOfWrongTypesAndABagThatFails) {
    const auto bag = automation::MakeCom<Bag>();
    for (const char* name : {"Enabled", "MultiSelect", "ExtendToLevel", "Font", "InfoStoreAccessMode"})
        bag->values[name] = Value(automation::Bytes{0, {1, 2, 3}});
    bag->values["AllowIndexing"] = true;
    const auto control = NewControl();
    EXPECT_EQ(As<IPersistPropertyBag>(control)->Load(bag.Get(), nullptr), S_OK);
    const auto tree = LateBound(control.Get());
    EXPECT_TRUE(tree->Get("Enabled").ToBoolean());
    EXPECT_EQ(tree->Get("ExtendToLevel").ToLong(), 0);
    EXPECT_TRUE(tree->Get("AllowIndexing").ToBoolean());

    bag->readFailure = E_FAIL;
    EXPECT_EQ(As<IPersistPropertyBag>(control)->Load(bag.Get(), nullptr), S_OK);
    EXPECT_FALSE(tree->Get("AllowIndexing").ToBoolean());
}

// ---- Stream

ComPtr<IStream> MemoryStream() {
    ComPtr<IStream> stream;
    EXPECT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.GetAddressOf()), S_OK);
    return stream;
}

void Rewind(const ComPtr<IStream>& stream) {
    EXPECT_EQ(stream->Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
}

ULONGLONG SizeOf(const ComPtr<IStream>& stream) {
    STATSTG status = {};
    EXPECT_EQ(stream->Stat(&status, STATFLAG_NONAME), S_OK);
    return status.cbSize.QuadPart;
}

TEST(StreamPersistence, BringsEverySettingBack) {
    const auto saved = NewControl();
    ChangeEverything(saved);
    LateBound(saved.Get())->Get("Font").RequireObject()->Put("Size", 21);
    const auto stream = MemoryStream();
    ASSERT_EQ(As<IPersistStreamInit>(saved)->Save(stream.Get(), TRUE), S_OK);

    Rewind(stream);
    const auto loaded = NewControl();
    ASSERT_EQ(As<IPersistStreamInit>(loaded)->Load(stream.Get()), S_OK);
    ExpectEverythingChanged(loaded);
    EXPECT_EQ(FontName(loaded), FontName(saved));
    EXPECT_EQ(LateBound(loaded.Get())->Get("Font").RequireObject()->Get("Size").ToLong(), 21);
}

TEST(StreamPersistence, BringsTheDefaultsBack) {
    const auto saved = NewControl();
    ASSERT_EQ(As<IPersistStreamInit>(saved)->InitNew(), S_OK);
    const auto stream = MemoryStream();
    ASSERT_EQ(As<IPersistStreamInit>(saved)->Save(stream.Get(), TRUE), S_OK);
    Rewind(stream);
    const auto loaded = NewControl();
    ChangeEverything(loaded);
    ASSERT_EQ(As<IPersistStreamInit>(loaded)->Load(stream.Get()), S_OK);
    const auto tree = LateBound(loaded.Get());
    EXPECT_TRUE(tree->Get("Enabled").ToBoolean());
    EXPECT_TRUE(tree->Get("MultiSelect").ToBoolean());
    EXPECT_FALSE(tree->Get("AllowIndexing").ToBoolean());
    EXPECT_EQ(tree->Get("ExtendToLevel").ToLong(), 1);
    EXPECT_EQ(tree->Get("InfoStoreAccessMode").ToLong(), 0);
}

TEST(StreamPersistence, TellsItsSizeBeforeItSaves) {
    const auto control = NewControl();
    ChangeEverything(control);
    ULARGE_INTEGER size = {};
    ASSERT_EQ(As<IPersistStreamInit>(control)->GetSizeMax(&size), S_OK);
    const auto stream = MemoryStream();
    ASSERT_EQ(As<IPersistStreamInit>(control)->Save(stream.Get(), FALSE), S_OK);
    EXPECT_EQ(size.QuadPart, SizeOf(stream));
}

TEST(StreamPersistence, RefusesAStreamThatEndsEarlyAndKeepsItsSettings) {
    const auto saved = NewControl();
    ChangeEverything(saved);
    const auto whole = MemoryStream();
    ASSERT_EQ(As<IPersistStreamInit>(saved)->Save(whole.Get(), TRUE), S_OK);
    const auto size = static_cast<ULONG>(SizeOf(whole));
    std::vector<char> bytes(size);
    Rewind(whole);
    ASSERT_EQ(whole->Read(bytes.data(), size, nullptr), S_OK);

    const auto control = NewControl();
    for (ULONG length = 0; length < size; ++length) {
        const auto part = MemoryStream();
        part->Write(bytes.data(), length, nullptr);
        Rewind(part);
        EXPECT_TRUE(FAILED(As<IPersistStreamInit>(control)->Load(part.Get()))) << length;
    }
    VARIANT_BOOL enabled = VARIANT_FALSE;
    control->get_Enabled(&enabled);
    EXPECT_EQ(enabled, VARIANT_TRUE);
}

TEST(StreamPersistence, RefusesALaterVersionAndOtherTypes) {
    const auto control = NewControl();
    const auto later = MemoryStream();
    const uint32_t version = 2;
    later->Write(&version, sizeof(version), nullptr);
    Rewind(later);
    EXPECT_TRUE(FAILED(As<IPersistStreamInit>(control)->Load(later.Get())));

    const auto foreign = MemoryStream();
    const uint32_t current = 1;
    const VARTYPE text = VT_BSTR;
    foreign->Write(&current, sizeof(current), nullptr);
    foreign->Write(&text, sizeof(text), nullptr);
    Rewind(foreign);
    EXPECT_TRUE(FAILED(As<IPersistStreamInit>(control)->Load(foreign.Get())));
}

TEST(StreamPersistence, KnowsWhetherASettingChangedSinceItWasSaved) {
    const auto control = NewControl();
    const auto persist = As<IPersistStreamInit>(control);
    ASSERT_EQ(persist->InitNew(), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
    control->put_MultiSelect(VARIANT_FALSE);
    EXPECT_EQ(persist->IsDirty(), S_OK);
    EXPECT_EQ(persist->Save(MemoryStream().Get(), FALSE), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_OK);
    EXPECT_EQ(persist->Save(MemoryStream().Get(), TRUE), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
}

TEST(Persistence, NamesTheClassOfTheControl) {
    const auto control = NewControl();
    CLSID clsid = {};
    EXPECT_EQ(As<IPersist>(control)->GetClassID(&clsid), S_OK);
    EXPECT_TRUE(clsid == __uuidof(::ctlFolderTree));
    EXPECT_EQ(As<IPersistPropertyBag>(control)->GetClassID(&clsid), S_OK);
    EXPECT_TRUE(clsid == __uuidof(::ctlFolderTree));
}

}  // namespace
}  // namespace foldertree::testing
