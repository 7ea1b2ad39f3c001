// PffItem: a PST file and its items through libpff, with C++ ownership and errors.
#pragma once

#include <libpff.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "pst/PffInput.h"
#include "pst/PstReading.h"

namespace localstores {

/// A handle of libpff that is freed by the function of its kind. To C++ all kinds of handles are one type.
template <int (*release)(intptr_t**, libpff_error_t**)>
struct PffRelease {
    void operator()(intptr_t* handle) const { release(&handle, nullptr); }
};
using PffFileHandle = std::unique_ptr<libpff_file_t, PffRelease<libpff_file_free>>;
using PffItemHandle = std::unique_ptr<libpff_item_t, PffRelease<libpff_item_free>>;
using PffRecordSetHandle = std::unique_ptr<libpff_record_set_t, PffRelease<libpff_record_set_free>>;
using PffRecordEntryHandle = std::unique_ptr<libpff_record_entry_t, PffRelease<libpff_record_entry_free>>;

/// The properties of an item, or one row of an item that is a table. Must not outlive the item. Members throw
/// automation::Error.
class PffProperties {
  public:
    PffProperties(PffRecordSetHandle set, PstReading& reading) : set_(std::move(set)), reading_(&reading) {}

    /// A property by its number (without the type); nothing when it is missing or of another type.
    std::optional<std::string> Text(uint32_t property) const;
    std::optional<std::vector<uint8_t>> Binary(uint32_t property) const;
    std::optional<uint32_t> Long(uint32_t property) const;

  private:
    PffRecordEntryHandle Entry(uint32_t property, uint32_t& type) const;

    PffRecordSetHandle set_;
    PstReading* reading_;
};

/// One node of the file: the message store, a folder, a table. Must not outlive its PffFile. Members throw
/// automation::Error.
class PffItem {
  public:
    PffItem(PffItemHandle item, PstReading& reading) : item_(std::move(item)), reading_(&reading) {}

    /// The number that is unique in the file.
    uint32_t Node() const;

    /// An item that is no table has one row.
    int RowCount() const;
    PffProperties Row(int index) const;
    PffProperties Properties() const { return Row(0); }

    int FolderCount() const;
    PffItem FolderAt(int index) const;

  private:
    PffItemHandle item_;
    PstReading* reading_;
};

class PffFile {
  public:
    /// Opens for reading; `reading` outlives it. Throws automation::Error when the file is no sound PST file.
    PffFile(const std::filesystem::path& file, PstReading& reading);

    bool IsUnicode() const;
    PffItem MessageStore() const;
    PffItem RootFolder() const;
    /// Nothing when the file has no such node.
    std::optional<PffItem> Node(uint32_t node) const;

  private:
    PstReading& reading_;
    PffInput input_;
    PffFileHandle file_;  ///< closed before its input
};

}  // namespace localstores
