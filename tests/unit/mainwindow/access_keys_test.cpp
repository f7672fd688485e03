// Letters and keys of all windows: no two of a window mean the same.
#include <functional>
#include <map>

#include "main_window_fixture.h"
#include "windows/completion/frm_task_done.h"
#include "windows/plan_editor/frm_task_set.h"
#include "windows/query/ask_window.h"
#include "windows/staff/frm_list.h"

namespace zv::windows {
namespace {

// The letter that Alt takes to the control, 0 for none.
char LetterOf(const forms::Control& control) {
    const std::string* caption = control.AccessCaption();
    if (!caption) return 0;
    const std::string shown = control.Marked(*caption);
    const auto mark = shown.find('&');
    return mark == std::string::npos || mark + 1 >= shown.size() ? '\0' : shown[mark + 1];
}

class AccessKeys : public MainWindow {
 protected:
    /// How many letters the window has; each is one control's.
    std::size_t CountLetters(const forms::Form& window) {
        std::map<char, std::string> letters;
        for (const forms::Control* control : window.Controls()) {
            const char letter = LetterOf(*control);
            if (letter == 0) continue;
            const auto [at, added] = letters.emplace(letter, control->DisplayName());
            EXPECT_TRUE(added) << window.Name() << ": " << control->DisplayName() << " and "
                               << at->second;
        }
        return letters.size();
    }
    std::size_t Letters(const std::function<void(Session&)>& open) {
        stage.session.windows.UnloadAll();
        open(stage.session);
        return CountLetters(*stage.session.windows.Windows().back());
    }
};

TEST_F(AccessKeys, EachBelongsToOneControl) {
    for (const std::int16_t language : {std::int16_t{0}, std::int16_t{1}}) {
        stage.session.state.Language = language;
        Open();
        EXPECT_EQ(Letters([](Session& session) { ShowPlanEditor(session, 0, false); }), 15U);
        EXPECT_EQ(Letters([](Session& session) { ShowAsk(session, false); }), 10U);
        EXPECT_EQ(Letters([](Session& session) { ShowStaffList(session, 0, false); }), 3U);
        EXPECT_EQ(Letters([](Session& session) { ShowTaskDone(session, 0, false); }), 4U);
    }
}

}  // namespace
}  // namespace zv::windows
