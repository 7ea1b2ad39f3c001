// Trap: counts the places that a run passes, and springs at one of them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "attack/Border.h"

namespace foldertree::attack {

class Trap : public Border {
  public:
    struct Passed {
        Place place;
        std::string what;
    };

    /// From now on each place is noted.
    void Record();
    /// From now on places are counted from 1 again; at number `at` the trap springs, once.
    void Set(int at, std::function<void()> act);
    /// Places are passed without notice.
    void Disarm();

    const std::vector<Passed>& Noted() const { return noted_; }
    /// Whether it sprang, and where.
    bool Sprung() const { return sprung_; }
    const Passed& SprungAt() const { return sprungAt_; }

    void Reach(Place place, std::string_view what) override;

  private:
    bool recording_ = false;
    std::vector<Passed> noted_;
    int at_ = 0;
    int passed_ = 0;
    bool sprung_ = false;
    Passed sprungAt_{};
    std::function<void()> act_;
};

}  // namespace foldertree::attack
