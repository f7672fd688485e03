// One workstation: the whole control without a display, played by a user who never rests.
#pragma once

#include <chrono>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "application/item_user.h"
#include "application/test_application.h"
#include "journal.h"
#include "shared_data.h"

namespace zv::torture {

class Worker {
 public:
    /// `name` begins the titles of the worker's own items; a worker started again under its name
    /// goes on with them.
    Worker(const Target& target, std::string name, const std::string& journal, unsigned seed);

    /// Acts until the time is over. Answers the number of acknowledged steps.
    int Work(std::chrono::seconds time);

 private:
    bool Do(const Step& step);
    bool AddItem(const Step& step);
    bool ChangeItem(const Step& step);
    bool CompleteItem(const Step& step);
    bool RemoveItem(const Step& step);
    bool Generate();

    std::string NewContent();
    std::string RandomOf(const std::vector<std::string>& titles);

    std::string name_;
    Journal journal_;
    std::mt19937 random_;
    test::TestApplication stage_;
    std::optional<test::ItemUser> user_;  ///< once the stage knows the database
    std::vector<std::string> own_;        ///< titles of the own items as far as known
    int serial_ = 0;
};

}  // namespace zv::torture
