// ControlPersistStorage: IPersistStorage of the control: the settings' stream in a storage of the container's.
#pragma once

#include <objidl.h>

#include "win32/com/ComPart.h"

namespace foldertree {

class ControlObject;

/// The storage holds one stream, "Contents", of the same bytes as the container's stream would. The control keeps no
/// reference to a storage; it only knows in which of the protocol's states it is, and answers a call out of turn with
/// E_UNEXPECTED.
class ControlPersistStorage final : public ComPart<IPersistStorage> {
  public:
    explicit ControlPersistStorage(ControlObject& object);

    STDMETHOD(GetClassID)(CLSID* clsid) override;
    STDMETHOD(IsDirty)() override;
    STDMETHOD(InitNew)(IStorage* storage) override;
    STDMETHOD(Load)(IStorage* storage) override;
    STDMETHOD(Save)(IStorage* storage, BOOL sameAsLoad) override;
    STDMETHOD(SaveCompleted)(IStorage* storage) override;
    STDMETHOD(HandsOffStorage)() override;

  private:
    enum class State {
        normal,
        saved,     ///< by Save: nothing may be written until the container says that it has taken that over
        handsOff,  ///< the container needs its storage for itself
    };

    ControlObject& object_;
    State state_ = State::normal;
    bool savedHere_ = false;   ///< the last Save was followed by no SaveCompleted yet
    bool sameAsLoad_ = false;  ///< what that Save was told
};

}  // namespace foldertree
