// CdoReader: the access mode that reads folders through a CDO session, which the control logs on by itself.
#pragma once

#include "modes/ObjectReader.h"

namespace foldertree {

class CdoReader : public ObjectReader {
  public:
    CdoReader(ControlContext& context, SelectionView& view);

    /// The session; makes it and logs it on at first use. Null, after a trace line, when that fails; the next call
    /// tries again. Does not throw automation::Error.
    automation::ObjectRef CDOSession();
    void ReleaseSession() { session_ = nullptr; }

    /// Without a session there are none, and that is no error.
    void ReadDefaultFolders(DefaultFolderIDs& ids) override;
    bool Begin() override;
    automation::ObjectRef Stores() override;
    bool IsDefaultStore(const automation::ObjectRef& store) override;
    void TraceStore() override {}

  private:
    bool IsHomeStore(const automation::ObjectRef& store, const std::string& storeID) override;
    automation::ObjectRef RootFolder(const automation::ObjectRef& store) override;
    automation::ObjectRef OpenFolder(const std::string& entryID, const std::string& storeID) override;
    bool ReadFolder(ObjectFolder& folder, Reading reading) override;

    automation::ObjectRef LoggedOnSession();
    /// Runs one step of the log-on; a failure is told in a trace line that opens with `failure`.
    template <class Step>
    bool Try(std::string_view failure, Step&& step);

    automation::ObjectRef session_;
};

}  // namespace foldertree
