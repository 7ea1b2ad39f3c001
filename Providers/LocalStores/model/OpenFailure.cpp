// OpenFailure: the wording of the errors.
#include "localstores/OpenFailure.h"

#include <string>

namespace localstores {
namespace {

constexpr uint32_t corruptStore = 0x8004011B;
constexpr uint32_t collision = 0x80040604;
constexpr uint32_t tooBig = 0x80040305;

automation::Error CannotOpen(uint32_t number, std::string_view path, std::string_view reason) {
    return {number, "Cannot open \"" + std::string(path) + "\": " + std::string(reason) + "."};
}

}  // namespace

automation::Error DamagedStore(std::string_view path, std::string_view reason) {
    return CannotOpen(corruptStore, path, reason);
}

automation::Error NoSuchStore(std::string_view path, std::string_view reason) {
    return CannotOpen(automation::errors::mapiNotFound, path, reason);
}

automation::Error StoreCollision(std::string_view path, std::string_view reason) {
    return CannotOpen(collision, path, reason);
}

automation::Error CostlyStore(std::string_view path, std::string_view reason) {
    return CannotOpen(tooBig, path, reason);
}

}  // namespace localstores
