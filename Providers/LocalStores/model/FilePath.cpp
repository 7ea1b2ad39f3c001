// FilePath: bytes on POSIX systems, UTF-16 on Windows.
#include "model/FilePath.h"

#include "automation/Text.h"

namespace localstores {

#ifdef _WIN32
// The conversions of std::filesystem throw at a lone surrogate, which a file name may have.
std::filesystem::path PathOf(std::string_view text) {
    const std::u16string wide = automation::ToUtf16(text);
    return std::wstring(wide.begin(), wide.end());
}

std::string TextOf(const std::filesystem::path& path) {
    const std::wstring& wide = path.native();
    return automation::FromUtf16(std::u16string(wide.begin(), wide.end()));
}
#else
std::filesystem::path PathOf(std::string_view text) {
    return text;
}

std::string TextOf(const std::filesystem::path& path) {
    return path.native();
}
#endif

}  // namespace localstores
