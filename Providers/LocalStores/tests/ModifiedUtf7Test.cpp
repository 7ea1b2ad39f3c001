// ModifiedUtf7Test: mailbox names as IMAP spells them.
#include "model/ModifiedUtf7.h"

#include <gtest/gtest.h>

namespace localstores {
namespace {

TEST(ModifiedUtf7, PlainCharactersStandForThemselves) {
    EXPECT_EQ(FromModifiedUtf7("Sent Items~\"\\"), "Sent Items~\"\\");
    EXPECT_EQ(FromModifiedUtf7(""), "");
}

TEST(ModifiedUtf7, AmpersandIsWrittenWithAMinus) {
    EXPECT_EQ(FromModifiedUtf7("A&-B&-"), "A&B&");
}

TEST(ModifiedUtf7, DecodesTheExamplesOfTheImapStandard) {
    EXPECT_EQ(FromModifiedUtf7("~peter/mail/&U,BTFw-/&ZeVnLIqe-"), "~peter/mail/台北/日本語");
}

TEST(ModifiedUtf7, DecodesCharactersBeyondTheBasicPlane) {
    EXPECT_EQ(FromModifiedUtf7("&2D3eAA-"), "😀");
}

TEST(ModifiedUtf7, KeepsALoneSurrogate) {
    EXPECT_EQ(FromModifiedUtf7("&2D0-"), "\xED\xA0\xBD");
}

TEST(ModifiedUtf7, RefusesWhatIsNotWellFormed) {
    EXPECT_FALSE(FromModifiedUtf7("bad&utf7")) << "no end";
    EXPECT_FALSE(FromModifiedUtf7("&A-")) << "six bits are no character";
    EXPECT_FALSE(FromModifiedUtf7("&AOQA-")) << "a rest of more than six bits";
    EXPECT_FALSE(FromModifiedUtf7("&AOR-")) << "a rest that is not zero";
    EXPECT_FALSE(FromModifiedUtf7("&A/Q-")) << "no digit of this alphabet";
    EXPECT_FALSE(FromModifiedUtf7("\xC3\xA4")) << "8-bit characters";
    EXPECT_FALSE(FromModifiedUtf7("a\tb")) << "control characters";
}

}  // namespace
}  // namespace localstores
