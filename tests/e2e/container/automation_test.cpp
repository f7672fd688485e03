// Late binding: reading, setting, coercion and errors.
#include <clocale>
#include <thread>

#include "container.h"

namespace container {
namespace {

const wchar_t* const kSetOnly[] = {L"myTaskID", L"UserPath",  L"myDate",   L"Password", L"SQLData",
                                   L"Language", L"PowerPath", L"UserName", L"ZgName",   L"CompName",
                                   L"myPower",  L"myModel",   L"Copyright"};

class AutomationTest : public ContainerTest {
 protected:
    std::string Text(const wchar_t* name) {
        CallResult result = Get(*dispatch, name);
        EXPECT_EQ(result.hr, S_OK);
        return result.value.Type() == VT_BSTR ? zv::win32::ToUtf8(result.value.Get().bstrVal)
                                              : "<no text>";
    }
};

TEST_F(AutomationTest, ReadsWhatIsReadable) {
    PutText(L"myName", "甲公司");
    PutNumber(L"AlertType", 3);
    PutText(L"UserID", "sa");
    PutText(L"Default", "zv2000");
    EXPECT_EQ(Text(L"myName"), "甲公司");
    EXPECT_EQ(Text(L"UserID"), "sa");
    EXPECT_EQ(Text(L"Default"), "zv2000");
    const CallResult type = Get(*dispatch, L"AlertType");
    EXPECT_EQ(type.value.Type(), VT_I2);
    EXPECT_EQ(type.value.Get().iVal, 3);
}

TEST_F(AutomationTest, ZorvanAlwaysReadsEmpty) {
    PutText(L"Zorvan", "brand");
    EXPECT_EQ(Text(L"Zorvan"), "");
}

TEST_F(AutomationTest, ReadingASetOnlyPropertyFails) {
    for (const wchar_t* name : kSetOnly) {
        EXPECT_EQ(Get(*dispatch, name).hr, DISP_E_MEMBERNOTFOUND) << zv::win32::ToUtf8(name);
        // As scripts read: property or method, whichever there is.
        EXPECT_EQ(
            Invoke(*dispatch, IdOf(*dispatch, name), DISPATCH_PROPERTYGET | DISPATCH_METHOD, {}).hr,
            DISP_E_MEMBERNOTFOUND)
            << zv::win32::ToUtf8(name);
    }
}

TEST_F(AutomationTest, FollowsReferences) {
    Variant inner("by reference");
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &inner.Ref();
    EXPECT_EQ(Invoke(*dispatch, IdOf(*dispatch, L"myName"), DISPATCH_PROPERTYPUT, {reference}).hr,
              S_OK);
    EXPECT_EQ(Text(L"myName"), "by reference");

    SHORT number = 7;
    VARIANT direct{};
    direct.vt = VT_BYREF | VT_I2;
    direct.piVal = &number;
    EXPECT_EQ(Invoke(*dispatch, IdOf(*dispatch, L"AlertType"), DISPATCH_PROPERTYPUT, {direct}).hr,
              S_OK);
    EXPECT_EQ(Get(*dispatch, L"AlertType").value.Get().iVal, 7);
}

TEST_F(AutomationTest, ConvertsArguments) {
    EXPECT_EQ(Put(*dispatch, L"AlertType", Variant("5")).hr, S_OK);
    EXPECT_EQ(Get(*dispatch, L"AlertType").value.Get().iVal, 5);
    EXPECT_EQ(Put(*dispatch, L"myName", Variant(std::int32_t{12})).hr, S_OK);
    EXPECT_EQ(Text(L"myName"), "12");
    EXPECT_EQ(Put(*dispatch, L"myName", Variant()).hr, S_OK);
    EXPECT_EQ(Text(L"myName"), "");
    EXPECT_EQ(Put(*dispatch, L"Copyright", Variant(std::int32_t{1})).hr, S_OK);
    EXPECT_EQ(Put(*dispatch, L"myDate", Variant(std::int16_t{1})).hr, S_OK);
    EXPECT_EQ(Put(*dispatch, L"myDate", Variant::Date(38052.5)).hr, S_OK);
}

TEST_F(AutomationTest, RefusesWhatDoesNotFit) {
    const auto expect = [](const CallResult& result, int number, const std::string& member) {
        EXPECT_EQ(result.hr, DISP_E_EXCEPTION) << member;
        EXPECT_EQ(result.errorNumber, static_cast<HRESULT>(0x800A0000) + number) << member;
        EXPECT_EQ(result.errorText.find(member + ": "), 0u) << result.errorText;
        EXPECT_EQ(result.errorSource, "zv_Task.zvTask");
    };
    CallResult result = Put(*dispatch, L"AlertType", Variant("many"));
    expect(result, 13, "AlertType");
    EXPECT_EQ(result.badArgument, 0u);
    expect(Put(*dispatch, L"AlertType", Variant(std::int32_t{70000})), 6, "AlertType");
    expect(Put(*dispatch, L"myName", Variant::Null()), 13, "myName");
    const Variant number(std::int32_t{8});
    expect(Call(*dispatch, L"refresh", {number.Get()}), 450, "refresh");
    const Variant text("x");
    result = Call(*dispatch, L"refresh", {number.Get(), text.Get()});
    expect(result, 13, "refresh(modal)");
    EXPECT_EQ(result.badArgument, 0u) << "the last argument stands first";
    EXPECT_EQ(Invoke(*dispatch, 999, DISPATCH_METHOD, {}).hr, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Invoke(*dispatch, 1, DISPATCH_PROPERTYPUT, {number.Get()}).hr, DISP_E_MEMBERNOTFOUND);
}

TEST_F(AutomationTest, ACallerWithoutARecordOfErrorsIsAnsweredAutomationsOwnResult) {
    DISPID id = IdOf(*dispatch, L"AlertType");
    DISPID put = DISPID_PROPERTYPUT;
    UINT badArgument = 99;
    const Variant text("many");
    VARIANT value = text.Get();
    DISPPARAMS parameters{&value, &put, 1, 1};
    EXPECT_EQ(dispatch->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters,
                               nullptr, nullptr, &badArgument),
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(badArgument, 0u);
    // Some read without arguments then.
    const Variant index(std::int16_t{1});
    EXPECT_EQ(Invoke(*dispatch, id, DISPATCH_PROPERTYGET, {index.Get()}).hr, DISP_E_BADPARAMCOUNT);
}

TEST_F(AutomationTest, TakesNamedArguments) {
    PutText(L"UserPath", "");
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"REFRESH"), const_cast<LPOLESTR>(L"modal"),
                        const_cast<LPOLESTR>(L"mode")};
    DISPID ids[3];
    ASSERT_EQ(dispatch->GetIDsOfNames(IID_NULL, names, 3, LOCALE_USER_DEFAULT, ids), S_OK);
    const Variant modal(std::int16_t{0});
    const Variant mode(std::int32_t{8});
    VARIANT arguments[] = {modal.Get(), mode.Get()};
    DISPPARAMS parameters{arguments, &ids[1], 2, 2};
    EXPECT_EQ(dispatch->Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                               nullptr, nullptr, nullptr),
              S_OK);
    ids[1] = 7;
    EXPECT_EQ(dispatch->Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                               nullptr, nullptr, nullptr),
              DISP_E_PARAMNOTFOUND);
}

