#include "control_properties.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "base/number.h"
#include "base/text.h"
#include "values.h"

namespace zv::script {
namespace {

struct Property {
    std::string_view name;
    void (*set)(ZvTask& control, const std::string& text);  ///< null: cannot be set
    std::string (*read)(ZvTask& control);
};

template <auto Member>
void SetText(ZvTask& control, const std::string& text) {
    control.State().*Member = text;
}
const std::string& AsText(const std::string& text) {
    return text;
}
template <class Text>
const std::string& AsText(const Text& text) {
    return text.ForOwner();
}
template <auto Member>
std::string ReadText(ZvTask& control) {
    return AsText(control.State().*Member);
}

template <auto Member>
void SetInt16(ZvTask& control, const std::string& text) {
    control.State().*Member = number::ToInt16(text);
}
template <auto Member>
std::string ReadNumber(ZvTask& control) {
    return std::to_string(control.State().*Member);
}

void SetTaskID(ZvTask& control, const std::string& text) {
    control.State().myTaskID = number::ToInt32(text);
}

void SetDate(ZvTask& control, const std::string& text) {
    if (const auto date = DateTime::Parse(text)) {
        control.State().myDate = date->ToAutomation();
        return;
    }
    const auto value = number::Parse(text);
    if (!value) throw RuntimeError(ErrorNumber::TypeMismatch);
    control.State().myDate = *value;
}

std::string ReadDate(ZvTask& control) {
    const auto& date = control.State().myDate;
    return date ? DateTime::FromAutomation(*date).ShortIso() : std::string();
}

void SetPath(ZvTask& control, const std::string& text) {
    control.SetUserPath(text);
}

void SetKind(ZvTask& control, const std::string& text) {
    control.SetSQLData(number::ToInt16(text));
}

void SetCopyright(ZvTask& control, const std::string& text) {
    control.State().Copyright = ToTruth(text);
}

std::string ReadCopyright(ZvTask& control) {
    return Truth(control.State().Copyright);
}

std::string ReadDelimiter(ZvTask& control) {
    return std::string(1, control.GetSession().database.DateDelimiter());
}

using S = ControlState;

// In the order of the control's interface, then what only tests look at.
constexpr std::array kProperties = std::to_array<Property>({
    {"myTaskID", SetTaskID, ReadNumber<&S::myTaskID>},
    {"UserPath", SetPath, ReadText<&S::UserPath>},
    {"myName", SetText<&S::myName>, ReadText<&S::myName>},
    {"myDate", SetDate, ReadDate},
    {"Password", SetText<&S::Password>, ReadText<&S::Password>},
    {"SQLData", SetKind, ReadNumber<&S::SQLData>},
    {"AlertType", SetInt16<&S::AlertType>, ReadNumber<&S::AlertType>},
    {"Language", SetInt16<&S::Language>, ReadNumber<&S::Language>},
    {"PowerPath", SetText<&S::PowerPath>, ReadText<&S::PowerPath>},
    {"UserName", SetText<&S::UserName>, ReadText<&S::UserName>},
    {"ZgName", SetText<&S::ZgName>, ReadText<&S::ZgName>},
    {"CompName", SetText<&S::CompName>, ReadText<&S::CompName>},
    {"myPower", SetText<&S::myPower>, ReadText<&S::myPower>},
    {"myModel", SetText<&S::myModel>, ReadText<&S::myModel>},
    {"Copyright", SetCopyright, ReadCopyright},
    {"Zorvan", SetText<&S::Zorvan>, [](ZvTask& control) { return control.Zorvan(); }},
    {"UserID", SetText<&S::UserID>, ReadText<&S::UserID>},
    {"Default", SetText<&S::Default>, ReadText<&S::Default>},
    {"showMode", nullptr, ReadNumber<&S::showMode>},
    {"hostSQLData", nullptr, ReadNumber<&S::hostSQLData>},
    {"cardId", nullptr, ReadNumber<&S::cardId>},
    {"applicationTitle", nullptr, ReadText<&S::applicationTitle>},
    {"storedZorvan", nullptr, ReadText<&S::Zorvan>},
    {"dateDelimiter", nullptr, ReadDelimiter},
});

const Property* FindProperty(std::string_view name) {
    const auto at = std::find_if(kProperties.begin(), kProperties.end(),
                                 [&](const Property& property) { return property.name == name; });
    return at == kProperties.end() ? nullptr : &*at;
}

}  // namespace

bool IsSettable(std::string_view name) {
    const Property* property = FindProperty(name);
    return property && property->set;
}

bool IsReadable(std::string_view name) {
    return FindProperty(name) != nullptr;
}

void SetProperty(ZvTask& control, std::string_view name, const std::string& text) {
    FindProperty(name)->set(control, text);
}

std::string ReadProperty(ZvTask& control, std::string_view name) {
    return FindProperty(name)->read(control);
}

}  // namespace zv::script
