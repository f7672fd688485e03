#include "session/session.h"

#include "resources/text_ids.h"

namespace zv {

Session::Session(platform::Machine& machinePort, resources::SettingsStore& settingsPort,
                 store::ConnectionOpener& opener, forms::WindowSystem& windowSystem,
                 store::StatementObserver* observer)
    : machine(machinePort),
      settings(settingsPort),
      windows(windowSystem),
      database(
          opener, [this] { return Settings(); }, observer) {
    windows.describeError = [this](const RuntimeError& error) {
        return resources::DescribeError(error, state.Language);
    };
    SetApplicationTitle();
}

Session::~Session() {
    windows.describeError = nullptr;
}

store::ConnectionSettings Session::Settings() const {
    store::ConnectionSettings result;
    result.kind = state.SQLData >= 1 ? state.SQLData : 0;
    result.dataPath = state.UserPath;
    result.password = state.Password;
    result.login = state.UserID;
    result.database = state.Default;
    return result;
}

std::string Session::GetSetting(std::string_view section, std::string_view key,
                                std::string_view fallback) const {
    return settings.Get(resources::kApplication, section, key, fallback);
}

void Session::SaveSetting(std::string_view section, std::string_view key, std::string_view text) {
    settings.Save(resources::kApplication, section, key, text);
}

void Session::SetApplicationTitle() {
    // A title is no reason to fail: a language without texts shows the first one's.
    try {
        state.applicationTitle = LoadText(text_id::kProductTitle);
    } catch (const RuntimeError&) {
        state.applicationTitle = resources::LoadText(text_id::kProductTitle, 0);
    }
    windows.title = state.applicationTitle;
}

void Session::EnsureConnection() {
    if (database.IsOpen()) return;
    OpenConnection(Settings());
}

namespace {

// The reason and what could not be opened.
RuntimeError CannotOpen(const RuntimeError& error, const store::ConnectionSettings& connection,
                        std::int16_t language) {
    const std::string place =
        (connection.kind >= 1 ? connection.database : connection.dataPath).ForMessage();
    // The opener is a component of somebody else, which may repeat what it was given.
    std::string text = connection.WithoutSecrets(resources::DescribeError(error, language));
    if (!place.empty() && text.find(place) == std::string::npos) text += "\r\n" + place;
    return RuntimeError(error.Number(), text, connection.WithoutSecrets(error.Source()));
}

}  // namespace

void Session::OpenConnection(const store::ConnectionSettings& connection) {
    database.SetDateDelimiter(connection.kind >= 1 ? '\'' : '#');
    try {
        database.OpenConnection(connection);
    } catch (const RuntimeError& error) {
        throw CannotOpen(error, connection, state.Language);
    }
}

std::unique_ptr<store::Connection> Session::OpenOwnConnection() {
    const store::ConnectionSettings connection = Settings();
    try {
        return database.OpenAnother(connection);
    } catch (const RuntimeError& error) {
        throw CannotOpen(error, connection, state.Language);
    }
}

}  // namespace zv
