// LiteralItems: the record of a pick and a keyed collection of such, written out plainly.
#include "reference/LiteralItems.h"

#include "reference/LiteralText.h"

namespace foldertree::reference {

using automation::Access;
using automation::Error;
using automation::Invocation;
using automation::ObjectRef;
using automation::Value;
using automation::VbError;

namespace {

bool Is(const Invocation& call, std::string_view member) {
    return SameText(std::string(call.member), std::string(member));
}

[[noreturn]] void ThrowUnknown() {
    throw Error(automation::errors::unknownName, "Unknown name.");
}

}  // namespace

std::string LiteralItem::Key() const {
    if (isAddressList) return "L" + addressListID;
    if (!storeID.empty()) return "S" + storeID + "|" + entryID;
    return entryID;
}

std::string LiteralItem::KeyShortEntryID() const {
    if (isAddressList) return "L" + addressListID;
    return "S" + storeID + "|" + entryIDShort;
}

std::string LiteralItem::KeyAlternate() const {
    if (isAddressList) return "L" + addressListID;
    const std::string flags = entryID.substr(0, 2) == "EF" ? "00" : "EF";
    return "S" + storeID + "|" + flags + WithoutFirst(entryID, 2);
}

Value LiteralItem::Invoke(const Invocation& call) {
    if (call.access != Access::Call) {
        if (!Is(call, "Index")) throw Error(automation::errors::memberNotFound, "Member not found.");
        index = LongOf(call.arguments.back());
        return {};
    }
    if (Is(call, "Index")) return index;
    if (Is(call, "Key")) return Key();
    ThrowUnknown();
}

void LiteralCollection::Add(const ObjectRef& item, const std::string& key, int32_t before) {
    if (before < 0 || before > Count()) throw VbError(automation::errors::subscript);
    if (!key.empty())
        for (const Entry& entry : entries)
            if (SameText(entry.key, key)) throw VbError(automation::errors::duplicateKey);
    entries.insert(before == 0 ? entries.end() : entries.begin() + (before - 1), Entry{item, key});
}

void LiteralCollection::Remove(int32_t position) {
    if (position < 1 || position > Count()) throw VbError(automation::errors::subscript);
    entries.erase(entries.begin() + (position - 1));
}

const ObjectRef& LiteralCollection::Item(int32_t position) const {
    if (position < 1 || position > Count()) throw VbError(automation::errors::subscript);
    return entries[static_cast<size_t>(position) - 1].item;
}

const ObjectRef& LiteralCollection::Item(const std::string& key) const {
    if (!key.empty())
        for (const Entry& entry : entries)
            if (SameText(entry.key, key)) return entry.item;
    throw VbError(automation::errors::invalidCall);
}

Value LiteralCollection::Invoke(const Invocation& call) {
    const auto text = [&](size_t argument) {
        if (argument >= call.arguments.size() || !call.arguments[argument].IsText()) return std::string();
        return TextOf(call.arguments[argument]);
    };
    const auto number = [&](size_t argument) {
        if (argument >= call.arguments.size() || call.arguments[argument].IsMissing()) return 0;
        return LongOf(call.arguments[argument]);
    };
    if (Is(call, "Count")) return Count();
    if (Is(call, "Item")) return Value(call.arguments[0].IsText() ? Item(text(0)) : Item(number(0)));
    if (Is(call, "Add")) {
        const bool hasBefore = call.arguments.size() > 2 && !call.arguments[2].IsMissing();
        if (hasBefore && number(2) < 1) throw VbError(automation::errors::subscript);
        Add(call.arguments[0].ToObject(), text(1), number(2));
        return {};
    }
    if (Is(call, "Remove")) {
        Remove(number(0));
        return {};
    }
    ThrowUnknown();
}

namespace {

class Walk : public automation::Enumerator {
  public:
    explicit Walk(std::shared_ptr<LiteralCollection> collection) : collection_(std::move(collection)) {}
    bool Next(Value& item) override {
        if (position_ >= collection_->Count()) return false;
        item = collection_->Item(++position_);
        return true;
    }

  private:
    std::shared_ptr<LiteralCollection> collection_;
    int32_t position_ = 0;
};

}  // namespace

std::unique_ptr<automation::Enumerator> LiteralCollection::NewEnum() {
    if (!offersEnumeration_) return nullptr;
    return std::make_unique<Walk>(std::static_pointer_cast<LiteralCollection>(shared_from_this()));
}

Value ForeignItem::Invoke(const Invocation& call) {
    if (Is(call, "Index") && call.access != Access::Call) {
        index = LongOf(call.arguments.back());
        return {};
    }
    if (tellsTexts && Is(call, "Index")) return " " + std::to_string(index) + ".0 ";
    if (tellsTexts && Is(call, "Selected")) return selected ? "TRUE" : "false";
    if (Is(call, "Key") || Is(call, "KeyShortEntryID")) return key;
    if (Is(call, "KeyAlternate")) return alternateKey;
    if (Is(call, "Index")) return index;
    if (Is(call, "Selected")) return selected;
    if (Is(call, "Incomplete")) return true;
    ThrowUnknown();
}

}  // namespace foldertree::reference
