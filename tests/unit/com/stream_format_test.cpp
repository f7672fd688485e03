#include "com/stream_format.h"

#include <gtest/gtest.h>

#include <random>

#include "base/errors.h"

namespace zv::com {
namespace {

MemoryBag Sample() {
    MemoryBag bag;
    bag.Write("myName", BagValue(std::string("甲公司")));
    bag.Write("Language", BagValue(std::int16_t{-2}));
    bag.Write("Copyright", BagValue(true));
    bag.Write("UserPath", BagValue(std::string()));
    return bag;
}

MemoryBag Decode(const std::string& bytes) {
    const std::string_view all(bytes);
    const std::uint32_t length = DecodeStreamHeader(all.substr(0, kStreamHeaderSize));
    EXPECT_EQ(all.size(), kStreamHeaderSize + length);
    return DecodeStreamBody(all.substr(kStreamHeaderSize));
}

TEST(StreamFormat, BringsBackKeysOrderTypesAndValues) {
    const MemoryBag bag = Sample();
    EXPECT_EQ(Decode(EncodeStream(bag)).Entries(), bag.Entries());
}

TEST(StreamFormat, AnEmptyBagIsAHeaderAndACount) {
    const std::string bytes = EncodeStream(MemoryBag());
    EXPECT_EQ(bytes, std::string("zvTS\1\0\2\0\0\0\0\0", 12));
    EXPECT_TRUE(Decode(bytes).Entries().empty());
}

TEST(StreamFormat, RefusesEveryShortenedStream) {
    const std::string bytes = EncodeStream(Sample());
    for (std::size_t size = 0; size < kStreamHeaderSize; size++) {
        EXPECT_THROW(DecodeStreamHeader(std::string_view(bytes).substr(0, size)), RuntimeError);
    }
    const std::string body = bytes.substr(kStreamHeaderSize);
    for (std::size_t size = 0; size < body.size(); size++) {
        EXPECT_THROW(DecodeStreamBody(std::string_view(body).substr(0, size)), RuntimeError)
            << size;
    }
    EXPECT_THROW(DecodeStreamBody(body + "x"), RuntimeError);
}

TEST(StreamFormat, RefusesForeignLaterAndOversizedStreams) {
    std::string header = EncodeStream(Sample()).substr(0, kStreamHeaderSize);
    EXPECT_NO_THROW(DecodeStreamHeader(header));
    std::string foreign = header;
    foreign[0] = 'X';
    EXPECT_THROW(DecodeStreamHeader(foreign), RuntimeError);
    std::string later = header;
    later[4] = 2;
    EXPECT_THROW(DecodeStreamHeader(later), RuntimeError);
    std::string oversized = header;
    oversized[9] = '\x7F';
    EXPECT_THROW(DecodeStreamHeader(oversized), RuntimeError);
}

TEST(StreamFormat, SurvivesArbitraryBytes) {
    std::mt19937 random(1);
    const std::string body = EncodeStream(Sample()).substr(kStreamHeaderSize);
    for (int round = 0; round < 2000; round++) {
        std::string damaged = body;
        for (int change = 0; change < 4; change++) {
            damaged[random() % damaged.size()] = static_cast<char>(random());
        }
        try {
            DecodeStreamBody(damaged);
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::InvalidProcedureCall);
        }
    }
}

TEST(MemoryBag, FindsKeysWithoutRegardToCase) {
    MemoryBag bag;
    bag.Write("Showmode", BagValue(std::int16_t{1}));
    EXPECT_EQ(bag.Read("showmode", BagValue(std::int16_t{0})), BagValue(std::int16_t{1}));
    EXPECT_EQ(bag.Read("absent", BagValue(std::int16_t{9})), BagValue(std::int16_t{9}));
}

TEST(MemoryBag, AValueOfAnotherTypeIsError13) {
    MemoryBag bag;
    bag.Write("Language", BagValue(std::string("1")));
    try {
        bag.Read("Language", BagValue(std::int16_t{0}));
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::TypeMismatch);
    }
}

}  // namespace
}  // namespace zv::com
