// MatrixTest: a host that does anything at any place where its code runs. Run as a program it plays the whole matrix.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>

#include "attack/Matrix.h"
#include "attack/Workers.h"

namespace foldertree::attack {
namespace {

struct Options {
    bool full = false;
    size_t part = 0;  ///< of `parts`, from 0
    size_t parts = 1;
    uint32_t seed = 1;
    size_t sample = 4000;
    std::string replay;
};
Options options;

const Matrix& TheMatrix() {
    static const Matrix matrix;
    return matrix;
}

double SecondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
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

struct Result {
    size_t findings = 0;
    std::string report;
};

/// Plays them in child processes; the report tells of each kind of finding and how to play it again.
Result Play(const std::vector<Combination>& combinations, bool tellProgress) {
    const auto start = std::chrono::steady_clock::now();
    const auto progress = [&](size_t done) {
        if (!tellProgress) return;
        std::cout << done << " of " << combinations.size() << ", " << static_cast<int>(SecondsSince(start)) << " s"
                  << std::endl;
    };
    const Work work{.jobs = combinations.size(),
                    .run = [&](size_t job) { return TheMatrix().Run(combinations[job]); },
                    .progress = progress};
    Result result;
    std::map<std::string, std::pair<size_t, std::string>> kinds;
    for (const JobFinding& each : RunInWorkers(work)) {
        ++result.findings;
        const Combination& combination = combinations[each.job];
        const std::string kind = TheMatrix().Runs()[combination.run].member->name + ": " + each.text;
        auto& [count, example] = kinds[kind];
        if (++count == 1)
            example = "--replay=\"" + TheMatrix().Write(combination) + "\" at " + TheMatrix().PlaceOf(combination);
    }
    std::ostringstream report;
    for (const auto& [kind, told] : kinds) report << told.first << " x " << kind << "\n    " << told.second << "\n";
    const Coverage coverage(combinations);
    report << combinations.size() << " combinations of " << TheMatrix().All().size() << " (" << coverage.members.size()
           << " members, " << coverage.places.size() << " kinds of places, " << coverage.actions.size() << " actions), "
           << SecondsSince(start) << " s, " << result.findings << " findings\n";
    result.report = report.str();
    return result;
}

TEST(HostCodeAnywhere, LeavesNothingBehindInASampleOfTheMatrix) {
    const std::vector<Combination> sample = TheMatrix().Sample(options.sample, options.seed);
    const Coverage coverage(sample);
    for (int place = 0; place < placeCount; ++place)
        EXPECT_GT(coverage.places.count(static_cast<Place>(place)), 0u)
            << "no " << NameOf(static_cast<Place>(place)) << " was passed";
    EXPECT_EQ(coverage.actions.size(), HostActions().size());
    const Result result = Play(sample, false);
    EXPECT_EQ(result.findings, 0u);
    std::cout << result.report;
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

/// Plays one combination in this process; returns the exit code.
int Replay() {
    const auto combination = TheMatrix().Read(options.replay);
    if (!combination) {
        std::cerr << "there is no such combination\n";
        return EXIT_FAILURE;
    }
    std::cout << "at " << TheMatrix().PlaceOf(*combination) << "\n";
    const Findings findings = TheMatrix().Run(*combination);
    for (const std::string& each : findings) std::cout << each << "\n";
    return findings.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

int PlayPart() {
    std::vector<Combination> part;
    const std::vector<Combination> all = TheMatrix().Sample(TheMatrix().All().size(), options.seed);
    for (size_t number = options.part; number < all.size(); number += options.parts) part.push_back(all[number]);
    const Result result = Play(part, true);
    std::cout << result.report;
    return result.findings == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

bool ReadOption(const std::string& argument) {
    const auto value = [&](const char* name) -> std::optional<std::string> {
        if (!argument.starts_with(name)) return std::nullopt;
        return argument.substr(std::string(name).size());
    };
    if (argument == "--full") {
        options.full = true;
    } else if (const auto part = value("--part=")) {
        const size_t slash = part->find('/');
        if (slash == std::string::npos) return false;
        options.part = std::stoul(part->substr(0, slash)) - 1;
        options.parts = std::stoul(part->substr(slash + 1));
        return options.part < options.parts;
    } else if (const auto seed = value("--seed=")) {
        options.seed = static_cast<uint32_t>(std::stoul(*seed));
    } else if (const auto sample = value("--sample=")) {
        options.sample = std::stoul(*sample);
    } else if (const auto replay = value("--replay=")) {
        options.replay = *replay;
    } else {
        return false;
    }
    return true;
}

int Main() {
    if (!options.replay.empty()) return Replay();
    return options.full ? PlayPart() : RUN_ALL_TESTS();
}

}  // namespace foldertree::attack

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    for (int i = 1; i < argc; ++i) {
        if (foldertree::attack::ReadOption(argv[i])) continue;
        std::cerr << "usage: matrix_tests [--full [--part=N/OF]] [--seed=S] [--sample=SIZE] [--replay=COMBINATION]\n";
        return EXIT_FAILURE;
    }
    return foldertree::attack::Main();
}
