// PersistedProperties: the settings that a container saves, with their defaults.
#pragma once

#include "common/ControlContext.h"
#include "common/PropertyBag.h"

namespace foldertree {

/// Reads every setting straight into the state, so that no setter's side effect runs, and the font into the grid. A
/// value that cannot be read or converted becomes its default, with one error line; the rest is read all the same.
void ReadPersistedProperties(ControlContext& context, PropertyBag& bag);

/// Writes every setting that differs from its default.
void WritePersistedProperties(ControlContext& context, PropertyBag& bag);

}  // namespace foldertree
