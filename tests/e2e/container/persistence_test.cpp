// What survives in a property bag, a stream and a storage.
#include <algorithm>

#include "container.h"

namespace container {
namespace {

using Keys = std::vector<std::string>;

const Keys kReadKeys = {"myName",  "Language",  "AlertType", "ZgName",   "myPower",
                        "myModel", "Copyright", "showmode",  "UserPath", "Password",
                        "SQLData", "UserID",    "Default"};

class PersistenceTest : public ContainerTest {
 protected:
    void SetUp() override {
        ContainerTest::SetUp();
        persist = As<IPersistPropertyBag>();
        ASSERT_TRUE(persist);
        // The properties are those of the whole process: each test starts from a stored control.
        Bag empty;
        ASSERT_EQ(persist->Load(&empty, nullptr), S_OK);
        PutText(L"UserName", "");
    }
    void TearDown() override {
        persist.Reset();
        ContainerTest::TearDown();
    }
    void Save(Bag& bag) { ASSERT_EQ(persist->Save(&bag, TRUE, TRUE), S_OK); }

    ComPtr<IPersistPropertyBag> persist;
};

TEST_F(PersistenceTest, ReadsTheKeysInTheirOrder) {
    Bag bag;
    ASSERT_EQ(persist->Load(&bag, nullptr), S_OK);
    EXPECT_EQ(bag.asked, kReadKeys);
}

TEST_F(PersistenceTest, WritesTheKeysInTheirOrderAndCase) {
    Bag stored;
    stored.Set("SHOWMODE", Variant(std::int16_t{1}));
    ASSERT_EQ(persist->Load(&stored, nullptr), S_OK);
    SetEverything();
    Bag bag;
    Save(bag);
    EXPECT_EQ(bag.Keys(), (Keys{"myName", "Language", "AlertType", "UserPath", "UserName", "ZgName",
                                "myPower", "myModel", "Copyright", "Showmode", "Password",
                                "SQLData", "UserID", "Default"}));
}

TEST_F(PersistenceTest, LeavesOutWhatEqualsItsDefault) {
    Bag bag;
    Save(bag);
    EXPECT_EQ(bag.Keys(), Keys{});
}

TEST_F(PersistenceTest, AMissingRightsStringReadsAs350Zeros) {
    Bag before;
    before.Set("myPower", Variant("111"));
    ASSERT_EQ(persist->Load(&before, nullptr), S_OK);
    Bag without;
    ASSERT_EQ(persist->Load(&without, nullptr), S_OK);
    Bag bag;
    Save(bag);
    EXPECT_EQ(bag.Text("myPower"), "<none>") << "350 zeros are the default and not written";
}

TEST_F(PersistenceTest, InitialisingSetsTheDataPathAndThePassword) {
    ASSERT_EQ(persist->InitNew(), S_OK);
    Bag bag;
    Save(bag);
    std::string folder = zv::win32::ToUtf8(File().path);
    folder.resize(folder.find_last_of('\\') + 1);
    EXPECT_EQ(bag.Keys(), (Keys{"UserPath", "Password"}));
    EXPECT_EQ(_stricmp(bag.Text("UserPath").c_str(), (folder + "taskAlert.mdb").c_str()), 0)
        << bag.Text("UserPath");
    EXPECT_EQ(bag.Text("Password"), "0");
}

TEST_F(PersistenceTest, AReloadRestoresEverythingButTheUserName) {
    SetEverything();
    Bag first;
    Save(first);
    Bag nothing;
    ASSERT_EQ(persist->Load(&nothing, nullptr), S_OK);
    PutText(L"UserName", "");
    ASSERT_EQ(persist->Load(&first, nullptr), S_OK);
    Bag second;
    Save(second);
    Keys expected = first.Keys();
    expected.erase(std::find(expected.begin(), expected.end(), "UserName"));
    EXPECT_EQ(second.Keys(), expected);
    for (const std::string& key : expected) EXPECT_EQ(second.Text(key), first.Text(key)) << key;
}

TEST_F(PersistenceTest, TakesValuesAsTheContainerKeepsThem) {
    Bag bag;
    bag.Set("language", Variant("1"));
    bag.Set("SQLData", Variant(2.0));
    bag.Set("Copyright", Variant("True"));
    bag.Set("myName", Variant(std::int32_t{7}));
    bag.Set("Password", Variant::Null());
    ASSERT_EQ(persist->Load(&bag, nullptr), S_OK);
    Bag saved;
    Save(saved);
    EXPECT_EQ(saved.Text("Language"), "1");
    EXPECT_EQ(saved.Text("SQLData"), "2");
    EXPECT_EQ(saved.Text("Copyright"), "True");
    EXPECT_EQ(saved.Text("myName"), "7");
    EXPECT_EQ(saved.Text("Password"), "<none>");
}

TEST_F(PersistenceTest, AValueOfTheWrongTypeIsError13AndGoesToTheLog) {
    PutText(L"ZgName", "kept");
    Bag bag;
    ErrorLog log;
    bag.Set("Language", Variant("many"));
    EXPECT_EQ(persist->Load(&bag, &log), static_cast<HRESULT>(0x800A000D));
    ComPtr<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, info.Put()), S_OK);
    Bstr source, text;
    info->GetSource(source.Put());
    info->GetDescription(text.Put());
    EXPECT_EQ(source.Utf8(), "zv_Task.zvTask");
    EXPECT_EQ(text.Utf8().find("Language: "), 0u) << text.Utf8();
    EXPECT_EQ(log.names, Keys{"Language"});
    EXPECT_EQ(log.lastCode, static_cast<SCODE>(0x800A000D));
    EXPECT_EQ(log.lastText, text.Utf8());
    Bag saved;
    Save(saved);
    EXPECT_EQ(saved.Text("ZgName"), "kept") << "a failed load changes nothing";
}

