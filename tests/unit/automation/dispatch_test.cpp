// One table of members, read in either binding.
#include "automation/dispatch.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "base/errors.h"

namespace zv::automation {
namespace {

using win32::Bstr;
using win32::ComPtr;
using win32::Variant;

class Sum final : public DispatchObject<Sum> {
 public:
    static constexpr std::string_view kSourceName = "Sum";
    static std::span<const MemberEntry<Sum>> Members() {
        static constexpr std::array<MemberEntry<Sum>, 4> kMembers{
            Offers<&Sum::Add>(L"Add", 1), Offers<&Sum::Last, &Sum::SetLast>(L"Last", DISPID_VALUE),
            Offers<nullptr, &Sum::SetSecret>(L"Secret", 2),
            Offers<&Sum::Pair>(L"Pair", 3).Taking(2)};
        return kMembers;
    }

 private:
    Variant Add(const Arguments& arguments) {
        if (arguments.IsGiven(0) && arguments.Text(0) == "fail") {
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange, "超出", "Somebody");
        }
        last_ = arguments.Int(0, 10) + arguments.Int(1, 100);
        return Variant(last_);
    }
    Variant Last(const Arguments&) { return Variant(last_); }
    void SetLast(const Arguments& arguments) {
        last_ = arguments.Int(0, 0) + arguments.Assigned().Get().lVal;
    }
    void SetSecret(const Arguments&) {}
    Variant Pair(const Arguments& arguments) {
        return Variant(arguments.Int(0) * 10 + arguments.Int(1));
    }

    std::int32_t last_ = 0;
};

struct Answer {
    HRESULT hr = S_OK;
    Variant value;
    EXCEPINFO info{};
    UINT badArgument = 99;

    ~Answer() {
        SysFreeString(info.bstrDescription);
        SysFreeString(info.bstrSource);
    }
};

/// `written` stand in the order in which they are written; names belong to the last of them.
template <class Invoke>
void InvokeWith(Answer& answer, Invoke&& invoke, WORD kind, const std::vector<VARIANT>& written,
                std::vector<DISPID> names) {
    std::vector<VARIANT> reversed(written.rbegin(), written.rend());
    DISPPARAMS parameters{reversed.data(), names.data(), static_cast<UINT>(reversed.size()),
                          static_cast<UINT>(names.size())};
    answer.hr = invoke(kind, &parameters, answer);
}

class PositionalDispatch : public testing::Test {
 protected:
    ~PositionalDispatch() override {
        sum_.Reset();
        EXPECT_EQ(module::Locks(), 0);
    }
    void Call(DISPID id, WORD kind, const std::vector<VARIANT>& written,
              std::vector<DISPID> names = {}) {
        answer_.emplace();
        InvokeWith(
            *answer_,
            [&](WORD flags, DISPPARAMS* parameters, Answer& answer) {
                return sum_->Invoke(id, IID_NULL, 0, flags, parameters, answer.value.Put(),
                                    &answer.info, &answer.badArgument);
            },
            kind, written, std::move(names));
    }

