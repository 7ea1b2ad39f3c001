// SampleMailbox: a made-up mailbox to look at and to test with, with no file behind it.
#pragma once

#include "localstores/OpenStores.h"

namespace localstores {

/// Whether the path names the sample mailbox, with or without options.
bool IsSamplePath(std::string_view path);

/// Three stores: public folders, the default mailbox and an archive without a provider name. Between them they have
/// every kind of folder that a tree must cope with: all container classes, classes that belong to nothing, an empty
/// class and a missing one, search folders, six levels, and names in many scripts. With the mailbox comes an address
/// book of lists in lists. Throws automation::Error for options that are none.
StoreList SampleMailbox(std::string_view path);

}  // namespace localstores