TEST_F(PersistenceTest, ANumberBeyond16BitsIsError6) {
    Bag bag;
    bag.Set("SQLData", Variant(std::int32_t{70000}));
    EXPECT_EQ(persist->Load(&bag, nullptr), static_cast<HRESULT>(0x800A0006));
}

TEST_F(PersistenceTest, AFailureOfTheBagReachesTheContainer) {
    SetEverything();
    Bag bag;
    bag.writeResult = STG_E_MEDIUMFULL;
    EXPECT_EQ(persist->Save(&bag, TRUE, FALSE), STG_E_MEDIUMFULL);
}

// A bag that a host passes as an object: a container's own, or one of a script with the members
// ReadProperty and WriteProperty.
class ObjectBag final : public OnStack<IDispatch> {
 public:
    explicit ObjectBag(bool isContainers) : isContainers_(isContainers) {}
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid == IID_IPropertyBag && isContainers_) return bag.QueryInterface(iid, object);
        if (iid != IID_IUnknown && iid != IID_IDispatch) return E_NOINTERFACE;
        *object = this;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        if (isContainers_) return DISP_E_UNKNOWNNAME;
        const std::wstring name = names[0];
        ids[0] = name == L"ReadProperty" ? 1 : name == L"WriteProperty" ? 2 : DISPID_UNKNOWN;
        return ids[0] == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override {
        if (parameters->cArgs != 2) return DISP_E_BADPARAMCOUNT;
        const BSTR name = parameters->rgvarg[1].bstrVal;
        if (id == 2) return bag.Write(name, &parameters->rgvarg[0]);
        if (SUCCEEDED(bag.Read(name, result, nullptr))) return S_OK;
        return VariantCopy(result, &parameters->rgvarg[0]);
    }
    Bag bag;

 private:
    bool isContainers_;
};

TEST_F(PersistenceTest, ThePersistenceEventsWorkOnABagObject) {
    for (const bool isContainers : {true, false}) {
        ObjectBag object(isContainers);
        PutText(L"ZgName", "李四");
        PutText(L"myName", "名");
        const Variant argument(static_cast<IDispatch*>(&object));
        ASSERT_EQ(Call(*dispatch, L"UserControl_WriteProperties", {argument.Get()}).hr, S_OK);
        EXPECT_EQ(object.bag.Text("ZgName"), "李四");
        ASSERT_EQ(Call(*dispatch, L"UserControl_InitProperties", {}).hr, S_OK);
        ASSERT_EQ(Call(*dispatch, L"UserControl_ReadProperties", {argument.Get()}).hr, S_OK);
        EXPECT_EQ(object.bag.asked, kReadKeys);
        EXPECT_EQ(zv::win32::ToUtf8(Get(*dispatch, L"myName").value.Get().bstrVal), "名");
    }
}

