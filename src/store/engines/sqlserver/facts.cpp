#include "store/engines/facts.h"

#include "base/text.h"
#include "store/engines/parts.h"

namespace zv::store::engines::sqlserver {
namespace {

class SqlServerFacts final : public Facts {
 public:
    bool IsProduct(std::string_view product) const override {
        return text::Contains(product, "sql server");
    }
    std::string EqualsExactly(const std::string& column) const override {
        return "cast(" + column + " as nvarchar(max)) collate Latin1_General_BIN2=?";
    }
    std::string YieldingKey(const std::string&) const override {
        return "; select cast(scope_identity() as bigint)";
    }
};

}  // namespace

const Facts& TheFacts() {
    static const SqlServerFacts facts;
    return facts;
}

}  // namespace zv::store::engines::sqlserver
