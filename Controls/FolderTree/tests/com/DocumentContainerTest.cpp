// DocumentContainerTest: what containers of documents and designers ask of an embedded object.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ole2.h>
#include <olectl.h>

#include <functional>
#include <set>
#include <vector>

#include "automation_win32/ComBase.h"
#include "automation_win32/Crossing.h"
#include "com/Mailbox.h"
#include "com/Server.h"

namespace foldertree::testing {
namespace {

using ::testing::ElementsAre;

/// A control with a loaded tree, as its container has it.
ComPtr<_ctlFolderTree> LoadedControl() {
    auto control = NewControl();
    control->putref_RDOSessionRef(automation::ToDispatch(SampleSession()).Get());
    control->RefreshList();
    return control;
}

// ---- Running

TEST(RunningObject, RunsFromItsRunToItsClose) {
    const auto object = As<IOleObject>(NewControl());
    EXPECT_FALSE(OleIsRunning(object.Get()));
    EXPECT_EQ(OleRun(object.Get()), S_OK);
    EXPECT_TRUE(OleIsRunning(object.Get()));
    EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_FALSE(OleIsRunning(object.Get()));
    CLSID clsid = {};
    EXPECT_EQ(As<IRunnableObject>(object)->GetRunningClass(&clsid), S_OK);
    EXPECT_TRUE(clsid == __uuidof(::ctlFolderTree));
    EXPECT_EQ(OleSetContainedObject(object.Get(), TRUE), S_OK);
}

TEST(RunningObject, IsClosedByTheLastUnlockThatSaysSo) {
    const auto control = NewControl();
    const auto runnable = As<IRunnableObject>(control);
    EXPECT_EQ(runnable->LockRunning(FALSE, TRUE), E_UNEXPECTED);
    EXPECT_EQ(runnable->LockRunning(TRUE, FALSE), S_OK);
    EXPECT_EQ(runnable->LockRunning(TRUE, FALSE), S_OK);
    EXPECT_TRUE(runnable->IsRunning());
    EXPECT_EQ(runnable->LockRunning(FALSE, TRUE), S_OK);
    EXPECT_TRUE(runnable->IsRunning());
    EXPECT_EQ(runnable->LockRunning(FALSE, TRUE), S_OK);
    EXPECT_FALSE(runnable->IsRunning());
}

// ---- Verbs

TEST(Verbs, AreToldWithoutRegistration) {
    const auto object = As<IOleObject>(NewControl());
    ComPtr<IEnumOLEVERB> verbs;
    ASSERT_EQ(object->EnumVerbs(verbs.GetAddressOf()), S_OK);
    OLEVERB verb = {};
    ASSERT_EQ(verbs->Next(1, &verb, nullptr), S_OK);
    EXPECT_EQ(verb.lVerb, OLEIVERB_PRIMARY);
    EXPECT_STREQ(verb.lpszVerbName, L"&Edit");
    EXPECT_EQ(verb.grfAttribs, static_cast<DWORD>(OLEVERBATTRIB_ONCONTAINERMENU));
    CoTaskMemFree(verb.lpszVerbName);
    ASSERT_EQ(verbs->Next(1, &verb, nullptr), S_OK);
    EXPECT_EQ(verb.lVerb, 1);
    EXPECT_STREQ(verb.lpszVerbName, L"&Properties\u2026");
    CoTaskMemFree(verb.lpszVerbName);
    EXPECT_EQ(verbs->Next(1, &verb, nullptr), S_FALSE);
}

// ---- Quick activation

class ViewSink final : public automation::ComBase<IAdviseSinkEx> {
  public:
    std::vector<std::string> told;

    STDMETHOD_(void, OnDataChange)(FORMATETC*, STGMEDIUM*) override { told.emplace_back("data"); }
    STDMETHOD_(void, OnViewChange)(DWORD, LONG) override { told.emplace_back("view"); }
    STDMETHOD_(void, OnRename)(IMoniker*) override { told.emplace_back("rename"); }
    STDMETHOD_(void, OnSave)() override { told.emplace_back("save"); }
    STDMETHOD_(void, OnClose)() override { told.emplace_back("close"); }
    STDMETHOD_(void, OnViewStatusChange)(DWORD) override { told.emplace_back("status"); }

