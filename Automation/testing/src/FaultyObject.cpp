// FaultyObject: the wrappers behind a fault plan.
#include "automation_testing/FaultyObject.h"

#include <vector>

namespace automation::testing {

class FaultyWalk : public Enumerator {
  public:
    FaultyWalk(std::unique_ptr<Enumerator> inner, std::shared_ptr<FaultPlan> plan)
        : inner_(std::move(inner)), plan_(std::move(plan)) {}

    bool Next(Value& item) override {
        plan_->CountCall();
        if (!inner_->Next(item)) return false;
        item = plan_->WrapValue(item);
        return true;
    }

  private:
    std::unique_ptr<Enumerator> inner_;
    std::shared_ptr<FaultPlan> plan_;
};

class FaultyObject : public Object {
  public:
    FaultyObject(ObjectRef inner, std::shared_ptr<FaultPlan> plan) : inner_(std::move(inner)), plan_(std::move(plan)) {}
    ~FaultyObject() override { plan_->Forget(inner_.get()); }

    Value Invoke(const Invocation& call) override {
        plan_->CountCall();
        std::vector<Value> arguments;
        for (const Value& argument : call.arguments) arguments.push_back(plan_->UnwrapValue(argument));
        std::vector<NamedArgument> named;
        for (const NamedArgument& argument : call.named)
            named.push_back({argument.name, plan_->UnwrapValue(argument.value)});
        return plan_->WrapValue(inner_->Invoke({call.member, call.access, arguments, named}));
    }

    std::unique_ptr<Enumerator> NewEnum() override {
        plan_->CountCall();
        auto inner = inner_->NewEnum();
        if (!inner) return nullptr;
        return std::make_unique<FaultyWalk>(std::move(inner), plan_);
    }

    bool HasMember(std::string_view member) const override { return inner_->HasMember(member); }

    const ObjectRef& Inner() const { return inner_; }

  private:
    ObjectRef inner_;
    std::shared_ptr<FaultPlan> plan_;
};

void FaultPlan::FailCall(int number) {
    failAt_ = number;
    calls_ = 0;
}

ObjectRef FaultPlan::Wrap(const ObjectRef& object) {
    if (!object) return nullptr;
    if (const auto known = handedIn_.find(object.get()); known != handedIn_.end()) {
        if (known->second.lock() == object) return object;
        handedIn_.erase(known);  // another object at the place of one that is gone
    }
    std::weak_ptr<Object>& wrapper = wrappers_[object.get()];
    ObjectRef result = wrapper.lock();
    if (!result) {
        result = std::make_shared<FaultyObject>(object, shared_from_this());
        wrapper = result;
    }
    return result;
}

void FaultPlan::CountCall() {
    if (++calls_ == failAt_) throw error_;
}

Value FaultPlan::WrapValue(const Value& value) {
    if (value.IsObject()) return Wrap(value.ToObject());
    const Array* array = value.AsArray();
    if (array == nullptr) return value;
    Array wrapped{array->lowerBound, {}};
    for (const Value& item : array->items) wrapped.items.push_back(WrapValue(item));
    return wrapped;
}

Value FaultPlan::UnwrapValue(const Value& value) {
    if (!value.IsObject()) return value;
    const ObjectRef object = value.ToObject();
    if (!object) return value;
    if (const auto* faulty = dynamic_cast<const FaultyObject*>(object.get())) return faulty->Inner();
    handedIn_[object.get()] = object;
    return value;
}

}  // namespace automation::testing
