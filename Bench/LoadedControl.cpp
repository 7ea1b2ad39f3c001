// LoadedControl: the whole control over the memory mailbox, on a platform that only counts.
#include "LoadedControl.h"

#include <map>

namespace foldertree::bench {

LoadedControl::LoadedControl(const MailboxShape& shape, int32_t level, enuInfoStoreAccessMode mode)
    : LoadedControl(MakeMemorySession(shape), level, mode) {}

LoadedControl::LoadedControl(const automation::ObjectRef& session, int32_t level, enuInfoStoreAccessMode mode)
    : control(ctlFolderTree::Create(platform, platform)) {
    platform.cdoSession = session;
    control->UserControl_InitProperties();
    control->SetApplication(session);
    control->SetRDOSessionRef(session);
    control->SetInfoStoreAccessMode(mode);
    control->SetAllowIndexing(true);
    control->SetExtendToLevel(level);  // reads the tree
}

LoadedControl& Loaded(int64_t folders) {
    static std::map<int64_t, std::unique_ptr<LoadedControl>> made;
    std::unique_ptr<LoadedControl>& loaded = made[folders];
    if (!loaded) loaded = std::make_unique<LoadedControl>(MailboxShape{.folders = static_cast<int32_t>(folders)}, 0);
    return *loaded;
}

}  // namespace foldertree::bench
