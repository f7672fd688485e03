// The picture at design time.
#include <set>

#include "container.h"

namespace container {
namespace {

// A white sheet of pixels to draw on.
class Sheet {
 public:
    static constexpr int kWidth = 96;
    static constexpr int kHeight = 80;

    Sheet() {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), kWidth, -kHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        pixels_ = static_cast<DWORD*>(bits);
        context_ = CreateCompatibleDC(nullptr);
        before_ = SelectObject(context_, bitmap_);
        const RECT all{0, 0, kWidth, kHeight};
        FillRect(context_, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    }
    ~Sheet() {
        SelectObject(context_, before_);
        DeleteDC(context_);
        DeleteObject(bitmap_);
    }
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    HDC Context() const { return context_; }
    std::set<DWORD> Colours(const RECT& part) const {
        GdiFlush();
        std::set<DWORD> colours;
        for (LONG y = part.top; y < part.bottom; y++) {
            for (LONG x = part.left; x < part.right; x++) {
                colours.insert(pixels_[y * kWidth + x] & 0xFFFFFF);
            }
        }
        return colours;
    }

 private:
    HDC context_;
    HBITMAP bitmap_;
    HGDIOBJ before_;
    DWORD* pixels_;
};

constexpr RECTL kBounds{8, 8, 88, 72};
constexpr RECT kIconPart{20, 10, 76, 54};
constexpr RECT kNamePart{12, 57, 84, 70};

class ViewTest : public ContainerTest {
 protected:
    HRESULT Draw(const Sheet& sheet, DWORD aspect = DVASPECT_CONTENT) {
        return As<IViewObject2>()->Draw(aspect, -1, nullptr, nullptr, nullptr, sheet.Context(),
                                        &kBounds, nullptr, nullptr, 0);
    }
};

TEST_F(ViewTest, DrawsItsIconAndName) {
    const Sheet sheet;
    ASSERT_EQ(Draw(sheet), S_OK);
    EXPECT_GT(sheet.Colours(kIconPart).size(), 8u);
    EXPECT_GT(sheet.Colours(kNamePart).size(), 1u);
    EXPECT_EQ(sheet.Colours(RECT{0, 0, Sheet::kWidth, 8}), std::set<DWORD>{0xFFFFFF})
        << "nothing outside its bounds";
}

TEST_F(ViewTest, DrawsTheNameThatTheContainerGave) {
    Site site;
    site.displayName = "i";
    ASSERT_EQ(As<IOleObject>()->SetClientSite(&site), S_OK);
    const Sheet shortName;
    ASSERT_EQ(Draw(shortName), S_OK);
    site.displayName = "WWWW";
    const Sheet longName;
    ASSERT_EQ(Draw(longName), S_OK);
    // A long name reaches where a short one leaves the ground.
    constexpr RECT kLeft{26, 57, 40, 70};
    EXPECT_EQ(shortName.Colours(kLeft).size(), 1u);
    EXPECT_GT(longName.Colours(kLeft).size(), 1u);
    As<IOleObject>()->SetClientSite(nullptr);
}

TEST_F(ViewTest, DrawsNothingWhileTheHostRuns) {
    Site site;
    site.userMode = true;
    ASSERT_EQ(As<IOleObject>()->SetClientSite(&site), S_OK);
    const Sheet sheet;
    ASSERT_EQ(Draw(sheet), S_OK);
    EXPECT_EQ(sheet.Colours(RECT{0, 0, Sheet::kWidth, Sheet::kHeight}).size(), 1u);
    As<IOleObject>()->SetClientSite(nullptr);
}

TEST_F(ViewTest, KnowsOneAspect) {
    const Sheet sheet;
    EXPECT_EQ(Draw(sheet, DVASPECT_THUMBNAIL), DV_E_DVASPECT);
}

TEST_F(ViewTest, TakesTheExtentOfItsContainer) {
    SIZEL size{2540, 1270};
    ASSERT_EQ(As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size), S_OK);
    SIZEL read{};
    ASSERT_EQ(As<IViewObject2>()->GetExtent(DVASPECT_CONTENT, -1, nullptr, &read), S_OK);
    EXPECT_EQ(read.cx, 2540);
    EXPECT_EQ(read.cy, 1270);
    size.cx = -1;
    EXPECT_EQ(As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size), E_INVALIDARG);
}

TEST_F(ViewTest, HandsOutMetafiles) {
    const auto data = As<IDataObject>();
    ComPtr<IEnumFORMATETC> formats;
    ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, formats.Put()), S_OK);
    FORMATETC format;
    int count = 0;
    while (formats->Next(1, &format, nullptr) == S_OK) {
        EXPECT_EQ(data->QueryGetData(&format), S_OK);
        STGMEDIUM medium{};
        ASSERT_EQ(data->GetData(&format, &medium), S_OK);
        EXPECT_EQ(medium.tymed, format.tymed);
        ReleaseStgMedium(&medium);
        count++;
    }
    EXPECT_EQ(count, 2);
    format = {CF_TEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    EXPECT_EQ(data->QueryGetData(&format), DV_E_FORMATETC);
}

class ViewSink final : public OnStack<IAdviseSink> {
 public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IAdviseSink) return E_NOINTERFACE;
        *object = this;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override {}
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override { views++; }
    STDMETHODIMP_(void) OnRename(IMoniker*) override {}
    STDMETHODIMP_(void) OnSave() override {}
    STDMETHODIMP_(void) OnClose() override { closes++; }
    int views = 0;
    int closes = 0;
};

TEST_F(ViewTest, NotifiesItsViewersOfChanges) {
    ViewSink sink;
    const auto view = As<IViewObject2>();
    ASSERT_EQ(view->SetAdvise(DVASPECT_CONTENT, 0, &sink), S_OK);
    DWORD connection = 0;
    ASSERT_EQ(As<IOleObject>()->Advise(&sink, &connection), S_OK);
    SIZEL size{1000, 1000};
    ASSERT_EQ(As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size), S_OK);
    EXPECT_EQ(sink.views, 1);
    ASSERT_EQ(As<IOleObject>()->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(sink.closes, 1);
    ASSERT_EQ(view->SetAdvise(DVASPECT_CONTENT, 0, nullptr), S_OK);
    ASSERT_EQ(As<IOleObject>()->Unadvise(connection), S_OK);
    EXPECT_EQ(sink.references, 1u);
}

TEST(ToolboxBitmap, IsRegisteredAndCanBeLoaded) {
    const HMODULE file = LoadLibraryExW(File().path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    const HANDLE bitmap =
        LoadImageW(file, MAKEINTRESOURCEW(102), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
    BITMAP shape{};
    ASSERT_NE(GetObjectW(bitmap, sizeof shape, &shape), 0);
    EXPECT_EQ(shape.bmWidth, 16);
    EXPECT_EQ(shape.bmHeight, 16);
    DeleteObject(bitmap);
    FreeLibrary(file);
}

}  // namespace
}  // namespace container
