// MailboxRows: the rows that the benchmarks load: ten stores of folders in three levels, with identifiers of real
// lengths.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace foldertree::bench {

/// One row's texts. Views stay valid as long as the rows, the key until the next row is taken.
struct MailboxRow {
    int16_t level = 0;  ///< 0 for a store
    std::string_view name;
    std::string_view path;
    std::string_view storeId;       ///< 264 bytes in hexadecimal
    std::string_view entryId;       ///< 46 bytes in hexadecimal, empty for a store
    std::string_view shortEntryId;  ///< 24 bytes in hexadecimal, empty for a store
    std::string_view key;
};

/// Deterministic rows, made beforehand, so that a benchmark measures its own work and not theirs.
class MailboxRows {
  public:
    /// `folders` in all, in ten stores; every 101st folder of a store is on level 1, those behind it lie below it.
    explicit MailboxRows(int32_t folders);

    int32_t Count() const { return static_cast<int32_t>(rows_.size()); }
    /// Bytes of name, path and both entry identifiers of all rows.
    size_t OwnTextBytes() const { return texts_.size(); }

    MailboxRow Row(int32_t index);
    /// The key of a row in a string of its own.
    std::string KeyOf(int32_t index) { return std::string(Row(index).key); }

    static std::string Identifier(uint64_t seed, int bytes);

  private:
    struct Packed {
        size_t start = 0;  ///< of name, path, entry identifier and short entry identifier, one behind the other
        uint16_t name = 0;
        uint16_t path = 0;
        uint8_t store = 0;
        uint8_t level = 0;
    };
    static constexpr int stores = 10;
    static constexpr size_t entryLength = 92;
    static constexpr size_t shortLength = 48;

    void Append(uint8_t store, uint8_t level, std::string_view name, std::string_view path, uint64_t seed);

    std::vector<std::string> storeIds_;
    std::vector<std::string> keys_;  ///< one a store: only the entry identifier at its end changes from row to row
    std::string texts_;
    std::vector<Packed> rows_;
};

}  // namespace foldertree::bench
