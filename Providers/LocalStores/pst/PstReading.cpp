// PstReading: the limits and their errors.
#include "pst/PstReading.h"

#include "localstores/OpenFailure.h"

namespace localstores {

using std::chrono::steady_clock;

PstReading::PstReading(std::string_view path, const PstLimits& limits)
    : path_(path), limits_(limits), start_(steady_clock::now()), memoryAtStart_(limits.memoryInUse()) {}

bool PstReading::IsSpent() noexcept {
    if (spent_ != Spent::Nothing) return true;
    if (steady_clock::now() - start_ >= limits_.time)
        spent_ = Spent::Time;
    else if (const size_t now = limits_.memoryInUse(); now > memoryAtStart_ && now - memoryAtStart_ > limits_.memory)
        spent_ = Spent::Memory;
    return spent_ != Spent::Nothing;
}

automation::Error PstReading::Failure(std::string_view reason) const {
    if (spent_ == Spent::Time)
        return CostlyStore(path_,
                           "reading it takes longer than " +
                               std::to_string(std::chrono::duration_cast<std::chrono::seconds>(limits_.time).count()) +
                               " seconds, so it seems to be damaged");
    if (spent_ == Spent::Memory)
        return CostlyStore(path_, "reading it takes more than " + std::to_string(limits_.memory >> 20) +
                                      " megabytes of memory, so it seems to be damaged");
    return DamagedStore(path_, reason);
}

void PstReading::CheckLimits() {
    if (IsSpent()) throw Failure({});
}

}  // namespace localstores
