// ForeignFactory: creates the objects of the mail clients behind a border.
#pragma once

#include "attack/Border.h"
#include "attack/ForeignObject.h"
#include "automation_testing/ScriptedObject.h"

namespace foldertree::attack {

class ForeignFactory : public automation::ObjectFactory {
  public:
    explicit ForeignFactory(BorderRef border) : border_(std::move(border)) {}

    automation::testing::ScriptedObjectFactory inner;

    automation::ObjectRef Create(std::string_view progId) override {
        const Abroad abroad(border_);
        border_->Reach(Place::Creation, progId);
        return MakeForeign(inner.Create(progId), providerPlaces, border_);
    }

  private:
    BorderRef border_;
};

}  // namespace foldertree::attack
