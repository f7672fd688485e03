// The report component's object as any automation client calls it.
#include "report/windows/print_object.h"

#include <gtest/gtest.h>

#include "report/windows/automation_lists.h"
#include "report/windows/font_files.h"
#include "store/ado/calls.h"

namespace zv::host {
namespace {

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
        EXPECT_FALSE(error.Text().empty());
        return static_cast<int>(error.Number());
    }
    return 0;
}

class PrintObjectTest : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
        object_ = ComPtr<IDispatch>::Attach(static_cast<IDispatch*>(new PrintObject()));
    }
    void TearDown() override {
        object_.Reset();
        EXPECT_EQ(automation::module::Locks(), 0);
        CoUninitialize();
    }
    void Put(const wchar_t* name, const Variant& value) {
        Member member(name);
        PutProperty(*object_, member, value.Get());
    }
    Variant Get(const wchar_t* name) {
        Member member(name);
        return GetProperty(*object_, member);
    }
    int Print() {
        return NumberOf([&] {
            Member member(L"PrintOut");
            Call(*object_, member);
        });
    }
    ComPtr<IDispatch> object_;
};

TEST_F(PrintObjectTest, PropertiesKeepWhatTheyAreGiven) {
    for (const wchar_t* name :
         {L"UserPath", L"UserID", L"Default", L"UserName", L"CompName", L"ReportName", L"Title",
          L"SubTitle", L"Filter", L"Order", L"OutputFile", L"PrinterName", L"Criteria"}) {
        Put(name, Variant("任务"));
        const Variant value = Get(name);
        ASSERT_EQ(value.Type(), VT_BSTR);
        EXPECT_STREQ(value.Get().bstrVal, L"任务") << name;
    }
    for (const wchar_t* name : {L"SQLData", L"Language", L"PrintMode", L"Copies"}) {
        Put(name, Variant(std::int32_t{1}));
        EXPECT_EQ(Get(name).Get().lVal, 1);
    }
}

TEST_F(PrintObjectTest, ThePasswordCannotBeRead) {
    Put(L"Password", Variant("secret"));
    EXPECT_EQ(NumberOf([&] { Get(L"Password"); }), 438);
}

TEST_F(PrintObjectTest, ANumberThatIsNoneIsATypeMismatch) {
    EXPECT_EQ(NumberOf([&] { Put(L"PrintMode", Variant("x")); }), 13);
}

TEST_F(PrintObjectTest, AModeThatThereIsNotIsRefused) {
    Put(L"ReportName", Variant("zvTask01"));
    Put(L"PrintMode", Variant(std::int32_t{4}));
    EXPECT_EQ(Print(), 5);
}

TEST_F(PrintObjectTest, NothingToPrintIsRefused) {
    EXPECT_EQ(Print(), 5);
    Put(L"ReportName", Variant("zvTask02"));
    EXPECT_EQ(Print(), 5);
}

TEST_F(PrintObjectTest, AnUnknownPrinterIsThePrintersError) {
    Put(L"ReportName", Variant("zvTask01"));
    Put(L"PrintMode", Variant(std::int32_t{1}));
    Put(L"PrinterName", Variant("no such printer"));
    EXPECT_EQ(Print(), 482);
}

TEST_F(PrintObjectTest, AnObjectIsLetGoWhenItIsSetToNothing) {
    auto other = ComPtr<IDispatch>::Attach(static_cast<IDispatch*>(new PrintObject()));
    Put(L"Grid", Variant(other.Get()));
    EXPECT_EQ(automation::module::Locks(), 2);
    other.Reset();
    EXPECT_EQ(automation::module::Locks(), 2);
    Put(L"Grid", Variant(static_cast<IDispatch*>(nullptr)));
    EXPECT_EQ(automation::module::Locks(), 1);
}

TEST(ReadTexts, TakesArraysOfTexts) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, 5, 2);
    for (LONG i = 5; i < 7; i++) {
        const BSTR text = SysAllocString(i == 5 ? L"甲" : L"乙");
        SafeArrayPutElement(array, &i, text);
        SysFreeString(text);
    }
    Variant list;
    list.Ref().vt = VT_ARRAY | VT_BSTR;
    list.Ref().parray = array;
    EXPECT_EQ(report::ReadTexts(list), (std::vector<std::string>{"甲", "乙"}));
}

TEST(ReadTexts, NothingIsNoTexts) {
    EXPECT_TRUE(report::ReadTexts(Variant()).empty());
    EXPECT_TRUE(report::ReadTexts(Variant(static_cast<IDispatch*>(nullptr))).empty());
}

TEST(ReadTexts, RefusesWhatIsNoList) {
    EXPECT_EQ(NumberOf([] { report::ReadTexts(Variant(std::int32_t{3})); }), 13);
}

TEST(FontFiles, FindAFontForEachScriptAndDeleteTheirCopies) {
    std::string path;
    {
        report::FontFiles files;
        for (const std::int16_t language : {std::int16_t{0}, std::int16_t{1}}) {
            const auto sources = files.ForLanguage(language, 1);
            ASSERT_EQ(sources.size(), 1u);
            const report::FontSet fonts(sources);
            EXPECT_FALSE(fonts.Find(U'务').isReplacement);
            EXPECT_FALSE(fonts.Find(U'務').isReplacement);
            path = sources[0].path;
        }
        EXPECT_NE(GetFileAttributesW(win32::ToWide(path).c_str()), INVALID_FILE_ATTRIBUTES);
    }
    EXPECT_EQ(GetFileAttributesW(win32::ToWide(path).c_str()), INVALID_FILE_ATTRIBUTES);
}

}  // namespace
}  // namespace zv::host
