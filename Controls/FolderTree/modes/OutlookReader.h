// OutlookReader: the access mode that reads folders through the object model of the host's mail client.
#pragma once

#include "modes/ObjectReader.h"

namespace foldertree {

class OutlookReader : public ObjectReader {
  public:
    OutlookReader(ControlContext& context, SelectionView& view);

    /// Without an application there are none, and that is no error.
    void ReadDefaultFolders(DefaultFolderIDs& ids) override;
    bool Begin() override;
    automation::ObjectRef Stores() override;
    bool IsDefaultStore(const automation::ObjectRef&) override { return false; }
    void TraceStore() override {}

  private:
    /// The object model does not tell: no store has the home picture.
    bool IsHomeStore(const automation::ObjectRef&, const std::string&) override { return false; }
    /// A top-level folder stands for its store.
    automation::ObjectRef RootFolder(const automation::ObjectRef& store) override { return store; }
    automation::ObjectRef OpenFolder(const std::string& entryID, const std::string& storeID) override;
    bool ReadFolder(ObjectFolder& folder, Reading reading) override;

    automation::ObjectRef Namespace();
};

}  // namespace foldertree