  private:
    void* FindInterface(REFIID iid) override {
        return iid == IID_IAdviseSink ? static_cast<IAdviseSink*>(this) : nullptr;
    }
};

/// A site that refuses every question.
class BareSite final : public automation::ComBase<IOleClientSite> {
  public:
    STDMETHOD(SaveObject)() override { return E_NOTIMPL; }
    STDMETHOD(GetMoniker)(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHOD(GetContainer)(IOleContainer**) override { return E_NOTIMPL; }
    STDMETHOD(ShowObject)() override { return E_NOTIMPL; }
    STDMETHOD(OnShowWindow)(BOOL) override { return E_NOTIMPL; }
    STDMETHOD(RequestNewObjectLayout)() override { return E_NOTIMPL; }
};

class PropertySink final : public automation::ComBase<IPropertyNotifySink> {
  public:
    int changes = 0;
    STDMETHOD(OnChanged)(DISPID) override {
        ++changes;
        return S_OK;
    }
    STDMETHOD(OnRequestEdit)(DISPID) override { return S_OK; }
};

TEST(QuickActivation, ConnectsAllAtOnce) {
    const auto control = NewControl();
    const auto site = automation::MakeCom<BareSite>();
    const auto view = automation::MakeCom<ViewSink>();
    const auto properties = automation::MakeCom<PropertySink>();
    QACONTAINER container = {};
    container.cbSize = sizeof(container);
    container.pClientSite = site.Get();
    container.pAdviseSink = view.Get();
    container.pPropertyNotifySink = properties.Get();
    container.pUnkEventSink = properties.Get();  // no sink of events
    QACONTROL answer = {};
    answer.cbSize = sizeof(answer);
    ASSERT_EQ(As<IQuickActivate>(control)->QuickActivate(&container, &answer), S_OK);
    EXPECT_EQ(answer.dwMiscStatus, 131473u);
    EXPECT_EQ(answer.dwViewStatus, static_cast<DWORD>(VIEWSTATUS_OPAQUE));
    EXPECT_NE(answer.dwPropNotifyCookie, 0u);
    EXPECT_EQ(answer.dwEventCookie, 0u);
    ComPtr<IOleClientSite> back;
    EXPECT_EQ(As<IOleObject>(control)->GetClientSite(back.GetAddressOf()), S_OK);
    EXPECT_EQ(back.Get(), site.Get());

    control->put_AllowIndexing(VARIANT_TRUE);
    EXPECT_GT(properties->changes, 0);
    EXPECT_THAT(view->told, ::testing::Contains("view"));

    SIZEL extent = {3000, 2000};
    EXPECT_EQ(As<IQuickActivate>(control)->SetContentExtent(&extent), S_OK);
    extent = {};
    EXPECT_EQ(As<IQuickActivate>(control)->GetContentExtent(&extent), S_OK);
    EXPECT_EQ(extent.cx, 3000);
    EXPECT_EQ(As<IOleObject>(control)->SetClientSite(nullptr), S_OK);
}

TEST(QuickActivation, RefusesWhatItCannotRead) {
    const auto activation = As<IQuickActivate>(NewControl());
    QACONTAINER container = {};
    QACONTROL answer = {};
    container.cbSize = sizeof(container);
    EXPECT_EQ(activation->QuickActivate(&container, nullptr), E_POINTER);
    EXPECT_EQ(activation->QuickActivate(nullptr, &answer), E_POINTER);
    EXPECT_EQ(activation->QuickActivate(&container, &answer), E_INVALIDARG);
    answer.cbSize = sizeof(answer);
    container.cbSize = 4;
    EXPECT_EQ(activation->QuickActivate(&container, &answer), E_INVALIDARG);
    EXPECT_EQ(activation->SetContentExtent(nullptr), E_POINTER);
    EXPECT_EQ(activation->GetContentExtent(nullptr), E_POINTER);
}

// ---- Its place

TEST(ViewObject, IsOpaqueAndHitWhereItIs) {
    const auto control = NewControl();
    const auto view = As<IViewObjectEx>(control);
    SIZEL extent = {4000, 3000};
    ASSERT_EQ(As<IOleObject>(control)->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    RECTL rect = {};
    for (const DWORD aspect : {DWORD{DVASPECT_CONTENT}, DWORD{DVASPECT_OPAQUE}}) {
        EXPECT_EQ(view->GetRect(aspect, &rect), S_OK);
        EXPECT_EQ(rect.right, 4000);
        EXPECT_EQ(rect.bottom, 3000);
    }
    EXPECT_EQ(view->GetRect(DVASPECT_ICON, &rect), DV_E_DVASPECT);
    const RECT bounds = {10, 10, 20, 20};
    const RECT beside = {20, 10, 30, 20};
    const RECT across = {15, 15, 30, 30};
    DWORD hit = 0;
    EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, &bounds, {10, 19}, 0, &hit), S_OK);
    EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_HIT));
    EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, &bounds, {20, 19}, 0, &hit), S_OK);
    EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_OUTSIDE));
    EXPECT_EQ(view->QueryHitRect(DVASPECT_CONTENT, &bounds, &across, 0, &hit), S_OK);
    EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_HIT));
    EXPECT_EQ(view->QueryHitRect(DVASPECT_CONTENT, &bounds, &beside, 0, &hit), S_OK);
    EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_OUTSIDE));
    EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, nullptr, {}, 0, &hit), E_POINTER);
    EXPECT_EQ(view->GetNaturalExtent(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, &extent), E_NOTIMPL);
}

