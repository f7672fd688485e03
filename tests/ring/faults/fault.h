// A point at which a call fails, and what is found there.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ring/flows/flow.h"

namespace zv::ring {

/// The `number`-th call of a kind fails, once or with all after it.
struct FaultPoint {
    std::string flow;       ///< "save"; "save rollback" with a roll-back journal
    std::string operation;  ///< "write", "memory", "odbc", ...; "any" is every call of the disk
    long number = 1;
    bool forever = false;

    /// A line for each field, as in the files of a corpus.
    std::string Text() const;
    /// Throws std::runtime_error when the text is no point.
    static FaultPoint Parse(const std::string& text);
};

/// A source of faults, of one kind: the disk, memory, a driver.
class Faults {
 public:
    virtual ~Faults() = default;
    /// The operations that can fail.
    virtual std::vector<std::string> Operations() const = 0;
    /// What flows need to meet these faults.
    virtual FlowOptions Options() const { return {}; }
    virtual void Arm(const FaultPoint& point) = 0;
    /// Answers whether a call has failed since Arm.
    virtual bool Disarm() = 0;
};

struct Judgement {
    bool reached = false;            ///< something failed
    std::vector<std::string> wrong;  ///< a sentence each
};

using FlowMaker = std::function<std::unique_ptr<Flow>(const std::string&, const FlowOptions&)>;

/// Plays the flow with the fault, judges what became of it, and plays it again without.
Judgement Judge(const FaultPoint& point, Faults& faults, const FlowMaker& make = MakeFlow);

struct Tally {
    long points = 0;
    long reach = 0;                     ///< the last number at which something failed
    std::vector<std::string> findings;  ///< a point with what is wrong, each
};

/// Plays one point more; false when nothing failed there.
bool PlayOne(const FaultPoint& point, Faults& faults, const FlowMaker& make, Tally& tally);

/// Plays the points of a flow and an operation, `number` from 1 on until nothing fails any more,
/// once and for ever. The first `density` points all, then fewer and fewer: that many until the
/// number doubles, more or less, and of these once and for ever by turns.
Tally PlayAll(const std::string& flow, const std::string& operation, Faults& faults, long density,
              const FlowMaker& make = MakeFlow);

}  // namespace zv::ring
