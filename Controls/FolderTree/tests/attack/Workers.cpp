// Workers: the processes, the pipe through which they tell, and what a sanitizer wrote when one ended.
#include "attack/Workers.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <sstream>
#include <stdexcept>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace foldertree::attack {

namespace {

bool Leaks() {
#if defined(__SANITIZE_ADDRESS__)
    return __lsan_do_recoverable_leak_check() != 0;
#else
    return false;
#endif
}

/// The number of the job that a child is at, in memory that both processes see.
class SharedNumber {
  public:
    SharedNumber() {
        void* const memory = mmap(nullptr, sizeof(size_t), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED) throw std::runtime_error("no shared memory");
        number_ = static_cast<volatile size_t*>(memory);
    }
    ~SharedNumber() { munmap(const_cast<size_t*>(number_), sizeof(size_t)); }
    SharedNumber(const SharedNumber&) = delete;
    SharedNumber& operator=(const SharedNumber&) = delete;

    void Set(size_t number) { *number_ = number; }
    size_t Get() const { return *number_; }

  private:
    volatile size_t* number_;
};

void WriteAll(int file, const std::string& text) {
    for (size_t written = 0; written < text.size();) {
        const ssize_t count = write(file, text.data() + written, text.size() - written);
        if (count <= 0) _exit(3);
        written += static_cast<size_t>(count);
    }
}

[[noreturn]] void RunChild(const Work& work, size_t first, size_t last, SharedNumber& current, int out) {
    for (size_t job = first; job < last; ++job) {
        current.Set(job);
        alarm(work.secondsPerJob);
        for (std::string& line : work.run(job)) {
            std::replace(line.begin(), line.end(), '\n', ' ');
            WriteAll(out, std::to_string(job) + " " + line + "\n");
        }
    }
    alarm(0);
    if (Leaks())
        WriteAll(out, std::to_string(first) + " memory leaks in one of the jobs " + std::to_string(first) + " to " +
                          std::to_string(last - 1) + "\n");
    _exit(0);
}

std::string ReadAll(int file) {
    std::string text;
    char buffer[4096];
    for (ssize_t count; (count = read(file, buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<size_t>(count));
    return text;
}

/// A sanitizer's line without what differs from run to run.
std::string Shortened(std::string line) {
    if (const size_t error = line.find("ERROR:"); error != std::string::npos) line.erase(0, error);
    if (const size_t frame = line.find(" in "); line.find('#') != std::string::npos && frame != std::string::npos)
        line.erase(0, frame + 4);
    for (const char* rest : {" on address", " on unknown address", "("})
        if (const size_t at = line.find(rest); at != std::string::npos && at > 0) line.erase(at);
    return line.substr(0, 120);
}

/// What ended the child, and the frames of ours that were nearest.
std::string Cause(int status, std::FILE* errors) {
    std::string cause;
    if (WIFSIGNALED(status))
        cause =
            WTERMSIG(status) == SIGALRM ? "it never ends" : std::string("it crashes: ") + strsignal(WTERMSIG(status));
    else
        cause = "it ends the program with " + std::to_string(WEXITSTATUS(status));
    std::rewind(errors);
    int frames = 0;
    bool told = false;
    std::string lastLine;
    char line[1000];
    while (std::fgets(line, sizeof line, errors) != nullptr) {
        const std::string text(line, std::strcspn(line, "\n"));
        const bool headline = text.find("ERROR:") != std::string::npos ||
                              text.find("runtime error") != std::string::npos ||
                              text.find("ssertion") != std::string::npos || text.find("terminate") != std::string::npos;
        const bool ours =
            text.find("#") != std::string::npos && text.find("::attack::") == std::string::npos &&
            (text.find(" in foldertree") != std::string::npos || text.find(" in automation") != std::string::npos);
        const bool tell = headline || (ours && ++frames <= 4);
        if (tell) cause += " | " + Shortened(text);
        told = told || tell;
        if (!text.empty()) lastLine = text;
    }
    if (!told && !lastLine.empty()) cause += " | " + lastLine;
    return cause;
}

/// Runs the jobs from `first` on in one child. Returns the first one that is still to be run.
size_t RunOneProcess(const Work& work, size_t first, SharedNumber& current, std::vector<JobFinding>& findings) {
    const size_t last = std::min(work.jobs, first + work.jobsPerProcess);
    int pipeEnds[2];
    if (pipe(pipeEnds) != 0) throw std::runtime_error("no pipe");
    std::FILE* const errors = std::tmpfile();
    if (errors == nullptr) throw std::runtime_error("no temporary file");
    current.Set(first);
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no process");
    if (child == 0) {
        close(pipeEnds[0]);
        dup2(fileno(errors), STDERR_FILENO);
        RunChild(work, first, last, current, pipeEnds[1]);
    }
    close(pipeEnds[1]);
    std::istringstream told(ReadAll(pipeEnds[0]));
    close(pipeEnds[0]);
    int status = 0;
    waitpid(child, &status, 0);
    JobFinding finding{};
    while (told >> finding.job && std::getline(told >> std::ws, finding.text)) findings.push_back(finding);
    size_t next = last;
    if (status != 0) {
        findings.push_back({current.Get(), Cause(status, errors)});
        next = current.Get() + 1;
    }
    std::fclose(errors);
    return next;
}

}  // namespace

std::vector<JobFinding> RunInWorkers(const Work& work) {
    std::vector<JobFinding> findings;
    SharedNumber current;
    for (size_t next = 0; next < work.jobs;) {
        next = RunOneProcess(work, next, current, findings);
        if (work.progress) work.progress(next);
    }
    return findings;
}

}  // namespace foldertree::attack
