// StorageTest: the control's settings in a compound file and in a block of memory.
#include <gtest/gtest.h>

#include <ole2.h>
#include <olectl.h>

#include <cstdint>
#include <vector>

#include "automation/Object.h"
#include "automation_win32/ComBase.h"
#include "com/Server.h"

namespace foldertree::testing {
namespace {

/// A compound file that lives in memory.
ComPtr<IStorage> NewStorage() {
    ComPtr<ILockBytes> bytes;
    ComPtr<IStorage> storage;
    EXPECT_EQ(CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.GetAddressOf()), S_OK);
    EXPECT_EQ(StgCreateDocfileOnILockBytes(bytes.Get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0,
                                           storage.GetAddressOf()),
              S_OK);
    return storage;
}

void ChangeSome(const ComPtr<_ctlFolderTree>& control) {
    control->put_Enabled(VARIANT_FALSE);
    control->put_AllowIndexing(VARIANT_TRUE);
    control->put_ExtendToLevel(3);
    control->put_InfoStoreAccessMode(::eISAccess_CDO);
}

void ExpectSomeChanged(const ComPtr<_ctlFolderTree>& control) {
    const auto tree = LateBound(control.Get());
    EXPECT_FALSE(tree->Get("Enabled").ToBoolean());
    EXPECT_TRUE(tree->Get("AllowIndexing").ToBoolean());
    EXPECT_EQ(tree->Get("ExtendToLevel").ToLong(), 3);
    EXPECT_EQ(tree->Get("InfoStoreAccessMode").ToLong(), 3);
}

std::vector<uint8_t> Contents(IStorage& storage) {
    ComPtr<IStream> stream;
    EXPECT_EQ(storage.OpenStream(L"Contents", nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, stream.GetAddressOf()),
              S_OK);
    std::vector<uint8_t> bytes(4096);
    ULONG read = 0;
    EXPECT_TRUE(SUCCEEDED(stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), &read)));
    bytes.resize(read);
    return bytes;
}

void WriteContents(IStorage& storage, const std::vector<uint8_t>& bytes) {
    ComPtr<IStream> stream;
    ASSERT_EQ(storage.CreateStream(L"Contents", STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, 0,
                                   stream.GetAddressOf()),
              S_OK);
    if (bytes.empty()) return;
    ASSERT_EQ(stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr), S_OK);
}

std::vector<uint8_t> SavedStream(const ComPtr<_ctlFolderTree>& control) {
    ComPtr<IStream> stream;
    EXPECT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.GetAddressOf()), S_OK);
    EXPECT_EQ(As<IPersistStreamInit>(control)->Save(stream.Get(), FALSE), S_OK);
    STATSTG status = {};
    EXPECT_EQ(stream->Stat(&status, STATFLAG_NONAME), S_OK);
    EXPECT_EQ(stream->Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
    std::vector<uint8_t> bytes(status.cbSize.LowPart);
    EXPECT_EQ(stream->Read(bytes.data(), status.cbSize.LowPart, nullptr), S_OK);
    return bytes;
}

TEST(StoragePersistence, BringsTheSettingsBackByTheSystemsOwnHelpers) {
    const auto saved = NewControl();
    ChangeSome(saved);
    const auto storage = NewStorage();
    const auto persist = As<IPersistStorage>(saved);
    ASSERT_EQ(OleSave(persist.Get(), storage.Get(), FALSE), S_OK);
    EXPECT_EQ(persist->SaveCompleted(nullptr), S_OK);
    CLSID clsid = {};
    EXPECT_EQ(ReadClassStg(storage.Get(), &clsid), S_OK);
    EXPECT_TRUE(clsid == __uuidof(::ctlFolderTree));

    ComPtr<IUnknown> loaded;
    ASSERT_EQ(OleLoad(storage.Get(), IID_IUnknown, nullptr, reinterpret_cast<void**>(loaded.GetAddressOf())), S_OK);
    ExpectSomeChanged(As<_ctlFolderTree>(loaded));
}

TEST(StoragePersistence, HoldsTheBytesOfTheStream) {
    const auto control = NewControl();
    ChangeSome(control);
    const auto storage = NewStorage();
    ASSERT_EQ(As<IPersistStorage>(control)->Save(storage.Get(), FALSE), S_OK);
    EXPECT_EQ(Contents(*storage.Get()), SavedStream(control));
}

