// LoadByComBench: what a folder costs when the control reads the mail through COM, in a window that is shown, in each
// access mode; and what of that the mail itself takes, read by the same calls with no control.
//
// load_by_com_bench [folders [mode]]; FOLDERTREE_TRACE=ask measures a control that nobody listens to, also under Wine.
#include <windows.h>

#include <objbase.h>
#include <ocidl.h>
#include <psapi.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "automation/Collection.h"
#include "automation/Error.h"
#include "automation/Object.h"
#include "automation_win32/ComError.h"
#include "automation_win32/ComObjectFactory.h"
#include "automation_win32/ComPtr.h"
#include "automation_win32/Crossing.h"

namespace {

using automation::Check;
using automation::Collection;
using automation::ComPtr;
using automation::ObjectRef;
using automation::Value;

/// A window with the control in a container that is not ours.
class Form {
  public:
    Form() {
        using CreateControl = HRESULT WINAPI(LPCOLESTR, HWND, IStream*, IUnknown**, IUnknown**, REFIID, IUnknown*);
        const HMODULE atl = LoadLibraryW(L"atl100.dll");
        auto* const create =
            reinterpret_cast<CreateControl*>(reinterpret_cast<void*>(GetProcAddress(atl, "AtlAxCreateControlEx")));
        if (create == nullptr) throw automation::Error(static_cast<uint32_t>(E_NOTIMPL), "there is no atl100.dll");
        window_ = CreateWindowExW(0, L"STATIC", L"Load", WS_POPUP | WS_CLIPCHILDREN, 20, 20, 500, 600, nullptr, nullptr,
                                  nullptr, nullptr);
        ShowWindow(window_, SW_SHOWNA);
        ComPtr<IUnknown> control;
        Check(create(L"FolderTree.ctlFolderTree", window_, nullptr, container_.GetAddressOf(), control.GetAddressOf(),
                     IID_NULL, nullptr));
        tree_ = automation::FromCom(control.Get());
    }
    ~Form() {
        tree_ = nullptr;
        container_ = nullptr;
        DestroyWindow(window_);
    }
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    automation::Object& Tree() const { return *tree_; }

  private:
    HWND window_ = nullptr;
    ComPtr<IUnknown> container_;
    ObjectRef tree_;
};

double Megabytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<double>(counters.WorkingSetSize) / 1e6;  // Wine tells nothing of private bytes
}

/// The process's own time; what other processes take, or the window system, is not in it.
double ProcessorSeconds() {
    FILETIME unused{};
    ULARGE_INTEGER kernel{};
    ULARGE_INTEGER user{};
    GetProcessTimes(GetCurrentProcess(), &unused, &unused, reinterpret_cast<FILETIME*>(&kernel),
                    reinterpret_cast<FILETIME*>(&user));
    return static_cast<double>(kernel.QuadPart + user.QuadPart) / 1e7;
}

template <class Work>
double Seconds(Work&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void PaintAll() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

/// The control's load in one mode, until its window shows the tree.
void MeasureLoad(const char* name, int32_t mode, automation::ComObjectFactory& factory, const ObjectRef& session) {
    const Form form;
    automation::Object& tree = form.Tree();
    if (mode == 2) tree.PutRef("Application", factory.Create("LocalStores.Application"));
    tree.PutRef("RDOSessionRef", session);
    tree.Put("InfoStoreAccessMode", mode);
    const double before = Megabytes();
    const double processor = ProcessorSeconds();
    const double seconds = Seconds([&] {
        tree.Put("ExtendToLevel", 0);  // reads the tree
        PaintAll();
    });
    const double worked = ProcessorSeconds() - processor;
    const int32_t rows = tree.Get("ListCount").ToLong();
    std::printf("%-28s %9d rows %9.3f s %8.2f us a row, %8.2f us of our processor time, %8.1f MB more\n", name, rows,
                seconds, seconds * 1e6 / rows, worked * 1e6 / rows, Megabytes() - before);
    std::fflush(stdout);
}

int32_t Walk(const ObjectRef& folders) {
    int32_t count = 0;
    const auto walk = Collection(folders).Walk();
    Value folder;
    while (walk->Next(folder)) {
        ++count;
        folder.RequireObject()->Get("Name");
        folder.RequireObject()->Get("EntryID");
        count += Walk(folder.RequireObject()->Get("Folders").RequireObject());
    }
    return count;
}

/// A walk over one mail client's objects by the same kind of calls: three a folder, and its enumeration.
void MeasureWalk(automation::ComObjectFactory& factory) {
    const ObjectRef mail = factory.Create("LocalStores.Application");
    int32_t count = 0;
    const double seconds = Seconds(
        [&] { count = Walk(mail->Get("GetNamespace", "MAPI").RequireObject()->Get("Folders").RequireObject()); });
    std::printf("%-28s %9d rows %9.3f s %8.2f us a row\n", "three calls a folder, alone", count, seconds,
                seconds * 1e6 / count);
}

void Run(int32_t folders, int32_t first, int32_t last) {
    automation::ComObjectFactory factory;
    const ObjectRef session = factory.Create("LocalStores.Session");
    session->Get("Open", "sample?folders=" + std::to_string(folders));
    MeasureWalk(factory);
    constexpr const char* modes[] = {"mode 0, RDO tables", "mode 1, RDO objects", "mode 2, Outlook", "mode 3, CDO"};
    for (int32_t mode = first; mode <= last; ++mode) MeasureLoad(modes[mode], mode, factory, session);
}

}  // namespace

int main(int count, char** arguments) {
    OleInitialize(nullptr);
    int result = 0;
    try {
        const int32_t folders = count > 1 ? std::atoi(arguments[1]) : 20'000;
        const int32_t only = count > 2 ? std::clamp(std::atoi(arguments[2]), 0, 3) : -1;
        Run(folders, only < 0 ? 0 : only, only < 0 ? 3 : only);
    } catch (const automation::Error& error) {
        std::printf("Error 0x%X: %s\n", error.Number(), error.Text().c_str());
        result = 1;
    }
    OleUninitialize();
    return result;
}
