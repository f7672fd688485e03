#include "report/document.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zv::report {
namespace {

Document Whole() {
    Document document;
    document.fields = {{"key", "a", "a"}, {"key", "a", "a"}};
    document.table.columns = {{"a"}, {"a"}};
    document.table.rows = {{"a", "a"}, {"a", "a"}};
    document.table.signs = {"a", "a"};
    for (std::string* text : {&document.company, &document.title, &document.subtitle,
                              &document.asked, &document.user}) {
        *text = "a";
    }
    return document;
}

bool HasNoOther(const Document& document) {
    return AllCharacters(document, [](char32_t c) { return c == U'a'; });
}

TEST(AllCharacters, AsksForEachTextThatPrints) {
    ASSERT_TRUE(HasNoOther(Whole()));
    using Text = std::string& (*)(Document&);
    const std::vector<std::pair<const char*, Text>> texts{
        {"company", [](Document& d) -> std::string& { return d.company; }},
        {"title", [](Document& d) -> std::string& { return d.title; }},
        {"subtitle", [](Document& d) -> std::string& { return d.subtitle; }},
        {"asked", [](Document& d) -> std::string& { return d.asked; }},
        {"user", [](Document& d) -> std::string& { return d.user; }},
        {"caption", [](Document& d) -> std::string& { return d.fields[1].caption; }},
        {"text", [](Document& d) -> std::string& { return d.fields[1].text; }},
        {"heading", [](Document& d) -> std::string& { return d.table.columns[1].heading; }},
        {"cell", [](Document& d) -> std::string& { return d.table.rows[1][1]; }},
        {"sign", [](Document& d) -> std::string& { return d.table.signs[1]; }}};
    for (const auto& [name, text] : texts) {
        Document document = Whole();
        text(document) = "ab";
        EXPECT_FALSE(HasNoOther(document)) << name;
    }
}

TEST(AllCharacters, OfADocumentWithoutTextsAreAccepted) {
    EXPECT_TRUE(AllCharacters({}, [](char32_t) { return false; }));
}

}  // namespace
}  // namespace zv::report
