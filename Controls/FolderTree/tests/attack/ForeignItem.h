// ForeignItem: an item that a host made by itself and put into a selection collection.
#pragma once

#include <cstdint>
#include <string>

#include "attack/Border.h"
#include "automation/Object.h"

namespace foldertree::attack {

/// Has the members that the control reads of an item; none of our own code is in it. Its key may be the key of a row.
class ForeignItem : public automation::Object {
  public:
    ForeignItem(BorderRef border, std::string key, bool incomplete = false);
    ~ForeignItem() override;

    automation::Value Invoke(const automation::Invocation& call) override;
    bool HasMember(std::string_view member) const override;

    /// How many exist.
    static int Count();

  private:
    automation::Value Read(const std::string& member) const;

    BorderRef border_;
    std::string key_;
    bool incomplete_;
    int32_t index_ = 3;
};

}  // namespace foldertree::attack
