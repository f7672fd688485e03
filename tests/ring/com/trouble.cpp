#include "trouble.h"

namespace zv::ring::com {

void Trouble::Plan(int call, std::optional<HRESULT> answer, std::function<void()> act) {
    planned_ = call;
    calls_ = 0;
    happened_ = false;
    where_.clear();
    answer_ = answer;
    act_ = std::move(act);
}

std::optional<HRESULT> Trouble::Enter(const char* call) {
    calls_++;
    if (calls_ != planned_) return std::nullopt;
    happened_ = true;
    where_ = call;
    if (act_) act_();
    return answer_;
}

ULONG Counted::Drop() {
    const long left = --references_;
    if (left < 0) wentBelow_ = true;
    return left < 0 ? 0 : static_cast<ULONG>(left);
}

std::string Counted::Imbalance() const {
    if (wentBelow_) return name_ + ": released more often than referenced\n";
    const long left = references_;
    return left == 0 ? std::string() : name_ + ": " + std::to_string(left) + " references left\n";
}

std::string Troupe::Imbalance() const {
    std::string lines;
    for (const auto& each : doubles_) lines += each->Imbalance();
    return lines;
}

}  // namespace zv::ring::com
