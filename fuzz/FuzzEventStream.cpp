// Any bytes as a stream: loaded as an event stream would be, and read by an arbitrary order of calls. Every reading
// loop must end, positions stay within, and what was read must be what a second reading gives.
#include "fuzz/FuzzInput.h"
#include "suite/stream/StreamStorage.h"

#include <cstring>
#include <stdexcept>
#include <vector>

namespace {

/// Gives each value's bytes as characters.
class BytesAsText final : public TextSource {
public:
    TextView TextOf(ByteView value, Text& scratch) const override
    {
        scratch.assign(value.begin(), value.end());
        return scratch;
    }
};

/// Takes the calls to make from the input.
class Script {
public:
    explicit Script(ByteView bytes) : m_rest(bytes) {}
    bool AtEnd() const { return m_rest.empty(); }
    unsigned char Byte()
    {
        if (m_rest.empty())
            return 0;
        const unsigned char first = m_rest.front();
        m_rest = m_rest.subspan(1);
        return first;
    }
    ByteView Bytes(std::size_t most)
    {
        const ByteView bytes = m_rest.first(std::min(most, m_rest.size()));
        m_rest = m_rest.subspan(bytes.size());
        return bytes;
    }

private:
    ByteView m_rest;
};

Text UnitsOf(ByteView bytes)
{
    Text units(bytes.size() / sizeof(OLECHAR), 0);
    if (!units.empty())
        std::memcpy(units.data(), bytes.data(), units.size() * sizeof(OLECHAR));
    return units;
}

/// Two streams that are told the same: one writes each text, the other lets it wait.
struct Twins {
    StreamStorage written;
    StreamStorage waiting;

    template <class Call>
    void Both(Call call)
    {
        Require(call(written) == call(waiting));
    }
};

void Read(Twins& twins, std::size_t count)
{
    std::vector<unsigned char> first(count), second(count);
    std::size_t read = 0, again = 0;
    Require(twins.written.Read(first.data(), count, read) == twins.waiting.Read(second.data(), count, again));
    Require(read == again && first == second);
}

void ReadString(Twins& twins)
{
    TextView first, second;
    Require(twins.written.ReadString(first) == twins.waiting.ReadString(second));
    Require(first == second);
}

void Step(Twins& twins, Script& script)
{
    switch (script.Byte() % 10) {
    case 0: Read(twins, script.Byte()); break;
    case 1: ReadString(twins); break;
    case 2: twins.Both([](StreamStorage& s) { return s.SkipString(); }); break;
    case 3: {
        const ByteView bytes = script.Bytes(script.Byte() % 32);
        twins.written.Append(bytes);
        twins.waiting.Append(bytes);
        break;
    }
    case 4: {
        const ByteView value = script.Bytes(script.Byte() % 32);
        const Text text(value.begin(), value.end());
        twins.written.AppendString(text, true);
        if (twins.waiting.Mode() == E_STREAM_MODE_TEXT)
            twins.waiting.AppendString(text, true);
        else
            twins.waiting.AppendPending(&twins, value, [] { return std::make_unique<BytesAsText>(); });
        break;
    }
    case 5: {
        const auto offset = static_cast<signed char>(script.Byte());
        constexpr EStreamOrigin kOrigins[] = {E_STREAM_ORIGIN_START, E_STREAM_ORIGIN_CURRENT, E_STREAM_ORIGIN_END};
        const EStreamOrigin origin = kOrigins[script.Byte() % 3];
        twins.Both([=](StreamStorage& s) { return s.Seek(offset, origin); });
        break;
    }
    case 6: twins.Both([](StreamStorage& s) { return s.Position(); }); break;
    case 7: twins.Both([](StreamStorage& s) { return s.CutAtPosition(), s.Bytes().size(); }); break;
    case 8: {
        const EStreamMode mode = script.Byte() % 4 == 0 ? E_STREAM_MODE_TEXT : E_STREAM_MODE_BINARY;
        twins.Both([=](StreamStorage& s) { return s.SetMode(mode), s.Items(); });
        break;
    }
    default: {
        constexpr LONG kCodePages[] = {0, 1200, 1252, 65001};
        const LONG codePage = kCodePages[script.Byte() % 4];
        const Text delimiter = UnitsOf(script.Bytes(script.Byte() % 5));
        twins.Both([&](StreamStorage& s) { return s.SetCodePage(codePage), s.SetDelimiter(delimiter), s.Items(); });
        break;
    }
    }
}

/// Reads records and texts as a sink of events does, whatever the bytes are.
void ReadLikeASink(StreamStorage& stream)
{
    constexpr std::size_t kRecord = 20;
    const std::size_t size = stream.Bytes().size();
    std::size_t rounds = 0;
    stream.Seek(0, E_STREAM_ORIGIN_START);
    unsigned char record[kRecord];
    std::size_t read = 0;
    while (stream.Read(record, kRecord, read) != E_STREAM_ERROR_END_OF_FILE) {
        TextView text;
        if (record[18] != 0 && stream.ReadString(text) == E_STREAM_ERROR_NONE)
            Require(text.size() <= size);
        Require(stream.Position() <= size && ++rounds <= size);
    }
    Require(stream.Position() == size);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Script script({data, size});
    Twins twins;
    ByteBuffer content, copy;
    const ByteView loaded = script.Bytes(script.Byte());
    content.Append(loaded);
    copy.Append(loaded);
    twins.written.Load(std::move(content));
    twins.waiting.Load(std::move(copy));
    while (!script.AtEnd())
        Step(twins, script);
    const ByteView all = twins.written.Bytes();
    Require(std::ranges::equal(all, twins.waiting.Bytes()));
    Require(twins.written.Items() == twins.waiting.Items());
    Require(twins.written.Position() == twins.waiting.Position());
    ReadLikeASink(twins.waiting);
    return 0;
}
