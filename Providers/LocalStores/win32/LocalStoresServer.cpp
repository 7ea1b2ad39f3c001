// LocalStoresServer: the classes of LocalStores.dll.
#include <windows.h>

#include "automation_win32/ComServer.h"
#include "automation_win32/Crossing.h"
#include "localstores/CdoSession.h"
#include "localstores/OutlookApplication.h"
#include "localstores/RdoSession.h"

namespace {

// {081D4C38-B346-4303-BB78-F95EEA5CCF3E}
constexpr CLSID sessionClass = {0x081d4c38, 0xb346, 0x4303, {0xbb, 0x78, 0xf9, 0x5e, 0xea, 0x5c, 0xcf, 0x3e}};
// {09EA0CB4-C862-435E-864F-4276AC0973B9}
constexpr CLSID applicationClass = {0x09ea0cb4, 0xc862, 0x435e, {0x86, 0x4f, 0x42, 0x76, 0xac, 0x09, 0x73, 0xb9}};
// {64D4354C-7510-4D71-855D-7917D2D0FDBA}
constexpr CLSID cdoSessionClass = {0x64d4354c, 0x7510, 0x4d71, {0x85, 0x5d, 0x79, 0x17, 0xd2, 0xd0, 0xfd, 0xba}};
// {242D0384-4D98-46E8-9754-2888501A6B05}
constexpr CLSID mapiSessionClass = {0x242d0384, 0x4d98, 0x46e8, {0x97, 0x54, 0x28, 0x88, 0x50, 0x1a, 0x6b, 0x05}};

automation::ServerClass MakeClass(const CLSID& clsid, const wchar_t* progId, const wchar_t* title,
                                  automation::ObjectRef (*make)()) {
    automation::ServerClass entry;
    entry.clsid = clsid;
    entry.progId = progId;
    entry.title = title;
    entry.make = [make] { return automation::ToCom(make()); };
    return entry;
}

}  // namespace

automation::ComServer automation::DescribeServer(HMODULE module) {
    using namespace localstores;
    ServerClass mapiSession =
        MakeClass(mapiSessionClass, L"MAPI.Session", L"Local mail stores in place of the CDO library", MakeCdoSession);
    mapiSession.option = L"mapi-session";
    return {.module = module,
            .classes = {
                MakeClass(sessionClass, L"LocalStores.Session",
                          L"Local mail stores (PST files, Maildir and mbox trees, a sample mailbox)", MakeRdoSession),
                MakeClass(applicationClass, L"LocalStores.Application",
                          L"Local mail stores as a mail client's object model", MakeOutlookApplication),
                MakeClass(cdoSessionClass, L"LocalStores.CdoSession", L"Local mail stores as a CDO session",
                          MakeCdoSession),
                mapiSession}};
}
