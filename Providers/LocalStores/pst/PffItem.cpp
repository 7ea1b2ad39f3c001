// PffItem: the calls into libpff.
#include "pst/PffItem.h"

#include <algorithm>

#include "automation/Text.h"

namespace localstores {
namespace {

constexpr uint32_t typeLong = 0x0003;
constexpr uint32_t typeString8 = 0x001E;
constexpr uint32_t typeUnicode = 0x001F;
constexpr uint32_t typeBinary = 0x0102;
constexpr size_t maxPropertySize = 1 << 20;

/// libpff reports 1 for success, 0 for "not there" and -1 for an error.
void Check(int result, const PstReading& reading, std::string_view what) {
    if (result != 1) throw reading.Failure("the file is damaged (" + std::string(what) + ")");
}

std::string Utf8OfUtf16(const std::vector<uint8_t>& bytes) {
    std::u16string units;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2)
        units += static_cast<char16_t>(bytes[i] | static_cast<unsigned>(bytes[i + 1]) << 8);
    units.erase(std::find(units.begin(), units.end(), u'\0'), units.end());
    return automation::FromUtf16(units);
}

std::vector<uint8_t> Data(libpff_record_entry_t* entry, const PstReading& reading) {
    size_t size = 0;
    if (libpff_record_entry_get_data_size(entry, &size, nullptr) != 1 || size == 0) return {};
    if (size > maxPropertySize) throw reading.Failure("a property is too large");
    std::vector<uint8_t> bytes(size);
    Check(libpff_record_entry_get_data(entry, bytes.data(), size, nullptr), reading, "a property cannot be read");
    return bytes;
}

/// Text of an old file, in the file's own code page.
std::string TextOfString8(libpff_record_entry_t* entry, const PstReading& reading) {
    size_t size = 0;
    if (libpff_record_entry_get_data_as_utf8_string_size(entry, &size, nullptr) != 1 || size == 0) return {};
    if (size > maxPropertySize) throw reading.Failure("a property is too large");
    std::vector<uint8_t> text(size);
    Check(libpff_record_entry_get_data_as_utf8_string(entry, text.data(), size, nullptr), reading,
          "a text cannot be read");
    return {text.begin(), std::find(text.begin(), text.end(), 0)};
}

}  // namespace

PffRecordEntryHandle PffProperties::Entry(uint32_t property, uint32_t& type) const {
    libpff_record_entry_t* found = nullptr;
    const int result = libpff_record_set_get_entry_by_type(set_.get(), property, 0, &found,
                                                           LIBPFF_ENTRY_VALUE_FLAG_MATCH_ANY_VALUE_TYPE, nullptr);
    PffRecordEntryHandle entry(found);
    if (result < 0) throw reading_->Failure("the file is damaged (properties cannot be read)");
    if (result == 0 || libpff_record_entry_get_value_type(found, &type, nullptr) != 1) return nullptr;
    return entry;
}

std::optional<std::string> PffProperties::Text(uint32_t property) const {
    uint32_t type = 0;
    const auto entry = Entry(property, type);
    if (entry && type == typeUnicode) return Utf8OfUtf16(Data(entry.get(), *reading_));
    if (entry && type == typeString8) return TextOfString8(entry.get(), *reading_);
    return std::nullopt;
}

std::optional<std::vector<uint8_t>> PffProperties::Binary(uint32_t property) const {
    uint32_t type = 0;
    const auto entry = Entry(property, type);
    if (!entry || type != typeBinary) return std::nullopt;
    return Data(entry.get(), *reading_);
}

std::optional<uint32_t> PffProperties::Long(uint32_t property) const {
    uint32_t type = 0;
    uint32_t value = 0;
    const auto entry = Entry(property, type);
    if (!entry || type != typeLong) return std::nullopt;
    Check(libpff_record_entry_get_data_as_32bit_integer(entry.get(), &value, nullptr), *reading_,
          "a number is unreadable");
    return value;
}

uint32_t PffItem::Node() const {
    uint32_t node = 0;
    Check(libpff_item_get_identifier(item_.get(), &node, nullptr), *reading_, "an item has no number");
    return node;
}

int PffItem::RowCount() const {
    int count = 0;
    Check(libpff_item_get_number_of_record_sets(item_.get(), &count, nullptr), *reading_, "a table cannot be read");
    return count;
}

PffProperties PffItem::Row(int index) const {
    reading_->CheckLimits();
    libpff_record_set_t* set = nullptr;
    Check(libpff_item_get_record_set_by_index(item_.get(), index, &set, nullptr), *reading_,
          "an item has no properties");
    return {PffRecordSetHandle(set), *reading_};
}

int PffItem::FolderCount() const {
    int count = 0;
    Check(libpff_folder_get_number_of_sub_folders(item_.get(), &count, nullptr), *reading_,
          "a list of folders is unreadable");
    return count;
}

PffItem PffItem::FolderAt(int index) const {
    libpff_item_t* folder = nullptr;
    Check(libpff_folder_get_sub_folder(item_.get(), index, &folder, nullptr), *reading_, "a folder cannot be read");
    return {PffItemHandle(folder), *reading_};
}

PffFile::PffFile(const std::filesystem::path& file, PstReading& reading) : reading_(reading), input_(file, reading) {
    libpff_file_t* opened = nullptr;
    Check(libpff_file_initialize(&opened, nullptr), reading_, "libpff cannot start");
    file_.reset(opened);
    if (!input_.OpenAs(opened)) throw reading_.Failure("it is no PST file, or a damaged one");
}

bool PffFile::IsUnicode() const {
    uint8_t type = 0;
    return libpff_file_get_type(file_.get(), &type, nullptr) == 1 && type != LIBPFF_FILE_TYPE_32BIT;
}

PffItem PffFile::MessageStore() const {
    libpff_item_t* item = nullptr;
    Check(libpff_file_get_message_store(file_.get(), &item, nullptr), reading_, "it has no message store");
    return {PffItemHandle(item), reading_};
}

PffItem PffFile::RootFolder() const {
    libpff_item_t* item = nullptr;
    Check(libpff_file_get_root_folder(file_.get(), &item, nullptr), reading_, "it has no root folder");
    return {PffItemHandle(item), reading_};
}

std::optional<PffItem> PffFile::Node(uint32_t node) const {
    libpff_item_t* item = nullptr;
    if (libpff_file_get_item_by_identifier(file_.get(), node, &item, nullptr) != 1) return std::nullopt;
    return PffItem(PffItemHandle(item), reading_);
}

}  // namespace localstores
