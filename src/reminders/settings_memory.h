// Reminders kept on the workstation, where the database has no table for them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "reminders/memory.h"
#include "resources/settings.h"

namespace zv::reminders {

/// One setting for each user. Of more answers than fit the latest stay.
class SettingsMemory final : public Memory {
 public:
    static constexpr std::size_t kMostAnswers = 10'000;

    /// `settings` must outlive this.
    explicit SettingsMemory(resources::SettingsStore& settings) : settings_(settings) {}

    std::vector<Answer> Answers(std::string_view user) override;
    void Keep(std::string_view user, const std::vector<Answer>& answers) override;
    void Forget(std::string_view user, const std::vector<Key>& keys) override;
    DateTime FirstLook(std::string_view user, DateTime now) override;

 private:
    void Save(std::string_view user, const std::vector<Answer>& answers);

    resources::SettingsStore& settings_;
};

/// A line for each answer, oldest first. What is no answer is left out when it is read.
std::string ToText(const std::vector<Answer>& answers);
std::vector<Answer> AnswersIn(std::string_view text);

}  // namespace zv::reminders
