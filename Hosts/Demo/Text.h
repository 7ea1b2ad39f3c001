// Text: UTF-16 as Windows speaks it, UTF-8 as files hold it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace demo {

std::string ToUtf8(std::wstring_view text);
std::wstring FromUtf8(std::string_view text);
/// Text in the system's ANSI code page, such as debugger output.
std::wstring FromAnsi(std::string_view text);

std::vector<std::string> Split(std::string_view text, char separator);

/// Tab, line feed, carriage return and backslash as \t \n \r \\, so that a cell stays on its line.
std::string EscapeCell(std::string_view text);
std::string UnescapeCell(std::string_view text);

/// Replaces the file in one step, so that a reader never sees half of it. False when it cannot be written.
bool WriteWholeFile(const std::wstring& path, std::string_view content);
/// Empty when there is no such file.
std::string ReadWholeFile(const std::wstring& path);

}  // namespace demo
