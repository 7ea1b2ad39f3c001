// ForeignObject: an object of the host or of a mail client, which tells the border of everything that is done with it.
#pragma once

#include "attack/Border.h"
#include "automation/Object.h"

namespace foldertree::attack {

/// The places that the object's uses are.
struct Places {
    Place call;
    Place walk;
    Place step;
    Place end;
    /// What its members return is foreign too. Not so for a host's collection: what it holds may be the control's own.
    bool returnsForeign = false;
    /// Each call is a place before its work is done and another one after it.
    bool twicePerCall = false;
    bool enumerable = true;
};
inline constexpr Places providerPlaces{.call = Place::ProviderCall,
                                       .walk = Place::ProviderWalk,
                                       .step = Place::ProviderStep,
                                       .end = Place::ProviderEnd,
                                       .returnsForeign = true};
inline constexpr Places collectionPlaces{.call = Place::CollectionCall,
                                         .walk = Place::CollectionWalk,
                                         .step = Place::CollectionStep,
                                         .end = Place::CollectionEnd,
                                         .twicePerCall = true};
/// A font is only kept: the control uses no member of it.
inline constexpr Places fontPlaces{
    .call = Place::FontCreation, .walk = Place::FontCreation, .step = Place::FontCreation, .end = Place::FontEnd};

/// The object behind a border. An argument that is such a wrapper reaches the object as what it wraps, if that is
/// foreign. Null stays null.
automation::ObjectRef MakeForeign(const automation::ObjectRef& object, const Places& places, const BorderRef& border);

/// How many foreign objects and walks exist.
int ForeignObjectCount();

}  // namespace foldertree::attack
