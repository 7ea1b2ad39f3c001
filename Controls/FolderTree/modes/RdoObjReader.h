// RdoObjReader: the access mode that reads folders through the objects of an RDO session.
#pragma once

#include "modes/ObjectReader.h"

namespace foldertree {

class RdoObjReader : public ObjectReader {
  public:
    RdoObjReader(ControlContext& context, SelectionView& view);

    void ReadDefaultFolders(DefaultFolderIDs& ids) override;
    bool Begin() override { return true; }
    automation::ObjectRef Stores() override;
    bool IsDefaultStore(const automation::ObjectRef& store) override;
    void TraceStore() override { context_.Trace("GetFolders: GetFolders: Mode: RDO_Obj"); }

  private:
    bool IsHomeStore(const automation::ObjectRef& store, const std::string& storeID) override;
    automation::ObjectRef RootFolder(const automation::ObjectRef& store) override;
    automation::ObjectRef OpenFolder(const std::string& entryID, const std::string& storeID) override;
    bool ReadFolder(ObjectFolder& folder, Reading reading) override;
    bool HasSubfolders(ObjectFolder& folder) override { return folder.hasSubfolders; }
};

}  // namespace foldertree
