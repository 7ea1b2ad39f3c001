// HighContrast: whether the user has chosen a high-contrast theme.
#pragma once

namespace foldertree {

/// As the system says now.
bool IsHighContrast();

}  // namespace foldertree
