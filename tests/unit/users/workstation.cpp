#include "workstation.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <optional>
#include <sstream>
#include <stdexcept>

#include "application/item_user.h"
#include "application/test_application.h"
#include "base/text.h"
#include "windows/generation/boxes.h"
#include "windows/plan_editor/frm_task_set.h"

namespace zv::users {
namespace {

using forms::Answer;

// An answer has several lines; this ends it.
constexpr char kEnd = '\x04';
// A closed pipe would not do: a workstation that began later holds the other end, too.
constexpr const char* kQuit = "quit";

void WriteAll(int file, const std::string& text) {
    for (std::size_t at = 0; at < text.size();) {
        const ssize_t written = write(file, text.data() + at, text.size() - at);
        if (written <= 0) throw std::runtime_error("the other process is gone");
        at += static_cast<std::size_t>(written);
    }
}

/// Up to `end`, which is not part of it; nothing when the other side is gone.
std::optional<std::string> ReadUntil(int file, char end) {
    std::string text;
    for (char c = 0; read(file, &c, 1) == 1; text += c) {
        if (c == end) return text;
    }
    return std::nullopt;
}

/// What the process does.
class Desk {
 public:
    Desk(store::TestDatabase& database, store::EngineKind engine, const std::string& name) {
        stage_.opener.open = [&database](const store::ConnectionSettings&) {
            return database.Connect();
        };
        stage_.session.state.SQLData = engine == store::EngineKind::PostgreSql ? 1 : 0;
        stage_.session.state.UserName = name;
        user_.emplace(stage_);
    }

    std::string Do(const std::string& line) {
        std::istringstream words(line);
        std::string act, what, how;
        words >> act >> what >> how;
        stage_.dialogs.messages.clear();
        stage_.dialogs.answers.clear();
        if (act == "shows") return user_->Shows(what) ? "yes" : "no";
        try {
            Act(act, what, how);
        } catch (const RuntimeError& error) {
            stage_.dialogs.messages.push_back("error|" + error.Text());
        }
        return text::Join(stage_.dialogs.messages, "\n");
    }

 private:
    void Act(const std::string& act, const std::string& what, const std::string& how) {
        if (act == "seek") return user_->Seek(what);
        if (act == "add") return user_->Add(what, how);
        if (act == "save") {
            if (!what.empty()) stage_.dialogs.answers = {AnswerOf(what)};
            return user_->Save();
        }
        if (act == "generate") {
            stage_.dialogs.answers = {AnswerOf(how)};
            return windows::GenerateTaskList(stage_.session, what);
        }
        if (act == "open-plan") return OpenPlan(what, how);
        if (act == "save-plan") {
            if (!what.empty()) stage_.dialogs.answers = {AnswerOf(what)};
            return stage_.user.Click(PlanEditor().cmdOK);
        }
        if (!user_->Select(what)) throw std::logic_error("no such item: " + what);
        if (act == "open") return user_->Change(how);
        if (act == "complete") return user_->Complete();
        if (act == "delete") return user_->Delete();
        throw std::logic_error("unknown word: " + act);
    }
    void OpenPlan(const std::string& number, const std::string& content) {
        stage_.windows.FromHost([&] {
            windows::ShowPlanEditor(stage_.session, static_cast<std::int16_t>(std::stoi(number)),
                                    false);
        });
        stage_.user.Type(PlanEditor().txtTaskCon, content);
    }
    windows::frmTaskSet& PlanEditor() {
        auto* editor = stage_.windows.Find<windows::frmTaskSet>(windows::frmTaskSet::kName);
        if (!editor) throw std::logic_error("no plan is open");
        return *editor;
    }
    static Answer AnswerOf(const std::string& word) {
        if (word == "cancel") return Answer::Cancel;
        return word == "yes" ? Answer::Yes : Answer::No;
    }

    test::TestApplication stage_;
    std::optional<test::ItemUser> user_;
};

[[noreturn]] void Serve(store::TestDatabase& database, store::EngineKind engine,
                        const std::string& user, int orders, int answers) {
    int status = 0;
    try {
        Desk desk(database, engine, user);
        WriteAll(answers, std::string(1, kEnd));
        while (const auto line = ReadUntil(orders, '\n')) {
            if (*line == kQuit) break;
            WriteAll(answers, desk.Do(*line) + kEnd);
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "workstation %s: %s\n", user.c_str(), error.what());
        status = 1;
    }
    // The rest of the process belongs to the test.
    _exit(status);
}

}  // namespace

Workstation::Workstation(store::TestDatabase& database, store::EngineKind engine,
                         const std::string& user) {
    std::array<int, 2> orders{};
    std::array<int, 2> answers{};
    if (pipe(orders.data()) != 0 || pipe(answers.data()) != 0) {
        throw std::runtime_error("no pipes");
    }
    process_ = fork();
    if (process_ < 0) throw std::runtime_error("no process");
    if (process_ == 0) {
        close(orders[1]);
        close(answers[0]);
        Serve(database, engine, user, orders[0], answers[1]);
    }
    close(orders[0]);
    close(answers[1]);
    orders_ = orders[1];
    answers_ = answers[0];
    if (!ReadUntil(answers_, kEnd)) throw std::runtime_error("the workstation does not start");
}

Workstation::~Workstation() {
    try {
        Begin(kQuit);
    } catch (const std::exception&) {
        // It has ended already.
    }
    close(orders_);
    close(answers_);
    waitpid(process_, nullptr, 0);
}

void Workstation::Begin(const std::string& words) {
    WriteAll(orders_, words + '\n');
}

std::string Workstation::End() {
    auto answer = ReadUntil(answers_, kEnd);
    if (!answer) throw std::runtime_error("the workstation is gone");
    return std::move(*answer);
}

std::string Workstation::Do(const std::string& words) {
    Begin(words);
    return End();
}

}  // namespace zv::users
