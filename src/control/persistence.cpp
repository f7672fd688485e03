#include "control/persistence.h"

#include "session/store_choice.h"

namespace zv {
namespace {

std::string NoRights() {
    return std::string(kRightsLength, '0');
}

template <typename T>
void ReadInto(T& property, PropertyBag& bag, std::string_view key, const T& fallback) {
    property = std::get<T>(bag.Read(key, BagValue(fallback)));
}

std::string ReadText(PropertyBag& bag, std::string_view key) {
    std::string text;
    ReadInto(text, bag, key, text);
    return text;
}

template <typename T>
void Write(PropertyBag& bag, std::string_view key, const T& property, const T& fallback) {
    if (property != fallback) bag.Write(key, BagValue(property));
}

}  // namespace

void InitState(ControlState& state, const std::string& applicationFolder) {
    state.myTaskID = 0;
    state.UserName.clear();
    state.CompName.clear();
    state.myName.clear();
    state.showMode = 0;
    state.Language = 0;
    state.AlertType = 0;
    state.Copyright = false;
    const bool folderEnds = applicationFolder.ends_with('\\');
    HostSetsPath(state, applicationFolder + (folderEnds ? "" : "\\") + "taskAlert.mdb");
    state.Password = "0";
    HostSetsKind(state, 0);
    state.UserID = {};
    state.Default = {};
}

void ReadState(ControlState& state, PropertyBag& bag) {
    const std::string none;
    const std::int16_t zero = 0;
    ControlState read = state;
    ReadInto(read.myName, bag, "myName", none);
    ReadInto(read.Language, bag, "Language", zero);
    ReadInto(read.AlertType, bag, "AlertType", zero);
    ReadInto(read.ZgName, bag, "ZgName", none);
    ReadInto(read.myPower, bag, "myPower", NoRights());
    ReadInto(read.myModel, bag, "myModel", none);
    ReadInto(read.Copyright, bag, "Copyright", false);
    ReadInto(read.showMode, bag, "showmode", zero);
    HostSetsPath(read, ReadText(bag, "UserPath"));
    read.Password = ReadText(bag, "Password");
    std::int16_t kind = 0;
    ReadInto(kind, bag, "SQLData", zero);
    HostSetsKind(read, kind);
    read.UserID = ReadText(bag, "UserID");
    read.Default = ReadText(bag, "Default");
    state = std::move(read);
}

void WriteState(const ControlState& state, PropertyBag& bag) {
    const std::string none;
    const std::int16_t zero = 0;
    Write(bag, "myName", state.myName, none);
    Write(bag, "Language", state.Language, zero);
    Write(bag, "AlertType", state.AlertType, zero);
    Write(bag, "UserPath", state.UserPath.ForOwner(), none);
    Write(bag, "UserName", state.UserName, none);
    Write(bag, "ZgName", state.ZgName, none);
    Write(bag, "myPower", state.myPower, NoRights());
    Write(bag, "myModel", state.myModel, none);
    Write(bag, "Copyright", state.Copyright, false);
    Write(bag, "Showmode", state.showMode, zero);
    Write(bag, "Password", state.Password.ForOwner(), none);
    Write(bag, "SQLData", state.SQLData, zero);
    Write(bag, "UserID", state.UserID.ForOwner(), none);
    Write(bag, "Default", state.Default.ForOwner(), none);
}

}  // namespace zv
