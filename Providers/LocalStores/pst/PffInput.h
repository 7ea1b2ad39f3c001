// PffInput: the file from which libpff reads, with a look at the limits before each piece.
#pragma once

#include <libpff.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "pst/PstReading.h"

#ifndef LIBPFF_HAVE_BFIO
// libpff's DLL has its own copy of libbfio, with all functions and no header for them.
using libbfio_handle_t = intptr_t;
#endif

namespace localstores {

/// Must outlive the libpff file that was opened on it.
class PffInput {
  public:
    /// Throws automation::Error when the file cannot be read.
    PffInput(const std::filesystem::path& file, PstReading& reading);
    ~PffInput();
    PffInput(const PffInput&) = delete;
    PffInput& operator=(const PffInput&) = delete;

    /// Whether libpff takes it for a PST file.
    bool OpenAs(libpff_file_t* file);

    // What libbfio asks for; -1 is a failure.

    ssize_t Read(uint8_t* buffer, size_t size) noexcept;
    int64_t Seek(int64_t offset, int whence) noexcept;
    uint64_t Size() const noexcept { return size_; }

  private:
    std::ifstream stream_;
    uint64_t size_ = 0;
    PstReading& reading_;
    libbfio_handle_t* handle_ = nullptr;
};

}  // namespace localstores
