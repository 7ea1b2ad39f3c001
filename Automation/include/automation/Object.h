// Object: a portable stand-in for IDispatch: the one way to the outside automation libraries.
#pragma once

#include <array>
#include <memory>
#include <source_location>
#include <span>
#include <string_view>

#include "automation/Error.h"
#include "automation/Value.h"

namespace automation {

/// How a member is used. A method and a property that is read are the same thing to a late-bound caller.
enum class Access { Call, Put, PutRef };

struct NamedArgument {
    std::string_view name;
    Value value;
};

/// One use of a member. Views are valid only during the call. For Put and PutRef the last argument is the new value.
struct Invocation {
    std::string_view member;  ///< compared without regard to case; "" is the default member
    Access access = Access::Call;
    std::span<const Value> arguments;
    std::span<const NamedArgument> named;
};

/// A walk over a collection's items in their order (IEnumVARIANT).
class Enumerator {
  public:
    virtual ~Enumerator() = default;
    /// Stores the next item and returns true, or returns false at the end. Throws Error.
    virtual bool Next(Value& item) = 0;
};

/// A member's name together with the source line that uses it, so that an error line can name the failing call.
struct Member {
    Member(const char* memberName, std::source_location where = std::source_location::current())
        : name(memberName), line(static_cast<int>(where.line())) {}
    Member(std::string_view memberName, std::source_location where = std::source_location::current())
        : name(memberName), line(static_cast<int>(where.line())) {}

    std::string_view name;
    int line;
};

/// An automation object. Shared ownership: whoever holds an ObjectRef keeps it alive; objects are used on one thread.
class Object : public std::enable_shared_from_this<Object> {
  public:
    Object() = default;
    virtual ~Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    /// Uses a member. Throws Error: 0x80020006 for a name that the object lacks, 0x80020003 for a use that the member
    /// does not allow, 0x8002000E for a wrong number of arguments, otherwise the member's own error.
    virtual Value Invoke(const Invocation& call) = 0;

    /// The items of a collection in their order, or null when the object offers no enumeration (`_NewEnum`).
    virtual std::unique_ptr<Enumerator> NewEnum() { return nullptr; }

    /// Whether the object knows the member; "" asks for a default member.
    virtual bool HasMember(std::string_view member) const = 0;

    /// Reads a property or calls a method.
    template <class... Arguments>
    Value Get(Member member, Arguments&&... arguments) {
        const std::array<Value, sizeof...(arguments)> values{Value(std::forward<Arguments>(arguments))...};
        return InvokeFrom(member.line, {member.name, Access::Call, values, {}});
    }
    /// Calls a method with named arguments only.
    Value CallNamed(Member member, std::span<const NamedArgument> named) {
        return InvokeFrom(member.line, {member.name, Access::Call, {}, named});
    }
    /// Writes a property, by value or (for objects) by reference.
    void Put(Member member, const Value& value) {
        InvokeFrom(member.line, {member.name, Access::Put, {&value, 1}, {}});
    }
    void PutRef(Member member, const Value& value) {
        InvokeFrom(member.line, {member.name, Access::PutRef, {&value, 1}, {}});
    }

  private:
    /// Invokes, and marks an error with the line of this, the outermost, call.
    Value InvokeFrom(int line, const Invocation& call);
};

/// True when two member names are the same member: ASCII letters compare without regard to case.
bool SameMember(std::string_view a, std::string_view b);

/// The reference, or Error 91 when it is Nothing: the dot operator on an object variable that is not set.
Object& Deref(const ObjectRef& object);

}  // namespace automation
