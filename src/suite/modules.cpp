#include "suite/modules.h"

namespace zv::suite {
namespace {

// Nothing uses the number, but a value that is none is a fault of the row that is not passed over.
void RequireNumber(const store::Value& value) {
    const std::string* text = value.TextIf();
    if (!text || !text->empty()) static_cast<void>(value.ToDouble());
}

}  // namespace

std::optional<Module> FindModule(store::Database& database, const std::string& name,
                                 std::int16_t language) {
    const std::string caption = "Model_Name_" + std::to_string(language);
    database.EnsureConnection();
    // The missing parentheses are meant: a module found by its language name opens even while it
    // is marked as out of use.
    const auto rows = database.Open("select SerialNo,model_Name," + caption +
                                    ",SecondPass,password from tSysFunc"
                                    " Where NoUse_=0 And Model_Name = '" +
                                    name + "' or " + caption + " = '" + name + "'");
    std::optional<Module> module;
    if (!rows->Eof()) {
        module.emplace();
        module->serialNo = rows->Field(0).ToInt16();
        module->key = rows->Field(1).ToText();
        module->caption = rows->Field(2).ToText();
        RequireNumber(rows->Field(3));
        module->password = rows->Field(4).ToText();
    }
    rows->Close();
    return module;
}

}  // namespace zv::suite
