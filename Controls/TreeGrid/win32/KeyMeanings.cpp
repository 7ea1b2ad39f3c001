// KeyMeanings: which key of Windows is which key of the grid.
#include "win32/KeyMeanings.h"

#include <algorithm>
#include <iterator>

namespace foldertree {
namespace {

struct KeyMeaning {
    WPARAM key;
    std::optional<GridKey> alone;
    std::optional<GridKey> withControl;
    std::optional<GridKey> withControlAndShift;
};

constexpr KeyMeaning Both(WPARAM key, GridKey alone, GridKey withControl) {
    return {key, alone, withControl, withControl};
}

constexpr KeyMeaning keys[] = {Both(VK_UP, GridKey::Up, GridKey::ScrollUp),
                               Both(VK_DOWN, GridKey::Down, GridKey::ScrollDown),
                               Both(VK_PRIOR, GridKey::PageUp, GridKey::ScrollPageUp),
                               Both(VK_NEXT, GridKey::PageDown, GridKey::ScrollPageDown),
                               Both(VK_HOME, GridKey::Home, GridKey::ScrollTop),
                               Both(VK_END, GridKey::End, GridKey::ScrollBottom),
                               Both(VK_LEFT, GridKey::Left, GridKey::ScrollLeft),
                               Both(VK_RIGHT, GridKey::Right, GridKey::ScrollRight),
                               Both(VK_SPACE, GridKey::Tick, GridKey::Tick),
                               Both(VK_F2, GridKey::Edit, GridKey::Edit),
                               {VK_BACK, GridKey::Parent, std::nullopt, std::nullopt},
                               {'C', std::nullopt, GridKey::CopyName, GridKey::CopyPath}};

constexpr WPARAM signKeys[] = {VK_ADD, VK_SUBTRACT, VK_MULTIPLY, VK_DIVIDE, VK_OEM_PLUS, VK_OEM_MINUS};

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

}  // namespace

std::optional<GridKey> MeaningOf(WPARAM key) {
    const auto* found =
        std::find_if(std::begin(keys), std::end(keys), [key](const auto& each) { return each.key == key; });
    if (found == std::end(keys)) return std::nullopt;
    // The two together are AltGr, which makes characters.
    if (!IsDown(VK_CONTROL) || IsDown(VK_MENU)) return found->alone;
    return IsDown(VK_SHIFT) ? found->withControlAndShift : found->withControl;
}

bool IsSignKey(WPARAM key) {
    return std::find(std::begin(signKeys), std::end(signKeys), key) != std::end(signKeys);
}

}  // namespace foldertree
