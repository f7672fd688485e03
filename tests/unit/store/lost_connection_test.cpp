#include "store/lost_connection.h"

#include <gtest/gtest.h>

namespace zv::store {
namespace {

TEST(LostConnection, IsRecognisedByTheStatesOfConnections) {
    for (const char* state : {"08S01", "08003", "08006", "08001", "57P01", "3043"}) {
        EXPECT_TRUE(MeansLoss({state, 0})) << state;
    }
}

TEST(LostConnection, IsRecognisedByTheNetworksNumbersWhereTheStateLeavesItOpen) {
    EXPECT_TRUE(MeansLoss({"HY000", 10054}));
    EXPECT_TRUE(MeansLoss({"", 64}));
    EXPECT_FALSE(MeansLoss({"42000", 233}));
    EXPECT_FALSE(MeansLoss({"HY000", 547}));
}

TEST(LostConnection, IsNotWhatAStatementCanFailWith) {
    for (const char* state : {"", "HYT00", "42S02", "42000", "23000", "40001", "57014", "3022"}) {
        EXPECT_FALSE(MeansLoss({state, 0})) << state;
    }
}

}  // namespace
}  // namespace zv::store
