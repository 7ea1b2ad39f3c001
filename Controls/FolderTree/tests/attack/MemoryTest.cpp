// MemoryTest: memory that runs out at any allocation of any member. Run as a program it plays the whole table.
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <set>

#include "attack/MemoryTable.h"
#include "attack/Program.h"
#include "attack/Workers.h"

namespace foldertree::attack {
namespace {

const MemoryTable& TheTable() {
    static const MemoryTable table;
    return table;
}

/// What came of the failures of one scenario, by Outcome.
using Outcomes = std::array<size_t, 4>;

struct Line {
    Outcomes once{};
    Outcomes on{};
};

void PrintLine(const std::string& name, int64_t allocations, const Line& line) {
    std::cout << std::left << std::setw(50) << name << std::right << std::setw(7) << allocations;
    for (const Outcomes& outcomes : {line.once, line.on}) {
        std::cout << "  |";
        for (const size_t count : outcomes) std::cout << std::setw(7) << count;
    }
    std::cout << "\n";
}

void PrintTable(const std::vector<Line>& lines) {
    std::cout << std::left << std::setw(50) << "scenario" << std::right << std::setw(7) << "asked";
    for (int times = 0; times < 2; ++times) std::cout << "  |   same   told silent  escap";
    std::cout << "\n";
    Line sum;
    int64_t allocations = 0;
    for (size_t each = 0; each < lines.size(); ++each) {
        const MemoryScenario& scenario = TheTable().Scenarios()[each];
        for (size_t outcome = 0; outcome < sum.once.size(); ++outcome) {
            sum.once[outcome] += lines[each].once[outcome];
            sum.on[outcome] += lines[each].on[outcome];
        }
        allocations += scenario.allocations;
        if (scenario.allocations > 0) PrintLine(scenario.Name(), scenario.allocations, lines[each]);
    }
    PrintLine("all (failed once | failed from then on)", allocations, sum);
    std::set<std::string> modest;
    for (const MemoryScenario& scenario : TheTable().Scenarios()) modest.insert(scenario.member->name);
    for (const MemoryScenario& scenario : TheTable().Scenarios())
        if (scenario.allocations > 0) modest.erase(scenario.member->name);
    std::cout << "without any allocation:";
    for (const std::string& name : modest) std::cout << " " << name << ";";
    std::cout << "\n";
}

constexpr std::string_view outcomeMark = "@";

std::vector<std::string> RunJob(const Failure& failure) {
    MemoryTable::Result result = TheTable().Run(failure);
    // The outcome of each job comes back beside its findings.
    result.findings.push_back(std::string(outcomeMark) + std::to_string(static_cast<int>(result.outcome)));
    return std::move(result.findings);
}

/// Plays them in child processes and prints the table and the findings. Returns the number of findings.
size_t Play(const std::vector<Failure>& failures, bool full) {
    const StopWatch watch;
    const Work work{.jobs = failures.size(),
                    .run = [&](size_t job) { return RunJob(failures[job]); },
                    .progress =
                        [&](size_t done) {
                            if (full) watch.Tell(done, failures.size());
                        }};
    std::vector<Line> lines(TheTable().Scenarios().size());
    Tally tally;
    for (const JobFinding& each : RunInWorkers(work)) {
        const Failure& failure = failures[each.job];
        if (each.text.starts_with(outcomeMark)) {
            Line& line = lines[failure.scenario];
            ++(failure.andAllAfter ? line.on : line.once)[std::stoul(each.text.substr(outcomeMark.size()))];
        } else {
            tally.Add(TheTable().Scenarios()[failure.scenario].member->name + ": " + each.text,
                      TheTable().Write(failure));
        }
    }
    if (full) PrintTable(lines);
    std::cout << tally.Report() << failures.size() << " failed allocations of " << TheTable().All().size() << " in "
              << TheTable().Scenarios().size() << " scenarios in " << watch.Seconds() << " seconds, " << tally.Count()
              << " findings" << std::endl;
    return tally.Count();
}

TEST(MemoryThatRunsOut, LosesNothingInASampleOfTheAllocations) {
    constexpr size_t affordable = 2500;
    const size_t size = TheOptions().sample > 0 ? TheOptions().sample : affordable;
    const std::vector<Failure> sample = TheTable().Sample(size, TheOptions().seed);
    EXPECT_GE(sample.size(), size);
    EXPECT_EQ(Play(sample, false), 0u);
}

TEST(MemoryThatRunsOut, IsTriedInScenariosThatAskForMemory) {
    for (const char* name :
         {"tables; RefreshList", "objects; RefreshList", "outlook; RefreshList", "cdo; RefreshList",
          "tables; the user opens a node", "tables; the user ticks", "tables; the user types a number",
          "tables; SelectAll", "tables; SelectNone", "tables; SelectByType mail", "tables; GetMsgItem",
          "tables; Selection", "tables; ReadProperties", "tables; another control is made"}) {
        int64_t allocations = 0;
        for (const MemoryScenario& scenario : TheTable().Scenarios())
            if (scenario.Name() == name) allocations = scenario.allocations;
        EXPECT_GT(allocations, 0) << name;
    }
}

TEST(MemoryThatRunsOut, IsToldWithoutAnyMemory) {
    // In this mode nothing longer than the error line has been traced before.
    for (const Failure& failure : TheTable().All()) {
        if (TheTable().Write(failure) != "outlook; RefreshList; 1 on") continue;
        EXPECT_EQ(TheTable().Run(failure).outcome, Outcome::Told);
        return;
    }
    FAIL() << "there is no such scenario";
}

Snapshot SmallSnapshot() {
    Snapshot snapshot;
    snapshot.rows = {{"one", {"a", "b"}, 0, true, 0}, {"two", {"c", "d"}, 1, false, 0}};
    snapshot.keys = {"key"};
    return snapshot;
}

TEST(CheckBetween, TellsOfWhatIsLostOrMixedUp) {
    const Expectations expected{.before = SmallSnapshot(), .after = SmallSnapshot()};
    const auto findingsOf = [&](auto&& change) {
        Snapshot now = SmallSnapshot();
        change(now);
        Findings findings;
        CheckBetween(now, expected, false, findings);
        return findings.size();
    };
    EXPECT_EQ(findingsOf([](Snapshot&) {}), 0u);
    EXPECT_EQ(findingsOf([](Snapshot& now) { now.rows.pop_back(); }), 1u);
    EXPECT_EQ(findingsOf([](Snapshot& now) { now.rows[1].texts[1] = "b"; }), 1u);
    EXPECT_EQ(findingsOf([](Snapshot& now) { std::swap(now.rows[0], now.rows[1]); }), 1u);
    EXPECT_EQ(findingsOf([](Snapshot& now) { now.rows.push_back({"", {"", ""}, 0, false, 0}); }), 1u);
    EXPECT_EQ(findingsOf([](Snapshot& now) { now.keys.clear(); }), 1u);
    EXPECT_EQ(findingsOf([](Snapshot& now) { now.keys.insert("other"); }), 1u);
}

}  // namespace

/// Plays one failure in this process and shows what the control traces meanwhile.
bool Replay(const std::string& text) {
    const auto failure = TheTable().Read(text);
    if (!failure) {
        std::cerr << "there is no such failure\n";
        return false;
    }
    const MemoryTable::Result result = TheTable().Run(*failure);
    std::cout << result.trace;
    for (const std::string& each : result.findings) std::cout << each << "\n";
    return result.findings.empty();
}

bool PlayAll() {
    return Play(MyPart(TheTable().All()), true) == 0;
}

}  // namespace foldertree::attack

int main(int argc, char** argv) {
    return foldertree::attack::RunProgram(
        argc, argv, {.playAll = foldertree::attack::PlayAll, .replay = foldertree::attack::Replay});
}
