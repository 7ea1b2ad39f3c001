// LoadedControl: the whole control over the memory mailbox, on a platform that only counts.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

#include "MemoryMailbox.h"
#include "common/QuietPlatform.h"
#include "ctlFolderTree.h"

namespace foldertree::bench {

/// A platform without a screen that counts what the control does.
class CountingPlatform : public QuietPlatform, public automation::ObjectFactory {
  public:
    void Yield() override {
        ++yields;
        if (onYield) onYield();
    }
    bool TraceIsHeard() override { return true; }
    void TraceLine(std::string_view line) override {
        ++lines;
        bytes += line.size();
    }
    /// The session that the CDO mode makes for itself.
    automation::ObjectRef Create(std::string_view progId) override {
        if (progId == "MAPI.Session" && cdoSession) return cdoSession;
        throw automation::VbError(automation::errors::cannotCreate);
    }

    std::function<void()> onYield;
    automation::ObjectRef cdoSession;
    int64_t yields = 0;
    int64_t lines = 0;
    size_t bytes = 0;
};

struct LoadedControl {
    /// Reads the tree down to the level; 0 reads everything.
    LoadedControl(const MailboxShape& shape, int32_t level, enuInfoStoreAccessMode mode = eISAccess_RDO_MAPITables);
    /// The session must answer in all modes.
    LoadedControl(const automation::ObjectRef& session, int32_t level, enuInfoStoreAccessMode mode);
    ~LoadedControl() { control->Close(); }

    CountingPlatform platform;
    std::shared_ptr<ctlFolderTree> control;
};

/// A control that is loaded once and used by several benchmarks, which put back what they change.
LoadedControl& Loaded(int64_t folders);

constexpr int64_t small = 100'000;
constexpr int64_t large = 1'000'000;

}  // namespace foldertree::bench
