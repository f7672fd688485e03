// The type library, and that the object is what the library says.
#include "container.h"

namespace container {
namespace {

struct MemberShape {
    std::string name;
    INVOKEKIND kind;
    DISPID id;
};

bool operator==(const MemberShape& a, const MemberShape& b) {
    return a.name == b.name && a.kind == b.kind && a.id == b.id;
}

std::ostream& operator<<(std::ostream& out, const MemberShape& member) {
    return out << member.name << " kind " << member.kind << " id " << member.id;
}

constexpr INVOKEKIND kCall = INVOKE_FUNC;
constexpr INVOKEKIND kGet = INVOKE_PROPERTYGET;
constexpr INVOKEKIND kSet = INVOKE_PROPERTYPUT;

const std::vector<MemberShape> kMembers = {
    {"refresh", kCall, 1},
    {"myTaskID", kSet, 2},
    {"UserPath", kSet, 3},
    {"myName", kGet, 4},
    {"myName", kSet, 4},
    {"myDate", kSet, 5},
    {"Password", kSet, 6},
    {"SQLData", kSet, 7},
    {"AlertType", kGet, 8},
    {"AlertType", kSet, 8},
    {"Language", kSet, 9},
    {"PowerPath", kSet, 10},
    {"UserName", kSet, 11},
    {"ZgName", kSet, 12},
    {"CompName", kSet, 13},
    {"myPower", kSet, 14},
    {"myModel", kSet, 15},
    {"Copyright", kSet, 16},
    {"UserControl_InitProperties", kCall, 17},
    {"UserControl_ReadProperties", kCall, 18},
    {"UserControl_WriteProperties", kCall, 19},
    {"Zorvan", kGet, 20},
    {"Zorvan", kSet, 20},
    {"UserID", kGet, 21},
    {"UserID", kSet, 21},
    {"Default", kGet, 22},
    {"Default", kSet, 22},
};

// The functions that the interface adds to IDispatch, in vtable order.
class Interface {
 public:
    explicit Interface(ITypeInfo& info) : info_(info) {
        EXPECT_EQ(info_.GetTypeAttr(&attributes_), S_OK);
    }
    ~Interface() { info_.ReleaseTypeAttr(attributes_); }
    Interface(const Interface&) = delete;
    Interface& operator=(const Interface&) = delete;

    template <class Visit>
    void EachFunction(Visit&& visit) {
        for (UINT i = 0; i < attributes_->cFuncs; i++) {
            FUNCDESC* function = nullptr;
            ASSERT_EQ(info_.GetFuncDesc(i, &function), S_OK);
            Bstr name, help;
            info_.GetDocumentation(function->memid, name.Put(), help.Put(), nullptr, nullptr);
            if (function->memid > 0 && function->memid < 0x10000) {
                visit(*function, name.Utf8(), help.Utf8());
            }
            info_.ReleaseFuncDesc(function);
        }
    }
    const TYPEATTR& Attributes() const { return *attributes_; }

