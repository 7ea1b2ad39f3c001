// ForeignRuntimeTest: each of our DLLs in a process that loads another C++ runtime before it or after it.
#include <gtest/gtest.h>

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>
#include <tuple>

#include "automation/Error.h"
#include "automation_testing/CallLog.h"
#include "automation_testing/ScriptedObject.h"
#include "automation_win32/ComPtr.h"
#include "automation_win32/Crossing.h"

namespace {

using automation::ComPtr;
using automation::Error;
using automation::ObjectRef;
using automation::testing::CallLog;
using automation::testing::ScriptedObject;

#ifdef _WIN64
constexpr const wchar_t* unwinderDll = L"libgcc_s_seh-1.dll";
#else
constexpr const wchar_t* unwinderDll = L"libgcc_s_dw2-1.dll";
#endif
constexpr const wchar_t* runtimeDlls[] = {unwinderDll, L"libstdc++-6.dll"};

ObjectRef Unavailable(std::string_view member, const std::shared_ptr<CallLog>& log) {
    const auto object = std::make_shared<ScriptedObject>("Outside", log);
    object->Fails(member, Error(0x80040115, "The server is not available."));
    return object;
}

/// A failure that the control catches inside: no error comes out.
void FailInTheControl(const ObjectRef& control) {
    const auto log = std::make_shared<CallLog>();
    control->Put("RDOSessionRef", Unavailable("Stores", log));
    control->Get("RefreshList");
    EXPECT_GT(log->Count("Outside.Stores"), 0u);
    EXPECT_EQ(control->Get("ListCount").ToLong(), 0);
    control->Put("RDOSessionRef", ObjectRef());
}

/// A failure inside that comes out as an error of the call.
void FailInTheStores(const ObjectRef& session) {
    EXPECT_THROW(session->Get("Open", "Z:\\no\\such\\file.pst"), Error);
}

/// A failure outside that goes through the DLL.
void FailInTheCompanion(const ObjectRef& utils) {
    const auto log = std::make_shared<CallLog>();
    EXPECT_THROW(utils->Get("GetProperty", Unavailable("Fields", log), 0x3001001E), Error);
    EXPECT_EQ(log->Count("Outside.Fields"), 1u);
}

/// One of our DLLs, and what makes it throw and catch.
struct Server {
    const char* name;
    const wchar_t* file;
    const wchar_t* classId;
    void (*fail)(const ObjectRef& object);
};

constexpr Server servers[] = {
    {"FolderTree", L"FolderTree.ocx", L"{AE52A325-A957-48C9-B185-FA526DB6AB5E}", FailInTheControl},
    {"LocalStores", L"LocalStores.dll", L"{081D4C38-B346-4303-BB78-F95EEA5CCF3E}", FailInTheStores},
    {"NOXMapi", L"NOXMapi.dll", L"{79BBC2E4-9CB4-4EC3-A2BD-A4DABDD49AC6}", FailInTheCompanion},
};

std::wstring ProgramFolder() {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring program = path;
    return program.substr(0, program.find_last_of(L'\\') + 1);
}

bool IsLoaded(const wchar_t* file) {
    return GetModuleHandleW(file) != nullptr;
}

/// A DLL of the program's folder that was not there before, until Unload.
class LoadedDll {
  public:
    LoadedDll(const wchar_t* folder, const wchar_t* file) : file_(file) {
        EXPECT_FALSE(IsLoaded(file)) << "another test has left it";
        const std::wstring path = ProgramFolder() + folder + file;
        // It finds its own DLLs beside itself.
        module_ = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
        EXPECT_NE(module_, nullptr) << "error " << GetLastError();
    }
    ~LoadedDll() { Unload(); }
    LoadedDll(const LoadedDll&) = delete;
    LoadedDll& operator=(const LoadedDll&) = delete;

    void Unload() {
        if (module_ != nullptr) FreeLibrary(module_);
        module_ = nullptr;
    }
    const wchar_t* File() const { return file_; }

    template <class Function>
    Function* Entry(const char* name) const {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    }

  private:
    const wchar_t* file_;
    HMODULE module_ = nullptr;
};

/// A DLL of the foreign runtime.
class LoadedRuntime : public LoadedDll {
  public:
    explicit LoadedRuntime(const wchar_t* file) : LoadedDll(L"foreign-runtime\\", file) {}

