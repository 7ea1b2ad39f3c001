// CallDigest: a log of outside calls in a form that a person can read.
#pragma once

#include "support/ControlTest.h"

namespace foldertree::testing {

/// One line for each run of calls on one object: `Folder(Inbox): Name, EntryID, Folders`.
Lines DigestOf(const Lines& calls);

/// How many calls there are in all and on each folder, its collection, table and fields included:
/// `41 calls: Inbox 9, Zoo 6`. What concerns no single folder is in the total only.
std::string CountsOf(const Lines& calls);

}  // namespace foldertree::testing
