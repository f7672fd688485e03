#include "reminders/reminder.h"

#include "base/text.h"

namespace zv::reminders {

bool People::NameNobody() const {
    return doer.empty() && setter.empty() && planDoer.empty() && planSetter.empty();
}

bool People::Name(std::string_view user) const {
    if (user.empty()) return false;
    const auto isUser = [&](const std::string& name) { return text::EqualsIgnoreCase(name, user); };
    return isUser(doer) || isUser(setter) || isUser(planDoer) || isUser(planSetter);
}

bool Concerns(const Subject& subject, std::string_view user) {
    return subject.people.NameNobody() || subject.people.Name(user);
}

Key KeyOf(const Subject& subject) {
    return {subject.plan, subject.plan == 0 ? subject.item : 0, subject.date, subject.title};
}

}  // namespace zv::reminders
