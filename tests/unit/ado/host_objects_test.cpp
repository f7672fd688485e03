// The automation objects as any automation client calls them.
#include <gtest/gtest.h>

#include "ado_errors.h"
#include "connection_object.h"
#include "doubles/scripted_connection.h"
#include "recordset_object.h"
#include "store/ado/calls.h"

namespace zv::host {
namespace {

using store::Value;
using store::ado::Call;
using store::ado::GetProperty;
using store::ado::Member;
using store::ado::PutProperty;
using win32::ComPtr;
using win32::Variant;

template <class Action>
int NumberOf(Action&& action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.Number());
    }
    return 0;
}

class HostObjects : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
        auto& table = script_.answers["select * from people"];
        table.columns = {"id", "Name"};
        table.rows = {{Value(1), Value("王")}, {Value(2), Value("李")}, {Value(3), Value()}};
        script_.answers["select * from nobody"].columns = {"id"};
        connection_ = ComPtr<IDispatch>::Attach(new ConnectionObject(
            [this] { return doubles::MakeScriptedConnection(script_); }, "Data Source=\"x\";"));
    }
    void TearDown() override {
        connection_.Reset();
        EXPECT_EQ(automation::module::Locks(), 0);
        CoUninitialize();
    }

    ComPtr<IDispatch> NewRecordset() {
        return ComPtr<IDispatch>::Attach(static_cast<IDispatch*>(new RecordsetObject()));
    }
    ComPtr<IDispatch> Opened(const char* source, std::int32_t cursor = 1, std::int32_t lock = 3) {
        auto recordset = NewRecordset();
        Run(recordset, L"Open",
            {Variant(source).Get(), Variant(connection_.Get()).Get(), Variant(cursor).Get(),
             Variant(lock).Get()});
        return recordset;
    }
    static Variant Run(const ComPtr<IDispatch>& object, const wchar_t* name,
                       store::ado::ArgumentList arguments = {}) {
        Member member(name);
        return Call(*object, member, arguments);
    }
    static Variant Get(const ComPtr<IDispatch>& object, const wchar_t* name,
                       store::ado::ArgumentList arguments = {}) {
        Member member(name);
        return GetProperty(*object, member, arguments);
    }
    static int GetInt(const ComPtr<IDispatch>& object, const wchar_t* name) {
        Variant value = Get(object, name);
        EXPECT_EQ(value.ChangeType(VT_I4), S_OK);
        return static_cast<int>(value.Get().lVal);
    }
    static bool GetBool(const ComPtr<IDispatch>& object, const wchar_t* name) {
        const Variant value = Get(object, name);
        EXPECT_EQ(value.Type(), VT_BOOL);
        return value.Get().boolVal != VARIANT_FALSE;
    }
    static std::string FieldText(const ComPtr<IDispatch>& recordset, const char* field) {
        Variant value = Get(Get(recordset, L"Fields", {Variant(field).Get()}).Object(), L"Value");
        EXPECT_EQ(value.ChangeType(VT_BSTR), S_OK);
        return win32::ToUtf8(value.Get().bstrVal);
    }

    doubles::Script script_;
    ComPtr<IDispatch> connection_;
};

TEST_F(HostObjects, MemberNamesAreFoundWithoutRegardToCase) {
    EXPECT_EQ(GetInt(connection_, L"sTATE"), 1);
    EXPECT_EQ(NumberOf([&] { Run(connection_, L"NoSuchMember"); }), 438);
}

TEST_F(HostObjects, ARecordsetOpensOnAConnectionAndWalksItsRows) {
    auto recordset = Opened("select * from people");
    EXPECT_EQ(GetInt(recordset, L"State"), 1);
    EXPECT_FALSE(GetBool(recordset, L"BOF"));
    EXPECT_EQ(FieldText(recordset, "name"), "王");
    Run(recordset, L"MoveNext");
    EXPECT_EQ(FieldText(recordset, "NAME"), "李");
    Run(recordset, L"MoveNext");
    Run(recordset, L"MoveNext");
    EXPECT_TRUE(GetBool(recordset, L"EOF"));
    EXPECT_EQ(NumberOf([&] { Run(recordset, L"MoveNext"); }), 3021);
    Run(recordset, L"MoveFirst");
    EXPECT_EQ(FieldText(recordset, "name"), "王");
    Run(recordset, L"Close");
    EXPECT_EQ(GetInt(recordset, L"State"), 0);
}

TEST_F(HostObjects, ATableNameIsASourceToo) {
    EXPECT_EQ(FieldText(Opened("people"), "name"), "王");
    EXPECT_EQ(script_.opened.back(), "select * from people");
}

