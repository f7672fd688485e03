#include "zvdb/access/stream.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace zv::zvdb::access {
namespace {

template <class... Ts>
struct Overloaded : Ts... {
    using Ts::operator()...;
};
template <class... Ts>
Overloaded(Ts...) -> Overloaded<Ts...>;

enum Tag : std::uint64_t { kNull, kWhole, kReal, kText, kDate };

}  // namespace

void StreamWriter::PutBytes(const void* bytes, std::size_t size) {
    buffer_.append(static_cast<const char*>(bytes), size);
    if (buffer_.size() >= kBuffer) Flush();
}

void StreamWriter::Put(std::string_view text) {
    Put(std::uint64_t{text.size()});
    PutBytes(text.data(), text.size());
}

void StreamWriter::Put(const store::Value& value) {
    std::visit(Overloaded{
                   [&](std::monostate) { Put(kNull); },
                   [&](std::int64_t number) {
                       Put(kWhole);
                       Put(static_cast<std::uint64_t>(number));
                   },
                   [&](double number) {
                       Put(kReal);
                       PutBytes(&number, sizeof number);
                   },
                   [&](const std::string& text) {
                       Put(kText);
                       Put(std::string_view(text));
                   },
                   [&](DateTime date) {
                       Put(kDate);
                       Put(static_cast<std::uint64_t>(date.Seconds()));
                   },
               },
               value.Data());
}

void StreamWriter::Flush() {
    for (std::size_t at = 0; at < buffer_.size();) {
        const ssize_t wrote = write(descriptor_, buffer_.data() + at, buffer_.size() - at);
        if (wrote < 0) {
            if (errno == EINTR) continue;
            throw std::runtime_error("the reader of the stream is gone");
        }
        at += static_cast<std::size_t>(wrote);
    }
    buffer_.clear();
}

const char* StreamReader::Take(std::size_t size) {
    constexpr std::size_t kChunk = 1 << 16;
    while (buffer_.size() - begin_ < size) {
        if (begin_ > 0) {
            buffer_.erase(buffer_.begin(), buffer_.begin() + static_cast<std::ptrdiff_t>(begin_));
            begin_ = 0;
        }
        pollfd ready{descriptor_, POLLIN, 0};
        const int polled = poll(&ready, 1, silence_ * 1000);
        if (polled < 0 && errno == EINTR) continue;
        if (polled == 0) throw Broken{.silent = true};
        const std::size_t had = buffer_.size();
        buffer_.resize(had + kChunk);
        const ssize_t got = read(descriptor_, buffer_.data() + had, kChunk);
        buffer_.resize(had + static_cast<std::size_t>(got > 0 ? got : 0));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) throw Broken{};
    }
    const char* bytes = buffer_.data() + begin_;
    begin_ += size;
    return bytes;
}

std::uint64_t StreamReader::Number() {
    std::uint64_t number = 0;
    std::memcpy(&number, Take(sizeof number), sizeof number);
    return number;
}

std::string StreamReader::Text() {
    const auto size = static_cast<std::size_t>(Number());
    return std::string(Take(size), size);
}

void StreamReader::Get(store::Value& value) {
    switch (Number()) {
        case kWhole:
            value = static_cast<std::int64_t>(Number());
            return;
        case kReal: {
            double number = 0;
            std::memcpy(&number, Take(sizeof number), sizeof number);
            value = number;
            return;
        }
        case kText: {
            const auto size = static_cast<std::size_t>(Number());
            value.AssignText(std::string_view(Take(size), size));
            return;
        }
        case kDate:
            value = DateTime(static_cast<std::int64_t>(Number()));
            return;
        default:
            value = {};
    }
}

}  // namespace zv::zvdb::access
