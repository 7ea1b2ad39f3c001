// FaultyObject: an automation object, and all that can be reached from it, with one call that fails.
#pragma once

#include <map>
#include <memory>

#include "automation/Object.h"

namespace automation::testing {

/// Counts the calls over everything that it has wrapped, and lets one of them fail before it reaches the object.
/// Uses of members, starts of enumerations and steps of enumerations are calls. Make it with std::make_shared.
class FaultPlan : public std::enable_shared_from_this<FaultPlan> {
  public:
    explicit FaultPlan(Error error = Error(errors::unspecified, "Injected fault")) : error_(std::move(error)) {}

    /// Counts from 1 again and lets that call fail, once; 0 for none.
    void FailCall(int number);
    int Calls() const { return calls_; }
    bool HasFailed() const { return failAt_ > 0 && calls_ >= failAt_; }

    /// The object behind this plan. As with a real adapter there is one wrapper at a time for an object, and an object
    /// that was handed in as an argument comes back as it is.
    ObjectRef Wrap(const ObjectRef& object);

  private:
    friend class FaultyObject;
    friend class FaultyWalk;
    void CountCall();
    Value WrapValue(const Value& value);
    Value UnwrapValue(const Value& value);
    void Forget(const Object* inner) { wrappers_.erase(inner); }

    Error error_;
    int failAt_ = 0;
    int calls_ = 0;
    std::map<const Object*, std::weak_ptr<Object>> wrappers_;
    std::map<const Object*, std::weak_ptr<Object>> handedIn_;
};

}  // namespace automation::testing