TEST_F(HostObjects, AnEmptyAnswerStandsBeforeAndBehindItsRows) {
    auto recordset = Opened("select * from nobody");
    EXPECT_TRUE(GetBool(recordset, L"BOF"));
    EXPECT_TRUE(GetBool(recordset, L"EOF"));
    EXPECT_EQ(NumberOf([&] { Run(recordset, L"MoveFirst"); }), 3021);
    EXPECT_EQ(NumberOf([&] { Run(recordset, L"GetRows"); }), 3021);
}

TEST_F(HostObjects, FieldsAreCountedNamedAndWalked) {
    auto recordset = Opened("select * from people");
    auto fields = Get(recordset, L"Fields").Object();
    EXPECT_EQ(GetInt(fields, L"Count"), 2);
    auto second = Get(fields, L"Item", {Variant(std::int16_t{1}).Get()}).Object();
    EXPECT_EQ(win32::ToUtf8(Get(second, L"Name").Get().bstrVal), "Name");
    const Variant unknown = Get(fields, L"_NewEnum");
    ASSERT_EQ(unknown.Type(), VT_UNKNOWN);
    auto walker = ComPtr<IUnknown>(unknown.Get().punkVal).As<IEnumVARIANT>(IID_IEnumVARIANT);
    ASSERT_TRUE(walker);
    Variant items[3];
    ULONG fetched = 0;
    EXPECT_EQ(walker->Next(3, &items[0].Ref(), &fetched), S_FALSE);
    EXPECT_EQ(fetched, 2u);

    EXPECT_EQ(walker->Reset(), S_OK);
    EXPECT_EQ(walker->Skip(1), S_OK);
    ComPtr<IEnumVARIANT> copy;
    ASSERT_EQ(walker->Clone(copy.Put()), S_OK);
    Variant last;
    EXPECT_EQ(copy->Next(1, &last.Ref(), nullptr), S_OK);
    EXPECT_EQ(win32::ToUtf8(Get(last.Object(), L"Name").Get().bstrVal), "Name");
    EXPECT_EQ(copy->Skip(1), S_FALSE);

    Run(recordset, L"Close");
    walker->Reset();
    Variant none;
    EXPECT_TRUE(FAILED(walker->Next(1, &none.Ref(), nullptr)));
}

TEST_F(HostObjects, AnUnknownFieldAnswers3265) {
    auto recordset = Opened("select * from people");
    EXPECT_EQ(NumberOf([&] { Get(recordset, L"Fields", {Variant("x").Get()}); }), 3265);
    EXPECT_EQ(NumberOf([&] { Get(recordset, L"Fields", {Variant(std::int32_t{2}).Get()}); }), 3265);
    EXPECT_EQ(NumberOf([&] { Get(recordset, L"Fields", {Variant(std::int32_t{-1}).Get()}); }),
              3265);
}

TEST_F(HostObjects, AFieldFollowsTheCurrentRowAndDiesWithTheOpening) {
    auto recordset = Opened("select * from people");
    auto field = Get(recordset, L"Fields", {Variant("id").Get()}).Object();
    EXPECT_EQ(GetInt(field, L"Value"), 1);
    Run(recordset, L"MoveNext");
    EXPECT_EQ(GetInt(field, L"Value"), 2);
    Run(recordset, L"Requery");
    EXPECT_EQ(NumberOf([&] { Get(field, L"Value"); }), 3420);
    Run(recordset, L"Close");
    EXPECT_EQ(NumberOf([&] { Get(field, L"Value"); }), 3704);
}

TEST_F(HostObjects, GetRowsAnswersColumnsFirstAndMovesBehindThem) {
    auto recordset = Opened("select * from people");
    const Variant block = Run(recordset, L"GetRows", {Variant(std::int32_t{2}).Get()});
    ASSERT_EQ(block.Type(), VT_ARRAY | VT_VARIANT);
    LONG upper = 0;
    EXPECT_EQ(SafeArrayGetUBound(block.Get().parray, 1, &upper), S_OK);
    EXPECT_EQ(upper, 1);
    EXPECT_EQ(SafeArrayGetUBound(block.Get().parray, 2, &upper), S_OK);
    EXPECT_EQ(upper, 1);
    LONG at[2] = {1, 1};
    Variant cell;
    EXPECT_EQ(SafeArrayGetElement(block.Get().parray, at, cell.Put()), S_OK);
    EXPECT_EQ(win32::ToUtf8(cell.Get().bstrVal), "李");
    EXPECT_EQ(FieldText(recordset, "id"), "3");
    const Variant rest = Run(recordset, L"GetRows");
    EXPECT_EQ(SafeArrayGetUBound(rest.Get().parray, 2, &upper), S_OK);
    EXPECT_EQ(upper, 0);
    EXPECT_TRUE(GetBool(recordset, L"EOF"));
}

TEST_F(HostObjects, AddNewAndUpdateWriteARow) {
    auto recordset = Opened("select * from people");
    Run(recordset, L"AddNew");
    Member value(L"Value");
    PutProperty(*Get(recordset, L"Fields", {Variant("name").Get()}).Object(), value,
                Variant("新").Get());
    Run(recordset, L"Update");
    const auto& rows = script_.answers["select * from people"].rows;
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_TRUE(rows[3][0].IsNull());
    EXPECT_EQ(rows[3][1], Value("新"));
}

