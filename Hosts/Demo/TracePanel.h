// TracePanel: the newest lines of debugger output, live.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <string>

namespace demo {

class TracePanel {
  public:
    static constexpr int listId = 300;
    static constexpr int clearId = 301;

    void Create(HWND form);
    void Arrange(const RECT& place);
    /// Shows lines that came since the last call; cheap when there are none.
    void Update();
    void Clear();
    /// Answers the list's question for the text of a line.
    void Fill(NMLVDISPINFOW& question);

  private:
    HWND group_ = nullptr;
    HWND list_ = nullptr;
    HWND clear_ = nullptr;
    uint64_t shown_ = 0;
    std::wstring answer_;
};

}  // namespace demo
