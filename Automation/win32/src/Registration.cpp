// Registration: the keys are written by hand, those of the type library too, since they must go under the user's
// classes as well and leave nothing behind there.
#include "Registration.h"

#include <oleauto.h>

#include <algorithm>
#include <charconv>
#include <functional>
#include <optional>

#include "RegistryEdit.h"
#include "automation_win32/Bstr.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Module.h"
#include "automation_win32/RegistryRows.h"

namespace automation {

namespace {

const std::wstring dispatchMarshaler = L"{00020420-0000-0000-C000-000000000046}";
const std::wstring automationMarshaler = L"{00020424-0000-0000-C000-000000000046}";
#ifdef _WIN64
const std::wstring platformKey = L"win64";
#else
const std::wstring platformKey = L"win32";
#endif

std::wstring GuidText(const GUID& guid) {
    wchar_t buffer[40];
    return std::wstring(buffer, static_cast<size_t>(StringFromGUID2(guid, buffer, 40)) - 1);
}

std::wstring FolderOf(const std::wstring& path) {
    return path.substr(0, path.find_last_of(L'\\'));
}

/// What the keys tell of a type library.
struct Library {
    ComPtr<ITypeLib> types;
    std::wstring id;
    std::wstring version;
    std::wstring title;
};

// The library's own ways to write a number as wide text would bring a second printf along.
std::wstring Hexadecimal(WORD number) {
    char buffer[8];
    return ToWide(std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, number, 16).ptr));
}
std::wstring Decimal(int64_t number) {
    return ToWide(std::to_string(number));
}

Library LoadLibraryOf(const std::wstring& path) {
    Library library;
    Check(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.types.GetAddressOf()));
    TLIBATTR* described = nullptr;
    Check(library.types->GetLibAttr(&described));
    const TLIBATTR attributes = *described;
    library.types->ReleaseTLibAttr(described);
    library.id = GuidText(attributes.guid);
    library.version = Hexadecimal(attributes.wMajorVerNum) + L"." + Hexadecimal(attributes.wMinorVerNum);
    OwnedBstr title;
    if (SUCCEEDED(library.types->GetDocumentation(-1, nullptr, title.Out(), nullptr, nullptr)))
        library.title = title.Wide();
    return library;
}

struct Interface {
    std::wstring id;
    std::wstring name;
    bool dispatchOnly;
};

/// The interfaces that other apartments may get hold of.
void ForEachInterface(const Library& library, const std::function<void(const Interface&)>& action) {
    const UINT count = library.types->GetTypeInfoCount();
    for (UINT i = 0; i < count; ++i) {
        ComPtr<ITypeInfo> info;
        TYPEATTR* described = nullptr;
        Check(library.types->GetTypeInfo(i, info.GetAddressOf()));
        Check(info->GetTypeAttr(&described));
        const TYPEATTR attributes = *described;
        info->ReleaseTypeAttr(described);
        const bool dual = (attributes.wTypeFlags & TYPEFLAG_FDUAL) != 0;
        const bool dispatch = attributes.typekind == TKIND_DISPATCH;
        const bool automatic =
            attributes.typekind == TKIND_INTERFACE && (attributes.wTypeFlags & TYPEFLAG_FOLEAUTOMATION) != 0;
        if (!dispatch && !automatic) continue;
        OwnedBstr name;
        Check(info->GetDocumentation(MEMBERID_NIL, name.Out(), nullptr, nullptr, nullptr));
        action({GuidText(attributes.guid), name.Wide(), dispatch && !dual});
    }
}

/// The rows of what is registered, in the order in which they are written.
using Rows = std::vector<RegistryRow>;

void AddLibrary(const Library& library, const std::wstring& path, Rows& rows) {
    const std::wstring key = L"TypeLib\\" + library.id + L"\\" + library.version;
    rows.push_back({key, L"", library.title});
    rows.push_back({key + L"\\0\\" + platformKey, L"", path});
    rows.push_back({key + L"\\FLAGS", L"", L"0"});
    rows.push_back({key + L"\\HELPDIR", L"", FolderOf(path)});
    ForEachInterface(library, [&](const Interface& interface_) {
        const std::wstring interfaceKey = L"Interface\\" + interface_.id;
        rows.push_back({interfaceKey, L"", interface_.name});
        rows.push_back({interfaceKey + L"\\ProxyStubClsid32", L"",
                        interface_.dispatchOnly ? dispatchMarshaler : automationMarshaler});
        rows.push_back({interfaceKey + L"\\TypeLib", L"", library.id});
        rows.push_back({interfaceKey + L"\\TypeLib", L"Version", library.version});
    });
}

/// The build for the other processor may be registered too, and then its part of the library stays.
void RemoveLibrary(const Library& library, const RegistryKey& classes) {
    const std::wstring key = L"TypeLib\\" + library.id;
    const std::wstring version = key + L"\\" + library.version;
    const std::wstring other = platformKey == L"win64" ? L"win32" : L"win64";
    const bool shared = !classes.Read(version + L"\\0\\" + other, L"").empty();
    classes.RemoveTree(version + L"\\0\\" + platformKey);
    if (!shared) {
        classes.RemoveTree(version);
        classes.RemoveIfBare(key);
    }
    ForEachInterface(library, [&](const Interface& interface_) {
        const std::wstring interfaceKey = L"Interface\\" + interface_.id;
        if (classes.Read(interfaceKey + L"\\TypeLib", L"") == library.id) classes.RemoveTree(interfaceKey);
    });
}

