// What was made of statements, kept for the next time they come.
#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <utility>

namespace zv::store {

/// Keeps the `capacity` entries that were used last. Entries stay where they are until they go.
template <class T>
class StatementCache {
 public:
    explicit StatementCache(std::size_t capacity) : capacity_(capacity) {}

    /// Null when nothing is kept for the statement. What is found counts as used.
    T* Find(std::string_view sql) {
        return FindIf([&](const std::string& key, const T&) { return key == sql; });
    }
    /// The same for the first, most recently used first, that `fits` (statement, entry).
    template <class Fits>
    T* FindIf(Fits fits) {
        for (auto entry = entries_.begin(); entry != entries_.end(); ++entry) {
            if (!fits(std::as_const(entry->first), std::as_const(entry->second))) continue;
            entries_.splice(entries_.begin(), entries_, entry);
            return &entry->second;
        }
        return nullptr;
    }
    /// Keeps `made` for a statement for which nothing is kept yet.
    T& Keep(std::string sql, T made) {
        entries_.emplace_front(std::move(sql), std::move(made));
        if (entries_.size() > capacity_) entries_.pop_back();
        return entries_.front().second;
    }
    template <class Fits>
    void RemoveIf(Fits fits) {
        entries_.remove_if([&](const auto& entry) { return fits(entry.first, entry.second); });
    }
    void Clear() { entries_.clear(); }

 private:
    std::size_t capacity_;
    std::list<std::pair<std::string, T>> entries_;  ///< most recently used first
};

}  // namespace zv::store
