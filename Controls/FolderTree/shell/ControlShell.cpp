// ControlShell: what every part of the control shares: its state, its grid, the trace, the yields and the wait panel.
#include "shell/ControlShell.h"

#include "shell/QuietHost.h"
#include "shell/modApplication.h"

namespace foldertree {
namespace {

/// The host and factory of a closed control.
class NoHost : public QuietHost, public automation::ObjectFactory {
  public:
    automation::ObjectRef Create(std::string_view) override {
        throw automation::VbError(automation::errors::cannotCreate);
    }
};

NoHost noHost;

}  // namespace

ControlShell::ControlShell(ControlHost& host, automation::ObjectFactory& factory) : host_(&host), factory_(&factory) {
    grid.AddObserver(this);
}

ControlShell::~ControlShell() {
    grid.RemoveObserver(this);
}

void ControlShell::Detach() {
    closed_ = true;
    state.cancel = true;
    host_ = &noHost;
    factory_ = &noHost;
}

void ControlShell::TraceError(const ErrorLine& line, const automation::Error& error) {
    const std::string_view detail = line.detail == ErrorDetail::Bracket ? "): [0x" : "): 0x";
    // When there is no memory even for the line, the procedure still ends as it should.
    Attempt([&] { Trace(line.opening, error.Line(), detail, Hex(error.Number()), "] ", error.Text()); });
}

void ControlShell::Yield() {
    host_->Yield();
    ThrowIfClosed();
}

void ControlShell::RaiseChanged() {
    host_->RaiseChanged();
    ThrowIfClosed();
}

void ControlShell::PropertyChanged(std::string_view name) {
    host_->PropertyChanged(name);
    ThrowIfClosed();
}

void ControlShell::ThrowIfClosed() const {
    if (closed_) throw ControlClosed();
}

void ControlShell::AdvanceProgress(int32_t addToMax, int32_t addToValue) {
    if (addToMax > -1) progressMaximum_ += addToMax;
    if (addToValue > -1) progressValue_ += addToValue;
    host_->SetProgress(progressMaximum_, progressValue_);
    Yield();
}

void ControlShell::ShowPath(std::string_view path) {
    host_->SetProgressText(path);
    Yield();
}

void ControlShell::ResetProgress() {
    progressValue_ = 0;
    progressMaximum_ = 1;
    host_->SetProgress(progressMaximum_, progressValue_);
}

void ControlShell::RowsInserted(int32_t firstRow, int32_t count) {
    if (state.addressListHeadingRow >= firstRow) state.addressListHeadingRow += count;
}

void ControlShell::RowsRemoved(int32_t firstRow, int32_t count) {
    int32_t& heading = state.addressListHeadingRow;
    if (heading < firstRow) return;
    heading = heading < firstRow + count ? 0 : heading - count;
}

LoadScope::LoadScope(ControlShell& shell)
    : shell_(shell), refreshing_(shell.state.refreshing), gridBusy_(shell.state.gridBusy) {
    shell_.state.cancel = false;
    shell_.Host().ShowWaitPanel(true);
    shell_.Host().SetProgressText("");
    shell_.Host().SetBusyPointer(true);
}

LoadScope::~LoadScope() {
    shell_.Host().SetBusyPointer(false);
    shell_.Host().ShowWaitPanel(false);
}

}  // namespace foldertree
