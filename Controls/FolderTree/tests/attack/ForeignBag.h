// ForeignBag: a container's property bag behind a border.
#pragma once

#include "attack/Border.h"
#include "support/FakeBag.h"

namespace foldertree::attack {

class ForeignBag : public testing::FakeBag {
  public:
    explicit ForeignBag(BorderRef border) : border_(std::move(border)) {}

    automation::Value Read(std::string_view name) override {
        const Abroad abroad(border_);
        border_->Reach(Place::BagRead, name);
        return FakeBag::Read(name);
    }
    void Write(std::string_view name, const automation::Value& value) override {
        const Abroad abroad(border_);
        border_->Reach(Place::BagWrite, name);
        FakeBag::Write(name, value);
    }

  private:
    BorderRef border_;
};

}  // namespace foldertree::attack
