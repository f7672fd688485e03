#include "zvdb/hidden_output.h"

#include <utility>

#include "base/text.h"
#include "store/connection_opener.h"
#include "store/secrets.h"
#include "zvdb/command_line.h"

namespace zv::zvdb {

GivenSecrets::GivenSecrets(const std::vector<std::string>& arguments) {
    bool isServer = false;
    for (const std::string& argument : arguments) {
        store::ConnectionSettings given;
        given.kind = std::exchange(isServer, argument == "--to") ? 1 : 0;
        std::string text = argument;
        if (argument.starts_with('@')) {
            try {
                text = Named(argument);
            } catch (const UsageError&) {
                continue;  // the one that needs the file reports that it cannot be read
            }
        }
        given.dataPath =
            text == argument ? store::ConnectionText(text) : store::ConnectionText(text, argument);
        const std::vector<std::string> secrets = given.Secrets();
        const std::string name = given.ForMessage();
        if (name != text) texts_.emplace_back(text, name);
        secrets_.insert(secrets_.end(), secrets.begin(), secrets.end());
    }
}

std::string GivenSecrets::Hide(std::string text) const {
    for (const auto& [whole, name] : texts_) text = text::Replace(text, whole, name);
    return store::WithoutTexts(std::move(text), secrets_);
}

HidingBuffer::~HidingBuffer() {
    HandOn();
}

void HidingBuffer::HandOn() {
    target_ << secrets_.Hide(std::exchange(line_, {}));
}

HidingBuffer::int_type HidingBuffer::overflow(int_type character) {
    if (traits_type::eq_int_type(character, traits_type::eof())) return 0;
    line_ += traits_type::to_char_type(character);
    // A progress line ends in a return.
    if (line_.back() == '\n' || line_.back() == '\r') HandOn();
    return character;
}

int HidingBuffer::sync() {
    HandOn();
    target_.flush();
    return target_ ? 0 : -1;
}

}  // namespace zv::zvdb
