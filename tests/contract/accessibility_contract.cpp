// What real windows hand to the system for screen readers, by notes that keep it.
#include <windows.h>

#include <commctrl.h>

#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "base/win32/bstr.h"
#include "base/win32/wide.h"
#include "driver/win32/played_backend.h"
#include "forms/text_box.h"
#include "forms/tree_view.h"
#include "forms/win32/accessibility.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;
namespace win32 = forms::win32;
using zv::win32::ComPtr;

constexpr MSAAPROPID kDescription = {
    0x4d48dfe4, 0xbd3f, 0x491f, {0xa6, 0x48, 0x49, 0x2d, 0x6f, 0x20, 0xc5, 0x88}};

/// Which element of which window; what identity strings hold here.
struct Element {
    HWND window;
    DWORD object;
    DWORD child;
};

/// On the stack of a test: it outlives every receiver.
class RecordedNotes final : public IAccPropServices {
 public:
    struct Name {
        HWND window;
        std::wstring text;
    };
    struct Server {
        Element element;
        std::vector<MSAAPROPID> properties;
        ComPtr<IAccPropServer> server;
        AnnoScope scope;
    };
    std::vector<Name> names;
    std::vector<Server> servers;
    int calls = 0;

    /// What a reader gets of an item; nothing when it is not answered.
    std::optional<std::string> Ask(const Element& element) {
        VARIANT value;
        VariantInit(&value);
        WINBOOL has = FALSE;
        const HRESULT hr = servers.at(0).server->GetPropValue(
            reinterpret_cast<const BYTE*>(&element), sizeof element, kDescription, &value, &has);
        EXPECT_EQ(hr, S_OK);
        if (!has) return {};
        const std::string text = zv::win32::ToUtf8(value.bstrVal);
        VariantClear(&value);
        return text;
    }

    STDMETHODIMP QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP SetHwndPropStr(HWND window, DWORD, DWORD, MSAAPROPID, LPCWSTR text) override {
        names.push_back({window, text});
        return S_OK;
    }
    STDMETHODIMP SetHwndPropServer(HWND window, DWORD object, DWORD child,
                                   const MSAAPROPID* properties, int count, IAccPropServer* server,
                                   AnnoScope scope) override {
        calls++;
        servers.push_back({{window, object, child},
                           {properties, properties + count},
                           ComPtr<IAccPropServer>(server),
                           scope});
        return S_OK;
    }
    STDMETHODIMP ClearHwndProps(HWND window, DWORD, DWORD, const MSAAPROPID*, int) override {
        std::erase_if(servers, [&](const Server& s) { return s.element.window == window; });
        return IsWindow(window) ? S_OK : E_INVALIDARG;
    }
    STDMETHODIMP DecomposeHwndIdentityString(const BYTE* id, DWORD length, HWND* window,
                                             DWORD* object, DWORD* child) override {
        Element element{};
        if (length != sizeof element) return E_INVALIDARG;
        std::memcpy(&element, id, sizeof element);
        *window = element.window;
        *object = element.object;
        *child = element.child;
        return S_OK;
    }
    STDMETHODIMP SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override { return E_FAIL; }
    STDMETHODIMP SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                               AnnoScope) override {
        return E_FAIL;
    }
    STDMETHODIMP ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override { return E_FAIL; }
    STDMETHODIMP SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override { return E_FAIL; }
    STDMETHODIMP ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
        return E_FAIL;
    }
    STDMETHODIMP SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_FAIL; }
    STDMETHODIMP SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_FAIL; }
    STDMETHODIMP SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                    AnnoScope) override {
        return E_FAIL;
    }
    STDMETHODIMP ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override { return E_FAIL; }
    STDMETHODIMP ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override {
        return E_FAIL;
    }
    STDMETHODIMP DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
        return E_FAIL;
    }
};

class NotedBackend : public driver::PlayedBackend {
 public:
    NotedBackend(Dialogs& dialogs, RecordedNotes& notes)
        : PlayedBackend(GetModuleHandleW(nullptr), &dialogs), notes_(notes) {}
    win32::AccessNotes ScreenReaders() override { return win32::AccessNotes(&notes_); }

 private:
    RecordedNotes& notes_;
};

struct ItemsForm : TestForm {
    explicit ItemsForm(WindowSystem& windows) : TestForm(windows) {
        images.Add("task2", Icon());
        images.Add("task4", Icon());
        tvwTask.SetImageList(&images);
        txtTitle.SetAccessibleName("标题");
    }
    ImageList images;
    TreeView tvwTask{*this, "tvwTask"};
    TextBox txtTitle{*this, "txtTitle"};
    TextBox txtOther{*this, "txtOther"};
};

