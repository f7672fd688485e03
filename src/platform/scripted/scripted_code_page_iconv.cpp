#include <iconv.h>

#include "base/errors.h"
#include "platform/scripted/scripted_machine.h"

namespace zv::platform::scripted {

class ScriptedCodePage::Converter {
 public:
    explicit Converter(const char* charset) : handle_(iconv_open(charset, "UTF-32LE")) {
        if (handle_ == reinterpret_cast<iconv_t>(-1)) {
            throw RuntimeError(ErrorNumber::InternalError,
                               std::string("iconv does not know ") + charset);
        }
    }
    ~Converter() { iconv_close(handle_); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    int ByteWidth(char32_t codePoint) {
        char input[4];
        for (int i = 0; i < 4; i++) input[i] = static_cast<char>((codePoint >> (8 * i)) & 0xFF);
        char output[8];
        char* from = input;
        char* to = output;
        std::size_t left = sizeof input;
        std::size_t room = sizeof output;
        const bool known = iconv(handle_, &from, &left, &to, &room) != static_cast<std::size_t>(-1);
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        return known && to - output == 2 ? 2 : 1;
    }

 private:
    iconv_t handle_;
};

namespace {

// Windows maps the private use area, as far as its user-defined characters reach, to two bytes;
// iconv's tables end before it.
char32_t LastPrivateCharacter(int codePage) {
    switch (codePage) {
        case 936:
            return 0xE864;
        case 950:
            return 0xF848;
        default:
            return 0;
    }
}

}  // namespace

ScriptedCodePage::ScriptedCodePage() {
    Select(936);
}
ScriptedCodePage::~ScriptedCodePage() = default;

void ScriptedCodePage::Select(int codePage) {
    const char* charset = codePage == 936    ? "CP936"
                          : codePage == 950  ? "CP950"
                          : codePage == 1252 ? "CP1252"
                                             : nullptr;
    if (!charset) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    converter_ = std::make_unique<Converter>(charset);
    codePage_ = codePage;
}

int ScriptedCodePage::ByteWidth(char32_t codePoint) const {
    if (codePoint < 0x80) return 1;
    if (codePoint >= 0xE000 && codePoint <= LastPrivateCharacter(codePage_)) return 2;
    return converter_->ByteWidth(codePoint);
}

}  // namespace zv::platform::scripted
