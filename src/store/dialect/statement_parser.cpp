#include <utility>

#include "base/text.h"
#include "store/dialect/parser.h"

namespace zv::store::dialect {

Statement Parser::ParseStatement() {
    Statement statement;
    if (IsKeyword("select")) {
        statement.query.push_back(ParseQuery());
    } else if (IsKeyword("insert")) {
        statement = ParseInsert();
    } else if (IsKeyword("update")) {
        statement = ParseUpdate();
    } else if (IsKeyword("delete")) {
        statement = ParseDelete();
    } else if (IsKeyword("drop")) {
        statement = ParseDrop();
    } else {
        Unexpected();
    }
    AcceptSymbol(";");
    if (Peek().kind != TokenKind::End) Unexpected();
    return statement;
}

Query Parser::ParseQuery() {
    const DepthGuard guard(*this);
    Query query;
    query.selects.push_back(ParseSelect());
    while (IsKeyword("union")) {
        if (!query.selects.back().limit.empty()) Unexpected();
        Take();
        query.keepsAll.push_back(AcceptKeyword("all"));
        query.selects.push_back(ParseSelect());
    }
    if (query.IsUnion() && !query.selects.back().limit.empty()) Unexpected();
    query.order = ParseOrder();
    return query;
}

Select Parser::ParseSelect() {
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
    do {
        select.columns.push_back(ParseShown());
    } while (AcceptSymbol(","));
    if (AcceptKeyword("from")) select.from = ParseFrom();
    if (AcceptKeyword("where")) select.where.push_back(ParseExpression());
    if (AcceptKeyword("group")) {
        ExpectKeyword("by");
        select.groupBy = ParseList();
        if (AcceptKeyword("having")) select.having.push_back(ParseExpression());
    }
    return select;
}

Shown Parser::ParseShown() {
    Shown shown;
    if (AcceptSymbol("*")) {
        shown.star = true;
    } else if (IsName() && IsSymbol(".", 1) && IsSymbol("*", 2)) {
        shown.star = true;
        shown.qualifier = Take().text;
        Take();
        Take();
    } else {
        shown.value.push_back(ParseExpression());
        shown.alias = ParseAlias();
    }
    return shown;
}

std::string Parser::ParseAlias() {
    if (AcceptKeyword("as")) return ExpectName();
    return IsName() ? Take().text : std::string();
}

std::string Parser::ParseTableName() {
    std::string name = ExpectName();
    if (text::EqualsIgnoreCase(name, "dbo") && AcceptSymbol(".")) name = ExpectName();
    return name;
}

Table Parser::ParseTable() {
    const DepthGuard guard(*this);
    Table table;
    if (AcceptSymbol("(")) {
        if (IsKeyword("select")) {
            table.query.push_back(ParseQuery());
        } else {
            table.enclosed = ParseFrom();
        }
        ExpectSymbol(")");
    } else {
        table.name = ParseTableName();
    }
    table.alias = ParseAlias();
    return table;
}

std::vector<Table> Parser::ParseFrom() {
    using Join = Table::Join;
    std::vector<Table> tables{ParseTable()};
    while (true) {
        Join join = Join::Inner;
        if (AcceptSymbol(",")) {
            tables.push_back(ParseTable());
            tables.back().join = Join::Comma;
            continue;
        }
        if (AcceptKeyword("left")) {
            join = Join::Left;
            AcceptKeyword("outer");
        } else if (IsKeyword("right") || IsKeyword("full")) {
            join = AcceptKeyword("right") ? Join::Right : Join::Full;
            AcceptKeyword("full");
            AcceptKeyword("outer");
        } else if (AcceptKeyword("cross")) {
            join = Join::Cross;
        } else if (!AcceptKeyword("inner") && !IsKeyword("join")) {
            return tables;
        }
        ExpectKeyword("join");
        tables.push_back(ParseTable());
        tables.back().join = join;
        if (AcceptKeyword("on")) tables.back().on.push_back(ParseExpression());
    }
}

std::vector<SortTerm> Parser::ParseOrder() {
    std::vector<SortTerm> order;
    if (!AcceptKeyword("order")) return order;
    ExpectKeyword("by");
    do {
        SortTerm& term = order.emplace_back();
        term.value = ParseExpression();
        term.descending = AcceptKeyword("desc");
        if (!term.descending) AcceptKeyword("asc");
    } while (AcceptSymbol(","));
    return order;
}

Statement Parser::ParseInsert() {
    Take();
    ExpectKeyword("into");
    Statement statement;
    statement.kind = Statement::Kind::Insert;
    statement.table = ParseTableName();
    if (AcceptSymbol("(")) {
        do {
            statement.columns.push_back(ExpectName());
        } while (AcceptSymbol(","));
        ExpectSymbol(")");
    }
    if (IsKeyword("select")) {
        statement.query.push_back(ParseQuery());
        return statement;
    }
    ExpectKeyword("values");
    do {
        const std::size_t position = Peek().position;
        ExpectSymbol("(");
        statement.rows.push_back(ParseList());
        ExpectSymbol(")");
        if (!statement.columns.empty() &&
            statement.rows.back().size() != statement.columns.size()) {
            ThrowAt("the number of values differs from the number of columns", position);
        }
    } while (AcceptSymbol(","));
    return statement;
}

Statement Parser::ParseUpdate() {
    Take();
    Statement statement;
    statement.kind = Statement::Kind::Update;
    statement.table = ParseTableName();
    ExpectKeyword("set");
    do {
        Assignment& assignment = statement.assignments.emplace_back();
        assignment.column = ParseColumn();
        ExpectSymbol("=");
        assignment.value = ParseSum();
    } while (AcceptSymbol(","));
    if (AcceptKeyword("where")) statement.where.push_back(ParseExpression());
    return statement;
}

Statement Parser::ParseDelete() {
    Take();
    AcceptSymbol("*");
    ExpectKeyword("from");
    Statement statement;
    statement.kind = Statement::Kind::Delete;
    statement.table = ParseTableName();
    if (AcceptKeyword("where")) statement.where.push_back(ParseExpression());
    return statement;
}

Statement Parser::ParseDrop() {
    Take();
    ExpectKeyword("table");
    Statement statement;
    statement.kind = Statement::Kind::Drop;
    statement.table = ParseTableName();
    return statement;
}

}  // namespace zv::store::dialect
