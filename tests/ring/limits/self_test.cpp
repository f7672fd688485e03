// The harness finds what it looks for: an engine that loses a part of a value, that changes another
// field besides, and that changes something although it refuses.
#include <algorithm>

#include "doors.h"
#include "doubles/faulty_connection.h"

namespace zv::ring {
namespace {

using doubles::Fault;

bool Finds(Fault fault, const std::string& complaint) {
    Place place(store::EngineKind::Embedded, [fault](auto connection) {
        return std::make_unique<doubles::FaultyConnection>(std::move(connection), fault);
    });
    const Cells cells = ChangeItems(place);
    return std::any_of(cells.begin(), cells.end(), [&](const Cell& cell) {
        return cell.wrong.find(complaint) != std::string::npos;
    });
}

TEST(LimitsHarness, FindsAValueThatIsNotStoredWhole) {
    EXPECT_TRUE(Finds(Fault::LosesRareCharacters, "and not ="));
}
TEST(LimitsHarness, FindsAFieldThatChangesBesides) {
    EXPECT_TRUE(Finds(Fault::ChangesAnotherField, "tTaskList 1 taskid has changed"));
}
TEST(LimitsHarness, FindsARefusalThatChangesSomething) {
    EXPECT_TRUE(Finds(Fault::WritesAndRefuses, "it was refused, and something changed"));
}

}  // namespace
}  // namespace zv::ring
