// Border: the places at which the control leaves its own code, and who is told of it.
#pragma once

#include <memory>
#include <string_view>

namespace foldertree::attack {

/// The kinds of places where code of the host or of a mail client runs inside a member of the control.
enum class Place {
    ItemRead,         ///< a member of a host's item is read
    ItemWrite,        ///< a host's item is written
    ItemEnd,          ///< the last reference to a host's item goes
    CollectionCall,   ///< a method of a host's collection begins, or is about to return
    CollectionWalk,   ///< an enumeration of a host's collection is asked for
    CollectionStep,   ///< the enumeration gives its next item
    CollectionEnd,    ///< the last reference to a host's collection, or to a walk over it, goes
    ProviderCall,     ///< a call to a mail client's object
    ProviderWalk,     ///< an enumeration of a mail client's collection is asked for
    ProviderStep,     ///< the enumeration gives its next item
    ProviderEnd,      ///< the last reference to a mail client's object, or to a walk, goes
    Creation,         ///< an object is created by its class name
    Yield,            ///< the message loop runs
    Changed,          ///< the host handles the event
    PropertyChanged,  ///< the container is told of a property
    BagRead,          ///< a saved setting is read
    BagWrite,         ///< a setting is saved
    FontCreation,     ///< the platform makes a font
    AmbientFont,      ///< the container is asked for its font
    FontEnd,          ///< the last reference to a font goes
};
inline constexpr int placeCount = static_cast<int>(Place::FontEnd) + 1;

std::string_view NameOf(Place place);
/// Whether code at such a place can report an error: the end of an object cannot, nor can the platform.
bool MayThrow(Place place);

/// Stands between the control and everything foreign.
class Border {
  public:
    virtual ~Border() = default;
    /// Foreign code runs from here until Leave(); may be nested.
    virtual void Enter() {}
    virtual void Leave() {}
    /// Inside foreign code, at a place where it can do what it likes. May throw automation::Error where MayThrow().
    virtual void Reach(Place, std::string_view /*what*/) {}
};
using BorderRef = std::shared_ptr<Border>;

/// The length of a stay in foreign code.
class Abroad {
  public:
    explicit Abroad(BorderRef border) : border_(std::move(border)) { border_->Enter(); }
    ~Abroad() { border_->Leave(); }
    Abroad(const Abroad&) = delete;
    Abroad& operator=(const Abroad&) = delete;

  private:
    BorderRef border_;
};

}  // namespace foldertree::attack
