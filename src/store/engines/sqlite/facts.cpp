#include "store/engines/facts.h"

#include "base/text.h"
#include "store/dialect/expression.h"
#include "store/engines/parts.h"
#include "store/engines/sqlite/window_index.h"

namespace zv::store::engines::sqlite {
namespace {

class SqliteFacts final : public Facts {
 public:
    bool IsProduct(std::string_view product) const override {
        return text::Contains(product, "sqlite");
    }
    bool KeepsDatesAsTexts() const override { return true; }
    bool ReportsComputedColumns() const override { return true; }
    std::string EqualsExactly(const std::string& column) const override {
        return column + " collate binary=?";
    }
    std::string LastKey() const override { return "select last_insert_rowid()"; }

    const dialect::WindowIndex* WindowIndex() const override {
        static const dialect::WindowIndex index{.table = std::string(kWindowTable),
                                                .start = "tDuring1",
                                                .end = "tDuring2",
                                                .key = "fID",
                                                .columns = WindowIndexColumns()};
        return &index;
    }
    std::string WindowIndexQuestion() const override {
        return "select sql from sqlite_master where type='index' and name=" +
               dialect::QuoteText(std::string(kWindowIndex));
    }
    // An index of the same name but another making would answer differently.
    bool IsWindowIndex(const Value& making) const override {
        return SameStatement(making.ToText(), WindowIndexStatement());
    }
};

}  // namespace

const Facts& TheFacts() {
    static const SqliteFacts facts;
    return facts;
}

}  // namespace zv::store::engines::sqlite
