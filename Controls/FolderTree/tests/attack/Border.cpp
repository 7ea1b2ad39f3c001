// Border: what the places are called.
#include "attack/Border.h"

namespace foldertree::attack {

std::string_view NameOf(Place place) {
    switch (place) {
        case Place::ItemRead:
            return "item read";
        case Place::ItemWrite:
            return "item written";
        case Place::ItemEnd:
            return "end of an item";
        case Place::CollectionCall:
            return "collection call";
        case Place::CollectionWalk:
            return "collection walk";
        case Place::CollectionStep:
            return "collection step";
        case Place::CollectionEnd:
            return "end of a collection";
        case Place::ProviderCall:
            return "provider call";
        case Place::ProviderWalk:
            return "provider walk";
        case Place::ProviderStep:
            return "provider step";
        case Place::ProviderEnd:
            return "end of a provider's object";
        case Place::Creation:
            return "creation";
        case Place::Yield:
            return "yield";
        case Place::Changed:
            return "Changed";
        case Place::PropertyChanged:
            return "PropertyChanged";
        case Place::BagRead:
            return "bag read";
        case Place::BagWrite:
            return "bag written";
        case Place::FontCreation:
            return "font creation";
        case Place::AmbientFont:
            return "ambient font";
        case Place::FontEnd:
            return "end of a font";
    }
    return "unknown";
}

bool MayThrow(Place place) {
    switch (place) {
        case Place::ItemEnd:
        case Place::CollectionEnd:
        case Place::ProviderEnd:
        case Place::FontEnd:
        case Place::Yield:
        case Place::Changed:
        case Place::PropertyChanged:
            return false;
        default:
            return true;
    }
}

}  // namespace foldertree::attack
