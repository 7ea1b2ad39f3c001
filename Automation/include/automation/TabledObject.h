// TabledObject: an automation object whose members are a table of names and handlers.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "automation/Object.h"

namespace automation {

/// The arguments of one call: positional, bounds-checked; an argument that was left out reads as Missing.
class Arguments {
  public:
    explicit Arguments(std::span<const Value> values) : values_(values) {}
    size_t Count() const { return values_.size(); }
    bool Has(size_t index) const { return index < values_.size() && !values_[index].IsMissing(); }
    const Value& operator[](size_t index) const;  ///< Missing beyond the end

  private:
    std::span<const Value> values_;
};

/// One member of a tabled object. A null handler means that the member does not allow that use.
template <class Self>
struct MemberEntry {
    std::string_view name;
    Value (*get)(Self& self, const Arguments& arguments) = nullptr;
    void (*put)(Self& self, const Value& value) = nullptr;
    size_t maxArguments = 0;           ///< more positional arguments than this are refused
    std::string_view parameters = {};  ///< their names, separated by blanks, for callers that name their arguments
};

/// The arguments of a call in the order of `parameters`, those that are left out as Missing.
/// Throws Error: 0x80020006 for a name that is not among them, 0x8002000E for one that is given twice.
std::vector<Value> PlaceArguments(const Invocation& call, std::string_view parameters);

/// Derive as `class Folder : public TabledObject<Folder>` and give the class a
/// `static std::span<const MemberEntry<Folder>> Members();`. The first entry is the default member when the class
/// says `static constexpr bool hasDefaultMember = true;`.
template <class Self>
class TabledObject : public Object {
  public:
    Value Invoke(const Invocation& call) override {
        const MemberEntry<Self>* entry = Find(call.member);
        if (entry == nullptr) throw Error(errors::unknownName, "Unknown name.");
        Self& self = static_cast<Self&>(*this);
        if (call.access != Access::Call) {
            if (entry->put == nullptr || call.arguments.empty())
                throw Error(errors::memberNotFound, "Member not found.");
            entry->put(self, call.arguments.back());
            return {};
        }
        if (entry->get == nullptr) throw Error(errors::memberNotFound, "Member not found.");
        if (call.arguments.size() > entry->maxArguments)
            throw Error(errors::badParamCount, "Invalid number of parameters.");
        if (call.named.empty()) return entry->get(self, Arguments(call.arguments));
        return entry->get(self, Arguments(PlaceArguments(call, entry->parameters)));
    }

    bool HasMember(std::string_view member) const override { return Find(member) != nullptr; }

  private:
    static const MemberEntry<Self>* Find(std::string_view name) {
        const auto members = Self::Members();
        if (name.empty()) {
            if constexpr (requires { Self::hasDefaultMember; }) return &members.front();
            return nullptr;
        }
        for (const auto& entry : members)
            if (SameMember(entry.name, name)) return &entry;
        return nullptr;
    }
};

}  // namespace automation