HWND TreeIn(HWND form) {
    return FindWindowExW(form, nullptr, WC_TREEVIEWW, nullptr);
}

/// Stands in for the ids of items, which the system has and Wine has not.
class ItemIds {
 public:
    explicit ItemIds(HWND tree) : tree_(tree) {
        SetWindowSubclass(tree, &ItemIds::Procedure, kId, reinterpret_cast<DWORD_PTR>(this));
    }
    ~ItemIds() { RemoveWindowSubclass(tree_, &ItemIds::Procedure, kId); }
    ItemIds(const ItemIds&) = delete;
    ItemIds& operator=(const ItemIds&) = delete;

    DWORD Of(HTREEITEM item) {
        items_.push_back(item);
        return static_cast<DWORD>(items_.size());
    }
    HTREEITEM First() const { return Next(TVGN_ROOT, nullptr); }
    HTREEITEM Next(UINT way, HTREEITEM item) const {
        return reinterpret_cast<HTREEITEM>(
            SendMessageW(tree_, TVM_GETNEXTITEM, way, reinterpret_cast<LPARAM>(item)));
    }

 private:
    static constexpr UINT_PTR kId = 77;
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR, DWORD_PTR data) {
        auto& self = *reinterpret_cast<ItemIds*>(data);
        if (message == TVM_MAPACCIDTOHTREEITEM) {
            const bool known = wParam >= 1 && wParam <= self.items_.size();
            return known ? reinterpret_cast<LRESULT>(self.items_[wParam - 1]) : 0;
        }
        if (message == TVM_MAPHTREEITEMTOACCID) {
            return self.Of(reinterpret_cast<HTREEITEM>(wParam));
        }
        return DefSubclassProc(window, message, wParam, lParam);
    }
    HWND tree_;
    std::vector<HTREEITEM> items_;
};

class ScreenReader : public testing::Test {
 protected:
    ScreenReader() : form(windows.Create<ItemsForm>()) {
        form.tvwTask.describe = [this](int node) {
            described++;
            return states.at(static_cast<std::size_t>(node));
        };
        form.tvwTask.Add(TreeView::kNone, "Z1", "报表", "task2");
        form.tvwTask.Add(TreeView::kNone, "Z2", "月報", "task4");
    }
    HWND Shown() {
        form.Show(false);
        return TreeIn(backend.Handle(form));
    }
    static Element Item(HWND tree, DWORD child) {
        return {tree, static_cast<DWORD>(OBJID_CLIENT), child};
    }

    RecordedNotes notes;
    doubles::QueuedDialogs dialogs;
    NotedBackend backend{dialogs, notes};
    WindowSystem windows{backend};
    ItemsForm& form;
    std::vector<std::string> states{"未完成", "", "已完成"};
    int described = 0;
};

TEST_F(ScreenReader, ATreeOffersDescriptionsOnceForAllItsItems) {
    for (int i = 0; i < 100; i++) {
        form.tvwTask.Add(TreeView::kNone, "Y" + std::to_string(i), "项", "task2");
    }
    const HWND tree = Shown();
    ASSERT_EQ(notes.servers.size(), 1U);
    EXPECT_EQ(notes.calls, 1);
    EXPECT_EQ(notes.servers[0].element.window, tree);
    EXPECT_EQ(notes.servers[0].element.object, static_cast<DWORD>(OBJID_CLIENT));
    EXPECT_EQ(notes.servers[0].element.child, static_cast<DWORD>(CHILDID_SELF));
    EXPECT_EQ(notes.servers[0].scope, ANNO_CONTAINER);
    EXPECT_EQ(notes.servers[0].properties.size(), 2U);
    EXPECT_EQ(described, 0) << "nobody has asked yet";
}

TEST_F(ScreenReader, AnItemIsDescribedWhenItIsAskedFor) {
    const HWND tree = Shown();
    ItemIds ids(tree);
    const HTREEITEM first = ids.First();
    const DWORD one = ids.Of(first);
    const DWORD two = ids.Of(ids.Next(TVGN_NEXT, first));
    EXPECT_EQ(notes.Ask(Item(tree, one)), "未完成");
    EXPECT_EQ(notes.Ask(Item(tree, two)), std::nullopt) << "there is nothing to say of it";
    states[1] = "办理中";
    EXPECT_EQ(notes.Ask(Item(tree, two)), "办理中");
    EXPECT_EQ(described, 3);
}

