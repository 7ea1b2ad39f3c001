// NOXMapiServer: the class of NOXMapi.dll.
#include <windows.h>

#include "automation_win32/ComServer.h"
#include "automation_win32/Crossing.h"
#include "noxmapi/NOXMAPIUtils.h"

automation::ComServer automation::DescribeServer(HMODULE module) {
    constexpr CLSID utilsClass = {0x79bbc2e4, 0x9cb4, 0x4ec3, {0xa2, 0xbd, 0xa4, 0xda, 0xbd, 0xd4, 0x9a, 0xc6}};
    return {module, false, {{utilsClass, L"NOXMAPI.NOXMAPIUtils", L"MAPI property reader", [] {
                                 return ToCom(std::make_shared<noxmapi::NOXMAPIUtils>());
                             }}}};
}
