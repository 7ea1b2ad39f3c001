// ContainerTest: the control in a container that nobody here wrote.
#include <gtest/gtest.h>

#include <ole2.h>
#include <olectl.h>

#include <map>
#include <string>

#include "automation_win32/ComBase.h"
#include "automation_win32/Crossing.h"
#include "automation_win32/Variant.h"
#include "com/Desktop.h"
#include "com/Mailbox.h"

namespace foldertree::testing {
namespace {

/// A bag in memory.
class KeptBag final : public automation::ComBase<IPropertyBag> {
  public:
    STDMETHOD(Read)(LPCOLESTR name, VARIANT* value, IErrorLog*) override {
        const auto found = values_.find(name);
        return found == values_.end() ? E_INVALIDARG : VariantCopy(value, &found->second.Raw());
    }
    STDMETHOD(Write)(LPCOLESTR name, VARIANT* value) override { return VariantCopy(values_[name].Out(), value); }

  private:
    std::map<std::wstring, automation::Variant> values_;
};

class Container : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!Desktop::IsAvailable()) GTEST_SKIP();
        desktop_ = std::make_unique<Desktop>();
        ASSERT_NE(desktop_->Control(), nullptr);
    }

    SIZE SizeOfControl() const {
        RECT place = {};
        GetWindowRect(desktop_->ControlWindow(), &place);
        return {place.right - place.left, place.bottom - place.top};
    }

    /// Afterwards the wire has counted the calls of the load.
    void Load(std::shared_ptr<Tripwire> wire = std::make_shared<Tripwire>()) {
        desktop_->Control()->putref_RDOSessionRef(automation::ToDispatch(SampleSession(wire)).Get());
        wire->calls = 0;
        EXPECT_EQ(desktop_->Control()->RefreshList(), S_OK);
    }

    std::unique_ptr<Desktop> desktop_;
};

TEST_F(Container, ShowsTheControlInItsWindow) {
    EXPECT_TRUE(IsWindow(desktop_->ControlWindow()));
    EXPECT_TRUE(IsChild(desktop_->Window(), desktop_->ControlWindow()));
    EXPECT_TRUE(IsWindowVisible(desktop_->ControlWindow()));
    EXPECT_NE(desktop_->List(), nullptr);
}

TEST_F(Container, SizesTheControlWithItsWindow) {
    const SIZE before = SizeOfControl();
    SetWindowPos(desktop_->Window(), nullptr, 0, 0, 500, 420, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    HandleMessages();
    EXPECT_EQ(SizeOfControl().cx, before.cx + 100);
    EXPECT_EQ(SizeOfControl().cy, before.cy + 120);
}

TEST_F(Container, GivesTheListTheFocusOfTheControl) {
    SetFocus(desktop_->Window());
    EXPECT_EQ(As<IOleObject>(desktop_->Control())
                  ->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, desktop_->Window(), nullptr),
              S_OK);
    HandleMessages();
    EXPECT_EQ(GetFocus(), desktop_->List());
    EXPECT_EQ(As<IOleInPlaceObject>(desktop_->Control())->UIDeactivate(), S_OK);
}

TEST(ContainerOnAForm, IsEnteredAndLeftByTab) {
    if (!Desktop::IsAvailable()) GTEST_SKIP();
    const HWND form = CreateWindowExW(0, L"STATIC", L"Form", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 20, 20, 460, 400,
                                      nullptr, nullptr, nullptr, nullptr);
    const auto addField = [form] {
        return CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 340, 80, 24, form, nullptr,
                               nullptr, nullptr);
    };
    const HWND first = addField();
    {
        const Desktop desktop(form);
        const HWND last = addField();
        const auto tab = [&](bool back) {
            BYTE keys[256] = {};
            keys[VK_SHIFT] = back ? 0x80 : 0;
            SetKeyboardState(keys);
            PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1);
            MSG message;
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
                if (!IsDialogMessageW(form, &message)) DispatchMessageW(&message);
            return GetFocus();
        };
        SetFocus(first);
        EXPECT_EQ(tab(false), desktop.List());
        EXPECT_EQ(tab(false), last);
        EXPECT_EQ(tab(true), desktop.List());
        EXPECT_EQ(tab(true), first);
        BYTE keys[256] = {};
        SetKeyboardState(keys);
    }
    DestroyWindow(form);
    HandleMessages();
}

