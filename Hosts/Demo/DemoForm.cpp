// DemoForm: wiring the widgets, the control and the files.
#include "DemoForm.h"

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>

#include "FontText.h"
#include "Text.h"
#include "TraceLog.h"
#include "WatchText.h"
#include "Widgets.h"

namespace demo {
namespace {

constexpr wchar_t windowClass[] = L"FolderTreeDemo";
constexpr wchar_t controlProgId[] = L"FolderTree.ctlFolderTree";
constexpr wchar_t sessionProgId[] = L"LocalStores.Session";
constexpr wchar_t applicationProgId[] = L"LocalStores.Application";

constexpr UINT loadMessage = WM_APP + 1;
constexpr UINT selectionMessage = WM_APP + 2;

constexpr UINT_PTR updateTimer = 1, readyTimer = 2;
constexpr UINT updateMilliseconds = 100;
/// Time for the last paint to reach the screen before a script takes its picture.
constexpr UINT readyMilliseconds = 300;

constexpr int formWidth = 1024, formHeight = 700;
constexpr int statusId = 500;

/// A property that the command line may set for one run.
struct Override {
    const char* property;
    const wchar_t* member;
    std::optional<int> Options::*value;
    int newControl;  ///< the property of a control that nothing was saved of; in what was saved, 0 is left out
};
constexpr Override overrides[] = {{"ExtendToLevel", L"ExtendToLevel", &Options::level, 1},
                                  {"InfoStoreAccessMode", L"InfoStoreAccessMode", &Options::mode, 0}};

std::string NumberText(int number) {
    return "number:" + std::to_string(number);
}

struct Captions {
    const wchar_t *index, *selection, *name, *addressLists, *pleaseWait, *cancel;
};
constexpr Captions captions[] = {
    {L"No.", L"Use", L"Folder", L"Address lists", L"Reading folders…", L"Cancel"},
    {L"Nr.", L"Wahl", L"Ordner", L"Adresslisten", L"Ordner werden gelesen…", L"Abbrechen"},
    {L"N°", L"Choix", L"Dossier", L"Listes d’adresses", L"Lecture des dossiers…", L"Annuler"}};

void WriteError(const std::wstring& text) {
    const std::string line = "FolderTreeDemo: " + ToUtf8(text) + "\n";
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
}

}  // namespace

DemoForm::~DemoForm() {
    TraceLog::Instance().SetListener(nullptr);
}

void DemoForm::Open() {
    TraceLog::Instance().SetListener([this](const std::wstring& line) { tree_.Read(line); });
    WNDCLASSEXW type = {};
    type.cbSize = sizeof type;
    type.lpfnWndProc = Procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    type.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    type.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    type.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    type.lpszClassName = windowClass;
    RegisterClassExW(&type);
    window_ = CreateWindowExW(0, windowClass, L"FolderTree demo", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                              Scaled(formWidth), Scaled(formHeight), nullptr, nullptr, type.hInstance, this);

    // The control comes first, so that Tab reaches it first.
    state_ = SavedState::Load(options_.stateFile);
    OverrideProperties();
    CreateControl();
    properties_.Create(window_);
    methods_.Create(window_);
    selectionPanel_.Create(window_);
    trace_.Create(window_);
    status_ = AddWidget(window_, STATUSCLASSNAMEW, L"", SBARS_SIZEGRIP, statusId);
    Arrange();
    ShowState();
    ShowWindow(window_, SW_SHOWNORMAL);
    UpdateWindow(window_);
    site_->Focus();
    SetTimer(window_, updateTimer, updateMilliseconds, nullptr);
    PostMessageW(window_, loadMessage, 0, 0);
}

bool DemoForm::TranslateMessage(MSG& message) {
    if (site_ && site_->TranslateKey(message)) return true;
    return window_ != nullptr && IsDialogMessageW(window_, &message);
}

LRESULT CALLBACK DemoForm::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        auto* form = static_cast<DemoForm*>(creation->lpCreateParams);
        form->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(form));
    }
    auto* form = reinterpret_cast<DemoForm*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return form != nullptr ? form->Handle(message, wParam, lParam) : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT DemoForm::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            Arrange();
            return 0;
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {Scaled(860), Scaled(560)};
            return 0;
        case WM_COMMAND:
            OnCommand(LOWORD(wParam), HIWORD(wParam));
            return 0;
        case WM_NOTIFY:
            OnNotify(*reinterpret_cast<NMHDR*>(lParam));
            return 0;
        case WM_TIMER:
            OnTimer(wParam);
            return 0;
        case WM_ACTIVATE:
            if (LOWORD(wParam) == WA_INACTIVE) lastFocus_ = GetFocus();
            return DefWindowProcW(window_, message, wParam, lParam);
        case WM_SETFOCUS:
            if (lastFocus_ != nullptr && IsChild(window_, lastFocus_))
                SetFocus(lastFocus_);
            else if (site_)
                site_->Focus();
            return 0;
        case loadMessage:
            LoadMail();
            return 0;
        case selectionMessage:
            ReadSelection();
            return 0;
        case WM_CLOSE:
            OnClose();
            return 0;
        case WM_DESTROY:
            PostQuitMessage(exitCode_);
            return 0;
        case WM_NCDESTROY: {
            const HWND window = window_;
            SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            window_ = nullptr;
            return DefWindowProcW(window, message, wParam, lParam);
        }
        default:
            return DefWindowProcW(window_, message, wParam, lParam);
    }
}

