#include "store/dialect/translator.h"

#include <utility>

#include "base/errors.h"
#include "store/dialect/parser.h"
#include "store/dialect/passes/distinct_rows.h"
#include "store/dialect/passes/subquery_names.h"
#include "store/dialect/passes/window_index.h"
#include "store/dialect/passes/writability.h"
#include "store/dialect/writer.h"

namespace zv::store::dialect {
namespace {

StatementKind KindOf(const Statement& statement) {
    switch (statement.kind) {
        case Statement::Kind::Select:
            return StatementKind::Select;
        case Statement::Kind::Drop:
            return StatementKind::Definition;
        default:
            return StatementKind::Change;
    }
}

Translation TranslateParsed(Statement statement, const SchemaInfo& schema, const Target& target) {
    Translation translation = Untranslated({});
    translation.kind = KindOf(statement);
    translation.table = passes::WritableTable(statement);
    statement = passes::NameSubqueries(std::move(statement), target);
    statement = passes::DropDistinct(std::move(statement), schema);
    // The keys are asked for without the index, which a row's own statement cannot use either.
    const WindowIndex* index = schema.windowIndex;
    if (index) statement = passes::UseWindowIndexInside(std::move(statement), *index, target);
    const Writer writer(schema, target);
    if (!translation.table.empty() && target.NumbersRows()) {
        const Query& query = statement.query.front();
        translation.keySql = writer.Write(passes::KeysOf(query, target));
        translation.rowSql = writer.Write(passes::RowOf(query, target));
    }
    if (index) statement = passes::UseWindowIndexOutside(std::move(statement), *index, target);
    translation.sql = writer.Write(statement);
    return translation;
}

}  // namespace

Translation Translate(std::string_view statement, const SchemaInfo& schema, const Target& target) {
    try {
        return TranslateParsed(Parse(statement), schema, target);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.Number(), error.Text(), target.Engine()).Of(ErrorKind::Refused);
    }
}

Translation SentAsItIs(const std::string& sql) {
    Translation translation = Untranslated(sql);
    if (const std::optional<Statement> statement = ParseIfReadable(sql)) {
        translation.kind = KindOf(*statement);
        translation.table = passes::WritableTable(*statement);
    }
    return translation;
}

}  // namespace zv::store::dialect
