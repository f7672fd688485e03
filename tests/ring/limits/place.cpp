#include "place.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "items/fields.h"
#include "windows/main/frm_task_main.h"
#include "zvdb/own_modules.h"

namespace zv::ring {
namespace {

constexpr const char* kNull = "null";

struct Table {
    const char* name;
    const char* key;
    /// A row with another key is the new one, whatever number the engine gave it.
    int first;
    int last;
};
constexpr std::array<Table, 3> kTables{{
    {"tTaskList", "fID", 1, 2},
    {"tTaskSet", "TaskID", 7, 7},
    {"cards", "fID", 1, 1},
}};

constexpr std::array<const char*, 4> kRows = {
    "insert into tTaskList(fID,TaskID,taskTitle,fContent,taskTime,tDuring1,tDuring2,tDone,tDoneMan,"
    "fUser,fType,fWay,fGuest,fOther0,fOther1,fOther2,fOther3,fOther4,fOther5) values(1,1,'visit',"
    "'c','2003-03-07 00:00:00','2003-03-07 00:00:00','2003-03-07 00:00:00',0,'d','u',1,'w','g','0',"
    "'1','2','3','4','5')",
    "insert into tTaskList(fID,TaskID,taskTitle,fContent,taskTime,tDuring1,tDuring2,tDone,tDoneMan,"
    "fUser,fType) values(2,0,'other','oc','2003-03-07 00:00:00','2003-03-07 00:00:00',"
    "'2003-03-07 00:00:00',0,'od','ou',0)",
    "insert into tTaskSet(TaskID,taskTitle,tbegin,tEnd,CircleType,CircleValue,taskMonth,taskday,"
    "TaskWeek,Type,TypeValue,SetMan,DoneMan,Content) values(7,'plan','2003-03-01 00:00:00',"
    "'2003-03-10 00:00:00',2,1,1,1,1,1,1,'s','d','c')",
    "insert into cards(fID,CompCode,CompName,Name,BoxID) values(1,'A','Acme','Smith',0)",
};

constexpr std::size_t kRights = 300;

std::string TextOf(const store::Value& value) {
    return value.IsNull() ? kNull : "=" + value.ToText();
}

/// It says that something went well, or asks.
bool IsRefusal(const std::string& message) {
    constexpr int kIcon = 0xF0;
    const int icon = std::stoi(message) & kIcon;
    return icon == forms::box::kCritical || icon == forms::box::kExclamation;
}

/// Without the engine's own words, which stand in parentheses behind.
std::string OwnWords(const std::string& message) {
    return message.substr(0, message.find(" ("));
}

}  // namespace

std::string Shown(const std::string& value) {
    constexpr std::size_t kLongest = 120;
    std::string shown;
    for (const char c : value.substr(0, kLongest)) {
        const auto byte = static_cast<unsigned char>(c);
        constexpr const char* kDigits = "0123456789abcdef";
        if (byte < 0x20 || byte >= 0x7f) {
            shown += "\\x";
            shown += kDigits[byte >> 4];
            shown += kDigits[byte & 15];
        } else {
            shown += c;
        }
    }
    if (value.size() > kLongest) shown += "... (" + std::to_string(value.size()) + " bytes)";
    return shown;
}

std::string Fate::Text() const {
    std::string text;
    for (const std::string& line : told) text += "told: " + line + '\n';
    for (const auto& [cell, value] : changed) text += cell + value + '\n';
    return text;
}

Place::Place(store::EngineKind engine, Wrapper wrapper)
    : database_(store::MakeTestDatabase(engine)), direct_(database_->Connect()) {
    app.opener.open = [this, wrapper](const store::ConnectionSettings&) {
        auto connection = database_->Connect();
        return wrapper ? wrapper(std::move(connection)) : std::move(connection);
    };
    app.session.state.SQLData = engine == store::EngineKind::Embedded ? 0 : 1;
    app.session.state.myPower = std::string(kRights, '1');
    for (const std::string& module : zvdb::RegisterOwnModules()) Run(module);
    Restore();
}

void Place::Restore() {
    for (const Table& table : kTables) Run(std::string("delete from ") + table.name);
    for (const char* row : kRows) Run(row);
}

std::unique_ptr<store::Recordset> Place::RowOf(const std::string& table, int id) {
    return direct_->Open("select * from " + table + " where fID=" + std::to_string(id),
                         store::CursorType::Keyset, store::LockType::Optimistic);
}

void Place::Hold(int item, const std::string& text) {
    const auto row = RowOf("tTaskList", item);
    for (const items::Field& field : items::kFields) {
        if (field.kind == items::FieldKind::Text) row->SetField(field.column, text);
    }
    row->Update();
    row->Close();
}

void Place::HoldInCard(const std::vector<std::string>& columns, const std::string& text) {
    const auto row = RowOf("cards", 1);
    for (const std::string& column : columns) row->SetField(column, text);
    row->Update();
    row->Close();
}

void Place::ShowAllItems() {
    if (app.Refresh(windows::kManagerMode) != 0) {
        throw RuntimeError(ErrorNumber::DatabaseFailure, app.errorText);
    }
    windows::frmTaskMain& window = *app.Window();
    app.user.SelectTab(window.SSTab1, windows::kFilterTab);
    app.user.SetDate(window.filter.DTPicker0, std::nullopt);
    app.user.SetDate(window.filter.DTPicker1, std::nullopt);
    app.user.Click(window.commands.cmdSeek);
}

Stored Place::Read() {
    Stored stored;
    for (const Table& table : kTables) {
        const auto rows = direct_->Open(std::string("select * from ") + table.name,
                                        store::CursorType::ForwardOnly, store::LockType::ReadOnly);
        const int key = rows->FieldIndex(table.key);
        for (; !rows->Eof(); rows->MoveNext()) {
            const double number = rows->Field(key).ToDouble();
            const bool isNew = number < table.first || number > table.last;
            for (int column = 0; column < rows->FieldCount(); column++) {
                if (isNew && column == key && std::string(table.key) == "fID") continue;
                const std::string name = std::string(table.name) + ' ' +
                                         (isNew ? "new" : rows->Field(key).ToText()) + ' ' +
                                         text::ToLower(rows->FieldName(column));
                // Two new rows would hide each other.
                auto& cell = stored[name];
                cell += TextOf(rows->Field(column));
            }
        }
        rows->Close();
    }
    return stored;
}

Fate Place::Play(const std::function<void()>& act) {
    app.dialogs.messages.clear();
    Fate fate;
    const Stored before = Read();
    try {
        act();
    } catch (const RuntimeError& error) {
        fate.told.push_back("host: " + std::to_string(static_cast<std::int32_t>(error.Number())));
    } catch (const driver::DriverError& error) {
        fate.told.push_back(std::string("cannot be done: ") + error.what());
    }
    fate.now = Read();
    for (const auto& [cell, value] : fate.now) {
        const auto old = before.find(cell);
        if (old == before.end() || old->second != value) fate.changed[cell] = value;
    }
    for (const auto& [cell, value] : before) {
        if (!fate.now.contains(cell)) fate.changed[cell] = " is gone";
    }
    for (const std::string& message : app.dialogs.messages) {
        if (IsRefusal(message)) fate.told.push_back(OwnWords(message));
    }
    return fate;
}

}  // namespace zv::ring
