// What holds a login, a password or a text that opens a database gets into no other text by
// accident: an attempt does not get past the compiler.
#include <concepts>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "base/errors.h"
#include "control/property_bag.h"
#include "forms/box_text.h"
#include "session/control_state.h"
#include "store/connection_opener.h"

namespace zv::secrets {
namespace {

template <class T>
concept JoinsTexts = requires(const T value, std::string text) {
    text + value;
}
|| requires(const T value, std::string text) {
    value + text;
}
|| requires(const T value) {
    "text" + value;
}
|| requires(const T value) {
    value + "text";
}
|| requires(const T value, std::string text) {
    text += value;
}
|| requires(const T value, std::string text) {
    text.append(value);
}
|| requires(const T value, std::string text) {
    text = value;
};

template <class T>
concept IsStreamed = requires(const T value, std::ostream& stream) {
    stream << value;
};

template <class T>
concept ConvertsToText =
    JoinsTexts<T> || IsStreamed<T> || std::constructible_from<std::string, const T&> ||
    std::constructible_from<std::string_view, const T&> ||
    std::convertible_to<const T&, const char*> || std::constructible_from<BagValue, const T&> ||
    std::constructible_from<forms::Inserted, const T&> ||
    std::constructible_from<forms::BoxText, const T&> ||
    std::constructible_from<RuntimeError, ErrorNumber, const T&>;

// The question finds what it looks for.
static_assert(ConvertsToText<std::string> && ConvertsToText<std::string_view>);

template <class T>
struct Content {
    using Type = T;
};
template <class T>
struct Content<std::optional<T>> {
    using Type = T;
};

#define ZV_TELLS_NOTHING(OWNER, MEMBER) \
    static_assert(!ConvertsToText<Content<decltype(OWNER::MEMBER)>::Type>, #OWNER "::" #MEMBER)

ZV_TELLS_NOTHING(ControlState, UserPath);
ZV_TELLS_NOTHING(ControlState, Password);
ZV_TELLS_NOTHING(ControlState, UserID);
ZV_TELLS_NOTHING(ControlState, Default);
ZV_TELLS_NOTHING(StoreChoice, path);
ZV_TELLS_NOTHING(StoreChoice, hostPath);
ZV_TELLS_NOTHING(store::ConnectionSettings, dataPath);
ZV_TELLS_NOTHING(store::ConnectionSettings, password);
ZV_TELLS_NOTHING(store::ConnectionSettings, login);
ZV_TELLS_NOTHING(store::ConnectionSettings, database);

#undef ZV_TELLS_NOTHING

// What a host gave goes back to the host, and to what opens the database.
static_assert(requires(const store::Secret secret, std::string text) {
    text = secret.ForDriver();
    text = secret.ForOwner();
});

}  // namespace
}  // namespace zv::secrets
