#include "session/session.h"

#include <utility>

#include "resources/error_texts.h"
#include "resources/text_ids.h"
#include "session/store_choice.h"

namespace zv {
namespace {

// The reason and what could not be opened.
RuntimeError CannotOpen(const RuntimeError& error, const store::ConnectionSettings& connection,
                        std::int16_t language) {
    const std::string place =
        (connection.kind >= 1 ? connection.database : connection.dataPath).ForMessage();
    // The opener is a component of somebody else, which may repeat what it was given.
    std::string text = connection.WithoutSecrets(resources::DescribeError(error, language));
    if (!place.empty() && text.find(place) == std::string::npos) text += "\r\n" + place;
    return RuntimeError(error.Number(), text, connection.WithoutSecrets(error.Source()),
                        error.Code())
        .Of(ErrorKind::Own);
}

}  // namespace

Session::Session(platform::Machine& machinePort, resources::SettingsStore& settingsPort,
                 store::ConnectionOpener& opener, forms::WindowSystem& windowSystem,
                 store::StatementObserver* observer)
    : machine(machinePort),
      settings(settingsPort),
      windows(windowSystem),
      database(
          opener, [this] { return Settings(); }, observer,
          [this](const RuntimeError& error, const store::ConnectionSettings& connection) {
              return CannotOpen(error, connection, state.Language);
          }) {
    windows.describeError = [this](const RuntimeError& error) { return Describe(error); };
    windows.askToDropInput = [this] {
        return windows.AskCarefully(LoadText(resources::KeyText::DropInput),
                                    forms::box::kOkCancel + forms::box::kExclamation) ==
               forms::Answer::Ok;
    };
    windows.onClosed = [this](const std::string& name) {
        Announce([name](HostEvents& events) { events.WindowClosed(name); });
    };
    SetApplicationTitle();
}

Session::~Session() {
    windows.describeError = nullptr;
    windows.askToDropInput = nullptr;
    windows.onClosed = nullptr;
    windows.ForgetWhatFollows();
}

void Session::Announce(std::function<void(HostEvents&)> event) {
    windows.AfterHandler([this, event = std::move(event)] {
        if (listener) event(*listener);
    });
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

int Session::GetNumber(const resources::NumberSetting& setting) const {
    return setting.Of(GetSetting(resources::kTaskSection, setting.key, ""));
}

void Session::SaveSetting(std::string_view section, std::string_view key, std::string_view text) {
    settings.Save(resources::kApplication, section, key, text);
}

void Session::SetApplicationTitle() {
    // A title is no reason to fail.
    state.applicationTitle =
        resources::LoadText(text_id::kProductTitle, resources::SpokenLanguage(state.Language));
    windows.title = state.applicationTitle;
}

void Session::TakeDataPath() {
    const bool file = state.SQLData < 1;
    if (file && state.storeChoice.path) return ChoosePath(state, *state.storeChoice.path);
    const std::string path = file ? GetSetting(resources::kTaskSection, "DataPath", "") : "";
    if (path.empty()) {
        RestoreHostPath(state);
        // What the host calls a server is no file that the user could mean.
        const bool names =
            state.hostSQLData < 1 || machine.files.FileExists(state.UserPath.ForDriver());
        if (file && !names) ReplacePath(state, "");
        return;
    }
    // A file in use whose drive is away is still the one meant: another store in its place would
    // take what belongs to it.
    const store::ConnectionSettings* used = database.OpenedWith();
    const bool inUse = used && used->kind < 1 && used->dataPath == store::ConnectionText(path);
    if (inUse || machine.files.FileExists(path)) ReplacePath(state, path);
}

bool Session::FollowsProperties() const {
    const store::ConnectionSettings* present = database.OpenedWith();
    return !present || *present == Settings();
}

int Session::DatabaseKind() const {
    const store::ConnectionSettings* present = database.OpenedWith();
    return present ? present->kind : state.SQLData;
}

std::string Session::Describe(const RuntimeError& error) const {
    std::string text = resources::DescribeError(error, state.Language);
    return error.Kind() == ErrorKind::Own ? text : Settings().WithoutSecrets(text);
}

}  // namespace zv
