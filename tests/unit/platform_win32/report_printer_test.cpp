#include <gtest/gtest.h>
#include <windows.h>

#include <objbase.h>

#include <functional>
#include <map>

#include "base/errors.h"
#include "base/win32/com_error.h"
#include "base/win32/wide.h"
#include "platform/win32/host_report_printer.h"
#include "platform/win32/report_objects.h"
#include "store/ado/calls.h"

namespace zv::platform::win32 {
namespace {

using store::ado::GetProperty;
using store::ado::Member;
using zv::win32::ComPtr;
using zv::win32::Variant;
using Lines = std::vector<std::string>;

/// What the stand-in for the component was told, and how it answers.
struct Told {
    Lines calls;  ///< "NAME=VALUE", "NAME" for a method, in order
    int created = 0;
    std::map<std::wstring, DISPID> names;
    std::wstring unknown;  ///< the component has no such member
    std::string refused;   ///< assigning this property, or calling this method, fails
    ComPtr<IDispatch> parameters, columns, grid, recordset;
    Lines seenWhilePrinting;
    std::function<void()> whilePrinting;
};
Told* told = nullptr;

std::string TextOf(const VARIANT& value) {
    if (value.vt == VT_DISPATCH) return value.pdispVal ? "object" : "nothing";
    Variant text = Variant::Copy(value);
    return SUCCEEDED(text.ChangeType(VT_BSTR)) ? zv::win32::ToUtf8(text.Get().bstrVal) : "?";
}

std::string Read(IDispatch& object, const wchar_t* name, store::ado::ArgumentList arguments = {}) {
    Member member(name);
    return TextOf(GetProperty(object, member, arguments).Get());
}

class StandIn final : public IDispatch {
 public:
    StandIn() { told->created++; }
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (iid != IID_IUnknown && iid != IID_IDispatch) return E_NOINTERFACE;
        *object = this;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        if (names[0] == told->unknown) return DISP_E_UNKNOWNNAME;
        const auto next = static_cast<DISPID>(told->names.size() + 1);
        *ids = told->names.emplace(names[0], next).first->second;
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT*,
                        EXCEPINFO* info, UINT*) override {
        std::string name;
        for (const auto& [known, number] : told->names) {
            if (number == id) name = zv::win32::ToUtf8(known);
        }
        if (name == told->refused) {
            *info = {};
            info->scode = zv::win32::ToHresult(static_cast<ErrorNumber>(482));
            info->bstrDescription = zv::win32::AllocateBstr(std::string_view("打印机错误"));
            return DISP_E_EXCEPTION;
        }
        if (kind == DISPATCH_METHOD) {
            told->calls.push_back(name);
            if (told->whilePrinting) told->whilePrinting();
            if (told->grid) {
                told->seenWhilePrinting.push_back(Read(*told->grid, L"RowCount"));
            }
            return parameters->cArgs == 0 ? S_OK : DISP_E_BADPARAMCOUNT;
        }
        const VARIANT& value = parameters->rgvarg[0];
        told->calls.push_back(name + "=" + TextOf(value));
        if (value.vt == VT_DISPATCH) {
            if ((kind & DISPATCH_PROPERTYPUTREF) == 0) return DISP_E_MEMBERNOTFOUND;
            ComPtr<IDispatch>& kept = name == "Parameters" ? told->parameters
                                      : name == "Columns"  ? told->columns
                                      : name == "Grid"     ? told->grid
                                                           : told->recordset;
            kept = ComPtr<IDispatch>(value.pdispVal);
        }
        return S_OK;
    }

