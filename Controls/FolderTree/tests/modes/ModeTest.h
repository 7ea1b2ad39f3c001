// ModeTest: a control that reads a mailbox in any of the modes.
#pragma once

#include "automation_testing/FaultyObject.h"
#include "modes/ModeMailbox.h"
#include "support/ControlTest.h"

namespace foldertree::testing {

class ModeTest : public ControlTest {
  protected:
    ModeTest();

    /// Sets the mode and the level, gives the control the session, and refreshes.
    void LoadMode(enuInfoStoreAccessMode mode, int32_t extendToLevel = 0);
    /// The same up to the refresh.
    void Prepare(enuInfoStoreAccessMode mode, int32_t extendToLevel = 0);
    void ShowAddressLists() { showAddressBook_ = true; }
    /// A new control, as after the start of the host. Nothing of the old one may be left.
    void StartAnew();
    /// Closes the node of that name as a user would.
    void Shut(std::string_view name) { GridInteraction(Grid(), *control).SetNode(Row(name), false); }
    ModeFolder& FolderNamed(std::string_view name);
    /// What the host hands over in that mode, or what the control makes for itself in the CDO mode.
    virtual automation::ObjectRef MakeSession(enuInfoStoreAccessMode mode);
    /// Behind the plan, if there is one.
    automation::ObjectRef Planned(const automation::ObjectRef& object) { return plan ? plan->Wrap(object) : object; }

    ModeMailbox mail = TwoStores();
    /// Set to let one of the outside calls fail.
    std::shared_ptr<automation::testing::FaultPlan> plan;

  private:
    bool showAddressBook_ = false;
};

/// A test that runs in the modes RDO objects, Outlook and CDO.
class EachMode : public ModeTest, public ::testing::WithParamInterface<enuInfoStoreAccessMode> {
  protected:
    void LoadEach(int32_t extendToLevel = 0) { LoadMode(GetParam(), extendToLevel); }
    /// The level that lets the store's top-level folders carry placeholders; RDO objects are read one level deeper.
    bool IsRdo() const { return GetParam() == eISAccess_RDO_Objects; }
};

std::string ModeName(const ::testing::TestParamInfo<enuInfoStoreAccessMode>& info);

}  // namespace foldertree::testing
