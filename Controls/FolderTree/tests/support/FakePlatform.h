// FakePlatform: a platform for the control that records everything it is asked for.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "common/ControlPlatform.h"

namespace foldertree::testing {

class FakePlatform : public ControlPlatform {
  public:
    /// Runs inside each yield; gets the number of the yield, from 1.
    std::function<void(int yield)> onYield;
    std::function<void()> onChanged;
    std::function<void()> onPropertyChanged;

    automation::ObjectRef ambientFont;
    int twipsPerPixel = 15;

    int yields = 0;
    int changed = 0;
    bool busyPointer = false;
    bool panelVisible = false;
    int panelShown = 0;  ///< how often it appeared
    std::string pleaseWait;
    std::string cancel;
    std::vector<std::string> paths;  ///< progress texts, in order
    double progressMaximum = 0;
    double progressValue = 0;
    double highestMaximum = 0;
    std::vector<std::string> changedProperties;
    std::vector<std::string> lines;  ///< trace lines as they come
    bool traceIsHeard = true;
    /// Set by a test that closes the control: calls that come afterwards are counted.
    bool closed = false;
    int callsAfterClose = 0;

    /// The trace without the prefix that all lines have. Error lines have a "?" for the source line.
    std::vector<std::string> Trace() const;
    std::vector<std::string> ErrorLines() const;
    size_t TraceCount(std::string_view part) const;
    void ClearTrace() { lines.clear(); }

    void Yield() override;
    void SetBusyPointer(bool busy) override;
    void ShowWaitPanel(bool visible) override;
    void SetWaitCaptions(std::string_view pleaseWaitText, std::string_view cancelText) override;
    void SetProgressText(std::string_view path) override;
    void SetProgress(double maximum, double value) override;
    automation::ObjectRef CreateFont(std::string_view name) override;
    automation::ObjectRef AmbientFont() override;
    int TwipsPerPixel() override;
    void RaiseChanged() override;
    void PropertyChanged(std::string_view name) override;
    bool TraceIsHeard() override { return traceIsHeard; }
    void TraceLine(std::string_view line) override;

  private:
    void Called();
};

/// "Error in X (12): ..." becomes "Error in X (?): ...": which line of our source failed is no behaviour.
std::string MaskErrorLine(std::string line);

}  // namespace foldertree::testing
