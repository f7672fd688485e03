#include "fault.h"

#include <algorithm>
#include <stdexcept>

#include "current_point.h"
#include "ring/flows/finding_text.h"

namespace zv::ring {
namespace {

constexpr const char* kRollBack = " rollback";
constexpr long kMostCalls = 1'000'000;

}  // namespace

std::string FaultPoint::Text() const {
    return "flow: " + flow + "\noperation: " + operation + "\nnumber: " + std::to_string(number) +
           "\ntimes: " + (forever ? "forever" : "once") + '\n';
}

FaultPoint FaultPoint::Parse(const std::string& text) {
    const auto values = ReadFinding(text, {"flow", "operation", "number", "times"});
    const std::string& times = values.at("times");
    if (times != "once" && times != "forever") {
        throw std::runtime_error("a fault comes once or forever, not " + times);
    }
    return {values.at("flow"), values.at("operation"), std::stol(values.at("number")),
            times == "forever"};
}

Judgement Judge(const FaultPoint& point, Faults& faults, const FlowMaker& make) {
    FlowOptions options = faults.Options();
    std::string name = point.flow;
    if (name.ends_with(kRollBack)) {
        options.rollBack = true;
        name.resize(name.size() - std::string(kRollBack).size());
    }
    const auto flow = make(name, options);
    Judgement judgement;
    const auto add = [&](const std::string& when, const std::vector<std::string>& sentences) {
        for (const std::string& sentence : sentences) {
            judgement.wrong.push_back(when + ": " + sentence);
        }
    };
    const CurrentPoint current(point.Text());
    faults.Arm(point);
    const Outcome disturbed = flow->Act();
    judgement.reached = faults.Disarm();
    if (!disturbed.acknowledged && disturbed.told.empty()) {
        add("with the fault", {"it was not done and nobody said so"});
    }
    if (!judgement.reached && !disturbed.acknowledged) {
        add("nothing failed", {"it was not done: " + disturbed.told});
    }
    const std::string answer = disturbed.acknowledged ? "acknowledged" : "told " + disturbed.told;
    add("with the fault (" + answer + ")", flow->WrongIn(flow->Folder(), disturbed.acknowledged));
    const Outcome again = flow->Act();
    if (!again.acknowledged) add("again", {"it does not work: " + again.told});
    add("again", flow->WrongIn(flow->Folder(), again.acknowledged));
    return judgement;
}

bool PlayOne(const FaultPoint& point, Faults& faults, const FlowMaker& make, Tally& tally) {
    const Judgement judgement = Judge(point, faults, make);
    tally.points++;
    if (judgement.reached) tally.reach = std::max(tally.reach, point.number);
    if (judgement.wrong.empty()) return judgement.reached;
    std::string finding = point.Text();
    for (const std::string& sentence : judgement.wrong) finding += "# " + sentence + '\n';
    tally.findings.push_back(std::move(finding));
    return judgement.reached;
}

Tally PlayAll(const std::string& flow, const std::string& operation, Faults& faults, long density,
              const FlowMaker& make) {
    Tally tally;
    for (const bool forever : {false, true}) {
        bool byTurns = forever;
        for (long number = 1; number < kMostCalls; number += std::max(1L, number / density)) {
            byTurns = !byTurns;
            if (number > density && !byTurns) continue;
            const bool reached = PlayOne({flow, operation, number, forever}, faults, make, tally);
            if (!reached) break;
        }
    }
    return tally;
}

}  // namespace zv::ring
