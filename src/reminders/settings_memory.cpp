#include "reminders/settings_memory.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <set>
#include <tuple>

#include "base/text.h"

namespace zv::reminders {
namespace {

constexpr std::string_view kAnswersKey = "Reminders of ";
constexpr std::string_view kFirstLookKey = "First reminders of ";
constexpr std::size_t kParts = 6;

// No title is written with these.
constexpr std::string_view kBetweenAnswers = "\x1E";
constexpr std::string_view kBetweenParts = "\x1F";

std::string WithoutSeparators(std::string_view title) {
    return text::Replace(text::Replace(title, kBetweenAnswers, " "), kBetweenParts, " ");
}

std::string TextOf(const std::optional<DateTime>& date) {
    return date ? date->IsoDateTime() : std::string();
}

std::optional<std::int32_t> NumberIn(std::string_view text) {
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

/// False for a text that is no date; the empty text is none.
bool ReadDate(std::string_view text, std::optional<DateTime>& date) {
    date = DateTime::Parse(text);
    return date || text.empty();
}

std::optional<Answer> AnswerIn(std::string_view line) {
    const auto parts = text::Split(line, kBetweenParts);
    if (parts.size() != kParts) return std::nullopt;
    const auto plan = NumberIn(parts[0]);
    const auto item = NumberIn(parts[1]);
    Answer answer;
    if (!plan || !item || !ReadDate(parts[2], answer.key.date) ||
        !ReadDate(parts[3], answer.until) || !ReadDate(parts[4], answer.given)) {
        return std::nullopt;
    }
    answer.key.plan = *plan;
    answer.key.item = *item;
    answer.key.title = parts[5];
    return answer;
}

std::string SettingOf(std::string_view key, std::string_view user) {
    return std::string(key).append(text::ToLower(user));
}

/// What a later answer takes the place of: another title is no other reminder here.
using Place = std::tuple<std::int32_t, std::int32_t, std::optional<DateTime>>;

Place PlaceOf(const Key& key) {
    return {key.plan, key.item, key.date};
}

std::size_t EraseThoseAt(const std::set<Place>& places, std::vector<Answer>& answers) {
    return std::erase_if(answers, [&](const Answer& answer) {
        return places.find(PlaceOf(answer.key)) != places.end();
    });
}

}  // namespace

std::string ToText(const std::vector<Answer>& answers) {
    std::vector<std::string> lines;
    lines.reserve(answers.size());
    for (const Answer& answer : answers) {
        lines.push_back(
            text::Join({std::to_string(answer.key.plan), std::to_string(answer.key.item),
                        TextOf(answer.key.date), TextOf(answer.until), TextOf(answer.given),
                        WithoutSeparators(answer.key.title)},
                       kBetweenParts));
    }
    return text::Join(lines, kBetweenAnswers);
}

std::vector<Answer> AnswersIn(std::string_view text) {
    std::vector<Answer> answers;
    for (const std::string& line : text::Split(text, kBetweenAnswers)) {
        if (auto answer = AnswerIn(line)) answers.push_back(*std::move(answer));
    }
    return answers;
}

std::vector<Answer> SettingsMemory::Answers(std::string_view user) {
    return AnswersIn(settings_.Get(resources::kApplication, resources::kTaskSection,
                                   SettingOf(kAnswersKey, user), {}));
}

void SettingsMemory::Keep(std::string_view user, const std::vector<Answer>& answers) {
    std::set<Place> places;
    for (const Answer& answer : answers) places.insert(PlaceOf(answer.key));
    auto kept = Answers(user);
    EraseThoseAt(places, kept);
    kept.insert(kept.end(), answers.begin(), answers.end());
    if (kept.size() > kMostAnswers) {
        const auto excess = kept.size() - kMostAnswers;
        kept.erase(kept.begin(), kept.begin() + static_cast<std::ptrdiff_t>(excess));
    }
    Save(user, kept);
}

void SettingsMemory::Forget(std::string_view user, const std::vector<Key>& keys) {
    std::set<Place> places;
    for (const Key& key : keys) places.insert(PlaceOf(key));
    auto kept = Answers(user);
    if (EraseThoseAt(places, kept) > 0) Save(user, kept);
}

DateTime SettingsMemory::FirstLook(std::string_view user, DateTime now) {
    const std::string key = SettingOf(kFirstLookKey, user);
    const auto first =
        DateTime::Parse(settings_.Get(resources::kApplication, resources::kTaskSection, key, {}));
    // One that is still to come was noted while the clock was wrong: all until then would count as
    // overdue before.
    if (first && *first <= now) return *first;
    settings_.Save(resources::kApplication, resources::kTaskSection, key, now.IsoDateTime());
    return now;
}

void SettingsMemory::Save(std::string_view user, const std::vector<Answer>& answers) {
    settings_.Save(resources::kApplication, resources::kTaskSection, SettingOf(kAnswersKey, user),
                   ToText(answers));
}

}  // namespace zv::reminders
