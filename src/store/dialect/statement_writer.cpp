#include <algorithm>
#include <utility>

#include "store/dialect/writer.h"

namespace zv::store::dialect {
namespace {

const char* WordsOf(Table::Join join) {
    switch (join) {
        case Table::Join::Comma:
            return ",";
        case Table::Join::Left:
            return " left join ";
        case Table::Join::Right:
            return " right join ";
        case Table::Join::Full:
            return " full join ";
        case Table::Join::Cross:
            return " cross join ";
        case Table::Join::Inner:
            return " join ";
        case Table::Join::None:
            break;
    }
    return "";
}

}  // namespace

std::string Writer::Write(const Statement& statement) const {
    switch (statement.kind) {
        case Statement::Kind::Insert:
            return WriteInsert(statement);
        case Statement::Kind::Update:
            return WriteUpdate(statement);
        case Statement::Kind::Delete:
            return "delete from " + target_.Name(statement.table) + WriteWhere(statement.where);
        case Statement::Kind::Drop:
            return "drop table " + target_.Name(statement.table);
        case Statement::Kind::Select:
            break;
    }
    return Write(statement.query.front());
}

std::string Writer::Write(const Query& query) const {
    std::string sql;
    for (std::size_t i = 0; i < query.selects.size(); i++) {
        if (i > 0) sql += query.keepsAll[i - 1] ? " union all " : " union ";
        sql += WriteSelect(query.selects[i]);
    }
    sql += WriteOrder(query);
    const std::string& limit = query.selects.back().limit;
    if (!limit.empty()) sql += " limit " + limit;
    return sql;
}

std::string Writer::WriteSelect(const Select& select) const {
    std::string sql = select.distinct ? "select distinct " : "select ";
    bool first = true;
    for (const Shown& shown : select.columns) {
        sql += (std::exchange(first, false) ? "" : ",") + WriteShown(shown);
    }
    if (!select.from.empty()) sql += " from " + WriteFrom(select.from);
    sql += WriteWhere(select.where);
    first = true;
    for (const Node& node : select.groupBy) {
        Expression term = WriteExpression(node);
        target_.MakeColumn(term);
        sql += (std::exchange(first, false) ? " group by " : ",") + term.sql;
    }
    if (!select.having.empty()) sql += " having " + WriteCondition(select.having.front()).sql;
    return sql;
}

std::string Writer::WriteWhere(const std::vector<Node>& where) const {
    return where.empty() ? std::string() : " where " + WriteCondition(where.front()).sql;
}

std::string Writer::WriteShown(const Shown& shown) const {
    if (shown.star) {
        return shown.qualifier.empty() ? "*" : target_.Name(shown.qualifier) + ".*";
    }
    Expression value = WriteExpression(shown.value.front());
    target_.MakeColumn(value);
    return shown.alias.empty() ? value.sql : value.sql + " as " + target_.Name(shown.alias);
}

std::string Writer::WriteTable(const Table& table) const {
    std::string sql;
    if (!table.query.empty()) {
        sql = "(" + Write(table.query.front()) + ")";
    } else if (!table.enclosed.empty()) {
        sql = "(" + WriteFrom(table.enclosed) + ")";
    } else {
        sql = target_.Name(table.name);
    }
    const std::string alias = table.alias.empty() ? table.writtenAlias : target_.Name(table.alias);
    if (!alias.empty()) sql += " as " + alias;
    return table.before + sql + table.behind;
}

std::string Writer::WriteFrom(const std::vector<Table>& tables) const {
    std::string sql;
    for (const Table& table : tables) {
        sql += WordsOf(table.join) + WriteTable(table);
        if (!table.on.empty()) sql += " on " + WriteCondition(table.on.front()).sql;
    }
    return sql;
}

std::string Writer::WriteOrder(const Query& query) const {
    const Select& select = query.selects.back();
    const auto isAlias = [&](const std::string& term) {
        return std::any_of(select.columns.begin(), select.columns.end(), [&](const Shown& shown) {
            return !shown.alias.empty() && target_.Name(shown.alias) == term;
        });
    };
    const bool mayCompute = !query.IsUnion() && !select.distinct;
    std::string sql;
    for (const SortTerm& each : query.order) {
        Expression term = WriteExpression(each.value);
        const bool alias = isAlias(term.sql);
        sql += sql.empty() ? " order by " : ",";
        sql += target_.SortTerm(std::move(term), each.descending, mayCompute && !alias);
    }
    return sql;
}

std::string Writer::WriteInsert(const Statement& statement) const {
    std::string sql = "insert into " + target_.Name(statement.table);
    std::string list;
    for (const std::string& column : statement.columns) {
        list += (list.empty() ? "" : ",") + target_.Name(column);
    }
    if (!list.empty()) sql += "(" + list + ")";
    if (!statement.query.empty()) return sql + " " + Write(statement.query.front());
    sql += " values";
    bool first = true;
    for (const std::vector<Node>& row : statement.rows) {
        sql += std::exchange(first, false) ? "(" : ",(";
        for (std::size_t i = 0; i < row.size(); i++) {
            Expression value = WriteExpression(row[i]);
            const ColumnKind kind = i < statement.columns.size()
                                        ? schema_.KindOf(statement.columns[i])
                                        : ColumnKind::Unknown;
            target_.MakeStored(kind, value);
            sql += (i == 0 ? "" : ",") + value.sql;
        }
        sql += ")";
    }
    return sql;
}

std::string Writer::WriteUpdate(const Statement& statement) const {
    std::string list;
    for (const Assignment& assignment : statement.assignments) {
        Expression value = WriteExpression(assignment.value);
        target_.MakeStored(schema_.KindOf(assignment.column.text), value);
        list +=
            (list.empty() ? " set " : ",") + target_.Name(assignment.column.text) + "=" + value.sql;
    }
    return "update " + target_.Name(statement.table) + list + WriteWhere(statement.where);
}

}  // namespace zv::store::dialect
