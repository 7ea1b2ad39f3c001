// RefreshDriver: empties the tree and fills it again from the stores, whatever the access mode.
#pragma once

#include <array>
#include <cstdint>

#include "common/ControlContext.h"
#include "enumeration/StoreReader.h"
#include "selection/SelectionView.h"

namespace foldertree {

class RefreshDriver {
  public:
    /// The readers by access mode; null where there is none. Nothing is owned.
    struct Readers {
        std::array<StoreReader*, 4> stores{};
        AddressListReader* addressLists = nullptr;
    };

    RefreshDriver(ControlContext& context, SelectionView& view) : context_(context), view_(view) {}
    void SetReaders(const Readers& readers) { readers_ = readers; }

    /// Reads the tree anew and shows the selection in it. Turned away while a load or an expansion runs.
    void RefreshList();
    /// Reads the default-folder identifiers from the session of the current access mode.
    void GetFolderIDs();
    void cmdCancel_Click();
    /// Before a node row changes its outline state; reads the children of a node that opens for the first time.
    void fgd_BeforeCollapse(int32_t row, int16_t state);

  private:
    void GetFolders();
    void ReadStores();
    void ReadDefaultStore(StoreReader& reader, const automation::ObjectRef& stores);
    void ReadOtherStores(StoreReader& reader, const automation::ObjectRef& stores);
    void ReadAddressLists();
    void ReadStore(StoreReader& reader, const automation::ObjectRef& store);
    /// The reader of the current access mode, or null.
    StoreReader* Reader() const;

    ControlContext& context_;
    SelectionView& view_;
    Readers readers_;
};

}  // namespace foldertree
