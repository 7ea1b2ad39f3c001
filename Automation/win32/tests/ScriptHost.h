// ScriptHost: runs Visual Basic scripts with the system's engine: a late-bound host that nobody here wrote.
#pragma once

#include <windows.h>

#include <activscp.h>

#include <string_view>

#include "automation/Object.h"
#include "automation_win32/ComPtr.h"

namespace automation::testing {

class ScriptHost {
  public:
    ScriptHost();
    ~ScriptHost();
    ScriptHost(const ScriptHost&) = delete;
    ScriptHost& operator=(const ScriptHost&) = delete;

    /// Runs statements; functions and classes stay defined.
    void Run(std::string_view code);
    /// The functions that were defined, as members.
    ObjectRef Functions();

  private:
    ComPtr<IActiveScript> engine_;
    ComPtr<IActiveScriptSite> site_;
};

}  // namespace automation::testing
