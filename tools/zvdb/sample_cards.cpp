// Customer cards.
#include <array>
#include <cstdio>
#include <span>

#include "zvdb/random.h"
#include "zvdb/sample_parts.h"
#include "zvdb/words.h"

namespace zv::zvdb {
namespace {

std::string Digits(Random& random, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += static_cast<char>('0' + random.Below(10));
    return text;
}

/// Exchange 8555 is not handed out to subscribers in these invented numbers.
std::string LandLine(Random& random, const City& city) {
    return std::string(city.areaCode) + "-8555" + Digits(random, 4);
}

std::string Mobile(Random& random, const City& city) {
    if (city.traditional) return "0900-000-" + Digits(random, 3);
    constexpr std::array<const char*, 5> kNets = {"138", "139", "136", "159", "186"};
    const std::string last = Digits(random, 4);
    return std::string(random.Pick(kNets)) + "0000" + last;
}

std::string Upper(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return upper;
}

/// The same day of the year as `anniversary`, `age` years before; a leap year for 29 February.
DateTime BornOn(DateTime anniversary, int age) {
    int year = anniversary.Year() - age;
    while (!DateTime::IsValidDate(year, anniversary.Month(), anniversary.Day())) --year;
    return DateTime(year, anniversary.Month(), anniversary.Day());
}

/// Empty when the birthday is not known.
std::string Birthday(Random& random, int number, DateTime today) {
    const int age = random.Between(24, 62);
    const int soon = random.Below(16);
    const int dayOfLife = random.Below(366);
    DateTime born = BornOn(today.AddDays(-dayOfLife), age);
    if (number % 10 == 4) return {};
    if (number == 1) {
        born = BornOn(today, age);
    } else if (number % 8 == 2) {
        born = BornOn(today.AddDays(soon), age);
    } else if (number % 60 == 6) {
        born = DateTime(1960 + 4 * random.Below(9), 2, 29);
    }
    return born.IsoDateTime();
}

}  // namespace

std::vector<Card> FillCards(Engine& engine, const SampleOptions& options, Progress& progress) {
    Random random(options.seed, "cards");
    Statement insert(engine,
                     "insert into cards(fID,CompCode,CompName,Name,province,cityname,CompAdd,"
                     "telphone,homephone,handphone,fax,E_mail,HomeEmail,http,HomeHttp,Birthday,"
                     "BoxID) values(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
    const std::span<const City> cities =
        options.script == SampleOptions::Script::Mixed
            ? Cities()
            : CitiesOf(options.script == SampleOptions::Script::Traditional);
    std::vector<Card> cards;
    cards.reserve(static_cast<std::size_t>(options.Cards()));
    progress.Begin("cards", options.Cards());
    for (int number = 1; number <= options.Cards(); ++number) {
        const City& city = random.Pick(cities);
        const bool traditional = city.traditional;
        const Word& stem = random.Pick(CompanyStems());
        const Word& trade = random.Pick(Trades());
        const Word& form = random.Pick(CompanyForms());
        const Word& surname = random.Pick(Surnames());
        const Word& given = random.Pick(GivenNames());

        Card card;
        card.id = number;
        card.traditional = traditional;
        card.city = city.name;
        card.contact = std::string(surname.In(traditional)) + std::string(given.In(traditional));
        // Some customers are private persons.
        if (number % 17 != 0) {
            card.company = std::string(city.shortName) + std::string(stem.In(traditional)) +
                           std::string(trade.In(traditional)) + std::string(form.In(traditional));
        }
        const bool company = !card.company.empty();
        const std::string host = std::string(stem.latin) + "-" + std::string(trade.latin);
        const std::string person = std::string(surname.latin) + "." + std::string(given.latin);

        char code[24];
        std::snprintf(code, sizeof code, "%.2s%05d", Upper(company ? stem.latin : "gr").c_str(),
                      number);
        const std::string floor =
            random.Chance(60) ? std::to_string(random.Between(2, 28)) + (traditional ? "樓" : "楼")
                              : "";
        const std::string house = std::to_string(random.Between(1, 1999));
        const std::string address = std::string(random.Pick(Streets()).In(traditional)) + house +
                                    (traditional ? "號" : "号") + floor;
        const std::string phone = company ? LandLine(random, city) : "";
        const std::string home = random.Chance(35) || !company ? LandLine(random, city) : "";
        const std::string mobile = random.Chance(85) ? Mobile(random, city) : "";
        const std::string fax = company && random.Chance(60) ? LandLine(random, city) : "";
        const std::string mail = company && random.Chance(80) ? "info@" + host + ".example" : "";
        const std::string homeMail = random.Chance(45) ? person + "@mail.example" : "";
        const std::string web =
            company && random.Chance(70)
                ? (random.Chance(50) ? "http://www." : "www.") + host + ".example"
                : "";
        const std::string homeWeb = random.Chance(10) ? "http://home.example/" + person : "";
        const std::string birthday = Birthday(random, number, options.today);

        insert.Bind(std::int64_t{number}).Bind(code).Bind(card.company).Bind(card.contact);
        insert.Bind(city.province).Bind(city.name).Bind(address);
        insert.Bind(phone).Bind(home).Bind(mobile).Bind(fax);
        insert.Bind(mail).Bind(homeMail).Bind(web).Bind(homeWeb);
        if (birthday.empty()) {
            insert.BindNull();
        } else {
            insert.Bind(birthday);
        }
        insert.Bind(std::int64_t{random.Between(1, 3)}).Run();
        cards.push_back(std::move(card));
        progress.Advance();
    }
    return cards;
}

}  // namespace zv::zvdb
