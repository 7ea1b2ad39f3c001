// FilePathTest: names of files survive being text.
#include "model/FilePath.h"

#include <gtest/gtest.h>

namespace localstores {
namespace {

TEST(FilePath, NamesOfAllScriptsSurvive) {
    for (const char* name : {"", "a", "Übung.pst", "日本語", "😀.pst"}) EXPECT_EQ(TextOf(PathOf(name)), name);
}

TEST(FilePath, LoneSurrogatesSurvive) {
    EXPECT_EQ(TextOf(PathOf("a\xED\xA0\xBDz")), "a\xED\xA0\xBDz");
}

TEST(FilePath, TextIsUtf8) {
    EXPECT_EQ(PathOf("Übung"), std::filesystem::path(u8"Übung"));
}

}  // namespace
}  // namespace localstores
