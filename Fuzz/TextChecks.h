// TextChecks: what must be true of every text, whatever its bytes; each check ends the program where it is not.
#pragma once

#include <string_view>

namespace fuzz {

void CheckUtf16(std::string_view text);
void CheckCharacters(std::string_view text);
void CheckCaseFolding(std::string_view text);
void CheckModifiedUtf7(std::string_view text);
void CheckIdentifiers(std::string_view text);

void CheckNumbersInText(std::string_view text);
/// The bytes of the text are the numbers.
void CheckNumbers(std::string_view text);
void CheckConversions(std::string_view text);

}  // namespace fuzz
