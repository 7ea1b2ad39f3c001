// DovecotTest: trees that a real mail server made, compared with the server's own listing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TestFiles.h"
#include "localstores/OpenStores.h"

#ifndef _WIN32
#include <unistd.h>

namespace localstores {
namespace {

namespace fs = std::filesystem;

/// A Dovecot that serves one tree ("Mail"), as the present user or, since it refuses to be root, as nobody.
class Dovecot {
  public:
    /// `location` is how the tree is kept, "PATH" standing for the tree; `separator` stands between levels of names.
    Dovecot(std::string location, const std::string& separator) {
        const bool root = getuid() == 0;
        const std::string user = root ? "65534" : std::to_string(getuid());
        const std::string group = root ? "65534" : std::to_string(getgid());
        const std::string base = directory_.Utf8();
        for (size_t found; (found = location.find("PATH")) != std::string::npos;)
            location.replace(found, 4, Mail().string());
        fs::create_directory(Mail());
        WriteWholeFile(base + "/dovecot.conf", "mail_location = " + location + "\nlog_path = " + base +
                                                   "/log\nbase_dir = " + base + "/run\nstate_dir = " + base +
                                                   "/state\nmail_uid = " + user + "\nmail_gid = " + group +
                                                   "\nfirst_valid_uid = 0\nssl = no\n"
                                                   "namespace inbox {\n  inbox = yes\n  separator = " +
                                                   separator + "\n}\n");
        if (root) OutputOf("chown -R 65534:65534 '" + base + "'");
    }

    fs::path Mail() const { return directory_.Path() / "Mail"; }

    std::optional<std::string> Run(const std::string& command) const {
        const std::string base = directory_.Utf8();
        return OutputOf("HOME='" + base + "' USER=someone doveadm -c '" + base + "/dovecot.conf' mailbox " + command +
                        " 2>/dev/null");
    }

  private:
    TemporaryDirectory directory_;
};

/// Creates mailboxes and compares what the store shows with what the server lists.
void ExpectWhatTheServerLists(const Dovecot& dovecot, const std::string& names, const std::string& separator) {
    ASSERT_TRUE(dovecot.Run("create " + names));
    const auto listed = dovecot.Run("list");
    ASSERT_TRUE(listed);
    const std::vector<std::string> expected = Lines(*listed);
    EXPECT_GE(expected.size(), 8u);
    const auto store = OpenStores(dovecot.Mail().string()).front();
    EXPECT_THAT(FullNames(store->IpmRoot(), separator), testing::UnorderedElementsAreArray(expected));
}

bool HasDovecot() {
    return OutputOf("command -v doveadm").has_value();
}

TEST(Dovecot, MaildirPlusPlusShowsExactlyTheMailboxesThatTheServerLists) {
    if (!HasDovecot()) GTEST_SKIP() << "doveadm (package dovecot-core) is not installed";
    ExpectWhatTheServerLists(Dovecot("maildir:PATH", "."),
                             "INBOX.Lists Drafts Sent Trash 'Work.Projects.Älpha' '日本語.子' 'A&B' 'q\"uote' '😀' "
                             "Ghost.Only.Leaf 'Back\\slash' 'with space'",
                             ".");
}

TEST(Dovecot, NestedMaildirShowsExactlyTheMailboxesThatTheServerLists) {
    if (!HasDovecot()) GTEST_SKIP() << "doveadm (package dovecot-core) is not installed";
    ExpectWhatTheServerLists(Dovecot("maildir:PATH:LAYOUT=fs", "/"),
                             "Drafts Sent Trash 'Work/Projects/Älpha' '日本語/子' 'A&B' 'q\"uote' '😀' "
                             "Ghost/Only/Leaf 'Back\\slash' 'with space' 'a.point'",
                             "/");
}

TEST(Dovecot, MboxesShowExactlyTheMailboxesThatTheServerLists) {
    if (!HasDovecot()) GTEST_SKIP() << "doveadm (package dovecot-core) is not installed";
    const Dovecot dovecot("mbox:PATH:INBOX=PATH/INBOX", "/");
    WriteWholeFile(dovecot.Mail() / "INBOX", "From someone@example.com Sat Nov 21 10:00:00 2026\n\nHello\n");
    ExpectWhatTheServerLists(dovecot, "Drafts Sent Trash '日本語' 'A&B' 'q\"uote' '😀' 'with space' 'a.point'", "/");
}

}  // namespace
}  // namespace localstores
#endif
