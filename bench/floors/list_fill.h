// The least that showing a list takes: the bare query, and a bare tree that gets a node a row.
#pragma once

#include <cstdlib>
#include <string>

#include "floors/raw_query.h"

namespace zv::bench {

/// `addGroup(kind)` answers what `addItem(group, number, image, text)` gets for each of its rows.
/// Answers the number of rows.
template <class AddGroup, class AddItem>
int FillFromQuery(RawDatabase& database, const std::string& sql, const AddGroup& addGroup,
                  const AddItem& addItem) {
    char lastKind = 0;
    decltype(addGroup('0')) group{};
    std::string text;
    return database.Read(sql, [&](const char* const* row) {
        const char kind = row[1][0];
        if (kind != lastKind) {
            lastKind = kind;
            group = addGroup(kind);
        }
        text.assign("(").append(row[2], 10).append(")\t").append(row[3]);
        addItem(group, std::atoi(row[0]), 1 + (row[4][0] - '0'), text);
    });
}

}  // namespace zv::bench
