// ComError: numbers and texts across the border.
#include "automation_win32/ComError.h"

#include <gtest/gtest.h>

#include "automation_win32/Bstr.h"

namespace automation {
namespace {

EXCEPINFO Info(SCODE code, WORD number, const wchar_t* text) {
    EXCEPINFO info{};
    info.scode = code;
    info.wCode = number;
    info.bstrDescription = text == nullptr ? nullptr : SysAllocString(text);
    info.bstrSource = SysAllocString(L"Library");
    return info;
}

HRESULT WINAPI FillInLate(EXCEPINFO* late) {
    late->scode = E_ACCESSDENIED;
    late->bstrDescription = SysAllocString(L"late");
    return S_OK;
}

TEST(ComError, TheScodeAndTheDescriptionOfAnExceptionAreKept) {
    EXCEPINFO info = Info(static_cast<SCODE>(0x8004010F), 0, L"Nicht gefunden \x2013 1");
    const Error error = FromExcepInfo(DISP_E_EXCEPTION, info);
    EXPECT_EQ(error.Number(), 0x8004010Fu);
    EXPECT_EQ(error.Text(), "Nicht gefunden \xE2\x80\x93 1");
    EXPECT_EQ(info.bstrDescription, nullptr);
}

TEST(ComError, ACodeWithoutAnScodeIsOneOfVisualBasics) {
    EXCEPINFO info = Info(0, 457, nullptr);
    const Error error = FromExcepInfo(DISP_E_EXCEPTION, info);
    EXPECT_EQ(error.Number(), 0x800A01C9u);
    EXPECT_EQ(error.Text(), "This key is already associated with an element of this collection");
}

TEST(ComError, AnExceptionThatIsFilledInLateIsFilledIn) {
    EXCEPINFO info{};
    info.pfnDeferredFillIn = FillInLate;
    const Error error = FromExcepInfo(DISP_E_EXCEPTION, info);
    EXPECT_EQ(error.Number(), 0x80070005u);
    EXPECT_EQ(error.Text(), "late");
}

TEST(ComError, AnExceptionThatTellsNothingIsStillAnError) {
    EXCEPINFO info{};
    EXPECT_EQ(FromExcepInfo(DISP_E_EXCEPTION, info).Number(), static_cast<uint32_t>(DISP_E_EXCEPTION));
}

TEST(ComError, AResultThatIsNoExceptionCountsItself) {
    EXCEPINFO info = Info(static_cast<SCODE>(0x8004010F), 0, nullptr);
    EXPECT_EQ(FromExcepInfo(DISP_E_UNKNOWNNAME, info).Number(), errors::unknownName);
}

TEST(ComError, TheTextsAreFreedWhateverTheResult) {
    for (const HRESULT result : {DISP_E_EXCEPTION, DISP_E_UNKNOWNNAME, E_FAIL}) {
        EXCEPINFO info = Info(E_FAIL, 0, L"text");
        info.bstrHelpFile = SysAllocString(L"help");
        FromExcepInfo(result, info);
        EXPECT_EQ(info.bstrDescription, nullptr);
        EXPECT_EQ(info.bstrSource, nullptr);
        EXPECT_EQ(info.bstrHelpFile, nullptr);
    }
}

TEST(ComError, ASystemErrorHasTheSystemsTextWithoutALineEnd) {
    const Error error = FromHresult(E_ACCESSDENIED);
    EXPECT_EQ(error.Number(), 0x80070005u);
    ASSERT_FALSE(error.Text().empty());
    EXPECT_NE(error.Text().back(), '\n');
    EXPECT_NE(error.Text().back(), '\r');
}

TEST(ComError, CheckThrowsFailuresOnly) {
    EXPECT_NO_THROW(Check(S_OK));
    EXPECT_NO_THROW(Check(S_FALSE));
    EXPECT_THROW(Check(E_FAIL), Error);
}

TEST(ComError, SmallNumbersBecomeTheHresultsThatHostsKnow) {
    EXPECT_EQ(ToHresult(457), static_cast<HRESULT>(0x800A01C9));
    EXPECT_EQ(ToHresult(0x8004010F), static_cast<HRESULT>(0x8004010F));
    EXPECT_TRUE(FAILED(ToHresult(0)));
}

TEST(ComError, AnErrorFillsTheExceptionOfTheCall) {
    EXCEPINFO info{};
    EXPECT_EQ(ToExcepInfo(VbError(9), &info), DISP_E_EXCEPTION);
    EXPECT_EQ(info.scode, static_cast<SCODE>(0x800A0009));
    EXPECT_EQ(FromBstr(info.bstrDescription), "Subscript out of range");
    SysFreeString(info.bstrDescription);
}

TEST(ComError, ErrorsOfTheCallItselfAreResults) {
    EXCEPINFO info{};
    EXPECT_EQ(ToExcepInfo(Error(errors::badParamCount, "x"), &info), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(info.bstrDescription, nullptr);
    EXPECT_EQ(ToExcepInfo(VbError(9), nullptr), static_cast<HRESULT>(0x800A0009));
}

TEST(ComError, NothingPassesTheBoundary) {
    EXPECT_EQ(ComBoundary([]() -> HRESULT { return S_FALSE; }), S_FALSE);
    EXPECT_EQ(ComBoundary([]() -> HRESULT { throw VbError(91); }), static_cast<HRESULT>(0x800A005B));
    EXPECT_EQ(ComBoundary([]() -> HRESULT { throw std::bad_alloc(); }), E_OUTOFMEMORY);
    EXPECT_EQ(ComBoundary([]() -> HRESULT { throw 7; }), E_FAIL);
}

}  // namespace
}  // namespace automation
