// TextPool: what is worked out once for each shared text.
#include "rows/TextPool.h"

#include "automation/Text.h"
#include "rows/KeyHash.h"

namespace foldertree {

double NumberOfText(std::string_view text) {
    if (text.empty()) return 0;
    if (automation::EqualNoCase(text, "True")) return -1;
    return automation::Val(text);
}

std::optional<uint64_t> PooledText::KeyPartHash() const {
    if (keyPart_ == unknown) {
        keyPart_ = automation::IsAscii(text_) && text_.find('|') == text_.npos ? usable : unusable;
        if (keyPart_ == usable) keyPartHash_ = HashKeyStart("S" + text_);
    }
    if (keyPart_ == unusable) return std::nullopt;
    return keyPartHash_;
}

}  // namespace foldertree
