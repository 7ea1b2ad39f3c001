// AccessibleAnswers: what a window tells assistive programs about its client area, child by child.
#pragma once

#include <windows.h>

#include <string>

namespace foldertree {

/// Child 0 is the client object itself, any other number one of its simple children; questions about a child come only
/// after `Has` said yes. Texts are UTF-8, roles, states and directions those of oleacc.h. Whoever asks catches what is
/// thrown, and looks after each call whether the window is still there.
class AccessibleAnswers {
  public:
    virtual ~AccessibleAnswers() = default;

    /// The window now; null when there is none.
    virtual HWND Window() const = 0;
    /// Before questions about what can be seen. Afterwards children may have gone.
    virtual void BringUpToDate() {}

    virtual bool Has(LONG child) = 0;
    virtual LONG Count() = 0;
    virtual LONG ChildAt(LONG position) = 0;            ///< 0-based; 0 beyond the last
    virtual LONG PositionOf(LONG child) = 0;            ///< -1 for one that is not among the children now
    virtual LONG ChildAtPoint(POINT point) = 0;         ///< of the client area; 0 where there is none
    virtual LONG Step(LONG direction, LONG child) = 0;  ///< 0 where the way leads nowhere; never asked of child 0

    virtual LONG Focus() = 0;      ///< 0 for none
    virtual LONG Selection() = 0;  ///< 0 for none

    virtual std::string Name(LONG child) = 0;
    virtual std::string Value(LONG child) = 0;        ///< empty for none
    virtual std::string Description(LONG child) = 0;  ///< empty for none
    virtual LONG Role(LONG child) = 0;
    virtual LONG State(LONG child) = 0;
    virtual RECT Place(LONG child) = 0;  ///< of the client area; empty where nothing of it is to be seen

    virtual std::string Action(LONG child) = 0;  ///< empty for none
    virtual HRESULT DoAction(LONG child) = 0;
    virtual HRESULT Select(LONG flags, LONG child) = 0;
};

}  // namespace foldertree
