// HighContrast: whether the user has chosen a high-contrast theme.
#include "win32/HighContrast.h"

#include <windows.h>

namespace foldertree {

bool IsHighContrast() {
    HIGHCONTRASTW settings{};
    settings.cbSize = sizeof settings;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof settings, &settings, 0) != FALSE &&
           (settings.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace foldertree
