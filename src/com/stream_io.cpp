#include "com/stream_io.h"

#include "com/boundary.h"
#include "com/stream_format.h"

namespace zv::com {

namespace {

// A stream may hand out less than it is asked for.
std::string ReadExactly(IStream& stream, std::size_t size) {
    std::string bytes(size, '\0');
    std::size_t done = 0;
    while (done < size) {
        ULONG count = 0;
        ThrowIfFailed(stream.Read(&bytes[done], static_cast<ULONG>(size - done), &count));
        if (count == 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
        done += count;
    }
    return bytes;
}

}  // namespace

std::string StreamImage(Core& core) {
    core.EnsureValues();
    MemoryBag bag;
    core.WriteProperties(bag);
    return EncodeStream(bag);
}

void WriteToStream(Core& core, IStream& stream) {
    const std::string image = StreamImage(core);
    ULONG count = 0;
    ThrowIfFailed(stream.Write(image.data(), static_cast<ULONG>(image.size()), &count));
    if (count != image.size()) ThrowIfFailed(STG_E_MEDIUMFULL);
}

void ReadFromStream(Core& core, IStream& stream) {
    const std::uint32_t length = DecodeStreamHeader(ReadExactly(stream, kStreamHeaderSize));
    MemoryBag bag = DecodeStreamBody(ReadExactly(stream, length));
    core.ReadProperties(bag);
}

}  // namespace zv::com
