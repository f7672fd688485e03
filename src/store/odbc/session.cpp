#include "store/odbc/session.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "store/dialect/target.h"
#include "store/engines/engines.h"
#include "store/odbc/named_tables.h"
#include "store/odbc/written_names.h"
#include "store/one_statement.h"
#include "store/time_limit.h"

namespace zv::store::odbc {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kClosingLimit{2000};

/// How long before the caller's limit the driver has to give up, so that a server that answers
/// at all ends the statement in an orderly way.
milliseconds GraceOf(milliseconds limit) {
    return std::min(milliseconds{2000}, limit / 3);
}

std::chrono::seconds DriverLimit(milliseconds limit) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(limit - GraceOf(limit));
    return std::max(seconds, std::chrono::seconds{1});
}

dialect::Translation TranslationFor(const std::string& sql, const engines::Engine& engine,
                                    const dialect::SchemaInfo& schema) {
    if (engine.driverDialect) return dialect::Translate(sql, schema, *engine.driverDialect);
    // The server understands the statement better than anyone; only what it is about is of
    // interest.
    RequireOneStatement(sql, kErrorSource);
    return dialect::SentAsItIs(sql);
}

}  // namespace

template <class Job>
auto Session::Do(Job job, milliseconds limit, bool connecting) {
    CheckOpen();
    const std::shared_ptr<Link> link = link_;
    try {
        auto answer = worker_->Run([link, job = std::move(job)] { return job(*link); },
                                   limit - GraceOf(limit) / 2, limit,
                                   [link] { RunAside([link] { link->Cancel(); }); });
        if (!answer) GiveUp(connecting);
        return std::move(*answer);
    } catch (const RuntimeError&) {
        if (link->IsLost() && link_) Lose();
        throw;
    }
}

Session::Session(const OdbcOptions& options) : options_(options) {
    LinkOptions link{options.connectionString, options.name, options.secrets,
                     DriverLimit(options.connectLimit), DriverLimit(options.statementLimit)};
    worker_ = std::make_unique<Worker>();
    link_ = std::make_shared<Link>(std::move(link));
    facts_ = Do(
        [](Link& connecting) {
            connecting.Connect();
            return connecting.Facts();
        },
        options.connectLimit, true);
}

Session::~Session() {
    Close();
}

void Session::Close() noexcept {
    recordsets_->Abandon();
    if (!link_) return;
    try {
        // The driver's farewell to the server must not keep anyone either.
        worker_->Run(
            [link = std::move(link_)]() mutable {
                link.reset();
                return true;
            },
            kClosingLimit, kClosingLimit, {});
    } catch (...) {
        // Without memory or a thread for the way round, the link says farewell here.
    }
    link_.reset();
}

void Session::Lose() noexcept {
    lost_ = true;
    try {
        RunAside([link = std::move(link_)]() mutable { link.reset(); });
    } catch (...) {
        // As above.
    }
    link_.reset();
}

void Session::GiveUp(bool connecting) {
    lost_ = true;
    link_.reset();
    if (connecting) {
        throw RuntimeError(ErrorNumber::DatabaseFailure,
                           "Cannot connect to the database server \"" + options_.name +
                               "\": it did not answer within the time limit (" +
                               SecondsText(options_.connectLimit) + ").",
                           kErrorSource, ServerCode{"HYT01", 0})
            .Of(ErrorKind::ServerUnknown);
    }
    throw StatementTookTooLong("The database server", options_.statementLimit, kErrorSource);
}

void Session::CheckOpen() const {
    if (!link_) throw RuntimeError(ErrorNumber::ObjectClosed);
}

