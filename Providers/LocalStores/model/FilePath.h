// FilePath: file names as text and back.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace localstores {

/// Both ways keep every name, also one that is no well-formed text.
std::filesystem::path PathOf(std::string_view text);
std::string TextOf(const std::filesystem::path& path);

}  // namespace localstores