    ComPtr<IDispatch> sum_ = ComPtr<IDispatch>::Attach(static_cast<IDispatch*>(new Sum()));
    std::optional<Answer> answer_;
};

TEST_F(PositionalDispatch, ArgumentsMayBeLeftOut) {
    Call(1, DISPATCH_METHOD, {});
    EXPECT_EQ(answer_->value.Get().lVal, 110);
    Call(1, DISPATCH_METHOD, {Variant::Missing().Get(), Variant(std::int32_t{1}).Get()});
    EXPECT_EQ(answer_->value.Get().lVal, 11);
    Call(3, DISPATCH_METHOD, {Variant(std::int32_t{4}).Get(), Variant(std::int32_t{2}).Get()});
    EXPECT_EQ(answer_->value.Get().lVal, 42);
    Call(3, DISPATCH_METHOD, {Variant(std::int32_t{4}).Get()});
    EXPECT_EQ(answer_->hr, DISP_E_BADPARAMCOUNT);
}

TEST_F(PositionalDispatch, OnlyTheValueOfAnAssignmentIsNamed) {
    const Variant one(std::int32_t{1}), two(std::int32_t{2});
    Call(DISPID_VALUE, DISPATCH_PROPERTYPUT, {one.Get(), two.Get()}, {DISPID_PROPERTYPUT});
    EXPECT_EQ(answer_->hr, S_OK);
    Call(DISPID_VALUE, DISPATCH_PROPERTYGET, {});
    EXPECT_EQ(answer_->value.Get().lVal, 3);
    Call(DISPID_VALUE, DISPATCH_PROPERTYPUT, {one.Get()});
    EXPECT_EQ(answer_->hr, DISP_E_PARAMNOTOPTIONAL);
    Call(1, DISPATCH_METHOD, {one.Get()}, {0});
    EXPECT_EQ(answer_->hr, DISP_E_NONAMEDARGS);
}

TEST_F(PositionalDispatch, WhatAMemberDoesNotOfferIsNotFound) {
    const Variant one(std::int32_t{1});
    Call(1, DISPATCH_PROPERTYPUT, {one.Get()}, {DISPID_PROPERTYPUT});
    EXPECT_EQ(answer_->hr, DISP_E_MEMBERNOTFOUND);
    Call(2, DISPATCH_PROPERTYGET, {});
    EXPECT_EQ(answer_->hr, DISP_E_MEMBERNOTFOUND);
    Call(77, DISPATCH_METHOD, {});
    EXPECT_EQ(answer_->hr, DISP_E_MEMBERNOTFOUND);
}

TEST_F(PositionalDispatch, AFailureIsToldToTheCallerAndTheThread) {
    Call(1, DISPATCH_METHOD, {Variant("fail").Get()});
    EXPECT_EQ(answer_->hr, DISP_E_EXCEPTION);
    EXPECT_EQ(answer_->info.scode, win32::ToHresult(ErrorNumber::SubscriptOutOfRange));
    EXPECT_EQ(win32::ToUtf8(answer_->info.bstrDescription), "超出");
    EXPECT_EQ(win32::ToUtf8(answer_->info.bstrSource), "Somebody");
    EXPECT_EQ(answer_->value.Type(), VT_EMPTY);
    ComPtr<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, info.Put()), S_OK);
    Bstr text;
    info->GetDescription(text.Put());
    EXPECT_EQ(text.Utf8(), "超出");
}

TEST_F(PositionalDispatch, AnArgumentThatCannotBeReadIsTheMembersError) {
    Call(3, DISPATCH_METHOD, {Variant("x").Get(), Variant("1").Get()});
    EXPECT_EQ(answer_->hr, DISP_E_EXCEPTION);
    EXPECT_EQ(answer_->info.scode, win32::ToHresult(ErrorNumber::TypeMismatch));
    EXPECT_EQ(win32::ToUtf8(answer_->info.bstrSource), "Sum");
}

TEST_F(PositionalDispatch, NamesAreFoundWithoutRegardToCase) {
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"aDD"), const_cast<LPOLESTR>(L"first")};
    DISPID ids[2] = {};
    EXPECT_EQ(sum_->GetIDsOfNames(IID_NULL, names, 1, 0, ids), S_OK);
    EXPECT_EQ(ids[0], 1);
    EXPECT_EQ(sum_->GetIDsOfNames(IID_NULL, names, 2, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[1], DISPID_UNKNOWN);
    EXPECT_EQ(sum_->GetIDsOfNames(IID_NULL, names + 1, 1, 0, ids), DISP_E_UNKNOWNNAME);
    // U+212A folds to "k" in some locales, and in none here.
    EXPECT_FALSE(SameName(L"\u212A", L"k"));
}

/// What a typed object is made of, without an interface around it.
struct Clock {
    LONG hours = 0;
    SHORT minutes = 0;
    std::wstring zone;

    static std::span<const MemberEntry<Clock>> Members();
};

HRESULT Turn(Clock& clock, const Arguments& arguments, Variant&) noexcept {
    clock.hours = arguments.Raw(0).lVal;
    clock.minutes = arguments.Raw(1).iVal;
    return clock.hours < 24 ? S_OK : win32::SetError(E_ABORT, "too late", "Clock");
}
HRESULT PutZone(Clock& clock, const Arguments& arguments, Variant&) noexcept {
    clock.zone = win32::View(arguments.RawAssigned().bstrVal);
    return S_OK;
}
HRESULT GetHours(Clock& clock, const Arguments&, Variant& answer) noexcept {
    answer = Variant(static_cast<std::int32_t>(clock.hours));
    return S_OK;
}

std::span<const MemberEntry<Clock>> Clock::Members() {
    static constexpr std::array<MemberEntry<Clock>, 3> kMembers{
        MemberEntry<Clock>{{.name = L"Turn",
                            .id = 1,
                            .count = 2,
                            .isMethod = true,
                            .parameters = {{{L"hours", VT_I4}, {L"minutes", VT_I2}}}},
                           &Turn},
        MemberEntry<Clock>{{.name = L"Zone", .id = 2, .type = VT_BSTR}, nullptr, &PutZone},
        MemberEntry<Clock>{{.name = L"Hours", .id = 3, .type = VT_I4}, &GetHours}};
    return kMembers;
}

