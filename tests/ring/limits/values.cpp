#include "values.h"

#include "base/text.h"

namespace zv::ring {
namespace {

/// Exactly so many units, the last of them those of `last`.
std::u16string Ending(std::size_t units, std::u16string_view last) {
    return std::u16string(units - last.size(), u'x') + std::u16string(last);
}

std::u16string Repeated(std::size_t units, char16_t unit) {
    return std::u16string(units, unit);
}

}  // namespace

std::string TextValue::Text() const {
    return text::FromUtf16(units);
}

std::vector<TextValue> TextValues(std::size_t limit) {
    using namespace std::string_literals;
    std::vector<TextValue> values = {
        {"empty", u""},
        {"blank", u" "},
        {"blanks around", u"  a  "},
        {"apostrophe", u"it's"},
        {"apostrophes", u"''"},
        {"end of a literal", u"a','b');--"},
        {"quotes", u"\"a\""},
        {"semicolon", u"a;b"},
        {"percent", u"50%"},
        {"underscore", u"a_b"},
        {"star", u"a*b"},
        {"star alone", u"*"},
        {"question mark", u"a?b"},
        {"braces", u"{d '2003-03-07'}"},
        {"brackets", u"[a]"},
        {"bracket open", u"[a"},
        {"backslash", u"a\\b"},
        {"backslash at the end", u"a\\"},
        {"hash", u"#03/07/2003#"},
        {"bar", u"a|b"},
        {"ampersand", u"&a&&b"},
        {"comment", u"/* a */ -- b"},
        {"dollar", u"$a$b$1"},
        {"colon", u":a ::b"},
        {"tab", u"a\tb"},
        {"line feed", u"a\nb"},
        {"carriage return", u"a\rb"},
        {"line break", u"a\r\nb\r\n"},
        {"control character", u"a\x01\x1F\x7F"},
        {"next line", u"a\u0085b\u2028c"},
        {"zero", u"a\0b"s, false},
        {"zero at the end", u"a\0"s, false},
        {"byte order mark", u"\uFEFFa"},
        {"no character", u"a\uFFFF\uFFFE"},
        {"directions", u"\u202Ea\u202C\u200Fb\u2066"},
        {"joined", u"e\u0301\u200D\u200B"},
        {"wide blank", u"\u3000a\u00A0"},
        {"letters with signs", u"\u00C4\u00E9\u00DF\u0130\u0131"},
        {"full width", u"\uFF21\uFF07\uFF05"},
        {"Chinese", u"\u4F1A\u8BAE\u6703\u8B70"},
        {"rare", u"\U00020000\U0001F600"},
        {"first half", u"a\xD83D"},
        {"second half", u"\xDE00z"},
        {"halves in the wrong order", u"\xDE00\xD83D"},
        {"null", u"null"},
        {"number", u"0123"},
        {"date", u"2003-03-07"},
    };
    // A field without a limit: around the sizes of the buffers below.
    for (const std::size_t end :
         limit > 0 ? std::vector<std::size_t>{limit} : std::vector<std::size_t>{256, 4096, 70000}) {
        const std::string size = " of " + std::to_string(end);
        values.push_back({"one before the end" + size, Repeated(end - 1, u'x')});
        values.push_back({"full" + size, Repeated(end, u'x')});
        values.push_back({"one beyond" + size, Repeated(end + 1, u'x')});
        values.push_back({"Chinese, half" + size, Repeated(end / 2, u'\u4F1A')});
        values.push_back({"Chinese, one beyond half" + size, Repeated(end / 2 + 1, u'\u4F1A')});
        values.push_back({"Chinese, full" + size, Repeated(end, u'\u4F1A')});
        values.push_back({"Chinese, one beyond" + size, Repeated(end + 1, u'\u4F1A')});
        values.push_back({"pair before the end" + size, Ending(end, u"\U0001F600")});
        values.push_back({"pair across the end" + size, Ending(end + 1, u"\U0001F600")});
        values.push_back({"Chinese across the end" + size, Ending(end, u"\u4F1A")});
        values.push_back({"break across the end" + size, Ending(end + 1, u"\r\n")});
    }
    return values;
}

const std::vector<std::string>& NumberTexts() {
    static const std::vector<std::string> texts = {"",
                                                   "0",
                                                   "-0",
                                                   "1",
                                                   "-1",
                                                   "+1",
                                                   "01",
                                                   " 7 ",
                                                   "9",
                                                   "12",
                                                   "13",
                                                   "31",
                                                   "32",
                                                   "99",
                                                   "100",
                                                   "999",
                                                   "1000",
                                                   "999.4",
                                                   "0.4",
                                                   "0.5",
                                                   "1.5",
                                                   "32766",
                                                   "32767",
                                                   "32768",
                                                   "-32768",
                                                   "-32769",
                                                   "2147483647",
                                                   "2147483648",
                                                   "-2147483648",
                                                   "9223372036854775807",
                                                   "9223372036854775808",
                                                   "1e2",
                                                   "1E400",
                                                   "1e-400",
                                                   "-1e400",
                                                   "1,000",
                                                   "1.000.0",
                                                   "1 000",
                                                   "0x10",
                                                   "&H10",
                                                   "nan",
                                                   "inf",
                                                   "1'2",
                                                   "12a",
                                                   "\xEF\xBC\x91",
                                                   "1\t",
                                                   "\t",
                                                   "--1",
                                                   ".",
                                                   "-",
                                                   "e",
                                                   "$1",
                                                   "(1)",
                                                   std::string(400, '9'),
                                                   std::string(400, '0') + "1"};
    return texts;
}

const std::vector<std::int64_t>& WholeNumbers() {
    static const std::vector<std::int64_t> numbers = {0,
                                                      1,
                                                      -1,
                                                      32766,
                                                      32767,
                                                      32768,
                                                      -32767,
                                                      -32768,
                                                      -32769,
                                                      65535,
                                                      65536,
                                                      2147483646,
                                                      2147483647,
                                                      2147483648,
                                                      -2147483647,
                                                      -2147483648,
                                                      -2147483649,
                                                      4294967295,
                                                      4294967296,
                                                      9007199254740993,
                                                      9223372036854775807,
                                                      -9223372036854775807 - 1};
    return numbers;
}

const std::vector<DateTime>& Dates() {
    static const std::vector<DateTime> dates = {{100, 1, 1},
                                                {100, 12, 31},
                                                {1582, 10, 10},
                                                {1600, 12, 31},
                                                {1601, 1, 1},
                                                {1752, 12, 31},
                                                {1753, 1, 1},
                                                {1899, 12, 29, 23, 59, 59},
                                                {1899, 12, 30},
                                                {1899, 12, 31},
                                                {1900, 2, 28},
                                                {1900, 3, 1},
                                                {1970, 1, 1},
                                                {2000, 2, 29},
                                                {2003, 3, 7, 9, 30, 1},
                                                {2004, 2, 29, 23, 59, 59},
                                                {2038, 1, 19, 3, 14, 8},
                                                {2079, 6, 7},
                                                {9998, 12, 31},
                                                {9999, 12, 30},
                                                {9999, 12, 31},
                                                {9999, 12, 31, 23, 59, 59}};
    return dates;
}

const std::vector<std::string>& DateTexts() {
    static const std::vector<std::string> texts = {"0001-01-01",
                                                   "0099-12-31",
                                                   "2003-02-29",
                                                   "1900-02-29",
                                                   "10000-01-01",
                                                   "2003-13-01",
                                                   "2003-00-10",
                                                   "2003-01-32",
                                                   "2003-03-07 24:00:00",
                                                   "2003-03-07 23:59:60",
                                                   "03/07/2003",
                                                   "7.3.2003",
                                                   "never",
                                                   "0",
                                                   " ",
                                                   "-2003-03-07",
                                                   "infinity",
                                                   "2003-03-07 10:00:00.5",
                                                   "2003-3-7"};
    return texts;
}

}  // namespace zv::ring
