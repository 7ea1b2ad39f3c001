// SessionChoice: whose stores an object shows that can be told what to open and need not be.
#pragma once

#include <memory>
#include <string_view>

#include "model/Session.h"

namespace localstores {

/// What it was told to open; else the session in use, once there is one; until then the sample mailbox. So a program
/// may make its objects and open its mail in any order.
class SessionChoice {
  public:
    /// Opens in a session of its own. Throws what Session::Open throws, and then nothing has changed.
    std::shared_ptr<Store> Open(std::string_view path);
    /// From now on a session in use does not count.
    void StandAlone();
    Session& Get();

  private:
    std::shared_ptr<Session> settled_;  ///< null while the session in use may still come
    std::shared_ptr<Session> sample_;
};

}  // namespace localstores
