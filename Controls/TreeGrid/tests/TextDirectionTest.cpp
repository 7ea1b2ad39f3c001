// TextDirectionTest: which way names are read.
#include "layout/TextDirection.h"

#include <gtest/gtest.h>

#include <string>

namespace foldertree {
namespace {

TEST(TextDirection, TheFirstLetterDecides) {
    for (const bool otherwise : {false, true}) {
        EXPECT_TRUE(ReadsRightToLeft("שלום", otherwise));
        EXPECT_TRUE(ReadsRightToLeft("(2) البريد Inbox", otherwise));
        EXPECT_TRUE(ReadsRightToLeft("2026 – דואר", otherwise));
        EXPECT_FALSE(ReadsRightToLeft("Inbox שלום", otherwise));
        EXPECT_FALSE(ReadsRightToLeft("(2) Übersicht", otherwise));
        EXPECT_FALSE(ReadsRightToLeft("受信トレイ", otherwise));
        EXPECT_FALSE(ReadsRightToLeft("Ελλάδα", otherwise));
    }
}

TEST(TextDirection, WhatHasNoLetterIsReadAsWhatIsAroundIt) {
    for (const bool otherwise : {false, true}) {
        EXPECT_EQ(ReadsRightToLeft("", otherwise), otherwise);
        EXPECT_EQ(ReadsRightToLeft("2026 (12) – …", otherwise), otherwise);
        EXPECT_EQ(ReadsRightToLeft("١٢", otherwise), otherwise);
    }
}

TEST(TextDirection, AMarkDecidesLikeALetter) {
    EXPECT_TRUE(ReadsRightToLeft("\u200F12 abc", false));
    EXPECT_FALSE(ReadsRightToLeft("\u200E12 שלום", true));
}

TEST(TextDirection, BytesThatAreNoTextAreSurvived) {
    EXPECT_FALSE(ReadsRightToLeft("\xFF\xFE inbox", true));
    EXPECT_EQ(ReadsRightToLeft(std::string(65536, ' '), true), true);
}

}  // namespace
}  // namespace foldertree
