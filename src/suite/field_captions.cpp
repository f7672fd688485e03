#include "suite/field_captions.h"

#include <utility>

#include "base/text.h"

namespace zv::suite {

std::vector<FieldCaption> ReadFieldCaptions(store::Database& database, std::int16_t language) {
    const std::string column = "FieldName_" + std::to_string(language);
    database.EnsureConnection();
    std::vector<FieldCaption> captions;
    try {
        const auto rows = database.Open(
            "select FieldName," + column +
            " from rptListDetail Where fTable='ttasklist' And FieldType>-1 Order by fieldID");
        for (; !rows->Eof(); rows->MoveNext()) {
            FieldCaption row{rows->Field(0).ToText(), rows->Field(1).ToText()};
            std::erase_if(captions, [&](const FieldCaption& earlier) {
                return text::EqualsIgnoreCase(earlier.field, row.field);
            });
            captions.push_back(std::move(row));
        }
        rows->Close();
    } catch (const RuntimeError& error) {
        if (error.Number() != ErrorNumber::DatabaseTable &&
            error.Number() != ErrorNumber::DatabaseColumn &&
            error.Number() != ErrorNumber::DatabaseStatement) {
            throw;
        }
    }
    return captions;
}

}  // namespace zv::suite
