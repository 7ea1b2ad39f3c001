// DisjointPlaces: directories of which none lies within another.
#pragma once

#include <functional>
#include <iterator>
#include <set>
#include <string>
#include <utility>

namespace localstores {

/// Two look-ups decide about a directory, however many there are. `Less` is the order of texts by their bytes; tests
/// count its calls.
template <class Less = std::less<std::string>>
class DisjointPlaces {
  public:
    explicit DisjointPlaces(Less less = {}) : places_(std::move(less)) {}

    /// Takes in a whole path, its parts separated by "/", unless it is known, lies within one that is known, or holds
    /// one. Whether it was taken in.
    bool Add(std::string place) {
        // With a separator at its end, a place begins like every place that holds it, and like no other.
        if (!place.ends_with('/')) place += '/';
        // What a place holds follows it at once; and between a place and what it holds stands nothing else.
        const auto next = places_.lower_bound(place);
        if (next != places_.end() && next->starts_with(place)) return false;
        if (next != places_.begin() && place.starts_with(*std::prev(next))) return false;
        places_.insert(next, std::move(place));
        return true;
    }

  private:
    std::set<std::string, Less> places_;
};

}  // namespace localstores
