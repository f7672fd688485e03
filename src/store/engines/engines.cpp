#include "store/engines/engines.h"

#include <array>

#include "base/errors.h"
#include "base/text.h"
#include "store/engines/parts.h"

namespace zv::store::engines {
namespace {

template <class Fits>
const Engine* Find(Fits fits) {
    for (const Engine& engine : All()) {
        if (fits(engine)) return &engine;
    }
    return nullptr;
}

/// A server of which nothing is known.
const Engine& Unknown() {
    static const Codes codes{.name = "server"};
    static const Connecting connecting;
    static const Facts facts;
    static const Engine engine{.folder = {},
                               .codes = &codes,
                               .connecting = &connecting,
                               .facts = &facts,
                               .schema = {},
                               .sideTables = {}};
    return engine;
}

}  // namespace

std::span<const Engine> All() {
#define ZV_ENGINE(folder)              \
    Engine{#folder,                    \
           &folder::TheCodes(),        \
           &folder::TheConnecting(),   \
           &folder::TheFacts(),        \
           folder::TheDialect(),       \
           folder::TheDriverDialect(), \
           folder::TheBulk(),          \
           folder::TheSchema(),        \
           folder::TheSideTables()},
    static const auto engines = std::to_array<Engine>({
#include "engine_list.h"
    });
#undef ZV_ENGINE
    return engines;
}

std::vector<std::string> StatementsOf(std::string_view script) {
    std::string sql;
    for (const std::string& line : text::Split(script, "\n")) {
        sql += line.substr(0, line.find("--")) + '\n';
    }
    std::vector<std::string> statements;
    for (const std::string& statement : text::Split(sql, ";")) {
        const std::size_t begin = statement.find_first_not_of(" \n");
        if (begin != std::string::npos) statements.push_back(statement.substr(begin));
    }
    return statements;
}

const Engine& Of(std::string_view folder) {
    const Engine* engine = Find([&](const Engine& each) { return each.folder == folder; });
    if (!engine) throw RuntimeError(ErrorNumber::InternalError);
    return *engine;
}

const Engine& OfProduct(std::string_view product) {
    const std::string name = text::ToLower(product);
    const Engine* engine = Find([&](const Engine& each) { return each.facts->IsProduct(name); });
    return engine ? *engine : Unknown();
}

const Engine* OfFile(std::string_view head) {
    return Find([&](const Engine& each) { return each.connecting->IsFile(head); });
}

const Engine& OfAddress(std::string_view address) {
    const std::string_view scheme = SchemeOf(text::Trim(address));
    const Engine* engine = nullptr;
    if (!scheme.empty()) {
        engine = Find([&](const Engine& each) { return each.codes->scheme == scheme; });
    }
    if (!engine) {
        engine = Find([](const Engine& each) { return each.connecting->TakesPlainAddresses(); });
    }
    return engine ? *engine : Unknown();
}

const Engine* OfDriver(std::string_view driver) {
    const std::string name = text::ToLower(driver);
    return Find([&](const Engine& each) { return each.connecting->IsDriver(name); });
}

}  // namespace zv::store::engines
