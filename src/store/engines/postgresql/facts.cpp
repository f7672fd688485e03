#include "store/engines/facts.h"

#include "base/text.h"
#include "store/engines/parts.h"

namespace zv::store::engines::postgresql {
namespace {

class PostgreSqlFacts final : public Facts {
 public:
    bool IsProduct(std::string_view product) const override {
        return text::Contains(product, "postgres");
    }
    std::string StoredName(std::string_view name) const override { return text::ToLower(name); }
    // Its driver loses memory for every statement that is prepared and never run.
    std::string DescribingStatement(const std::string& sql) const override {
        return "select * from (" + sql + ") as described limit 0";
    }
    std::string EqualsExactly(const std::string& column) const override {
        return "cast(" + column + " as text)=?";
    }
    std::string YieldingKey(const std::string& key) const override { return " returning " + key; }

    // The server weighs the index itself, whatever columns it holds.
    const dialect::WindowIndex* WindowIndex() const override {
        static const dialect::WindowIndex index{.table = "tTaskList",
                                                .start = "tDuring1",
                                                .end = "tDuring2",
                                                .key = "fID",
                                                .columns = {}};
        return &index;
    }
    // Only the connection's own index is looked into: those of other schemas may be locked, or
    // dropped while the server reads them.
    std::string WindowIndexQuestion() const override {
        return "select indexrelid from pg_index where indexrelid=to_regclass('ttasklist_window')"
               " and indrelid=to_regclass('ttasklist') and"
               " pg_get_indexdef(to_regclass('ttasklist_window')) like '%point%'";
    }
};

}  // namespace

const Facts& TheFacts() {
    static const PostgreSqlFacts facts;
    return facts;
}

}  // namespace zv::store::engines::postgresql