class TypedDispatch : public testing::Test {
 protected:
    void Call(DISPID id, WORD kind, const std::vector<VARIANT>& written,
              std::vector<DISPID> names = {}) {
        answer_.emplace();
        InvokeWith(
            *answer_,
            [&](WORD flags, DISPPARAMS* parameters, Answer& answer) {
                return InvokeMember(Binding::Typed, clock_, id,
                                    {IID_NULL, LOCALE_INVARIANT, flags, parameters,
                                     answer.value.Put(), &answer.info, &answer.badArgument});
            },
            kind, written, std::move(names));
    }

    Clock clock_;
    std::optional<Answer> answer_;
};

TEST_F(TypedDispatch, ArgumentsComeInTheirTypesByPositionOrName) {
    const Variant eight("8"), thirty(30.0);
    Call(1, DISPATCH_METHOD, {eight.Get(), thirty.Get()});
    EXPECT_EQ(answer_->hr, S_OK);
    EXPECT_EQ(clock_.hours, 8);
    EXPECT_EQ(clock_.minutes, 30);
    Call(1, DISPATCH_METHOD, {eight.Get(), thirty.Get()}, {0, 1});
    EXPECT_EQ(clock_.hours, 30);
    EXPECT_EQ(clock_.minutes, 8);
    Call(3, DISPATCH_PROPERTYGET, {});
    EXPECT_EQ(answer_->value.Get().lVal, 30);
    Call(2, DISPATCH_PROPERTYPUT, {eight.Get()}, {DISPID_PROPERTYPUT});
    EXPECT_EQ(clock_.zone, L"8");
}

TEST_F(TypedDispatch, WhatDoesNotFitIsAutomationsOwnResult) {
    const Variant one(std::int32_t{1}), word("word"), many(std::int32_t{70000});
    Call(1, DISPATCH_METHOD, {word.Get(), one.Get()});
    EXPECT_EQ(answer_->hr, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(answer_->badArgument, 1u) << "the last argument stands first";
    Call(1, DISPATCH_METHOD, {one.Get(), many.Get()});
    EXPECT_EQ(answer_->hr, DISP_E_OVERFLOW);
    EXPECT_EQ(answer_->badArgument, 0u);
    Call(1, DISPATCH_METHOD, {one.Get(), Variant::Missing().Get()});
    EXPECT_EQ(answer_->hr, DISP_E_PARAMNOTOPTIONAL);
    Call(1, DISPATCH_METHOD, {one.Get()});
    EXPECT_EQ(answer_->hr, DISP_E_BADPARAMCOUNT);
    Call(1, DISPATCH_METHOD, {one.Get(), one.Get()}, {0, 7});
    EXPECT_EQ(answer_->hr, DISP_E_PARAMNOTFOUND);
    Call(1, DISPATCH_PROPERTYPUT, {one.Get()}, {DISPID_PROPERTYPUT});
    EXPECT_EQ(answer_->hr, DISP_E_MEMBERNOTFOUND);
    Call(2, DISPATCH_PROPERTYGET, {});
    EXPECT_EQ(answer_->hr, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(answer_->info.scode, 0);
    EXPECT_EQ(clock_.hours, 0);
}

TEST_F(TypedDispatch, AFailureIsToldToTheCallerAlone) {
    const Variant late(std::int32_t{25}), zero(std::int32_t{0});
    Call(1, DISPATCH_METHOD, {late.Get(), zero.Get()});
    EXPECT_EQ(answer_->hr, DISP_E_EXCEPTION);
    EXPECT_EQ(answer_->info.scode, E_ABORT);
    EXPECT_EQ(win32::ToUtf8(answer_->info.bstrDescription), "too late");
    ComPtr<IErrorInfo> info;
    EXPECT_EQ(GetErrorInfo(0, info.Put()), S_FALSE);
}

TEST_F(TypedDispatch, ParametersHaveNames) {
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"TURN"), const_cast<LPOLESTR>(L"Minutes"),
                        const_cast<LPOLESTR>(L"seconds")};
    DISPID ids[3] = {};
    EXPECT_EQ(FindNames<Clock>(Binding::Typed, IID_NULL, names, 2, ids), S_OK);
    EXPECT_EQ(ids[0], 1);
    EXPECT_EQ(ids[1], 1);
    EXPECT_EQ(FindNames<Clock>(Binding::Typed, IID_NULL, names, 3, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[2], DISPID_UNKNOWN);
    EXPECT_EQ(FindNames<Clock>(Binding::Typed, IID_IDispatch, names, 1, ids),
              DISP_E_UNKNOWNINTERFACE);
}

}  // namespace
}  // namespace zv::automation
