// CallLog: the automation calls that a test has seen, in their order, one line of text each.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "automation/Object.h"

namespace automation::testing {

/// Lines read like the source of a Basic host: `Stores.Item(1)`, `Table.Columns = [1, 2]`, `Set Control.Font = <Font>`,
/// `Session.Logon(NewSession:=False)`, `Stores._NewEnum`, `Stores.Next`.
class CallLog {
  public:
    void Add(std::string line) { lines_.push_back(std::move(line)); }
    void AddCall(std::string_view object, const Invocation& call);
    void Clear() { lines_.clear(); }

    const std::vector<std::string>& Lines() const { return lines_; }
    /// How many lines there are; with a text, how many contain it.
    size_t Count() const { return lines_.size(); }
    size_t Count(std::string_view part) const;

  private:
    std::vector<std::string> lines_;
};

/// A value as a call line shows it: text in quotes, an array in brackets, bytes as hexadecimal, an object as `<Name>`.
std::string Describe(const Value& value);

}  // namespace automation::testing
