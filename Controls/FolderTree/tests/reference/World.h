// World: one control with its host and its mail, to which events happen.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/ControlPlatform.h"
#include "reference/ControlFace.h"
#include "reference/Event.h"
#include "reference/Mail.h"

namespace foldertree::reference {

using MakeControl = std::function<std::unique_ptr<ControlFace>(ControlPlatform&, automation::ObjectFactory&)>;

class World : private ControlPlatform, private CallSink {
  public:
    explicit World(const MakeControl& make);

    void Happen(const Event& event);
    bool Closed() const { return closed_; }

    /// The first thing in which two worlds differ; nothing when all is the same: what was called, told and returned
    /// since the last call of Forget, the grid, the settings, and the items and collections that the host holds.
    static std::optional<std::string> Difference(World& product, World& literal);
    /// Starts the record of what happens anew.
    void Forget() { log_.clear(); }

  private:
    void Do(const Event& event);
    void DoUser(const Event& event);
    void DoHost(const Event& event);
    void DoItems(const Event& event);
    void DoProvider(const Event& event);
    void MakeItem(const Event& event);
    void Note(const std::string& line) { log_.push_back(line); }
    /// What a call came back with. It is nobody's any more when the control was closed meanwhile.
    void Returned(const std::string& line) {
        if (!closed_) Note(line);
    }
    /// A closed control asks its host for nothing.
    void AskedByControl() {
        if (closed_) Note("asked by a closed control");
    }
    /// Runs what waits for this.
    void Due(Place place);

    /// A data row, or -1 when there is none.
    int32_t Row(int choice) const;
    automation::ObjectRef KeptItem(int choice) const;
    automation::ObjectRef KeptCollection(int choice) const;
    void Keep(const automation::ObjectRef& item);
    void KeepCollection(const automation::ObjectRef& collection);
    std::string Describe(const automation::ObjectRef& item) const;
    std::vector<std::string> DescribeHeld() const;

    // ControlPlatform
    void Yield() override;
    void SetBusyPointer(bool busy) override {
        AskedByControl();
        busyPointer_ = busy;
    }
    void ShowWaitPanel(bool visible) override {
        AskedByControl();
        panel_ = visible;
    }
    void SetWaitCaptions(std::string_view pleaseWait, std::string_view cancel) override;
    void SetProgressText(std::string_view path) override {
        AskedByControl();
        path_ = path;
    }
    void SetProgress(double maximum, double value) override;
    automation::ObjectRef CreateFont(std::string_view) override { return nullptr; }
    automation::ObjectRef AmbientFont() override { return nullptr; }
    int TwipsPerPixel() override { return 15; }
    void RaiseChanged() override;
    void PropertyChanged(std::string_view name) override;
    bool TraceIsHeard() override { return true; }
    void TraceLine(std::string_view line) override;
    // CallSink
    void Called(const std::string& object, std::string_view member) override;

    std::string PanelText() const;

    std::vector<std::string> log_;
    Sequence waiting_;
    bool busyPointer_ = false;
    bool panel_ = false;
    std::string path_;
    double maximum_ = 0;
    double value_ = 0;
    int calls_ = 0;
    int failAt_ = 0;
    bool closed_ = false;

    std::shared_ptr<Mail> mail_ = FirstMail();
    MailFactory factory_{mail_, *this};
    std::vector<automation::ObjectRef> items_;
    size_t nextItem_ = 0;
    std::vector<automation::ObjectRef> collections_;
    size_t nextCollection_ = 0;
    std::unique_ptr<ControlFace> control_;
};

}  // namespace foldertree::reference
