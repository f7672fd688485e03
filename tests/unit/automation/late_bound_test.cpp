// The client against an object of our own server.
#include "automation/late_bound.h"

#include <gtest/gtest.h>

#include <array>

#include "automation/dispatch.h"

namespace zv::automation {
namespace {

using win32::ComPtr;
using win32::Variant;

class Box final : public DispatchObject<Box> {
 public:
    static constexpr std::string_view kSourceName = "Box";
    static std::span<const MemberEntry<Box>> Members() {
        static constexpr std::array<MemberEntry<Box>, 3> kMembers{
            Offers<&Box::Join>(L"Join", 1), Offers<&Box::Held, &Box::Hold>(L"Held", 2),
            Offers<&Box::Fail>(L"Fail", 3)};
        return kMembers;
    }

 private:
    Variant Join(const Arguments& arguments) {
        return Variant(arguments.Text(0) + "-" + arguments.Text(1));
    }
    Variant Held(const Arguments&) { return Variant::Copy(held_.Get()); }
    void Hold(const Arguments& arguments) { held_ = arguments.Assigned(); }
    Variant Fail(const Arguments&) {
        throw RuntimeError(ErrorNumber::DatabaseFailure, "no", "Engine").Of(ErrorKind::DiskFull);
    }

    Variant held_;
};

class LateBoundTest : public testing::Test {
 protected:
    RuntimeError ErrorOf(const wchar_t* name) {
        try {
            box_.Call(name);
        } catch (const RuntimeError& error) {
            return error;
        }
        ADD_FAILURE() << "no error";
        return RuntimeError(ErrorNumber::InternalError);
    }

    ComPtr<IDispatch> object_ = ComPtr<IDispatch>::Attach(static_cast<IDispatch*>(new Box()));
    LateBound box_{object_};
};

TEST_F(LateBoundTest, CallsAndPropertiesGoByName) {
    const Variant answer = box_.Call(L"JOIN", {Variant("甲").Get(), Variant("乙").Get()});
    EXPECT_EQ(win32::ToUtf8(answer.Get().bstrVal), "甲-乙");
    box_.Put(L"Held", Variant(std::int32_t{7}));
    EXPECT_EQ(box_.Get(L"held").Get().lVal, 7);
    Member held(L"Held");
    EXPECT_THROW(GetObjectProperty(*object_, held), RuntimeError);
    PutProperty(*object_, held, Variant(object_.Get()).Get());
    EXPECT_EQ(GetObjectProperty(*object_, held), object_);
    PutProperty(*object_, held, Variant().Get());
}

TEST_F(LateBoundTest, AnErrorComesOverWithNumberTextSourceAndKind) {
    const unsigned before = FailedCalls();
    const RuntimeError error = ErrorOf(L"Fail");
    EXPECT_EQ(error.Number(), ErrorNumber::DatabaseFailure);
    EXPECT_EQ(error.Text(), "no");
    EXPECT_EQ(error.Source(), "Engine");
    EXPECT_EQ(error.Kind(), ErrorKind::DiskFull);
    EXPECT_EQ(FailedCalls(), before + 1);
}

TEST_F(LateBoundTest, AMemberThatIsNotThereIsNamed) {
    Member none(L"Nothing");
    EXPECT_FALSE(none.IsOffered(*object_));
    const RuntimeError error = ErrorOf(L"Nothing");
    EXPECT_EQ(error.Number(), ErrorNumber::MemberNotFound);
    EXPECT_NE(error.Text().find("Nothing"), std::string::npos);
    EXPECT_FALSE(TryGet(*object_, DISPID_NEWENUM, DISPATCH_PROPERTYGET));
    box_.Put(L"Held", Variant(true));
    EXPECT_EQ(TryGet(*object_, 2, DISPATCH_PROPERTYGET)->Type(), VT_BOOL);
}

TEST_F(LateBoundTest, AClassThatIsNotRegisteredIsError429) {
    ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    try {
        LateBound::Create(L"zvAutomationTest.None");
        ADD_FAILURE() << "created";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::CannotCreateObject);
        EXPECT_EQ(error.Text().find("zvAutomationTest.None: "), 0u);
    }
    CoUninitialize();
}

}  // namespace
}  // namespace zv::automation
