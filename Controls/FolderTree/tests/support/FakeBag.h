// FakeBag: a container's property bag in memory.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Error.h"
#include "common/PropertyBag.h"

namespace foldertree::testing {

class FakeBag : public PropertyBag {
  public:
    std::map<std::string, automation::Value, std::less<>> values;
    std::vector<std::string> reads;
    std::vector<std::string> writes;
    int failCall = 0;  ///< the number of the call, reads and writes alike, that fails; 0 for none

    automation::Value Read(std::string_view name) override {
        reads.emplace_back(name);
        Count();
        const auto found = values.find(name);
        return found == values.end() ? automation::Value() : found->second;
    }
    void Write(std::string_view name, const automation::Value& value) override {
        writes.emplace_back(name);
        Count();
        values.insert_or_assign(std::string(name), value);
    }

  private:
    void Count() {
        if (++calls_ == failCall) throw automation::Error(automation::errors::unspecified, "Injected fault");
    }
    int calls_ = 0;
};

}  // namespace foldertree::testing