// ---- Printing

/// A device context of a bitmap, filled with white.
class Paper {
  public:
    Paper(int width, int height) : dc_(CreateCompatibleDC(nullptr)), width_(width), height_(height) {
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, reinterpret_cast<void**>(&bits_), nullptr, 0);
        before_ = SelectObject(dc_, bitmap_);
        PatBlt(dc_, 0, 0, width, height, WHITENESS);
    }
    ~Paper() {
        SelectObject(dc_, before_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    Paper(const Paper&) = delete;
    Paper& operator=(const Paper&) = delete;

    HDC Dc() const { return dc_; }
    uint32_t At(int x, int y) const { return bits_[y * width_ + x] & 0xFFFFFF; }
    /// How often the colour changes from the top to the bottom.
    int ChangesDown(int x) const {
        int changes = 0;
        for (int y = 1; y < height_; ++y) changes += At(x, y) != At(x, y - 1);
        return changes;
    }

  private:
    HDC dc_;
    int width_;
    int height_;
    uint32_t* bits_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
};

HRESULT DrawOn(const ComPtr<_ctlFolderTree>& control, HDC dc, RECTL bounds, HDC target = nullptr) {
    return As<IViewObject>(control)->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, target, dc, &bounds, nullptr, nullptr,
                                          0);
}

TEST(Printing, ShowsAsManyRowsOnAFinePageAsOnTheScreen) {
    const auto control = LoadedControl();
    SIZEL extent = {10583, 7938};  // 400 x 300 pixels on the screen
    ASSERT_EQ(As<IOleObject>(control)->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    const Paper screen(400, 300);
    ASSERT_EQ(DrawOn(control, screen.Dc(), {0, 0, 400, 300}), S_OK);
    const Paper page(2500, 1875);
    ASSERT_EQ(DrawOn(control, page.Dc(), {0, 0, 2500, 1875}), S_OK);
    EXPECT_GT(screen.ChangesDown(380), 20);
    EXPECT_NEAR(page.ChangesDown(2375), screen.ChangesDown(380), 4);
}

TEST(Printing, GoesIntoAMetafileWithUnitsOfItsOwn) {
    const auto control = LoadedControl();
    SIZEL extent = {5292, 3969};
    ASSERT_EQ(As<IOleObject>(control)->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    const HDC recording = CreateMetaFileW(nullptr);
    SetMapMode(recording, MM_ANISOTROPIC);
    SetWindowExtEx(recording, 5292, 3969, nullptr);
    ASSERT_EQ(DrawOn(control, recording, {0, 0, 5292, 3969}), S_OK);
    const HMETAFILE metafile = CloseMetaFile(recording);
    const Paper page(200, 150);
    SetMapMode(page.Dc(), MM_ANISOTROPIC);
    SetViewportExtEx(page.Dc(), 200, 150, nullptr);
    EXPECT_TRUE(PlayMetaFile(page.Dc(), metafile));
    EXPECT_GT(page.ChangesDown(190), 5);
    DeleteMetaFile(metafile);
}

TEST(Printing, RefusesBoundsWithoutAnArea) {
    const auto control = LoadedControl();
    const Paper page(50, 50);
    EXPECT_EQ(DrawOn(control, page.Dc(), {10, 10, 10, 40}), E_INVALIDARG);
    EXPECT_EQ(DrawOn(control, page.Dc(), {10, 10, 40, 10}), E_INVALIDARG);
    EXPECT_EQ(DrawOn(control, nullptr, {0, 0, 40, 10}), E_INVALIDARG);
    EXPECT_EQ(page.ChangesDown(20), 0);
}

BOOL STDMETHODCALLTYPE Stop(ULONG_PTR calls) {
    ++*reinterpret_cast<int*>(calls);
    return FALSE;
}

TEST(Printing, EndsWhereItsContainerSaysSo) {
    const auto control = LoadedControl();
    const Paper page(50, 50);
    const RECTL bounds = {0, 0, 50, 50};
    int calls = 0;
    EXPECT_EQ(As<IViewObject>(control)->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, page.Dc(), &bounds,
                                             nullptr, Stop, reinterpret_cast<ULONG_PTR>(&calls)),
              E_ABORT);
    EXPECT_EQ(calls, 1);
}

// ---- Pictures

FORMATETC Format(CLIPFORMAT format, DWORD medium) {
    return {format, nullptr, DVASPECT_CONTENT, -1, medium};
}

std::set<COLORREF> ColoursOf(const std::function<void(HDC, const RECT&)>& draw) {
    const HDC dc = CreateCompatibleDC(nullptr);
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), 200, 150, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    draw(dc, {0, 0, 200, 150});
    std::set<COLORREF> colours;
    for (int y = 0; y < 150; ++y)
        for (int x = 0; x < 200; ++x) colours.insert(GetPixel(dc, x, y));
    SelectObject(dc, before);
    DeleteObject(bitmap);
    DeleteDC(dc);
    return colours;
}