void DemoForm::OnCommand(int id, int notification) {
    if (id == TracePanel::clearId) {
        trace_.Clear();
    } else if (id == IDOK) {
        Attempt([&] { properties_.CommitLevel(Control().Get()); });
        ShowState();
    } else if (id >= PropertyPanel::firstId && id <= PropertyPanel::lastId) {
        if (notification != BN_CLICKED && notification != CBN_SELCHANGE) return;
        Attempt([&] { properties_.Command(id, notification, Control().Get()); });
        ShowState();
    } else if (id >= methodRefreshList && id < methodOther) {
        RunMethod(id);
    }
}

void DemoForm::OnNotify(NMHDR& header) {
    if (header.idFrom == TracePanel::listId && header.code == LVN_GETDISPINFOW) {
        trace_.Fill(reinterpret_cast<NMLVDISPINFOW&>(header));
    }
}

void DemoForm::OnTimer(UINT_PTR id) {
    if (id == readyTimer) {
        KillTimer(window_, readyTimer);
        WriteReady();
        return;
    }
    trace_.Update();
    if (!options_.watchFile.empty()) WriteWatched();
}

void DemoForm::OnClose() {
    // Read before the control goes: it empties the collection when it ends.
    SaveState();
    if (sink_) sink_->Disconnect();
    sink_.Reset();
    session_.Reset();
    if (site_) site_->Close();
    site_.Reset();
    collection_.Reset();
    DestroyWindow(window_);
}

void DemoForm::Arrange() {
    RECT client = {};
    GetClientRect(window_, &client);
    if (status_ != nullptr) {
        SendMessageW(status_, WM_SIZE, 0, 0);
        RECT bar = {};
        GetWindowRect(status_, &bar);
        client.bottom -= bar.bottom - bar.top;
        const int parts[] = {static_cast<int>(client.right) - Scaled(130), -1};
        SendMessageW(status_, SB_SETPARTS, std::size(parts), reinterpret_cast<LPARAM>(parts));
    }
    InflateRect(&client, -Scaled(8), -Scaled(8));
    const RECT left = CutLeft(client, (client.right - client.left) * 44 / 100);
    if (site_) site_->Move(left);
    if (status_ == nullptr) return;
    properties_.Arrange(CutTop(client, Scaled(PropertyPanel::height)));
    methods_.Arrange(CutTop(client, Scaled(MethodPanel::height)));
    selectionPanel_.Arrange(CutTop(client, (client.bottom - client.top) * 2 / 5));
    trace_.Arrange(client);
    InvalidateRect(window_, nullptr, TRUE);
}

void DemoForm::CreateControl() {
    RECT client = {};
    GetClientRect(window_, &client);
    site_ = Adopt(new ControlSite(window_));
    site_->Create(controlProgId, state_.properties, client);
    sink_ = ChangedSink::Connect(site_->Control(), [this] { OnChanged(); });
}