 private:
    ITypeInfo& info_;
    TYPEATTR* attributes_ = nullptr;
};

class TypeLibraryTest : public ContainerTest {
 protected:
    void SetUp() override {
        ContainerTest::SetUp();
        ASSERT_EQ(LoadTypeLibEx(File().path.c_str(), REGKIND_NONE, library.Put()), S_OK);
        ASSERT_EQ(library->GetTypeInfoOfGuid(zv::com::kInterfaceId, info.Put()), S_OK);
    }
    void TearDown() override {
        info.Reset();
        library.Reset();
        ContainerTest::TearDown();
    }
    ComPtr<ITypeLib> library;
    ComPtr<ITypeInfo> info;
};

TEST_F(TypeLibraryTest, HasTheMembersInTheirOrder) {
    std::vector<MemberShape> members;
    Interface(*info).EachFunction(
        [&](const FUNCDESC& function, const std::string& name, const std::string&) {
            members.push_back({name, function.invkind, function.memid});
        });
    EXPECT_EQ(members, kMembers);
}

TEST_F(TypeLibraryTest, HasAHelpStringOnEveryMember) {
    Interface(*info).EachFunction([&](const FUNCDESC&, const std::string& name,
                                      const std::string& help) { EXPECT_NE(help, "") << name; });
}

TEST_F(TypeLibraryTest, HidesThePersistenceEventsOnly) {
    Interface(*info).EachFunction(
        [&](const FUNCDESC& function, const std::string& name, const std::string&) {
            const bool hidden = function.wFuncFlags & FUNCFLAG_FHIDDEN;
            EXPECT_EQ(hidden, name.starts_with("UserControl_")) << name;
        });
}

TEST_F(TypeLibraryTest, CarriesTheIdsOfTheSources) {
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, zv::com::kLibraryId);
    EXPECT_EQ(attributes->wMajorVerNum, zv::com::kMajorVersion);
    EXPECT_EQ(attributes->wMinorVerNum, zv::com::kMinorVersion);
    library->ReleaseTLibAttr(attributes);
}

TEST_F(TypeLibraryTest, DescribesAControlClass) {
    ComPtr<ITypeInfo> classInfo;
    ASSERT_EQ(As<IProvideClassInfo>()->GetClassInfo(classInfo.Put()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(classInfo->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, zv::com::kClassId);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FCONTROL);
    EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FCANCREATE);
    EXPECT_EQ(attributes->cImplTypes, 2);
    INT flags = 0;
    EXPECT_EQ(classInfo->GetImplTypeFlags(0, &flags), S_OK);
    EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
    EXPECT_EQ(classInfo->GetImplTypeFlags(1, &flags), S_OK);
    EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);
    classInfo->ReleaseTypeAttr(attributes);
    Bstr name;
    classInfo->GetDocumentation(MEMBERID_NIL, name.Put(), nullptr, nullptr, nullptr);
    EXPECT_EQ(name.Utf8(), "zvTask");

    GUID events;
    ASSERT_EQ(As<IProvideClassInfo2>()->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    EXPECT_EQ(events, zv::com::kEventsId);
}

TEST_F(TypeLibraryTest, NamesAreFoundWithTheIdsOfTheLibrary) {
    for (const MemberShape& member : kMembers) {
        EXPECT_EQ(IdOf(*dispatch, zv::win32::ToWide(member.name).c_str()), member.id)
            << member.name;
    }
    EXPECT_EQ(IdOf(*dispatch, L"USERPATH"), 3);
    EXPECT_EQ(IdOf(*dispatch, L"showmode"), DISPID_UNKNOWN);
}

// Calls through the library go by vtable slot: a slot out of place would set another property.
TEST_F(TypeLibraryTest, TheVtableIsInTheOrderOfTheLibrary) {
    ComPtr<IUnknown> early;
    ASSERT_EQ(control->QueryInterface(zv::com::kInterfaceId, early.PutVoid()), S_OK);
    const auto persist = As<IPersistPropertyBag>();
    ASSERT_EQ(persist->InitNew(), S_OK);
    const std::map<std::string, std::string> values = {
        {"myName", "11"},      {"Language", "1"},  {"AlertType", "3"}, {"UserPath", "14"},
        {"UserName", "15"},    {"ZgName", "16"},   {"myPower", "17"},  {"myModel", "18"},
        {"Copyright", "True"}, {"Password", "20"}, {"SQLData", "2"},   {"UserID", "22"},
        {"Default", "23"}};
    for (const auto& [name, value] : values) {
        Variant argument(value);
        DISPID putId = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{&argument.Ref(), &putId, 1, 1};
        const DISPID id = IdOf(*dispatch, zv::win32::ToWide(name).c_str());
        EXPECT_EQ(info->Invoke(early.Get(), id, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr,
                               nullptr),
                  S_OK)
            << name;
    }
    Bag bag;
    ASSERT_EQ(persist->Save(&bag, TRUE, TRUE), S_OK);
    for (const auto& [name, value] : values) EXPECT_EQ(bag.Text(name), value) << name;
    for (const char* name : {"myName", "AlertType", "UserID", "Default"}) {
        DISPPARAMS none{};
        Variant value;
        EXPECT_EQ(info->Invoke(early.Get(), IdOf(*dispatch, zv::win32::ToWide(name).c_str()),
                               DISPATCH_PROPERTYGET, &none, value.Put(), nullptr, nullptr),
                  S_OK);
        ASSERT_EQ(value.ChangeType(VT_BSTR), S_OK);
        EXPECT_EQ(zv::win32::ToUtf8(value.Get().bstrVal), values.at(name)) << name;
    }
}

}  // namespace
}  // namespace container
