// TextPool: what is worked out once for each shared text.
#include "rows/TextPool.h"

#include <algorithm>
#include <array>

#include "automation/Text.h"
#include "rows/KeyHash.h"

namespace foldertree {

double NumberOfText(std::string_view text) {
    if (text.empty()) return 0;
    if (automation::EqualNoCase(text, "True")) return -1;
    return automation::Val(text);
}

namespace {

uint64_t HashStart(char prefix, std::string_view text) {
    if (text.size() >= keyStartBytes) return HashKeyStart(text);  // the prefix lies before what is hashed
    std::array<char, keyStartBytes> start;
    start[0] = prefix;
    std::copy(text.begin(), text.end(), start.begin() + 1);
    return HashKeyStart({start.data(), text.size() + 1});
}

}  // namespace

std::optional<uint64_t> PooledText::KeyPartHash(char prefix, char separator) const noexcept {
    if (keyPart_ == unknown) {
        keyPart_ = automation::IsAscii(text_) && text_.find(separator) == text_.npos ? usable : unusable;
        if (keyPart_ == usable) keyPartHash_ = HashStart(prefix, text_);
    }
    if (keyPart_ == unusable) return std::nullopt;
    return keyPartHash_;
}

}  // namespace foldertree
