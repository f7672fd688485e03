// Where the rows of the windows' flows lie.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace zv::ring {

class FlowStore {
 public:
    virtual ~FlowStore() = default;
    /// Throws all rows away and runs the statements, which are the same for every flow and in words
    /// that each engine understands.
    virtual void Fill(const std::vector<std::string>& statements) = 0;
    /// One such statement more.
    virtual void Run(const std::string& statement) = 0;
    /// What is wrong with the store as a whole, a sentence each: that in the folder, where the
    /// store is a file. Rows reads there from then on.
    virtual std::vector<std::string> Wrong(const std::filesystem::path& folder) = 0;
    /// A line a row, columns joined by "|".
    virtual std::string Rows(const std::string& query) = 0;
};

}  // namespace zv::ring
