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

// A letter stands in parentheses behind the words, before the dots of what asks first.
bool HasTheOneNotation(const std::string& shown) {
    const auto mark = shown.find('&');
    if (mark == std::string::npos) return true;
    constexpr std::size_t kMarkLength = 4;  // "(&X)"
    return mark > 0 && shown[mark - 1] == '(' && shown.substr(mark + 2, 1) == ")" &&
           (mark - 1 + kMarkLength == shown.size() || shown.ends_with(")..."));
}

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
            EXPECT_TRUE(HasTheOneNotation(control->Marked(*control->AccessCaption())))
                << control->DisplayName();
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

TEST_F(AccessKeys, MenusMarkThemInTheOneNotationAndEachBelongsToOneEntry) {
    for (const std::int16_t language : {std::int16_t{0}, std::int16_t{1}}) {
        stage.session.state.Language = language;
        stage.session.windows.UnloadAll();
        std::map<std::pair<const forms::MenuItem*, char>, std::string> letters;
        for (const forms::MenuItem* entry : Open().Menus()) {
            const std::string shown = entry->Marked();
            const auto mark = shown.find('&');
            if (mark == std::string::npos) continue;
            EXPECT_TRUE(HasTheOneNotation(shown)) << shown;
            EXPECT_TRUE(letters.emplace(std::pair{entry->Parent(), shown[mark + 1]}, shown).second)
                << shown;
        }
        EXPECT_EQ(letters.size(), 35U);
    }
}

TEST_F(AccessKeys, ButtonsOfTheMainWindowMarkThemInTheOneNotation) {
    const forms::Form& window = Open();
    for (const forms::Control* control : window.Controls()) {
        if (LetterOf(*control) == 0) continue;
        EXPECT_TRUE(HasTheOneNotation(control->Marked(*control->AccessCaption())))
            << control->DisplayName();
    }
}

}  // namespace
}  // namespace zv::windows