TEST_F(Container, LoadsATreeThere) {
    Load();
    LONG rows = 0;
    desktop_->Control()->get_ListCount(&rows);
    EXPECT_GT(rows, 10);
}

TEST_F(Container, HidesAndShowsTheControlAgainWithItsTree) {
    Load();
    LONG before = 0;
    desktop_->Control()->get_ListCount(&before);
    const auto object = As<IOleObject>(desktop_->Control());
    EXPECT_EQ(object->DoVerb(OLEIVERB_HIDE, nullptr, nullptr, 0, nullptr, nullptr), S_OK);
    HWND window = nullptr;
    EXPECT_TRUE(FAILED(As<IOleWindow>(desktop_->Control())->GetWindow(&window)));
    EXPECT_EQ(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0, desktop_->Window(), nullptr), S_OK);
    EXPECT_TRUE(IsWindow(desktop_->ControlWindow()));
    LONG rows = 0;
    desktop_->Control()->get_ListCount(&rows);
    EXPECT_EQ(rows, before);
}

TEST_F(Container, LetsTheControlLiveOnWithoutItsWindow) {
    Load();
    desktop_->DestroyWindow();
    EXPECT_EQ(References(desktop_->Control().Get()), 1u);
    EXPECT_EQ(desktop_->Control()->RefreshList(), S_OK);
}

TEST_F(Container, MayDestroyItsWindowAtAnyYieldOfALoad) {
    const auto counting = std::make_shared<Tripwire>();
    Load(counting);
    const int calls = counting->calls;
    Poster poster;
    for (int moment = 1; moment < calls; moment += 1 + calls / 25) {
        SCOPED_TRACE(moment);
        Desktop desktop;
        auto wire = std::make_shared<Tripwire>();
        desktop.Control()->putref_RDOSessionRef(automation::ToDispatch(SampleSession(wire)).Get());
        wire->calls = 0;
        wire->actAt = moment;
        bool destroyed = false;
        wire->action = [&] {
            poster.Post([&] {
                destroyed = true;
                desktop.DestroyWindow();
            });
        };
        EXPECT_EQ(desktop.Control()->RefreshList(), S_OK);
        HandleMessages();
        EXPECT_TRUE(destroyed);
    }
}

TEST_F(Container, MayGoWithItsLastReferenceAtAnyYieldOfALoad) {
    const auto counting = std::make_shared<Tripwire>();
    Load(counting);
    const int calls = counting->calls;
    Poster poster;
    for (int moment = 1; moment < calls; moment += 1 + calls / 25) {
        SCOPED_TRACE(moment);
        Desktop desktop;
        _ctlFolderTree* const control = desktop.Control().Get();
        auto wire = std::make_shared<Tripwire>();
        std::weak_ptr<automation::Object> left;
        {
            const auto session = SampleSession(wire);
            left = session;
            control->putref_RDOSessionRef(automation::ToDispatch(session).Get());
        }
        wire->calls = 0;
        wire->actAt = moment;
        wire->action = [&] {
            poster.Post([&] {
                desktop.ReleaseControl();
                desktop.DestroyWindow();
            });
        };
        EXPECT_EQ(control->RefreshList(), S_OK);
        HandleMessages();
        EXPECT_TRUE(left.expired());
    }
}

