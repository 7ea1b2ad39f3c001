// Figures: best times by name and size.
#include "Figures.h"

#include <map>
#include <utility>

namespace foldertree::bench {

namespace {

std::map<std::pair<std::string, int64_t>, double>& Times() {
    static std::map<std::pair<std::string, int64_t>, double> times;
    return times;
}

}  // namespace

void Remember(const std::string& name, int64_t size, double seconds) {
    const auto [place, isNew] = Times().try_emplace({name, size}, seconds);
    if (!isNew && seconds < place->second) place->second = seconds;
}

double Best(const std::string& name, int64_t size) {
    const auto found = Times().find({name, size});
    return found == Times().end() ? 0 : found->second;
}

void ShowGrowth(benchmark::State& state, const std::string& name) {
    const double smaller = Best(name, state.range(0) / 10);
    if (smaller > 0) state.counters["growth"] = Best(name, state.range(0)) / smaller;
}

void ShowRatio(benchmark::State& state, const std::string& name, const std::string& floor) {
    const double least = Best(floor, state.range(0));
    if (least > 0) state.counters["of_floor"] = Best(name, state.range(0)) / least;
}

}  // namespace foldertree::bench