class Pictures : public ::testing::Test {
  protected:
    Pictures() {
        SIZEL extent = {5292, 3969};  // 200 x 150 pixels
        As<IOleObject>(control_)->SetExtent(DVASPECT_CONTENT, &extent);
    }

    STGMEDIUM Get(CLIPFORMAT format, DWORD medium) const {
        FORMATETC wanted = Format(format, medium);
        STGMEDIUM got = {};
        EXPECT_EQ(data_->QueryGetData(&wanted), S_OK);
        EXPECT_EQ(data_->GetData(&wanted, &got), S_OK);
        EXPECT_EQ(got.tymed, medium);
        return got;
    }

    const ComPtr<_ctlFolderTree> control_ = LoadedControl();
    const ComPtr<IDataObject> data_ = As<IDataObject>(control_);
};

TEST_F(Pictures, AreADibOfTheControlsSize) {
    STGMEDIUM got = Get(CF_DIB, TYMED_HGLOBAL);
    const auto* info = static_cast<const BITMAPINFO*>(GlobalLock(got.hGlobal));
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(info->bmiHeader.biWidth, 200);
    EXPECT_EQ(info->bmiHeader.biHeight, 150);
    EXPECT_GE(GlobalSize(got.hGlobal), sizeof(BITMAPINFOHEADER) + info->bmiHeader.biSizeImage);
    const auto colours = ColoursOf([&](HDC dc, const RECT& area) {
        StretchDIBits(dc, 0, 0, area.right, area.bottom, 0, 0, 200, 150,
                      reinterpret_cast<const char*>(info) + sizeof(BITMAPINFOHEADER), info, DIB_RGB_COLORS, SRCCOPY);
    });
    EXPECT_GT(colours.size(), 20u);
    GlobalUnlock(got.hGlobal);
    ReleaseStgMedium(&got);
}

TEST_F(Pictures, AreAnEnhancedMetafileOfTheControlsSize) {
    STGMEDIUM got = Get(CF_ENHMETAFILE, TYMED_ENHMF);
    ENHMETAHEADER header = {};
    ASSERT_GT(GetEnhMetaFileHeader(got.hEnhMetaFile, sizeof(header), &header), 0u);
    EXPECT_NEAR(header.rclFrame.right - header.rclFrame.left, 5292, 60);
    EXPECT_NEAR(header.rclFrame.bottom - header.rclFrame.top, 3969, 60);
    const auto colours = ColoursOf([&](HDC dc, const RECT& area) { PlayEnhMetaFile(dc, got.hEnhMetaFile, &area); });
    EXPECT_GT(colours.size(), 20u);
    ReleaseStgMedium(&got);
}

TEST_F(Pictures, AreAMetafileWithItsSize) {
    STGMEDIUM got = Get(CF_METAFILEPICT, TYMED_MFPICT);
    const auto* picture = static_cast<const METAFILEPICT*>(GlobalLock(got.hMetaFilePict));
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->mm, MM_ANISOTROPIC);
    EXPECT_EQ(picture->xExt, 5292);
    EXPECT_EQ(picture->yExt, 3969);
    const auto colours = ColoursOf([&](HDC dc, const RECT& area) {
        SetMapMode(dc, MM_ANISOTROPIC);
        SetViewportExtEx(dc, area.right, area.bottom, nullptr);
        PlayMetaFile(dc, picture->hMF);
        SetMapMode(dc, MM_TEXT);
    });
    EXPECT_GT(colours.size(), 20u);
    GlobalUnlock(got.hMetaFilePict);
    ReleaseStgMedium(&got);
}

