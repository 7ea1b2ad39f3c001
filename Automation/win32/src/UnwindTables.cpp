// UnwindTables: lets an x86 DLL throw and catch whatever C++ runtime the process has loaded before it; compiled into
// each COM server.
//
// On x86 the start code of a module hands its unwind tables to libgcc_s_dw2-1.dll, where the process has that DLL. Our
// servers carry an unwinder of their own. It then knows none of their frames, and the first exception would end the
// process, caught or not. x64 is not concerned: there Windows knows the tables of every module.
#ifdef __i386__

#include <windows.h>

#include <cstdlib>

// A label anywhere in the unwind tables of this module: the image says where the section around it begins.
asm(".section .eh_frame,\"dr\"\n"
    ".globl _foldertree_unwind_tables\n"
    "_foldertree_unwind_tables:\n"
    ".text");

extern "C" {

extern const char foldertree_unwind_tables[];
extern const IMAGE_DOS_HEADER __ImageBase;

// What libgcc's unwinder offers to start code.
struct UnwindBases {
    const void* text;
    const void* data;
    const void* function;
};
const void* _Unwind_Find_FDE(const void* address, UnwindBases* bases);
void __register_frame_info(const void* tables, void* room);
void* __deregister_frame_info(const void* tables);

}  // extern "C"

namespace {

/// The unwinder's note of the tables: six words, and some to spare.
void* room[16];

const char* TablesOfThisModule() {
    const auto* image = reinterpret_cast<const char*>(&__ImageBase);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(image + __ImageBase.e_lfanew);
    const IMAGE_SECTION_HEADER* section = IMAGE_FIRST_SECTION(headers);
    const auto label = static_cast<DWORD>(foldertree_unwind_tables - image);
    for (WORD i = 0; i < headers->FileHeader.NumberOfSections; ++i) {
        const DWORD begin = section[i].VirtualAddress;
        if (label >= begin && label - begin < section[i].Misc.VirtualSize) return image + begin;
    }
    return nullptr;
}

void TakeBack() {
    __deregister_frame_info(TablesOfThisModule());
}

/// Before any other constructor, so that those may throw; what is registered first for the end is done last.
__attribute__((constructor(101))) void RegisterWithOurUnwinder() {
    UnwindBases bases;
    if (_Unwind_Find_FDE(reinterpret_cast<const void*>(&TablesOfThisModule), &bases) != nullptr) return;
    const char* tables = TablesOfThisModule();
    if (tables == nullptr || std::atexit(TakeBack) != 0) return;
    __register_frame_info(tables, room);
}

}  // namespace

#endif
