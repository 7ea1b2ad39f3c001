// ConformanceTest: one body of tests for every access mode over every source of mail.
#pragma once

#include <algorithm>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "conformance/ExpectedTree.h"
#include "conformance/GridRows.h"
#include "conformance/Mailboxes.h"
#include "conformance/ModeDifferences.h"
#include "modes/ModeTest.h"

namespace foldertree::testing {

enum class MailSource { Scripted, LocalStores };

/// One of the combinations that each test runs in.
struct Setting {
    const ModeDifferences* mode = nullptr;
    MailSource source = MailSource::Scripted;
};
void PrintTo(const Setting& setting, std::ostream* out);

/// Every mode over scripted objects.
std::vector<Setting> ScriptedModes();
/// Every mode over the sample mailbox of the local stores.
std::vector<Setting> LocalModes();
std::vector<Setting> AllSettings();
std::string SettingName(const ::testing::TestParamInfo<Setting>& info);

/// Local stores in the shape that the mode reads.
automation::ObjectRef MakeLocalSession(enuInfoStoreAccessMode mode, std::string_view path);

/// A control in one mode. `mail` describes what it reads, wherever that is.
class ConformanceTest : public ModeTest {
  protected:
    /// Not in the constructor, so that a test can go through several.
    void Use(const Setting& setting);

    const ModeDifferences& Mode() const { return *setting_.mode; }
    bool IsLocal() const { return setting_.source == MailSource::LocalStores; }
    bool IsTables() const { return Mode().mode == eISAccess_RDO_MAPITables; }

    /// The ExtendToLevel with which folders down to `depth` are read in this mode.
    int32_t LevelToRead(int32_t depth) const { return Mode().readsAtLimit ? depth - 1 : depth; }
    /// Hands over a session and sets what the host sets, without a refresh.
    void SetUpTree(const TreeSettings& settings);
    /// The same and a refresh.
    void LoadTree(const TreeSettings& settings = {});
    std::vector<GridRow> Rows() const { return RowsOf(control->Grid()); }
    /// The tree is what the mailbox and the table of differences say, cell by cell.
    void ExpectTree(const ExpectedTree& expected);
    /// Opens every node that was not read.
    void OpenAll();
    /// The host's item for a folder of the mailbox, as this mode's rows are keyed.
    ItemRef ItemOf(const std::string& storeID, const std::string& folderID);

    automation::ObjectRef MakeSession(enuInfoStoreAccessMode mode) override;

  private:
    Setting setting_;
};

class EachSetting : public ConformanceTest, public ::testing::WithParamInterface<Setting> {
  protected:
    EachSetting() { Use(GetParam()); }
};

}  // namespace foldertree::testing
