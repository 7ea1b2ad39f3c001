// AccessibleHost: what the accessible tree must be told, since a grid cannot know it.
#include "accessible/AccessibleHost.h"

namespace foldertree {
namespace {

class NoHost final : public AccessibleHost {
  public:
    std::string DisplayName() const override { return {}; }
    std::optional<int32_t> Numbers() const override { return std::nullopt; }
    bool Busy() const override { return false; }
    bool Enabled() const override { return true; }
};

}  // namespace

const AccessibleHost& NoAccessibleHost() {
    static const NoHost host;
    return host;
}

}  // namespace foldertree
