// ControlContext: what every part of the control shares: its state, its grid, the trace, the yields and the wait panel.
#pragma once

#include <charconv>
#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

#include "automation/ObjectFactory.h"
#include "common/ControlPlatform.h"
#include "common/ControlState.h"
#include "common/ErrorEdges.h"
#include "common/GridColors.h"
#include "common/GridColumns.h"
#include "common/Members.h"
#include "rows/TreeGrid.h"

namespace foldertree {

class ControlContext {
  public:
    /// Platform and factory are not owned; they must live until Detach().
    ControlContext(ControlPlatform& platform, automation::ObjectFactory& factory);

    ControlState state;
    TreeGrid grid{folderSchema};

    ControlPlatform& Platform() { return *platform_; }
    automation::ObjectFactory& Factory() { return *factory_; }

    /// Lets go of platform and factory: the control is closed. A run further up the stack ends at its next yield.
    void Detach();
    bool Closed() const { return closed_; }

    /// Writes "ctlFolderTree: " and the parts (texts and numbers) as one line, for whoever may receive it.
    template <class... Parts>
    void Trace(const Parts&... parts) {
        if (!platform_->TraceIsHeard()) return;
        line_.resize(tracePrefix.size());
        (Append(parts), ...);
        platform_->TraceLine(line_);
    }
    void TraceError(const ErrorLine& line, const automation::Error& error);

    /// Lets the message loop run once. Throws ControlClosed when the control is closed afterwards.
    void Yield();
    /// Raise `Changed`, or tell the container of a changed property. Both throw ControlClosed like Yield: the host may
    /// do anything in its handler.
    void RaiseChanged();
    void PropertyChanged(Member property);
    /// The container's font; null when it has none or fails to give it. Throws ControlClosed too.
    automation::ObjectRef AmbientFont();
    /// For the other places from which the host can have been called.
    void ThrowIfClosed() const;

    /// Adds to the bar's maximum and value where the amount is greater than -1, then yields once.
    void AdvanceProgress(int32_t addToMax, int32_t addToValue);
    /// Shows the path of the folder being read and yields once.
    void ShowPath(std::string_view path);

  private:
    static constexpr std::string_view tracePrefix = "ctlFolderTree: ";
    static constexpr size_t usualErrorLine = 256;  ///< bytes

    void Append(std::string_view text) { line_ += text; }
    template <std::integral Number>
    void Append(Number number) {
        char digits[24];
        line_.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
    }

    friend class LoadScope;
    void ResetProgress();
    /// Busy pointer and wait panel go.
    void EndWait();

    ControlPlatform* platform_;
    automation::ObjectFactory* factory_;
    bool closed_ = false;
    double progressMaximum_ = 0;
    double progressValue_ = 0;
    std::string line_{tracePrefix};
};

/// The frame around a load or an expansion: clears the cancel flag, sets the refreshing and grid-busy flags, shows the
/// wait panel with an empty path and the busy pointer; when it dies, takes all that back as it was. Ready() completes
/// the start with the yield that lets the panel be drawn.
class LoadScope {
  public:
    explicit LoadScope(ControlContext& context);
    ~LoadScope();
    LoadScope(const LoadScope&) = delete;
    LoadScope& operator=(const LoadScope&) = delete;

    void Ready() { context_.Yield(); }
    /// Bar to value 0 of 1.
    void ResetProgress() { context_.ResetProgress(); }

  private:
    ControlContext& context_;
    FlagSet refreshing_;
    FlagSet gridBusy_;
};

}  // namespace foldertree
