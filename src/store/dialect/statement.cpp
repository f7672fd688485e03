#include <algorithm>
#include <utility>

#include "base/date_time.h"
#include "base/text.h"
#include "store/dialect/parser.h"

namespace zv::store::dialect {
namespace {

std::string Joined(const std::vector<std::string>& parts) {
    return text::Join(parts, ",");
}

}  // namespace

Translation Parser::ParseStatement() {
    Translation translation;
    if (IsKeyword("select")) {
        translation.sql = ParseSelect(&translation);
    } else if (IsKeyword("insert")) {
        translation = ParseInsert();
    } else if (IsKeyword("update")) {
        translation = ParseUpdate();
    } else if (IsKeyword("delete")) {
        translation = ParseDelete();
    } else if (IsKeyword("drop")) {
        translation = ParseDrop();
    } else {
        Unexpected();
    }
    AcceptSymbol(";");
    if (Peek().kind != TokenKind::End) Unexpected();
    return translation;
}

std::string Parser::ParseSelect(Translation* translation) {
    const DepthGuard guard(*this);
    // A select inside another keeps its own account of columns and totals.
    const bool outerAggregate = std::exchange(sawAggregate_, false);
    auto outerColumns = std::exchange(columns_, {});

    Select select = ParseSelectCore();
    bool united = false;
    std::string sql;
    while (IsKeyword("union")) {
        if (!select.limit.empty()) Unexpected();
        united = true;
        Take();
        const std::string link = AcceptKeyword("all") ? " union all " : " union ";
        sql += Compose(select) + link;
        select = ParseSelectCore();
    }
    if (united && !select.limit.empty()) Unexpected();

    const bool writable = translation && !united && select.source.single &&
                          !select.source.firstTable.empty() && !select.distinct &&
                          !select.aggregate && !select.grouped;
    // The rows of a table are distinct where its key is shown; engines do not look for that.
    if (select.source.single && ShowsKey(select)) select.distinct = false;
    select.orderBy = ParseOrder(select, !united && !select.distinct);
    if (writable) translation->table = select.source.firstName;
    if (writable && target_.NumbersRows()) {
        const std::string key = select.source.firstAlias + ".\"rowid\"";
        Select keys = select;
        keys.columns = {key};
        translation->keySql = Compose(keys);
        Select row = select;
        row.where = key + "=?1";
        row.orderBy.clear();
        row.limit.clear();
        translation->rowSql = Compose(row);
    }
    if (!united) UseWindowIndex(select);
    sql += Compose(select);

    sawAggregate_ = outerAggregate;
    outerColumns.insert(outerColumns.end(), columns_.begin(), columns_.end());
    columns_ = std::move(outerColumns);
    return sql;
}

Parser::Select Parser::ParseSelectCore() {
    Select select;
    ExpectKeyword("select");
    if (AcceptKeyword("distinct") || AcceptKeyword("distinctrow"))
        select.distinct = true;
    else
        AcceptKeyword("all");
    if (IsKeyword("top") && Peek(1).kind == TokenKind::Number) {
        Take();
        const Token count = Take();
        if (count.text.find_first_not_of("0123456789") != std::string::npos ||
            count.text.size() > 9) {
            ThrowAt("\"top\" takes a whole number", count.position);
        }
        select.limit = count.text;
    }
    ParseColumns(select);
    if (AcceptKeyword("from")) select.source = ParseFrom();
    if (AcceptKeyword("where")) {
        const Expression condition = ParseCondition();
        select.where = condition.sql;
        select.bounds = condition.bounds;
    }
    if (AcceptKeyword("group")) {
        ExpectKeyword("by");
        select.grouped = true;
        for (Expression& term : ParseList()) {
            target_.MakeColumn(term);
            select.groupBy += (select.groupBy.empty() ? " group by " : ",") + term.sql;
        }
        if (AcceptKeyword("having")) select.groupBy += " having " + ParseCondition().sql;
    }
    select.aggregate = sawAggregate_;
    return select;
}

void Parser::ParseColumns(Select& select) {
    do {
        if (AcceptSymbol("*")) {
            select.columns.emplace_back("*");
            select.bareStar = true;
            select.covered = false;
            continue;
        }
        if (IsName() && IsSymbol(".", 1) && IsSymbol("*", 2)) {
            select.columns.push_back(target_.Name(Take().text) + ".*");
            Take();
            Take();
            select.covered = false;
            continue;
        }
        Expression column = ParseExpression();
        if (!column.column.empty()) select.plainColumns.push_back(column.column);
        target_.MakeColumn(column);
        std::string sql = column.sql;
        if (const std::string alias = ParseAlias(); !alias.empty()) {
            sql += " as " + alias;
            select.aliases.push_back(alias);
        }
        select.columns.push_back(std::move(sql));
    } while (AcceptSymbol(","));
}

std::string Parser::ParseAlias() {
    if (AcceptKeyword("as")) return target_.Name(ExpectName());
    return IsName() ? target_.Name(Take().text) : std::string();
}

std::string Parser::ParseTableName(std::string* plainName) {
    std::string name = ExpectName();
    if (text::EqualsIgnoreCase(name, "dbo") && AcceptSymbol(".")) name = ExpectName();
    if (plainName) *plainName = name;
    return target_.Name(name);
}

std::string Parser::ParseTable(Source& source, bool first) {
    const DepthGuard guard(*this);
    if (AcceptSymbol("(")) {
        source.enclosed = true;
        std::string inner;
        const bool subquery = IsKeyword("select");
        if (subquery) {
            inner = ParseSelect(nullptr);
        } else {
            const Source joined = ParseFrom();
            inner = joined.firstSql + joined.joins;
        }
        ExpectSymbol(")");
        std::string alias = ParseAlias();
        if (subquery && alias.empty()) alias = target_.SubqueryName(++subqueries_);
        return "(" + inner + ")" + (alias.empty() ? "" : " as " + alias);
    }
    std::string plain;
    const std::string name = ParseTableName(&plain);
    const std::string alias = ParseAlias();
    if (first) {
        source.firstTable = name;
        source.firstName = plain;
        source.firstAlias = alias.empty() ? name : alias;
    } else {
        source.otherAliases.push_back(alias.empty() ? name : alias);
    }
    return alias.empty() ? name : name + " as " + alias;
}

Parser::Source Parser::ParseFrom() {
    Source source;
    source.firstSql = ParseTable(source, true);
    while (true) {
        std::string join;
        if (AcceptSymbol(",")) {
            source.joins += "," + ParseTable(source, false);
            source.single = false;
            continue;
        }
        if (AcceptKeyword("left")) {
            join = " left join ";
            AcceptKeyword("outer");
        } else if (IsKeyword("right") || IsKeyword("full")) {
            join = AcceptKeyword("right") ? " right join " : " full join ";
            AcceptKeyword("full");
            AcceptKeyword("outer");
            source.outerFirst = true;
        } else if (AcceptKeyword("inner")) {
            join = " join ";
        } else if (AcceptKeyword("cross")) {
            join = " cross join ";
        } else if (IsKeyword("join")) {
            join = " join ";
        } else {
            return source;
        }
        ExpectKeyword("join");
        source.joins += join + ParseTable(source, false);
        source.single = false;
        if (AcceptKeyword("on")) source.joins += " on " + ParseCondition().sql;
    }
}

bool Parser::ShowsKey(const Select& select) const {
    return std::any_of(
        select.plainColumns.begin(), select.plainColumns.end(),
        [&](const std::string& name) { return schema_.IsKey(select.source.firstName, name); });
}

std::string Parser::ParseOrder(const Select& select, bool mayCompute) {
    if (!AcceptKeyword("order")) return {};
    ExpectKeyword("by");
    std::string sql;
    do {
        Expression term = ParseExpression();
        const bool descending = AcceptKeyword("desc");
        if (!descending) AcceptKeyword("asc");
        const bool alias = std::find(select.aliases.begin(), select.aliases.end(), term.sql) !=
                           select.aliases.end();
        sql += sql.empty() ? " order by " : ",";
        sql += target_.SortTerm(std::move(term), descending, mayCompute && !alias);
    } while (AcceptSymbol(","));
    return sql;
}

std::string Parser::Compose(const Select& select) {
    std::string sql = select.distinct ? "select distinct " : "select ";
    sql += Joined(select.columns);
    if (!select.source.firstSql.empty()) {
        sql += " from " + select.source.firstSql + select.source.joins;
    }
    if (!select.where.empty()) sql += " where " + select.where;
    sql += select.groupBy + select.orderBy;
    if (!select.limit.empty()) sql += " limit " + select.limit;
    return sql;
}

void Parser::UseWindowIndex(Select& select) const {
    Source& source = select.source;
    const WindowIndex* index = schema_.windowIndex;
    if (!index || source.outerFirst || source.firstTable.empty() ||
        !text::EqualsIgnoreCase(source.firstName, index->table)) {
        return;
    }
    // The tightest bounds on the items' window.
    std::string lastDay, firstDay;
    for (const WindowBound& bound : select.bounds) {
        const bool own =
            bound.qualifier.empty()
                ? source.single
                : text::EqualsIgnoreCase(target_.Name(bound.qualifier), source.firstAlias);
        if (!own) continue;
        if (bound.lower)
            firstDay = std::max(firstDay, bound.date);
        else if (lastDay.empty() || bound.date < lastDay)
            lastDay = bound.date;
    }
    if (firstDay.empty() || lastDay.empty()) return;
    const bool covered =
        select.covered && std::all_of(columns_.begin(), columns_.end(), [&](const auto& column) {
            const bool other =
                !column.first.empty() &&
                !text::EqualsIgnoreCase(target_.Name(column.first), source.firstAlias);
            return other || index->Holds(column.second);
        });
    // Fetching the rest of each row from the table pays while few rows are found.
    constexpr int kFewDays = 92;
    const auto first = DateTime::Parse(firstDay);
    const auto last = DateTime::Parse(lastDay);
    const bool pays = covered || !first || !last || *last <= first->AddDays(kFewDays);
    if (!pays && !target_.WeighsIndexes()) return;

    const std::string alias = source.firstAlias + ".";
    const WindowSearch search = target_.SearchWindows(alias, firstDay, lastDay);
    if (!search.condition.empty()) select.where = search.condition + " and " + select.where;
    if (search.before.empty() || (select.bareStar && source.enclosed)) return;
    // Every row is in one class, so the join repeats none and a shown key keeps the rows distinct.
    const auto isItemKey = [&](const std::string& name) {
        return text::EqualsIgnoreCase(name, index->key);
    };
    if (source.single &&
        std::any_of(select.plainColumns.begin(), select.plainColumns.end(), isItemKey)) {
        select.distinct = false;
    }
    if (select.bareStar) {
        std::vector<std::string> all{alias + "*"};
        for (const std::string& other : source.otherAliases) all.push_back(other + ".*");
        const auto star = std::find(select.columns.begin(), select.columns.end(), "*");
        const auto behind = select.columns.erase(star);
        select.columns.insert(behind, all.begin(), all.end());
    }
    source.firstSql = search.before + source.firstSql + search.behind;
}

Translation Parser::ParseInsert() {
    Take();
    ExpectKeyword("into");
    Translation translation{StatementKind::Change, {}, {}, {}, {}};
    std::string& sql = translation.sql;
    sql = "insert into " + ParseTableName();
    std::vector<std::string> columns;
    if (AcceptSymbol("(")) {
        std::string list;
        do {
            columns.push_back(ExpectName());
            list += (list.empty() ? "" : ",") + target_.Name(columns.back());
        } while (AcceptSymbol(","));
        ExpectSymbol(")");
        sql += "(" + list + ")";
    }
    if (IsKeyword("select")) {
        sql += " " + ParseSelect(nullptr);
        return translation;
    }
    ExpectKeyword("values");
    sql += " values";
    for (bool first = true; first || AcceptSymbol(","); first = false) {
        const std::size_t position = Peek().position;
        ExpectSymbol("(");
        std::vector<Expression> values = ParseList();
        ExpectSymbol(")");
        if (!columns.empty() && values.size() != columns.size()) {
            ThrowAt("the number of values differs from the number of columns", position);
        }
        sql += first ? "(" : ",(";
        for (std::size_t i = 0; i < values.size(); i++) {
            const ColumnKind kind =
                i < columns.size() ? schema_.KindOf(columns[i]) : ColumnKind::Unknown;
            target_.MakeStored(kind, values[i]);
            sql += (i == 0 ? "" : ",") + values[i].sql;
        }
        sql += ")";
    }
    return translation;
}

Translation Parser::ParseUpdate() {
    Take();
    Translation translation{StatementKind::Change, {}, {}, {}, {}};
    std::string& sql = translation.sql;
    sql = "update " + ParseTableName();
    ExpectKeyword("set");
    std::string list;
    do {
        const Expression column = ParseColumn();
        ExpectSymbol("=");
        Expression value = ParseAdditive();
        target_.MakeStored(column.kind, value);
        list += (list.empty() ? " set " : ",") + target_.Name(column.column) + "=" + value.sql;
    } while (AcceptSymbol(","));
    sql += list;
    if (AcceptKeyword("where")) sql += " where " + ParseCondition().sql;
    return translation;
}

Translation Parser::ParseDelete() {
    Take();
    AcceptSymbol("*");
    ExpectKeyword("from");
    Translation translation{StatementKind::Change, {}, {}, {}, {}};
    translation.sql = "delete from " + ParseTableName();
    if (AcceptKeyword("where")) translation.sql += " where " + ParseCondition().sql;
    return translation;
}

Translation Parser::ParseDrop() {
    Take();
    ExpectKeyword("table");
    return {StatementKind::Definition, "drop table " + ParseTableName(), {}, {}, {}};
}

}  // namespace zv::store::dialect
