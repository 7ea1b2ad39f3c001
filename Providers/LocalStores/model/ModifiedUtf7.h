// ModifiedUtf7: the spelling of mailbox names in IMAP and in Maildir++ directories.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace localstores {

/// The name as UTF-8, or nothing when the text is not well-formed modified UTF-7.
std::optional<std::string> FromModifiedUtf7(std::string_view text);

}  // namespace localstores
