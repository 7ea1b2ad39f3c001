// Program: reading options, and telling.
#include "attack/Program.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <optional>
#include <sstream>

#include "attack/Checks.h"

namespace foldertree::attack {

namespace {

Options options;

bool ReadPart(const std::string& text) {
    const size_t slash = text.find('/');
    if (slash == std::string::npos) return false;
    options.part = std::stoul(text.substr(0, slash)) - 1;
    options.parts = std::stoul(text.substr(slash + 1));
    return options.part < options.parts;
}

bool ReadOption(const std::string& argument) {
    const auto value = [&](const std::string& name) -> std::optional<std::string> {
        if (!argument.starts_with(name)) return std::nullopt;
        return argument.substr(name.size());
    };
    if (argument == "--full")
        options.full = true;
    else if (const auto part = value("--part="))
        return ReadPart(*part);
    else if (const auto seed = value("--seed="))
        options.seed = static_cast<uint32_t>(std::stoul(*seed));
    else if (const auto sample = value("--sample="))
        options.sample = std::stoul(*sample);
    else if (const auto replay = value("--replay="))
        options.replay = *replay;
    else
        return false;
    return true;
}

}  // namespace

const Options& TheOptions() {
    return options;
}

int RunProgram(int argc, char** argv, const Program& program) {
    ::testing::InitGoogleTest(&argc, argv);
    for (int i = 1; i < argc; ++i) {
        if (ReadOption(argv[i])) continue;
        std::cerr << "usage: " << argv[0] << " [--full [--part=N/OF]] [--seed=S] [--sample=SIZE] [--replay=FINDING]\n";
        return EXIT_FAILURE;
    }
    if (!options.replay.empty()) return program.replay(options.replay) ? EXIT_SUCCESS : EXIT_FAILURE;
    if (options.full) return program.playAll() ? EXIT_SUCCESS : EXIT_FAILURE;
    return RUN_ALL_TESTS();
}

void StopWatch::Tell(size_t done, size_t of) const {
    std::cout << done << " of " << of << ", " << static_cast<int>(Seconds()) << " s" << std::endl;
}

void Tally::Add(const std::string& kind, const std::string& example) {
    ++count_;
    Kind& known = kinds_[kind.substr(0, kind.find(detailMark))];
    if (++known.count == 1) known.example = example;
}

std::string Tally::Report() const {
    std::ostringstream report;
    for (const auto& [kind, known] : kinds_)
        report << known.count << " x " << kind << "\n    --replay=\"" << known.example << "\"\n";
    return report.str();
}

}  // namespace foldertree::attack
