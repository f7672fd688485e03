// The icon beside the clock: what the alerter needs of the system's notification area.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zv::alerter {

/// What a user may choose at the icon.
enum class Act : std::uint8_t { Open, NewEntry, Pause, GoOn, Options, Exit };

struct MenuEntry {
    Act act;
    std::string caption;
    bool enabled = true;
};

enum class Mood : std::uint8_t {
    MustLogIn,  ///< nobody has handed over a store and a user
    NothingDue,
    Due,
    Paused,
};

/// What the icon shows.
struct Face {
    Mood mood = Mood::MustLogIn;
    std::string sign;  ///< one or two characters in the picture; none: the picture of the mood
    std::string tip;

    bool operator==(const Face&) const = default;
};

class Tray {
 public:
    virtual ~Tray() = default;
    /// From the first call on the icon is there.
    virtual void Show(const Face& face) = 0;
    virtual void Announce(const std::string& title, const std::string& text) = 0;
    /// Opens a menu at the icon and returns when it is closed; nothing when nothing was chosen.
    virtual std::optional<Act> Choose(const std::vector<MenuEntry>& entries) = 0;
};

}  // namespace zv::alerter
