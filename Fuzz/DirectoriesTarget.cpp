// DirectoriesTarget: fuzzes Maildir and mbox directories. The input is a program that makes a directory tree: each step
// is a byte, names and numbers follow it. What was made is opened and read through the object models.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "FuzzInput.h"
#include "ModelWalk.h"
#include "ScratchDirectory.h"
#include "localstores/Folder.h"

namespace {

namespace fs = std::filesystem;

/// Makes entries below one directory. What the file system refuses is left out.
class TreeMaker {
  public:
    TreeMaker(const fs::path& top, fuzz::FuzzInput& input) : top_(top), at_(top), input_(input), made_{top} {}

    void Run() {
        static constexpr void (TreeMaker::*steps[])() = {
            &TreeMaker::MakeMailbox, &TreeMaker::MakeDirectory, &TreeMaker::Enter,    &TreeMaker::Leave,
            &TreeMaker::MakeMbox,    &TreeMaker::MakeFile,      &TreeMaker::MakeLink, &TreeMaker::Descend};
        constexpr int mostSteps = 64;
        for (int i = 0; i < mostSteps && !input_.AtEnd(); ++i) (this->*steps[input_.TakeByte() % std::size(steps)])();
    }

  private:
    /// A few names that mean something, or any bytes that a file name can have.
    std::string Name() {
        static const char* const known[] = {
            "INBOX", "cur", "new", "tmp", "a", ".a.b", "b.sbd", "b.msf", "..DOVECOT-TRASHED"};
        const uint8_t choice = input_.TakeByte();
        if (choice < std::size(known)) return known[choice];
        std::string name(input_.TakeText(1 + choice % 24));
        for (char& c : name)
            if (c == '/' || c == '\0') c = '_';
        return name.empty() || name == "." || name == ".." ? "_" : name;
    }

    void Make(const fs::path& directory) {
        std::error_code ignored;
        if (fs::create_directory(directory, ignored)) made_.push_back(directory);
    }
    void MakeMailboxAt(const fs::path& directory) {
        Make(directory);
        Make(directory / "cur");
        Make(directory / "new");
    }

    void MakeMailbox() { MakeMailboxAt(at_ / Name()); }
    void MakeDirectory() { Make(at_ / Name()); }
    void Enter() {
        const fs::path& directory = made_[input_.TakeByte() % made_.size()];
        at_ = directory;
    }
    void Leave() {
        // The top itself is a mailbox as often as not.
        if (at_ == top_) return MakeMailboxAt(top_);
        at_ = at_.parent_path();
    }
    void MakeMbox() { std::ofstream(at_ / Name(), std::ios::binary) << "From a\n"; }
    void MakeFile() {
        std::ofstream file(at_ / Name(), std::ios::binary);
        file << input_.TakeText(input_.TakeByte() % 8);
    }
    void MakeLink() {
        const fs::path target = made_[input_.TakeByte() % made_.size()];
        std::error_code ignored;
        fs::create_symlink(target, at_ / Name(), ignored);
    }
    /// A few levels, or about as many as a store may have.
    void Descend() {
        const uint8_t choice = input_.TakeByte();
        const int levels = choice < 0xFE ? choice % 8 : localstores::maxFolderDepth - 1 + choice % 2 * 2;
        const bool ofMbox = input_.TakeByte() % 2 == 1;
        for (int i = 0; i < levels && levelsLeft_ > 0; ++i, --levelsLeft_) {
            at_ /= ofMbox ? "d.sbd" : "d";
            ofMbox ? Make(at_) : MakeMailboxAt(at_);
        }
    }

    fs::path top_;
    fs::path at_;
    fuzz::FuzzInput& input_;
    std::vector<fs::path> made_;
    int levelsLeft_ = localstores::maxFolderDepth + 30;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::FuzzInput input(data, size);
    const fuzz::ScratchDirectory scratch;
    const fs::path top = scratch.Path() / "mail";
    fs::create_directory(top);
    TreeMaker(top, input).Run();
    fuzz::WalkModels(top.string());
    return 0;
}
