#include "script_text.h"

#include <algorithm>
#include <charconv>

namespace zv::script {
namespace {

bool IsContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

// Position of the first byte that is not part of a well-formed character; npos when all are.
std::size_t FindBrokenUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto lead = static_cast<unsigned char>(text[at]);
        const std::size_t length = lead < 0x80                   ? 1
                                   : lead >= 0xC2 && lead < 0xE0 ? 2
                                   : lead >= 0xE0 && lead < 0xF0 ? 3
                                   : lead >= 0xF0 && lead < 0xF5 ? 4
                                                                 : 0;
        if (length == 0 || at + length > text.size()) return at;
        for (std::size_t i = 1; i < length; i++) {
            if (!IsContinuation(static_cast<unsigned char>(text[at + i]))) return at;
        }
        if (length > 2) {
            // Too long a form, a surrogate, or beyond the last character.
            const auto second = static_cast<unsigned char>(text[at + 1]);
            const bool refused =
                (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second >= 0xA0) ||
                (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second >= 0x90);
            if (refused) return at;
        }
        at += length;
    }
    return std::string_view::npos;
}

class LineReader {
 public:
    explicit LineReader(std::string_view line) : line_(line) {}

    std::vector<Word> Words() {
        std::vector<Word> words;
        for (;;) {
            while (at_ < line_.size() && IsBlank(line_[at_])) at_++;
            if (at_ == line_.size() || line_[at_] == '#') return words;
            words.push_back(ReadWord());
        }
    }

 private:
    static bool IsBlank(char c) { return c == ' ' || c == '\t'; }

    Word ReadWord() {
        Word word;
        std::string& text = word.text;
        while (at_ < line_.size() && !IsBlank(line_[at_]) && line_[at_] != '#') {
            if (line_[at_] != '"') {
                text += line_[at_++];
                continue;
            }
            if (!text.empty() && text.back() != '=') {
                throw ScriptError("a quote inside a word: quote the whole word");
            }
            ReadQuoted(text);
            word.quoted = true;
            if (at_ < line_.size() && !IsBlank(line_[at_]) && line_[at_] != '#') {
                throw ScriptError("a blank is missing behind a closing quote");
            }
            return word;
        }
        return word;
    }

    void ReadQuoted(std::string& text) {
        at_++;
        while (at_ < line_.size() && line_[at_] != '"') {
            const char c = line_[at_++];
            text += c == '\\' ? Escaped() : c;
        }
        if (at_ == line_.size()) throw ScriptError("a quote is not closed");
        at_++;
    }

    char Escaped() {
        const char c = at_ < line_.size() ? line_[at_++] : '\0';
        switch (c) {
            case '"':
            case '\\':
                return c;
            case 't':
                return '\t';
            case 'r':
                return '\r';
            case 'n':
                return '\n';
            case '\0':
                throw ScriptError("a quote is not closed");
            default:
                throw ScriptError(std::string("unknown escape \\") + c);
        }
    }

    std::string_view line_;
    std::size_t at_ = 0;
};

}  // namespace

std::vector<ScriptLine> ReadScript(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    std::vector<ScriptLine> lines;
    for (int number = 1; !text.empty(); number++) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (FindBrokenUtf8(line) != std::string_view::npos) {
            throw ScriptError("the text is not UTF-8", number);
        }
        try {
            auto words = LineReader(line).Words();
            const std::size_t indent = std::min(line.find_first_not_of(" \t"), line.size());
            if (!words.empty()) lines.push_back({number, indent, std::move(words)});
        } catch (const ScriptError& error) {
            throw ScriptError(error.Reason(), number);
        }
    }
    return lines;
}

std::string Quote(std::string_view text) {
    std::string result = "\"";
    for (const char c : text) {
        switch (c) {
            case '"':
                result += "\\\"";
                break;
            case '\\':
                result += "\\\\";
                break;
            case '\t':
                result += "\\t";
                break;
            case '\r':
                result += "\\r";
                break;
            case '\n':
                result += "\\n";
                break;
            default:
                result += c;
        }
    }
    return result + '"';
}

int ToInteger(const std::string& word) {
    int value = 0;
    const auto [end, failure] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (failure != std::errc() || end != word.data() + word.size()) {
        throw ScriptError("not a whole number: " + Quote(word));
    }
    return value;
}

}  // namespace zv::script
