// Each target finds what is wrong, in doubles that do something wrong.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>

#include "access_pages.h"
#include "base/text.h"
#include "connection_texts.h"
#include "csv.h"
#include "fonts.h"
#include "properties.h"
#include "scenarios.h"
#include "settings.h"
#include "statements.h"
#include "target.h"
#include "zvdb/access/access_value.h"

namespace zv::fuzz {
namespace {

/// How many of the target's own inputs are findings.
template <class Play>
int Findings(std::string_view target, Play play) {
    int findings = 0;
    for (const std::string& input : TargetOf(target).seeds()) {
        try {
            play(input);
        } catch (const Finding&) {
            findings++;
        }
    }
    return findings;
}

TEST(FuzzFinds, AMemoThatIsReadAsSomethingElse) {
    int reads = 0;
    EXPECT_GT(Findings("access",
                       [&](std::string_view input) {
                           PlayAccessPages(
                               input, [&](auto& file, const auto& row, const auto& column,
                                          store::Value& value, zvdb::CellRemark& remark) {
                                   const bool remarked =
                                       zvdb::access::DecodeField(file, row, column, value, remark);
                                   if (column.type == zvdb::access::FieldType::Memo)
                                       value = store::Value(reads++);
                                   return remarked;
                               });
                       }),
              0);
}

TEST(FuzzFinds, ALossThatIsNotSaid) {
    EXPECT_GT(Findings("access",
                       [](std::string_view input) {
                           PlayAccessPages(
                               input, [](auto& file, const auto& row, const auto& column,
                                         store::Value& value, zvdb::CellRemark& remark) {
                                   zvdb::access::DecodeField(file, row, column, value, remark);
                                   if (column.type == zvdb::access::FieldType::Date)
                                       remark.lost = true;
                                   return false;
                               });
                       }),
              0);
}

TEST(FuzzFinds, BracesThatAreLeftOut) {
    ConnectionProduct product;
    product.write = [](const store::ConnectionEntries& entries) {
        std::string text;
        for (const auto& [name, value] : entries) text += name + "=" + value + ";";
        return text;
    };
    EXPECT_GT(Findings("connections", [&](auto input) { PlayConnectionText(input, product); }), 0);
}

TEST(FuzzFinds, APasswordInAMessage) {
    ConnectionProduct showing;
    showing.show = [](const store::ConnectionText& text) { return text.ForDriver(); };
    EXPECT_GT(Findings("connections", [&](auto input) { PlayConnectionText(input, showing); }), 0);
    ConnectionProduct repeating;
    repeating.hide = [](const store::ConnectionSettings&, const std::string& text) { return text; };
    EXPECT_GT(Findings("connections", [&](auto input) { PlayConnectionText(input, repeating); }),
              0);
}

TEST(FuzzFinds, AQuoteThatIsNotDoubled) {
    EXPECT_GT(Findings("csv",
                       [](std::string_view input) {
                           PlayCsv(input, [](const Rows& rows) {
                               return text::Replace(WriteCsv(rows), "\"\"", "\"");
                           });
                       }),
              0);
}

TEST(FuzzFinds, AFormulaInATable) {
    EXPECT_GT(Findings("csv",
                       [](std::string_view input) {
                           PlayCsv(input, [](const Rows& rows) {
                               return text::Replace(WriteCsv(rows), "'=", "=");
                           });
                       }),
              0);
}

TEST(FuzzFinds, ACharacterWithoutAWidth) {
    FontProduct product;
    product.advance = [](const report::FontSet& fonts, char32_t c) {
        return c == U'A' ? 0.0 : static_cast<double>(fonts.Find(c).advance);
    };
    EXPECT_GT(Findings("fonts", [&](auto input) { PlayFont(input, product); }), 0);
}

TEST(FuzzFinds, APropertyThatIsNotSaved) {
    EXPECT_GT(Findings("properties",
                       [](std::string_view input) {
                           PlayProperties(input, [](const com::MemoryBag& bag) {
                               com::MemoryBag less;
                               for (const auto& [key, value] : bag.Entries()) {
                                   if (key != "myName") less.Write(key, value);
                               }
                               return com::EncodeStream(less);
                           });
                       }),
              0);
}

TEST(FuzzFinds, AWordThatIsLost) {
    EXPECT_GT(Findings("scenarios",
                       [](std::string_view input) {
                           PlayScenario(input, [](std::string_view text) {
                               auto lines = script::ReadScript(text);
                               if (text::Contains(text, "as it was read")) lines.pop_back();
                               return lines;
                           });
                       }),
              0);
}

TEST(FuzzFinds, ALineThatIsNotThere) {
    EXPECT_THROW(PlayScenario("quit",
                              [](std::string_view) -> std::vector<script::ScriptLine> {
                                  throw script::ScriptError("somewhere");
                              }),
                 Finding);
}

TEST(FuzzFinds, ASettingThatOverwritesAnother) {
    class Forgetful : public resources::FileSettings {
     public:
        using FileSettings::FileSettings;
        void Save(std::string_view application, std::string_view section, std::string_view key,
                  std::string_view text) override {
            FileSettings::Save(application, section, key, text);
            FileSettings::Save(application, section, "Left", "0");
        }
    };
    EXPECT_GT(Findings("settings",
                       [](std::string_view input) {
                           PlaySettings(input, [](const std::filesystem::path& file) {
                               return std::make_unique<Forgetful>(file);
                           });
                       }),
              0);
}

int FindingsOfTranslation(const std::function<void(store::dialect::Translation&)>& spoil) {
    StatementProduct product;
    const auto translate = product.translate;
    product.translate = [&](store::sqlite::Session& session, const std::string& sql) {
        store::dialect::Translation translation = translate(session, sql);
        spoil(translation);
        return translation;
    };
    return Findings("statements", [&](auto input) { PlayStatement(input, product); });
}

TEST(FuzzFinds, ATranslationThatIsNoStatement) {
    EXPECT_GT(FindingsOfTranslation([](auto& translation) { translation.sql += ")"; }), 0);
}
TEST(FuzzFinds, ASecondStatement) {
    EXPECT_GT(FindingsOfTranslation([](auto& translation) { translation.sql += ";select 1"; }), 0);
}
TEST(FuzzFinds, AChangeThatIsSaidToBeASelect) {
    EXPECT_GT(FindingsOfTranslation([](auto& translation) {
                  translation.kind = store::dialect::StatementKind::Select;
              }),
              0);
}
TEST(FuzzFinds, RowsThatAreNotFoundByTheirKeys) {
    EXPECT_GT(FindingsOfTranslation([](auto& translation) {
                  if (!translation.keySql.empty()) translation.keySql += " limit 1";
              }),
              0);
}
TEST(FuzzFinds, ASecondStatementThatIsLetThrough) {
    StatementProduct product;
    product.requireOne = [](std::string_view) {};
    EXPECT_THROW(PlayStatement("select 1; delete from tTaskList", product), Finding);
}

}  // namespace
}  // namespace zv::fuzz
