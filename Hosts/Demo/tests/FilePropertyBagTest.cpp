// FilePropertyBagTest: what goes into the bag comes out again.
#include "FilePropertyBag.h"

#include <gtest/gtest.h>

#include "FontText.h"
#include "LateBound.h"

namespace demo {
namespace {

class FilePropertyBagTest : public testing::Test {
  protected:
    FilePropertyBagTest() {
        CoInitialize(nullptr);
        bag_ = Adopt(new FilePropertyBag(properties_));
    }
    ~FilePropertyBagTest() override {
        bag_.Reset();
        CoUninitialize();
    }

    Variant RoundTrip(Variant value) {
        Variant answer;
        EXPECT_EQ(bag_->Write(L"Property", &value), S_OK);
        EXPECT_EQ(bag_->Read(L"Property", &answer, nullptr), S_OK);
        return answer;
    }

    std::map<std::string, std::string> properties_;
    ComPtr<IPropertyBag> bag_;
};

TEST_F(FilePropertyBagTest, KeepsBooleansNumbersAndTexts) {
    EXPECT_EQ(RoundTrip(true).vt, VT_BOOL);
    EXPECT_TRUE(RoundTrip(true).AsBool());
    EXPECT_FALSE(RoundTrip(false).AsBool());
    EXPECT_EQ(RoundTrip(-7).AsLong(), -7);
    EXPECT_EQ(RoundTrip(L"Grüße=:").AsText(), L"Grüße=:");
}

TEST_F(FilePropertyBagTest, KeepsAFont) {
    const ComPtr<IFont> font = FontFromText("Arial|97500|700|0|1|0|0");
    ASSERT_TRUE(font);
    ComPtr<IDispatch> object;
    ASSERT_EQ(font.As(&object), S_OK);
    const ComPtr<IDispatch> read = RoundTrip(object.Get()).AsObject();
    ASSERT_TRUE(read);
    ComPtr<IFont> readFont;
    ASSERT_EQ(read.As(&readFont), S_OK);
    EXPECT_EQ(FontToText(readFont.Get()), FontToText(font.Get()));
}

TEST_F(FilePropertyBagTest, ConvertsToTheTypeThatIsAskedFor) {
    Variant value(5);
    bag_->Write(L"Property", &value);
    Variant answer(L"");
    EXPECT_EQ(bag_->Read(L"Property", &answer, nullptr), S_OK);
    EXPECT_EQ(answer.AsText(), L"5");
    EXPECT_EQ(answer.vt, VT_BSTR);
}

TEST_F(FilePropertyBagTest, SaysThatAPropertyIsMissing) {
    Variant answer;
    EXPECT_EQ(bag_->Read(L"Missing", &answer, nullptr), E_INVALIDARG);
}

TEST_F(FilePropertyBagTest, RefusesAKindThatItCannotKeep) {
    Variant value;
    value.vt = VT_DATE;
    EXPECT_EQ(bag_->Write(L"Property", &value), E_INVALIDARG);
}

}  // namespace
}  // namespace demo
