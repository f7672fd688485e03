// Whatever value comes in by whatever door: it is stored as it is or refused with a word, nothing
// else changes, and every engine does the same.
#include "doors.h"

namespace zv::ring {
namespace {

using store::EngineKind;

constexpr std::array kDoors{
    Door{"AddItems", AddItems},     Door{"ChangeItems", ChangeItems},
    Door{"EditPlans", EditPlans},   Door{"NameUsers", NameUsers},
    Door{"CallModes", CallModes},   Door{"SearchItems", SearchItems},
    Door{"QueryItems", QueryItems}, Door{"SearchCards", SearchCards},
    Door{"FindStored", FindStored},
};

Cells Drive(const Door& door, EngineKind engine) {
    Place place(engine);
    return door.drive(place);
}

class Limits : public testing::TestWithParam<std::tuple<EngineKind, Door>> {
 protected:
    void SetUp() override {
        if (const std::string reason = store::WhyMissing(Engine()); !reason.empty()) {
            GTEST_SKIP() << reason;
        }
    }
    static EngineKind Engine() { return std::get<0>(GetParam()); }
    static const Door& TheDoor() { return std::get<1>(GetParam()); }
    /// What the embedded engine does, driven once.
    static const Cells& Embedded(const Door& door) {
        static std::map<std::string, Cells> kept;
        const auto [at, isNew] = kept.try_emplace(door.name);
        if (isNew) at->second = Drive(door, EngineKind::Embedded);
        return at->second;
    }
};

TEST_P(Limits, AreKeptOrToldAndAlikeOnEveryEngine) {
    const Cells& meant = Embedded(TheDoor());
    const Cells cells = Engine() == EngineKind::Embedded ? meant : Drive(TheDoor(), Engine());
    ASSERT_EQ(cells.size(), meant.size());
    for (std::size_t at = 0; at < cells.size(); at++) {
        EXPECT_EQ(cells[at].wrong, "") << cells[at].name << "\n" << Shown(cells[at].fate);
        EXPECT_EQ(Shown(cells[at].fate), Shown(meant[at].fate)) << cells[at].name;
        EXPECT_TRUE(cells[at].fate == meant[at].fate) << cells[at].name;
    }
    RecordProperty("cells", static_cast<int>(cells.size()));
    std::cout << "CELLS " << cells.size() << '\n';
}
INSTANTIATE_TEST_SUITE_P(Doors, Limits,
                         testing::Combine(testing::Values(EngineKind::Embedded,
                                                          EngineKind::SqliteOverOdbc,
                                                          EngineKind::PostgreSql),
                                          testing::ValuesIn(kDoors)),
                         [](const auto& driven) {
                             return std::string(std::get<1>(driven.param).name) + "On" +
                                    store::TraitsOf(std::get<0>(driven.param)).name;
                         });

}  // namespace
}  // namespace zv::ring
