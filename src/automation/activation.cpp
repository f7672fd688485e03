#include "automation/activation.h"

#include <utility>

namespace zv::automation {

namespace {

SRWLOCK g_lock = SRWLOCK_INIT;
HANDLE g_remembered = nullptr;

void Exchange(HANDLE context) noexcept {
    AcquireSRWLockExclusive(&g_lock);
    const HANDLE before = std::exchange(g_remembered, context);
    ReleaseSRWLockExclusive(&g_lock);
    if (before) ReleaseActCtx(before);
}

HANDLE Remembered() noexcept {
    AcquireSRWLockShared(&g_lock);
    const HANDLE context = g_remembered;
    if (context) AddRefActCtx(context);
    ReleaseSRWLockShared(&g_lock);
    return context;
}

}  // namespace

void RememberActivation() noexcept {
    HANDLE context = nullptr;
    if (GetCurrentActCtx(&context) && context) Exchange(context);
}

void ForgetActivation() noexcept {
    Exchange(nullptr);
}

ActivationInForce::ActivationInForce() noexcept : context_(Remembered()) {
    active_ = context_ && ActivateActCtx(context_, &cookie_);
}

ActivationInForce::~ActivationInForce() {
    if (active_) DeactivateActCtx(0, cookie_);
    if (context_) ReleaseActCtx(context_);
}

}  // namespace zv::automation
