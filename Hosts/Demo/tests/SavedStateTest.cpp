// SavedStateTest: the file between two runs.
#include "SavedState.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "Text.h"

namespace demo {
namespace {

std::wstring TemporaryFile() {
    wchar_t folder[MAX_PATH], file[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    GetTempFileNameW(folder, L"ftd", 0, file);
    return file;
}

TEST(SavedState, ComesBackAsItWasSaved) {
    const std::wstring file = TemporaryFile();
    SavedState state;
    state.properties = {{"Font", "font:Tahoma|82500"}, {"Title", "text:two\nlines = \\"}};
    state.selection = {{7, L"AB", L"CD", L"EF", L""}, {8, L"", L"", L"", L"Liste\tätsch"}};
    ASSERT_TRUE(state.Save(file));

    const SavedState loaded = SavedState::Load(file);
    EXPECT_EQ(loaded.properties, state.properties);
    ASSERT_EQ(loaded.selection.size(), 2u);
    EXPECT_EQ(loaded.selection[0].recordId, 7);
    EXPECT_EQ(loaded.selection[0].storeId, L"AB");
    EXPECT_EQ(loaded.selection[0].entryId, L"CD");
    EXPECT_EQ(loaded.selection[0].entryIdShort, L"EF");
    EXPECT_EQ(loaded.selection[1].addressListId, L"Liste\tätsch");
    DeleteFileW(file.c_str());
}

TEST(SavedState, IsEmptyWithoutAFile) {
    const SavedState state = SavedState::Load(L"Z:\\no\\such\\file");
    EXPECT_TRUE(state.properties.empty());
    EXPECT_TRUE(state.selection.empty());
}

TEST(SavedState, PassesOverLinesThatMakeNoSense) {
    const std::wstring file = TemporaryFile();
    ASSERT_TRUE(WriteWholeFile(file, "noise\n[properties]\nno separator\nA=b\n[selection]\n1\ttoo few\n2\tS\tE\t\t\n"));
    const SavedState state = SavedState::Load(file);
    EXPECT_EQ(state.properties, (std::map<std::string, std::string>{{"A", "b"}}));
    ASSERT_EQ(state.selection.size(), 1u);
    EXPECT_EQ(state.selection[0].recordId, 2);
    DeleteFileW(file.c_str());
}

TEST(SavedState, CannotBeSavedWhereThereIsNoFolder) {
    EXPECT_FALSE(SavedState().Save(L"Z:\\no\\such\\folder\\file"));
}

}  // namespace
}  // namespace demo
