// A user who works on for days, and what has been promised to him.
#include <iterator>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <stdexcept>

#include "application/item_user.h"
#include "application/test_application.h"
#include "doubles/rows_of.h"
#include "power_run.h"
#include "ring/flows/flow.h"
#include "store/sqlite/sqlite_connection.h"
#include "windows/generation/boxes.h"
#include "zvdb/own_modules.h"

namespace zv::ring {
namespace {

constexpr const char* kAbsent = "absent";
constexpr const char* kPlan = "7";
constexpr std::size_t kMostItems = 8;
constexpr std::size_t kRights = 300;

/// What may be stored: of each item its content and state in one text, of the plan whether all of
/// its items are there.
struct Promises {
    std::map<std::string, std::set<std::string>> items;
    bool isPlanWhole = false;
};

std::string Rows(const std::string& file, const std::string& query) {
    store::SqliteOptions options;
    options.translate = false;
    return doubles::RowsOf(*store::OpenSqlite(file, options), query);
}

std::vector<std::string> Broken(const Promises& promises, const std::filesystem::path& folder) {
    const std::string file = Utf8Of(folder / "t.db");
    std::vector<std::string> wrong = WrongWithFile(file);
    if (!wrong.empty()) return wrong;
    for (const auto& [title, possible] : promises.items) {
        std::string found = Rows(
            file, "select fContent||' '||tDone from tTaskList where taskTitle='" + title + "'");
        if (found.empty()) found = kAbsent;
        if (possible.contains(found)) continue;
        wrong.push_back(title + " is " + found.substr(0, 40) + " and not " +
                        possible.begin()->substr(0, 40));
    }
    const std::string days =
        Rows(file, "select count(*)||' '||count(distinct taskTime) from tTaskList where TaskID=7");
    if (promises.isPlanWhole && days != "10 10") wrong.push_back("the plan's items: " + days);
    return wrong;
}

class Work final : public Play {
 public:
    Work(std::uint32_t seed, bool rollBack) : random_(seed) {
        app_.Sql(
            "insert into tTaskSet(TaskID,taskTitle,tbegin,tEnd,CircleType,CircleValue,Type,"
            "TypeValue,Content) values(7,'plan','2003-03-01 00:00:00','2003-03-10 00:00:00',"
            "2,1,1,1,'')");
        if (rollBack) app_.Sql("pragma journal_mode=delete");
        for (const std::string& module : zvdb::RegisterOwnModules()) app_.Sql(module);
        app_.session.state.myPower = std::string(kRights, '1');
        user_.emplace(app_);
    }

    std::filesystem::path Folder() const override { return app_.folder; }
    Promise Now() const override {
        return [promises = promises_](const std::filesystem::path& folder) {
            return Broken(promises, folder);
        };
    }

    bool Step() override {
        app_.dialogs.messages.clear();
        app_.dialogs.answers = {forms::Answer::Yes, forms::Answer::Ok};
        enum { Add, Change, Mark, Delete, Generate, Close };
        std::discrete_distribution<int> weights{30, 25, 15, 15, 4, 6};
        int act = weights(random_);
        const bool needsItem = act == Change || act == Mark || act == Delete;
        if (needsItem && states_.empty()) act = Add;
        if (act == Add && states_.size() >= kMostItems) act = Delete;
        switch (act) {
            case Add:
                AddItem();
                break;
            case Change:
                ChangeItem();
                break;
            case Mark:
                MarkItem();
                break;
            case Delete:
                DeleteItem();
                break;
            case Generate:
                GenerateItems();
                break;
            default:
                // The last one to close empties the log into the file.
                app_.session.database.Close();
                break;
        }
        return true;
    }

 private:
    struct State {
        std::string content;
        bool done = false;
        std::string Text() const { return content + (done ? " 1" : " 0"); }
    };

    const std::string& AnyTitle() {
        return std::next(states_.begin(), static_cast<std::ptrdiff_t>(random_() % states_.size()))
            ->first;
    }
    /// Up to some pages long.
    std::string NewContent() {
        return std::to_string(++serial_) + std::string(random_() % 9000, 'x');
    }
    void Require(bool acknowledged, const std::string& title) const {
        if (acknowledged) return;
        std::string reason = "not acknowledged: " + title;
        for (const std::string& message : app_.dialogs.messages) reason += ' ' + message;
        throw std::runtime_error(reason);
    }
    /// From here on the item may be that too.
    void Begin(const std::string& title, const std::string& state) {
        promises_.items[title].insert(state);
    }
    /// The user was shown that it is.
    void Promised(const std::string& title, const std::string& state) {
        promises_.items[title] = {state};
    }

    void AddItem() {
        const std::string title = "w-" + std::to_string(++serial_);
        const State state{NewContent()};
        Promised(title, kAbsent);
        Begin(title, state.Text());
        user_->Seek("w-");
        user_->Add(title, state.content);
        Require(user_->Said("[" + title + "]"), title);
        states_[title] = state;
        Promised(title, state.Text());
    }
    void ChangeItem() {
        const std::string title = AnyTitle();
        State& state = states_.at(title);
        state.content = NewContent();
        Begin(title, state.Text());
        user_->Seek(title);
        Require(user_->Select(title), title);
        user_->Change(state.content);
        user_->Save();
        Require(user_->Said("[" + title + "]"), title);
        Promised(title, state.Text());
    }
    void MarkItem() {
        const std::string title = AnyTitle();
        State& state = states_.at(title);
        if (state.done) return;
        state.done = true;
        Begin(title, state.Text());
        user_->Seek(title);
        Require(user_->Select(title), title);
        user_->Complete();
        Require(!user_->SaidError(), title);
        Promised(title, state.Text());
    }
    void DeleteItem() {
        const std::string title = AnyTitle();
        Begin(title, kAbsent);
        user_->Seek(title);
        Require(user_->Select(title), title);
        user_->Delete();
        Require(!user_->SaidError() && !user_->Shows(title), title);
        Promised(title, kAbsent);
        states_.erase(title);
    }
    void GenerateItems() {
        promises_.isPlanWhole = false;
        app_.windows.FromUser([this] { windows::GenerateTaskList(app_.session, kPlan); });
        Require(!user_->SaidError(), "plan");
        promises_.isPlanWhole = true;
    }

    std::mt19937 random_;
    test::TestApplication app_;
    std::optional<test::ItemUser> user_;
    std::map<std::string, State> states_;
    Promises promises_;
    int serial_ = 0;
};

}  // namespace

std::unique_ptr<Play> MakeWork(std::uint32_t seed, bool rollBack) {
    return std::make_unique<Work>(seed, rollBack);
}

}  // namespace zv::ring
