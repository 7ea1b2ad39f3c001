// DesignerTest: what form designers and early-bound hosts ask of the control and its collection.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ole2.h>
#include <olectl.h>

#include <string>
#include <vector>

#include "automation_win32/Bstr.h"
#include "automation_win32/ComBase.h"
#include "automation_win32/Crossing.h"
#include "automation_win32/Variant.h"
#include "com/Mailbox.h"
#include "com/Server.h"
#include "win32/com/ControlPropertyCategories.h"
#include "win32/com/SettingsPage.h"
#include "win32/com/VbaCollection.h"

namespace foldertree::testing {
namespace {

using automation::Value;
using automation::Variant;

constexpr DISPID accessMode = 22;
constexpr DISPID multiSelect = 13;

// ---- Names of the access modes

TEST(PropertyBrowsing, NamesTheAccessModes) {
    const auto control = NewControl();
    const auto browsing = As<IPerPropertyBrowsing>(control);
    CALPOLESTR texts = {};
    CADWORD cookies = {};
    ASSERT_EQ(browsing->GetPredefinedStrings(accessMode, &texts, &cookies), S_OK);
    ASSERT_EQ(texts.cElems, 4u);
    ASSERT_EQ(cookies.cElems, 4u);
    for (ULONG i = 0; i < texts.cElems; ++i) {
        Variant value;
        ASSERT_EQ(browsing->GetPredefinedValue(accessMode, cookies.pElems[i], &value.Raw()), S_OK);
        EXPECT_EQ(value.ToValue().ToLong(), static_cast<int32_t>(i));
        control->put_InfoStoreAccessMode(static_cast<::enuInfoStoreAccessMode>(i));
        BSTR shown = nullptr;
        ASSERT_EQ(browsing->GetDisplayString(accessMode, &shown), S_OK);
        EXPECT_EQ(Text(shown), automation::FromWide(texts.pElems[i]));
        CoTaskMemFree(texts.pElems[i]);
    }
    CoTaskMemFree(texts.pElems);
    CoTaskMemFree(cookies.pElems);
}

TEST(PropertyBrowsing, LeavesOtherPropertiesAsTheyAre) {
    const auto browsing = As<IPerPropertyBrowsing>(NewControl());
    BSTR shown = nullptr;
    EXPECT_EQ(browsing->GetDisplayString(multiSelect, &shown), S_FALSE);
    EXPECT_EQ(shown, nullptr);
    CALPOLESTR texts = {};
    CADWORD cookies = {};
    EXPECT_EQ(browsing->GetPredefinedStrings(multiSelect, &texts, &cookies), S_FALSE);
    EXPECT_EQ(texts.cElems, 0u);
    Variant value;
    EXPECT_EQ(browsing->GetPredefinedValue(accessMode, 4, &value.Raw()), E_INVALIDARG);
    EXPECT_EQ(browsing->GetPredefinedValue(multiSelect, 0, &value.Raw()), E_INVALIDARG);
    EXPECT_EQ(browsing->GetDisplayString(accessMode, nullptr), E_POINTER);
    CLSID page = {};
    EXPECT_EQ(browsing->MapPropertyToPage(multiSelect, &page), S_OK);
    EXPECT_TRUE(page == settingsPageClass);
    EXPECT_EQ(browsing->MapPropertyToPage(1, &page), PERPROP_E_NOPAGEAVAILABLE);
    EXPECT_EQ(browsing->MapPropertyToPage(4711, &page), PERPROP_E_NOPAGEAVAILABLE);
}

TEST(PropertyCategories, GroupTheProperties) {
    const auto categories = As<CategorizeProperties>(NewControl());
    int category = 0;
    EXPECT_EQ(categories->MapPropertyToCategory(DISPID_FONT, &category), S_OK);
    EXPECT_EQ(category, fontCategory);
    EXPECT_EQ(categories->MapPropertyToCategory(multiSelect, &category), S_OK);
    EXPECT_EQ(category, behaviorCategory);
    EXPECT_EQ(categories->MapPropertyToCategory(19, &category), E_FAIL) << "a method";
    EXPECT_EQ(categories->MapPropertyToCategory(4711, &category), E_FAIL);
    BSTR name = nullptr;
    EXPECT_EQ(categories->GetCategoryName(behaviorCategory, LOCALE_USER_DEFAULT, &name), S_FALSE);
}

// ---- The property page

/// The page in a window of the test's, over one control.
class Page : public ::testing::Test {
  protected:
    void SetUp() override {
        ComPtr<IClassFactory> factory;
        const auto getClassObject = EntryPoint<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject");
        ASSERT_EQ(getClassObject(settingsPageClass, IID_PPV_ARGS(factory.GetAddressOf())), S_OK);
        ASSERT_EQ(factory->CreateInstance(nullptr, IID_PPV_ARGS(page_.GetAddressOf())), S_OK);
        parent_ = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 500, 400, nullptr, nullptr, nullptr,
                                  nullptr);
        ASSERT_NE(parent_, nullptr);
    }
    void TearDown() override {
        page_ = nullptr;
        DestroyWindow(parent_);
    }

