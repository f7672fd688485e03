#include "com/stream_format.h"

#include "base/errors.h"
#include "base/text.h"

namespace zv::com {

namespace {

constexpr std::string_view kMagic = "zvTS";
constexpr std::uint16_t kVersion = 1;

enum : std::uint8_t { kNumber = 2, kText = 8, kTruth = 11 };

void Append(std::string& bytes, std::uint32_t number, int size) {
    for (int i = 0; i < size; i++) bytes += static_cast<char>(number >> (8 * i) & 0xFF);
}

[[noreturn]] void Refuse() {
    throw RuntimeError(ErrorNumber::InvalidProcedureCall);
}

class Reader {
 public:
    explicit Reader(std::string_view bytes) : bytes_(bytes) {}

    std::uint32_t Number(std::size_t size) {
        const std::string_view part = Bytes(size);
        std::uint32_t number = 0;
        for (std::size_t i = 0; i < size; i++) {
            number |= static_cast<std::uint32_t>(static_cast<unsigned char>(part[i])) << (8 * i);
        }
        return number;
    }
    std::string_view Bytes(std::size_t size) {
        if (size > bytes_.size()) Refuse();
        const std::string_view part = bytes_.substr(0, size);
        bytes_.remove_prefix(size);
        return part;
    }
    bool AtEnd() const { return bytes_.empty(); }

 private:
    std::string_view bytes_;
};

BagValue ReadValue(Reader& reader) {
    switch (reader.Number(1)) {
        case kNumber:
            return BagValue(static_cast<std::int16_t>(reader.Number(2)));
        case kText:
            return BagValue(std::string(reader.Bytes(reader.Number(4))));
        case kTruth:
            return BagValue(reader.Number(1) != 0);
        default:
            Refuse();
    }
}

void AppendValue(std::string& bytes, const BagValue& value) {
    if (const auto* number = std::get_if<std::int16_t>(&value)) {
        Append(bytes, kNumber, 1);
        Append(bytes, static_cast<std::uint16_t>(*number), 2);
    } else if (const auto* truth = std::get_if<bool>(&value)) {
        Append(bytes, kTruth, 1);
        Append(bytes, *truth ? 1 : 0, 1);
    } else {
        const auto& text = std::get<std::string>(value);
        Append(bytes, kText, 1);
        Append(bytes, static_cast<std::uint32_t>(text.size()), 4);
        bytes += text;
    }
}

}  // namespace

BagValue MemoryBag::Read(std::string_view key, const BagValue& fallback) {
    for (const auto& [name, value] : entries_) {
        if (!text::EqualsIgnoreCase(name, key)) continue;
        if (value.index() != fallback.index()) throw RuntimeError(ErrorNumber::TypeMismatch);
        return value;
    }
    return fallback;
}

void MemoryBag::Write(std::string_view key, const BagValue& value) {
    entries_.emplace_back(key, value);
}

std::string EncodeStream(const MemoryBag& bag) {
    std::string body;
    Append(body, static_cast<std::uint32_t>(bag.Entries().size()), 2);
    for (const auto& [key, value] : bag.Entries()) {
        Append(body, static_cast<std::uint32_t>(key.size()), 1);
        body += key;
        AppendValue(body, value);
    }
    std::string bytes(kMagic);
    Append(bytes, kVersion, 2);
    Append(bytes, static_cast<std::uint32_t>(body.size()), 4);
    return bytes + body;
}

std::uint32_t DecodeStreamHeader(std::string_view header) {
    Reader reader(header);
    if (reader.Bytes(kMagic.size()) != kMagic || reader.Number(2) != kVersion) Refuse();
    const std::uint32_t length = reader.Number(4);
    if (length > kMaxStreamLength || !reader.AtEnd()) Refuse();
    return length;
}

MemoryBag DecodeStreamBody(std::string_view body) {
    Reader reader(body);
    MemoryBag bag;
    for (std::uint32_t left = reader.Number(2); left > 0; left--) {
        const std::string_view key = reader.Bytes(reader.Number(1));
        bag.Write(key, ReadValue(reader));
    }
    if (!reader.AtEnd()) Refuse();
    return bag;
}

}  // namespace zv::com
