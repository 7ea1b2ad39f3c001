// ForeignObject: the wrapper, and the one around its enumerations.
#include "attack/ForeignObject.h"

#include <string>
#include <vector>

namespace foldertree::attack {

using automation::Enumerator;
using automation::Invocation;
using automation::ObjectRef;
using automation::Value;

namespace {

int alive = 0;

/// Counts objects that exist.
struct Counted {
    Counted() { ++alive; }
    ~Counted() { --alive; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
};

class ForeignWalk : public Enumerator, Counted {
  public:
    ForeignWalk(std::unique_ptr<Enumerator> inner, const Places& places, BorderRef border)
        : inner_(std::move(inner)), places_(places), border_(std::move(border)) {}
    ~ForeignWalk() override {
        const Abroad abroad(border_);
        border_->Reach(places_.end, "walk");
        inner_.reset();
    }

    bool Next(Value& item) override {
        const BorderRef border = border_;  // what happens inside may be the end of this walk's owner
        const Abroad abroad(border);
        border->Reach(places_.step, "Next");
        if (!inner_->Next(item)) return false;
        if (places_.returnsForeign && item.IsObject()) item = MakeForeign(item.ToObject(), places_, border);
        return true;
    }

  private:
    std::unique_ptr<Enumerator> inner_;
    Places places_;
    BorderRef border_;
};

class ForeignObject : public automation::Object, Counted {
  public:
    ForeignObject(ObjectRef inner, const Places& places, BorderRef border)
        : inner_(std::move(inner)), places_(places), border_(std::move(border)) {}
    ~ForeignObject() override {
        const Abroad abroad(border_);
        border_->Reach(places_.end, "object");
        inner_.reset();
    }

    Value Invoke(const Invocation& call) override {
        // As with COM, an object that is called is not kept by the call: whoever calls must hold it.
        const Abroad abroad(border_);
        const std::string member(call.member);
        border_->Reach(places_.call, member);
        Invocation inner = call;
        const std::vector<Value> arguments = ArgumentsFor(call);
        inner.arguments = arguments;
        Value result = inner_->Invoke(inner);
        if (places_.twicePerCall) border_->Reach(places_.call, member + " done");
        if (places_.returnsForeign && result.IsObject()) return MakeForeign(result.ToObject(), places_, border_);
        return result;
    }

    std::unique_ptr<Enumerator> NewEnum() override {
        const Abroad abroad(border_);
        border_->Reach(places_.walk, "_NewEnum");
        auto inner = places_.enumerable ? inner_->NewEnum() : nullptr;
        if (!inner) return nullptr;
        return std::make_unique<ForeignWalk>(std::move(inner), places_, border_);
    }

    bool HasMember(std::string_view member) const override {
        const Abroad abroad(border_);
        return inner_->HasMember(member);
    }

  private:
    std::vector<Value> ArgumentsFor(const Invocation& call) const {
        std::vector<Value> arguments(call.arguments.begin(), call.arguments.end());
        if (!places_.returnsForeign) return arguments;
        for (Value& argument : arguments) {
            if (!argument.IsObject()) continue;
            if (const auto* wrapper = dynamic_cast<const ForeignObject*>(argument.ToObject().get()))
                argument = Value(wrapper->inner_);
        }
        return arguments;
    }

    ObjectRef inner_;
    Places places_;
    BorderRef border_;
};

}  // namespace

ObjectRef MakeForeign(const ObjectRef& object, const Places& places, const BorderRef& border) {
    if (!object) return nullptr;
    return std::make_shared<ForeignObject>(object, places, border);
}

int ForeignObjectCount() {
    return alive;
}

}  // namespace foldertree::attack
