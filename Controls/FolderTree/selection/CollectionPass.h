// CollectionPass: one run over the selection collection, which ends where the host assigns another one.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "automation/Collection.h"
#include "automation/KeyedCollection.h"
#include "selection/SelectionSet.h"

namespace foldertree {

/// Thrown where a pass finds that the host has assigned another collection meanwhile: whatever runs unwinds up to
/// RunPass and leaves the new one as its assignment has shown it. It is no error and passes through Guarded and
/// Attempt.
struct PassEnded {};

/// Holds the collection that was the control's when the pass began. The host's code runs in every member of a
/// collection and in every getter of a stranger, and may there edit the collection or assign another one. All members
/// throw the collection's own errors, and PassEnded.
class CollectionPass {
  public:
    /// An item that is to go, and the position (from 1) at which it was found.
    struct Place {
        int32_t position;
        SelItem item;
    };
    using Places = std::vector<Place>;

    explicit CollectionPass(SelectionSet& selection) : selection_(selection) { Hold(selection.collection); }
    CollectionPass(const CollectionPass&) = delete;
    CollectionPass& operator=(const CollectionPass&) = delete;

    bool HasCollection() const { return collection_ != nullptr; }
    /// To be asked after a call that may have run the host's code.
    void ThrowIfEnded() const {
        if (selection_.collection != collection_) throw PassEnded();
    }

    /// The items in their order, one by one.
    class Walk {
      public:
        explicit Walk(const CollectionPass& pass);
        /// Stores the next item and returns true, or returns false at the end.
        bool Next(SelItem& item);
        int32_t Position() const { return position_; }  ///< of the item last stored, from 1

      private:
        bool NextOfOurs(SelItem& item);

        const CollectionPass& pass_;
        std::unique_ptr<automation::Enumerator> walk_;  ///< null over a collection of ours, and at the end
        int32_t position_ = 0;
    };

    /// Adds at the end, or before a position; makes the collection when there is none.
    void Add(const SelItem& item, std::string key, std::optional<int32_t> before = std::nullopt);
    /// Takes out the items at these places, which rise. Where the host has edited the collection since they were found,
    /// they are looked for again; what is not there any more is left.
    void TakeOut(Places places);

  private:
    void Hold(const automation::ObjectRef& collection);
    SelItem ItemAt(int32_t position) const;
    void RemoveAt(int32_t position);
    bool IsThere(const Place& place) const;
    Places PlacesNow(const Places& places) const;

    SelectionSet& selection_;
    automation::ObjectRef collection_;
    automation::KeyedCollection* ours_ = nullptr;  ///< the collection, where it is of our own class: read directly
};

/// Runs the body over the control's collection. False when it ended early because another one was assigned.
template <class Body>
bool RunPass(SelectionSet& selection, Body&& body) {
    try {
        CollectionPass pass(selection);
        std::forward<Body>(body)(pass);
        return true;
    } catch (const PassEnded&) {
        return false;
    }
}

}  // namespace foldertree
