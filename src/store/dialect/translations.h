// The translations of a connection.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "store/dialect/translator.h"
#include "store/statement_cache.h"

namespace zv::store::dialect {

/// Kept until the tables change that they were made for.
class Translations {
 public:
    using Kept = std::shared_ptr<const Translation>;

    /// What is kept for `sql`, otherwise what `make` answers, a Translation.
    template <class Make>
    Kept For(const std::string& sql, Make make) {
        if (const Kept* kept = cache_.Find(sql)) return *kept;
        return cache_.Keep(sql, std::make_shared<const Translation>(make()));
    }
    /// The statement that was translated into `sql`, null when none is kept.
    const std::string* SourceOf(std::string_view sql) {
        const std::string* source = nullptr;
        cache_.FindIf([&](const std::string& from, const Kept& kept) {
            if (kept->sql != sql) return false;
            source = &from;
            return true;
        });
        return source;
    }
    void Clear() { cache_.Clear(); }

 private:
    static constexpr std::size_t kCapacity = 32;
    StatementCache<Kept> cache_{kCapacity};
};

}  // namespace zv::store::dialect
