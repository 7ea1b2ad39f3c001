// ReferenceTest: the control and its literal version live through the same random sequences of events.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>

#include "reference/Comparison.h"
#include "reference/LiteralControl.h"
#include "reference/ProductControl.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

namespace foldertree::reference {
namespace {

struct Options {
    int64_t events = 20000;
    uint32_t seed = 1;
    int length = 200;
    double seconds = 15;  ///< stop after that long; 0 for never
    std::string replay;
};
Options options;

std::unique_ptr<ControlFace> MakeLiteralControl(ControlPlatform& platform, automation::ObjectFactory& factory) {
    return std::make_unique<LiteralControl>(platform, factory);
}

/// The same as the literal control, but for one thing: it writes the number of the second pick with two digits.
class WrongControl : public LiteralControl {
  public:
    using LiteralControl::LiteralControl;
    void ReIndex() override {
        LiteralControl::ReIndex();
        for (int32_t row = 1; row < grid.RowCount(); ++row)
            if (grid.CellText(row, colIndex) == "2") grid.SetCellText(row, colIndex, "02");
    }
};

std::unique_ptr<ControlFace> MakeWrongControl(ControlPlatform& platform, automation::ObjectFactory& factory) {
    return std::make_unique<WrongControl>(platform, factory);
}

/// What runs now: a sanitizer that ends the program says which sequence it was.
Sequence running;

#if defined(__SANITIZE_ADDRESS__)
void TellSequence() {
    std::cerr << "reference_tests --replay=\"" << Write(running) << "\"\n";
}
#endif

Comparison WithLiteral() {
    return Comparison(MakeProductControl, MakeLiteralControl);
}

std::string Report(const Comparison& comparison, const Sequence& sequence) {
    const Sequence small = comparison.Shrink(sequence);
    const auto finding = comparison.Run(small);
    return "reference_tests --replay=\"" + Write(small) + "\"\n" + (finding ? finding->text : "(no longer)");
}

TEST(Reference, RandomSequencesGiveTheSameInBothControls) {
    const Comparison comparison = WithLiteral();
    const auto start = std::chrono::steady_clock::now();
    const auto elapsed = [&] {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    int64_t events = 0;
    uint32_t seed = options.seed;
    for (; events < options.events && (options.seconds <= 0 || elapsed() < options.seconds); ++seed) {
        std::mt19937 random(seed);
        const Sequence sequence = running = RandomSequence(random, options.length);
        if (comparison.Run(sequence, events)) FAIL() << "seed " << seed << "\n" << Report(comparison, sequence);
    }
    std::cout << events << " events, seeds " << options.seed << " to " << seed - 1 << ", " << elapsed() << " s\n";
}

TEST(Reference, APlantedDifferenceIsFoundAndCutDown) {
    const Comparison comparison(MakeLiteralControl, MakeWrongControl);
    for (uint32_t seed = 1; seed < 200; ++seed) {
        std::mt19937 random(seed);
        const Sequence sequence = RandomSequence(random, 200);
        if (!comparison.Run(sequence)) continue;
        const Sequence small = comparison.Shrink(sequence);
        EXPECT_TRUE(comparison.Run(small));
        EXPECT_LE(small.size(), 6u) << Write(small);
        EXPECT_EQ(Read(Write(small)), small);
        return;
    }
    FAIL() << "no sequence has found it";
}

/// Sequences after which the two once differed.
struct Kept {
    const char* name;
    const char* events;
};

constexpr Kept kept[] = {
    {"AnItemFiledTwiceIsTakenOutOnce",
     "LoadSettings 0 0 3; Refresh; Tick 1; ReadSelection; AddToCollection 0 0 1; SelectByType 1"},
    {"AnExpansionEndsWhereTheHostHasEmptiedTheTree",
     "SetApplication 1; LoadSettings 0 1 2; RemoveFolder; Refresh; SetShowAddressBook@call1 5; DoubleClick 7"},
};

class KeptSequence : public ::testing::TestWithParam<Kept> {};

TEST_P(KeptSequence, GivesTheSameInBothControls) {
    running = Read(GetParam().events);
    if (const auto finding = WithLiteral().Run(running))
        FAIL() << "after " << finding->events << " events\n" << finding->text;
}

INSTANTIATE_TEST_SUITE_P(Reference, KeptSequence, ::testing::ValuesIn(kept),
                         [](const auto& sequence) { return std::string(sequence.param.name); });

bool Takes(const std::string& argument, const std::string& name, std::string& value) {
    if (!argument.starts_with(name)) return false;
    value = argument.substr(name.size());
    return true;
}

}  // namespace

bool HasSequence() {
    return !options.replay.empty();
}

/// Runs the sequence of --replay alone; returns the exit code.
int RunSequence() {
    running = Read(options.replay);
    const auto finding = WithLiteral().Run(running);
    if (!finding) return EXIT_SUCCESS;
    std::cerr << "after " << finding->events << " events\n" << finding->text << "\n";
    return EXIT_FAILURE;
}

void TellSequenceOnDeath() {
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_set_death_callback(TellSequence);
#endif
}

bool ReadOption(const std::string& argument) {
    std::string value;
    if (Takes(argument, "--events=", value)) {
        options.events = std::stoll(value);
        options.seconds = 0;
    } else if (Takes(argument, "--seed=", value)) {
        options.seed = static_cast<uint32_t>(std::stoul(value));
    } else if (Takes(argument, "--length=", value)) {
        options.length = std::stoi(value);
    } else if (Takes(argument, "--replay=", value)) {
        options.replay = value;
    } else {
        return false;
    }
    return true;
}

}  // namespace foldertree::reference

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    for (int i = 1; i < argc; ++i) {
        if (foldertree::reference::ReadOption(argv[i])) continue;
        std::cerr << "usage: reference_tests [--events=N] [--seed=S] [--length=L] [--replay=SEQUENCE]\n";
        return EXIT_FAILURE;
    }
    foldertree::reference::TellSequenceOnDeath();
    return foldertree::reference::HasSequence() ? foldertree::reference::RunSequence() : RUN_ALL_TESTS();
}
