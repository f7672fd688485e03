#include "items/asked_words.h"

#include "base/text.h"
#include "items/names.h"
#include "resources/ask_texts.h"
#include "resources/design_texts.h"
#include "resources/text_ids.h"
#include "resources/texts.h"

namespace zv::items {
namespace {

using resources::AskText;
using resources::DesignText;
using resources::LoadText;

std::string Period(const std::optional<DateTime>& from, const std::optional<DateTime>& until,
                   std::int16_t language) {
    if (from && until) {
        return LoadText(AskText::AskedFromTo, language, from->IsoDate(), until->IsoDate());
    }
    // The list takes a first day without a last one as that day alone.
    if (from) return LoadText(AskText::AskedOnDay, language, from->IsoDate());
    if (until) return LoadText(AskText::AskedUntil, language, until->IsoDate());
    return LoadText(AskText::AskedAnyDate, language);
}

std::string Contains(const std::string& text, std::int16_t language) {
    return LoadText(AskText::AskedContains, language, text);
}

// Empty where the text narrows nothing.
std::string Like(const std::string& typed, std::int16_t language) {
    const std::string text(text::Trim(typed));
    if (text.empty() || text == "*" || text == "%") return {};
    // With wildcards of the user's own the text is the whole pattern.
    if (text.find_first_of("_%") != std::string::npos) {
        return LoadText(AskText::AskedPattern, language, text);
    }
    return Contains(text, language);
}

std::string NameAt(const std::vector<std::string>& names, int row) {
    const bool isThere = row >= 0 && static_cast<std::size_t>(row) < names.size();
    return isThere ? names[static_cast<std::size_t>(row)] : "-";
}

std::string KindsOf(const Filter& filter, std::int16_t language) {
    const std::vector<std::string> names = KindNames(language);
    std::vector<std::string> taken;
    for (const ItemKind kind : kItemKinds) {
        if (filter.Takes(kind)) taken.push_back(names.at(Position(kind)));
    }
    if (taken.size() == kItemKinds.size()) return {};
    return taken.empty() ? "-" : text::Join(taken, LoadText(AskText::AskedAnd, language));
}

std::string StatesOf(Filter::States states, std::int16_t language) {
    if (states == Filter::States::All) return {};
    if (states == Filter::States::NotYetDone) {
        return LoadText(DesignText::StateNotYetDone, language);
    }
    return NameAt(StateNames(language), Row(states));
}

}  // namespace

void AskedWords::Add(std::string_view caption, std::string_view value) {
    if (value.empty()) return;
    Add(LoadText(AskText::AskedFor, language_, caption, value));
}

void AskedWords::Add(std::string_view text) {
    if (text.empty()) return;
    if (!text_.empty()) text_ += LoadText(AskText::AskedNext, language_);
    text_ += text;
}

std::string DescribeFilter(const Filter& filter, std::int16_t language) {
    const auto caption = [language](auto id) { return LoadText(id, language); };
    AskedWords words(language);
    words.Add(caption(AskText::AskedPeriod), Period(filter.from, filter.until, language));
    words.Add(caption(DesignText::Kind), KindsOf(filter, language));
    words.Add(caption(text_id::kTitle), Like(filter.title, language));
    words.Add(caption(DesignText::Content), Like(filter.content, language));
    words.Add(caption(text_id::kExecutor), filter.doer);
    words.Add(caption(text_id::kSetter), filter.user);
    words.Add(caption(DesignText::Contact), Like(filter.guest, language));
    words.Add(caption(DesignText::Company), Like(filter.company, language));
    words.Add(caption(text_id::kState), StatesOf(filter.states, language));
    return words.Text();
}

std::string DescribeCriteria(const AskCriteria& criteria,
                             const std::function<std::string(std::string_view column)>& headingOf,
                             std::int16_t language) {
    AskedWords words(language);
    const auto contains = [&](std::string_view column, const std::optional<std::string>& text) {
        if (text) words.Add(headingOf(column), Contains(*text, language));
    };
    const auto dates = criteria.dates;
    words.Add(headingOf("taskTime"),
              dates ? Period(dates->first, dates->second, language) : Period({}, {}, language));
    contains("fUser", criteria.user);
    if (criteria.type) words.Add(headingOf("fType"), NameAt(KindNames(language), *criteria.type));
    contains("taskTitle", criteria.title);
    if (criteria.state)
        words.Add(headingOf("tDone"), NameAt(StateNames(language), *criteria.state));
    contains("tDoneMan", criteria.doneMan);
    const bool isAll = !criteria.dates && !criteria.user && !criteria.type && !criteria.title &&
                       !criteria.state && !criteria.doneMan;
    if (isAll) words.Add(LoadText(AskText::AskedAll, language));
    return words.Text();
}

}  // namespace zv::items
