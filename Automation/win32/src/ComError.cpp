// ComError: what failures are called on both sides.
#include "automation_win32/ComError.h"

#include <utility>

#include "automation_win32/Bstr.h"

namespace automation {

namespace {

constexpr uint32_t vbFacility = 0x800A0000;
constexpr uint32_t lastVbNumber = 0xFFFF;

uint32_t Unsigned(HRESULT result) {
    return static_cast<uint32_t>(result);
}

std::string SystemText(uint32_t number) {
    wchar_t* buffer = nullptr;
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, number, 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
    std::wstring text(buffer == nullptr ? L"" : buffer, length);
    LocalFree(buffer);
    while (!text.empty() && (text.back() == L'\r' || text.back() == L'\n' || text.back() == L' ')) text.pop_back();
    return FromWide(text);
}

std::string TextOf(uint32_t number) {
    if ((number & 0xFFFF0000) == vbFacility) return VbError(number & lastVbNumber).Text();
    return SystemText(number);
}

/// The errors of a call itself have HRESULTs of their own, and hosts take no text with them.
bool IsCallError(uint32_t number) {
    return number == errors::memberNotFound || number == errors::paramNotFound || number == errors::unknownName ||
           number == errors::badParamCount;
}

/// Frees the texts of an EXCEPINFO at the end of a scope.
class TextsOf {
  public:
    explicit TextsOf(EXCEPINFO& info) : info_(info) {}
    ~TextsOf() {
        for (BSTR* text : {&info_.bstrSource, &info_.bstrDescription, &info_.bstrHelpFile})
            SysFreeString(std::exchange(*text, nullptr));
    }
    TextsOf(const TextsOf&) = delete;
    TextsOf& operator=(const TextsOf&) = delete;

  private:
    EXCEPINFO& info_;
};

}  // namespace

Error FromExcepInfo(HRESULT result, EXCEPINFO& info) {
    // Some servers fill it in and return another code.
    const TextsOf texts(info);
    if (result != DISP_E_EXCEPTION) return FromHresult(result);
    if (info.pfnDeferredFillIn != nullptr) info.pfnDeferredFillIn(&info);
    uint32_t number = Unsigned(info.scode);
    if (number == 0) number = info.wCode != 0 ? vbFacility | info.wCode : Unsigned(result);
    const std::string description = FromBstr(info.bstrDescription);
    return Error(number, description.empty() ? TextOf(number) : description);
}

Error FromHresult(HRESULT result) {
    return Error(Unsigned(result), TextOf(Unsigned(result)));
}

void Check(HRESULT result) {
    if (FAILED(result)) throw FromHresult(result);
}

HRESULT ToHresult(uint32_t number) {
    if (number == 0) return E_FAIL;
    return static_cast<HRESULT>(number <= lastVbNumber ? vbFacility | number : number);
}

HRESULT ToExcepInfo(const Error& error, EXCEPINFO* info) noexcept {
    const HRESULT result = ToHresult(error.Number());
    if (info == nullptr || IsCallError(error.Number())) return FAILED(result) ? result : E_FAIL;
    *info = {};
    info->scode = result;
    try {
        if (!error.Text().empty()) info->bstrDescription = ToBstr(error.Text());
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
    return DISP_E_EXCEPTION;
}

}  // namespace automation