TEST_F(PersistenceTest, IsDirtyAfterASetUntilItIsSaved) {
    const auto stream = As<IPersistStreamInit>();
    ASSERT_EQ(stream->InitNew(), S_OK);
    EXPECT_EQ(stream->IsDirty(), S_FALSE);
    PutNumber(L"myTaskID", 5);
    EXPECT_EQ(stream->IsDirty(), S_FALSE) << "a property that is never stored";
    PutText(L"myName", "x");
    EXPECT_EQ(stream->IsDirty(), S_OK);
    Bag bag;
    ASSERT_EQ(persist->Save(&bag, FALSE, FALSE), S_OK);
    EXPECT_EQ(stream->IsDirty(), S_OK);
    Save(bag);
    EXPECT_EQ(stream->IsDirty(), S_FALSE);
}

ComPtr<IStream> MemoryStream() {
    ComPtr<IStream> stream;
    CreateStreamOnHGlobal(nullptr, TRUE, stream.Put());
    return stream;
}

void Rewind(IStream& stream) {
    stream.Seek(LARGE_INTEGER{}, STREAM_SEEK_SET, nullptr);
}

TEST_F(PersistenceTest, AStreamCarriesTheSameProperties) {
    SetEverything();
    Bag first;
    Save(first);
    const auto persistStream = As<IPersistStreamInit>();
    const auto stream = MemoryStream();
    ASSERT_EQ(persistStream->Save(stream.Get(), TRUE), S_OK);
    ULARGE_INTEGER size{};
    ASSERT_EQ(persistStream->GetSizeMax(&size), S_OK);
    STATSTG stat{};
    stream->Stat(&stat, STATFLAG_NONAME);
    EXPECT_EQ(stat.cbSize.QuadPart, size.QuadPart);
    stream->Write("more", 4, nullptr);

    ASSERT_EQ(persistStream->InitNew(), S_OK);
    Rewind(*stream);
    ASSERT_EQ(persistStream->Load(stream.Get()), S_OK);
    char rest[5] = {};
    stream->Read(rest, 4, nullptr);
    EXPECT_STREQ(rest, "more") << "what follows in the stream is the container's";
    PutText(L"UserName", "张三");
    Bag second;
    Save(second);
    EXPECT_EQ(second.Keys(), first.Keys());
    for (const std::string& key : first.Keys()) EXPECT_EQ(second.Text(key), first.Text(key)) << key;
}

TEST_F(PersistenceTest, ADamagedStreamIsRefusedAndChangesNothing) {
    SetEverything();
    const auto persistStream = As<IPersistStreamInit>();
    const auto whole = MemoryStream();
    ASSERT_EQ(persistStream->Save(whole.Get(), TRUE), S_OK);
    STATSTG stat{};
    whole->Stat(&stat, STATFLAG_NONAME);
    std::string bytes(static_cast<std::size_t>(stat.cbSize.QuadPart), '\0');
    Rewind(*whole);
    whole->Read(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    PutText(L"myName", "kept");

    const std::vector<std::string> damaged = {"",
                                              "zv",
                                              bytes.substr(0, 10),
                                              bytes.substr(0, bytes.size() - 1),
                                              "XX" + bytes.substr(2),
                                              bytes.substr(0, 4) + "\x02" + bytes.substr(5)};
    for (const std::string& part : damaged) {
        const auto stream = MemoryStream();
        stream->Write(part.data(), static_cast<ULONG>(part.size()), nullptr);
        Rewind(*stream);
        EXPECT_TRUE(FAILED(persistStream->Load(stream.Get()))) << part.size();
        EXPECT_EQ(zv::win32::ToUtf8(Get(*dispatch, L"myName").value.Get().bstrVal), "kept");
    }
}

ComPtr<IStorage> MemoryStorage() {
    ComPtr<ILockBytes> bytes;
    ComPtr<IStorage> storage;
    EXPECT_EQ(CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.Put()), S_OK);
    EXPECT_EQ(
        StgCreateDocfileOnILockBytes(
            bytes.Get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, storage.Put()),
        S_OK);
    return storage;
}

