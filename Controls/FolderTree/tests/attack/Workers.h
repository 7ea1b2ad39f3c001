// Workers: runs many small jobs in child processes, so that one that crashes or never ends is told and the rest go on.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace foldertree::attack {

struct JobFinding {
    size_t job;
    std::string text;
};

struct Work {
    size_t jobs = 0;
    /// Runs a job; returns what was found, one line each. May crash.
    std::function<std::vector<std::string>(size_t job)> run;
    unsigned secondsPerJob = 30;   ///< a job that takes longer is told as one that never ends
    size_t jobsPerProcess = 2000;  ///< leaks are looked for at the end of each process
    /// Called from time to time with the number of jobs that are done.
    std::function<void(size_t done)> progress;
};

std::vector<JobFinding> RunInWorkers(const Work& work);

}  // namespace foldertree::attack