TEST_F(ScreenReader, WhatIsNoItemOfTheTreeIsNotDescribed) {
    const HWND tree = Shown();
    ItemIds ids(tree);
    const DWORD one = ids.Of(ids.First());
    EXPECT_EQ(notes.Ask(Item(tree, CHILDID_SELF)), std::nullopt);
    EXPECT_EQ(notes.Ask(Item(tree, one + 1)), std::nullopt) << "a number without an item";
    EXPECT_EQ(notes.Ask(Item(backend.Handle(form), one)), std::nullopt) << "another window";
    EXPECT_EQ(notes.Ask({tree, static_cast<DWORD>(OBJID_WINDOW), one}), std::nullopt);
    EXPECT_EQ(described, 0);
}

TEST_F(ScreenReader, AfterAFillTheDescriptionIsThatOfTheNewNode) {
    const HWND tree = Shown();
    ItemIds ids(tree);
    {
        const TreeView::Fill fill(form.tvwTask);
        form.tvwTask.Clear();
        form.tvwTask.Add(TreeView::kNone, "Z9", "报表", "task2");
    }
    const int node = form.tvwTask.Find("Z9");
    states.resize(static_cast<std::size_t>(node) + 1);
    states[static_cast<std::size_t>(node)] = "新";
    EXPECT_EQ(notes.Ask(Item(tree, ids.Of(ids.First()))), "新");
}

TEST_F(ScreenReader, AnErrorInADescriptionDoesNotReachTheSystem) {
    const HWND tree = Shown();
    ItemIds ids(tree);
    const Element item = Item(tree, ids.Of(ids.First()));
    form.tvwTask.describe = [](int) -> std::string { throw RuntimeError(ErrorNumber::Overflow); };
    VARIANT value;
    VariantInit(&value);
    WINBOOL has = TRUE;
    EXPECT_EQ(notes.servers.at(0).server->GetPropValue(reinterpret_cast<const BYTE*>(&item),
                                                       sizeof item, kDescription, &value, &has),
              E_FAIL);
    EXPECT_FALSE(has);
    EXPECT_EQ(value.vt, VT_EMPTY);
}

std::vector<LONG> heard;

void CALLBACK Hear(HWINEVENTHOOK, DWORD, HWND, LONG object, LONG child, DWORD, DWORD) {
    if (object == OBJID_CLIENT) heard.push_back(child);
}

TEST_F(ScreenReader, AnItemWhosePictureChangesIsReported) {
    const HWND tree = Shown();
    ItemIds ids(tree);
    heard.clear();
    const HWINEVENTHOOK hook =
        SetWinEventHook(EVENT_OBJECT_DESCRIPTIONCHANGE, EVENT_OBJECT_DESCRIPTIONCHANGE, nullptr,
                        &Hear, GetCurrentProcessId(), GetCurrentThreadId(), WINEVENT_OUTOFCONTEXT);
    ASSERT_NE(hook, nullptr);
    form.tvwTask.SetText(0, "另一");
    form.tvwTask.SetImage(0, "task4");
    driver::PumpMessages();
    UnhookWinEvent(hook);
    ASSERT_EQ(heard.size(), 1U) << "a text is no description";
    EXPECT_EQ(notes.Ask(Item(tree, static_cast<DWORD>(heard[0]))), "未完成");
}

TEST_F(ScreenReader, ATreeThatDiesTakesItsDescriptionsBack) {
    const HWND tree = Shown();
    ItemIds ids(tree);
    const Element item = Item(tree, ids.Of(ids.First()));
    const ComPtr<IAccPropServer> kept = notes.servers.at(0).server;
    form.Unload();
    EXPECT_TRUE(notes.servers.empty());
    VARIANT value;
    VariantInit(&value);
    WINBOOL has = TRUE;
    EXPECT_EQ(kept->GetPropValue(reinterpret_cast<const BYTE*>(&item), sizeof item, kDescription,
                                 &value, &has),
              S_OK);
    EXPECT_FALSE(has);
}

TEST_F(ScreenReader, ATreeThatDescribesNothingOffersNothing) {
    form.tvwTask.describe = nullptr;
    Shown();
    EXPECT_TRUE(notes.servers.empty());
}

TEST_F(ScreenReader, ABoxHasTheNameThatItWasGiven) {
    Shown();
    ASSERT_EQ(notes.names.size(), 1U);
    EXPECT_EQ(notes.names[0].text, L"标题");
    form.txtOther.SetAccessibleName("內容");
    ASSERT_EQ(notes.names.size(), 2U);
    EXPECT_EQ(notes.names[1].text, L"內容");
}

}  // namespace
}  // namespace zv::contract
