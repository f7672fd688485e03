#include "mainwindow/card_panel.h"

#include <memory>

#include "base/number.h"
#include "base/text.h"
#include "mainwindow/frm_task_main.h"
#include "store/sql_text.h"

namespace zv::mainwindow {
namespace {

constexpr int kMostCards = 101;

// The host's company may hold an apostrophe, for which any one character stands.
std::string CompanyClause(const std::string& company) {
    return "CompName like '" + text::Replace(store::MakeLikePattern(company), "'", "_") + "'";
}

}  // namespace

std::string CardPanel::Entry(const std::string& company, std::int32_t cardId) {
    return text::PadTo(company.empty() ? "（空）" : company, kCompanyWidth) +
           std::to_string(cardId);
}

std::int32_t CardPanel::EntryId(const std::string& entry) {
    return number::ToInt32(number::Val(text::Mid(entry, kCompanyWidth + 1)));
}

bool CardPanel::LoadCardList(const std::string& filter) {
    std::string sql =
        "select fID,CompCode,compname,name,telphone,homephone,handphone,fax,"
        "E_mail,HomeEmail,http,HomeHttp from cards ";
    if (!filter.empty()) sql += " Where " + filter;
    sql += " Order by compname,name";
    window_.session.EnsureConnection();
    const auto rows = window_.session.database.Open(sql);
    std::vector<std::string> entries;
    for (; !rows->Eof() && static_cast<int>(entries.size()) < kMostCards; rows->MoveNext()) {
        entries.push_back(Entry(rows->Field("compname").ToText(), rows->Field("fID").ToInt32()));
    }
    rows->Close();
    const bool any = !entries.empty();
    window_.cboComp2.SetItems(std::move(entries));
    if (any) {
        Select(0);
    } else {
        ClearCardDetail();
        window_.session.state.cardId = 0;
    }
    return any;
}

bool CardPanel::Search(const std::string& filter) {
    // A search in vain picks nothing, and what was picked before is shown no longer.
    SetPick(std::nullopt, true);
    const bool found = LoadCardList(filter);
    if (found) SetPick(window_.session.state.cardId, false);
    return found;
}

void CardPanel::Select(int position) {
    struct Program {
        explicit Program(bool& flag) : byProgram(flag), before(flag) { byProgram = true; }
        ~Program() { byProgram = before; }
        bool& byProgram;
        bool before;
    } const program{byProgram_};
    window_.cboComp2.SetListIndex(position);
}

void CardPanel::LoadStartList() {
    std::string filter;
    const std::string& company = window_.session.state.myName;
    if (!company.empty()) filter = CompanyClause(company);
    LoadCardList(filter.empty() ? BoxFilter() : filter + BoxClause());
}

std::string CardPanel::BoxClause() const {
    const std::int16_t box = window_.session.state.AlertType;
    return box > 0 ? " And BoxID=" + std::to_string(box) : std::string();
}

std::string CardPanel::BoxFilter() const {
    return text::Replace(BoxClause(), " And ", "");
}

void CardPanel::ShowCard(std::int32_t cardId) {
    if (cardId == 0) return;
    std::unique_ptr<store::Recordset> row;
    try {
        window_.session.EnsureConnection();
        row = window_.session.database.Open(
            "select fID,name,compname,province,cityname,CompAdd,CompCode,telphone,homephone,"
            "handphone,fax,E_mail,HomeEmail,http,HomeHttp from cards where fID=" +
            std::to_string(cardId));
    } catch (...) {
        // The numbers and addresses of another card must not stand below this one's name.
        ClearCardDetail();
        throw;
    }
    if (row->Eof()) {
        row->Close();
        ClearCardDetail();
        return;
    }
    FillDetail(*row);
    const std::string company = row->Field("compname").ToText();
    row->Close();
    if (window_.cboComp2.ListCount() == 0) window_.cboComp2.AddItem(Entry(company, cardId));
}

void CardPanel::FillDetail(const store::Recordset& row) {
    const auto field = [&](std::string_view name) { return row.Field(name).ToText(); };
    const std::string province = field("province");
    const std::string city = field("cityname");
    const std::string street = field("CompAdd");
    window_.contacts.ForgetBox();
    window_.txtAdd2.SetText(province.empty() && city.empty() ? street
                                                             : province + city + "," + street);
    window_.txtName2.SetText(field("Name"));
    window_.txtTel[0].SetText(field("telphone"));
    window_.txtTel[1].SetText(field("handphone"));
    window_.txtTel[2].SetText(field("homephone"));
    window_.txtTel[3].SetText(field("fax"));
    window_.txtEmail[0].SetText(field("E_mail"));
    window_.txtEmail[1].SetText(field("HomeEmail"));
    window_.txtHttp[0].SetText(field("http"));
    window_.txtHttp[1].SetText(field("HomeHttp"));
    window_.txtCompSeek.SetText(field("CompCode"));
}

void CardPanel::ClearCardDetail() {
    window_.contacts.ForgetBox();
    Select(-1);
    window_.txtAdd2.SetText("");
    window_.txtName2.SetText("");
    for (int i = 0; i < window_.txtTel.Count(); i++) window_.txtTel[i].SetText("");
    for (int i = 0; i < window_.txtEmail.Count(); i++) window_.txtEmail[i].SetText("");
    for (int i = 0; i < window_.txtHttp.Count(); i++) window_.txtHttp[i].SetText("");
    window_.txtCompSeek.SetText("");
}

std::int32_t CardPanel::SelectedCard() const {
    const int position = window_.cboComp2.ListIndex();
    return position >= 0 ? EntryId(window_.cboComp2.List(position)) : 0;
}

void CardPanel::cboComp2_Click() {
    window_.session.state.cardId = SelectedCard();
    const bool selected = window_.cboComp2.ListIndex() >= 0;
    if (!byProgram_) {
        SetPick(selected ? std::optional(window_.session.state.cardId) : std::nullopt, !selected);
    }
    if (selected) ShowCard(window_.session.state.cardId);
}

void CardPanel::cboComp2_LostFocus() {
    // Not the edit mode, which a delete that was called off leaves behind.
    if (window_.state.openedFor == kNoEdit) return;
    // Without a company there is nothing to propose.
    if (window_.cboComp2.ListIndex() < 0) return;
    const std::string company = text::Left(window_.cboComp2.Text(), kCompanyWidth);
    window_.txtTitle2.SetText(std::string(text::Trim(company)) + "--拜访记录");
}

void CardPanel::cboComp2_KeyDown(forms::KeyEvent& event) {
    if (event.code != forms::key::kEnter) return;
    window_.txtTitle2.SetFocus();
    event.code = 0;
}

void CardPanel::cboWay_Click() {
    const int way = std::max(window_.cboWay.ListIndex(), 0);
    const auto show = [](auto& labels, auto& texts, forms::CommandButton& button, bool visible) {
        for (int i = 0; i < texts.Count(); i++) {
            labels[i].SetVisible(visible);
            texts[i].SetVisible(visible);
        }
        button.SetVisible(visible);
    };
    show(window_.lblTel, window_.txtTel, window_.cmdTel, way == 0);
    show(window_.lblEmail, window_.txtEmail, window_.cmdEmail, way == 1);
    show(window_.lblHttp, window_.txtHttp, window_.cmdHttp, way == 2);
}

}  // namespace zv::mainwindow