TEST_F(AutomationTest, RefreshWithoutAPathReturnsAtOnce) {
    PutText(L"UserPath", "");
    PutNumber(L"SQLData", 0);
    for (int mode : {0, 1, 8, 12}) {
        const Variant first(std::int32_t{mode});
        const Variant second(std::int16_t{0});
        EXPECT_EQ(Call(*dispatch, L"refresh", {first.Get(), second.Get()}).hr, S_OK) << mode;
    }
}

// Presses OK in every message box of this process until it is stopped.
class BoxCloser {
 public:
    BoxCloser() : thread_([this] { Run(); }) {}
    ~BoxCloser() {
        stop_ = true;
        thread_.join();
    }
    BoxCloser(const BoxCloser&) = delete;
    BoxCloser& operator=(const BoxCloser&) = delete;

 private:
    void Run() {
        while (!stop_) {
            EnumWindows(
                [](HWND window, LPARAM) CALLBACK -> BOOL {
                    wchar_t name[16];
                    DWORD process = 0;
                    GetWindowThreadProcessId(window, &process);
                    GetClassNameW(window, name, ARRAYSIZE(name));
                    if (process == GetCurrentProcessId() && std::wstring(name) == L"#32770" &&
                        IsWindowVisible(window)) {
                        PostMessageW(window, WM_COMMAND, IDOK, 0);
                    }
                    return TRUE;
                },
                0);
            Sleep(20);
        }
    }
    std::atomic<bool> stop_{false};
    std::thread thread_;
};

