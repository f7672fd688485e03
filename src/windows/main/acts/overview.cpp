#include "windows/main/acts/overview.h"

#include <algorithm>
#include <utility>

#include "forms/form.h"
#include "items/urgency.h"

namespace zv::windows {
namespace {

using items::Urgency;
using resources::StatusText;

constexpr std::size_t kMostDoers = 6;

}  // namespace

Overview::Overview(forms::Form& form, Session& session, MainModel& model, TreePanel& tree,
                   ContentPanel& content, CardPanel& cards, StatusPanel& status, ItemView& view,
                   Listing& listing)
    : form_(form),
      session_(session),
      model_(model),
      tree_(tree),
      content_(content),
      status_(status),
      listing_(listing) {
    listing_.onShown = [this] { ListShown(); };
    listing_.onEmptied = [this] { ListEmptied(); };
    tree_.onItemsChanged = [this] { ItemsChanged(); };
    view.onShown = [this] { ShowSummary(); };
    model_.OnEdit([this] {
        status_.AllowShow(!model_.Editing());
        ShowSummary();
    });
    status_.onRest = [this] { tmrRest_Timer(); };
    cards.onSearched = [this](const std::string& typed, std::size_t found, bool more) {
        status_.Notify(Text(more ? StatusText::MostCardsFound : StatusText::CardsFound, typed,
                            std::to_string(found)),
                       false);
    };
}

// What stands in the window all the time is said in a language that has texts.
std::int16_t Overview::Language() const {
    return resources::SpokenLanguage(session_.state.Language);
}

std::string Overview::Text(StatusText id, std::string_view first, std::string_view second) const {
    return LoadText(id, Language(), first, second);
}

void Overview::ListShown() {
    counts_.reset();
    inList_.reset();
    status_.ClearNotice();
    // Counting may take a while: the list is seen first, and an alert pass that shows nothing never
    // comes to rest.
    status_.CallAtRest();
    ShowAgain();
}

void Overview::ListEmptied() {
    counts_.reset();
    inList_.reset();
    status_.ClearNotice();
    status_.Rest();
    ShowAgain();
}

void Overview::ItemsChanged() {
    status_.CallAtRest();
    ShowLine();
}

void Overview::tmrRest_Timer() {
    if (!form_.IsShown() || model_.ShowsPlans()) return;
    inList_ = tree_.CountItems();
    counts_.reset();
    try {
        counts_ = items::CountDue(session_.database, listing_.CountedCondition(),
                                  session_.machine.clock.Today());
    } catch (const RuntimeError&) {
        // The line says so; nobody asked for the numbers.
    }
    ShowAgain();
}

void Overview::ShowAgain() {
    ShowLine();
    ShowSummary();
}

void Overview::ShowLine() {
    status_.Show(Line());
}

std::string Overview::Line() const {
    constexpr std::string_view kBetween = "  |  ";
    const auto number = [](auto count) { return std::to_string(count); };
    if (model_.ShowsPlans()) {
        return Text(StatusText::PlansShown, number(tree_.ItemsShown()));
    }
    std::string line;
    if (counts_) {
        line = Text(StatusText::TodayCount, number(counts_->all.today)) +
               Text(StatusText::Between) +
               Text(StatusText::OverdueCount, number(counts_->all.overdue));
        line += kBetween;
    } else if (inList_) {
        line = Text(StatusText::CannotCount);
        line += kBetween;
    }
    line += Text(StatusText::ItemsShown, number(tree_.ItemsShown()));
    if (listing_.BySearch()) return line + Text(StatusText::BySearch);
    const std::string& narrowing = listing_.NarrowedBy();
    return line + (narrowing.empty() ? Text(StatusText::NotNarrowed)
                                     : Text(StatusText::Narrowed, narrowing));
}

bool Overview::NothingSelected() const {
    return model_.currentId == 0 && !model_.ShowsPlans() && !model_.Editing();
}

void Overview::ShowSummary() {
    const bool shown = inList_ && NothingSelected();
    content_.ShowSummary(shown ? Summary() : std::string());
}

std::string Overview::Summary() const {
    std::string text = Text(StatusText::InList) + Counted(*inList_);
    text += "\r\n" + Text(StatusText::InAll);
    if (!counts_) return text + Text(StatusText::CannotCount);
    text += Counted(counts_->all);
    const auto& doers = counts_->doers;
    const std::size_t shown = doers.size() <= kMostDoers ? doers.size() : kMostDoers - 1;
    const std::string behindName = Text(StatusText::BehindName);
    for (std::size_t i = 0; i < shown; i++) {
        const std::string name = doers[i].name.empty() ? Text(StatusText::NoDoer) : doers[i].name;
        text += "\r\n" + name + behindName + Counted(doers[i].count);
    }
    if (shown < doers.size()) {
        text += "\r\n" + Text(StatusText::OtherDoers, std::to_string(doers.size() - shown)) +
                behindName + Counted(counts_->SumFrom(shown));
    }
    return text;
}

std::string Overview::Counted(const items::DueCount& count) const {
    std::string text;
    for (const auto& [urgency, number] :
         {std::pair(Urgency::Overdue, count.overdue), std::pair(Urgency::Today, count.today),
          std::pair(Urgency::InHand, count.inHand)}) {
        if (!text.empty()) text += Text(StatusText::Between);
        text +=
            Text(StatusText::CountOf, items::NameOf(urgency, Language()), std::to_string(number));
    }
    return text;
}

std::function<void()> Overview::Remember() {
    return [this, counts = counts_, inList = inList_] {
        counts_ = counts;
        inList_ = inList;
    };
}

}  // namespace zv::windows
