// ConsolePlatform: the control's platform when it has no window.
#include "ConsolePlatform.h"

#include <cstdio>

#include "localstores/CdoSession.h"
#include "noxmapi/NOXMAPIUtils.h"

void ConsolePlatform::TraceLine(std::string_view line) {
    std::fwrite(line.data(), 1, line.size(), stderr);
    std::fputc('\n', stderr);
}

automation::ObjectRef ConsoleFactory::Create(std::string_view progId) {
    if (automation::SameMember(progId, "NOXMAPI.NOXMAPIUtils")) return std::make_shared<noxmapi::NOXMAPIUtils>();
    if (automation::SameMember(progId, "MAPI.Session")) return localstores::MakeCdoSession();
    constexpr uint32_t classNotRegistered = 0x80040154;  // REGDB_E_CLASSNOTREG
    throw automation::Error(classNotRegistered, "Class not registered: " + std::string(progId));
}