TEST(StoragePersistence, IsSavedOnlyWhereTheContainerTakesItOver) {
    const auto control = NewControl();
    const auto persist = As<IPersistStorage>(control);
    const auto storage = NewStorage();
    ASSERT_EQ(persist->InitNew(storage.Get()), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
    control->put_MultiSelect(VARIANT_FALSE);
    EXPECT_EQ(persist->IsDirty(), S_OK);
    // A copy
    ASSERT_EQ(persist->Save(NewStorage().Get(), FALSE), S_OK);
    EXPECT_EQ(persist->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_OK);
    ASSERT_EQ(persist->Save(storage.Get(), TRUE), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_OK);
    EXPECT_EQ(persist->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
    // Under another name
    control->put_MultiSelect(VARIANT_TRUE);
    const auto other = NewStorage();
    ASSERT_EQ(persist->Save(other.Get(), FALSE), S_OK);
    EXPECT_EQ(persist->HandsOffStorage(), S_OK);
    EXPECT_EQ(persist->SaveCompleted(other.Get()), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
    EXPECT_EQ(References(storage.Get()), 1u);
    EXPECT_EQ(References(other.Get()), 1u);
}

TEST(StoragePersistence, RefusesCallsOutOfTurn) {
    const auto control = NewControl();
    const auto persist = As<IPersistStorage>(control);
    const auto storage = NewStorage();
    for (const auto call : {&IPersistStorage::InitNew, &IPersistStorage::Load})
        EXPECT_EQ((persist.Get()->*call)(nullptr), E_POINTER);
    EXPECT_EQ(persist->Save(nullptr, TRUE), E_POINTER);
    EXPECT_EQ(persist->SaveCompleted(storage.Get()), E_UNEXPECTED);

    ASSERT_EQ(persist->Save(storage.Get(), TRUE), S_OK);
    EXPECT_EQ(persist->Save(storage.Get(), TRUE), E_UNEXPECTED);
    EXPECT_EQ(persist->Load(storage.Get()), E_UNEXPECTED);
    EXPECT_EQ(persist->InitNew(storage.Get()), E_UNEXPECTED);
    EXPECT_EQ(persist->HandsOffStorage(), S_OK);
    EXPECT_EQ(persist->HandsOffStorage(), E_UNEXPECTED);
    EXPECT_EQ(persist->Save(storage.Get(), TRUE), E_UNEXPECTED);
    EXPECT_EQ(persist->SaveCompleted(nullptr), E_INVALIDARG);
    EXPECT_EQ(persist->SaveCompleted(storage.Get()), S_OK);
    EXPECT_EQ(persist->Load(storage.Get()), S_OK);
}

TEST(StoragePersistence, RefusesAForeignOrDamagedStorageAndKeepsItsSettings) {
    const auto control = NewControl();
    ChangeSome(control);
    const auto persist = As<IPersistStorage>(control);
    EXPECT_EQ(persist->Load(NewStorage().Get()), STG_E_FILENOTFOUND);

    const auto foreign = NewStorage();
    WriteContents(*foreign.Get(), {'<', 'h', 't', 'm', 'l', '>'});
    EXPECT_TRUE(FAILED(persist->Load(foreign.Get())));

    const std::vector<uint8_t> whole = SavedStream(NewControl());
    for (size_t length = 0; length < whole.size(); length += 5) {
        const auto damaged = NewStorage();
        WriteContents(*damaged.Get(), {whole.begin(), whole.begin() + static_cast<ptrdiff_t>(length)});
        EXPECT_TRUE(FAILED(persist->Load(damaged.Get()))) << length;
    }
    // A storage of that name where the stream should be.
    const auto nested = NewStorage();
    ComPtr<IStorage> inner;
    ASSERT_EQ(nested->CreateStorage(L"Contents", STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, 0,
                                    inner.GetAddressOf()),
              S_OK);
    inner = nullptr;
    EXPECT_TRUE(FAILED(persist->Load(nested.Get())));
    ExpectSomeChanged(control);
}

TEST(MemoryPersistence, BringsTheSettingsBackInTheBytesOfTheStream) {
    const auto saved = NewControl();
    ChangeSome(saved);
    ULONG size = 0;
    ASSERT_EQ(As<IPersistMemory>(saved)->GetSizeMax(&size), S_OK);
    std::vector<uint8_t> block(size);
    EXPECT_EQ(As<IPersistMemory>(saved)->IsDirty(), S_OK);
    ASSERT_EQ(As<IPersistMemory>(saved)->Save(block.data(), TRUE, size), S_OK);
    EXPECT_EQ(As<IPersistMemory>(saved)->IsDirty(), S_FALSE);
    EXPECT_EQ(block, SavedStream(saved));

    const auto loaded = NewControl();
    ASSERT_EQ(As<IPersistMemory>(loaded)->Load(block.data(), size), S_OK);
    ExpectSomeChanged(loaded);
}

TEST(MemoryPersistence, RefusesABlockThatIsTooSmallAndLeavesItAsItWas) {
    const auto control = NewControl();
    ChangeSome(control);
    const auto persist = As<IPersistMemory>(control);
    const std::vector<uint8_t> whole = SavedStream(NewControl());
    for (ULONG size = 0; size < whole.size(); ++size) {
        std::vector<uint8_t> block(size + 1, 0xAA);
        EXPECT_EQ(persist->Save(block.data(), TRUE, size), STG_E_MEDIUMFULL);
        EXPECT_EQ(block, std::vector<uint8_t>(size + 1, 0xAA));
        std::vector<uint8_t> part = whole;
        EXPECT_TRUE(FAILED(persist->Load(part.data(), size))) << size;
    }
    EXPECT_EQ(persist->IsDirty(), S_OK);
    EXPECT_EQ(persist->Load(nullptr, 4), E_POINTER);
    EXPECT_EQ(persist->Save(nullptr, TRUE, 4), E_POINTER);
    EXPECT_EQ(persist->GetSizeMax(nullptr), E_POINTER);
    ExpectSomeChanged(control);
}

}  // namespace
}  // namespace foldertree::testing
