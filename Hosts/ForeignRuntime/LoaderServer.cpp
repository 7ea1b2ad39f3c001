// LoaderServer: the class ForeignRuntime.Loader, by which a script loads the foreign runtime into its process.
#include <windows.h>

#include "automation/Error.h"
#include "automation/TabledObject.h"
#include "automation_win32/ComServer.h"
#include "automation_win32/Crossing.h"
#include "automation_win32/Module.h"

namespace {

using automation::Arguments;
using automation::Value;

/// Member: `Load()`, which keeps the DLLs loaded until the process ends.
class Loader : public automation::TabledObject<Loader> {
  public:
    static std::span<const automation::MemberEntry<Loader>> Members();
};

Value Load(Loader&, const Arguments&) {
    const std::wstring server = automation::ModulePath(automation::ThisModule());
    const std::wstring library = server.substr(0, server.find_last_of(L'\\') + 1) + L"foreign-runtime\\libstdc++-6.dll";
    // It brings along the unwinder, from the same folder.
    if (LoadLibraryExW(library.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH) == nullptr)
        throw automation::Error(automation::errors::unspecified, "The runtime cannot be loaded.");
    return {};
}

std::span<const automation::MemberEntry<Loader>> Loader::Members() {
    static constexpr automation::MemberEntry<Loader> members[] = {{"Load", Load}};
    return members;
}

}  // namespace

automation::ComServer automation::DescribeServer(HMODULE module) {
    constexpr CLSID loaderClass = {0x912ee8c2, 0x0b95, 0x4a18, {0xb3, 0xc0, 0x58, 0x53, 0x7a, 0xc7, 0x7c, 0x0b}};
    return {module, false, {{loaderClass, L"ForeignRuntime.Loader", L"Loads a C++ runtime", [] {
                                 return ToCom(std::make_shared<Loader>());
                             }}}};
}
