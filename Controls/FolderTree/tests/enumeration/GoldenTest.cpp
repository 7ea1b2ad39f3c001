// GoldenTest: the whole trace and all outside calls of a small refresh and a small expansion.
#include "support/ControlTest.h"
#include "support/Golden.h"

namespace foldertree::testing {
namespace {

using automation::Error;

/// Two stores; below the default one a folder to descend into, one to leave closed, one to skip, one to pass over and
/// one that cannot be opened.
class Goldens : public ControlTest {
  protected:
    Goldens() {
        FakeFolder search = Mail("Search", 0x05);
        search.type = 2;
        FakeFolder bad = Mail("Bad", 0x06, {Mail("Lost", 0x31)});
        bad.openError = Error(0x8004011D, "Offline.");
        mailbox.stores[1].provider = "Provider";
        mailbox.stores[1].folders.push_back(Folder("Unknown", 0x07, "IPF.Imap"));
        mailbox.stores[1].folders.push_back(search);
        mailbox.stores[1].folders.push_back(bad);
    }
};

TEST_F(Goldens, ARefreshToLevelTwoWritesItsTrace) {
    Load(2);
    ExpectGolden("refresh-level2.trace", platform.Trace());
}

TEST_F(Goldens, ARefreshToLevelTwoMakesTheseOutsideCalls) {
    Load(2);
    mailbox.log->Clear();
    control->RefreshList();
    ExpectGolden("refresh-level2.calls", mailbox.log->Lines());
}

TEST_F(Goldens, AnExpansionWritesItsTrace) {
    Load(1);
    platform.ClearTrace();
    Open("Inbox");
    ExpectGolden("expand-inbox.trace", platform.Trace());
}

TEST_F(Goldens, AnExpansionMakesTheseOutsideCalls) {
    Load(1);
    mailbox.log->Clear();
    Open("Inbox");
    ExpectGolden("expand-inbox.calls", mailbox.log->Lines());
}

}  // namespace
}  // namespace foldertree::testing
