// Mailbox: a session for the control to read, with a wire that a test can stretch across any of its calls.
#pragma once

#include <functional>
#include <memory>

#include "automation/Object.h"

namespace foldertree::testing {

/// Counts the calls of the session and of everything that was reached from it, and acts at one of them.
struct Tripwire {
    int calls = 0;
    int actAt = 0;                 ///< 0: never
    std::function<void()> action;  ///< runs inside that call, before it is answered
};

/// The built-in sample mailbox as an RDO session behind the wire.
automation::ObjectRef SampleSession(std::shared_ptr<Tripwire> wire = std::make_shared<Tripwire>());

/// Runs an action from the message loop, that is, at the control's next yield.
class Poster {
  public:
    Poster();
    ~Poster();
    Poster(const Poster&) = delete;
    Poster& operator=(const Poster&) = delete;

    void Post(std::function<void()> action);

  private:
    struct Window;
    std::unique_ptr<Window> window_;
};

}  // namespace foldertree::testing
