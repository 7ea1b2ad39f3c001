// Texts: what the random sequences call folders, stores and lists, file items under, type, and answer with.
#include "reference/Texts.h"

#include <array>
#include <cstdlib>
#include <limits>
#include <vector>

#include "automation/Error.h"

namespace foldertree::reference {

using automation::Array;
using automation::Bytes;
using automation::Currency;
using automation::Date;
using automation::ErrorValue;
using automation::Missing;
using automation::Null;
using automation::Value;

namespace {

std::string Times(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i) all += text;
    return all;
}

std::vector<std::string> MakeTexts() {
    return {
        "Ärger",
        "ärger",
        "ÄRGER",
        "Straße",
        "STRASSE",
        "Привет",
        "привет",
        "ПРИВЕТ ЁЖ",
        "привет ёж",
        "Σίσυφος",
        "ΣΊΣΥΦΟΣ",
        "σίσυφοσ",
        "Istanbul",
        "İstanbul",
        "ıstanbul",
        "ISTANBUL",
        "日本語フォルダ",
        "收件箱",
        "받은 편지함",
        "ＡＢＣ",
        "ａｂｃ",
        "Ⱥ",
        "ⱥ",
        "Ꙁꙁ",
        "ꙁꙀ",
        "😀",
        "👩‍👩‍👧",
        "half \xED\xA0\xBD",
        "half \xED\xB8\x80",
        "\xED\xB8\x80\xED\xA0\xBD",
        "e\xCC\x81",
        "שלום",
        "مرحبا",
        "",
        " ",
        "a\\b|c",
        std::string("nul\0nul", 7),
        "no letter \xFF\xC3",
        Times("Длинное имя папки ", 60),
        Times("ДЛИННОЕ ИМЯ ПАПКИ ", 60),
    };
}

constexpr std::array<const char*, typedTextCount> typedTexts{"1",
                                                             "2",
                                                             "3",
                                                             "4",
                                                             "7",
                                                             "2.5",
                                                             "0.5",
                                                             "-2",
                                                             "0",
                                                             "abc",
                                                             "",
                                                             " 3 ",
                                                             "1e1",
                                                             "99999999999",
                                                             "３",
                                                             "٣",
                                                             "½",
                                                             "2²",
                                                             "①",
                                                             "−2",
                                                             "1,5",
                                                             "\t4",
                                                             "4\r\n",
                                                             "1e400",
                                                             "1e-400",
                                                             "1E+2",
                                                             ".5",
                                                             "5.",
                                                             "+7",
                                                             "&H10",
                                                             "1d2",
                                                             "0x10",
                                                             "2147483647",
                                                             "2147483648",
                                                             "2147483646.5",
                                                             "1 2",
                                                             "True",
                                                             "TRUE",
                                                             "3é",
                                                             "é3",
                                                             "3\xC2\xA0",
                                                             "\xE3\x80\x80"
                                                             "3",
                                                             "3\xED\xA0\xBD",
                                                             "😀",
                                                             "1.5",
                                                             "1e",
                                                             "0.49",
                                                             "१"};

std::vector<Value> MakeOddValues() {
    constexpr double largest = std::numeric_limits<double>::max();
    return {
        Value(),
        nullptr,
        Null{},
        Missing{},
        ErrorValue{automation::errors::mapiNotFound},
        true,
        false,
        1,
        -1,
        INT32_MAX,
        Value::Byte(1),
        Value::Byte(255),
        Value::Integer(-7),
        Value::LongLong(1),
        Value::LongLong(3000000000),
        Value::Single(0.1F),
        Value::Single(1e10F),
        0.5,
        1.5,
        0.1,
        1e15,
        2147483647.5,
        largest,
        Currency{12500},
        Currency{-5},
        Date{36585.75},
        Date{-1.25},
        Date{1e9},
        " 1 ",
        "TRUE",
        "false",
        "ＴＲＵＥ",
        "1e400",
        "１",
        "Ω",
        "",
        "&H1",
        Array{0, {1}},
        Bytes{0, {0, 255}},
        "maybe",
    };
}

}  // namespace

const std::string& AnyText(int choice) {
    static const std::vector<std::string> texts = MakeTexts();
    return texts[static_cast<size_t>(std::abs(choice)) % texts.size()];
}

const std::string& TypedText(int choice) {
    static const std::vector<std::string> texts(typedTexts.begin(), typedTexts.end());
    return texts[static_cast<size_t>(std::abs(choice)) % texts.size()];
}

Value OddValue(int choice) {
    static const std::vector<Value> values = MakeOddValues();
    return values[static_cast<size_t>(std::abs(choice)) % values.size()];
}

}  // namespace foldertree::reference
