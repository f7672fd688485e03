#include "automation/activation.h"

#include <gtest/gtest.h>

#include <string>

#include "automation/module.h"

namespace zv::automation {
namespace {

/// A context that says nothing, made from a file beside the program that lives as long.
class Context {
 public:
    Context() {
        path_ = module::PathOf(nullptr) + L".activation";
        const HANDLE file = CreateFileW(path_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
        constexpr char kText[] =
            "<assembly xmlns='urn:schemas-microsoft-com:asm.v1' manifestVersion='1.0'>"
            "<assemblyIdentity type='win32' name='activation' version='1.0.0.0'/></assembly>";
        DWORD written = 0;
        WriteFile(file, kText, sizeof kText - 1, &written, nullptr);
        CloseHandle(file);
        ACTCTXW request{};
        request.cbSize = sizeof request;
        request.lpSource = path_.c_str();
        handle_ = CreateActCtxW(&request);
    }
    ~Context() {
        ReleaseActCtx(handle_);
        DeleteFileW(path_.c_str());
    }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    HANDLE Get() const { return handle_; }

 private:
    std::wstring path_;
    HANDLE handle_ = INVALID_HANDLE_VALUE;
};

HANDLE Current() {
    HANDLE context = nullptr;
    GetCurrentActCtx(&context);
    if (context) ReleaseActCtx(context);
    return context;
}

void RememberIn(HANDLE context) {
    ULONG_PTR cookie = 0;
    ASSERT_TRUE(ActivateActCtx(context, &cookie));
    RememberActivation();
    DeactivateActCtx(0, cookie);
}

TEST(Activation, TheContextOfTheCreationIsInForceAgainLater) {
    const Context host;
    ASSERT_NE(host.Get(), INVALID_HANDLE_VALUE);
    const HANDLE before = Current();
    ASSERT_NE(before, host.Get());
    RememberIn(host.Get());
    EXPECT_EQ(Current(), before);
    {
        const ActivationInForce remembered;
        EXPECT_EQ(Current(), host.Get());
    }
    EXPECT_EQ(Current(), before);
    ForgetActivation();
    const ActivationInForce none;
    EXPECT_EQ(Current(), before);
}

TEST(Activation, ACreationWithoutAContextOfItsOwnKeepsTheOneBefore) {
    const Context host;
    RememberIn(host.Get());
    RememberActivation();
    {
        const ActivationInForce remembered;
        EXPECT_EQ(Current(), host.Get());
    }
    ForgetActivation();
}

}  // namespace
}  // namespace zv::automation
