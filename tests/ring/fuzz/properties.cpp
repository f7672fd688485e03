#include "properties.h"

#include <algorithm>
#include <tuple>

#include "base/errors.h"
#include "control/persistence.h"
#include "doubles/text_bag.h"
#include "pieces.h"
#include "target.h"

namespace zv::fuzz {
namespace {

using com::MemoryBag;

constexpr std::string_view kFolder = "C:\\Suite";

ControlState NewState() {
    ControlState state;
    InitState(state, std::string(kFolder));
    state.UserName = "somebody";
    return state;
}

auto Kept(const ControlState& state) {
    return std::tuple(state.myName, state.Language, state.AlertType, state.UserPath, state.UserName,
                      state.ZgName, state.myPower, state.myModel, state.Copyright, state.showMode,
                      state.Password, state.SQLData, state.UserID, state.Default);
}

MemoryBag Decode(std::string_view bytes) {
    const std::uint32_t length = com::DecodeStreamHeader(bytes.substr(0, com::kStreamHeaderSize));
    const std::string_view body = bytes.substr(com::kStreamHeaderSize);
    Hold(length == body.size(), "the header names another length");
    return com::DecodeStreamBody(body);
}

/// Whether the bag was loaded.
bool Load(ControlState& state, PropertyBag& bag) {
    const auto before = Kept(state);
    try {
        ReadState(state, bag);
        return true;
    } catch (const RuntimeError& error) {
        Hold(error.Number() == ErrorNumber::TypeMismatch || error.Number() == ErrorNumber::Overflow,
             "refused with error " + std::to_string(static_cast<int>(error.Number())));
        Hold(Kept(state) == before, "a bag that was refused has changed properties");
        return false;
    }
}

void HoldSaved(const ControlState& state, const StreamEncoder& encode) {
    MemoryBag saved;
    WriteState(state, saved);
    MemoryBag decoded = Decode(encode(saved));
    Hold(decoded.Entries() == saved.Entries(), "the stream holds something else than the bag");
    doubles::TextBag texts;
    WriteState(state, texts);
    ControlState fromStream = NewState();
    ControlState fromTexts = NewState();
    fromStream.UserName = fromTexts.UserName = state.UserName;
    Hold(Load(fromStream, decoded), "what was saved as a stream is refused");
    Hold(Load(fromTexts, texts), "what was saved as texts is refused");
    Hold(Kept(fromStream) == Kept(state), "properties come out of a stream as others");
    Hold(Kept(fromTexts) == Kept(state), "properties come out of a bag of texts as others");
}

void PlayStream(std::string_view body, const StreamEncoder& encode) {
    MemoryBag bag;
    try {
        bag = com::DecodeStreamBody(body);
    } catch (const RuntimeError& error) {
        Hold(error.Number() == ErrorNumber::InvalidProcedureCall, "refused with another error");
        return;
    }
    Hold(Decode(encode(bag)).Entries() == bag.Entries(), "a stream is not saved as it was loaded");
    ControlState state = NewState();
    if (Load(state, bag)) HoldSaved(state, encode);
}

void PlayTexts(std::string_view input, const StreamEncoder& encode) {
    doubles::TextBag bag;
    for (const std::string_view piece : PiecesOf(input)) {
        const std::size_t equals = std::min(piece.find('='), piece.size());
        bag.Put(piece.substr(0, equals),
                std::string(piece.substr(std::min(equals + 1, piece.size()))));
    }
    ControlState state = NewState();
    if (Load(state, bag)) HoldSaved(state, encode);
}

void PlayHeader(std::string_view header) {
    try {
        const std::uint32_t length = com::DecodeStreamHeader(header);
        Hold(header.size() == com::kStreamHeaderSize, "a header of another size is taken");
        Hold(length <= com::kMaxStreamLength, "a stream of any length is taken");
    } catch (const RuntimeError& error) {
        Hold(error.Number() == ErrorNumber::InvalidProcedureCall, "refused with another error");
    }
}

}  // namespace

void PlayProperties(std::string_view input, const StreamEncoder& encode) {
    if (input.empty()) return;
    const std::string_view rest = input.substr(1);
    switch (input.front()) {
        case 'h':
            PlayHeader(rest);
            break;
        case 't':
            PlayTexts(rest, encode);
            break;
        default:
            PlayStream(rest, encode);
    }
}

std::vector<std::string> PropertySeeds() {
    ControlState state = NewState();
    state.myName = "Wang";
    state.Language = 1;
    state.Copyright = true;
    state.Password = "secret";
    MemoryBag bag;
    WriteState(state, bag);
    const std::string stream = com::EncodeStream(bag);
    return {"s" + stream.substr(com::kStreamHeaderSize),
            "h" + stream.substr(0, com::kStreamHeaderSize),
            "tmyName=Li\xFFLanguage=1\xFF"
            "Copyright=True\xFFSQLData=2\xFFUserPath=srv\\x",
            "tAlertType=3.5\xFF"
            "Copyright=-1\xFFshowmode= 1 \xFFSQLData=&H10",
            "tLanguage=99999",
            "tLanguage=1e4\xFF"
            "Copyright=No"};
}

}  // namespace zv::fuzz
