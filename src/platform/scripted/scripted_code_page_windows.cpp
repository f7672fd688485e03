#include <windows.h>

#include "base/errors.h"
#include "platform/scripted/scripted_machine.h"

namespace zv::platform::scripted {

class ScriptedCodePage::Converter {};

ScriptedCodePage::ScriptedCodePage() {
    Select(936);
}
ScriptedCodePage::~ScriptedCodePage() = default;

void ScriptedCodePage::Select(int codePage) {
    if (codePage != 936 && codePage != 950 && codePage != 1252) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    if (!IsValidCodePage(static_cast<UINT>(codePage))) {
        throw RuntimeError(ErrorNumber::InternalError,
                           "Windows does not hold code page " + std::to_string(codePage));
    }
    codePage_ = codePage;
}

int ScriptedCodePage::ByteWidth(char32_t codePoint) const {
    if (codePoint < 0x80 || codePoint > 0xFFFF) return 1;
    const auto unit = static_cast<wchar_t>(codePoint);
    char bytes[8];
    BOOL replaced = FALSE;
    const int length =
        WideCharToMultiByte(static_cast<UINT>(codePage_), WC_NO_BEST_FIT_CHARS, &unit, 1, bytes,
                            static_cast<int>(sizeof bytes), nullptr, &replaced);
    return !replaced && length == 2 ? 2 : 1;
}

}  // namespace zv::platform::scripted