TEST_F(PersistenceTest, AStorageIsUsedByOleItself) {
    const auto storage = MemoryStorage();
    Site site;
    {
        ComPtr<IOleObject> object;
        ASSERT_EQ(OleCreate(zv::com::kClassId, IID_IOleObject, OLERENDER_DRAW, nullptr, &site,
                            storage.Get(), object.PutVoid()),
                  S_OK);
        ASSERT_EQ(Put(*object.As<IDispatch>(), L"myName", Variant("甲公司")).hr, S_OK);
        const auto persistStorage = object.As<IPersistStorage>();
        EXPECT_EQ(persistStorage->IsDirty(), S_OK);
        ASSERT_EQ(OleSave(persistStorage.Get(), storage.Get(), TRUE), S_OK);
        ASSERT_EQ(persistStorage->SaveCompleted(nullptr), S_OK);
        EXPECT_EQ(persistStorage->IsDirty(), S_FALSE);
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
    }
    PutText(L"myName", "");
    {
        ComPtr<IOleObject> object;
        ASSERT_EQ(OleLoad(storage.Get(), IID_IOleObject, &site, object.PutVoid()), S_OK);
        EXPECT_EQ(zv::win32::ToUtf8(Get(*object.As<IDispatch>(), L"myName").value.Get().bstrVal),
                  "甲公司");
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
    }
    EXPECT_EQ(site.references, 1u);
}

TEST_F(PersistenceTest, AStorageThatKeepsNoClassGetsNoNameOfOne) {
    for (const bool keeps : {true, false}) {
        const auto persistStorage = As<IPersistStorage>();
        const auto storage = MemoryStorage();
        if (keeps) {
            ASSERT_EQ(WriteClassStg(storage.Get(), zv::com::kClassId), S_OK);
        }
        ASSERT_EQ(persistStorage->InitNew(storage.Get()), keeps ? S_OK : CO_E_ALREADYINITIALIZED);
        ASSERT_EQ(persistStorage->Save(storage.Get(), FALSE), S_OK);
        ComPtr<IStream> name;
        EXPECT_EQ(storage->OpenStream(L"\1CompObj", nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0,
                                      name.Put()),
                  keeps ? S_OK : STG_E_FILENOTFOUND);
        ASSERT_EQ(persistStorage->SaveCompleted(nullptr), S_OK);
    }
}

TEST_F(PersistenceTest, AStorageIsSavedOnlyInItsTurn) {
    const auto persistStorage = As<IPersistStorage>();
    const auto storage = MemoryStorage();
    EXPECT_EQ(persistStorage->Save(storage.Get(), FALSE), E_UNEXPECTED);
    ASSERT_EQ(persistStorage->InitNew(storage.Get()), S_OK);
    EXPECT_EQ(persistStorage->InitNew(storage.Get()), CO_E_ALREADYINITIALIZED);
    ASSERT_EQ(persistStorage->Save(storage.Get(), TRUE), S_OK);
    EXPECT_EQ(persistStorage->Save(storage.Get(), TRUE), E_UNEXPECTED);
    ASSERT_EQ(persistStorage->HandsOffStorage(), S_OK);
    EXPECT_EQ(persistStorage->SaveCompleted(nullptr), E_INVALIDARG);
    ASSERT_EQ(persistStorage->SaveCompleted(storage.Get()), S_OK);
}

TEST_F(PersistenceTest, EveryPersistenceInterfaceNamesTheClass) {
    const ComPtr<IPersist> interfaces[] = {As<IPersist>(),
                                           ComPtr<IPersist>(As<IPersistPropertyBag>().Get()),
                                           ComPtr<IPersist>(As<IPersistStreamInit>().Get()),
                                           ComPtr<IPersist>(As<IPersistStorage>().Get())};
    for (const auto& each : interfaces) {
        CLSID id;
        ASSERT_EQ(each->GetClassID(&id), S_OK);
        EXPECT_EQ(id, zv::com::kClassId);
    }
}

}  // namespace
}  // namespace container
