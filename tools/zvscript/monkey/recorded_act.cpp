#include "monkey/recorded_act.h"

#include <algorithm>

namespace zv::script {
namespace {

// What runs while a box stands is given to the boxes in their order: one without it gets a look.
constexpr const char* kNothing = "show windows";

void Append(std::string& text, const std::vector<RecordedAct>& acts, std::size_t indent) {
    constexpr std::size_t kStep = 4;
    const std::string blanks(indent, ' ');
    for (const RecordedAct& act : acts) {
        const bool interrupted =
            std::any_of(act.boxes.begin(), act.boxes.end(),
                        [](const RecordedBox& box) { return !box.during.empty(); });
        for (const RecordedBox& box : act.boxes) {
            const bool input = box.kind == Standing::Input;
            text += blanks + (input ? "input " : "answer ") + box.answer + '\n';
            if (!interrupted) continue;
            text += blanks + (input ? "during input\n" : "during box\n");
            if (box.during.empty()) {
                text += blanks + std::string(kStep, ' ') + kNothing + '\n';
            } else {
                Append(text, box.during, indent + kStep);
            }
        }
        text += blanks + act.line + '\n';
    }
}

}  // namespace

std::string ToScenario(const std::vector<RecordedAct>& acts) {
    std::string text;
    Append(text, acts, 0);
    return text;
}

}  // namespace zv::script