TEST_F(Pictures, AreListedInTheFormatsThatTheyHave) {
    ComPtr<IEnumFORMATETC> formats;
    ASSERT_EQ(data_->EnumFormatEtc(DATADIR_GET, formats.GetAddressOf()), S_OK);
    FORMATETC format[4] = {};
    ULONG count = 0;
    EXPECT_EQ(formats->Next(4, format, &count), S_FALSE);
    EXPECT_EQ(count, 3u);
    for (ULONG i = 0; i < count; ++i) EXPECT_EQ(data_->QueryGetData(&format[i]), S_OK);
    EXPECT_EQ(data_->EnumFormatEtc(DATADIR_SET, formats.ReleaseAndGetAddressOf()), E_NOTIMPL);
}

TEST_F(Pictures, AreRefusedInOtherFormats) {
    FORMATETC format = Format(CF_TEXT, TYMED_HGLOBAL);
    STGMEDIUM medium = {};
    EXPECT_EQ(data_->GetData(&format, &medium), DV_E_FORMATETC);
    format = Format(CF_DIB, TYMED_ISTREAM);
    EXPECT_EQ(data_->GetData(&format, &medium), DV_E_TYMED);
    format = Format(CF_DIB, TYMED_HGLOBAL);
    format.dwAspect = DVASPECT_ICON;
    EXPECT_EQ(data_->GetData(&format, &medium), DV_E_DVASPECT);
    format = Format(CF_DIB, TYMED_HGLOBAL);
    format.lindex = 3;
    EXPECT_EQ(data_->GetData(&format, &medium), DV_E_LINDEX);
    EXPECT_EQ(data_->GetData(nullptr, &medium), E_POINTER);
    EXPECT_EQ(data_->QueryGetData(nullptr), E_POINTER);
    EXPECT_EQ(medium.tymed, static_cast<DWORD>(TYMED_NULL));
}

TEST_F(Pictures, AreRefusedWithoutASizeAndBeyondAllSizes) {
    STGMEDIUM medium = {};
    for (const CLIPFORMAT cf : {CLIPFORMAT{CF_DIB}, CLIPFORMAT{CF_ENHMETAFILE}, CLIPFORMAT{CF_METAFILEPICT}}) {
        FORMATETC format = Format(cf, TYMED_HGLOBAL | TYMED_ENHMF | TYMED_MFPICT);
        SIZEL extent = {0, 2000};
        As<IOleObject>(control_)->SetExtent(DVASPECT_CONTENT, &extent);
        EXPECT_EQ(data_->GetData(&format, &medium), OLE_E_BLANK);
        extent = {0x7FFFFFFF, 0x7FFFFFFF};
        As<IOleObject>(control_)->SetExtent(DVASPECT_CONTENT, &extent);
        EXPECT_EQ(data_->GetData(&format, &medium), E_OUTOFMEMORY);
        EXPECT_EQ(medium.tymed, static_cast<DWORD>(TYMED_NULL));
    }
}

TEST_F(Pictures, AreFollowedByThoseWhoAdvise) {
    const auto sink = automation::MakeCom<ViewSink>();
    FORMATETC format = Format(CF_DIB, TYMED_HGLOBAL);
    DWORD connection = 0;
    ASSERT_EQ(data_->DAdvise(&format, ADVF_NODATA, sink.Get(), &connection), S_OK);
    control_->put_AllowIndexing(VARIANT_TRUE);
    EXPECT_THAT(sink->told, ::testing::Contains("data"));
    EXPECT_EQ(data_->DUnadvise(connection), S_OK);
    EXPECT_EQ(data_->DUnadvise(connection), OLE_E_NOCONNECTION);
    sink->told.clear();
    control_->put_AllowIndexing(VARIANT_FALSE);
    EXPECT_THAT(sink->told, ElementsAre());
    FORMATETC unknown = Format(CF_TEXT, TYMED_HGLOBAL);
    EXPECT_EQ(data_->DAdvise(&unknown, 0, sink.Get(), &connection), DV_E_FORMATETC);
    EXPECT_EQ(References(static_cast<IAdviseSinkEx*>(sink.Get())), 1u);
}

}  // namespace
}  // namespace foldertree::testing
