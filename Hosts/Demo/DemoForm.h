// DemoForm: the host's window: the control at the left, its members, the selection and the trace at the right.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <set>
#include <string>

#include "ChangedSink.h"
#include "ControlSite.h"
#include "ItemCollection.h"
#include "MethodPanel.h"
#include "Options.h"
#include "PropertyPanel.h"
#include "SavedState.h"
#include "SelectionPanel.h"
#include "TracePanel.h"
#include "TracedTree.h"

namespace demo {

class DemoForm {
  public:
    explicit DemoForm(const Options& options) : options_(options) {}
    ~DemoForm();
    DemoForm(const DemoForm&) = delete;
    DemoForm& operator=(const DemoForm&) = delete;

    /// Shows the form and begins to load; the message loop is the caller's. Throws AutomationFailure when there is no
    /// control.
    void Open();
    /// True when the form took the message: a key of the control, or one that moves between the widgets.
    bool TranslateMessage(MSG& message);
    /// 0, or 2 when the mail could not be opened and nobody was there to be told.
    int ExitCode() const { return exitCode_; }

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    void OnCommand(int id, int notification);
    void OnNotify(NMHDR& header);
    void OnTimer(UINT_PTR id);
    void OnClose();
    void Arrange();

    void CreateControl();
    void LoadMail();
    void OpenStores();
    void HandOverSelection();
    void HandOverSelectedItem();
    void Localize();
    void RunMethod(int command);
    void RefreshList();
    void KillCollection();
    void PickFont();
    ComPtr<IDispatch> NewItem(const SavedItem& saved, long index);
    void NewCollection();

    void ShowState();
    void ReadSelection();
    long ListCount();
    void OverrideProperties();
    void LookUp();
    void SaveState();
    void SaveProperties();
    void KeepRecord(SelectedFolder& folder);
    void WriteReady();
    void WriteWatched();
    void SetStatus(const std::wstring& text);
    void OnChanged();
    /// Runs a piece of work with the control; a refusal goes to the status bar.
    bool Attempt(const std::function<void()>& work);
    void Fail(const std::wstring& message);
    /// Keeps the control alive during a call; null once the form is closed.
    ComPtr<IDispatch> Control() const { return site_ ? site_->Control() : nullptr; }

    const Options& options_;
    HWND window_ = nullptr;
    HWND status_ = nullptr;
    HWND lastFocus_ = nullptr;
    PropertyPanel properties_;
    MethodPanel methods_;
    SelectionPanel selectionPanel_;
    TracePanel trace_;
    TracedTree tree_;

    SavedState state_;
    std::map<std::string, std::string> usual_;  ///< what was saved of the properties that the command line overrides
    ComPtr<ControlSite> site_;
    ComPtr<ChangedSink> sink_;
    ComPtr<IDispatch> session_;
    ComPtr<ItemCollection> collection_;
    std::vector<SelectedFolder> selection_;  ///< as last read
    std::map<std::wstring, long> records_;   ///< record numbers by item key
    bool selectionRead_ = false;
    bool loading_ = false;
    int changedCount_ = 0;
    size_t language_ = 0;
    std::string watched_;
    int exitCode_ = 0;
};

}  // namespace demo
