// What a screen reader says of the controls that the user can reach.
#include <algorithm>
#include <cctype>

#include "forms/containers.h"
#include "main_window_fixture.h"
#include "windows/query/ask_window.h"
#include "windows/query/layout_chooser.h"
#include "windows/query/query_builder.h"

namespace zv::windows {
namespace {

constexpr std::int32_t kPlanEditorMode = 2;
constexpr std::int32_t kStaffMode = 3;
constexpr std::int32_t kMarkOrAskMode = 5;
constexpr std::int32_t kAddOrAskMode = 7;
constexpr std::int32_t kCardMode = 9;

/// Nothing for a caption of signs only, which is seen and not heard.
std::string Spoken(const forms::Control& control) {
    std::string name = control.AccessibleName();
    if (name.empty() && control.AccessCaption()) name = *control.AccessCaption();
    const bool signsOnly = std::all_of(name.begin(), name.end(), [](char c) {
        return std::ispunct(static_cast<unsigned char>(c)) || c == ' ';
    });
    return signsOnly ? std::string() : name;
}

/// The controls of all windows of which nothing would be said, each once.
Lines Silent(forms::WindowSystem& windows) {
    Lines silent;
    for (const forms::Form* form : windows.Windows()) {
        for (const forms::Control* control : form->Controls()) {
            // Its tabs have captions of their own.
            if (!control->IsTabStop() || control->Kind() == forms::ControlKind::TabPanel) continue;
            if (Spoken(*control).empty())
                silent.push_back(form->Name() + "." + control->DisplayName());
        }
    }
    return silent;
}

class SpokenNames : public MainWindow, public testing::WithParamInterface<std::int16_t> {
 protected:
    SpokenNames() { stage.session.state.Language = GetParam(); }
};

INSTANTIATE_TEST_SUITE_P(BothScripts, SpokenNames,
                         testing::Values(resources::kSimplifiedChinese,
                                         resources::kTraditionalChinese));

TEST_P(SpokenNames, EveryControlOfTheManagerHasOne) {
    Open();
    EXPECT_EQ(Silent(stage.windows), Lines{});
}

TEST_P(SpokenNames, EveryControlOfTheAlertWindowAndOfTheCardsHasOne) {
    Open(kCardMode);
    EXPECT_EQ(Silent(stage.windows), Lines{});
}

TEST_P(SpokenNames, EveryControlOfAWindowThatAHostOpensHasOne) {
    for (const std::int32_t mode : {kPlanEditorMode, kStaffMode, kMarkOrAskMode, kAddOrAskMode}) {
        EXPECT_EQ(stage.Refresh(mode), 0) << stage.errorText;
        EXPECT_FALSE(stage.windows.IsEmpty());
        EXPECT_EQ(Silent(stage.windows), Lines{}) << "mode " << mode;
        stage.windows.UnloadAll();
    }
}

TEST_P(SpokenNames, EveryControlOfTheQueriesAndListsHasOne) {
    stage.session.database.EnsureConnection();
    stage.windows.Create<frmAsk>(stage.session).Show(false);
    stage.windows.Create<frmSeek>(stage.session).Show(false);
    stage.windows.Create<frmItemSet>(stage.session).Show(false);
    EXPECT_EQ(stage.windows.Windows().size(), 3U);
    EXPECT_EQ(Silent(stage.windows), Lines{});
}

}  // namespace
}  // namespace zv::windows
