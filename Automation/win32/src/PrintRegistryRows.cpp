// PrintRegistryRows: a program of each COM server that prints what the server registers, a row a line: key, name and
// text separated by tabs, in UTF-8. The module's path is its file name in the folder "[Folder]".
#include <cstdio>

#include "automation_win32/Bstr.h"
#include "automation_win32/ComError.h"
#include "automation_win32/RegistryRows.h"

int wmain(int argumentCount, wchar_t** arguments) {
    if (argumentCount != 2) {
        std::fprintf(stderr, "usage: print-registry-rows FILE-NAME\n");
        return 2;
    }
    const HRESULT result = automation::ComBoundary([&] {
        const automation::ComServer server = automation::DescribeServer(GetModuleHandleW(nullptr));
        for (const auto& [key, name, text] :
             automation::RegistryRows(server, {}, std::wstring(L"[Folder]\\") + arguments[1]))
            std::printf("%s\t%s\t%s\n", automation::FromWide(key).c_str(), automation::FromWide(name).c_str(),
                        automation::FromWide(text).c_str());
        return S_OK;
    });
    if (FAILED(result)) std::fprintf(stderr, "print-registry-rows: 0x%08lX\n", static_cast<unsigned long>(result));
    return FAILED(result) ? 1 : 0;
}
