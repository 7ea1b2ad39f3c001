// ConsolePlatform: the control's platform when it has no window.
#pragma once

#include "automation/ObjectFactory.h"
#include "common/QuietPlatform.h"

/// Writes the trace to standard error when asked to.
class ConsolePlatform : public foldertree::QuietPlatform {
  public:
    explicit ConsolePlatform(bool trace) : trace_(trace) {}

    bool TraceIsHeard() override { return trace_; }
    void TraceLine(std::string_view line) override;

  private:
    bool trace_;
};

/// The classes that the control creates by name.
class ConsoleFactory : public automation::ObjectFactory {
  public:
    automation::ObjectRef Create(std::string_view progId) override;
};
