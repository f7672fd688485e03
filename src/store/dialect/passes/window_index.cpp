#include "store/dialect/passes/window_index.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "base/date_time.h"
#include "base/text.h"
#include "store/dialect/lexer.h"
#include "store/dialect/tree_walk.h"

namespace zv::store::dialect::passes {
namespace {

/// The days that the windows of all rows meet, stored form; empty where there is no bound.
struct Span {
    std::string first;
    std::string last;
};

/// The stored form of a literal that stands for a date; empty when it does not.
std::string DateOf(const Node& node, bool enclosed = false) {
    if (node.kind == Node::Kind::Date) return node.text;
    if (node.kind == Node::Kind::Enclosed) return DateOf(node.operands.front(), true);
    return node.kind == Node::Kind::Text && !enclosed ? StoredDate(node.text) : std::string();
}

class Search {
 public:
    Search(const WindowIndex& index, const Target& target) : index_(index), target_(target) {}

    void Use(Query& query) const {
        if (query.IsUnion() || !IsOnTable(query.selects.front())) return;
        Select& select = query.selects.front();
        Span span;
        for (const Node& where : select.where) Narrow(span, select, where);
        if (span.first.empty() || span.last.empty()) return;
        if (!Pays(query, span) && !target_.WeighsIndexes()) return;

        const std::string alias = target_.Name(select.from.front().Alias()) + ".";
        const WindowSearch search = target_.SearchWindows(alias, span.first, span.last);
        if (!search.condition.empty()) AddCondition(select, search.condition);
        const bool bareStar = ShowsAll(select);
        const bool enclosed = std::any_of(select.from.begin(), select.from.end(),
                                          [](const Table& table) { return table.name.empty(); });
        if (search.before.empty() || (bareStar && enclosed)) return;
        if (bareStar) NameTables(select);
        // Every row is in one class, so the join repeats none and a shown key keeps the rows
        // distinct.
        if (select.from.size() == 1 && ShowsKey(select)) select.distinct = false;
        select.from.front().before = search.before;
        select.from.front().behind = search.behind;
    }

 private:
    bool IsOnTable(const Select& select) const {
        // A right or full join may leave the first table's columns null.
        const bool mayBeNull =
            std::any_of(select.from.begin(), select.from.end(), [](const Table& table) {
                return table.join == Table::Join::Right || table.join == Table::Join::Full;
            });
        return !select.from.empty() && !mayBeNull &&
               text::EqualsIgnoreCase(select.from.front().name, index_.table);
    }

    /// By the conditions that every row of the result meets.
    void Narrow(Span& span, const Select& select, const Node& condition) const {
        if (condition.kind == Node::Kind::And || condition.kind == Node::Kind::Enclosed) {
            for (const Node& part : condition.operands) Narrow(span, select, part);
            return;
        }
        if (condition.kind != Node::Kind::Comparison) return;
        const Node& column = condition.operands.front();
        if (column.kind != Node::Kind::Column || !IsOwn(select, column)) return;
        const std::string date = DateOf(condition.operands.back());
        if (date.empty()) return;
        const std::string& op = condition.text;
        if ((op == "<=" || op == "<") && text::EqualsIgnoreCase(column.text, index_.start)) {
            if (span.last.empty() || date < span.last) span.last = date;
        } else if ((op == ">=" || op == ">") && text::EqualsIgnoreCase(column.text, index_.end)) {
            span.first = std::max(span.first, date);
        }
    }

    static bool IsOwn(const Select& select, const Node& column) {
        return column.qualifier.empty()
                   ? select.from.size() == 1
                   : text::EqualsIgnoreCase(column.qualifier, select.from.front().Alias());
    }

    /// Fetching the rest of each row from the table pays while few rows are found.
    bool Pays(Query& query, const Span& span) const {
        constexpr int kFewDays = 92;
        const auto first = DateTime::Parse(span.first);
        const auto last = DateTime::Parse(span.last);
        return !first || !last || *last <= first->AddDays(kFewDays) || IsCovered(query);
    }

    /// No column is read but those of the index.
    bool IsCovered(Query& query) const {
        const Select& select = query.selects.front();
        bool covered = std::none_of(select.columns.begin(), select.columns.end(),
                                    [](const Shown& shown) { return shown.star; });
        const std::string& alias = select.from.front().Alias();
        Walk(query, {.node = [&](Node& node) {
                 if (node.kind != Node::Kind::Column) return;
                 const bool other =
                     !node.qualifier.empty() && !text::EqualsIgnoreCase(node.qualifier, alias);
                 covered = covered && (other || index_.Holds(node.text));
             }});
        return covered;
    }

    static bool ShowsAll(const Select& select) {
        return std::any_of(select.columns.begin(), select.columns.end(), [](const Shown& shown) {
            return shown.star && shown.qualifier.empty();
        });
    }

    bool ShowsKey(const Select& select) const {
        return std::any_of(select.columns.begin(), select.columns.end(), [&](const Shown& shown) {
            return !shown.star && shown.value.front().kind == Node::Kind::Column &&
                   text::EqualsIgnoreCase(shown.value.front().text, index_.key);
        });
    }

    /// Shows the columns of the statement's own tables in place of a star for all.
    static void NameTables(Select& select) {
        const auto star =
            std::find_if(select.columns.begin(), select.columns.end(),
                         [](const Shown& shown) { return shown.star && shown.qualifier.empty(); });
        const auto place = select.columns.erase(star);
        std::vector<Shown> all;
        for (const Table& table : select.from) {
            Shown& shown = all.emplace_back();
            shown.star = true;
            shown.qualifier = table.Alias();
        }
        select.columns.insert(place, all.begin(), all.end());
    }

    static void AddCondition(Select& select, const std::string& condition) {
        Node both;
        both.kind = Node::Kind::And;
        Node& written = both.operands.emplace_back();
        written.kind = Node::Kind::Written;
        written.text = condition;
        both.operands.push_back(std::move(select.where.front()));
        select.where = {std::move(both)};
    }

    const WindowIndex& index_;
    const Target& target_;
};

}  // namespace

Statement UseWindowIndexInside(Statement statement, const WindowIndex& index,
                               const Target& target) {
    const Search search(index, target);
    const bool isSelect = statement.kind == Statement::Kind::Select;
    const Query* outside = isSelect ? &statement.query.front() : nullptr;
    Walk(statement, {.query = [&](Query& query) {
             if (&query != outside) search.Use(query);
         }});
    return statement;
}

Statement UseWindowIndexOutside(Statement statement, const WindowIndex& index,
                                const Target& target) {
    if (statement.kind == Statement::Kind::Select) {
        Search(index, target).Use(statement.query.front());
    }
    return statement;
}

}  // namespace zv::store::dialect::passes