Result Session::Run(const std::string& sql, std::vector<Parameter> parameters, bool asStored) {
    inDoubt_ = true;
    try {
        Result result = Do([sql, parameters = std::move(parameters),
                            asStored](Link& link) { return link.Run(sql, parameters, asStored); },
                           options_.statementLimit);
        inDoubt_ = false;
        return result;
    } catch (const RuntimeError& error) {
        const bool ofNames = error.Number() == ErrorNumber::DatabaseTable ||
                             error.Number() == ErrorNumber::DatabaseColumn;
        const std::string* source = ofNames ? translations_.SourceOf(sql) : nullptr;
        if (!source) throw;
        throw RuntimeError(error.Number(), WithNamesAsWritten(error.Text(), *source),
                           error.Source(), error.Code())
            .Of(error.Kind());
    }
}

std::vector<Column> Session::Describe(const std::string& sql) {
    inDoubt_ = true;
    auto columns = Do([sql](Link& link) { return link.Describe(sql); }, options_.statementLimit);
    inDoubt_ = false;
    return columns;
}

const Table& Session::FindTable(const std::string& name) {
    const std::string key = text::ToLower(name);
    const auto known = tables_.find(key);
    if (known != tables_.end()) return known->second;
    // Where names are kept in one letter case, they are looked up in it.
    const std::string asked = facts_.engine->facts->StoredName(name);
    Table table =
        Do([asked](Link& link) { return link.DescribeTable(asked); }, options_.statementLimit);
    // One that is not there may come.
    static const Table kMissing;
    if (table.columns.empty()) return kMissing;
    for (std::size_t i = 0; i < table.columns.size(); i++) {
        schema_.AddColumn(table.columns[i].name, table.typeNames[i]);
    }
    if (table.key.size() == 1) schema_.AddKey(name, table.key.front());
    return tables_.emplace(key, std::move(table)).first->second;
}

const Table& Session::TableOf(const std::string& name) {
    const Table& table = FindTable(name);
    if (table.columns.empty()) {
        throw RuntimeError(ErrorNumber::DatabaseTable, "no such table: " + name, kErrorSource)
            .Of(ErrorKind::NoTable);
    }
    return table;
}

const dialect::SchemaInfo& Session::SchemaFor(const std::string& sql) {
    const engines::Facts& facts = *facts_.engine->facts;
    const std::string question = facts.WindowIndexQuestion();
    if (!std::exchange(knowsIndex_, true) && !question.empty()) {
        Result answer = Run(question);
        Value named;
        const bool found = answer.rows.Advance();
        if (found) answer.rows.Read(0, named);
        schema_.windowIndex = found && facts.IsWindowIndex(named) ? facts.WindowIndex() : nullptr;
    }
    for (const std::string& name : NamedTables(sql)) FindTable(name);
    return schema_;
}

void Session::ForgetSchema() {
    tables_.clear();
    schema_ = {};
    knowsIndex_ = false;
    translations_.Clear();
}

bool Session::IsOfOldFacts(const std::string& sql, const dialect::Translation& translation) {
    if (!options_.translate || !IsOpen() || !inDoubt_) return false;
    const auto tables = std::exchange(tables_, {});
    ForgetSchema();
    try {
        const auto present = Translated(sql);
        if (present->sql != translation.sql || present->table != translation.table) return true;
        for (const auto& [name, table] : tables_) {
            const auto before = tables.find(name);
            if (before != tables.end() &&
                (before->second.typeNames != table.typeNames || before->second.key != table.key)) {
                return true;
            }
        }
    } catch (const RuntimeError&) {
        // The first error says more about the statement.
    }
    return false;
}

std::shared_ptr<const dialect::Translation> Session::Translated(const std::string& sql) {
    CheckOpen();
    // What was learnt of the tables may be why the last statement failed.
    if (std::exchange(inDoubt_, false)) ForgetSchema();
    return translations_.For(sql, [&] {
        if (options_.translate) return TranslationFor(sql, *facts_.engine, SchemaFor(sql));
        return dialect::Untranslated(sql);
    });
}

std::string Session::Quoted(const std::string& name) const {
    const std::string& quote = facts_.quote;
    if (quote.empty()) return name;
    return quote + text::Replace(name, quote, quote + quote) + quote;
}

}  // namespace zv::store::odbc
