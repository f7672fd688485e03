// The registered control, opener, module runner and report component with secrets in their
// settings: no error and no box shows one.
#include <windows.h>

#include <gtest/gtest.h>

#include <memory>

#include "base/text.h"
#include "box_reader.h"
#include "secrets/connection_texts.h"
#include "store/ado/calls.h"

namespace zv::secrets {
namespace {

using store::ado::Call;
using store::ado::Member;
using store::ado::PutProperty;
using win32::ComPtr;
using win32::Variant;

class Apartment {
 public:
    Apartment() { OleInitialize(nullptr); }
    ~Apartment() { OleUninitialize(); }
};

ComPtr<IDispatch> Create(const wchar_t* name) {
    CLSID classId{};
    ComPtr<IDispatch> object;
    if (SUCCEEDED(CLSIDFromProgID(name, &classId))) {
        CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.PutVoid());
    }
    return object;
}

void Put(IDispatch& object, const wchar_t* name, const Variant& value) {
    Member member(name);
    PutProperty(object, member, value.Get());
}

void PutConnection(IDispatch& object, const ConnectionCase& given) {
    Put(object, L"UserPath", Variant(std::string_view(given.path)));
    Put(object, L"Password", Variant(std::string_view(given.password)));
    Put(object, L"UserID", Variant(std::string_view(given.login)));
    Put(object, L"SQLData", Variant(std::int16_t{given.kind}));
}

bool HoldsCanary(const std::string& text) {
    return text::Contains(text::ToLower(text), text::ToLower(kCanary));
}

class Secrets : public testing::TestWithParam<ConnectionCase> {
 protected:
    static void SetUpTestSuite() { apartment_ = std::make_unique<Apartment>(); }
    static void TearDownTestSuite() { apartment_.reset(); }

    /// Text and source of the error that `act` ends in.
    template <class Act>
    static std::string ErrorOf(Act act) {
        try {
            act();
        } catch (const RuntimeError& error) {
            return error.Text() + "\n" + error.Source();
        }
        ADD_FAILURE() << "nothing fails";
        return {};
    }

    static std::unique_ptr<Apartment> apartment_;
};
std::unique_ptr<Apartment> Secrets::apartment_;

TEST_P(Secrets, AreNeitherInAnErrorNorInABoxOfTheControl) {
    const auto control = Create(L"zv_Task.zvTask");
    ASSERT_TRUE(control);
    BoxReader boxes;
    for (const std::int16_t language : {std::int16_t{0}, std::int16_t{1}}) {
        PutConnection(*control, GetParam());
        Put(*control, L"Language", Variant(language));
        Member refresh(L"refresh");
        const std::string error = ErrorOf([&] {
            Call(*control, refresh,
                 {Variant(std::int32_t{8}).Get(), Variant(std::int16_t{0}).Get()});
        });
        EXPECT_FALSE(HoldsCanary(error)) << error;
        EXPECT_FALSE(error.empty());
        const std::string box = boxes.Take();
        EXPECT_FALSE(box.empty());
        EXPECT_FALSE(HoldsCanary(box)) << box;
    }
}

TEST_P(Secrets, AreNotInAnErrorOfTheOpener) {
    const auto opener = Create(L"zv_Host.Opener");
    ASSERT_TRUE(opener);
    const ConnectionCase& given = GetParam();
    const Variant path{std::string_view(given.path)};
    const Variant password{std::string_view(given.password)};
    const Variant login{std::string_view(given.login)};
    const Variant database{std::string_view("tasks")};
    Member open(L"OpenConnection");
    const std::string error = ErrorOf([&] {
        Call(*opener, open,
             {Variant(std::int32_t{given.kind}).Get(), path.Get(), password.Get(), login.Get(),
              database.Get()});
    });
    EXPECT_FALSE(HoldsCanary(error)) << error;
}

TEST_P(Secrets, AreNotInAnErrorOfTheModuleRunner) {
    const auto runner = Create(L"zv_Host.ModuleRunner");
    ASSERT_TRUE(runner);
    PutConnection(*runner, GetParam());
    Put(*runner, L"ModuleName", Variant(std::string_view("noSuchModule")));
    Member start(L"Start");
    const std::string error = ErrorOf([&] { Call(*runner, start); });
    EXPECT_FALSE(HoldsCanary(error)) << error;
}

TEST_P(Secrets, AreNotInAnErrorOfTheReportComponent) {
    const auto printer = Create(L"zvPrint_ADO.zvPrint");
    ASSERT_TRUE(printer);
    PutConnection(*printer, GetParam());
    Put(*printer, L"ReportName", Variant(std::string_view("zvTask02")));
    Put(*printer, L"PrintMode", Variant(std::int32_t{2}));
    Put(*printer, L"OutputFile", Variant(std::string_view("C:\\no such folder\\a.pdf")));
    Member print(L"PrintOut");
    const std::string error = ErrorOf([&] { Call(*printer, print); });
    EXPECT_FALSE(HoldsCanary(error)) << error;
}

std::string NameOf(const testing::TestParamInfo<ConnectionCase>& info) {
    return "Text" + std::to_string(info.index);
}
INSTANTIATE_TEST_SUITE_P(All, Secrets, testing::ValuesIn(kConnectionCases), NameOf);

}  // namespace
}  // namespace zv::secrets
