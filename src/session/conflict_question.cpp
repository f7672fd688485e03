#include "session/conflict_question.h"

#include <algorithm>

#include "base/text.h"
#include "forms/dialogs.h"
#include "resources/item_texts.h"

namespace zv {
namespace {

using resources::ItemText;

constexpr std::size_t kMostCharacters = 60;
/// How much of what is alike is shown before the difference.
constexpr std::size_t kLead = 10;
constexpr std::string_view kLeftOut = "...";

std::size_t AlikeCharacters(std::string_view one, std::string_view other) {
    std::size_t first = 0;
    std::size_t second = 0;
    while (first < one.size() && second < other.size()) {
        const std::size_t before = first;
        if (text::NextCodePoint(one, first) != text::NextCodePoint(other, second)) {
            return text::Length(one.substr(0, before));
        }
    }
    return text::Length(one.substr(0, first));
}

std::string ExcerptFrom(std::string_view whole, std::size_t skipped) {
    std::string part = text::Mid(whole, skipped + 1);
    if (text::Length(part) > kMostCharacters) {
        part = text::Left(part, kMostCharacters).append(kLeftOut);
    }
    return skipped > 0 ? std::string(kLeftOut) + part : part;
}

}  // namespace

std::pair<std::string, std::string> Excerpts(std::string_view one, std::string_view other) {
    const std::size_t longer = std::max(text::Length(one), text::Length(other));
    const std::size_t alike = longer > kMostCharacters ? AlikeCharacters(one, other) : 0;
    const std::size_t skipped = alike > kMostCharacters / 2 ? alike - kLead : 0;
    return {ExcerptFrom(one, skipped), ExcerptFrom(other, skipped)};
}

std::optional<store::RowMerge::Version> AskForVersion(const Session& session,
                                                      const std::vector<ConflictLine>& lines) {
    const auto text = [&session](ItemText id) { return session.LoadText(id); };
    std::string question = text(ItemText::ChangedByOthers) + "\r\n";
    for (const ConflictLine& line : lines) {
        const auto [stored, own] = Excerpts(line.stored, line.own);
        question += "\r\n" + line.caption + ": " + text(ItemText::StoredNow) + " [" + stored +
                    "], " + text(ItemText::YourInput) + " [" + own + "]";
    }
    question += "\r\n\r\n" + text(ItemText::OverwriteQuestion);
    switch (
        session.windows.ShowMessage(question, forms::box::kYesNoCancel + forms::box::kQuestion)) {
        case forms::Answer::Yes:
            return store::RowMerge::Version::Own;
        case forms::Answer::No:
            return store::RowMerge::Version::Stored;
        default:
            return std::nullopt;
    }
}

}  // namespace zv
