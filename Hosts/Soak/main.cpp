// FolderTreeSoak: a C++ host that uses the registered control over and over, and tells whether anything is left over.
//
//   FolderTreeSoak cycles N    one control after the other: create, load, tick, expand, save, destroy
//   FolderTreeSoak form N      200 controls at once on one form, N times
//   FolderTreeSoak threads N   N cycles on each of two threads, whose controls live at the same time
//   FolderTreeSoak windows N   windows without a control: what the system itself leaves over
//   FolderTreeSoak leak N      leaks a little of each resource, to see that it is found
//
// What the process holds is compared from the 50th cycle on (of forms: from the first). The exit code is 1 when that
// has grown or something of the host's is still referred to.
#include <windows.h>

#include <ole2.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <semaphore>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "ChangedSink.h"
#include "ControlSite.h"
#include "LateBound.h"
#include "Resources.h"

namespace soak {
namespace {

constexpr const wchar_t* controlProgId = L"FolderTree.ctlFolderTree";
constexpr int warmUpCycles = 50;
constexpr int warmUpCyclesOfAThread = warmUpCycles / 2;
constexpr int controlsOnAForm = 200;

std::atomic<int> failures = 0;

void Expect(bool fact, const char* what) {
    if (fact) return;
    ++failures;
    printf("Failed: %s\n", what);
}

void HandleMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

ULONG References(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

HWND NewFrame() {
    const HWND frame = CreateWindowExW(WS_EX_CONTROLPARENT, L"STATIC", L"Soak", WS_POPUP | WS_CLIPCHILDREN, 20, 20, 640,
                                       480, nullptr, nullptr, nullptr, nullptr);
    ShowWindow(frame, SW_SHOWNA);
    return frame;
}

demo::ComPtr<IDispatch> SampleSession() {
    demo::ComPtr<IDispatch> session = demo::CreateByProgId(L"LocalStores.Session");
    demo::Call(session.Get(), L"Open", {L"sample"});
    return session;
}

/// A control on a frame, and a user.
class Placed {
  public:
    Placed(HWND frame, const RECT& place) : site_(demo::Adopt(new demo::ControlSite(frame))) {
        site_->Create(controlProgId, settings_, place);
        sink_ = demo::ChangedSink::Connect(site_->Control(), [this] { ++changed_; });
    }

    void Load(IDispatch* session) const {
        demo::Put(site_->Control(), L"ExtendToLevel", 1);
        demo::PutRef(site_->Control(), L"RDOSessionRef", session);
        demo::Call(site_->Control(), L"RefreshList");
    }
    long Rows() const { return demo::Get(site_->Control(), L"ListCount").AsLong(); }

    /// Ticks the first folder of the first store, and opens it, which reads what is below.
    void TickAndExpand() const {
        for (const WPARAM key : std::initializer_list<WPARAM>{VK_HOME, VK_DOWN, VK_SPACE, VK_RIGHT}) Press(key);
    }
    int Changed() const { return changed_; }

    /// The bag of a form, and a stream.
    void Save() {
        site_->Save(settings_);
        demo::ComPtr<IStream> stream;
        demo::ComPtr<IPersistStreamInit> persist;
        CreateStreamOnHGlobal(nullptr, TRUE, &stream);
        site_->Control()->QueryInterface(IID_PPV_ARGS(&persist));
        Expect(!settings_.empty() && SUCCEEDED(persist->Save(stream.Get(), TRUE)), "the settings are saved");
    }

    void Close() {
        Expect(site_->Control() != nullptr, "there is a control");
        sink_->Disconnect();
        site_->Close();
        Expect(References(sink_.Get()) == 1, "the sink is let go");
        Expect(References(static_cast<IOleClientSite*>(site_.Get())) == 1, "the site is let go");
    }

  private:
    void Press(WPARAM key) const {
        const HWND grid = FindWindowExW(site_->Window(), nullptr, L"ctlFolderTree.Grid", nullptr);
        // Posted, it has a time like a user's key: the control drops what waited for a read.
        PostMessageW(grid, WM_KEYDOWN, key, 1);
        PostMessageW(grid, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
        HandleMessages();
    }

    std::map<std::string, std::string> settings_;
    demo::ComPtr<demo::ControlSite> site_;
    demo::ComPtr<demo::ChangedSink> sink_;
    int changed_ = 0;
};

/// Two threads take turns at each step of a cycle. Wine ends or hangs a process in which two threads draw text of
/// complex scripts at the same time, and the sample mailbox has such names.
void TakeTurn(const std::function<void()>& step) {
    static std::mutex turn;
    const std::lock_guard<std::mutex> lock(turn);
    step();
}

/// `frameFirst`: the host's window goes before the control.
void RunCycle(bool frameFirst) {
    HWND frame = nullptr;
    demo::ComPtr<IDispatch> session;
    std::unique_ptr<Placed> placed;
    TakeTurn([&] {
        frame = NewFrame();
        session = SampleSession();
        placed = std::make_unique<Placed>(frame, RECT{0, 0, 640, 480});
    });
    TakeTurn([&] { placed->Load(session.Get()); });
    TakeTurn([&] {
        const long rows = placed->Rows();
        placed->TickAndExpand();
        Expect(placed->Changed() == 1, "the tick is told");
        Expect(placed->Rows() > rows, "the folder is opened");
    });
    TakeTurn([&] { placed->Save(); });
    TakeTurn([&] {
        if (frameFirst) DestroyWindow(frame);
        placed->Close();
        placed = nullptr;
        Expect(References(session.Get()) == 1, "the session is let go");
        if (!frameFirst) DestroyWindow(frame);
        HandleMessages();
    });
}

void RunForm() {
    const HWND frame = NewFrame();
    const demo::ComPtr<IDispatch> session = SampleSession();
    {
        std::vector<std::unique_ptr<Placed>> controls;
        for (int i = 0; i < controlsOnAForm; ++i) {
            const int left = i % 20 * 32;
            const int top = i / 20 * 48;
            controls.push_back(std::make_unique<Placed>(frame, RECT{left, top, left + 32, top + 48}));
            controls.back()->Load(session.Get());
        }
        for (const auto& placed : controls) {
            placed->TickAndExpand();
            Expect(placed->Changed() == 1, "the tick is told");
        }
        for (const auto& placed : controls) placed->Close();
    }
    Expect(References(session.Get()) == 1, "the session is let go");
    DestroyWindow(frame);
    HandleMessages();
}

/// Windows and objects of the system like those of a cycle.
void RunWindows() {
    const HWND frame = NewFrame();
    const HWND child =
        CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 640, 480, frame, nullptr, nullptr, nullptr);
    CreateWindowExW(0, L"BUTTON", L"Cancel", WS_CHILD | WS_VISIBLE, 0, 0, 80, 24, child, nullptr, nullptr, nullptr);
    demo::CreateByProgId(L"Scripting.Dictionary");
    HandleMessages();
    DestroyWindow(frame);
    HandleMessages();
}

void Leak() {
    constexpr size_t bytes = 200000;
    memset(HeapAlloc(GetProcessHeap(), 0, bytes), 1, bytes);
    CreateSolidBrush(RGB(1, 2, 3));
    CreateMenu();
    CreateEventW(nullptr, FALSE, FALSE, nullptr);
}

void Report(const char* what, int count, int warmUp, DWORD begin, const Resources& first, const Resources& last) {
    const auto comparisons = soak::Compare(first, last);
    printf("%s: %d, compared from %d on, %lu s\n%s", what, count, warmUp, (GetTickCount() - begin) / 1000,
           Describe(comparisons).c_str());
    Expect(!AnyHasGrown(comparisons), "nothing has grown");
}

/// Runs it `count` times and compares what the process holds after `warmUp` of them with what it holds at the end.
void Compare(const char* what, int count, int warmUp, const std::function<void(int round)>& run) {
    const DWORD begin = GetTickCount();
    Resources first;
    for (int round = 0; round < count; ++round) {
        if (round == warmUp) first = Resources::Now();
        run(round);
    }
    Report(what, count, warmUp, begin, first, Resources::Now());
}

/// A thread with an apartment and cycles of its own. It waits before those that the process is compared from, and after
/// the last, until it is told to go on.
class CyclingThread {
  public:
    explicit CyclingThread(int cycles)
        : thread_([this, cycles] {
              OleInitialize(nullptr);
              for (int round = 0; round < cycles; ++round) {
                  if (round == warmUpCyclesOfAThread) Rest();
                  RunCycle(round % 2 == 0);
              }
              Rest();
              OleUninitialize();
          }) {}
    ~CyclingThread() { thread_.join(); }
    CyclingThread(const CyclingThread&) = delete;
    CyclingThread& operator=(const CyclingThread&) = delete;

    void WaitUntilItRests() { resting_.acquire(); }
    void GoOn() { goOn_.release(); }

  private:
    void Rest() {
        resting_.release();
        goOn_.acquire();
    }

    std::binary_semaphore resting_{0};
    std::binary_semaphore goOn_{0};
    std::thread thread_;
};

void RunThreads(int cycles) {
    // While nobody uses it, the control's module goes; here it is to stay, as in a host with a form that is open.
    const auto kept = demo::CreateByProgId(controlProgId);
    const DWORD begin = GetTickCount();
    CyclingThread one(cycles);
    CyclingThread other(cycles);
    const auto measure = [&] {
        one.WaitUntilItRests();
        other.WaitUntilItRests();
        const Resources now = Resources::Now();
        one.GoOn();
        other.GoOn();
        return now;
    };
    const Resources first = measure();
    Report("cycles on each of two threads", cycles, warmUpCyclesOfAThread, begin, first, measure());
}

int Usage() {
    printf("usage: FolderTreeSoak cycles|form|threads|windows|leak N\n");
    return 2;
}

int Run(std::string_view what, int count) {
    if (what == "cycles") {
        Compare("cycles of a control", count, warmUpCycles, [](int round) { RunCycle(round % 2 == 0); });
    } else if (what == "form") {
        Compare("forms with 200 controls", count, 1, [](int) { RunForm(); });
    } else if (what == "threads") {
        RunThreads(count);
    } else if (what == "windows") {
        Compare("cycles without a control", count, warmUpCycles, [](int) { RunWindows(); });
    } else if (what == "leak") {
        Compare("leaks", count, 1, [](int) { Leak(); });
    } else {
        return Usage();
    }
    return failures == 0 ? 0 : 1;
}

}  // namespace
}  // namespace soak

int main(int count, char** arguments) {
    const int rounds = count == 3 ? atoi(arguments[2]) : 0;
    if (rounds <= 0) return soak::Usage();
    OleInitialize(nullptr);
    int result = 1;
    try {
        result = soak::Run(arguments[1], rounds);
    } catch (const demo::AutomationFailure& failure) {
        printf("Failed: %ls\n", failure.Message().c_str());
    }
    OleUninitialize();
    return result;
}