TEST_F(Container, RestoresTheSettingsOfAStream) {
    desktop_->Control()->put_ExtendToLevel(3);
    desktop_->Control()->put_AllowIndexing(VARIANT_TRUE);
    ComPtr<IStream> stream;
    ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.GetAddressOf()), S_OK);
    ASSERT_EQ(As<IPersistStreamInit>(desktop_->Control())->Save(stream.Get(), TRUE), S_OK);
    ASSERT_EQ(stream->Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
    const Desktop next(nullptr, stream.Get());
    ASSERT_NE(next.Control(), nullptr);
    LONG level = 0;
    VARIANT_BOOL indexing = VARIANT_FALSE;
    EXPECT_EQ(next.Control()->get_ExtendToLevel(&level), S_OK);
    EXPECT_EQ(next.Control()->get_AllowIndexing(&indexing), S_OK);
    EXPECT_EQ(level, 3);
    EXPECT_EQ(indexing, VARIANT_TRUE);
    EXPECT_NE(next.List(), nullptr);
}

TEST_F(Container, LoadsABagIntoTheControlThatItShows) {
    const auto bag = automation::MakeCom<KeptBag>();
    desktop_->Control()->put_ExtendToLevel(3);
    ASSERT_EQ(As<IPersistPropertyBag>(desktop_->Control())->Save(bag.Get(), TRUE, TRUE), S_OK);
    const Desktop next;
    ASSERT_EQ(As<IPersistPropertyBag>(next.Control())->Load(bag.Get(), nullptr), S_OK);
    LONG level = 0;
    EXPECT_EQ(next.Control()->get_ExtendToLevel(&level), S_OK);
    EXPECT_EQ(level, 3);
    EXPECT_NE(next.List(), nullptr);
}

TEST_F(Container, TellsTheControlToPaintItself) {
    Load();
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 200, 150);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    const RECTL bounds = {0, 0, 200, 150};
    EXPECT_EQ(As<IViewObject2>(desktop_->Control())
                  ->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, memory, &bounds, nullptr, nullptr, 0),
              S_OK);
    // Something other than one colour: rows of a tree.
    int colours = 0;
    COLORREF last = CLR_INVALID;
    for (int y = 0; y < 150; ++y) {
        const COLORREF colour = GetPixel(memory, 60, y);
        if (colour != last) ++colours;
        last = colour;
    }
    EXPECT_GT(colours, 5);
    EXPECT_EQ(As<IViewObject2>(desktop_->Control())
                  ->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, memory, &bounds, nullptr, nullptr, 0),
              DV_E_DVASPECT);
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
}

// ---- What containers ask before the control is shown

TEST(Embedding, WantsItsSiteFirstAndIsActiveWhenVisible) {
    DWORD status = 0;
    EXPECT_EQ(As<IOleObject>(NewControl())->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
    EXPECT_TRUE(status & OLEMISC_SETCLIENTSITEFIRST);
    EXPECT_TRUE(status & OLEMISC_ACTIVATEWHENVISIBLE);
    EXPECT_TRUE(status & OLEMISC_INSIDEOUT);
    EXPECT_EQ(status, 131473u);
}

TEST(Embedding, KeepsTheExtentThatItsContainerSets) {
    const auto object = As<IOleObject>(NewControl());
    SIZEL extent = {1000, 2000};
    EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    extent = {};
    EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
    EXPECT_EQ(extent.cx, 1000);
    EXPECT_EQ(extent.cy, 2000);
    extent = {-1, 5};
    EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &extent), E_INVALIDARG);
    EXPECT_EQ(object->SetExtent(DVASPECT_ICON, &extent), DV_E_DVASPECT);
}

TEST(Embedding, CannotBeActivatedWithoutASite) {
    const auto object = As<IOleObject>(NewControl());
    EXPECT_EQ(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0, nullptr, nullptr), OLE_E_NOT_INPLACEACTIVE);
    EXPECT_EQ(object->DoVerb(17, nullptr, nullptr, 0, nullptr, nullptr), OLEOBJ_S_INVALIDVERB);
}

