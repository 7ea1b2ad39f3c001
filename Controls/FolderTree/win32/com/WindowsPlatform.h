// WindowsPlatform: what the control asks of Windows and of its container.
#pragma once

#include "win32/WindowsNames.h"

#include "automation_win32/ComObjectFactory.h"
#include "common/ControlPlatform.h"
#include "win32/com/TraceChannel.h"
#include "win32/window/ControlWindow.h"

namespace foldertree {

class ControlObject;

/// An edge that no exception passes, where the contract says so.
class WindowsPlatform final : public ControlPlatform {
  public:
    explicit WindowsPlatform(ControlObject& object) : object_(object) {}
    WindowsPlatform(const WindowsPlatform&) = delete;
    WindowsPlatform& operator=(const WindowsPlatform&) = delete;

    automation::ObjectFactory& Factory() { return factory_; }
    /// A call from outside begins: who hears the trace is asked anew.
    void CallBegins() noexcept { trace_.AskAnew(); }
    /// From now on there is a window to show things in. The core is made before its window.
    void Attach(ControlWindow& window) { window_ = &window; }

    /// The container asks for silence; one `Changed` stands for all that were held back.
    void FreezeEvents(bool freeze) noexcept;

    void Yield() noexcept override;
    void SetBusyPointer(bool busy) noexcept override;
    void ShowWaitPanel(bool visible) noexcept override;
    void SetWaitCaptions(std::string_view pleaseWait, std::string_view cancel) noexcept override;
    void SetProgressText(std::string_view path) noexcept override;
    void SetProgress(double maximum, double value) noexcept override;
    automation::ObjectRef CreateFont(std::string_view name) override;
    automation::ObjectRef AmbientFont() override;
    int TwipsPerPixel() noexcept override;
    void RaiseChanged() noexcept override;
    void PropertyChanged(std::string_view name) noexcept override;
    bool TraceIsHeard() noexcept override { return trace_.IsHeard(); }
    void TraceLine(std::string_view line) noexcept override { trace_.Write(line); }

  private:
    /// Containers that keep a picture of the control want another one.
    void TellOfPicture() noexcept;

    ControlObject& object_;
    ControlWindow* window_ = nullptr;
    automation::ComObjectFactory factory_;
    TraceChannel trace_;
    int freezes_ = 0;
    bool heldBack_ = false;
};

}  // namespace foldertree
