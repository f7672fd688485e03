// Wild calls of every member that the type library names: each is answered with a result of
// automation's, what it hands out is of the promised type, and nothing breaks.
#include <gtest/gtest.h>

#include "members.h"
#include "rules.h"
#include "stage.h"

namespace zv::ring::com {
namespace {

using Form = WildValues::Form;

class WildCalls : public testing::Test {
 protected:
    void SetUp() override { ASSERT_TRUE(stage.control); }
    void TearDown() override {
        EXPECT_EQ(troupe.Imbalance(), "");
        EXPECT_EQ(stage.End(), "");
    }
    IDispatch& Task() { return *stage.Borrow<IDispatch>(); }
    /// A refresh opens a database: that of the test.
    void Prepare(const LibraryMember& member) {
        const bool opens = member.id == zv::com::kRefresh || member.id == zv::com::kStartReminders;
        if (opens) SetDatabase(Task());
    }

    /// The window of reminders stays behind when its user closes it.
    void EndReminders(const LibraryMember& member) {
        if (member.id != zv::com::kStartReminders) return;
        EXPECT_EQ(stage.Borrow<zv::com::ITask2>(zv::com::kSecondInterfaceId)->StopReminders(),
                  S_OK);
    }

    std::string Invoke(const LibraryMember& member, WORD kind, DISPPARAMS parameters) {
        Prepare(member);
        VARIANT result{};
        EXCEPINFO exception{};
        UINT bad = UINT_MAX;
        const bool wantsResult = !random.OneIn(3);
        const bool wantsException = !random.OneIn(3);
        static constexpr LCID kLocales[] = {0x0804,           0x0409, LOCALE_NEUTRAL,
                                            LOCALE_INVARIANT, 0xFFFF, 0x12345678};
        const LCID locale = anyLocale ? random.Of(kLocales) : LOCALE_USER_DEFAULT;
        const HRESULT hr = Task().Invoke(
            member.id, IID_NULL, locale, kind, &parameters, wantsResult ? &result : nullptr,
            wantsException ? &exception : nullptr, random.OneIn(3) ? nullptr : &bad);
        calls++;
        last = hr;
        const std::string wrong =
            InvokeComplaint({hr, result, exception, bad, parameters.cArgs, member.reads});
        VariantClear(&result);
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        SysFreeString(exception.bstrHelpFile);
        EndReminders(member);
        if (!ControlWindows().empty()) CloseWindows();
        return wrong.empty() ? wrong : member.name + ": " + wrong;
    }

