// SampleMailbox: a made-up mailbox to look at and to test with, with no file behind it.
#pragma once

#include "localstores/OpenStores.h"

namespace localstores {

/// Three stores: public folders, the default mailbox and an archive without a provider name. Between them they have
/// every kind of folder that a tree must cope with: all container classes, classes that belong to nothing, an empty
/// class and a missing one, search folders, six levels, and names in many scripts.
StoreList SampleMailbox();

}  // namespace localstores
