// PersistenceTest: the control's settings in a container's property bag and in a stream.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <olectl.h>

#include <map>
#include <vector>

#include "automation/Error.h"
#include "automation_win32/Bstr.h"
#include "automation_win32/ComBase.h"
#include "automation_win32/Variant.h"
#include "com/Server.h"
#include "win32/com/StreamPropertyBag.h"

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
    HRESULT writeFailure = S_OK;
    int writesLeft = 1000;

    STDMETHOD(Read)(LPCOLESTR name, VARIANT* value, IErrorLog*) override {
        if (FAILED(readFailure)) return readFailure;
        const auto found = values.find(automation::FromWide(name));
        if (found == values.end()) return E_INVALIDARG;
        VariantClear(value);
        automation::ToVariant(found->second, *value);
        return S_OK;
    }
    STDMETHOD(Write)(LPCOLESTR name, VARIANT* value) override {
        if (FAILED(writeFailure) && writesLeft-- == 0) return writeFailure;
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

TEST(PropertyBagPersistence, TellsWhereTheBagCannotBeWrittenAndStaysUnsaved) {
    const auto control = NewControl();
    ASSERT_EQ(As<IPersistPropertyBag>(control)->InitNew(), S_OK);
    ChangeEverything(control);
    for (int written = 0; written < 10; ++written) {
        const auto bag = automation::MakeCom<Bag>();
        bag->writeFailure = STG_E_MEDIUMFULL;
        bag->writesLeft = written;
        EXPECT_EQ(As<IPersistPropertyBag>(control)->Save(bag.Get(), TRUE, TRUE), STG_E_MEDIUMFULL) << written;
        EXPECT_EQ(As<IPersistStreamInit>(control)->IsDirty(), S_OK);
    }
    Save(control);
    EXPECT_EQ(As<IPersistStreamInit>(control)->IsDirty(), S_FALSE);
    ExpectEverythingChanged(control);
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

std::vector<uint8_t> BytesOf(const ComPtr<IStream>& stream) {
    std::vector<uint8_t> bytes(static_cast<size_t>(SizeOf(stream)));
    Rewind(stream);
    EXPECT_EQ(stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr), S_OK);
    return bytes;
}

ComPtr<IStream> StreamOf(const std::vector<uint8_t>& bytes) {
    const auto stream = MemoryStream();
    stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    Rewind(stream);
    return stream;
}

std::vector<uint8_t> SavedStream(const ComPtr<_ctlFolderTree>& control) {
    const auto stream = MemoryStream();
    EXPECT_EQ(As<IPersistStreamInit>(control)->Save(stream.Get(), FALSE), S_OK);
    return BytesOf(stream);
}

TEST(StreamPersistence, TellsALaterVersionFromWhatNoVersionWrites) {
    const auto control = NewControl();
    ChangeEverything(control);
    const std::vector<uint8_t> good = SavedStream(control);
    const auto load = [&control](std::vector<uint8_t> bytes, uint8_t version) {
        bytes[0] = version;
        return As<IPersistStreamInit>(control)->Load(StreamOf(bytes).Get());
    };
    ASSERT_EQ(good[0], 1);
    EXPECT_EQ(load(good, 2), STG_E_OLDDLL);
    EXPECT_EQ(load(good, 255), STG_E_OLDDLL);
    EXPECT_EQ(load(good, 0), STG_E_INVALIDHEADER);
    std::vector<uint8_t> otherType = good;
    otherType[4] = VT_BSTR;
    EXPECT_EQ(load(otherType, 1), STG_E_INVALIDHEADER);
    EXPECT_EQ(load({1, 0, 0, 0, VT_BOOL}, 1), STG_E_READFAULT);
    ExpectEverythingChanged(control);
    EXPECT_EQ(load(good, 1), S_OK);
}

/// A table of one setting of the first version and one that the second adds.
constexpr MemberInfo firstSetting{
    Member::enabled, "First", 1, MemberKind::propertyByValue, {.type = SavedAs::number, .place = 1, .sinceVersion = 1}};
constexpr MemberInfo secondSetting{Member::multiSelect,
                                   "Second",
                                   2,
                                   MemberKind::propertyByValue,
                                   {.type = SavedAs::number, .place = 2, .sinceVersion = 2}};

TEST(StreamPersistence, ReadsAStreamOfAnEarlierVersionWithoutWhatItDidNotHave) {
    const MemberInfo* const earlier[] = {&firstSetting};
    const MemberInfo* const current[] = {&firstSetting, &secondSetting};
    StreamPropertyBag old(earlier);
    old.Write("First", 7);
    const auto stream = MemoryStream();
    old.Save(*stream.Get());
    Rewind(stream);
    StreamPropertyBag now(current);
    EXPECT_EQ(now.Version(), 2u);
    now.Write("Second", 8);
    now.Load(*stream.Get());
    EXPECT_EQ(now.Read("First").ToLong(), 7);
    EXPECT_TRUE(now.Read("Second").IsEmpty());

    now.Write("Second", 9);
    const auto later = MemoryStream();
    now.Save(*later.Get());
    Rewind(later);
    try {
        old.Load(*later.Get());
        ADD_FAILURE() << "a later version was read";
    } catch (const automation::Error& error) {
        EXPECT_EQ(error.Number(), static_cast<uint32_t>(STG_E_OLDDLL));
    }
    EXPECT_EQ(old.Read("First").ToLong(), 7);
}

TEST(StreamPersistence, LoadsOrRefusesADamagedStreamAndThenKeepsItsSettings) {
    const auto saved = NewControl();
    ChangeEverything(saved);
    const std::vector<uint8_t> good = SavedStream(saved);
    int refused = 0;
    for (size_t at = 0; at < good.size(); ++at) {
        for (const int change : {0x01, 0x80, 0xFF}) {
            std::vector<uint8_t> damaged = good;
            damaged[at] = static_cast<uint8_t>(damaged[at] ^ change);
            const auto control = NewControl();
            ChangeEverything(control);
            if (SUCCEEDED(As<IPersistStreamInit>(control)->Load(StreamOf(damaged).Get()))) continue;
            ++refused;
            ExpectEverythingChanged(control);
        }
    }
    EXPECT_GT(refused, 30);
}

/// A stream that stops after some calls: it fails, or says that all is well and does nothing.
class TornStream final : public automation::ComBase<IStream> {
  public:
    TornStream(ComPtr<IStream> inner, int callsLeft, HRESULT answer)
        : inner_(std::move(inner)), callsLeft_(callsLeft), answer_(answer) {}

    STDMETHOD(Read)(void* bytes, ULONG size, ULONG* read) override {
        if (callsLeft_-- > 0) return inner_->Read(bytes, size, read);
        if (read != nullptr) *read = 0;
        return answer_;
    }
    STDMETHOD(Write)(const void* bytes, ULONG size, ULONG* written) override {
        if (callsLeft_-- > 0) return inner_->Write(bytes, size, written);
        if (written != nullptr) *written = 0;
        return answer_;
    }
    STDMETHOD(Seek)(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) override { return E_NOTIMPL; }
    STDMETHOD(SetSize)(ULARGE_INTEGER) override { return E_NOTIMPL; }
    STDMETHOD(CopyTo)(IStream*, ULARGE_INTEGER, ULARGE_INTEGER*, ULARGE_INTEGER*) override { return E_NOTIMPL; }
    STDMETHOD(Commit)(DWORD) override { return E_NOTIMPL; }
    STDMETHOD(Revert)() override { return E_NOTIMPL; }
    STDMETHOD(LockRegion)(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
    STDMETHOD(UnlockRegion)(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
    STDMETHOD(Stat)(STATSTG*, DWORD) override { return E_NOTIMPL; }
    STDMETHOD(Clone)(IStream**) override { return E_NOTIMPL; }

    bool WasTorn() const { return callsLeft_ < 0; }

  private:
    ComPtr<IStream> inner_;
    int callsLeft_;
    HRESULT answer_;
};

TEST(StreamPersistence, TellsWhereAStreamFailsOrStopsWithoutAWord) {
    const auto saved = NewControl();
    ChangeEverything(saved);
    const std::vector<uint8_t> good = SavedStream(saved);
    int torn = 0;
    for (const HRESULT answer : {STG_E_READFAULT, S_OK, S_FALSE}) {
        for (int calls = 0;; ++calls) {
            ASSERT_LT(calls, 1000);
            const auto control = NewControl();
            const auto stream = automation::MakeCom<TornStream>(StreamOf(good), calls, answer);
            const HRESULT result = As<IPersistStreamInit>(control)->Load(stream.Get());
            if (!stream->WasTorn()) break;
            ++torn;
            EXPECT_TRUE(FAILED(result)) << calls << " reads, then " << answer;
            EXPECT_TRUE(LateBound(control.Get())->Get("Enabled").ToBoolean()) << "the settings stay as they were";
        }
        for (int calls = 0;; ++calls) {
            ASSERT_LT(calls, 1000);
            const auto stream = automation::MakeCom<TornStream>(MemoryStream(), calls, answer);
            const HRESULT result = As<IPersistStreamInit>(saved)->Save(stream.Get(), TRUE);
            if (!stream->WasTorn()) break;
            ++torn;
            EXPECT_TRUE(FAILED(result)) << calls << " writes, then " << answer;
        }
    }
    EXPECT_GT(torn, 60);
    ExpectEverythingChanged(saved);
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
