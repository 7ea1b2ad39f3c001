// ScriptedObject: an automation object that a test puts together member by member.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Object.h"
#include "automation/ObjectFactory.h"
#include "automation_testing/CallLog.h"

namespace automation::testing {

/// Members are given before or between calls; giving one again replaces it. Every use, failing ones too, adds a line to
/// the log, if there is one. A use that no member allows fails as with a real automation object.
class ScriptedObject : public Object {
  public:
    using Handler = std::function<Value(const Invocation& call)>;
    using PutHandler = std::function<void(const Value& value)>;

    explicit ScriptedObject(std::string name = "Object", std::shared_ptr<CallLog> log = nullptr);
    ~ScriptedObject() override;

    /// A value that can be read and written, takes no arguments, and holds what was written last.
    ScriptedObject& Property(std::string_view member, Value value);
    ScriptedObject& ReadOnly(std::string_view member, Value value);
    /// A method, or a property that is computed.
    ScriptedObject& Method(std::string_view member, Handler handler);
    ScriptedObject& OnPut(std::string_view member, PutHandler handler);
    /// Every use of the member fails from now on, until it is given again.
    ScriptedObject& Fails(std::string_view member, Error error);
    /// Makes the object a collection: `Count`, `Item` by 1-based position (the default member) and an enumeration.
    ScriptedObject& Items(std::vector<Value> items);
    /// The collection offers `Count` and `Item` only.
    ScriptedObject& WithoutEnumeration();
    ScriptedObject& DefaultMember(std::string_view member);

    /// What a property holds now; Empty when it is none. Is no call.
    Value Held(std::string_view member) const;
    const std::string& Name() const { return name_; }

    /// How many scripted objects and enumerations of them exist: what is left over after a test was not released.
    static int LiveCount();

    Value Invoke(const Invocation& call) override;
    std::unique_ptr<Enumerator> NewEnum() override;
    bool HasMember(std::string_view member) const override;

  private:
    struct Entry {
        std::string name;
        std::optional<Value> value;  ///< of a property
        bool writable = false;
        Handler get;
        PutHandler put;
        std::optional<Error> error;
    };
    const Entry* Find(std::string_view member) const;
    Entry& Give(std::string_view member);

    std::string name_;
    std::shared_ptr<CallLog> log_;
    std::vector<Entry> members_;
    std::string defaultMember_;
    std::optional<std::vector<Value>> items_;
    bool enumerable_ = true;
};

/// Creates what a test says for each class name, and fails with 0x80040154 for any other.
class ScriptedObjectFactory : public ObjectFactory {
  public:
    explicit ScriptedObjectFactory(std::shared_ptr<CallLog> log = nullptr) : log_(std::move(log)) {}
    ScriptedObjectFactory& On(std::string_view progId, std::function<ObjectRef()> maker);

    ObjectRef Create(std::string_view progId) override;

  private:
    struct Entry {
        std::string progId;
        std::function<ObjectRef()> maker;
    };
    std::shared_ptr<CallLog> log_;
    std::vector<Entry> makers_;
};

}  // namespace automation::testing
