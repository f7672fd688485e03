// The system at work on one engine, and what is stored there before and after an act.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "application/test_application.h"
#include "engines.h"

namespace zv::ring {

/// "table key column" to what is stored there, with "null" apart from a text.
using Stored = std::map<std::string, std::string>;

/// What became of an act.
struct Fate {
    Stored now;                     ///< all that is stored
    Stored changed;                 ///< of it, what is stored otherwise than before, and as what
    std::vector<std::string> told;  ///< what the user or the host was told, but for what went well

    std::string Text() const;
};

class Place {
 public:
    /// Opens what `database` holds in place of its own connection; empty: as it is.
    using Wrapper = std::function<std::unique_ptr<store::Connection>(
        std::unique_ptr<store::Connection> connection)>;

    /// With an item, a visit, a plan and a card.
    explicit Place(store::EngineKind engine, Wrapper wrapper = {});

    /// Plays the act and looks at what it changed. What leaves the windows reaches the host.
    Fate Play(const std::function<void()>& act);
    /// Everything as in the beginning.
    void Restore();
    /// Writes the text into every field of an item that takes texts, as another program would.
    void Hold(int item, const std::string& text);
    /// Writes the text into these fields of the card, as another program would.
    void HoldInCard(const std::vector<std::string>& columns, const std::string& text);
    /// A statement of the engine.
    void Run(const std::string& sql) { direct_->Execute(sql); }
    Stored Read();
    /// The list of all items, whatever their day, in the task manager.
    void ShowAllItems();

    test::TestApplication app;

 private:
    std::unique_ptr<store::Recordset> RowOf(const std::string& table, int id);

    std::unique_ptr<store::TestDatabase> database_;
    std::unique_ptr<store::Connection> direct_;
};

/// A value as failures show it: cut, and without characters that a terminal would act on.
std::string Shown(const std::string& value);

}  // namespace zv::ring
