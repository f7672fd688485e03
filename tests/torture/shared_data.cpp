#include "shared_data.h"

#include "store/odbc/connection_string.h"
#include "store/odbc/odbc_connection.h"
#include "store/sqlite/sqlite_connection.h"
#include "test_server/scratch_schema.h"

namespace zv::torture {

bool Target::IsServer() const {
    return address.find('=') != std::string::npos;
}

std::unique_ptr<store::Connection> Target::Open() const {
    if (!IsServer()) return store::OpenSqlite(address);
    store::ConnectionSettings settings;
    settings.kind = 1;
    settings.dataPath = address;
    return store::odbc::OpenOdbc(test_server::Patient(store::odbc::OptionsFor(settings)));
}

std::string SharedTitle(int number) {
    return "shared-" + std::to_string(number);
}

void Prepare(const Target& target) {
    const auto connection = target.Open();
    connection->Execute(std::string("insert into tTaskSet(TaskID,taskTitle,tbegin,tEnd,CircleType,"
                                    "CircleValue,Type,TypeValue,Content) values(") +
                        kPlan + ",'plan','2003-03-01','2003-03-" + std::to_string(kPlanDays) +
                        "',2,1,1,1,'')");
    for (int number = 0; number < kSharedItems; number++) {
        connection->Execute(
            "insert into tTaskList(fType,TaskID,taskTitle,fContent,taskTime,"
            "tDuring1,tDuring2,tDone) values(0,0,'" +
            SharedTitle(number) + "','untouched','2003-03-07','2003-03-07','2003-03-07',0)");
    }
}

}  // namespace zv::torture
