// Customer cards in the database. Database errors reach the caller.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/database.h"

namespace zv::cards {

/// A row of cards.
struct Card {
    std::int32_t id = 0;
    std::string name;
    std::string company;
    std::string province;
    std::string city;
    std::string street;
    std::string code;
    std::string telephone;
    std::string mobilePhone;
    std::string homePhone;
    std::string fax;
    std::string email;
    std::string privateEmail;
    std::string webPage;
    std::string privateWebPage;

    /// Province, city and street in one line.
    std::string Address() const;
};

/// A card as a list offers it.
struct CardEntry {
    std::int32_t id = 0;
    std::string company;
};

/// The card of a number; nothing when there is none.
std::optional<Card> Load(store::Database& database, std::int32_t id);
/// The company of a card, empty when there is no such card.
std::string CompanyOf(store::Database& database, std::int32_t id);
/// The first `most` cards that pass a condition, by company and name; an empty condition passes
/// all.
std::vector<CardEntry> List(store::Database& database, const std::string& condition,
                            std::size_t most);

/// The condition for one card.
std::string IsCard(std::int32_t id);
/// The condition for a company that holds the text; an apostrophe in it stands for any character.
std::string CompanyLike(const std::string& company);
/// What narrows a condition to a box of cards: empty for box 0 or less.
std::string InBox(std::int16_t box);
/// The condition for the cards of exactly that code or else, where there is none, for those whose
/// code or company holds the text. `text` must fit a literal; `inBox` is what InBox answers.
std::string SearchCondition(store::Database& database, const std::string& text,
                            const std::string& inBox);

}  // namespace zv::cards
