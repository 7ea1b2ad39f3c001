// Guids: the identifiers that the system's headers declare, each in a section of its own, of which the linker keeps
// those in use; compiled into each COM server. The system's library has all of them in one piece. An identifier that is
// missing here makes the linker fetch that piece and complain of two definitions.
#include <initguid.h>

#include <windows.h>

#include <ocidl.h>
#include <oleauto.h>
#include <olectl.h>

// The headers declare these, and leave their values to the library.
extern "C" {
extern const IID GUID_NULL;
extern const IID IID_IUnknown;
extern const CLSID CLSID_StdFont;
const IID GUID_NULL = {0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 0}};
const IID IID_IUnknown = {0x00000000, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const CLSID CLSID_StdFont = {0x0be35203, 0x8f91, 0x11ce, {0x9d, 0xe3, 0x00, 0xaa, 0x00, 0x4b, 0xb8, 0x51}};
}
