// HookedObject: the wrappers. Arguments that are wrappers reach the object as they are.
#include "support/HookedObject.h"

namespace foldertree::testing {

using automation::Enumerator;
using automation::Invocation;
using automation::ObjectRef;
using automation::Value;

namespace {

void Called(CallHook& hook) {
    ++hook.calls;
    if (const auto handler = hook.onCall) handler(hook.calls);
}

Value HookValue(const Value& value, const std::shared_ptr<CallHook>& hook) {
    return value.IsObject() ? Value(Hook(value.ToObject(), hook)) : value;
}

class HookedWalk : public Enumerator {
  public:
    HookedWalk(std::unique_ptr<Enumerator> inner, std::shared_ptr<CallHook> hook)
        : inner_(std::move(inner)), hook_(std::move(hook)) {}

    bool Next(Value& item) override {
        Called(*hook_);
        if (!inner_->Next(item)) return false;
        item = HookValue(item, hook_);
        return true;
    }

  private:
    std::unique_ptr<Enumerator> inner_;
    std::shared_ptr<CallHook> hook_;
};

class HookedObject : public automation::Object {
  public:
    HookedObject(ObjectRef inner, std::shared_ptr<CallHook> hook) : inner_(std::move(inner)), hook_(std::move(hook)) {}

    Value Invoke(const Invocation& call) override {
        Called(*hook_);
        return HookValue(inner_->Invoke(call), hook_);
    }
    std::unique_ptr<Enumerator> NewEnum() override {
        Called(*hook_);
        auto inner = inner_->NewEnum();
        if (!inner) return nullptr;
        return std::make_unique<HookedWalk>(std::move(inner), hook_);
    }
    bool HasMember(std::string_view member) const override { return inner_->HasMember(member); }

  private:
    ObjectRef inner_;
    std::shared_ptr<CallHook> hook_;
};

}  // namespace

ObjectRef Hook(const ObjectRef& object, const std::shared_ptr<CallHook>& hook) {
    if (!object) return nullptr;
    return std::make_shared<HookedObject>(object, hook);
}

}  // namespace foldertree::testing