void DemoForm::LoadMail() {
    try {
        OpenStores();
        PutRef(Control().Get(), L"RDOSessionRef", session_.Get());
        // For the mode that reads through a mail client: it shows what the session has opened.
        PutRef(Control().Get(), L"Application", CreateByProgId(applicationProgId).Get());
    } catch (const AutomationFailure& failure) {
        Fail(failure.Message());
        return;
    }
    Attempt([&] { HandOverSelection(); });
    Attempt([&] { Localize(); });
    RefreshList();
    Attempt([&] { HandOverSelectedItem(); });
    ReadSelection();
    if (!options_.readyFile.empty() && window_ != nullptr) SetTimer(window_, readyTimer, readyMilliseconds, nullptr);
}

void DemoForm::OpenStores() {
    session_ = CreateByProgId(sessionProgId);
    for (const std::wstring& path : options_.mailStores) Call(session_.Get(), L"Open", {path});
    if (!options_.mailStores.empty()) return;
    const std::wstring slow =
        options_.slowMilliseconds > 0 ? L"?delay=" + std::to_wstring(options_.slowMilliseconds) : std::wstring();
    Call(session_.Get(), L"Open", {L"sample" + slow});
}

ComPtr<IDispatch> DemoForm::NewItem(const SavedItem& saved, long index) {
    const ComPtr<IDispatch> item =
        Call(Control().Get(), L"CreateSelItem",
             {saved.recordId, saved.storeId, saved.entryId, saved.entryIdShort, saved.addressListId})
            .AsObject();
    Put(item.Get(), L"Index", index);
    return item;
}

void DemoForm::NewCollection() {
    collection_ = Adopt(new ItemCollection);
}

void DemoForm::HandOverSelection() {
    const ComPtr<IDispatch> control = Control();
    NewCollection();
    if (!Get(control.Get(), L"MultiSelect").AsBool()) return;
    long index = 0;
    for (const SavedItem& saved : state_.selection) {
        const ComPtr<IDispatch> item = NewItem(saved, ++index);
        collection_->Append(item.Get(), Get(item.Get(), L"Key").AsText());
    }
    PutRef(control.Get(), L"Selection", collection_.Get());
}

void DemoForm::HandOverSelectedItem() {
    const ComPtr<IDispatch> control = Control();
    if (!control || state_.selection.empty() || Get(control.Get(), L"MultiSelect").AsBool()) return;
    // The control looks the row up at once, so the tree must stand already.
    PutRef(control.Get(), L"SelectedItem", NewItem(state_.selection.front(), 0).Get());
}

void DemoForm::Localize() {
    const Captions& text = captions[language_];
    language_ = (language_ + 1) % std::size(captions);
    Call(Control().Get(), L"Localize",
         {text.index, text.selection, text.name, text.addressLists, text.pleaseWait, text.cancel});
}

void DemoForm::RunMethod(int command) {
    if (command == methodRefreshList) {
        RefreshList();
    } else {
        Attempt([&] {
            const ComPtr<IDispatch> control = Control();
            switch (command) {
                case methodLocalize:
                    Localize();
                    break;
                case methodSelectAll:
                    Call(control.Get(), L"SelectAll");
                    break;
                case methodSelectNone:
                    Call(control.Get(), L"SelectNone");
                    break;
                case methodCollapseToSelection:
                    Call(control.Get(), L"CollapseToSelection");
                    break;
                case methodKillCollection:
                    KillCollection();
                    break;
                case methodFont:
                    PickFont();
                    break;
                case methodLookUp:
                    LookUp();
                    break;
                case methodSelectByType:
                    Call(control.Get(), L"SelectByType", {methods_.ItemType(), methods_.Additional()});
                    break;
                case methodCollapseToType:
                    Call(control.Get(), L"CollapseToType", {methods_.ItemType()});
                    break;
                default:
                    break;
            }
        });
    }
    ShowState();
    ReadSelection();
}

