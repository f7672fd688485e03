#include "staff/staff_store.h"

namespace zv::staff {

std::vector<Person> List(store::Database& database, Source source) {
    const bool personnel = source == Source::Personnel;
    database.EnsureConnection();
    const auto rows = database.Open(personnel ? "select fCode,fName from tRsBasic Order By fName"
                                              : "select * from employees order by employcode");
    std::vector<Person> people;
    if (!rows->Eof()) {
        const int code = rows->FieldIndex(personnel ? "fCode" : "employcode");
        const int name = rows->FieldIndex(personnel ? "fName" : "employee");
        for (; !rows->Eof(); rows->MoveNext()) {
            people.push_back({rows->Field(code).ToText(), rows->Field(name).ToText()});
        }
    }
    rows->Close();
    return people;
}

Source PresentSource(store::Database& database) {
    database.EnsureConnection();
    return database.CountRows("tRsBasic", "") >= 0 ? Source::Personnel : Source::Employees;
}

}  // namespace zv::staff
