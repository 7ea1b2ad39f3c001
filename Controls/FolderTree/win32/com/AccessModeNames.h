// AccessModeNames: the access modes as users read them.
#pragma once

#include <iterator>
#include <string_view>

namespace foldertree {

/// By the number of the mode.
inline constexpr std::wstring_view accessModeNames[] = {L"RDO, hierarchy tables", L"RDO, folder objects",
                                                        L"Outlook object model", L"CDO"};
inline constexpr int accessModeCount = static_cast<int>(std::size(accessModeNames));

}  // namespace foldertree
