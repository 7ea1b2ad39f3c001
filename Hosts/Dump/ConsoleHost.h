// ConsoleHost: the control's platform when it has no window.
#pragma once

#include "automation/ObjectFactory.h"
#include "shell/ControlHost.h"

/// Shows nothing, yields to nobody, and writes the trace to standard error when asked to.
class ConsoleHost : public foldertree::ControlHost {
  public:
    explicit ConsoleHost(bool trace) : trace_(trace) {}

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
    void TraceLine(std::string_view line) override;

  private:
    bool trace_;
};

/// The classes that the control creates by name.
class ConsoleFactory : public automation::ObjectFactory {
  public:
    automation::ObjectRef Create(std::string_view progId) override;
};
