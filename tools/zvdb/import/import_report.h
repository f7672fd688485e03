// What did not fit when a database was moved, each kind of it once, with the rows it concerns.
#pragma once

#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace zv::zvdb {

enum class Weight {
    Remark,   ///< the import goes on, the user should know
    Fault,    ///< imported as it is, and wrong where it comes from: the check finds it
    Refusal,  ///< something would be lost, so nothing is imported
};

class ImportReport {
 public:
    /// `row` names the row that it concerns, empty when it is no single one.
    void Add(Weight weight, const std::string& what, const std::string& row = {});

    bool HasRefusals() const { return refusals_ > 0; }
    bool HasFaults() const { return faults_ > 0; }
    bool IsEmpty() const { return entries_.empty(); }
    /// A line each, in the order of first occurrence: "remark: <what>: <rows> (N in all)"; a fault
    /// begins with "wrong: ", a refusal with "refused: ".
    void Print(std::ostream& out) const;

 private:
    // A file in which everything is wrong must not fill the memory.
    static constexpr std::int64_t kRowsShown = 100;
    struct Entry {
        Weight weight;
        std::string what;
        std::string rows;
        std::int64_t count = 0;
    };
    std::vector<Entry> entries_;
    std::map<std::string, std::size_t> byText_;
    std::int64_t refusals_ = 0;
    std::int64_t faults_ = 0;
};

}  // namespace zv::zvdb