/// A container's site that has a font, for the questions that a control asks before it is loaded.
class FontSite final : public automation::ComBase<IOleClientSite, IDispatch> {
  public:
    explicit FontSite(const wchar_t* name) {
        std::wstring text = name;
        FONTDESC description = {};
        description.cbSizeofstruct = sizeof(description);
        description.lpstrName = text.data();
        description.cySize.int64 = 140000;
        OleCreateFontIndirect(&description, __uuidof(IFontDisp), reinterpret_cast<void**>(font.GetAddressOf()));
    }

    ComPtr<IFontDisp> font;
    VARIANT_BOOL userMode = VARIANT_TRUE;

    STDMETHOD(SaveObject)() override { return S_OK; }
    STDMETHOD(GetMoniker)(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHOD(GetContainer)(IOleContainer**) override { return E_NOINTERFACE; }
    STDMETHOD(ShowObject)() override { return S_OK; }
    STDMETHOD(OnShowWindow)(BOOL) override { return S_OK; }
    STDMETHOD(RequestNewObjectLayout)() override { return E_NOTIMPL; }

    STDMETHOD(GetTypeInfoCount)(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHOD(GetTypeInfo)(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHOD(GetIDsOfNames)(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHOD(Invoke)(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT*) override {
        if (member == DISPID_AMBIENT_USERMODE) {
            V_VT(result) = VT_BOOL;
            V_BOOL(result) = userMode;
            return S_OK;
        }
        if (member != DISPID_AMBIENT_FONT) return DISP_E_MEMBERNOTFOUND;
        V_VT(result) = VT_DISPATCH;
        V_DISPATCH(result) = ComPtr<IDispatch>(font).Detach();
        return S_OK;
    }
};

/// A bag without a single setting.
class EmptyBag final : public automation::ComBase<IPropertyBag> {
  public:
    int writes = 0;
    STDMETHOD(Read)(LPCOLESTR, VARIANT*, IErrorLog*) override { return E_INVALIDARG; }
    STDMETHOD(Write)(LPCOLESTR, VARIANT*) override {
        ++writes;
        return S_OK;
    }
};

TEST(Embedding, TakesTheFontOfItsContainerWhenNoneWasSaved) {
    const auto control = NewControl();
    const auto site = automation::MakeCom<FontSite>(L"Courier New");
    EXPECT_EQ(As<IOleObject>(control)->SetClientSite(site.Get()), S_OK);
    const auto bag = automation::MakeCom<EmptyBag>();
    EXPECT_EQ(As<IPersistPropertyBag>(control)->Load(bag.Get(), nullptr), S_OK);
    ComPtr<IFontDisp> font;
    EXPECT_EQ(control->get_Font(font.GetAddressOf()), S_OK);
    EXPECT_EQ(font.Get(), site->font.Get());
    // The container's own font is the default, so nothing has to be saved.
    EXPECT_EQ(As<IPersistPropertyBag>(control)->Save(bag.Get(), TRUE, FALSE), S_OK);
    EXPECT_EQ(bag->writes, 0);
    EXPECT_EQ(As<IOleObject>(control)->SetClientSite(nullptr), S_OK);
}

TEST(Embedding, LetsGoOfItsSite) {
    auto control = NewControl();
    const auto site = automation::MakeCom<FontSite>(L"Courier New");
    EXPECT_EQ(As<IOleObject>(control)->SetClientSite(site.Get()), S_OK);
    ComPtr<IOleClientSite> back;
    EXPECT_EQ(As<IOleObject>(control)->GetClientSite(back.GetAddressOf()), S_OK);
    EXPECT_EQ(back.Get(), site.Get());
    back = nullptr;
    control = nullptr;
    EXPECT_EQ(References(static_cast<IOleClientSite*>(site.Get())), 1u);
}

}  // namespace
}  // namespace foldertree::testing
