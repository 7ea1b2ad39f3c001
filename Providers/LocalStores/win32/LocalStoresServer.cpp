// LocalStoresServer: the class of LocalStores.dll.
#include <windows.h>

#include "automation_win32/ComServer.h"
#include "automation_win32/Crossing.h"
#include "localstores/RdoSession.h"

automation::ComServer automation::DescribeServer(HMODULE module) {
    // {081D4C38-B346-4303-BB78-F95EEA5CCF3E}
    constexpr CLSID sessionClass = {0x081d4c38, 0xb346, 0x4303, {0xbb, 0x78, 0xf9, 0x5e, 0xea, 0x5c, 0xcf, 0x3e}};
    return {.module = module,
            .classes = {{.clsid = sessionClass,
                         .progId = L"LocalStores.Session",
                         .title = L"Local mail stores (PST files, Maildir trees, a sample mailbox)",
                         .make = [] { return ToCom(localstores::MakeRdoSession()); }}}};
}
