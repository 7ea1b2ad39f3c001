// ForeignItem: its members, each a place where the host's code runs.
#include "attack/ForeignItem.h"

#include <algorithm>
#include <array>

namespace foldertree::attack {

using automation::Access;
using automation::Invocation;
using automation::Value;

namespace {

int alive = 0;

constexpr std::array<std::string_view, 6> members{"Key",   "KeyShortEntryID", "KeyAlternate",
                                                  "Index", "Selected",        "Incomplete"};

}  // namespace

ForeignItem::ForeignItem(BorderRef border, std::string key, bool incomplete)
    : border_(std::move(border)), key_(std::move(key)), incomplete_(incomplete) {
    ++alive;
}

ForeignItem::~ForeignItem() {
    --alive;
    const Abroad abroad(border_);
    border_->Reach(Place::ItemEnd, key_);
}

int ForeignItem::Count() {
    return alive;
}

Value ForeignItem::Invoke(const Invocation& call) {
    const Abroad abroad(border_);
    const std::string member(call.member);
    if (call.access == Access::Call) {
        border_->Reach(Place::ItemRead, member);
        return Read(member);
    }
    border_->Reach(Place::ItemWrite, member);
    if (!automation::SameMember(member, "Index"))
        throw automation::Error(automation::errors::memberNotFound, "Member not found.");
    index_ = call.arguments.back().ToLong();
    return {};
}

Value ForeignItem::Read(const std::string& member) const {
    if (member == "Key") return key_;
    if (member == "KeyShortEntryID") return key_ + "s";
    if (member == "KeyAlternate") return key_ + "a";
    if (member == "Index") return index_;
    if (member == "Selected") return true;
    if (member == "Incomplete") return incomplete_;
    throw automation::Error(automation::errors::unknownName, "Unknown name.");
}

bool ForeignItem::HasMember(std::string_view member) const {
    return std::any_of(members.begin(), members.end(),
                       [member](std::string_view each) { return automation::SameMember(each, member); });
}

}  // namespace foldertree::attack
