// Collection: works on any automation collection, whoever made it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "automation/Object.h"

namespace automation {

/// A view on a collection object; positions are 1-based. It holds a reference and no state of its own, so several views
/// of one collection agree. All members throw the collection's own errors.
class Collection {
  public:
    explicit Collection(ObjectRef object) : object_(std::move(object)) {}

    int32_t Count() const;
    Value Item(int32_t position) const;
    Value Item(std::string_view key) const;
    /// Adds at the end, or before a position.
    void Add(const Value& item, std::string key, std::optional<int32_t> before = std::nullopt) const;
    void Remove(int32_t position) const;

    /// The items in their order: one enumeration where the collection offers it, else `Count` and `Item` by position
    /// (the count is read once). The walk must not outlive changes of the collection.
    std::unique_ptr<Enumerator> Walk() const;
    /// The items from 1 to `count` by `Item`, each asked for when its turn comes.
    std::unique_ptr<Enumerator> WalkByPosition(int32_t count) const;

    const ObjectRef& Ref() const { return object_; }

  private:
    ObjectRef object_;
};

}  // namespace automation
