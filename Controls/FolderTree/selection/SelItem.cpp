// SelItem: one item of a selection collection: one of our own, or a stranger that a host put there.
#include "selection/SelItem.h"

#include <type_traits>
#include <typeinfo>

#include "automation/Text.h"

namespace foldertree {

namespace {

/// Asked for each item of each walk; of a class that nothing derives from this costs a tenth of a dynamic_cast.
clsFolderTreeItem* OwnItem(automation::Object* object) {
    static_assert(std::is_final_v<clsFolderTreeItem>);
    if (object == nullptr || typeid(*object) != typeid(clsFolderTreeItem)) return nullptr;
    return static_cast<clsFolderTreeItem*>(object);
}

}  // namespace

SelItem::SelItem(automation::ObjectRef object) : object_(std::move(object)), own_(OwnItem(object_.get())) {}

std::string SelItem::Key() const {
    return own_ ? own_->Key() : object_->Get("Key").ToText();
}

bool SelItem::HasKey(std::string_view key) const {
    return own_ ? own_->HasKey(key) : automation::EqualNoCase(Key(), key);
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
