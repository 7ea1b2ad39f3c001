// TextChecks: characters, UTF-16, case, mailbox names and identifiers, each there and back.
#include "TextChecks.h"

#include <algorithm>
#include <optional>
#include <string>

#include "FuzzInput.h"
#include "automation/Text.h"
#include "automation/TextHash.h"
#include "localstores/EntryId.h"
#include "model/ModifiedUtf7.h"

namespace fuzz {
namespace {

using automation::FromUtf16;
using automation::ToUtf16;

/// Any bytes as UTF-16 units, lone surrogates among them.
std::u16string UnitsOf(std::string_view bytes) {
    std::u16string units;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2)
        units += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                       static_cast<unsigned>(static_cast<unsigned char>(bytes[i + 1])) << 8);
    return units;
}

void AppendBase64(std::string& text, std::u16string_view units) {
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+,";
    std::string bits;
    for (const char16_t unit : units)
        for (int bit = 15; bit >= 0; --bit) bits += static_cast<char>(unit >> bit & 1);
    while (bits.size() % 6 != 0) bits += '\0';
    for (size_t i = 0; i < bits.size(); i += 6) {
        size_t digit = 0;
        for (size_t bit = i; bit < i + 6; ++bit) digit = digit * 2 + static_cast<size_t>(bits[bit]);
        text += digits[digit];
    }
}

bool IsPrintable(char16_t unit) {
    return unit >= 0x20 && unit <= 0x7E;
}

/// The encoder that the product has no need of.
std::string ToModifiedUtf7(std::u16string_view units) {
    std::string text;
    while (!units.empty()) {
        const auto run = static_cast<size_t>(std::find_if(units.begin(), units.end(), IsPrintable) - units.begin());
        if (run > 0) {
            text += '&';
            AppendBase64(text, units.substr(0, run));
            text += '-';
            units.remove_prefix(run);
            continue;
        }
        text += units.front() == u'&' ? "&-" : std::string(1, static_cast<char>(units.front()));
        units.remove_prefix(1);
    }
    return text;
}

}  // namespace

void CheckUtf16(std::string_view text) {
    const std::u16string units = ToUtf16(text);
    Must(ToUtf16(FromUtf16(units)) == units, "a text survives the way to UTF-8 and back");
    const std::u16string any = UnitsOf(text);
    const std::string encoded = FromUtf16(any);
    Must(ToUtf16(encoded) == any, "any UTF-16 survives the way to UTF-8 and back");
    Must(FromUtf16(ToUtf16(encoded)) == encoded, "what came from UTF-16 survives the way there and back");
}

void CheckCharacters(std::string_view whole) {
    const std::string_view text = whole.substr(0, 512);  // looking each character up by its number is quadratic
    std::string rebuilt;
    bool wellFormed = true;
    size_t count = 0;
    for (size_t at = 0; at < text.size(); ++count) {
        const size_t start = at;
        Must(automation::OffsetOfCharacter(text, count) == start, "a character stands where its number says");
        const char32_t character = automation::NextCharacter(text, at);
        Must(at > start && at <= text.size(), "a character has bytes and ends in the text");
        std::string again;
        automation::AppendCharacter(again, character);
        const bool same = again == text.substr(start, at - start);
        Must(same || (character == 0xFFFD && at == start + 1), "a character is written as it was read");
        wellFormed = wellFormed && same;
        rebuilt += again;
    }
    Must(automation::CharacterCount(text) == count, "all characters are counted");
    Must(automation::OffsetOfCharacter(text, count) == text.size(), "nothing is behind the last character");
    Must(!wellFormed || rebuilt == text, "a well-formed text is its characters");
}

void CheckCaseFolding(std::string_view text) {
    const std::string folded = automation::FoldCase(text);
    const automation::CaselessHash hash;
    Must(automation::FoldCase(folded) == folded, "a folded text stays as it is");
    Must(automation::EqualNoCase(text, folded), "a text equals its folded form");
    Must(hash(text) == hash(folded), "a text has the hash of its folded form");

    const std::string_view a = text.substr(0, text.size() / 2);
    const std::string_view b = text.substr(text.size() / 2);
    const bool equal = automation::EqualNoCase(a, b);
    Must(equal == automation::EqualNoCase(b, a), "two texts are equal in either order");
    Must(equal == (automation::FoldCase(a) == automation::FoldCase(b)), "equal texts are those that fold alike");
    Must(!equal || hash(a) == hash(b), "equal texts have one hash");
}

void CheckModifiedUtf7(std::string_view text) {
    if (const auto name = localstores::FromModifiedUtf7(text)) {
        const std::u16string units = ToUtf16(*name);
        Must(FromUtf16(units) == *name, "a decoded name is sound UTF-8");
        Must(localstores::FromModifiedUtf7(ToModifiedUtf7(units)) == name, "a decoded name is encoded and decoded");
    }
    const std::u16string any = UnitsOf(text);
    const auto decoded = localstores::FromModifiedUtf7(ToModifiedUtf7(any));
    Must(decoded == FromUtf16(any), "any name is encoded and decoded");
}

void CheckIdentifiers(std::string_view text) {
    using namespace localstores;
    if (const auto id = FromHex(text)) {
        Must(automation::EqualNoCase(Hex(*id), text), "hexadecimal digits are written as they were read");
        Must(ShortForm(LongForm(*id)) == ShortForm(*id), "both forms have one short form");
        Must(LongForm(LongForm(*id)) == LongForm(*id), "a long form stays as it is");
        Must(id->empty() || id->front() != 0 || LongForm(ShortForm(*id)) == *id, "the short form keeps the long one");
    }
    const EntryId bytes(text.begin(), text.end());
    Must(FromHex(Hex(bytes)) == bytes, "bytes survive the way to hexadecimal digits and back");
    Must(UidOfText(text) == UidOfText(std::string(text)), "a text has one identifier");
}

}  // namespace fuzz