 private:
    virtual ~StandIn() = default;
    ULONG references_ = 1;
};

class StandInFactory final : public IClassFactory {
 public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
        *object = this;
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID iid, void** object) override {
        auto made = ComPtr<StandIn>::Attach(new StandIn());
        return made->QueryInterface(iid, object);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
};

class Table final : public ReportTable {
 public:
    int RowCount() const override { return 2; }
    int ColumnCount() const override { return 3; }
    std::string Heading(int column) const override { return "标题" + std::to_string(column); }
    int ColumnWidth(int column) const override { return 10 * column; }
    std::string Text(int row, int column) const override {
        if (row < 1 || row > 2) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        return std::to_string(row) + "/" + std::to_string(column);
    }
};

// {2B6F5E0C-6B0E-4F0B-9A53-6B3B3C1C7A10}
constexpr GUID kStandInClass = {
    0x2B6F5E0C, 0x6B0E, 0x4F0B, {0x9A, 0x53, 0x6B, 0x3B, 0x3C, 0x1C, 0x7A, 0x10}};
constexpr wchar_t kClassKey[] = L"zvPrint_ADO.zvPrint\\CLSID";

/// Meanwhile the component's name stands for the class of the stand-in in this process.
class ReportPrinterTest : public testing::Test {
 protected:
    void SetUp() override {
        told = &told_;
        wchar_t id[64];
        DWORD size = sizeof id;
        if (RegGetValueW(HKEY_CLASSES_ROOT, kClassKey, nullptr, RRF_RT_REG_SZ, nullptr, id,
                         &size) == ERROR_SUCCESS) {
            registered_ = id;
        }
        ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    }
    void TearDown() override {
        printer_.Release();
        told_ = {};
        if (cookie_) CoRevokeClassObject(cookie_);
        if (registered_.empty())
            RegDeleteTreeW(HKEY_CLASSES_ROOT, HostReportPrinter::kProgId);
        else
            Name(registered_);
        CoUninitialize();
    }
    /// The name alone: its class is nowhere.
    void RegisterName() {
        wchar_t id[64];
        StringFromGUID2(kStandInClass, id, 64);
        ASSERT_EQ(Name(id), ERROR_SUCCESS);
    }
    static LSTATUS Name(const std::wstring& id) {
        return RegSetKeyValueW(HKEY_CLASSES_ROOT, kClassKey, nullptr, REG_SZ, id.c_str(),
                               static_cast<DWORD>((id.size() + 1) * sizeof(wchar_t)));
    }
    void Register() {
        RegisterName();
        ASSERT_EQ(CoRegisterClassObject(kStandInClass, &factory_, CLSCTX_INPROC_SERVER,
                                        REGCLS_MULTIPLEUSE, &cookie_),
                  S_OK);
    }
    RuntimeError ErrorOf(const ReportJob& job) {
        try {
            printer_.Print(job);
        } catch (const RuntimeError& error) {
            return error;
        }
        ADD_FAILURE() << "no error";
        return RuntimeError(ErrorNumber::InternalError);
    }
    std::string Last(const std::string& name) const {
        std::string value;
        for (const std::string& call : told_.calls) {
            if (call.starts_with(name + "=")) value = call.substr(name.size() + 1);
        }
        return value;
    }

    std::wstring registered_;  ///< class of the component on this machine, given back at the end
    Told told_;
    StandInFactory factory_;
    DWORD cookie_ = 0;
    HostReportPrinter printer_;
};

TEST_F(ReportPrinterTest, WithoutTheComponentIsError429ThatNamesIt) {
    RegisterName();
    const RuntimeError error = ErrorOf({});
    EXPECT_EQ(error.Number(), ErrorNumber::CannotCreateObject);
    EXPECT_NE(error.Text().find("zvPrint_ADO.zvPrint"), std::string::npos);
    EXPECT_THROW(printer_.Prepare(), RuntimeError);
}

TEST_F(ReportPrinterTest, IsCreatedOnceAndKept) {
    Register();
    printer_.Prepare();
    printer_.Prepare();
    printer_.Print({});
    printer_.Print({});
    EXPECT_EQ(told_.created, 1);
    printer_.Release();
    printer_.Print({});
    EXPECT_EQ(told_.created, 2);
}

TEST_F(ReportPrinterTest, PutsEveryPropertyAndPrintsLast) {
    Register();
    ReportJob job;
    job.printMode = 2;
    job.reportName = "zvTask02";
    job.title = "任务列表";
    job.subTitle = "副";
    job.filter = "a.fType=0 ";
    job.order = "a.fType";
    job.asked = "日期：不限";
    job.connection = {1, "C:\\数据\\t.mdb", "pw", "sa", "tasks"};
    job.userName = "张三";
    job.companyHeading = "某公司";
    job.language = 1;
    job.copyright = true;
    printer_.Print(job);
    EXPECT_EQ(told_.calls, (Lines{"UserPath=C:\\数据\\t.mdb",
                                  "Password=pw",
                                  "SQLData=1",
                                  "UserID=sa",
                                  "Default=tasks",
                                  "UserName=张三",
                                  "CompName=某公司",
                                  "Language=1",
                                  "Copyright=True",
                                  "PrintMode=2",
                                  "ReportName=zvTask02",
                                  "Title=任务列表",
                                  "SubTitle=副",
                                  "Filter=a.fType=0 ",
                                  "Order=a.fType",
                                  "Parameters=object",
                                  "Columns=object",
                                  "Recordset=nothing",
                                  "Grid=nothing",
                                  "Criteria=日期：不限",
                                  "PrintOut"}));
}

TEST_F(ReportPrinterTest, AComponentThatKnowsNoCriteriaPrintsAllTheSame) {
    Register();
    told_.unknown = L"Criteria";
    ReportJob job;
    job.asked = "日期：不限";
    printer_.Print(job);
    EXPECT_EQ(told_.calls.back(), "PrintOut");
    EXPECT_EQ(Last("Criteria"), "");
    // What it must know, it must know.
    told_.unknown = L"Title";
    EXPECT_EQ(ErrorOf(job).Number(), ErrorNumber::MemberNotFound);
}

TEST_F(ReportPrinterTest, CollectionsAreReadByNumberAndByEnumeration) {
    Register();
    ReportJob job;
    job.parameters = {"(主题)\tTaskTitle", "报表"};
    printer_.Print(job);
    IDispatch& parameters = *told_.parameters;
    EXPECT_EQ(Read(parameters, L"Count"), "2");
    EXPECT_EQ(Read(parameters, L"item", {Variant(std::int32_t{1}).Get()}), "(主题)\tTaskTitle");
    const Variant position("2");
    EXPECT_EQ(Read(parameters, L"Item", {position.Get()}), "报表");
    for (const std::int32_t outside : {-1, 0, 3}) {
        try {
            Read(parameters, L"Item", {Variant(outside).Get()});
            ADD_FAILURE() << outside;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::SubscriptOutOfRange);
        }
    }
    Member newEnum(L"_NewEnum");
    const Variant value = GetProperty(parameters, newEnum);
    ASSERT_EQ(value.Type(), VT_UNKNOWN);
    const auto each = ComPtr<IUnknown>(value.Get().punkVal).As<IEnumVARIANT>(IID_IEnumVARIANT);
    ASSERT_TRUE(each);
    Lines seen;
    for (;;) {
        Variant item;
        ULONG fetched = 0;
        if (each->Next(1, item.Put(), &fetched) != S_OK) break;
        seen.push_back(TextOf(item.Get()));
    }
    EXPECT_EQ(seen, job.parameters);
    ComPtr<IEnumVARIANT> copy;
    EXPECT_EQ(each->Reset(), S_OK);
    EXPECT_EQ(each->Skip(1), S_OK);
    ASSERT_EQ(each->Clone(copy.Put()), S_OK);
    Variant rest[2];
    VARIANT raw[2];
    ULONG fetched = 0;
    EXPECT_EQ(copy->Next(2, raw, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 1u);
    rest[0] = Variant::Take(raw[0]);
    EXPECT_EQ(TextOf(rest[0].Get()), "报表");
    EXPECT_EQ(copy->Skip(1), S_FALSE);
    EXPECT_EQ(Read(*told_.columns, L"Count"), "0");
}

TEST_F(ReportPrinterTest, TheGridIsReadWhileItIsPrintedAndGoneAfterwards) {
    Register();
    const Table table;
    ReportJob job;
    job.grid = &table;
    printer_.Print(job);
    EXPECT_EQ(told_.seenWhilePrinting, Lines{"2"});
    try {
        Read(*told_.grid, L"RowCount");
        ADD_FAILURE() << "a table that is gone was read";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::ObjectNotSet);
    }
}

