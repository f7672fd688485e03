// A statement as a tree. The parser makes it, passes make another one of it, a writer writes it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace zv::store::dialect {

struct Query;

/// A value or a condition.
struct Node {
    enum class Kind {
        Text,    ///< a literal; `text` is its value
        Date,    ///< a literal; `text` is its stored form
        Number,  ///< a literal; `text` as written
        Null,
        Column,    ///< `text`, of `qualifier`
        Enclosed,  ///< one operand in parentheses
        Subquery,  ///< `query` in parentheses
        Exists,    ///< `query` yields a row
        Call,      ///< of the function `text`
        Star,      ///< the operand of "count(*)"
        Case,      ///< tests and values in turn
        Sign,      ///< `text` in front of the operand
        Not,
        Or,          ///< of all operands
        And,         ///< of all operands
        Sum,         ///< operands with `operators` between them
        Product,     ///< operands with `operators` between them
        Comparison,  ///< `text` between two operands
        IsNull,
        Like,
        Between,  ///< a value, the lowest and the greatest
        In,       ///< a value and the others, or `query`
        Written,  ///< `text` in the target's terms, a condition
    };
    struct Operator {
        char sign = 0;
        std::size_t position = 0;
    };

    Kind kind = Kind::Null;
    std::size_t position = 0;  ///< in the source statement, from 1
    std::string text;
    std::string qualifier;
    bool negated = false;    ///< "is not null", "not like", "not between", "not in"
    bool distinct = false;   ///< of a total
    bool compares = false;   ///< a case that begins with the value its tests are compared with
    bool otherwise = false;  ///< a case that ends with a value for all others
    std::vector<Operator> operators;
    std::vector<Node> operands;
    std::vector<Query> query;  ///< one where there is one
};

/// What stands at a place of a "from".
struct Table {
    enum class Join { None, Comma, Inner, Left, Right, Full, Cross };

    Join join = Join::None;       ///< with what stands before it
    std::string name;             ///< as written; empty for a query or tables in parentheses
    std::string alias;            ///< empty without one
    std::string writtenAlias;     ///< in the target's terms, in place of one
    std::vector<Query> query;     ///< one where there is one
    std::vector<Table> enclosed;  ///< tables in parentheses
    std::vector<Node> on;         ///< one where there is one
    std::string before, behind;   ///< around it, in the target's terms

    const std::string& Alias() const { return alias.empty() ? name : alias; }
};

/// What a select shows.
struct Shown {
    bool star = false;
    std::string qualifier;    ///< of the star; empty for that of all tables
    std::vector<Node> value;  ///< one where there is no star
    std::string alias;        ///< empty without one
};

struct Select {
    bool distinct = false;
    std::string limit;  ///< a number, empty without one
    std::vector<Shown> columns;
    std::vector<Table> from;
    std::vector<Node> where;  ///< one where there is one
    std::vector<Node> groupBy;
    std::vector<Node> having;  ///< one where there is one
};

struct SortTerm {
    Node value;
    bool descending = false;
};

/// One select or several in a union.
struct Query {
    std::vector<Select> selects;
    std::vector<bool> keepsAll;  ///< "union all", between each two
    std::vector<SortTerm> order;

    bool IsUnion() const { return selects.size() > 1; }
};

struct Assignment {
    Node column;
    Node value;
};

struct Statement {
    enum class Kind { Select, Insert, Update, Delete, Drop };

    Kind kind = Kind::Select;
    std::vector<Query> query;  ///< of a select, or of an insert that has one
    std::string table;         ///< that is changed
    std::vector<std::string> columns;
    std::vector<std::vector<Node>> rows;
    std::vector<Assignment> assignments;
    std::vector<Node> where;  ///< one where there is one
};

}  // namespace zv::store::dialect
