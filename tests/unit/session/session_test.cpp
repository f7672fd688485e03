#include "session/session.h"

#include <gtest/gtest.h>

#include "application/test_application.h"

namespace zv {
namespace {

TEST(Session, OpensWithWhatTheControlHolds) {
    test::TestApplication stage;
    stage.session.state.Password = "pw";
    stage.session.database.EnsureConnection();
    EXPECT_EQ(stage.opener.last.kind, 0);
    EXPECT_EQ(stage.opener.last.dataPath, stage.Path("t.db"));
    EXPECT_EQ(stage.opener.last.password, "pw");
    stage.session.database.EnsureConnection();
    EXPECT_EQ(stage.opener.openings, 1);
}

TEST(Session, AKindBelowZeroIsAFile) {
    test::TestApplication stage;
    stage.session.state.SQLData = -1;
    EXPECT_EQ(stage.session.Settings().kind, 0);
    stage.session.state.SQLData = 2;
    EXPECT_EQ(stage.session.Settings().kind, 2);
}

TEST(Session, TheDateDelimiterFollowsTheKind) {
    test::TestApplication stage;
    const DateTime day(2003, 3, 7);
    stage.session.database.EnsureConnection();
    EXPECT_EQ(stage.session.database.DateLiteral(day), "#03/07/2003#");
    store::ConnectionSettings server = stage.session.Settings();
    server.kind = 1;
    stage.session.database.OpenConnection(server);
    EXPECT_EQ(stage.session.database.DateLiteral(day), "'03/07/2003'");
}

TEST(Session, TheKindInUseIsThatOfTheOpenConnectionAndElseThatOfTheProperties) {
    test::TestApplication stage;
    stage.session.state.SQLData = 2;
    EXPECT_EQ(stage.session.DatabaseKind(), 2);
    stage.session.database.OpenConnection(stage.session.Settings());
    stage.session.state.SQLData = 0;
    EXPECT_EQ(stage.session.DatabaseKind(), 2);
    stage.session.database.Leave();
    EXPECT_EQ(stage.session.DatabaseKind(), 0);
}

TEST(Session, AFailedOpeningNamesReasonAndPath) {
    test::TestApplication stage;
    stage.session.state.UserPath = stage.Path("missing file 数据.mdb");
    try {
        stage.session.database.EnsureConnection();
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_NE(error.Text().find("missing file 数据.mdb"), std::string::npos) << error.Text();
        EXPECT_GT(error.Text().size(), stage.session.state.UserPath.ForOwner().size());
    }
}

TEST(Session, BoxesCarryTheProductTitle) {
    test::TestApplication stage;
    EXPECT_EQ(stage.windows.title, resources::LoadText(1, 0));
    stage.session.state.Language = 1;
    stage.session.SetApplicationTitle();
    EXPECT_EQ(stage.windows.title, resources::LoadText(1, 1));
    stage.session.state.Language = 9;
    stage.session.SetApplicationTitle();
    EXPECT_EQ(stage.windows.title, resources::LoadText(1, 0));
}

}  // namespace
}  // namespace zv
