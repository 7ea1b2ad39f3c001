// ScriptedObject: looks its members up in the order in which the test gave them.
#include "automation_testing/ScriptedObject.h"

#include <algorithm>

namespace automation::testing {

namespace {

int liveCount = 0;

/// Counts its owner among the living.
struct Live {
    Live() { ++liveCount; }
    ~Live() { --liveCount; }
    Live(const Live&) = delete;
    Live& operator=(const Live&) = delete;
};

class ScriptedWalk : public Enumerator {
  public:
    ScriptedWalk(std::string name, std::shared_ptr<CallLog> log, std::vector<Value> items)
        : name_(std::move(name)), log_(std::move(log)), items_(std::move(items)) {}

    bool Next(Value& item) override {
        if (log_) log_->Add(name_ + ".Next");
        if (position_ == items_.size()) return false;
        item = items_[position_++];
        return true;
    }

  private:
    Live live_;
    std::string name_;
    std::shared_ptr<CallLog> log_;
    std::vector<Value> items_;
    size_t position_ = 0;
};

}  // namespace

ScriptedObject::ScriptedObject(std::string name, std::shared_ptr<CallLog> log)
    : name_(std::move(name)), log_(std::move(log)) {
    ++liveCount;
}

ScriptedObject::~ScriptedObject() {
    --liveCount;
}

int ScriptedObject::LiveCount() {
    return liveCount;
}

ScriptedObject& ScriptedObject::Property(std::string_view member, Value value) {
    Entry& entry = Give(member);
    entry.value = std::move(value);
    entry.writable = true;
    return *this;
}

ScriptedObject& ScriptedObject::ReadOnly(std::string_view member, Value value) {
    Give(member).value = std::move(value);
    return *this;
}

ScriptedObject& ScriptedObject::Method(std::string_view member, Handler handler) {
    Give(member).get = std::move(handler);
    return *this;
}

ScriptedObject& ScriptedObject::OnPut(std::string_view member, PutHandler handler) {
    // A computed property is given by Method and OnPut together, so what reads it stays.
    const Entry* given = Find(member);
    Entry entry = given ? *given : Entry{std::string(member), {}, false, {}, {}, {}};
    entry.put = std::move(handler);
    Give(member) = std::move(entry);
    return *this;
}

ScriptedObject& ScriptedObject::Fails(std::string_view member, Error error) {
    Give(member).error = std::move(error);
    return *this;
}

ScriptedObject& ScriptedObject::Items(std::vector<Value> items) {
    items_ = std::move(items);
    Method("Count", [this](const Invocation&) { return Value(static_cast<int32_t>(items_->size())); });
    Method("Item", [this](const Invocation& call) {
        if (call.arguments.empty()) throw Error(errors::badParamCount, "Invalid number of parameters.");
        const int32_t position = call.arguments[0].ToLong();
        if (position < 1 || static_cast<size_t>(position) > items_->size()) throw VbError(errors::subscript);
        return (*items_)[static_cast<size_t>(position) - 1];
    });
    return DefaultMember("Item");
}

ScriptedObject& ScriptedObject::WithoutEnumeration() {
    enumerable_ = false;
    return *this;
}

ScriptedObject& ScriptedObject::DefaultMember(std::string_view member) {
    defaultMember_ = member;
    return *this;
}

Value ScriptedObject::Held(std::string_view member) const {
    const Entry* entry = Find(member);
    return entry && entry->value ? *entry->value : Value();
}

Value ScriptedObject::Invoke(const Invocation& call) {
    if (log_) log_->AddCall(name_, call);
    const Entry* entry = Find(call.member);
    if (entry == nullptr) throw Error(errors::unknownName, "Unknown name.");
    if (entry->error) throw *entry->error;
    if (call.access != Access::Call) {
        if (call.arguments.empty()) throw Error(errors::badParamCount, "Invalid number of parameters.");
        if (entry->put)
            PutHandler(entry->put)(call.arguments.back());
        else if (entry->writable)
            Property(entry->name, call.arguments.back());
        else
            throw Error(errors::memberNotFound, "Member not found.");
        return {};
    }
    // A handler may give the object new members, and so move the table: it runs as a copy.
    if (entry->get) return Handler(entry->get)(call);
    if (!entry->value) throw Error(errors::memberNotFound, "Member not found.");
    if (!call.arguments.empty()) throw Error(errors::badParamCount, "Invalid number of parameters.");
    return *entry->value;
}

std::unique_ptr<Enumerator> ScriptedObject::NewEnum() {
    if (!items_ || !enumerable_) return nullptr;
    if (log_) log_->Add(name_ + "._NewEnum");
    if (const Entry* entry = Find("_NewEnum"); entry && entry->error) throw *entry->error;
    return std::make_unique<ScriptedWalk>(name_, log_, *items_);
}

bool ScriptedObject::HasMember(std::string_view member) const {
    return Find(member) != nullptr;
}

const ScriptedObject::Entry* ScriptedObject::Find(std::string_view member) const {
    const std::string_view wanted = member.empty() ? std::string_view(defaultMember_) : member;
    const auto found = std::find_if(members_.begin(), members_.end(),
                                    [wanted](const Entry& entry) { return SameMember(entry.name, wanted); });
    return found == members_.end() ? nullptr : &*found;
}

ScriptedObject::Entry& ScriptedObject::Give(std::string_view member) {
    const std::string name(member);  // it may be the name of the entry that is replaced
    std::erase_if(members_, [&name](const Entry& entry) { return SameMember(entry.name, name); });
    return members_.emplace_back(Entry{name, {}, false, {}, {}, {}});
}

ScriptedObjectFactory& ScriptedObjectFactory::On(std::string_view progId, std::function<ObjectRef()> maker) {
    makers_.insert(makers_.begin(), Entry{std::string(progId), std::move(maker)});
    return *this;
}

ObjectRef ScriptedObjectFactory::Create(std::string_view progId) {
    if (log_) log_->Add("CreateObject(\"" + std::string(progId) + "\")");
    for (const Entry& entry : makers_)
        if (SameMember(entry.progId, progId)) return entry.maker();
    throw Error(0x80040154, "Class not registered");
}

}  // namespace automation::testing