    /// Once the host has given it up and no server has a reference to it, nothing of it stays.
    void ExpectToGo() {
        Unload();
#ifndef _WIN64
        // MinGW's start code takes a reference to this DLL for every module, the DLL itself included.
        FreeLibrary(GetModuleHandleW(unwinderDll));
#endif
        EXPECT_FALSE(IsLoaded(File()));
        EXPECT_FALSE(IsLoaded(unwinderDll));
    }
};

class ForeignRuntime : public ::testing::TestWithParam<std::tuple<Server, const wchar_t*>> {
  protected:
    void SetUp() override { ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr))); }
    void TearDown() override { OleUninitialize(); }

    const Server& TheServer() const { return std::get<Server>(GetParam()); }
    const wchar_t* RuntimeFile() const { return std::get<const wchar_t*>(GetParam()); }

    /// Makes an object of the server, lets it fail, and gives back all that was taken.
    void Use(const LoadedDll& server) const {
        CLSID classId;
        ASSERT_EQ(CLSIDFromString(TheServer().classId, &classId), S_OK);
        const auto getClassObject = server.Entry<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject");
        const auto canUnload = server.Entry<HRESULT WINAPI()>("DllCanUnloadNow");
        ASSERT_NE(getClassObject, nullptr);
        ASSERT_NE(canUnload, nullptr);
        {
            ComPtr<IClassFactory> factory;
            ComPtr<IDispatch> object;
            ASSERT_EQ(getClassObject(classId, IID_PPV_ARGS(factory.GetAddressOf())), S_OK);
            ASSERT_EQ(factory->CreateInstance(nullptr, IID_PPV_ARGS(object.GetAddressOf())), S_OK);
            TheServer().fail(automation::FromCom(object.Get()));
        }
        EXPECT_EQ(canUnload(), S_OK);
    }
};

TEST_P(ForeignRuntime, LoadedBeforeAServerLeavesItsExceptionsAlone) {
    LoadedRuntime runtime(RuntimeFile());
    LoadedDll server(L"", TheServer().file);
    Use(server);
    server.Unload();
    EXPECT_FALSE(IsLoaded(server.File()));
    runtime.ExpectToGo();
}

TEST_P(ForeignRuntime, LoadedAfterAServerLeavesItsExceptionsAlone) {
    LoadedDll server(L"", TheServer().file);
    Use(server);
    LoadedRuntime runtime(RuntimeFile());
    Use(server);
    server.Unload();
    EXPECT_FALSE(IsLoaded(server.File()));
    runtime.ExpectToGo();
}

TEST_P(ForeignRuntime, MayBeGivenUpByTheHostBeforeTheServerGoes) {
    LoadedRuntime runtime(RuntimeFile());
    LoadedDll server(L"", TheServer().file);
    runtime.Unload();
    Use(server);
    server.Unload();
    EXPECT_FALSE(IsLoaded(server.File()));
    runtime.ExpectToGo();
}

TEST_P(ForeignRuntime, ComesAndGoesWithAServerAnyNumberOfTimes) {
    for (int round = 0; round < 3; ++round) {
        LoadedRuntime runtime(RuntimeFile());
        LoadedDll server(L"", TheServer().file);
        Use(server);
        server.Unload();
        runtime.ExpectToGo();
    }
}

#ifndef _WIN64
TEST_P(ForeignRuntime, KnowsNoUnwindTablesOfAServerThatHasGone) {
    LoadedRuntime runtime(RuntimeFile());
    LoadedDll server(L"", TheServer().file);
    const auto findTable = reinterpret_cast<const void* (*)(const void*, const void**)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(unwinderDll), "_Unwind_Find_FDE")));
    ASSERT_NE(findTable, nullptr);
    const auto* function = reinterpret_cast<const void*>(server.Entry<HRESULT WINAPI()>("DllCanUnloadNow"));
    const void* bases[3];
    EXPECT_NE(findTable(function, bases), nullptr) << "the start code has not handed them over";
    Use(server);
    server.Unload();
    EXPECT_EQ(findTable(function, bases), nullptr);
    runtime.ExpectToGo();
}
#endif

INSTANTIATE_TEST_SUITE_P(All, ForeignRuntime,
                         ::testing::Combine(::testing::ValuesIn(servers), ::testing::ValuesIn(runtimeDlls)),
                         [](const auto& test) {
                             const bool unwinder = std::get<const wchar_t*>(test.param) == unwinderDll;
                             return std::string(std::get<Server>(test.param).name) +
                                    (unwinder ? "Unwinder" : "Library");
                         });

}  // namespace
