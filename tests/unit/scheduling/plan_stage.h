// A session without a display on an embedded database in a folder of its own: boxes are answered
// from a queue, statements are kept, and any one of them can be made to fail.
#pragma once

#include <atomic>
#include <chrono>
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "base/errors.h"
#include "forms/headless/headless_backend.h"
#include "forms/headless/headless_driver.h"
#include "session/session.h"
#include "store/schema/schema.h"
#include "store/sqlite/sqlite_connection.h"

namespace zv::scheduling::stage {

class Clock : public platform::Clock {
 public:
    DateTime Now() const override { return DateTime(2003, 3, 7, 9, 30); }
};

/// Two bytes for every character beyond ASCII but an emoji, which a Chinese code page lacks.
class CodePage : public platform::AnsiCodePage {
 public:
    int ByteWidth(char32_t c) const override { return c < 0x80 || c > 0xFFFF ? 1 : 2; }
};

class Shell : public platform::Shell {
 public:
    void Open(const std::string&) override {}
    std::string DialerPath() const override { return {}; }
    void Start(const std::string&) override {}
    void SendKeys(const std::string&) override {}
};

class Files : public platform::FileSystem {
 public:
    bool FileExists(const std::string&) const override { return false; }
    std::string ApplicationFolder() const override { return "C:\\App"; }
};

class Modules : public platform::ModuleRunner {
 public:
    void Run(const platform::ModuleStart&) override {}
};

class Settings : public resources::SettingsStore {
 public:
    std::string Get(std::string_view, std::string_view, std::string_view,
                    std::string_view fallback) const override {
        return std::string(fallback);
    }
    void Save(std::string_view, std::string_view, std::string_view, std::string_view) override {}
};

class Opener : public store::ConnectionOpener {
 public:
    std::unique_ptr<store::Connection> Open(const store::ConnectionSettings& settings) override {
        return store::OpenSqlite(settings.dataPath);
    }
};

class Dialogs : public forms::Dialogs {
 public:
    forms::Answer ShowMessage(forms::Form*, const std::string& text, int style,
                              const std::string&) override {
        messages.push_back(std::to_string(style) + "|" + text);
        if (onMessage) onMessage(text);
        const bool asks = (style & 0xF) != forms::box::kOkOnly;
        if (!asks) return forms::Answer::Ok;
        if (answers.empty()) throw std::logic_error("no answer for " + text);
        const forms::Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    std::optional<std::string> AskText(forms::Form*, const std::string&, const std::string&,
                                       bool) override {
        return {};
    }
    std::optional<std::string> ChooseFile(forms::Form*, const forms::FileRequest&) override {
        return {};
    }
    std::deque<forms::Answer> answers;
    std::vector<std::string> messages;  ///< "STYLE|TEXT"
    std::function<void(const std::string&)> onMessage;
};

/// Keeps statements; a row that is written counts as one, shown as "row".
class Statements : public store::StatementObserver {
 public:
    void OnStatement(const std::string& sql) override { Note(sql); }
    void OnRowUpdate() override {
        if (onRow) onRow();
        Note("row");
    }
    std::function<void()> onRow;
    std::vector<std::string> Take() { return std::exchange(lines_, {}); }
    /// The `count`-th row that is written from now on fails.
    void FailRow(int count) { rowsToFailure_ = count; }

 private:
    void Note(const std::string& line) {
        lines_.push_back(line);
        if (line == "row" && rowsToFailure_ > 0 && --rowsToFailure_ == 0) {
            throw RuntimeError(ErrorNumber::DatabaseFailure, "disk full");
        }
    }
    std::vector<std::string> lines_;
    int rowsToFailure_ = 0;
};

class Stage {
 public:
    Stage() {
        static std::atomic<int> count{0};
        const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
        folder_ = std::filesystem::temp_directory_path() /
                  ("zv_plans_" + std::to_string(ticks) + "_" + std::to_string(count++));
        std::filesystem::create_directories(folder_);
        const std::string path = (folder_ / "t.db").string();
        store::CreateSqliteDatabase(path);
        session.state.UserPath = path;
        session.state.UserName = "张三";
        host_ = store::OpenSqlite(path, EngineDialect());
    }
    ~Stage() {
        windows.UnloadAll();
        session.database.Close();
        host_.reset();
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// On a connection of its own, as another user's program would.
    void Sql(const std::string& statement) { host_->Execute(statement); }
    /// A line a row, columns joined by "|".
    std::string Rows(const std::string& query) {
        const auto rows =
            host_->Open(query, store::CursorType::ForwardOnly, store::LockType::ReadOnly);
        std::string text;
        for (; !rows->Eof(); rows->MoveNext()) {
            for (int column = 0; column < rows->FieldCount(); column++) {
                text += (column > 0     ? "|"
                         : text.empty() ? ""
                                        : "\n") +
                        rows->Field(column).ToText();
            }
        }
        return text;
    }

    Clock clock;
    CodePage codePage;
    Shell shell;
    Files files;
    Modules modules;
    platform::Machine machine{clock, codePage, shell, files, modules};
    Settings settings;
    Opener opener;
    Statements statements;
    Dialogs dialogs;
    forms::headless::HeadlessBackend backend{dialogs};
    forms::WindowSystem windows{backend};
    Session session{machine, settings, opener, windows, &statements};
    forms::headless::HeadlessDriver user;

 private:
    static store::SqliteOptions EngineDialect() {
        store::SqliteOptions options;
        options.translate = false;
        options.datesAsText = true;
        return options;
    }

    std::filesystem::path folder_;
    std::unique_ptr<store::Connection> host_;
};

}  // namespace zv::scheduling::stage