TEST_F(HostObjects, AssigningThroughTheDefaultMemberSetsAField) {
    auto recordset = Opened("select * from people");
    const Variant value("改");
    const Variant name("Name");
    VARIANT arguments[2] = {value.Get(), name.Get()};
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{arguments, &put, 2, 1};
    EXPECT_EQ(recordset->Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters,
                                nullptr, nullptr, nullptr),
              S_OK);
    EXPECT_EQ(FieldText(recordset, "name"), "改");
}

TEST_F(HostObjects, RowsOpenedToBeReadRefuseChanges) {
    auto recordset = Opened("select * from people", 3, 1);
    EXPECT_EQ(NumberOf([&] { Run(recordset, L"AddNew"); }), 3251);
    Member value(L"Value");
    auto field = Get(recordset, L"Fields", {Variant("name").Get()}).Object();
    EXPECT_EQ(NumberOf([&] { PutProperty(*field, value, Variant("x").Get()); }), 3251);
}

TEST_F(HostObjects, RecordCountIsCountedUnlessRowsOnlyRunForward) {
    EXPECT_EQ(GetInt(Opened("select * from people", 3, 1), L"RecordCount"), 3);
    EXPECT_EQ(GetInt(Opened("select * from people", 0, 1), L"RecordCount"), -1);
}

TEST_F(HostObjects, AnOpenRecordsetCannotBeOpenedAgain) {
    auto recordset = Opened("select * from people");
    EXPECT_EQ(NumberOf([&] { Run(recordset, L"Open", {Variant("select * from people").Get()}); }),
              3705);
}

TEST_F(HostObjects, ARecordsetNeedsAConnectionOfItsKind) {
    auto recordset = NewRecordset();
    EXPECT_EQ(
        NumberOf([&] {
            Run(recordset, L"Open", {Variant("people").Get(), Variant(recordset.Get()).Get()});
        }),
        3001);
    EXPECT_EQ(NumberOf([&] { Run(recordset, L"Open", {Variant("people").Get()}); }), 3001);
}

TEST_F(HostObjects, ExecuteReportsTheRowsChangedAndAnswersAClosedRecordset) {
    script_.affected = 2;
    Variant affected;
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &affected.Ref();
    auto result =
        Run(connection_, L"Execute", {Variant("update people set x=1").Get(), reference}).Object();
    EXPECT_EQ(affected.Get().lVal, 2);
    ASSERT_TRUE(result);
    EXPECT_EQ(GetInt(result, L"State"), 0);
}

TEST_F(HostObjects, AClosedConnectionOpensAgain) {
    Run(connection_, L"Close");
    EXPECT_EQ(GetInt(connection_, L"State"), 0);
    EXPECT_EQ(NumberOf([&] { Run(connection_, L"Execute", {Variant("x").Get()}); }), 3704);
    Run(connection_, L"Open");
    EXPECT_EQ(GetInt(connection_, L"State"), 1);
    EXPECT_EQ(script_.opens, 2);
}

TEST_F(HostObjects, AFailureCarriesItsDetailsBothWays) {
    auto* name = const_cast<wchar_t*>(L"Execute");
    DISPID id = 0;
    ASSERT_EQ(connection_->GetIDsOfNames(IID_NULL, &name, 1, 0, &id), S_OK);
    Variant statement("fail");
    DISPPARAMS parameters{&statement.Ref(), nullptr, 1, 0};
    EXCEPINFO info{};
    EXPECT_EQ(
        connection_->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, &info, nullptr),
        DISP_E_EXCEPTION);
    EXPECT_EQ(static_cast<std::uint32_t>(info.scode), 0x80040E14u);
    win32::Bstr source, text;
    *source.Put() = info.bstrSource;
    *text.Put() = info.bstrDescription;
    EXPECT_EQ(source.Utf8(), "Engine");
    EXPECT_EQ(text.Utf8(), "语句错误: fail");
    // A caller that brings no room for them finds the details with the thread.
    EXPECT_EQ(static_cast<std::uint32_t>(connection_->Invoke(
                  id, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr)),
              0x80040E14u);
    ComPtr<IErrorInfo> error;
    ASSERT_EQ(GetErrorInfo(0, error.Put()), S_OK);
    EXPECT_EQ(error->GetDescription(text.Put()), S_OK);
    EXPECT_EQ(text.Utf8(), "语句错误: fail");
}

TEST_F(HostObjects, AReferenceToTheConnectionOutlivesTheCallers) {
    auto recordset = Opened("select * from people");
    connection_.Reset();
    EXPECT_EQ(FieldText(recordset, "name"), "王");
}

}  // namespace
}  // namespace zv::host
