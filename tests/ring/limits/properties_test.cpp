// Values at the limits in the properties that a host keeps: in its bag and in its stream they come
// back as they were, or reading fails and no property has changed.
#include <gtest/gtest.h>

#include "base/number.h"
#include "com/stream_format.h"
#include "control/persistence.h"
#include "doubles/text_bag.h"
#include "place.h"
#include "values.h"

namespace zv::ring {
namespace {

com::MemoryBag Through(const com::MemoryBag& bag) {
    const std::string stream = com::EncodeStream(bag);
    const std::string head = stream.substr(0, com::kStreamHeaderSize);
    const std::string body = stream.substr(com::kStreamHeaderSize);
    EXPECT_EQ(com::DecodeStreamHeader(head), body.size());
    return com::DecodeStreamBody(body);
}

TEST(PropertyLimits, TextsComeBackFromTheStream) {
    constexpr std::size_t kLength = 255;
    int cells = 0;
    for (const TextValue& value : TextValues(kLength)) {
        SCOPED_TRACE(value.name);
        const std::string text = value.Text();
        ControlState state;
        for (std::string* property :
             {&state.myName, &state.UserName, &state.ZgName, &state.myPower, &state.myModel}) {
            *property = text;
        }
        state.UserPath = text;
        state.Password = text;
        state.UserID = text;
        state.Default = text;
        com::MemoryBag written;
        WriteState(state, written);
        com::MemoryBag bag = Through(written);
        ControlState read;
        ReadState(read, bag);
        for (const std::string* property : {&read.myName, &read.ZgName, &read.myModel}) {
            EXPECT_EQ(*property, text);
            cells++;
        }
        EXPECT_EQ(read.myPower, text);
        EXPECT_EQ(read.UserPath.ForOwner(), text);
        EXPECT_EQ(read.Password.ForOwner(), text);
        EXPECT_EQ(read.UserID.ForOwner(), text);
        EXPECT_EQ(read.Default.ForOwner(), text);
        EXPECT_EQ(std::get<std::string>(bag.Read("UserName", BagValue(std::string()))), text);
        cells += 6;
    }
    RecordProperty("cells", cells);
    std::cout << "CELLS " << cells << '\n';
}

TEST(PropertyLimits, NumbersAreReadOrRefusedAsAWhole) {
    int cells = 0;
    std::vector<std::string> texts = NumberTexts();
    for (const std::int64_t number : WholeNumbers()) texts.push_back(std::to_string(number));
    for (const char* key : {"Language", "AlertType", "showmode", "SQLData"}) {
        for (const std::string& text : texts) {
            SCOPED_TRACE(std::string(key) + "=" + Shown(text));
            doubles::TextBag bag;
            bag.Put("myName", "new");
            bag.Put(key, text);
            ControlState state;
            state.myName = "old";
            state.Language = state.AlertType = state.showMode = state.SQLData = 7;
            const auto number = number::Parse(text);
            const bool fits = number && *number >= -32768.5 && *number < 32767.5;
            int error = 0;
            try {
                ReadState(state, bag);
            } catch (const RuntimeError& refusal) {
                error = static_cast<int>(refusal.Number());
            }
            cells++;
            EXPECT_EQ(error, fits ? 0 : number ? 6 : 13);
            EXPECT_EQ(state.myName, fits ? "new" : "old");
            if (fits) continue;
            EXPECT_EQ(state.Language + state.AlertType + state.showMode + state.SQLData, 28);
        }
    }
    RecordProperty("cells", cells);
    std::cout << "CELLS " << cells << '\n';
}

}  // namespace
}  // namespace zv::ring
