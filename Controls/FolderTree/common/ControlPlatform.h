// ControlPlatform: everything that the control asks of the platform it runs on.
#pragma once

#include <string_view>

#include "automation/Object.h"

namespace foldertree {

/// Implemented once per platform: the Windows control, the console program, the tests. All calls come on the control's
/// one thread. The platform outlives the control or calls ctlFolderTree::Close() first; after Close() it is not called
/// again. No method throws, want of memory included: what cannot be shown or told then is lost, and the load goes on.
/// Only CreateFont and AmbientFont may throw, automation::Error and std::bad_alloc.
class ControlPlatform {
  public:
    virtual ~ControlPlatform() = default;

    /// Lets the message loop handle what is waiting. Anything may happen inside: a press of Cancel, a call of any
    /// member of the control, even Close().
    virtual void Yield() = 0;

    virtual void SetBusyPointer(bool busy) = 0;

    // The wait panel: a label, the path of the folder being read, a progress bar and a Cancel button.
    virtual void ShowWaitPanel(bool visible) = 0;
    virtual void SetWaitCaptions(std::string_view pleaseWait, std::string_view cancel) = 0;
    virtual void SetProgressText(std::string_view path) = 0;
    /// `value` may pass `maximum`; the bar then shows full. `maximum` may be beyond 32 bits.
    virtual void SetProgress(double maximum, double value) = 0;

    /// A new font object with a `Name` property.
    virtual automation::ObjectRef CreateFont(std::string_view name) = 0;
    /// The container's font, or null when there is none.
    virtual automation::ObjectRef AmbientFont() = 0;
    virtual int TwipsPerPixel() = 0;

    /// Raises the event `Changed` to every sink of the host application.
    virtual void RaiseChanged() = 0;
    /// Tells the container that the named property must be saved.
    virtual void PropertyChanged(std::string_view name) = 0;

    /// Whether anybody can receive a trace line now. One that nobody can is not put together: in a load the trace is
    /// more work than the tree.
    virtual bool TraceIsHeard() = 0;
    /// One finished trace line for the debugger output. UTF-8, without a line end.
    virtual void TraceLine(std::string_view line) = 0;
};

}  // namespace foldertree
