// Text: the conversions, and whole files.
#include "Text.h"

#include <windows.h>

namespace demo {
namespace {

std::wstring Widen(UINT codePage, std::string_view text) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(static_cast<size_t>(MultiByteToWideChar(codePage, 0, text.data(), size, nullptr, 0)), L'\0');
    MultiByteToWideChar(codePage, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

/// A file handle that closes itself.
class File {
  public:
    explicit File(HANDLE handle) : handle_(handle) {}
    ~File() {
        if (IsOpen()) CloseHandle(handle_);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return handle_; }

  private:
    HANDLE handle_;
};

bool WriteAll(const std::wstring& path, std::string_view content) {
    const File file(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    return file.IsOpen() &&
           WriteFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr) &&
           written == content.size();
}

}  // namespace

std::string ToUtf8(std::wstring_view text) {
    const int size = static_cast<int>(text.size());
    std::string narrow(
        static_cast<size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr)), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, narrow.data(), static_cast<int>(narrow.size()), nullptr,
                        nullptr);
    return narrow;
}

std::wstring FromUtf8(std::string_view text) {
    return Widen(CP_UTF8, text);
}

std::wstring FromAnsi(std::string_view text) {
    return Widen(CP_ACP, text);
}

std::vector<std::string> Split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (;;) {
        const size_t end = text.find(separator);
        parts.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

std::string EscapeCell(std::string_view text) {
    std::string escaped;
    for (const char character : text) {
        switch (character) {
            case '\t':
                escaped += "\\t";
                break;
            case '\n':
                escaped += "\\n";
                break;
            case '\r':
                escaped += "\\r";
                break;
            case '\\':
                escaped += "\\\\";
                break;
            default:
                escaped += character;
        }
    }
    return escaped;
}

std::string UnescapeCell(std::string_view text) {
    std::string plain;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            plain += text[i];
            continue;
        }
        switch (text[++i]) {
            case 't':
                plain += '\t';
                break;
            case 'n':
                plain += '\n';
                break;
            case 'r':
                plain += '\r';
                break;
            default:
                plain += text[i];
        }
    }
    return plain;
}

bool WriteWholeFile(const std::wstring& path, std::string_view content) {
    const std::wstring unfinished = path + L".part";
    return WriteAll(unfinished, content) && MoveFileExW(unfinished.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING);
}

std::string ReadWholeFile(const std::wstring& path) {
    const File file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) return {};
    std::string content(GetFileSize(file.Get(), nullptr), '\0');
    DWORD read = 0;
    if (!ReadFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &read, nullptr)) read = 0;
    content.resize(read);
    return content;
}

}  // namespace demo
