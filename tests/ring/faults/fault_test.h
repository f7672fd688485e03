// How the tests of faults report, and how long they run.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "fault.h"

namespace zv::ring {

/// Plays all operations of the faults in a flow and expects no findings: the first `density` points
/// of each and fewer of those behind. With ZV_LONG ten times as many, and then points at random,
/// those of ZV_SEED, for the flow's part of ZV_SECONDS; there are `flows` of them.
void ExpectSound(const std::string& flow, Faults& faults, long density, std::size_t flows);

/// Plays points of the flow and the operation in order, until one of them is judged to be wrong
/// with a sentence that holds `sentence`. False when nothing fails any more before that.
bool Finds(const std::string& sentence, const std::string& flow, const std::string& operation,
           Faults& faults, const FlowMaker& make);

/// Temporary folders lie in memory from here on, where there is a place for that.
void UseMemoryFolder();

/// Plays the files of the corpus whose operation these faults have; answers how many there were.
int PlayCorpus(Faults& faults);

}  // namespace zv::ring
