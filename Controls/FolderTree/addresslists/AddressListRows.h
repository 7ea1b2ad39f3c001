// AddressListRows: the rows of the address book's lists, below a heading at the end of the tree.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "common/ControlContext.h"
#include "enumeration/StoreReader.h"

namespace foldertree {

/// Appends the heading and the lists of the session of the current access mode. Mail clients read through their object
/// model show none.
class AddressListRows : public AddressListReader {
  public:
    using SessionSource = std::function<automation::ObjectRef()>;

    AddressListRows(ControlContext& context, SessionSource cdoSession)
        : context_(context), cdoSession_(std::move(cdoSession)) {}

    void GetAddressBook() override;

  private:
    /// A list that is being scanned, and those that contain it.
    struct Scan {
        const std::string& id;
        const Scan* above = nullptr;
        bool IsBelow(const std::string& listID) const;  ///< that list, or is it itself
    };

    void AppendHeading();
    void ScanAddressLists_RDO();
    void GetAddressBook_RDOObj(const automation::ObjectRef& list, int16_t level, const Scan* above, bool& cancelled);
    /// The lists inside a list; null when it has none, or after a trace line when it cannot say.
    automation::ObjectRef ChildLists(const automation::ObjectRef& list, const std::string& name, bool& cancelled);
    void ScanChildLists(const automation::ObjectRef& lists, const std::string& name, int16_t level, const Scan& above,
                        bool& cancelled);
    void ScanAddressLists_CDO();
    void GetAddressBook_CDO(const automation::ObjectRef& list);
    void AppendList(const std::string& name, const std::string& id, int16_t level);
    void TraceFailure(const std::string& name, std::string_view what, const automation::Error& error);

    ControlContext& context_;
    SessionSource cdoSession_;
};

}  // namespace foldertree
