// A host that listens: each event becomes a line of its name and arguments.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "session/host_events.h"

namespace zv::script {

class ScriptedEvents final : public HostEvents {
 public:
    std::vector<std::string> lines;

    void AlertShown(std::int32_t count) override { Add("AlertShown", count); }
    void ItemSaved(std::int32_t id, bool isNew) override { Add("ItemSaved", id, isNew ? 1 : 0); }
    void ItemDeleted(std::int32_t id) override { Add("ItemDeleted", id); }
    void ItemDone(std::int32_t id, std::int16_t state) override { Add("ItemDone", id, state); }
    void PlanGenerated(std::int32_t id, std::int32_t rows) override {
        Add("PlanGenerated", id, rows);
    }
    void ReminderShown(std::int32_t count) override { Add("ReminderShown", count); }
    void ReminderActed(std::int32_t id, std::int16_t act) override {
        Add("ReminderActed", id, act);
    }
    void WindowClosed(const std::string& name) override { lines.push_back("WindowClosed|" + name); }

 private:
    template <class... Numbers>
    void Add(const char* name, Numbers... numbers) {
        std::string line = name;
        ((line += '|' + std::to_string(numbers)), ...);
        lines.push_back(line);
    }
};

}  // namespace zv::script
