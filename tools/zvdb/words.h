// The words that sample names and texts are put together from. The names are invented; addresses on
// the network end in ".example", which is set aside for this use and never leads anywhere.
#pragma once

#include <span>
#include <string_view>

namespace zv::zvdb {

struct Word {
    std::string_view simplified;
    std::string_view traditional;
    std::string_view latin;

    std::string_view In(bool asTraditional) const {
        return asTraditional ? traditional : simplified;
    }
};

struct City {
    std::string_view province;  ///< empty where the city stands by itself
    std::string_view name;
    std::string_view shortName;
    std::string_view areaCode;
    bool traditional;
};

struct Department {
    std::string_view name;
    std::string_view code;
    std::string_view traditional;
};

std::span<const Word> Surnames();
std::span<const Word> GivenNames();
std::span<const Word> CompanyStems();
std::span<const Word> Trades();
std::span<const Word> CompanyForms();
std::span<const Word> Streets();
std::span<const City> Cities();
/// Of them those that write in one script.
std::span<const City> CitiesOf(bool traditional);
std::span<const Department> Departments();

std::span<const Word> TaskTitles();
std::span<const Word> TaskContents();
std::span<const Word> DiaryTitles();
std::span<const Word> DiaryContents();
std::span<const Word> VisitTitles();
std::span<const Word> VisitContents();
std::span<const Word> VisitResults();

}  // namespace zv::zvdb
