// TextsTarget: fuzzes texts, numbers, modified UTF-7 and identifiers; the first byte chooses the check.
#include <iterator>

#include "FuzzInput.h"
#include "TextChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static constexpr void (*checks[])(std::string_view) = {
        fuzz::CheckUtf16,       fuzz::CheckCharacters,    fuzz::CheckCaseFolding, fuzz::CheckModifiedUtf7,
        fuzz::CheckIdentifiers, fuzz::CheckNumbersInText, fuzz::CheckNumbers,     fuzz::CheckConversions};
    fuzz::FuzzInput input(data, size);
    const size_t chosen = input.TakeByte() % std::size(checks);
    checks[chosen](input.Rest());
    return 0;
}