void DemoForm::RefreshList() {
    const ComPtr<IDispatch> control = Control();
    if (!control || loading_) return;
    loading_ = true;
    SetStatus(L"Reading folders…");
    if (Attempt([&] { Call(control.Get(), L"RefreshList"); })) SetStatus(L"Ready");
    loading_ = false;
    TraceLog::Note(L"RefreshList returned");
    ShowState();
}

void DemoForm::KillCollection() {
    const ComPtr<IDispatch> control = Control();
    IDispatch* killed = collection_.Detach();
    Variant argument;
    argument.vt = VT_DISPATCH | VT_BYREF;
    argument.ppdispVal = &killed;
    Attempt([&] { Call(control.Get(), L"KillCollection", {argument}); });
    if (killed != nullptr) killed->Release();
    NewCollection();
    PutRef(control.Get(), L"Selection", collection_.Get());
}

void DemoForm::LookUp() {
    const size_t chosen = selectionPanel_.Chosen();
    if (chosen >= selection_.size()) return SetStatus(L"Tick a folder, and choose it in the selection");
    const SavedItem& saved = selection_[chosen].saved;
    const bool isList = !saved.addressListId.empty();
    const wchar_t* const function = isList ? L"GetAdListItem" : L"GetMsgItem";
    const ComPtr<IDispatch> item =
        Call(Control().Get(), function, {isList ? saved.addressListId : saved.storeId, saved.entryId}).AsObject();
    const std::wstring found = item ? ReadItem(item.Get()).path : L"nothing";
    SetStatus(std::wstring(function) + L": " + found);
    TraceLog::Note(std::wstring(function) + L" found " + found);
}

void DemoForm::PickFont() {
    const ComPtr<IDispatch> control = Control();
    ComPtr<IFont> font;
    LOGFONTW chosen = {};
    if (const ComPtr<IDispatch> current = Get(control.Get(), L"Font").AsObject()) {
        HFONT handle = nullptr;
        if (SUCCEEDED(current.As(&font)) && SUCCEEDED(font->get_hFont(&handle)))
            GetObjectW(handle, sizeof chosen, &chosen);
    }
    CHOOSEFONTW dialog = {};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = window_;
    dialog.lpLogFont = &chosen;
    dialog.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT;
    if (!ChooseFontW(&dialog)) return;
    constexpr int sizeUnits = 1000;  // the dialog answers in 1/10 point, fonts are kept in 1/10000
    font = FontFromText(ToUtf8(chosen.lfFaceName) + "|" + std::to_string(dialog.iPointSize * sizeUnits) + "|" +
                        std::to_string(chosen.lfWeight) + "|" + std::to_string(chosen.lfCharSet) + "|" +
                        std::to_string(chosen.lfItalic != 0) + "|" + std::to_string(chosen.lfUnderline != 0) + "|" +
                        std::to_string(chosen.lfStrikeOut != 0));
    ComPtr<IDispatch> object;
    if (font && SUCCEEDED(font.As(&object))) PutRef(control.Get(), L"Font", object.Get());
}

void DemoForm::ShowState() {
    if (const ComPtr<IDispatch> control = Control()) Attempt([&] { properties_.Show(control.Get()); });
    const std::wstring count = L"Changed: " + std::to_wstring(changedCount_);
    SendMessageW(status_, SB_SETTEXTW, 1, reinterpret_cast<LPARAM>(count.c_str()));
}

void DemoForm::ReadSelection() {
    const ComPtr<IDispatch> control = Control();
    // Rows that are not read yet carry no tick; a read in the middle of a load would lose their items.
    if (!control || loading_) return;
    Attempt([&] {
        if (Get(control.Get(), L"MultiSelect").AsBool()) {
            selection_ = ReadCollection(Get(control.Get(), L"Selection").AsObject().Get());
        } else {
            selection_.clear();
            if (const ComPtr<IDispatch> item = Get(control.Get(), L"SelectedItem").AsObject()) {
                selection_.push_back(ReadItem(item.Get()));
            }
        }
        for (SelectedFolder& folder : selection_) KeepRecord(folder);
        selectionRead_ = true;
        selectionPanel_.Show(selection_);
    });
    ShowState();
}

