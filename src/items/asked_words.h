// What a list was asked for, in the words of the user's windows: it stands at the head of the
// paper.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "items/criteria.h"
#include "items/filter.h"

namespace zv::items {

/// Puts "caption：value" beside each other. All throw like resources::LoadText.
class AskedWords {
 public:
    explicit AskedWords(std::int16_t language) : language_(language) {}

    void Add(std::string_view caption, std::string_view value);
    /// A text without a caption; an empty one is left out.
    void Add(std::string_view text);
    const std::string& Text() const { return text_; }

 private:
    std::int16_t language_;
    std::string text_;
};

/// Of the item list: the period always, and what else narrows it.
std::string DescribeFilter(const Filter& filter, std::int16_t language);

/// Of the query window, whose headings name the fields by their columns. The period always, also
/// when none is asked for, because the paper's title has dates in any case.
std::string DescribeCriteria(const AskCriteria& criteria,
                             const std::function<std::string(std::string_view column)>& headingOf,
                             std::int16_t language);

}  // namespace zv::items
