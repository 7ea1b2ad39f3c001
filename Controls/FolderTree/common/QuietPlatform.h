// QuietPlatform: a platform with nothing to show and nobody to tell.
#pragma once

#include "common/ControlPlatform.h"

namespace foldertree {

/// The base of hosts without a window, which override what they care for; by itself the host of a closed control.
class QuietPlatform : public ControlPlatform {
  public:
    void Yield() override {}
    void SetBusyPointer(bool) override {}
    void ShowWaitPanel(bool) override {}
    void SetWaitCaptions(std::string_view, std::string_view) override {}
    void SetProgressText(std::string_view) override {}
    void SetProgress(double, double) override {}
    automation::ObjectRef CreateFont(std::string_view) override { return nullptr; }
    automation::ObjectRef AmbientFont() override { return nullptr; }
    int TwipsPerPixel() override { return 15; }  // 96 pixels an inch
    void RaiseChanged() override {}
    void PropertyChanged(std::string_view) override {}
    bool TraceIsHeard() override { return false; }
    void TraceLine(std::string_view) override {}
};

}  // namespace foldertree
