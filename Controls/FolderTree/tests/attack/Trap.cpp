// Trap: counting and springing.
#include "attack/Trap.h"

namespace foldertree::attack {

void Trap::Record() {
    Disarm();
    noted_.clear();
    recording_ = true;
}

void Trap::Set(int at, std::function<void()> act) {
    Disarm();
    at_ = at;
    passed_ = 0;
    sprung_ = false;
    act_ = std::move(act);
}

void Trap::Disarm() {
    recording_ = false;
    at_ = 0;
    act_ = nullptr;
}

void Trap::Reach(Place place, std::string_view what) {
    if (recording_) noted_.push_back({place, std::string(what)});
    if (at_ == 0 || ++passed_ != at_) return;
    sprung_ = true;
    sprungAt_ = {place, std::string(what)};
    // Sprung once: what the act does is not stopped by the trap again.
    const auto act = std::move(act_);
    Disarm();
    act();
}

}  // namespace foldertree::attack
