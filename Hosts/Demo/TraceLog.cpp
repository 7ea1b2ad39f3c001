// TraceLog: debugger output reaches its own process as a vectored exception.
#include "TraceLog.h"

#include <windows.h>

#include "Text.h"

namespace demo {
namespace {

constexpr DWORD wideOutput = 0x4001000A;  // DBG_PRINTEXCEPTION_WIDE_C, missing in older headers

std::wstring OutputText(const EXCEPTION_RECORD& record) {
    const auto characters = static_cast<size_t>(record.ExceptionInformation[0]);
    const ULONG_PTR text = record.ExceptionInformation[1];
    if (characters == 0 || text == 0) return {};
    std::wstring line = record.ExceptionCode == wideOutput
                            ? std::wstring(reinterpret_cast<const wchar_t*>(text), characters)
                            : FromAnsi({reinterpret_cast<const char*>(text), characters});
    while (!line.empty() && (line.back() == L'\0' || line.back() == L'\n' || line.back() == L'\r')) line.pop_back();
    return line;
}

LONG CALLBACK OnException(EXCEPTION_POINTERS* exception) {
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    // Text that is written as UTF-16 and that nobody takes comes a second time in the ANSI code page; so it is taken
    // here.
    if (record.ExceptionCode == wideOutput && record.NumberParameters >= 2) {
        TraceLog::Instance().Add(OutputText(record));
        return EXCEPTION_CONTINUE_EXECUTION;
    }
    // The handlers after this one hand the line on to a viewer.
    if (record.ExceptionCode == DBG_PRINTEXCEPTION_C && record.NumberParameters >= 2) {
        TraceLog::Instance().Add(OutputText(record));
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace

TraceLog& TraceLog::Instance() {
    static TraceLog log;
    return log;
}

bool TraceLog::Start(const std::wstring& file) {
    if (!file.empty()) {
        file_ = _wfopen(file.c_str(), L"wb");
        if (file_ == nullptr) return false;
    }
    // A handler inside the process is a receiver that the control cannot see.
    SetEnvironmentVariableW(L"FOLDERTREE_TRACE", L"always");
    handler_ = AddVectoredExceptionHandler(1, OnException);
    return handler_ != nullptr;
}

void TraceLog::Stop() {
    if (handler_ != nullptr) RemoveVectoredExceptionHandler(handler_);
    handler_ = nullptr;
    if (file_ != nullptr) fclose(file_);
    file_ = nullptr;
}

void TraceLog::SetListener(std::function<void(const std::wstring&)> listener) {
    const std::lock_guard lock(mutex_);
    listener_ = std::move(listener);
}

void TraceLog::Note(std::wstring_view text) {
    OutputDebugStringW((L"FolderTreeDemo: " + std::wstring(text)).c_str());
}

uint64_t TraceLog::Total() const {
    const std::lock_guard lock(mutex_);
    return total_;
}

size_t TraceLog::KeptCount() const {
    const std::lock_guard lock(mutex_);
    return lines_.size();
}

std::wstring TraceLog::Line(size_t index) const {
    const std::lock_guard lock(mutex_);
    return index < lines_.size() ? lines_[index] : std::wstring();
}

void TraceLog::Clear() {
    const std::lock_guard lock(mutex_);
    lines_.clear();
}

void TraceLog::Add(std::wstring line) {
    const std::lock_guard lock(mutex_);
    if (file_ != nullptr) {
        const std::string text = ToUtf8(line) + "\n";
        fwrite(text.data(), 1, text.size(), file_);
        fflush(file_);  // a reader waits for the line, and a crash must not swallow it
    }
    if (listener_) listener_(line);
    lines_.push_back(std::move(line));
    if (lines_.size() > lineLimit) lines_.pop_front();
    ++total_;
}

}  // namespace demo
