// ControlContext: what every part of the control shares: its state, its grid, the trace, the yields and the wait panel.
#include "common/ControlContext.h"

#include "common/QuietPlatform.h"
#include "common/modApplication.h"

namespace foldertree {
namespace {

/// The host and factory of a closed control.
class NoPlatform : public QuietPlatform, public automation::ObjectFactory {
  public:
    automation::ObjectRef Create(std::string_view) override {
        throw automation::VbError(automation::errors::cannotCreate);
    }
};

NoPlatform noPlatform;

}  // namespace

ControlContext::ControlContext(ControlPlatform& platform, automation::ObjectFactory& factory)
    : platform_(&platform), factory_(&factory) {
    // The line that tells of memory running out must not need any.
    line_.reserve(usualErrorLine);
}

void ControlContext::Detach() {
    // A load that runs further up the stack will have no platform to tell of its end.
    if (state.refreshing) EndWait();
    closed_ = true;
    state.cancel = true;
    platform_ = &noPlatform;
    factory_ = &noPlatform;
}

void ControlContext::TraceError(const ErrorLine& line, const automation::Error& error) {
    const std::string_view detail = line.detail == ErrorDetail::Bracket ? "): [0x" : "): 0x";
    // When there is no memory even for the line, the procedure still ends as it should.
    Attempt([&] { Trace(line.opening, error.Line(), detail, Hex(error.Number()), "] ", error.Text()); });
}

void ControlContext::Yield() {
    grid.DeliverChanges();
    platform_->Yield();
    ThrowIfClosed();
}

void ControlContext::RaiseChanged() {
    grid.DeliverChanges();
    platform_->RaiseChanged();
    ThrowIfClosed();
}

void ControlContext::PropertyChanged(Member property) {
    grid.DeliverChanges();
    platform_->PropertyChanged(Info(property).name);
    ThrowIfClosed();
}

automation::ObjectRef ControlContext::AmbientFont() {
    automation::ObjectRef font;
    Attempt([&] { font = platform_->AmbientFont(); });
    ThrowIfClosed();
    return font;
}

void ControlContext::ThrowIfClosed() const {
    if (closed_) throw ControlClosed();
}

void ControlContext::AdvanceProgress(int32_t addToMax, int32_t addToValue) {
    if (addToMax > -1) progressMaximum_ += addToMax;
    if (addToValue > -1) progressValue_ += addToValue;
    platform_->SetProgress(progressMaximum_, progressValue_);
    Yield();
}

void ControlContext::ShowPath(std::string_view path) {
    platform_->SetProgressText(path);
    Yield();
}

void ControlContext::ResetProgress() {
    progressValue_ = 0;
    progressMaximum_ = 1;
    platform_->SetProgress(progressMaximum_, progressValue_);
}

void ControlContext::EndWait() {
    platform_->SetBusyPointer(false);
    platform_->ShowWaitPanel(false);
}

LoadScope::LoadScope(ControlContext& context)
    : context_(context), refreshing_(context.state.refreshing), gridBusy_(context.state.gridBusy) {
    context_.state.cancel = false;
    context_.Platform().ShowWaitPanel(true);
    context_.Platform().SetProgressText("");
    context_.Platform().SetBusyPointer(true);
}

LoadScope::~LoadScope() {
    context_.EndWait();
}

}  // namespace foldertree