void DemoForm::KeepRecord(SelectedFolder& folder) {
    // A tree that is read anew carries no record numbers, so the host remembers those that it gave out.
    long& record = records_[folder.key];
    if (folder.saved.recordId != 0) record = folder.saved.recordId;
    folder.saved.recordId = record;
}

void DemoForm::SaveState() {
    if (!site_) return;
    ReadSelection();
    // A selection that never reached the tree is kept for the next run.
    const bool untouched = selection_.empty() && changedCount_ == 0;
    if (selectionRead_ && !untouched) {
        state_.selection.clear();
        long highestRecord = 0;
        for (const SelectedFolder& folder : selection_) highestRecord = std::max(highestRecord, folder.saved.recordId);
        for (const SelectedFolder& folder : selection_) {
            state_.selection.push_back(folder.saved);
            if (folder.saved.recordId == 0) state_.selection.back().recordId = ++highestRecord;
        }
    }
    Attempt([&] { SaveProperties(); });
    if (!state_.Save(options_.stateFile)) Fail(L"cannot keep properties and selection in " + options_.stateFile);
}

void DemoForm::OverrideProperties() {
    const bool any = std::any_of(std::begin(overrides), std::end(overrides),
                                 [&](const Override& override) { return (options_.*override.value).has_value(); });
    if (!any) return;
    const bool newControl = state_.properties.empty();
    for (const Override& override : overrides) {
        const std::optional<int>& value = options_.*override.value;
        std::string& saved = state_.properties[override.property];
        // Now that the bag is not empty the control is loaded and not new, so it has to be told.
        if (saved.empty()) saved = NumberText(newControl ? override.newControl : 0);
        usual_[override.property] = saved;
        if (value) saved = NumberText(*value);
    }
}

void DemoForm::SaveProperties() {
    site_->Save(state_.properties);
    // What the command line says is for this run, unless it was changed since.
    for (const Override& override : overrides) {
        const std::optional<int>& value = options_.*override.value;
        if (value && Get(Control().Get(), override.member).AsLong() == *value)
            state_.properties[override.property] = usual_[override.property];
    }
}

long DemoForm::ListCount() {
    long count = 0;
    if (const ComPtr<IDispatch> control = Control())
        Attempt([&] { count = Get(control.Get(), L"ListCount").AsLong(); });
    return count;
}

void DemoForm::WriteReady() {
    std::set<std::wstring> selectedKeys;
    for (const SelectedFolder& folder : selection_) selectedKeys.insert(folder.key);
    std::string text = tree_.AsText(selectedKeys);
    if (text.empty())
        text = "This access mode does not trace its rows; there are " + std::to_string(ListCount()) + ".\n";
    if (!WriteWholeFile(options_.readyFile, text)) Fail(L"cannot write " + options_.readyFile);
}

void DemoForm::WriteWatched() {
    std::string text = WatchText(window_, site_ ? site_->Window() : nullptr, tree_, selection_);
    text += "rows\t" + std::to_string(ListCount()) + "\nchanged\t" + std::to_string(changedCount_) + "\nloading\t" +
            std::to_string(loading_) + "\n";
    if (text != watched_ && WriteWholeFile(options_.watchFile, text)) watched_ = std::move(text);
}

void DemoForm::SetStatus(const std::wstring& text) {
    SendMessageW(status_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void DemoForm::OnChanged() {
    ++changedCount_;
    TraceLog::Note(L"Changed");
    // Read once the control has finished what it is doing.
    PostMessageW(window_, selectionMessage, 0, 0);
}

bool DemoForm::Attempt(const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const AutomationFailure& failure) {
        SetStatus(failure.Message());
        TraceLog::Note(failure.Message());
        return false;
    }
}

void DemoForm::Fail(const std::wstring& message) {
    TraceLog::Note(message);
    SetStatus(message);
    if (options_.Unattended()) {
        WriteError(message);
        exitCode_ = 2;
        PostMessageW(window_, WM_CLOSE, 0, 0);
    } else {
        MessageBoxW(window_, message.c_str(), L"FolderTree demo", MB_ICONERROR);
    }
}

}  // namespace demo
