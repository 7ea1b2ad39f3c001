// OpenStoresTest: what can be opened, and the errors for what cannot.
#include "localstores/OpenStores.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TestFiles.h"
#include "automation/Error.h"

namespace localstores {
namespace {

using testing::HasSubstr;

TEST(OpenStores, NamesWhatIsNotThere) {
    const auto open = [] { OpenStores("no such file.pst"); };
    EXPECT_THAT(FailureOf(open), HasSubstr("\"no such file.pst\""));
    EXPECT_EQ(ErrorNumberOf(open), automation::errors::mapiNotFound);
}

TEST(OpenStores, RefusesTheEmptyPath) {
    EXPECT_EQ(ErrorNumberOf([] { OpenStores(""); }), automation::errors::mapiNotFound);
}

TEST(OpenStores, NamesADirectoryWithoutMail) {
    const TemporaryDirectory directory;
    EXPECT_THAT(FailureOf([&] { OpenStores(directory.Utf8()); }), HasSubstr(directory.Utf8()));
}

TEST(OpenStores, NamesAFileThatIsNoPst) {
    const TemporaryDirectory directory;
    const std::string file = directory.Utf8() + "/letter.pst";
    for (const std::string& content :
         {std::string(), std::string("!BDN"), std::string("Dear Sir"), std::string(100000, 'x')}) {
        WriteWholeFile(file, content);
        EXPECT_THAT(FailureOf([&] { OpenStores(file); }), HasSubstr(file));
    }
}

TEST(OpenStores, SampleTakesItsOptionsFromThePath) {
    const StoreList plain = OpenStores("sample");
    EXPECT_EQ(plain[0]->HowItAnswers().tableDelay, std::chrono::milliseconds(0));
    const StoreList slow = OpenStores("sample?delay=20&rows=5");
    EXPECT_EQ(slow[0]->HowItAnswers().tableDelay, std::chrono::milliseconds(20));
    EXPECT_EQ(slow[0]->HowItAnswers().rowsPerRead, 5);
    EXPECT_EQ(OpenStores("sample?rows=0")[0]->HowItAnswers().rowsPerRead, 1) << "a table that gives nothing has no end";
}

TEST(OpenStores, RefusesSampleOptionsThatDoNotExist) {
    for (const char* path : {"sample?", "sample?speed=1", "sample?delay=", "sample?delay=x", "sample?delay=-1",
                             "sample?delay=1&", "sample?count=1", "sample?folders=", "sample?folders=1000001",
                             "sample?lists=", "sample?count", "sample?delay=99999999999"})
        EXPECT_THAT(FailureOf([&] { OpenStores(path); }), HasSubstr(path));
}

}  // namespace
}  // namespace localstores
