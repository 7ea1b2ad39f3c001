// MemoryTable: counting, failing and judging.
#include "attack/MemoryTable.h"

#include <algorithm>
#include <new>
#include <random>

#include "support/ControlTest.h"

namespace foldertree::attack {

using automation::testing::FailingMemory;
using automation::testing::MemoryPlan;
using automation::testing::SparedMemory;

namespace {

/// Foreign code has memory enough: only the control's own allocations fail.
class SparingBorder : public Border {
  public:
    void Enter() override {
        if (depth_++ == 0) spared_.emplace();
    }
    void Leave() override {
        if (--depth_ == 0) spared_.reset();
    }

  private:
    int depth_ = 0;
    std::optional<SparedMemory> spared_;
};

const Member& LastReference() {
    static const Member member{"the last reference goes", "~ctlFolderTree",
                               [](World& world, ctlFolderTree&) { world.control.reset(); }};
    return member;
}

/// A gesture's first write to the grid is the window's, and so is the error when it fails; a control that cannot be
/// made is no control.
bool MayEscape(const Member& member) {
    return member.function.starts_with("fgd_") || member.function == "Create";
}

bool Rereads(const Member& member) {
    return member.function == "RefreshList" || member.function == "SetExtendToLevel";
}

struct Ran {
    bool escaped = false;
    int64_t asked = 0;
    int64_t refused = 0;
};

Ran RunMember(World& world, const Member& member, const MemoryPlan& plan) {
    Ran ran;
    const FailingMemory memory(plan);
    try {
        member.call(world, *world.raw);
    } catch (const std::bad_alloc&) {
        ran.escaped = true;
    }
    ran.asked = memory.Asked();
    ran.refused = memory.Refused();
    return ran;
}

bool IsTold(const std::vector<std::string>& lines, size_t from) {
    return std::any_of(lines.begin() + static_cast<std::ptrdiff_t>(from), lines.end(),
                       [](const std::string& line) { return line.find("0x8007000E") != std::string::npos; });
}

/// The ticks in the tree are what is picked: an item that could not be put back comes with the next reading.
void ReadMissingItemsAgain(World& world, const Expectations& expected, Snapshot& now) {
    const auto isMissing = [&](const std::string& key) {
        return expected.after.keys.contains(key) && !now.keys.contains(key);
    };
    if (!world.control || std::ranges::none_of(expected.before.keys, isMissing)) return;
    world.control->Selection();
    now.keys.merge(Take(world).keys);
}

std::vector<std::string> FreshTree(const Setting& setting) {
    World world(setting, std::make_shared<SparingBorder>());
    world.StartAnew();
    return testing::TreeOf(world.control->Grid());
}

}  // namespace

MemoryTable::MemoryTable() {
    for (const Setting& setting : Settings()) {
        if (setting.selectionOnly) continue;
        freshTrees_[&setting] = FreshTree(setting);
        const auto add = [&](const Member& member) {
            MemoryScenario scenario{&setting, &member, {}, 0};
            World world(setting, std::make_shared<SparingBorder>());
            scenario.expected.before = Take(world);
            scenario.expected.rereads = Rereads(member);
            scenario.expected.defaultsAllowed = member.function == "UserControl_ReadProperties";
            scenario.allocations = RunMember(world, member, {}).asked;
            scenario.expected.after = Take(world);
            scenarios_.push_back(std::move(scenario));
        };
        for (const Member& member : Members()) add(member);
        add(LastReference());
    }
    for (const bool andAllAfter : {false, true})
        for (size_t scenario = 0; scenario < scenarios_.size(); ++scenario)
            for (int64_t allocation = 1; allocation <= scenarios_[scenario].allocations; ++allocation)
                all_.push_back({static_cast<uint16_t>(scenario), andAllAfter, allocation});
}

std::vector<Failure> MemoryTable::Sample(size_t size, uint32_t seed) const {
    std::vector<Failure> sample;
    std::mt19937 random(seed);
    const size_t step = std::max<size_t>(1, all_.size() / std::max<size_t>(1, size));
    for (size_t from = 0; from < all_.size(); from += step)
        sample.push_back(all_[from + random() % std::min(step, all_.size() - from)]);
    return sample;
}

MemoryTable::Result MemoryTable::Run(const Failure& failure) const {
    const MemoryScenario& scenario = scenarios_[failure.scenario];
    Result result;
    Findings& findings = result.findings;
    const int liveBefore = LiveObjects();
    {
        World world(*scenario.setting, std::make_shared<SparingBorder>());
        const size_t linesBefore = world.platform.lines.size();
        const Ran ran = RunMember(world, *scenario.member, {failure.allocation, failure.andAllAfter});
        if (ran.refused == 0) findings.push_back("the allocation was not asked for");
        if (ran.escaped && !MayEscape(*scenario.member)) findings.push_back("the error left the member");
        for (size_t line = linesBefore; line < world.platform.lines.size(); ++line)
            result.trace += world.platform.lines[line] + "\n";

        Snapshot now = Take(world);
        const bool told = IsTold(world.platform.lines, linesBefore);
        const bool same = now == scenario.expected.after;
        result.outcome = ran.escaped ? Outcome::Escaped : told ? Outcome::Told : same ? Outcome::Same : Outcome::Silent;
        if (result.outcome == Outcome::Silent)
            findings.push_back("something is missing and no line of the trace tells");
        ReadMissingItemsAgain(world, scenario.expected, now);
        CheckBetween(now, scenario.expected, told, findings);
        CheckIdle(world, findings);
        CheckGrid(world, findings);
        CheckFreshStart(world, freshTrees_.at(scenario.setting), findings);
        CheckEnd(world, findings);
    }
    if (LiveObjects() != liveBefore) findings.push_back("objects of the host were not released");
    return result;
}

std::string MemoryTable::Write(const Failure& failure) const {
    return scenarios_[failure.scenario].Name() + "; " + std::to_string(failure.allocation) +
           (failure.andAllAfter ? " on" : "");
}

std::optional<Failure> MemoryTable::Read(const std::string& text) const {
    const auto found = std::find_if(all_.begin(), all_.end(), [&](const Failure& each) { return Write(each) == text; });
    if (found == all_.end()) return std::nullopt;
    return *found;
}

}  // namespace foldertree::attack
