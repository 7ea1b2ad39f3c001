// MemoryMailbox: a session over folders that exist only as numbers, so that a benchmark measures the control.
#pragma once

#include <cstdint>

#include "automation/Object.h"

namespace foldertree::bench {

struct MailboxShape {
    int32_t folders = 100'000;  ///< in all, in ten stores
    /// Children of one folder of level 2 in the middle of the tree, which a load down to level 2 leaves unread.
    int32_t deepChildren = 0;
};

/// One object that every access mode can read: RDO session, mail client and CDO session at once. Ten stores; every
/// 101st folder of a store is on level 1, the hundred behind it lie below it. Identifiers of real lengths: store 264
/// bytes, long form 46, short form 24.
automation::ObjectRef MakeMemorySession(const MailboxShape& shape);

/// The path of the folder with the deep children.
std::string_view DeepFolderPath();

}  // namespace foldertree::bench
