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

/// A Dovecot that serves one tree, as the present user or, since it refuses to be root, as nobody.
class Dovecot {
  public:
    Dovecot() {
        const bool root = getuid() == 0;
        const std::string user = root ? "65534" : std::to_string(getuid());
        const std::string group = root ? "65534" : std::to_string(getgid());
        const std::string base = directory_.Utf8();
        fs::create_directory(Maildir());
        WriteWholeFile(base + "/dovecot.conf", "mail_location = maildir:" + base + "/Maildir\nlog_path = " + base +
                                                   "/log\nbase_dir = " + base + "/run\nstate_dir = " + base +
                                                   "/state\nmail_uid = " + user + "\nmail_gid = " + group +
                                                   "\nfirst_valid_uid = 0\nssl = no\n"
                                                   "namespace inbox {\n  inbox = yes\n  separator = .\n}\n");
        if (root) OutputOf("chown -R 65534:65534 '" + base + "'");
    }

    fs::path Maildir() const { return directory_.Path() / "Maildir"; }

    std::optional<std::string> Run(const std::string& command) const {
        const std::string base = directory_.Utf8();
        return OutputOf("HOME='" + base + "' USER=someone doveadm -c '" + base + "/dovecot.conf' mailbox " + command +
                        " 2>/dev/null");
    }

  private:
    TemporaryDirectory directory_;
};

TEST(DovecotMaildir, ShowsExactlyTheMailboxesThatTheServerLists) {
    if (!OutputOf("command -v doveadm")) GTEST_SKIP() << "doveadm (package dovecot-core) is not installed";
    const Dovecot dovecot;
    ASSERT_TRUE(
        dovecot.Run("create INBOX.Lists Drafts Sent Trash 'Work.Projects.Älpha' '日本語.子' 'A&B' 'q\"uote' '😀' "
                    "Ghost.Only.Leaf 'Back\\slash' 'with space'"));
    const auto listed = dovecot.Run("list");
    ASSERT_TRUE(listed);
    const auto store = OpenStores(dovecot.Maildir().string()).front();
    const std::vector<std::string> expected = Lines(*listed);
    EXPECT_GE(expected.size(), 16u);
    EXPECT_THAT(FullNames(store->IpmRoot(), "."), testing::UnorderedElementsAreArray(expected));
}

}  // namespace
}  // namespace localstores
#endif
