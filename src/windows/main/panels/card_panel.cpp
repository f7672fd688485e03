#include "windows/main/panels/card_panel.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/number.h"
#include "base/text.h"
#include "forms/field_keys.h"
#include "forms/layout/metrics.h"
#include "items/fields.h"
#include "resources/fixed_texts.h"
#include "session/text_checks.h"
#include "windows/main/panels/contact_targets.h"

namespace zv::windows {
namespace {

using resources::DesignText;

constexpr std::size_t kMostCards = 101;

// Elements of the editor's array of labels.
constexpr int kWayLabel = 6;
constexpr int kGuestLabel = 7;
constexpr int kCompanyLabel = 8;
constexpr int kAddressLabel = 9;
constexpr int kSearchLabel = 11;

}  // namespace

CardPanel::CardPanel(forms::Form& form, forms::TabPage page, Session& session)
    : form_(form),
      page_(page),
      session_(session),
      lblWay(form, "lblList2", &page.Content(), kWayLabel),
      lblGuest(form, "lblList2", &page.Content(), kGuestLabel),
      lblCompany(form, "lblList2", &page.Content(), kCompanyLabel),
      lblAddress(form, "lblList2", &page.Content(), kAddressLabel),
      lblSearch(form, "lblList2", &page.Content(), kSearchLabel),
      txtCompSeek(form, "txtCompSeek", &page.Content()),
      cboComp2(form, "cboComp2", &page.Content(), forms::ComboStyle::ListOnly),
      txtName2(form, "txtName2", &page.Content()),
      txtAdd2(form, "txtAdd2", &page.Content()),
      cboWay(form, "cboWay", &page.Content(), forms::ComboStyle::FreeText),
      lblTel(form, "lblTel", &page.Content(), 4),
      txtTel(form, "txtTel", &page.Content(), 4),
      cmdTel(form, "cmdTel", &page.Content()),
      lblEmail(form, "lblEmail", &page.Content(), 2),
      txtEmail(form, "txtEmail", &page.Content(), 2),
      cmdEmail(form, "cmdEmail", &page.Content()),
      lblHttp(form, "lblHttp", &page.Content(), 2),
      txtHttp(form, "txtHttp", &page.Content(), 2),
      cmdHttp(form, "cmdHttp", &page.Content()) {
    txtAdd2.SetLocked(true);
    txtName2.SetMaxLength(items::kFields[items::field::kGuest].length);
    cboWay.SetMaxLength(items::kFields[items::field::kWay].length);
    Wire();
}

void CardPanel::Wire() {
    cboComp2.onClick = [this] { cboComp2_Click(); };
    cboComp2.onLostFocus = [this] { cboComp2_LostFocus(); };
    cboComp2.onKeyDown = [this](forms::KeyEvent& event) { cboComp2_KeyDown(event); };
    cboWay.onClick = [this] { cboWay_Click(); };
    cboWay.onChange = [this] { cboWay_Click(); };
    const std::initializer_list<forms::Control*> boxes{&txtName2, &txtAdd2, &cboWay};
    for (forms::Control* box : boxes) {
        box->onKeyDown = [this](forms::KeyEvent& event) { forms::MoveOnEnter(form_, event); };
    }
    txtCompSeek.onKeyDown = [this](forms::KeyEvent& event) { txtCompSeek_KeyDown(event); };
    ShowVacancy(true);
    Watch(txtTel, cmdTel);
    Watch(txtEmail, cmdEmail);
    Watch(txtHttp, cmdHttp);
    cmdTel.onClick = [this] { cmdTel_Click(); };
    cmdEmail.onClick = [this] { cmdEmail_Click(); };
    cmdHttp.onClick = [this] { cmdHttp_Click(); };
}

void CardPanel::LoadLists() {
    cboWay.SetItems({session_.LoadText(DesignText::WayTelephone),
                     session_.LoadText(DesignText::WayEmail),
                     session_.LoadText(DesignText::WayWeb)});
}

std::vector<FieldBox> CardPanel::Boxes() {
    return {{items::field::kWay, &lblWay, &cboWay}, {items::field::kGuest, &lblGuest, &txtName2}};
}

void CardPanel::SetCaptions() {
    const auto label = [this](forms::Label& target, DesignText text, forms::Control& field) {
        target.SetCaption(session_.LoadText(text));
        field.SetAccessibleName(target.Caption());
    };
    label(lblCompany, DesignText::Company, cboComp2);
    label(lblAddress, DesignText::Address, txtAdd2);
    label(lblSearch, DesignText::FindCard, txtCompSeek);
    label(lblTel[0], DesignText::Telephone, txtTel[0]);
    label(lblTel[1], DesignText::MobilePhone, txtTel[1]);
    label(lblTel[2], DesignText::HomePhone, txtTel[2]);
    label(lblTel[3], DesignText::Fax, txtTel[3]);
    label(lblEmail[0], DesignText::Email, txtEmail[0]);
    label(lblEmail[1], DesignText::PrivateEmail, txtEmail[1]);
    label(lblHttp[0], DesignText::WebPage, txtHttp[0]);
    label(lblHttp[1], DesignText::PrivateWebPage, txtHttp[1]);
    cmdTel.SetCaption(session_.LoadText(DesignText::ButtonCall));
    cmdEmail.SetCaption(session_.LoadText(DesignText::ButtonMail));
    cmdHttp.SetCaption(session_.LoadText(DesignText::ButtonBrowse));
    page_.SetCaption(session_.LoadText(DesignText::TabCard));
}

void CardPanel::Place(const forms::Rect& page) {
    using namespace forms::layout;
    const Metrics m(form_.Windows().GetBackend());
    const int inner = page.width - 2 * kMargin;
    const int column = (inner - kColumnGap) / 2;
    const int left = kMargin;
    const int right = left + column + kColumnGap;
    const int labelWidth =
        std::max({m.LabelWidth({&lblWay, &lblGuest, &lblCompany, &lblAddress, &lblSearch}),
                  m.LabelWidth(lblTel), m.LabelWidth(lblEmail), m.LabelWidth(lblHttp)});
    int y = kMargin;
    m.PlaceLabelled(lblSearch, txtCompSeek, left, y, labelWidth, column);
    y += m.Row();
    // Behind the company stands the card's number, which is to lie beyond the visible part.
    const int entryWidth = m.Width(std::string(kCompanyWidth, ' ')) + kDropButton;
    m.PlaceLabelled(lblCompany, cboComp2, left, y, labelWidth,
                    std::min(column, labelWidth + entryWidth));
    y += m.Row();
    m.PlaceLabelled(lblGuest, txtName2, left, y, labelWidth, column);
    m.PlaceLabelled(lblWay, cboWay, right, y, labelWidth, column);
    y += m.Row();
    m.PlaceLabelled(lblAddress, txtAdd2, left, y, labelWidth, inner);
    y += m.Row();
    // The three ways share one place.
    for (int i = 0; i < txtTel.Count(); i++) {
        m.PlaceLabelled(lblTel[i], txtTel[i], i % 2 == 0 ? left : right, y + i / 2 * m.Row(),
                        labelWidth, column);
    }
    for (int i = 0; i < txtEmail.Count(); i++) {
        m.PlaceLabelled(lblEmail[i], txtEmail[i], left, y + i * m.Row(), labelWidth, inner);
        m.PlaceLabelled(lblHttp[i], txtHttp[i], left, y + i * m.Row(), labelWidth, inner);
    }
    y += 2 * m.Row();
    for (forms::CommandButton* button : {&cmdTel, &cmdEmail, &cmdHttp}) {
        button->Move({left + labelWidth, y, m.ButtonWidth(button->Caption()), m.Button()});
    }
}

std::string CardPanel::Entry(const std::string& company, std::int32_t cardId) {
    return text::PadTo(company.empty() ? resources::fixed::kNoCompany : company, kCompanyWidth) +
           std::to_string(cardId);
}

std::int32_t CardPanel::EntryId(const std::string& entry) {
    return number::ToInt32(number::Val(text::Mid(entry, kCompanyWidth + 1)));
}

bool CardPanel::LoadCardList(const std::string& condition) {
    std::vector<std::string> entries;
    for (const auto& card : cards::List(session_.database, condition, kMostCards)) {
        entries.push_back(Entry(card.company, card.id));
    }
    const bool any = !entries.empty();
    cboComp2.SetItems(std::move(entries));
    if (any) {
        Select(0);
    } else {
        ClearCardDetail();
        session_.state.cardId = 0;
    }
    return any;
}

bool CardPanel::Search(const std::string& condition) {
    // A search in vain picks nothing, and what was picked before is shown no longer.
    SetPick(std::nullopt, true);
    const bool found = LoadCardList(condition);
    if (found) SetPick(session_.state.cardId, false);
    return found;
}

void CardPanel::Select(int position) {
    struct Program {
        explicit Program(bool& flag) : byProgram(flag), before(flag) { byProgram = true; }
        ~Program() { byProgram = before; }
        bool& byProgram;
        bool before;
    } const program{byProgram_};
    cboComp2.SetListIndex(position);
}

void CardPanel::LoadStartList() {
    const std::string& company = session_.state.myName;
    LoadCardList(company.empty()
                     ? BoxCondition()
                     : cards::CompanyLike(company) + cards::InBox(session_.state.AlertType));
}

std::string CardPanel::BoxCondition() const {
    return text::Replace(cards::InBox(session_.state.AlertType), " And ", "");
}

void CardPanel::ShowCard(std::int32_t cardId) {
    if (cardId == 0) return;
    std::optional<cards::Card> card;
    try {
        card = cards::Load(session_.database, cardId);
    } catch (...) {
        // The numbers and addresses of another card must not stand below this one's name.
        ClearCardDetail();
        throw;
    }
    if (!card) return ClearCardDetail();
    FillDetail(*card);
    if (cboComp2.ListCount() == 0) cboComp2.AddItem(Entry(card->company, cardId));
}

void CardPanel::FillDetail(const cards::Card& card) {
    usedBox_ = nullptr;
    txtAdd2.SetText(card.Address());
    txtName2.SetText(card.name);
    txtTel[0].SetText(card.telephone);
    txtTel[1].SetText(card.mobilePhone);
    txtTel[2].SetText(card.homePhone);
    txtTel[3].SetText(card.fax);
    txtEmail[0].SetText(card.email);
    txtEmail[1].SetText(card.privateEmail);
    txtHttp[0].SetText(card.webPage);
    txtHttp[1].SetText(card.privateWebPage);
    txtCompSeek.SetText(card.code);
    ShowVacancy(card.id == 0);
}

void CardPanel::ShowVacancy(bool vacant) {
    for (TextBoxes* boxes : {&txtTel, &txtEmail, &txtHttp}) {
        for (int i = 0; i < boxes->Count(); i++) (*boxes)[i].SetVacant(vacant);
    }
}

void CardPanel::ClearCardDetail() {
    Select(-1);
    FillDetail({});
}

void CardPanel::Empty() {
    cboComp2.SetItems({});
    ClearCardDetail();
}

void CardPanel::ShowWay(const std::string& way) {
    cboWay.SetText(way);
    for (int i = 0; i < cboWay.ListCount(); i++) {
        if (cboWay.List(i) != way) continue;
        cboWay.SetListIndex(i);
        return;
    }
    // A text of its own selects no row and so raises no click.
    cboWay_Click();
}

std::int32_t CardPanel::SelectedCard() const {
    const int position = cboComp2.ListIndex();
    return position >= 0 ? EntryId(cboComp2.List(position)) : 0;
}

std::function<void()> CardPanel::Remember() {
    std::vector<forms::Control*> boxes{&txtCompSeek, &cboComp2, &txtName2, &txtAdd2, &cboWay};
    for (TextBoxes* array : {&txtTel, &txtEmail, &txtHttp}) {
        for (int i = 0; i < array->Count(); i++) boxes.push_back(&(*array)[i]);
    }
    return [this, restore = forms::RememberAll(boxes), pick = pick_, leftEmpty = leftEmpty_] {
        restore();
        SetPick(pick, leftEmpty);
        // What is seen of the ways follows from the one that is chosen.
        cboWay_Click();
    };
}

void CardPanel::FocusFirst(bool hasCard) {
    // A visit begins with its customer, whose name the title is proposed from.
    if (hasCard)
        cboComp2.SetFocus();
    else
        txtCompSeek.SetFocus();
}

void CardPanel::cboComp2_Click() {
    session_.state.cardId = SelectedCard();
    const bool selected = cboComp2.ListIndex() >= 0;
    if (!byProgram_) {
        SetPick(selected ? std::optional(session_.state.cardId) : std::nullopt, !selected);
    }
    if (selected) ShowCard(session_.state.cardId);
}

void CardPanel::cboComp2_LostFocus() {
    // Without a company there is nothing to propose.
    if (cboComp2.ListIndex() < 0 || !onLeftWithCompany) return;
    onLeftWithCompany(std::string(text::Trim(text::Left(cboComp2.Text(), kCompanyWidth))));
}

void CardPanel::cboComp2_KeyDown(forms::KeyEvent& event) {
    if (event.code != forms::key::kEnter) return;
    if (onEntered) onEntered();
    event.code = 0;
}

void CardPanel::cboWay_Click() {
    const int way = std::max(cboWay.ListIndex(), 0);
    const auto show = [](auto& labels, auto& texts, forms::CommandButton& button, bool visible) {
        for (int i = 0; i < texts.Count(); i++) {
            labels[i].SetVisible(visible);
            texts[i].SetVisible(visible);
        }
        button.SetVisible(visible);
    };
    show(lblTel, txtTel, cmdTel, way == 0);
    show(lblEmail, txtEmail, cmdEmail, way == 1);
    show(lblHttp, txtHttp, cmdHttp, way == 2);
}

void CardPanel::txtCompSeek_KeyDown(forms::KeyEvent& event) {
    if (event.code != forms::key::kEnter || txtCompSeek.Text().empty()) return;
    event.code = 0;
    const std::string typed = txtCompSeek.Text();
    const std::string text = text::ToUpper(typed);
    txtCompSeek.SetText(text);
    if (!CheckText(session_, text)) {
        txtCompSeek.SelectAll();
        return;
    }
    Search(cards::SearchCondition(session_.database, text, cards::InBox(session_.state.AlertType)));
    const auto found = static_cast<std::size_t>(cboComp2.ListCount());
    if (onSearched) onSearched(typed, found, found >= kMostCards);
    if (found > 0) {
        cboComp2.SetFocus();
    } else {
        session_.windows.ShowMessage(resources::fixed::kNoCardFound, forms::box::kInformation);
    }
}

void CardPanel::Watch(TextBoxes& boxes, forms::CommandButton& button) {
    for (int i = 0; i < boxes.Count(); i++) {
        forms::TextBox& box = boxes[i];
        box.onGotFocus = [this, &box] { usedBox_ = &box; };
        // On to what is done with this one, not to the next.
        box.onKeyDown = [&button](forms::KeyEvent& event) {
            if (event.code != forms::key::kEnter) return;
            event.code = 0;
            button.SetFocus();
        };
    }
}

std::string CardPanel::Chosen(const TextBoxes& boxes) const {
    std::string first;
    for (int i = 0; i < boxes.Count(); i++) {
        const std::string& text = boxes[i].Text();
        if (&boxes[i] == usedBox_ && !text.empty()) return text;
        if (first.empty()) first = text;
    }
    return first;
}

void CardPanel::cmdTel_Click() {
    platform::Shell& shell = session_.machine.shell;
    const std::string dialer = shell.DialerPath();
    if (dialer.empty()) return;
    shell.Start(dialer);
    const std::string keys = DialKeys(Chosen(txtTel));
    if (!keys.empty()) shell.SendKeys(keys);
}

void CardPanel::cmdEmail_Click() {
    Open(MailTarget(Chosen(txtEmail)));
}

void CardPanel::cmdHttp_Click() {
    Open(WebTarget(Chosen(txtHttp)));
}

void CardPanel::Open(const std::string& target) {
    if (!target.empty()) session_.machine.shell.Open(target);
}

}  // namespace zv::windows
