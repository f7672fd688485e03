// The text of a scenario file, taken apart into lines and words.
#pragma once

#include <exception>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zv::script {

/// The file itself is wrong: it does not follow the language, or it names something that does not
/// exist.
class ScriptError : public std::exception {
 public:
    explicit ScriptError(std::string reason, int line = 0)
        : reason_(std::move(reason)), line_(line) {}
    const std::string& Reason() const { return reason_; }
    /// From 1; 0 when the one who throws does not know it.
    int Line() const { return line_; }
    const char* what() const noexcept override { return reason_.c_str(); }

 private:
    std::string reason_;
    int line_;
};

struct Word {
    std::string text;
    bool quoted = false;
};

struct ScriptLine {
    int number = 0;
    std::size_t indent = 0;   ///< blanks before the first word
    std::vector<Word> words;  ///< at least one
};

/// Words of a line from some position on; valid as long as the line.
class Words {
 public:
    explicit Words(std::span<const Word> words) : words_(words) {}
    std::size_t size() const { return words_.size(); }
    const std::string& operator[](std::size_t position) const { return words_[position].text; }
    bool IsQuoted(std::size_t position) const { return words_[position].quoted; }
    Words From(std::size_t position) const { return Words(words_.subspan(position)); }
    Words First(std::size_t count) const { return Words(words_.first(count)); }

 private:
    std::span<const Word> words_;
};

/// Lines that hold a command. A byte order mark and CR LF are accepted. Throws ScriptError with the
/// line: text that is not UTF-8, a quote left open, an unknown escape, a quote in the middle of a
/// word (except behind "=", as in KEY="two words").
std::vector<ScriptLine> ReadScript(std::string_view text);

/// The text as a quoted word, on one line.
std::string Quote(std::string_view text);

/// A whole number; throws ScriptError when the word is not one.
int ToInteger(const std::string& word);

}  // namespace zv::script