TEST_F(AutomationTest, AnErrorOfRefreshReachesTheHostWithNumberTextAndSource) {
    const BoxCloser closer;
    PutText(L"UserPath", "C:\\no such folder\\没有.mdb");
    const Variant mode(std::int32_t{8});
    const Variant modal(std::int16_t{0});
    const CallResult result = Call(*dispatch, L"refresh", {mode.Get(), modal.Get()});
    EXPECT_EQ(result.hr, DISP_E_EXCEPTION);
    EXPECT_TRUE(FAILED(result.errorNumber));
    EXPECT_NE(result.errorText.find("没有.mdb"), std::string::npos) << result.errorText;
    EXPECT_NE(result.errorSource, "");

    // The same call through the vtable leaves the error for the thread.
    ComPtr<IUnknown> early;
    ASSERT_EQ(control->QueryInterface(zv::com::kInterfaceId, early.PutVoid()), S_OK);
    auto& task = *static_cast<zv::com::ITask*>(early.Get());
    EXPECT_EQ(task.refresh(8, 0), result.errorNumber);
    ComPtr<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, info.Put()), S_OK);
    Bstr text;
    info->GetDescription(text.Put());
    EXPECT_EQ(text.Utf8(), result.errorText);
    EXPECT_EQ(As<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(zv::com::kInterfaceId), S_OK);
    EXPECT_EQ(As<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(IID_IOleObject), S_FALSE);
}

TEST_F(AutomationTest, LeavesTheHostsFolderLocaleAndFocusAlone) {
    const HWND window = CreateWindowExW(0, L"EDIT", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 20,
                                        nullptr, nullptr, nullptr, nullptr);
    SetFocus(window);
    wchar_t before[MAX_PATH], after[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, before);
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    PutText(L"UserPath", "");
    const Variant mode(std::int32_t{8});
    const Variant modal(std::int16_t{0});
    EXPECT_EQ(Call(*dispatch, L"refresh", {mode.Get(), modal.Get()}).hr, S_OK);
    GetCurrentDirectoryW(MAX_PATH, after);
    EXPECT_STREQ(before, after);
    EXPECT_EQ(locale, std::setlocale(LC_ALL, nullptr));
    EXPECT_EQ(GetFocus(), window);
    DestroyWindow(window);
}

