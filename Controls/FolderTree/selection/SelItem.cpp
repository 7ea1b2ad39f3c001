// SelItem: one item of a selection collection: one of our own, or a stranger that a host put there.
#include "selection/SelItem.h"

namespace foldertree {

SelItem::SelItem(automation::ObjectRef object)
    : object_(std::move(object)), own_(dynamic_cast<clsFolderTreeItem*>(object_.get())) {}

std::string SelItem::Key() const {
    return own_ ? own_->Key() : object_->Get("Key").ToText();
}

std::string SelItem::KeyShortEntryID() const {
    return own_ ? own_->KeyShortEntryID() : object_->Get("KeyShortEntryID").ToText();
}

std::string SelItem::KeyAlternate() const {
    return own_ ? own_->KeyAlternate() : object_->Get("KeyAlternate").ToText();
}

int32_t SelItem::Index() const {
    return own_ ? own_->Index() : object_->Get("Index").ToLong();
}

void SelItem::SetIndex(int32_t index) const {
    if (own_)
        own_->SetIndex(index);
    else
        object_->Put("Index", index);
}

bool SelItem::Selected() const {
    return own_ ? own_->Selected() : object_->Get("Selected").ToBoolean();
}

void SelItem::SetSelected(bool selected) const {
    if (own_) own_->SetSelected(selected);
}

bool SelItem::Incomplete() const {
    return own_ ? own_->Incomplete() : object_->Get("Incomplete").ToBoolean();
}

}  // namespace foldertree
