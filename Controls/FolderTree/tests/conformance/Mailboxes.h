// Mailboxes: the mailboxes that all modes read.
#pragma once

#include "modes/ModeMailbox.h"

namespace foldertree::testing {

/// Three stores with every kind of folder that some mode treats in its own way, default folders, four levels, names of
/// several scripts, and address lists inside address lists.
ModeMailbox ManyKinds();

/// Two stores, one of them nearly empty, with ordinary folders only, in the order of their names: all modes show the
/// same folders in the same order. Two address lists, one inside the other.
ModeMailbox OrdinaryFolders();

/// What the sample mailbox of the local stores holds.
ModeMailbox LocalSample();

}  // namespace foldertree::testing
