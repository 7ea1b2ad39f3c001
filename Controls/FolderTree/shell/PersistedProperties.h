// PersistedProperties: the settings that a container saves, with their defaults.
#pragma once

#include "shell/ControlShell.h"
#include "shell/PropertyBag.h"

namespace foldertree {

/// Reads every setting straight into the state, so that no setter's side effect runs, and the font into the grid. A
/// value that cannot be read or converted becomes its default, with one error line; the rest is read all the same.
void ReadPersistedProperties(ControlShell& shell, PropertyBag& bag);

/// Writes every setting that differs from its default.
void WritePersistedProperties(ControlShell& shell, PropertyBag& bag);

}  // namespace foldertree
