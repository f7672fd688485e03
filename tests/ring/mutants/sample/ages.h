#pragma once

#include <string>

namespace sample {

bool MayVote(int age, bool isCitizen);
std::string Greeting(const std::string& name);
// Hands the sum to Note as well.
int Sum(const int* numbers, int count);
int Known();

void Note(int sum);

}  // namespace sample
