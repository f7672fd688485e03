// The process-wide set of the control's properties, read directly by every window.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/date_time.h"
#include "store/connection_text.h"

namespace zv {

/// What stands in the place of the store that the host set.
struct StoreChoice {
    std::optional<store::ConnectionText> path;  ///< accepted on the options page; empty: the host's
    std::optional<std::int16_t> kind;           ///< likewise
    /// UserPath as the host set it, while another stands.
    std::optional<store::ConnectionText> hostPath;
};

struct ControlState {
    std::int32_t myTaskID = 0;
    store::ConnectionText UserPath;  ///< data path in effect
    std::string myName;
    std::optional<double> myDate;  ///< automation date; modes 4 and 5 read it as a done flag
    store::Secret Password;
    std::int16_t SQLData = 0;      ///< database kind: 0 or less a file, 1 or more a server
    std::int16_t hostSQLData = 0;  ///< SQLData as the host set it, whatever the options page chose
    StoreChoice storeChoice;
    std::int16_t AlertType = 0;
    std::int16_t Language = 0;  ///< 0 Simplified, 1 Traditional
    std::string PowerPath;
    std::string UserName;
    std::string ZgName;
    std::string CompName;
    std::string myPower;
    std::string myModel;
    bool Copyright = false;
    std::string Zorvan;
    store::Secret UserID;
    store::ConnectionText Default;
    std::int16_t showMode = 0;  ///< 0 modeless, 1 modal
    std::int32_t cardId = 0;    ///< card that the item editor and the card panel share; 0 none
    std::string applicationTitle;
    /// Headings and values for the report component; one collection for the whole control, emptied
    /// before each use.
    std::vector<std::string> reportParameters;
};

}  // namespace zv
