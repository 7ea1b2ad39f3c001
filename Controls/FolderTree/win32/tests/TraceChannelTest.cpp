// TraceChannelTest: who counts as a receiver of the trace, and what one of them receives.
#include "win32/com/TraceChannel.h"

#include <gtest/gtest.h>
#include <windows.h>
#include <winternl.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "win32/com/TraceReceivers.h"

namespace foldertree {
namespace {

/// A kernel object that is closed at the end.
class Handle {
  public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() {
        if (handle_ != nullptr) CloseHandle(handle_);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    HANDLE Get() const { return handle_; }

  private:
    HANDLE handle_;
};

constexpr DWORD bufferSize = 4096;

Handle MakeSection(const wchar_t* name, SECURITY_ATTRIBUTES* security = nullptr) {
    return Handle(CreateFileMappingW(INVALID_HANDLE_VALUE, security, PAGE_READWRITE, 0, bufferSize, name));
}

/// Each test begins with nobody listening, also under Wine.
class TraceReceiver : public ::testing::Test {
  protected:
    TraceReceiver() { Set(L"ask"); }
    ~TraceReceiver() override { Set(nullptr); }

    static void Set(const wchar_t* value) { SetEnvironmentVariableW(L"FOLDERTREE_TRACE", value); }
};

TEST_F(TraceReceiver, IsThereWhenTheVariableSaysSo) {
    EXPECT_FALSE(TraceHasReceiver());
    Set(L"Always");
    EXPECT_TRUE(TraceHasReceiver());
    Set(L"a value that nobody knows and that is long");
    const bool asWithout = TraceHasReceiver();
    Set(nullptr);
    EXPECT_EQ(TraceHasReceiver(), asWithout);
}

TEST_F(TraceReceiver, IsWineWhenItIsNotToBeAsked) {
    if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") == nullptr) GTEST_SKIP() << "not Wine";
    Set(nullptr);
    EXPECT_TRUE(TraceHasReceiver());
}

TEST_F(TraceReceiver, IsAViewerOfTheSession) {
    {
        const Handle section = MakeSection(L"DBWIN_BUFFER");
        ASSERT_NE(section.Get(), nullptr);
        EXPECT_TRUE(TraceHasReceiver());
    }
    EXPECT_FALSE(TraceHasReceiver());
}

TEST_F(TraceReceiver, IsAViewerOfTheWholeSystem) {
    const Handle section = MakeSection(L"Global\\DBWIN_BUFFER");
    if (section.Get() == nullptr) GTEST_SKIP() << "no right to make objects for the whole system";
    EXPECT_TRUE(TraceHasReceiver());
}

TEST_F(TraceReceiver, IsAViewerWhoseSectionMayNotBeOpened) {
    SECURITY_DESCRIPTOR nobody;
    ASSERT_TRUE(InitializeSecurityDescriptor(&nobody, SECURITY_DESCRIPTOR_REVISION));
    ACL none;
    ASSERT_TRUE(InitializeAcl(&none, sizeof none, ACL_REVISION));
    ASSERT_TRUE(SetSecurityDescriptorDacl(&nobody, TRUE, &none, FALSE));
    SECURITY_ATTRIBUTES security = {sizeof security, &nobody, FALSE};
    const Handle section = MakeSection(L"DBWIN_BUFFER", &security);
    ASSERT_NE(section.Get(), nullptr);
    const Handle opened(OpenFileMappingW(FILE_MAP_WRITE, FALSE, L"DBWIN_BUFFER"));
    EXPECT_TRUE(opened.Get() != nullptr || GetLastError() == ERROR_ACCESS_DENIED);
    EXPECT_TRUE(TraceHasReceiver());
}

TEST_F(TraceReceiver, IsNoOtherObjectOfThatName) {
    const Handle event(CreateEventW(nullptr, FALSE, FALSE, L"DBWIN_BUFFER"));
    ASSERT_NE(event.Get(), nullptr);
    EXPECT_FALSE(TraceHasReceiver());
}

TEST_F(TraceReceiver, IsADebugger) {
    BYTE& attached = NtCurrentTeb()->ProcessEnvironmentBlock->BeingDebugged;
    attached = 1;
    EXPECT_TRUE(TraceHasReceiver());
    attached = 0;
    EXPECT_FALSE(TraceHasReceiver());
}

TEST_F(TraceReceiver, IsLookedForWhenACallBegins) {
    TraceChannel channel;
    EXPECT_FALSE(channel.IsHeard());
    const Handle section = MakeSection(L"DBWIN_BUFFER");
    channel.AskAnew();
    EXPECT_TRUE(channel.IsHeard());
}

TEST_F(TraceReceiver, ThatComesInTheMiddleIsFoundWithoutANewCall) {
    TraceChannel channel;
    EXPECT_FALSE(channel.IsHeard());
    const Handle section = MakeSection(L"DBWIN_BUFFER");
    Sleep(300);
    EXPECT_TRUE(channel.IsHeard());
}

/// What a viewer of debugger output does: two events and a section.
class Viewer {
  public:
    Viewer()
        : ready_(CreateEventW(nullptr, FALSE, FALSE, L"DBWIN_BUFFER_READY")),
          data_(CreateEventW(nullptr, FALSE, FALSE, L"DBWIN_DATA_READY")),
          section_(MakeSection(L"DBWIN_BUFFER")),
          view_(static_cast<const char*>(MapViewOfFile(section_.Get(), FILE_MAP_READ, 0, 0, bufferSize))) {}
    ~Viewer() {
        Stop();
        UnmapViewOfFile(view_);
    }
    Viewer(const Viewer&) = delete;
    Viewer& operator=(const Viewer&) = delete;

