// What every window of the control works with: the control state and the ports, one set per
// loaded control library.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "forms/window_system.h"
#include "platform/machine.h"
#include "resources/design_texts.h"
#include "resources/number_setting.h"
#include "resources/settings.h"
#include "resources/texts.h"
#include "session/control_state.h"
#include "session/done_acts.h"
#include "session/host_events.h"
#include "session/take_back.h"
#include "store/database.h"

namespace zv {

class Session {
 public:
    /// The ports must outlive the session; `observer` may be null.
    Session(platform::Machine& machine, resources::SettingsStore& settings,
            store::ConnectionOpener& opener, forms::WindowSystem& windows,
            store::StatementObserver* observer = nullptr);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// The text of a number of the catalogue or of an id in the control's language. Throws like
    /// resources::LoadText.
    template <class Id>
    std::string LoadText(Id id) const {
        return resources::LoadText(id, state.Language);
    }
    /// With `first` in the place of "{0}".
    template <class Id>
    std::string LoadText(Id id, std::string_view first) const {
        return resources::LoadText(id, state.Language, first);
    }
    /// What the opener is given.
    store::ConnectionSettings Settings() const;
    /// Workstation settings of application "Tarnell".
    std::string GetSetting(std::string_view section, std::string_view key,
                           std::string_view fallback) const;
    int GetNumber(const resources::NumberSetting& setting) const;
    void SaveSetting(std::string_view section, std::string_view key, std::string_view text);

    /// Takes the catalogue's product title in the present language.
    void SetApplicationTitle();

    /// Takes the workstation's data path in the place of the host's, where it concerns the store
    /// and the user chose none.
    void TakeDataPath();
    /// False when the shared connection was opened with other settings than the present ones. True
    /// when there is none.
    bool FollowsProperties() const;
    /// The kind of the store that statements are for: 0 or less a file, 1 or more a server.
    int DatabaseKind() const;
    /// What a user or a host reads of an error, without what is secret in the connection: the
    /// component that opened it may repeat it in any error.
    std::string Describe(const RuntimeError& error) const;

    /// Calls the host's listener, where there is one, as soon as no handler is under way.
    void Announce(std::function<void(HostEvents&)> event);

    ControlState state;
    HostEvents* listener = nullptr;  ///< not owned; null: nobody listens
    platform::Machine& machine;
    resources::SettingsStore& settings;
    forms::WindowSystem& windows;
    /// Throws RuntimeError with the reason and the path (of a server: the database) that could not
    /// be opened.
    store::Database database;
    TakeBack takeBack;
    DoneActs acts{*this};
};

}  // namespace zv