    void Open() {
        IUnknown* objects[] = {control_.Get()};
        ASSERT_EQ(page_->SetObjects(1, objects), S_OK);
        const RECT place = {0, 0, 480, 300};
        ASSERT_EQ(page_->Activate(parent_, &place, FALSE), S_OK);
        ASSERT_EQ(page_->Show(SW_SHOW), S_OK);
    }
    HWND Item(int place) const { return GetDlgItem(GetWindow(parent_, GW_CHILD), settingItem + place); }
    void Click(int place) const { SendMessageW(Item(place), BM_CLICK, 0, 0); }

    const ComPtr<_ctlFolderTree> control_ = NewControl();
    ComPtr<IPropertyPage> page_;
    HWND parent_ = nullptr;
};

TEST_F(Page, IsTheOneThatTheControlNames) {
    CAUUID pages = {};
    ASSERT_EQ(As<ISpecifyPropertyPages>(control_)->GetPages(&pages), S_OK);
    ASSERT_EQ(pages.cElems, 1u);
    EXPECT_TRUE(pages.pElems[0] == settingsPageClass);
    CoTaskMemFree(pages.pElems);
    PROPPAGEINFO info = {};
    info.cb = sizeof(info);
    ASSERT_EQ(page_->GetPageInfo(&info), S_OK);
    EXPECT_STREQ(info.pszTitle, L"Settings");
    EXPECT_GT(info.size.cx, 200);
    EXPECT_GT(info.size.cy, 100);
    CoTaskMemFree(info.pszTitle);
}

TEST_F(Page, ShowsTheSettingsAndWritesWhatTheUserChanges) {
    control_->put_AllowIndexing(VARIANT_TRUE);
    control_->put_ExtendToLevel(3);
    control_->put_InfoStoreAccessMode(::eISAccess_Outlook);
    Open();
    EXPECT_EQ(SendMessageW(Item(1), BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(SendMessageW(Item(6), BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(SendMessageW(Item(7), BM_GETCHECK, 0, 0), BST_UNCHECKED);
    wchar_t level[8] = {};
    GetWindowTextW(Item(8), level, 8);
    EXPECT_STREQ(level, L"3");
    EXPECT_EQ(SendMessageW(Item(10), CB_GETCURSEL, 0, 0), 2);
    EXPECT_EQ(page_->IsPageDirty(), S_FALSE);

    Click(7);
    Click(6);
    SetWindowTextW(Item(8), L"5");
    EXPECT_EQ(page_->IsPageDirty(), S_OK);
    ASSERT_EQ(page_->Apply(), S_OK);
    EXPECT_EQ(page_->IsPageDirty(), S_FALSE);
    const auto tree = LateBound(control_.Get());
    EXPECT_TRUE(tree->Get("ShowAddressBook").ToBoolean());
    EXPECT_FALSE(tree->Get("AllowIndexing").ToBoolean());
    EXPECT_EQ(tree->Get("ExtendToLevel").ToLong(), 5);
    EXPECT_EQ(tree->Get("InfoStoreAccessMode").ToLong(), 2);
    EXPECT_EQ(page_->Deactivate(), S_OK);
    EXPECT_EQ(GetWindow(parent_, GW_CHILD), nullptr);
}

TEST_F(Page, RefusesANumberThatIsNoneAndStaysChanged) {
    Open();
    SetWindowTextW(Item(8), L"many");
    EXPECT_TRUE(FAILED(page_->Apply()));
    EXPECT_EQ(page_->IsPageDirty(), S_OK);
    EXPECT_EQ(LateBound(control_.Get())->Get("ExtendToLevel").ToLong(), 1);
}

TEST_F(Page, RefusesCallsOutOfTurn) {
    const RECT place = {0, 0, 480, 300};
    EXPECT_EQ(page_->Activate(parent_, &place, FALSE), E_UNEXPECTED);
    EXPECT_EQ(page_->Deactivate(), E_UNEXPECTED);
    EXPECT_EQ(page_->Show(SW_SHOW), E_UNEXPECTED);
    EXPECT_EQ(page_->Move(&place), E_UNEXPECTED);
    EXPECT_EQ(page_->Apply(), E_UNEXPECTED);
    EXPECT_EQ(page_->SetObjects(1, nullptr), E_POINTER);
    PROPPAGEINFO info = {};
    EXPECT_EQ(page_->GetPageInfo(&info), E_INVALIDARG);
    Open();
    EXPECT_EQ(page_->Activate(parent_, &place, FALSE), E_UNEXPECTED);
    const RECT insideOut = {10, 10, 0, 0};
    EXPECT_EQ(page_->Move(&insideOut), E_INVALIDARG);
}

TEST_F(Page, RefusesAnObjectThatIsNoControl) {
    const auto item = NewItem();
    IUnknown* objects[] = {item.Get()};
    ASSERT_EQ(page_->SetObjects(1, objects), S_OK);
    const RECT place = {0, 0, 480, 300};
    EXPECT_TRUE(FAILED(page_->Activate(parent_, &place, FALSE)));
    EXPECT_EQ(GetWindow(parent_, GW_CHILD), nullptr);
}

TEST_F(Page, LetsGoOfItsObjects) {
    Open();
    EXPECT_GT(References(control_.Get()), 1u);
    EXPECT_EQ(page_->SetObjects(0, nullptr), S_OK);
    EXPECT_EQ(page_->Deactivate(), S_OK);
    EXPECT_EQ(References(control_.Get()), 1u);
}

/// A site that shows property pages itself.
class FrameSite final : public automation::ComBase<IOleClientSite, IOleControlSite> {
  public:
    int shown = 0;

    STDMETHOD(SaveObject)() override { return E_NOTIMPL; }
    STDMETHOD(GetMoniker)(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHOD(GetContainer)(IOleContainer**) override { return E_NOTIMPL; }
    STDMETHOD(ShowObject)() override { return S_OK; }
    STDMETHOD(OnShowWindow)(BOOL) override { return S_OK; }
    STDMETHOD(RequestNewObjectLayout)() override { return E_NOTIMPL; }

    STDMETHOD(OnControlInfoChanged)() override { return E_NOTIMPL; }
    STDMETHOD(LockInPlaceActive)(BOOL) override { return E_NOTIMPL; }
    STDMETHOD(GetExtendedControl)(IDispatch**) override { return E_NOTIMPL; }
    STDMETHOD(TransformCoords)(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    STDMETHOD(TranslateAccelerator)(MSG*, DWORD) override { return S_FALSE; }
    STDMETHOD(OnFocus)(BOOL) override { return S_OK; }
    STDMETHOD(ShowPropertyFrame)() override {
        ++shown;
        return S_OK;
    }
};

TEST(PropertiesVerb, LeavesTheFrameToTheContainer) {
    const auto object = As<IOleObject>(NewControl());
    const auto site = automation::MakeCom<FrameSite>();
    ASSERT_EQ(object->SetClientSite(site.Get()), S_OK);
    EXPECT_EQ(object->DoVerb(OLEIVERB_PROPERTIES, nullptr, nullptr, 0, nullptr, nullptr), S_OK);
    EXPECT_EQ(object->DoVerb(1, nullptr, nullptr, 0, nullptr, nullptr), S_OK);
    EXPECT_EQ(site->shown, 2);
    EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
}

int settingsSeen = 0;

BOOL CALLBACK CountSetting(HWND child, LPARAM) {
    const int item = GetDlgCtrlID(child);
    settingsSeen += item > settingItem && item <= settingItem + 10;
    return TRUE;
}

BOOL CALLBACK LookAndCancel(HWND window, LPARAM) {
    EnumChildWindows(window, CountSetting, 0);
    if (GetDlgItem(window, IDCANCEL) != nullptr) PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
    return TRUE;
}

/// Called by the message loop of the system's frame: looks for the page, and closes the frame.
void CALLBACK CloseFrame(HWND, UINT, UINT_PTR, DWORD) {
    EnumThreadWindows(GetCurrentThreadId(), LookAndCancel, 0);
}

TEST_F(Page, IsShownInTheSystemsFrameWhereTheContainerHasNone) {
    ComPtr<IClassFactory> factory;
    const auto getClassObject = EntryPoint<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject");
    ASSERT_EQ(getClassObject(settingsPageClass, IID_PPV_ARGS(factory.GetAddressOf())), S_OK);
    DWORD cookie = 0;
    ASSERT_EQ(
        CoRegisterClassObject(settingsPageClass, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie),
        S_OK);
    settingsSeen = 0;
    const UINT_PTR timer = SetTimer(nullptr, 0, 500, CloseFrame);
    EXPECT_EQ(As<IOleObject>(control_)->DoVerb(OLEIVERB_PROPERTIES, nullptr, nullptr, 0, parent_, nullptr), S_OK);
    KillTimer(nullptr, timer);
    CoRevokeClassObject(cookie);
    EXPECT_GE(settingsSeen, 10);
    EXPECT_EQ(References(control_.Get()), 1u);
}

// ---- The collection

/// The collection that the control makes when the user ticks first.
class OwnCollection : public ::testing::Test {
  protected:
    OwnCollection() {
        control_->putref_RDOSessionRef(automation::ToDispatch(SampleSession()).Get());
        control_->RefreshList();
        control_->SelectAll();
        control_->get_Selection(selection_.GetAddressOf());
        collection_ = As<VbaCollection>(selection_);
    }

    LONG Count() const {
        LONG count = -1;
        EXPECT_EQ(collection_->Count(&count), S_OK);
        return count;
    }

    const ComPtr<_ctlFolderTree> control_ = NewControl();
    ComPtr<IDispatch> selection_;
    ComPtr<VbaCollection> collection_;
};

TEST_F(OwnCollection, AnswersVisualBasicsInterface) {
    ASSERT_NE(collection_.Get(), nullptr);
    EXPECT_EQ(As<IUnknown>(collection_).Get(), As<IUnknown>(selection_).Get());
    const LONG count = Count();
    ASSERT_GT(count, 5);
    EXPECT_EQ(LateBound(selection_.Get())->Get("Count").ToLong(), count);

    Variant first(Value(1));
    Variant item;
    ASSERT_EQ(collection_->Item(&first.Raw(), item.Out()), S_OK);
    EXPECT_FALSE(item.ToValue().RequireObject()->Get("Key").ToText().empty());
    Variant key(item.ToValue().RequireObject()->Get("Key"));
    Variant same;
    ASSERT_EQ(collection_->Item(&key.Raw(), same.Out()), S_OK);
    EXPECT_EQ(V_DISPATCH(&same.Raw()), V_DISPATCH(&item.Raw()));

    ComPtr<IUnknown> enumerator;
    ASSERT_EQ(collection_->NewEnum(enumerator.GetAddressOf()), S_OK);
    const auto walk = As<IEnumVARIANT>(enumerator);
    LONG walked = 0;
    for (Variant each; walk->Next(1, each.Out(), nullptr) == S_OK;) ++walked;
    EXPECT_EQ(walked, count);

    ASSERT_EQ(collection_->Remove(&first.Raw()), S_OK);
    EXPECT_EQ(Count(), count - 1);
    Variant missing(Value(automation::Missing{}));
    EXPECT_EQ(collection_->Add(&item.Raw(), &key.Raw(), &first.Raw(), &missing.Raw()), S_OK);
    EXPECT_EQ(Count(), count);
}

TEST_F(OwnCollection, TellsTheErrorsThatVisualBasicKnows) {
    Variant nowhere(Value(100000));
    Variant item;
    EXPECT_EQ(collection_->Item(&nowhere.Raw(), item.Out()), MAKE_SCODE(1, FACILITY_CONTROL, 9));
    Variant unknown(Value("no such key"));
    EXPECT_EQ(collection_->Remove(&unknown.Raw()), MAKE_SCODE(1, FACILITY_CONTROL, 5));
    Variant one(Value(1));
    ASSERT_EQ(collection_->Item(&one.Raw(), item.Out()), S_OK);
    Variant key(item.ToValue().RequireObject()->Get("Key"));
    EXPECT_EQ(collection_->Add(&item.Raw(), &key.Raw(), nullptr, nullptr), MAKE_SCODE(1, FACILITY_CONTROL, 457));
    EXPECT_EQ(collection_->Item(&one.Raw(), nullptr), E_POINTER);
    EXPECT_EQ(collection_->Count(nullptr), E_POINTER);
    EXPECT_EQ(collection_->NewEnum(nullptr), E_POINTER);
}

TEST_F(OwnCollection, HasTheNumbersOfVisualBasicsLibrary) {
    const wchar_t* const names[] = {L"Item", L"add", L"Count", L"Remove", L"_NewEnum"};
    const DISPID expected[] = {0, 1, 2, 3, -4};
    for (int i = 0; i < 5; ++i) {
        std::wstring name = names[i];
        LPOLESTR text = name.data();
        DISPID number = 99;
        EXPECT_EQ(selection_->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &number), S_OK);
        EXPECT_EQ(number, expected[i]);
    }
    DISPPARAMS none = {};
    Variant count;
    EXPECT_EQ(selection_->Invoke(2, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none,
                                 count.Out(), nullptr, nullptr),
              S_OK);
    EXPECT_EQ(count.ToValue().ToLong(), Count());
}

TEST_F(OwnCollection, TakesNamedArgumentsAsBefore) {
    const auto collection = LateBound(selection_.Get());
    const Value item = collection->Get("Item", 1);
    const automation::NamedArgument arguments[] = {{"Item", item}, {"Before", Value(1)}, {"Key", Value("mine")}};
    collection->CallNamed("Add", arguments);
    EXPECT_EQ(collection->Get("Item", "mine").ToObject(), item.ToObject());
    EXPECT_EQ(collection->Get("Item", 1).ToObject(), item.ToObject());
}

}  // namespace
}  // namespace foldertree::testing
