// Error: how a failed automation call is told, and the error numbers that the libraries and their hosts know.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace automation {

/// A failed automation call, or a failure of our own that is told in the same way.
/// Thrown where the failure enters the program; caught only at the error edges of each project.
class Error : public std::exception {
  public:
    /// `number` is an HRESULT (an EXCEPINFO's scode where there is one) or one of the small numbers that Visual Basic
    /// hosts know. `text` is UTF-8 and may be empty.
    Error(uint32_t number, std::string text) : number_(number), text_(std::move(text)) {}

    uint32_t Number() const { return number_; }
    const std::string& Text() const { return text_; }

    /// The source line of the outermost automation call that failed; 0 when none is known.
    int Line() const { return line_; }
    void SetLine(int line) { line_ = line; }

    const char* what() const noexcept override { return text_.c_str(); }

  private:
    uint32_t number_;
    std::string text_;
    int line_ = 0;
};

/// Error numbers. The small ones are Visual Basic's run-time errors, which automation hosts know; the others are
/// HRESULTs from winerror.h and mapicode.h.
namespace errors {
inline constexpr uint32_t invalidCall = 5;     // Invalid procedure call or argument (also: unknown collection key)
inline constexpr uint32_t overflow = 6;        // Overflow
inline constexpr uint32_t subscript = 9;       // Subscript out of range
inline constexpr uint32_t typeMismatch = 13;   // Type mismatch
inline constexpr uint32_t objectNotSet = 91;   // Object variable or With block variable not set
inline constexpr uint32_t cannotCreate = 429;  // ActiveX component can't create object
inline constexpr uint32_t noSuchMember = 438;  // Object doesn't support this property or method
inline constexpr uint32_t duplicateKey = 457;  // This key is already associated with an element of this collection
inline constexpr uint32_t unspecified = 0x80004005;      // E_FAIL
inline constexpr uint32_t outOfMemory = 0x8007000E;      // E_OUTOFMEMORY
inline constexpr uint32_t invalidArgument = 0x80070057;  // E_INVALIDARG
inline constexpr uint32_t memberNotFound = 0x80020003;   // DISP_E_MEMBERNOTFOUND
inline constexpr uint32_t paramNotFound = 0x80020004;    // DISP_E_PARAMNOTFOUND
inline constexpr uint32_t unknownName = 0x80020006;      // DISP_E_UNKNOWNNAME
inline constexpr uint32_t badParamCount = 0x8002000E;    // DISP_E_BADPARAMCOUNT
inline constexpr uint32_t mapiNotFound = 0x8004010F;     // MAPI_E_NOT_FOUND
inline constexpr uint32_t mapiNoSupport = 0x80040102;    // MAPI_E_NO_SUPPORT
}  // namespace errors

/// The error that Visual Basic raises for one of its own small numbers, with the usual English text.
Error VbError(uint32_t number);

}  // namespace automation
