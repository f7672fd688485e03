#include "cards/card_store.h"

#include "base/text.h"
#include "store/sql_text.h"

namespace zv::cards {

std::string Card::Address() const {
    return province.empty() && city.empty() ? street : province + city + "," + street;
}

std::optional<Card> Load(store::Database& database, std::int32_t id) {
    database.EnsureConnection();
    const auto row = database.Open(
        "select fID,name,compname,province,cityname,CompAdd,CompCode,telphone,homephone,"
        "handphone,fax,E_mail,HomeEmail,http,HomeHttp from cards where fID=" +
        std::to_string(id));
    std::optional<Card> card;
    if (!row->Eof()) {
        const auto field = [&](std::string_view name) { return row->Field(name).ToText(); };
        card.emplace();
        card->id = id;
        card->name = field("Name");
        card->company = field("compname");
        card->province = field("province");
        card->city = field("cityname");
        card->street = field("CompAdd");
        card->code = field("CompCode");
        card->telephone = field("telphone");
        card->mobilePhone = field("handphone");
        card->homePhone = field("homephone");
        card->fax = field("fax");
        card->email = field("E_mail");
        card->privateEmail = field("HomeEmail");
        card->webPage = field("http");
        card->privateWebPage = field("HomeHttp");
    }
    row->Close();
    return card;
}

std::string CompanyOf(store::Database& database, std::int32_t id) {
    const auto row = database.Open("select compname from cards where fID=" + std::to_string(id));
    std::string company = row->Eof() ? std::string() : row->Field("compname").ToText();
    row->Close();
    return company;
}

std::vector<CardEntry> List(store::Database& database, const std::string& condition,
                            std::size_t most) {
    std::string sql =
        "select fID,CompCode,compname,name,telphone,homephone,handphone,fax,"
        "E_mail,HomeEmail,http,HomeHttp from cards ";
    if (!condition.empty()) sql += " Where " + condition;
    sql += " Order by compname,name";
    database.EnsureConnection();
    const auto rows = database.Open(sql);
    std::vector<CardEntry> entries;
    for (; !rows->Eof() && entries.size() < most; rows->MoveNext()) {
        entries.push_back({rows->Field("fID").ToInt32(), rows->Field("compname").ToText()});
    }
    rows->Close();
    return entries;
}

std::string IsCard(std::int32_t id) {
    return "fid=" + std::to_string(id);
}

std::string CompanyLike(const std::string& company) {
    return "CompName like '" + text::Replace(store::MakeLikePattern(company), "'", "_") + "'";
}

std::string InBox(std::int16_t box) {
    return box > 0 ? " And BoxID=" + std::to_string(box) : std::string();
}

std::string SearchCondition(store::Database& database, const std::string& text,
                            const std::string& inBox) {
    std::string exact = "CompCode = '" + text + "'" + inBox;
    database.EnsureConnection();
    // A count that failed says nothing; the wider condition finds the code as well.
    if (database.CountRows("cards", exact) > 0) return exact;
    const std::string pattern = store::MakeLikePattern(text);
    return "(CompCode like '" + pattern + "' or CompName like '" + pattern +
           "') And CompName <> ''" + inBox;
}

}  // namespace zv::cards
