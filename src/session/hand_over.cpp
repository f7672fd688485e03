#include "session/hand_over.h"

#include <array>
#include <charconv>
#include <utility>

#include "base/hex.h"
#include "session/store_choice.h"

namespace zv {
namespace {

constexpr std::string_view kSetting = "HandedOver";
constexpr std::string_view kVersion = "1";
constexpr std::size_t kFields = 12;

// A field is its length in bytes, a colon and the bytes, so that it may hold anything.
void Append(std::string& text, std::string_view field) {
    text += std::to_string(field.size());
    text += ':';
    text += field;
}

std::optional<std::string> Next(std::string_view& text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos) return std::nullopt;
    std::size_t length = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + colon, length);
    const bool whole = error == std::errc() && end == text.data() + colon;
    if (!whole || length > text.size() - colon - 1) return std::nullopt;
    std::string field(text.substr(colon + 1, length));
    text.remove_prefix(colon + 1 + length);
    return field;
}

std::optional<std::int16_t> NumberIn(std::string_view text) {
    std::int16_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

}  // namespace

std::string ToText(const HandedOver& state) {
    std::string text;
    for (const std::string_view field :
         {kVersion, std::string_view(state.path.ForOwner()),
          std::string_view(state.password.ForOwner()), std::string_view(state.login.ForOwner()),
          std::string_view(state.database.ForOwner()), std::string_view(state.user),
          std::string_view(state.chief), std::string_view(state.company),
          std::string_view(state.power), std::string_view(state.model)}) {
        Append(text, field);
    }
    Append(text, std::to_string(state.kind));
    Append(text, std::to_string(state.language));
    return text;
}

std::optional<HandedOver> HandedOverIn(std::string_view text) {
    std::array<std::string, kFields> fields;
    for (std::string& field : fields) {
        std::optional<std::string> next = Next(text);
        if (!next) return std::nullopt;
        field = std::move(*next);
    }
    const auto kind = NumberIn(fields[10]);
    const auto language = NumberIn(fields[11]);
    if (!text.empty() || fields[0] != kVersion || !kind || !language) return std::nullopt;
    HandedOver state;
    state.path = fields[1];
    state.password = fields[2];
    state.login = fields[3];
    state.database = fields[4];
    state.user = fields[5];
    state.chief = fields[6];
    state.company = fields[7];
    state.power = fields[8];
    state.model = fields[9];
    state.kind = *kind;
    state.language = *language;
    return state;
}

bool HandOver(Session& session) {
    const ControlState& state = session.state;
    const HandedOver kept{.path = state.UserPath,
                          .kind = state.SQLData,
                          .password = state.Password,
                          .login = state.UserID,
                          .database = state.Default,
                          .language = state.Language,
                          .user = state.UserName,
                          .chief = state.ZgName,
                          .company = state.CompName,
                          .power = state.myPower,
                          .model = state.myModel};
    const std::optional<std::string> sealed = session.machine.vault.Seal(ToText(kept));
    // Settings hold texts; what is sealed are bytes. Nothing is better than the state of somebody
    // who worked here before.
    session.SaveSetting(resources::kTaskSection, kSetting, sealed ? hex::FromBytes(*sealed) : "");
    return sealed.has_value();
}

std::optional<HandedOver> ReadHandedOver(Session& session) {
    const auto sealed = hex::ToBytes(session.GetSetting(resources::kTaskSection, kSetting, ""));
    if (!sealed || sealed->empty()) return std::nullopt;
    const std::optional<std::string> text = session.machine.vault.Reveal(*sealed);
    return text ? HandedOverIn(*text) : std::nullopt;
}

void TakeHandedOver(Session& session, const HandedOver& kept) {
    ControlState& state = session.state;
    HostSetsPath(state, kept.path);
    HostSetsKind(state, kept.kind);
    state.Password = kept.password;
    state.UserID = kept.login;
    state.Default = kept.database;
    state.Language = kept.language;
    state.UserName = kept.user;
    state.ZgName = kept.chief;
    state.CompName = kept.company;
    state.myPower = kept.power;
    state.myModel = kept.model;
    session.SetApplicationTitle();
}

}  // namespace zv
