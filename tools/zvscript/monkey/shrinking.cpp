#include "monkey/shrinking.h"

#include <algorithm>

namespace zv::script {
namespace {

std::vector<RecordedAct> Without(const std::vector<RecordedAct>& acts, std::size_t begin,
                                 std::size_t count) {
    std::vector<RecordedAct> rest(acts.begin(), acts.begin() + static_cast<std::ptrdiff_t>(begin));
    const std::size_t end = std::min(begin + count, acts.size());
    rest.insert(rest.end(), acts.begin() + static_cast<std::ptrdiff_t>(end), acts.end());
    return rest;
}

}  // namespace

// First halves are left out, then ever smaller pieces, from the end, where most is of no account.
std::vector<RecordedAct> Shrink(std::vector<RecordedAct> acts, std::size_t kept, int most,
                                const std::function<bool(const std::vector<RecordedAct>&)>& fails) {
    if (acts.size() <= kept) return acts;
    for (std::size_t piece = std::max<std::size_t>((acts.size() - kept) / 2, 1); piece > 0;) {
        bool shorter = false;
        for (std::size_t end = acts.size(); end > kept && most > 0;) {
            const std::size_t begin = std::max(kept, end - std::min(piece, end));
            std::vector<RecordedAct> rest = Without(acts, begin, end - begin);
            most--;
            if (fails(rest)) {
                acts = std::move(rest);
                shorter = true;
            }
            end = begin;
        }
        if (most <= 0) break;
        if (!shorter || piece > 1) piece /= 2;
    }
    return acts;
}

}  // namespace zv::script
