// PffInput: a stream behind the functions that libbfio calls.
#include "pst/PffInput.h"

#include <cstdio>

#ifndef LIBPFF_HAVE_BFIO
extern "C" {
using size64_t = uint64_t;
int libbfio_handle_initialize(libbfio_handle_t** handle, intptr_t* input, int (*free)(intptr_t**, libpff_error_t**),
                              int (*clone)(intptr_t**, intptr_t*, libpff_error_t**),
                              int (*open)(intptr_t*, int, libpff_error_t**), int (*close)(intptr_t*, libpff_error_t**),
                              ssize_t (*read)(intptr_t*, uint8_t*, size_t, libpff_error_t**),
                              ssize_t (*write)(intptr_t*, const uint8_t*, size_t, libpff_error_t**),
                              off64_t (*seek)(intptr_t*, off64_t, int, libpff_error_t**),
                              int (*exists)(intptr_t*, libpff_error_t**), int (*isOpen)(intptr_t*, libpff_error_t**),
                              int (*size)(intptr_t*, size64_t*, libpff_error_t**), uint8_t flags,
                              libpff_error_t** error);
int libbfio_handle_free(libbfio_handle_t** handle, libpff_error_t** error);
int libpff_file_open_file_io_handle(libpff_file_t* file, libbfio_handle_t* handle, int access, libpff_error_t** error);
}
#endif

namespace localstores {
namespace {

using ErrorOut = libpff_error_t**;

PffInput& InputOf(intptr_t* handle) {  // NOLINT(readability-non-const-parameter): libpff's signature
    return *reinterpret_cast<PffInput*>(handle);
}

ssize_t ReadFrom(intptr_t* handle, uint8_t* buffer, size_t size, ErrorOut) {
    return InputOf(handle).Read(buffer, size);
}

off64_t SeekIn(intptr_t* handle, off64_t offset, int whence, ErrorOut) {
    return InputOf(handle).Seek(offset, whence);
}

int SizeOf(intptr_t* handle, size64_t* size, ErrorOut) {
    *size = InputOf(handle).Size();
    return 1;
}

int Yes(intptr_t*, ErrorOut) {
    return 1;
}

std::ios::seekdir Direction(int whence) {
    if (whence == SEEK_CUR) return std::ios::cur;
    return whence == SEEK_END ? std::ios::end : std::ios::beg;
}

}  // namespace

PffInput::PffInput(const std::filesystem::path& file, PstReading& reading)
    : stream_(file, std::ios::binary), reading_(reading) {
    std::error_code error;
    size_ = std::filesystem::file_size(file, error);
    if (!stream_ || error) throw reading_.Failure("the file cannot be read");
    // Nobody but us closes the stream; to libbfio it is open from the start.
    constexpr uint8_t ourOwn = 0;
    if (libbfio_handle_initialize(&handle_, reinterpret_cast<intptr_t*>(this), nullptr, nullptr, nullptr, Yes, ReadFrom,
                                  nullptr, SeekIn, Yes, Yes, SizeOf, ourOwn, nullptr) != 1)
        throw reading_.Failure("libpff cannot start");
}

PffInput::~PffInput() {
    libbfio_handle_free(&handle_, nullptr);
}

bool PffInput::OpenAs(libpff_file_t* file) {
    return libpff_file_open_file_io_handle(file, handle_, LIBPFF_OPEN_READ, nullptr) == 1;
}

ssize_t PffInput::Read(uint8_t* buffer, size_t size) noexcept {
    if (reading_.IsSpent()) return -1;
    stream_.clear();
    stream_.read(reinterpret_cast<char*>(buffer), static_cast<std::streamsize>(size));
    return stream_.bad() ? -1 : static_cast<ssize_t>(stream_.gcount());
}

int64_t PffInput::Seek(int64_t offset, int whence) noexcept {
    stream_.clear();
    stream_.seekg(offset, Direction(whence));
    return stream_.fail() ? -1 : static_cast<int64_t>(stream_.tellg());
}

}  // namespace localstores
