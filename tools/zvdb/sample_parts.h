// The parts of the sample data, in the order in which they are made.
#pragma once

#include <string>
#include <vector>

#include "plans/plan.h"
#include "zvdb/sample.h"

namespace zv::zvdb {

struct Person {
    std::string code;
    std::string name;
};

struct Card {
    int id = 0;
    std::string company;
    std::string contact;
    std::string city;
    bool traditional = false;
};

std::vector<Person> FillStaff(Engine& engine, const SampleOptions& options);
/// Module registry and the captions of the item fields.
void FillRegistry(Engine& engine);
std::vector<Card> FillCards(Engine& engine, const SampleOptions& options, Progress& progress);
/// `occurrences`: how many items a plan may have.
std::vector<plans::Plan> FillPlans(Engine& engine, const SampleOptions& options, int occurrences,
                                   const std::vector<Person>& staff, Progress& progress);
void FillItems(Engine& engine, const SampleOptions& options, const std::vector<plans::Plan>& plans,
               const std::vector<Card>& cards, const std::vector<Person>& staff,
               Progress& progress);

}  // namespace zv::zvdb