TEST_F(ReportPrinterTest, TheNextJobWithoutAGridTakesItAway) {
    Register();
    const Table table;
    ReportJob job;
    job.grid = &table;
    printer_.Print(job);
    printer_.Print({});
    EXPECT_EQ(Last("Grid"), "nothing");
    EXPECT_FALSE(told_.grid);
}

TEST_F(ReportPrinterTest, TheComponentsErrorReachesTheCaller) {
    Register();
    told_.refused = "PrintOut";
    const Table table;
    ReportJob job;
    job.grid = &table;
    const RuntimeError error = ErrorOf(job);
    EXPECT_EQ(static_cast<int>(error.Number()), 482);
    EXPECT_EQ(error.Text(), "打印机错误");
    EXPECT_THROW(Read(*told_.grid, L"RowCount"), RuntimeError);
    told_.refused = "Title";
    EXPECT_EQ(static_cast<int>(ErrorOf(job).Number()), 482);
    EXPECT_NE(told_.calls.back(), "PrintOut");
}

TEST_F(ReportPrinterTest, OnePrintAtATime) {
    Register();
    int number = 0;
    told_.whilePrinting = [&] {
        printer_.Release();
        number = static_cast<int>(ErrorOf({}).Number());
    };
    printer_.Print({});
    EXPECT_EQ(number, 400);
    EXPECT_EQ(told_.calls.back(), "PrintOut");
    told_.whilePrinting = nullptr;
    EXPECT_NO_THROW(printer_.Print({}));
}

TEST(TableObject, OffersTheTable) {
    const Table table;
    const auto object = zv::win32::MakeCom<TableObject>(table);
    const Variant one(std::int32_t{1}), two(std::int32_t{2}), nine(std::int32_t{9});
    EXPECT_EQ(Read(*object, L"RowCount"), "2");
    EXPECT_EQ(Read(*object, L"ColumnCount"), "3");
    EXPECT_EQ(Read(*object, L"Heading", {two.Get()}), "标题2");
    EXPECT_EQ(Read(*object, L"ColumnWidth", {two.Get()}), "20");
    EXPECT_EQ(Read(*object, L"Text", {two.Get(), one.Get()}), "2/1");
    EXPECT_EQ(Read(*object, L"Sign", {two.Get()}), "");
    EXPECT_THROW(Read(*object, L"Sign"), RuntimeError);
    EXPECT_THROW(Read(*object, L"Text", {nine.Get(), one.Get()}), RuntimeError);
    EXPECT_THROW(Read(*object, L"Text", {one.Get()}), RuntimeError);
    EXPECT_THROW(Read(*object, L"Text", {Variant("x").Get(), one.Get()}), RuntimeError);
    EXPECT_THROW(Read(*object, L"NoSuchMember"), RuntimeError);
}

}  // namespace
}  // namespace zv::platform::win32
