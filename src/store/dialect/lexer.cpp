#include "store/dialect/lexer.h"

#include <array>
#include <optional>

#include "base/date_time.h"
#include "base/errors.h"
#include "base/text.h"

namespace zv::store::dialect {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsNameStart(char c) {
    return text::IsWordCharacter(c) && !IsDigit(c);
}
bool IsNameCharacter(char c) {
    return text::IsWordCharacter(c) || c == '$';
}
bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

/// Walks through a date text.
class DateReader {
 public:
    explicit DateReader(std::string_view text) : text_(text) {}

    std::optional<int> Number(std::size_t minDigits, std::size_t maxDigits) {
        std::size_t count = 0;
        int value = 0;
        while (at_ < text_.size() && IsDigit(text_[at_]) && count < maxDigits) {
            value = value * 10 + (text_[at_++] - '0');
            count++;
        }
        if (count < minDigits) return std::nullopt;
        return value;
    }
    bool Skip(char c) {
        if (at_ >= text_.size() || text_[at_] != c) return false;
        at_++;
        return true;
    }
    bool AtEnd() const { return at_ == text_.size(); }

 private:
    std::string_view text_;
    std::size_t at_ = 0;
};

class Lexer {
 public:
    explicit Lexer(std::string_view statement) : statement_(statement) {}

    std::vector<Token> Run() {
        std::vector<Token> tokens;
        while (true) {
            while (!AtEnd() && IsBlank(Peek())) Advance();
            tokens.push_back(Next());
            if (tokens.back().kind == TokenKind::End) return tokens;
        }
    }

 private:
    bool AtEnd() const { return at_ == statement_.size(); }
    char Peek(std::size_t ahead = 0) const {
        return at_ + ahead < statement_.size() ? statement_[at_ + ahead] : '\0';
    }
    // Positions count characters, not bytes.
    void Advance() {
        at_++;
        if (AtEnd() || (static_cast<unsigned char>(statement_[at_]) & 0xC0) != 0x80) position_++;
    }

    Token Next() {
        if (AtEnd()) return {TokenKind::End, {}, position_};
        const char c = Peek();
        if (IsNameStart(c)) return Word();
        if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)))) return Numeral();
        switch (c) {
            case '\'':
                return Quoted();
            case '#':
                return DateLiteral();
            case '[':
                return Bracketed();
            default:
                return Symbol();
        }
    }

    Token Word() {
        Token token{TokenKind::Name, {}, position_};
        while (!AtEnd() && IsNameCharacter(Peek())) Take(token);
        return token;
    }

    Token Numeral() {
        Token token{TokenKind::Number, {}, position_};
        while (IsDigit(Peek())) Take(token);
        if (Peek() == '.') {
            Take(token);
            while (IsDigit(Peek())) Take(token);
        }
        const bool exponent =
            (Peek() == 'e' || Peek() == 'E') &&
            (IsDigit(Peek(1)) || ((Peek(1) == '+' || Peek(1) == '-') && IsDigit(Peek(2))));
        if (exponent) {
            Take(token);
            Take(token);
            while (IsDigit(Peek())) Take(token);
        }
        return token;
    }

    Token Quoted() {
        Token token{TokenKind::Text, {}, position_};
        Advance();
        while (true) {
            if (AtEnd()) ThrowAt("the text that begins here is not closed", token.position);
            if (Peek() == '\0') Unexpected();
            if (Peek() == '\'') {
                Advance();
                if (Peek() != '\'') return token;
            }
            Take(token);
        }
    }

    Token DateLiteral() {
        const std::size_t begin = position_;
        const std::string inner = Enclosed('#', "the date that begins here is not closed");
        const std::string stored = StoredDate(inner);
        if (stored.empty()) ThrowAt("\"#" + inner + "#\" is not a date", begin);
        return {TokenKind::Date, stored, begin};
    }

    Token Bracketed() {
        const std::size_t begin = position_;
        const std::string inner = Enclosed(']', "the name that begins here is not closed");
        if (inner.empty()) ThrowAt("a name is missing", begin);
        return {TokenKind::QuotedName, inner, begin};
    }

    std::string Enclosed(char close, const char* unclosed) {
        const std::size_t begin = position_;
        Token inner;
        Advance();
        while (!AtEnd() && Peek() != close) {
            if (Peek() == '\0') Unexpected();
            Take(inner);
        }
        if (AtEnd()) ThrowAt(unclosed, begin);
        Advance();
        return inner.text;
    }

    Token Symbol() {
        static constexpr std::array<std::string_view, 4> kDouble{"<>", "<=", ">=", "!="};
        static constexpr std::string_view kSingle = "()+-*/%,.;=<>";
        Token token{TokenKind::Symbol, {}, position_};
        for (const auto symbol : kDouble) {
            if (statement_.substr(at_, 2) == symbol) {
                Take(token);
                Take(token);
                return token;
            }
        }
        if (Peek() == '\0' || kSingle.find(Peek()) == std::string_view::npos) Unexpected();
        Take(token);
        return token;
    }

    void Take(Token& token) {
        token.text += Peek();
        Advance();
    }

    [[noreturn]] void Unexpected() const {
        const auto c = static_cast<unsigned char>(Peek());
        if (c < 0x20 || c == 0x7F) ThrowAt("unexpected control character", position_);
        ThrowAt(std::string("unexpected \"") + Peek() + "\"", position_);
    }

    std::string_view statement_;
    std::size_t at_ = 0;
    std::size_t position_ = 1;
};

}  // namespace

std::vector<Token> Tokenise(std::string_view statement) {
    return Lexer(statement).Run();
}

std::vector<Token> TokensIfReadable(std::string_view statement) {
    try {
        return Tokenise(statement);
    } catch (const RuntimeError&) {
        return {};
    }
}

std::string StoredDate(std::string_view text) {
    text = text::Trim(text);
    DateReader reader(text);
    const auto first = reader.Number(1, 4);
    std::optional<int> year;
    std::optional<int> month;
    std::optional<int> day;
    if (reader.Skip('/')) {
        month = first;
        day = reader.Number(1, 2);
        if (reader.Skip('/')) year = reader.Number(4, 4);
    } else if (reader.Skip('-')) {
        year = first;
        month = reader.Number(1, 2);
        if (reader.Skip('-')) day = reader.Number(1, 2);
    }
    if (!year || !month || !day || !DateTime::IsValidDate(*year, *month, *day)) return {};

    int hour = 0;
    int minute = 0;
    int second = 0;
    if (!reader.AtEnd()) {
        if (!reader.Skip(' ') && !reader.Skip('T')) return {};
        const auto h = reader.Number(1, 2);
        if (!h || !reader.Skip(':')) return {};
        const auto m = reader.Number(2, 2);
        if (!m) return {};
        hour = *h;
        minute = *m;
        if (reader.Skip(':')) {
            const auto s = reader.Number(2, 2);
            if (!s) return {};
            second = *s;
        }
        if (!reader.AtEnd() || hour > 23 || minute > 59 || second > 59) return {};
    }
    return DateTime(*year, *month, *day, hour, minute, second).IsoDateTime();
}

void ThrowAt(const std::string& message, std::size_t position) {
    throw RuntimeError(ErrorNumber::DatabaseStatement,
                       message + " at character " + std::to_string(position))
        .Of(ErrorKind::Refused);
}

}  // namespace zv::store::dialect
