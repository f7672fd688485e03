// How the tests of faults report, and how long they run.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "fault.h"

namespace zv::ring {

/// ZV_LONG is set: every point is played.
bool IsLong();

/// Temporary folders lie in memory from here on, where there is a place for that.
void UseMemoryFolder();

/// Every finding is a failure of the test, with the lines of its file in the corpus.
void ExpectNoFindings(const Tally& tally);

/// Plays the files of the corpus whose operation these faults have; answers how many there were.
int PlayCorpus(Faults& faults);

}  // namespace zv::ring