void AddClass(const ServerClass& entry, const std::wstring& path, const std::optional<Library>& library, Rows& rows) {
    const std::wstring id = GuidText(entry.clsid);
    const std::wstring key = L"CLSID\\" + id;
    rows.push_back({entry.progId, L"", entry.title});
    rows.push_back({entry.progId + L"\\CLSID", L"", id});
    rows.push_back({key, L"", entry.title});
    rows.push_back({key + L"\\ProgID", L"", entry.progId});
    rows.push_back({key + L"\\InprocServer32", L"", path});
    rows.push_back({key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"});
    rows.push_back({key + L"\\Programmable", L"", L""});
    if (library) {
        rows.push_back({key + L"\\TypeLib", L"", library->id});
        rows.push_back({key + L"\\Version", L"", library->version});
    }
    if (entry.miscStatus != 0) {
        rows.push_back({key + L"\\Control", L"", L""});
        rows.push_back({key + L"\\MiscStatus", L"", L"0"});
        rows.push_back({key + L"\\MiscStatus\\1", L"", Decimal(entry.miscStatus)});
    }
    // After the name come the flags of the menu's entry (none) and OLEVERBATTRIB_ONCONTAINERMENU.
    for (const ServerVerb& verb : entry.verbs)
        rows.push_back({key + L"\\Verb\\" + Decimal(verb.number), L"", verb.name + L",0,2"});
    if (entry.toolbarBitmap != 0)
        rows.push_back({key + L"\\ToolboxBitmap32", L"", path + L", " + Decimal(entry.toolbarBitmap)});
}

std::optional<Library> LibraryOf(const ComServer& server, const std::wstring& path) {
    if (!server.hasTypeLibrary) return std::nullopt;
    return LoadLibraryOf(path);
}

bool IsWanted(const ServerClass& entry, const std::vector<std::wstring>& options) {
    return entry.option.empty() || std::any_of(options.begin(), options.end(), [&](const std::wstring& option) {
               return _wcsicmp(option.c_str(), entry.option.c_str()) == 0;
           });
}

bool HoldsProgId(const ServerClass& entry, const RegistryKey& classes) {
    return entry.option.empty() || classes.Read(entry.progId + L"\\CLSID", L"") == GuidText(entry.clsid);
}

/// Another maker may have registered the name where we write, or elsewhere, which the system knows.
void ThrowIfTaken(const ServerClass& entry, const RegistryKey& classes) {
    CLSID found;
    if (FAILED(CLSIDFromProgID(entry.progId.c_str(), &found))) found = entry.clsid;
    const bool takenHere = !classes.Read(entry.progId + L"\\CLSID", L"").empty() && !HoldsProgId(entry, classes);
    if (takenHere || found != entry.clsid) Check(HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS));
}

}  // namespace

std::vector<RegistryRow> RegistryRows(const ComServer& server, const std::vector<std::wstring>& options,
                                      const std::wstring& path) {
    const std::optional<Library> library = LibraryOf(server, ModulePath(server.module));
    Rows rows;
    if (library) AddLibrary(*library, path, rows);
    for (const ServerClass& entry : server.classes)
        if (IsWanted(entry, options)) AddClass(entry, path, library, rows);
    return rows;
}

void WriteServerKeys(const ComServer& server, const std::vector<std::wstring>& options, const RegistryKey& classes) {
    for (const ServerClass& entry : server.classes)
        if (!entry.option.empty() && IsWanted(entry, options)) ThrowIfTaken(entry, classes);
    RegistryEdit edit(classes);
    for (const RegistryRow& row : RegistryRows(server, options, ModulePath(server.module)))
        edit.Write(row.key, row.name, row.text);
    edit.Keep();
}

void RemoveServerKeys(const ComServer& server, const RegistryKey& classes) {
    // What cannot be removed must not keep the rest in place; the first failure is told at the end.
    std::optional<Error> failure;
    const auto attempt = [&failure](const auto& step) {
        try {
            step();
        } catch (const Error& error) {
            if (!failure) failure = error;
        }
    };
    for (const ServerClass& entry : server.classes) {
        attempt([&] {
            if (HoldsProgId(entry, classes)) classes.RemoveTree(entry.progId);
        });
        attempt([&] { classes.RemoveTree(L"CLSID\\" + GuidText(entry.clsid)); });
    }
    attempt([&] {
        if (const std::optional<Library> library = LibraryOf(server, ModulePath(server.module)))
            RemoveLibrary(*library, classes);
    });
    // A user's classes may have been empty before us.
    for (const wchar_t* folder : {L"CLSID", L"Interface", L"TypeLib"}) attempt([&] { classes.RemoveIfBare(folder); });
    if (failure) throw *failure;
}

}  // namespace automation