    Random random;
    Trouble trouble;
    Troupe troupe;
    Object& hostile = troupe.Make<Object>(trouble);
    WildValues wild{random, hostile};
    Stage stage;
    const std::vector<LibraryMember> members = LibraryMembers();
    const Closer closer;
    int calls = 0;
    HRESULT last = S_OK;
    bool anyLocale = true;
};

TEST_F(WildCalls, TheLibraryNamesEveryMember) {
    EXPECT_EQ(members.size(), 30u);
    for (const LibraryMember& member : members) {
        const std::wstring name = win32::ToWide(member.name);
        EXPECT_EQ(container::IdOf(Task(), name.c_str()), member.id) << member.name;
    }
}

TEST_F(WildCalls, EveryTypeInEveryFormForEveryMember) {
    anyLocale = false;
    for (const LibraryMember& member : members) {
        if (member.kind == INVOKE_PROPERTYGET) continue;
        const bool isPut = member.kind == INVOKE_PROPERTYPUT;
        for (const VARTYPE type : WildValues::Types()) {
            for (const Form form : WildValues::Forms()) {
                // Without parameters there is nothing that differs.
                const bool first =
                    type == WildValues::Types().front() && form == WildValues::Forms().front();
                if (member.parameters.empty() && !first) continue;
                Now(member.name + " of type " + std::to_string(type) + " in form " +
                    std::to_string(static_cast<int>(form)));
                std::vector<VARIANT> arguments;
                for (std::size_t i = 0; i < member.parameters.size(); i++) {
                    arguments.push_back(wild.Make(type, form));
                }
                const bool fits =
                    isPut && !arguments.empty() && CanBecome(arguments[0], member.parameters[0]);
                DISPID put = DISPID_PROPERTYPUT;
                const DISPPARAMS parameters{arguments.data(), isPut ? &put : nullptr,
                                            static_cast<UINT>(arguments.size()), isPut ? 1u : 0u};
                EXPECT_EQ(Invoke(member, static_cast<WORD>(member.kind), parameters), "");
                if (isPut && type != VT_DISPATCH && type != VT_UNKNOWN) {
                    EXPECT_EQ(SUCCEEDED(last), fits) << member.name << " of type " << type
                                                     << " in form " << static_cast<int>(form);
                }
                wild.Forget();
            }
        }
    }
    std::printf("%d calls\n", calls);
}

TEST_F(WildCalls, WhateverIsHandedOver) {
    const WORD kinds[] = {DISPATCH_METHOD,
                          DISPATCH_PROPERTYGET,
                          DISPATCH_PROPERTYPUT,
                          DISPATCH_PROPERTYPUTREF,
                          DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                          DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF,
                          0,
                          0xFFFF};
    const HRESULT answers[] = {E_FAIL, S_OK, DISP_E_EXCEPTION, static_cast<HRESULT>(0x8ABC1234)};
    LibraryMember unknown;
    unknown.name = "no member";
    const DISPID ids[] = {0, -1, -5, 26, 0x60000000, INT_MAX, INT_MIN, DISPID_NEWENUM};
    for (Rounds rounds(4000); rounds.Next();) {
        LibraryMember member = random.Of(members);
        if (random.OneIn(12)) {
            member = unknown;
            member.id = random.Of(ids);
        }
        std::vector<VARIANT> arguments;
        std::vector<DISPID> named;
        for (std::size_t i = random.Below(4); i > 0; i--) arguments.push_back(wild.Any());
        for (std::size_t i = random.Below(4); i > 0; i--) {
            named.push_back(random.OneIn(2) ? DISPID_PROPERTYPUT
                                            : static_cast<DISPID>(random.Below(4)) - 1);
        }
        DISPPARAMS parameters{arguments.data(), named.data(), static_cast<UINT>(arguments.size()),
                              static_cast<UINT>(named.size())};
        if (random.OneIn(16)) parameters.rgvarg = nullptr;
        if (random.OneIn(16)) parameters.rgdispidNamedArgs = nullptr;
        trouble.Plan(static_cast<int>(random.Below(3)), random.Of(answers));
        Now("a wild call of " + member.name);
        EXPECT_EQ(Invoke(member, random.Of(kinds), parameters), "");
        wild.Forget();
    }
    std::printf("%d calls\n", calls);
}

TEST_F(WildCalls, ThroughTheVtable) {
    for (Rounds rounds(1500); rounds.Next();) {
        const LibraryMember& member = random.Of(members);
        Now("through the vtable: " + member.name);
        Prepare(member);
        std::vector<VARIANT> values;
        std::vector<VARTYPE> types;
        VARIANT answer{};
        for (const VARTYPE type : member.parameters) {
            const bool isAnswer = type == VT_PTR && member.answer != VT_EMPTY;
            VARIANT value = wild.Make(type == VT_PTR ? VARTYPE{VT_DISPATCH} : type, Form::Value);
            if (isAnswer) value.byref = random.OneIn(4) ? nullptr : &answer.llVal;
            value.vt = isAnswer ? VARTYPE{VT_INT_PTR} : value.vt;
            if (isAnswer && sizeof(void*) == 4) value.vt = VT_I4;
            if (isAnswer && sizeof(void*) == 8) value.vt = VT_I8;
            values.push_back(value);
            types.push_back(value.vt);
        }
        std::vector<VARIANTARG*> pointers;
        for (VARIANT& value : values) pointers.push_back(&value);
        VARIANT result{};
        ASSERT_EQ(
            DispCallFunc(&Task(), member.slot, CC_STDCALL, VT_ERROR,
                         static_cast<UINT>(values.size()), types.data(), pointers.data(), &result),
            S_OK);
        EXPECT_TRUE(IsDefined(result.scode)) << member.name << ' ' << std::hex << result.scode;
        if (member.answer == VT_BSTR) SysFreeString(answer.bstrVal);
        EndReminders(member);
        if (!ControlWindows().empty()) CloseWindows();
        wild.Forget();
    }
}

TEST_F(WildCalls, NamesOfAllKinds) {
    const std::wstring overlong(100'000, L'x');
    const wchar_t* const names[] = {L"",     L" ",         L"refresh", L"REFRESH ",     L"mode",
                                    L"刷新", L"refresh\n", nullptr,    overlong.c_str()};
    for (const wchar_t* name : names) {
        for (const wchar_t* second : names) {
            Now("names");
            LPOLESTR both[] = {const_cast<LPOLESTR>(name), const_cast<LPOLESTR>(second)};
            DISPID ids[] = {1234, 1234};
            const HRESULT hr = Task().GetIDsOfNames(IID_NULL, both, 2, 0xFFFF, ids);
            const bool knowsFirst = name && std::wcscmp(name, L"refresh") == 0;
            const bool knowsSecond = knowsFirst && second && std::wcscmp(second, L"mode") == 0;
            EXPECT_EQ(hr, knowsSecond ? S_OK : DISP_E_UNKNOWNNAME);
            EXPECT_EQ(ids[0], knowsFirst ? 1 : DISPID_UNKNOWN);
            EXPECT_EQ(ids[1], knowsSecond ? 0 : DISPID_UNKNOWN);
        }
    }
    DISPID id = 0;
    LPOLESTR name = const_cast<LPOLESTR>(L"refresh");
    EXPECT_EQ(Task().GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id), E_POINTER);
    EXPECT_EQ(Task().GetIDsOfNames(IID_NULL, &name, 1, 0, nullptr), E_POINTER);
    EXPECT_EQ(Task().GetIDsOfNames(IID_IUnknown, &name, 1, 0, &id), DISP_E_UNKNOWNINTERFACE);
}

}  // namespace
}  // namespace zv::ring::com