TEST_F(AutomationTest, NullPointersAreAnswered) {
    ComPtr<IUnknown> early;
    ASSERT_EQ(control->QueryInterface(zv::com::kInterfaceId, early.PutVoid()), S_OK);
    auto& task = *static_cast<zv::com::ITask*>(early.Get());
    EXPECT_EQ(task.get_myName(nullptr), E_POINTER);
    EXPECT_EQ(task.get_AlertType(nullptr), E_POINTER);
    EXPECT_EQ(task.get_Zorvan(nullptr), E_POINTER);
    EXPECT_EQ(task.put_myName(nullptr), S_OK) << "no text is the empty text";
    EXPECT_EQ(task.UserControl_ReadProperties(nullptr), static_cast<HRESULT>(0x800A005B));
    EXPECT_EQ(task.UserControl_WriteProperties(nullptr), static_cast<HRESULT>(0x800A005B));
    EXPECT_EQ(task.GetTypeInfoCount(nullptr), E_POINTER);
    EXPECT_EQ(task.Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
              E_POINTER);
    EXPECT_EQ(As<IPersistPropertyBag>()->Load(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(As<IPersistPropertyBag>()->Save(nullptr, FALSE, FALSE), E_POINTER);
    EXPECT_EQ(As<IPersistStreamInit>()->Load(nullptr), E_POINTER);
    EXPECT_EQ(As<IPersistStreamInit>()->Save(nullptr, FALSE), E_POINTER);
    EXPECT_EQ(As<IPersistStorage>()->InitNew(nullptr), E_POINTER);
    EXPECT_EQ(As<IOleObject>()->GetClientSite(nullptr), E_POINTER);
    EXPECT_EQ(As<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(As<IOleObject>()->GetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(As<IOleControl>()->GetControlInfo(nullptr), E_POINTER);
    EXPECT_EQ(As<IDataObject>()->GetData(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(As<IProvideClassInfo>()->GetClassInfo(nullptr), E_POINTER);
    EXPECT_EQ(As<IConnectionPointContainer>()->EnumConnectionPoints(nullptr), E_POINTER);
    EXPECT_EQ(As<IOleInPlaceObject>()->GetWindow(nullptr), E_POINTER);
    EXPECT_EQ(control->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

class NotifySink final : public OnStack<IPropertyNotifySink> {
 public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IPropertyNotifySink) return E_NOINTERFACE;
        *object = this;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP OnChanged(DISPID id) override {
        changed.push_back(id);
        return S_OK;
    }
    STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }
    std::vector<DISPID> changed;
};

TEST_F(AutomationTest, NotifiesASinkOfWhatWasSet) {
    NotifySink sink;
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(
        As<IConnectionPointContainer>()->FindConnectionPoint(IID_IPropertyNotifySink, point.Put()),
        S_OK);
    DWORD cookie = 0;
    ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);
    PutText(L"myName", "x");
    PutNumber(L"Language", 0);
    EXPECT_EQ(sink.changed, (std::vector<DISPID>{4, 9}));
    ComPtr<IEnumConnections> connections;
    ASSERT_EQ(point->EnumConnections(connections.Put()), S_OK);
    CONNECTDATA data{};
    ASSERT_EQ(connections->Next(1, &data, nullptr), S_OK);
    EXPECT_EQ(data.dwCookie, cookie);
    data.pUnk->Release();
    connections.Reset();
    EXPECT_EQ(point->Unadvise(cookie), S_OK);
    EXPECT_EQ(point->Unadvise(cookie), CONNECT_E_NOCONNECTION);
    PutText(L"myName", "y");
    EXPECT_EQ(sink.changed.size(), 2u);
    EXPECT_EQ(sink.references, 1u);
}

TEST_F(AutomationTest, ListsItsConnectionPoints) {
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(As<IConnectionPointContainer>()->EnumConnectionPoints(points.Put()), S_OK);
    std::vector<IID> ids;
    for (;;) {
        ComPtr<IConnectionPoint> point;
        if (points->Next(1, point.Put(), nullptr) != S_OK) break;
        IID id;
        ASSERT_EQ(point->GetConnectionInterface(&id), S_OK);
        ids.push_back(id);
        ComPtr<IConnectionPointContainer> container;
        ASSERT_EQ(point->GetConnectionPointContainer(container.Put()), S_OK);
        EXPECT_EQ(container, As<IConnectionPointContainer>());
    }
    EXPECT_EQ(ids, (std::vector<IID>{zv::com::kEventsId, IID_IPropertyNotifySink}));
    NotifySink wrong;
    ComPtr<IConnectionPoint> events;
    ASSERT_EQ(
        As<IConnectionPointContainer>()->FindConnectionPoint(zv::com::kEventsId, events.Put()),
        S_OK);
    DWORD cookie = 0;
    EXPECT_EQ(events->Advise(&wrong, &cookie), CONNECT_E_CANNOTCONNECT);
}

}  // namespace
}  // namespace container
