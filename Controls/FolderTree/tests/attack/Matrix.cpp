// Matrix: the dry runs, the sample and the combination.
#include "attack/Matrix.h"

#include <algorithm>
#include <random>
#include <tuple>

#include "support/ControlTest.h"

namespace foldertree::attack {

namespace {

std::vector<Trap::Passed> PlacesOf(const Setting& setting, const Member& member) {
    const auto trap = std::make_shared<Trap>();
    World world(setting, trap);
    trap->Record();
    member.call(world, *world.raw);
    trap->Disarm();
    return trap->Noted();
}

std::vector<std::string> FreshTree(const Setting& setting) {
    World world(setting, std::make_shared<Trap>());
    world.StartAnew();
    return testing::TreeOf(world.control->Grid());
}

}  // namespace

Matrix::Matrix() {
    for (const Setting& setting : Settings()) {
        freshTrees_[&setting] = FreshTree(setting);
        for (const Member& member : Members()) {
            if (setting.selectionOnly && member.reads) continue;
            runs_.push_back({&setting, &member, PlacesOf(setting, member)});
            const auto run = static_cast<uint16_t>(runs_.size() - 1);
            for (size_t place = 0; place < runs_.back().places.size(); ++place)
                for (size_t action = 0; action < HostActions().size(); ++action)
                    if (!HostActions()[action].throws || MayThrow(runs_.back().places[place].place))
                        all_.push_back({run, static_cast<uint16_t>(place), static_cast<uint16_t>(action)});
        }
    }
}

std::vector<Combination> Matrix::Sample(size_t size, uint32_t seed) const {
    std::vector<Combination> shuffled = all_;
    std::mt19937 random(seed);
    // Not std::shuffle, whose order differs from library to library.
    for (size_t left = shuffled.size(); left > 1; --left) std::swap(shuffled[left - 1], shuffled[random() % left]);

    std::set<std::tuple<int, int>> placeActions;
    std::set<std::tuple<int, int>> runPlaces;
    const auto isNew = [&](const Combination& each) {
        const int place = static_cast<int>(runs_[each.run].places[each.place].place);
        const bool newAction = placeActions.emplace(place, each.action).second;
        const bool newRun = runPlaces.emplace(each.run, place).second;
        return newAction || newRun;
    };
    const auto rest = std::stable_partition(shuffled.begin(), shuffled.end(), isNew);
    const auto wanted = static_cast<std::ptrdiff_t>(std::min(size, shuffled.size()));
    shuffled.erase(std::max(rest, shuffled.begin() + wanted), shuffled.end());
    return shuffled;
}

Findings Matrix::Run(const Combination& combination) const {
    const MatrixRun& run = runs_[combination.run];
    const HostAction& action = HostActions()[combination.action];
    const Trap::Passed& expected = run.places[combination.place];
    const int liveBefore = LiveObjects();
    Findings findings;
    {
        const auto trap = std::make_shared<Trap>();
        World world(*run.setting, trap);
        bool acted = false;
        trap->Set(combination.place + 1, [&] {
            acted = true;
            action.act(world);
        });
        run.member->call(world, *world.raw);
        if (!acted || trap->SprungAt().place != expected.place)
            findings.push_back("the place was not reached: " + std::string(NameOf(expected.place)));
        trap->Disarm();
        CheckIdle(world, findings);
        CheckBystanders(world, findings);
        CheckGrid(world, findings);
        CheckFreshStart(world, freshTrees_.at(run.setting), findings);
        CheckEnd(world, findings);
    }
    if (LiveObjects() != liveBefore) findings.push_back("objects of the host were not released");
    return findings;
}

std::string Matrix::Write(const Combination& combination) const {
    const MatrixRun& run = runs_[combination.run];
    return std::string(run.setting->name) + "; " + run.member->name + "; " + std::to_string(combination.place + 1) +
           "; " + HostActions()[combination.action].name;
}

std::optional<Combination> Matrix::Read(const std::string& text) const {
    const auto found =
        std::find_if(all_.begin(), all_.end(), [&](const Combination& each) { return Write(each) == text; });
    if (found == all_.end()) return std::nullopt;
    return *found;
}

}  // namespace foldertree::attack
