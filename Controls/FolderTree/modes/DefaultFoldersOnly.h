// DefaultFoldersOnly: the access modes that know their default folders but do not read stores yet.
#pragma once

#include "enumeration/StoreReader.h"
#include "shell/ControlShell.h"

namespace foldertree {

/// A mode without stores: a refresh shows an empty tree.
class DefaultFoldersOnly : public StoreReader {
  public:
    explicit DefaultFoldersOnly(ControlShell& shell) : shell_(shell) {}

    bool Begin() override { return false; }
    automation::ObjectRef Stores() override { return nullptr; }
    bool DefaultStoreFirst() const override { return false; }
    bool IsDefaultStore(const automation::ObjectRef&) override { return false; }
    void TraceStore() override {}
    void ReadStore(const automation::ObjectRef&) override {}
    void ExpandNode(int32_t) override {}

  protected:
    ControlShell& shell_;
};

/// The objects of an RDO session.
class RdoObjReader : public DefaultFoldersOnly {
  public:
    using DefaultFoldersOnly::DefaultFoldersOnly;
    void ReadDefaultFolders(DefaultFolderIDs& ids) override;
};

/// The host's mail client; without one there are no default folders.
class OutlookReader : public DefaultFoldersOnly {
  public:
    using DefaultFoldersOnly::DefaultFoldersOnly;
    void ReadDefaultFolders(DefaultFolderIDs& ids) override;
    bool Begin() override;
};

/// CDO without a session, which is all there is until the control can log on.
class CdoReader : public DefaultFoldersOnly {
  public:
    using DefaultFoldersOnly::DefaultFoldersOnly;
    void ReadDefaultFolders(DefaultFolderIDs&) override {}
    bool Begin() override;
};

}  // namespace foldertree