    void Start() {
        thread_ = std::thread([this] {
            SetEvent(ready_.Get());
            while (WaitForSingleObject(data_.Get(), 10'000) == WAIT_OBJECT_0 && !stop_) {
                lines_.emplace_back(view_ + sizeof(DWORD));
                SetEvent(ready_.Get());
            }
        });
    }
    /// The lines that came.
    const std::vector<std::string>& Stop() {
        if (!thread_.joinable()) return lines_;
        // The buffer is free again once the last line has been taken.
        WaitForSingleObject(ready_.Get(), 10'000);
        stop_ = true;
        SetEvent(data_.Get());
        thread_.join();
        return lines_;
    }

  private:
    const Handle ready_;
    const Handle data_;
    const Handle section_;
    const char* const view_;
    std::atomic<bool> stop_ = false;
    std::vector<std::string> lines_;
    std::thread thread_;
};

TEST_F(TraceReceiver, ReceivesLinesOfAnyLengthInTheSystemsCodePage) {
    Viewer viewer;
    viewer.Start();
    const std::string longLine(3000, 'l');
    // One byte below, at and above what usual lines have room for.
    const std::vector<std::string> lines = {"",
                                            "ctlFolderTree: Inbox",
                                            "ctlFolderTree: \xC3\x84pfel",
                                            std::string(510, 'a'),
                                            std::string(511, 'b'),
                                            std::string(512, 'c'),
                                            "\xC3\x84" + longLine};
    TraceChannel channel;
    for (const std::string& line : lines) channel.Write(line);
    const auto ansi = [](const std::string& utf8) {
        std::wstring wide(utf8.size(), L'\0');
        wide.resize(static_cast<size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()),
                                                            wide.data(), static_cast<int>(wide.size()))));
        std::string text(4 * utf8.size() + 1, '\0');
        text.resize(
            static_cast<size_t>(WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()), text.data(),
                                                    static_cast<int>(text.size()), nullptr, nullptr)));
        return text;
    };
    std::vector<std::string> expected;
    for (const std::string& line : lines) expected.push_back(ansi(line));
    EXPECT_EQ(viewer.Stop(), expected);
}

TEST_F(TraceReceiver, ThatTakesNoLinesIsToldOfAndLeftAlone) {
    TraceChannel channel;
    {
        const Viewer viewer;  // its buffer is taken, and stays so
        EXPECT_TRUE(channel.IsHeard());
        channel.Write("ctlFolderTree: a line");
        EXPECT_FALSE(channel.IsHeard());
        channel.AskAnew();
        EXPECT_FALSE(channel.IsHeard()) << "it would cost the next call seconds a line again";
    }
    channel.AskAnew();
    EXPECT_FALSE(channel.IsHeard());
    Viewer another;
    another.Start();
    channel.AskAnew();
    EXPECT_TRUE(channel.IsHeard());
    channel.Write("ctlFolderTree: another line");
    EXPECT_EQ(another.Stop(), std::vector<std::string>{"ctlFolderTree: another line"});
}

}  // namespace
}  // namespace foldertree
