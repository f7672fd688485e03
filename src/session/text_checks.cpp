#include "session/text_checks.h"

#include "base/text.h"
#include "forms/text_box.h"
#include "items/entry_text.h"
#include "resources/text_ids.h"
#include "session/session.h"
#include "store/sql_text.h"

namespace zv {

bool CheckText(Session& session, std::string_view text) {
    if (!store::BreaksLiteral(text)) return true;
    session.windows.ShowMessage(session.LoadText(text_id::kQuoteInText), forms::box::kExclamation);
    return false;
}

bool CheckFieldText(Session& session, forms::TextBox& box, bool numericOnly) {
    const std::int16_t message = items::WhyRefused(box.Text(), numericOnly);
    if (message == 0) return false;
    session.windows.ShowMessage(session.LoadText(message), forms::box::kExclamation);
    box.SelectAll();
    return true;
}

std::size_t ByteLength(const platform::AnsiCodePage& codePage, std::string_view text) {
    std::size_t result = 0;
    for (std::size_t at = 0; at < text.size();) {
        result += static_cast<std::size_t>(codePage.ByteWidth(text::NextCodePoint(text, at)));
    }
    return result;
}

std::string CutToBytes(const platform::AnsiCodePage& codePage, std::string_view text, int maximum) {
    int bytes = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        bytes += codePage.ByteWidth(text::NextCodePoint(text, at));
        if (bytes > maximum) return std::string(text.substr(0, begin));
    }
    return std::string(text);
}

std::string FitTextBytes(Session& session, std::string_view text, std::int16_t maximum,
                         std::string_view fieldName) {
    std::string result = CutToBytes(session.machine.codePage, text, maximum);
    if (result.size() < text.size() && !fieldName.empty()) {
        session.windows.ShowMessage(forms::BoxText("[") + forms::Inserted{std::string(fieldName)} +
                                        "] over max length (" +
                                        forms::Inserted{std::to_string(maximum)} + ") !",
                                    forms::box::kInformation);
    }
    return result;
}

}  // namespace zv
