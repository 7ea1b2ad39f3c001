// ComObjectFactory: CoCreateInstance by ProgID.
#include "automation_win32/ComObjectFactory.h"

#include <windows.h>

#include <objbase.h>

#include "automation_win32/Bstr.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Crossing.h"

namespace automation {

ObjectRef ComObjectFactory::Create(std::string_view progId) {
    CLSID clsid{};
    const HRESULT found = CLSIDFromProgID(ToWide(progId).c_str(), &clsid);
    // An unknown name and a name whose class is gone are the same thing to whoever wants the object.
    if (FAILED(found)) throw FromHresult(found == CO_E_CLASSSTRING ? REGDB_E_CLASSNOTREG : found);
    ComPtr<IUnknown> object;
    Check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                           IID_PPV_ARGS(object.GetAddressOf())));
    return FromCom(object.Get());
}

}  // namespace automation
