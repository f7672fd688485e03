#include "stage/stage.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <stdexcept>
#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "resources/error_texts.h"
#include "store/sqlite/create_database.h"
#include "store/sqlite/sqlite_connection.h"

namespace zv::stage {
namespace {

std::filesystem::path NewFolder() {
    static std::atomic<int> count = 0;
    for (;;) {
        const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
        const auto folder = std::filesystem::temp_directory_path() /
                            ("zv-stage-" + std::to_string(now) + "-" + std::to_string(count++));
        if (std::filesystem::create_directory(folder)) return folder;
    }
}

}  // namespace

namespace {

class FileInMemory : public platform::OutputFile {
 public:
    FileInMemory(Files& files, std::string path) : files_(files), path_(std::move(path)) {}
    void Write(std::string_view bytes) override {
        if (!files_.failing.empty()) throw RuntimeError(ErrorNumber::DiskFull, files_.failing);
        bytes_ += bytes;
    }
    void Commit() override { files_.written[path_] = bytes_; }

 private:
    Files& files_;
    std::string path_;
    std::string bytes_;
};

}  // namespace

std::unique_ptr<platform::OutputFile> Files::Create(const std::string& path) {
    return std::make_unique<FileInMemory>(*this, path);
}

std::string Settings::Get(std::string_view application, std::string_view section,
                          std::string_view key, std::string_view fallback) const {
    if (application != resources::kApplication) return std::string(fallback);
    const auto found = values.find(std::string(section) + "." + std::string(key));
    return found == values.end() ? std::string(fallback) : found->second;
}

void Settings::Save(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view text) {
    if (application != resources::kApplication) throw std::logic_error("foreign application");
    values[std::string(section) + "." + std::string(key)] = text;
}

forms::Answer Dialogs::ShowMessage(forms::Form*, const std::string& text, int style,
                                   const std::string&) {
    messages.push_back(std::to_string(style) + "|" + text);
    if (onMessage) onMessage(text);
    if ((style & 0xF) == forms::box::kOkOnly && mustHaveAnswers) return forms::Answer::Ok;
    if (answers.empty()) {
        if (mustHaveAnswers) throw std::logic_error("no answer for " + text);
        return forms::Answer::Ok;
    }
    const forms::Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

std::optional<std::string> Dialogs::AskText(forms::Form*, const std::string& prompt,
                                            const std::string&, bool) {
    prompts.push_back(prompt);
    if (inputs.empty()) return std::nullopt;
    const auto input = inputs.front();
    inputs.pop_front();
    return input;
}

std::optional<std::string> Dialogs::ChooseFile(forms::Form*, const forms::FileRequest& request) {
    fileRequests.push_back(request);
    return AskText(nullptr, request.title, {}, false);
}

void Statements::OnStatement(const std::string& sql) {
    sent_.push_back(sql);
    if (!failing.empty() && text::Contains(sql, failing)) {
        throw RuntimeError(ErrorNumber::DatabaseFailure, failing);
    }
}

void Statements::OnRowUpdate() {
    if (onRow) onRow();
    if (tellsRows) sent_.emplace_back("row");
    if (rowsToFailure_ > 0 && --rowsToFailure_ == 0) {
        throw RuntimeError(ErrorNumber::DatabaseFailure, "disk full");
    }
    if (!failingUpdate.empty()) throw RuntimeError(ErrorNumber::DatabaseFailure, failingUpdate);
}

std::vector<std::string> Statements::Take() {
    return std::exchange(sent_, {});
}

std::unique_ptr<store::Connection> Opener::Open(const store::ConnectionSettings& settings) {
    openings++;
    last = settings;
    return open ? open(settings) : store::OpenSqlite(settings.dataPath.ForDriver());
}

BagValue Bag::Read(std::string_view key, const BagValue& fallback) {
    readKeys.emplace_back(key);
    const auto found = std::find_if(values.begin(), values.end(), [&](const auto& entry) {
        return text::EqualsIgnoreCase(entry.first, key);
    });
    if (found == values.end()) return fallback;
    if (found->second.index() == fallback.index()) return found->second;
    const auto* stored = std::get_if<std::string>(&found->second);
    if (!stored) throw RuntimeError(ErrorNumber::TypeMismatch);
    if (std::holds_alternative<std::int16_t>(fallback)) return number::ToInt16(*stored);
    return number::ToInt16(*stored) != 0;
}

void Bag::Write(std::string_view key, const BagValue& value) {
    values.emplace_back(std::string(key), value);
    std::string text;
    if (const auto* number = std::get_if<std::int16_t>(&value))
        text = std::to_string(*number);
    else if (const auto* truth = std::get_if<bool>(&value))
        text = *truth ? "true" : "false";
    else
        text = std::get<std::string>(value);
    written.push_back(std::string(key) + "=" + text);
}

Stage::Stage() {
    folder = NewFolder();
    store::CreateSqliteDatabase(Path("t.db"));
    control.UserControl_InitProperties();
    session.state.UserPath = Path("t.db");
    session.state.UserName = "张三";
    session.state.ZgName = "李四";
}

Stage::~Stage() {
    windows.UnloadAll();
    session.database.Close();
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

void Stage::Sql(const std::string& script) {
    store::SqliteOptions options;
    options.translate = false;
    const auto connection = store::OpenSqlite(Path("t.db"), options);
    for (const std::string& statement : text::Split(script, ";")) {
        connection->Execute(statement);
    }
}

std::string Stage::Query(const std::string& statement) {
    store::SqliteOptions options;
    options.translate = false;
    const auto connection = store::OpenSqlite(Path("t.db"), options);
    return connection->Open(statement, store::CursorType::ForwardOnly, store::LockType::ReadOnly)
        ->Field(0)
        .ToText();
}

std::string Stage::Rows(const std::string& query) {
    store::SqliteOptions options;
    options.translate = false;
    options.datesAsText = true;
    const auto connection = store::OpenSqlite(Path("t.db"), options);
    const auto rows =
        connection->Open(query, store::CursorType::ForwardOnly, store::LockType::ReadOnly);
    std::string text;
    for (; !rows->Eof(); rows->MoveNext()) {
        if (!text.empty()) text += '\n';
        for (int column = 0; column < rows->FieldCount(); column++) {
            if (column > 0) text += '|';
            text += rows->Field(column).ToText();
        }
    }
    return text;
}

int Stage::Refresh(std::int32_t mode, std::int16_t modal) {
    try {
        control.refresh(mode, modal);
    } catch (const RuntimeError& error) {
        errorText = resources::DescribeError(error, session.state.Language);
        return static_cast<int>(error.Number());
    }
    return 0;
}

windows::frmTaskMain* Stage::Window() {
    return windows.Find<windows::frmTaskMain>(windows::frmTaskMain::kName);
}

std::string Stage::Nodes() {
    return user.Read(Window()->tree.tvwTask, "nodes", {}).value();
}

std::string Stage::NodeKeys() {
    const forms::TreeView& tree = Window()->tree.tvwTask;
    std::string keys;
    for (int node = tree.FirstRoot(); node != forms::TreeView::kNone;
         node = tree.NextInOrder(node)) {
        if (!keys.empty()) keys += ' ';
        keys += tree.Key(node);
    }
    return keys;
}

}  // namespace zv::stage
