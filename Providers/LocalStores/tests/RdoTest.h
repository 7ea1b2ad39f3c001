// RdoTest: an RDO session to try.
#pragma once

#include "ModelTest.h"
#include "localstores/RdoSession.h"

namespace localstores {

/// A session with the sample mailbox open.
class RdoTest : public ModelTest {
  protected:
    automation::ObjectRef session_ = MakeRdoSession();
    automation::ObjectRef store_ = session_->Get("Open", "sample").RequireObject();

    automation::ObjectRef Inbox() { return store_->Get("GetDefaultFolder", 6).RequireObject(); }
    automation::ObjectRef TopFolders() { return Object(Object(store_, "IPMRootFolder"), "Folders"); }
};

}  // namespace localstores
