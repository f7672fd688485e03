#include "base/text.h"
#include "zvdb/inspected.h"

namespace zv::zvdb {
namespace {

class EmbeddedInspectedRows final : public InspectedRows {
 public:
    EmbeddedInspectedRows(Engine& engine, const std::string& sql) : statement_(engine, sql) {}

    bool Next() override { return statement_.Step(); }
    bool IsNull(int column) const override { return statement_.IsNull(column); }
    std::int64_t Number(int column) const override { return statement_.Number(column); }
    std::string Text(int column) const override { return statement_.Text(column); }

 private:
    Statement statement_;
};

class EmbeddedInspected final : public Inspected {
 public:
    explicit EmbeddedInspected(Engine& engine) : engine_(engine) {}

    std::unique_ptr<InspectedRows> Select(const std::string& sql) override {
        return std::make_unique<EmbeddedInspectedRows>(engine_, sql);
    }

    std::set<std::string> Columns(const std::string& table) override {
        std::set<std::string> names;
        Statement columns(engine_, "select name from pragma_table_info(?)");
        columns.Bind(table);
        while (columns.Step()) names.insert(text::ToLower(columns.Text(0)));
        return names;
    }

    // A text such as "2003-02-30" is turned into another day by the engine, which gives it away.
    std::string NotADate(const std::string& column) const override {
        return column + " is not null and (typeof(" + column + ")<>'text' or datetime(" + column +
               ") is null or datetime(" + column + ")<>" + column + ")";
    }

    std::vector<std::string> Damage() override {
        std::vector<std::string> damage;
        Statement check(engine_, "pragma integrity_check(20)");
        while (check.Step()) {
            const std::string text = check.Text(0);
            if (text != "ok") damage.push_back("damaged file: " + text);
        }
        return damage;
    }

 private:
    Engine& engine_;
};

}  // namespace

std::unique_ptr<Inspected> InspectEmbedded(Engine& engine) {
    return std::make_unique<EmbeddedInspected>(engine);
}

}  // namespace zv::zvdb
