// Mailboxes: the mailboxes that all modes read.
#pragma once

#include "common/Enumerations.h"
#include "modes/ModeMailbox.h"

namespace foldertree::testing {

/// Three stores with every kind of folder that some mode treats in its own way, default folders, four levels, names of
/// several scripts, and address lists inside address lists.
ModeMailbox ManyKinds();

/// Two stores, one of them nearly empty, with ordinary folders only, in the order of their names: all modes show the
/// same folders in the same order. Two address lists, one inside the other.
ModeMailbox OrdinaryFolders();

/// Some stores with folders of any kind in any order, the same for each seed.
ModeMailbox RandomMailbox(uint32_t seed);

/// What the sample mailbox of the local stores holds, as the object model of that mode tells it: a mail client shows no
/// searches and knows a store by its top folder, and a CDO session has one flat collection of the address lists that
/// hold addresses.
ModeMailbox LocalSample(enuInfoStoreAccessMode mode);

}  // namespace foldertree::testing
