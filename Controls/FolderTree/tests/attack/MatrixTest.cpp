// MatrixTest: a host that does anything at any place where its code runs. Run as a program it plays the whole matrix.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>

#include "attack/Matrix.h"
#include "attack/Program.h"
#include "attack/Workers.h"

namespace foldertree::attack {
namespace {

const Matrix& TheMatrix() {
    static const Matrix matrix;
    return matrix;
}

/// How often each action and each kind of place comes in the combinations.
struct Coverage {
    explicit Coverage(const std::vector<Combination>& combinations) {
        for (const Combination& each : combinations) {
            const MatrixRun& run = TheMatrix().Runs()[each.run];
            ++places[run.places[each.place].place];
            ++actions[each.action];
            ++members[run.member->name];
        }
    }
    std::map<Place, size_t> places;
    std::map<size_t, size_t> actions;
    std::map<std::string, size_t> members;
};

/// Plays them in child processes and tells what was found. Returns the number of findings.
size_t Play(const std::vector<Combination>& combinations, bool tellProgress) {
    const StopWatch watch;
    const Work work{.jobs = combinations.size(),
                    .run = [&](size_t job) { return TheMatrix().Run(combinations[job]); },
                    .progress =
                        [&](size_t done) {
                            if (tellProgress) watch.Tell(done, combinations.size());
                        }};
    Tally tally;
    for (const JobFinding& each : RunInWorkers(work)) {
        const Combination& combination = combinations[each.job];
        tally.Add(TheMatrix().Runs()[combination.run].member->name + ": " + each.text, TheMatrix().Write(combination));
    }
    const Coverage coverage(combinations);
    std::cout << tally.Report() << combinations.size() << " combinations of " << TheMatrix().All().size() << " ("
              << coverage.members.size() << " members, " << coverage.places.size() << " kinds of places, "
              << coverage.actions.size() << " actions) in " << watch.Seconds() << " seconds, " << tally.Count()
              << " findings" << std::endl;
    return tally.Count();
}

std::vector<Combination> SampleForTests() {
    constexpr size_t affordable = 4000;
    return TheMatrix().Sample(TheOptions().sample > 0 ? TheOptions().sample : affordable, TheOptions().seed);
}

TEST(HostCodeAnywhere, LeavesNothingBehindInASampleOfTheMatrix) {
    const std::vector<Combination> sample = SampleForTests();
    const Coverage coverage(sample);
    for (int place = 0; place < placeCount; ++place)
        EXPECT_GT(coverage.places.count(static_cast<Place>(place)), 0u)
            << "no " << NameOf(static_cast<Place>(place)) << " was passed";
    EXPECT_EQ(coverage.actions.size(), HostActions().size());
    EXPECT_EQ(coverage.members.size(), Coverage(TheMatrix().All()).members.size());
    EXPECT_EQ(Play(sample, false), 0u);
}

TEST(HostCodeAnywhere, IsTriedWithEveryPublicMember) {
    std::ifstream file(FOLDERTREE_SOURCE_DIR "/Controls/FolderTree/ctlFolderTree.h");
    std::set<std::string> declared;
    for (std::string line; std::getline(file, line) && line.find("private:") == std::string::npos;) {
        const size_t bracket = line.find('(');
        const bool declaration = line.starts_with("    ") && line[4] != ' ' && line[4] != '/' && line[4] != '~';
        if (!declaration || bracket == std::string::npos) continue;
        const size_t blank = line.rfind(' ', bracket);
        declared.insert(line.substr(blank + 1, bracket - blank - 1));
    }
    std::set<std::string> tried;
    for (const Member& member : Members()) tried.emplace(member.function);
    EXPECT_EQ(tried, declared);
}

/// A member that forgets what it should do is found: the checks can fail.
TEST(HostCodeAnywhere, ThatIsLeftOverIsTold) {
    World world(Settings()[0], std::make_shared<Trap>());
    world.Assign(world.QuietCollection(Holder::Host));
    world.bystanders.back().collection.items->Remove(automation::Value(1));
    world.platform.panelVisible = world.platform.busyPointer = true;
    Findings findings;
    CheckIdle(world, findings);
    EXPECT_EQ(findings.size(), 2u);
    CheckBystanders(world, findings);
    EXPECT_EQ(findings.size(), 3u);
    CheckFreshStart(world, {"another tree"}, findings);
    EXPECT_EQ(findings.size(), 4u);
}

TEST(Workers, TellOfAJobThatCrashesAndGoOn) {
    const auto findings = RunInWorkers({.jobs = 5,
                                        .run = [](size_t job) -> std::vector<std::string> {
                                            if (job == 2) std::abort();
                                            if (job == 3) return {"a finding"};
                                            return {};
                                        },
                                        .progress = nullptr});
    ASSERT_EQ(findings.size(), 2u);
    EXPECT_EQ(findings[0].job, 2u);
    EXPECT_EQ(findings[1].job, 3u);
    EXPECT_EQ(findings[1].text, "a finding");
}

TEST(Workers, TellOfAJobThatNeverEnds) {
    const auto findings = RunInWorkers({.jobs = 1,
                                        .run = [](size_t) -> std::vector<std::string> {
                                            for (volatile bool forEver = true; forEver;) continue;
                                            return {};
                                        },
                                        .secondsPerJob = 1,
                                        .progress = nullptr});
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].text, "it never ends");
}

}  // namespace

/// Plays one combination in this process.
bool Replay(const std::string& text) {
    const auto combination = TheMatrix().Read(text);
    if (!combination) {
        std::cerr << "there is no such combination\n";
        return false;
    }
    const Trap::Passed& place = TheMatrix().PlaceOf(*combination);
    std::cout << "at: " << NameOf(place.place) << " " << place.what << std::endl;
    const Findings findings = TheMatrix().Run(*combination);
    for (const std::string& each : findings) std::cout << each << "\n";
    return findings.empty();
}

bool PlayAll() {
    const auto all = TheMatrix().Sample(TheMatrix().All().size(), TheOptions().seed);
    return Play(MyPart(all), true) == 0;
}

}  // namespace foldertree::attack

int main(int argc, char** argv) {
    return foldertree::attack::RunProgram(
        argc, argv, {.playAll = foldertree::attack::PlayAll, .replay = foldertree::attack::Replay});
}
