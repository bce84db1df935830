#include "literal_stream.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstdint>
#include <queue>

#include <libdeflate.h>

namespace {

using literal_stream::Bytes;

constexpr size_t kSymbols = 257; // all bytes, and the end of a block
constexpr size_t kEnd = 256;
constexpr size_t kBlockBytes = size_t(1) << 18;
constexpr int kLongestCode = 15;

using Counts = std::array<uint32_t, kSymbols>;
using Lengths = std::array<uint8_t, kSymbols>;

/// Four tables, so that equal bytes in a row do not wait for each other.
Counts countsOf(const unsigned char *bytes, size_t count)
{
    std::array<std::array<uint32_t, 256>, 4> parts = {};
    for (size_t i = 0; i < count; ++i)
        ++parts[i % 4][bytes[i]];
    Counts counts = {};
    for (size_t symbol = 0; symbol < 256; ++symbol)
        counts[symbol] = parts[0][symbol] + parts[1][symbol] + parts[2][symbol] + parts[3][symbol];
    counts[kEnd] = 1;
    return counts;
}

/// A node of the tree, or a symbol below kSymbols.
struct Node
{
    uint64_t count;
    size_t index;
    bool operator<(const Node &other) const
    {
        return count != other.count ? count > other.count : index > other.index;
    }
};

/// By joining the two rarest again and again. They may be longer than the format takes.
Lengths treeLengths(const Counts &counts)
{
    std::priority_queue<Node> rarest;
    for (size_t symbol = 0; symbol < kSymbols; ++symbol) {
        if (counts[symbol] > 0)
            rarest.push({counts[symbol], symbol});
    }
    std::array<size_t, 2 *kSymbols> parents = {};
    size_t next = kSymbols;
    for (; rarest.size() > 1; ++next) {
        const Node one = rarest.top();
        rarest.pop();
        const Node other = rarest.top();
        rarest.pop();
        parents[one.index] = parents[other.index] = next;
        rarest.push({one.count + other.count, next});
    }
    std::array<uint8_t, 2 *kSymbols> depths = {};
    for (size_t node = next - 1; node-- > kSymbols;)
        depths[node] = uint8_t(depths[parents[node]] + 1);
    Lengths lengths = {};
    for (size_t symbol = 0; symbol < kSymbols; ++symbol) {
        if (counts[symbol] > 0)
            lengths[symbol] = next == kSymbols ? 1 : uint8_t(depths[parents[symbol]] + 1);
    }
    return lengths;
}

/// Rare symbols are taken for less rare until no code is too long.
Lengths lengthsFor(Counts counts)
{
    Lengths lengths = treeLengths(counts);
    while (*std::max_element(lengths.begin(), lengths.end()) > kLongestCode) {
        for (uint32_t &count : counts)
            count = (count + 1) / 2;
        lengths = treeLengths(counts);
    }
    return lengths;
}

/// What is written for a byte: the first bit lowest.
struct Code
{
    uint16_t bits;
    uint8_t length;
};
using Codes = std::array<Code, kSymbols>;

uint16_t reversed(unsigned code, int length)
{
    unsigned bits = 0;
    for (int i = 0; i < length; ++i)
        bits |= (code >> i & 1U) << (length - 1 - i);
    return uint16_t(bits);
}

/// RFC 1951, 3.2.2.
Codes codesOf(const Lengths &lengths)
{
    std::array<unsigned, kLongestCode + 1> counts = {};
    for (const uint8_t length : lengths)
        counts[length] += length > 0 ? 1 : 0;
    std::array<unsigned, kLongestCode + 1> next = {};
    for (size_t length = 1; length < next.size(); ++length)
        next[length] = 2 * (next[length - 1] + counts[length - 1]);
    Codes codes = {};
    for (size_t symbol = 0; symbol < kSymbols; ++symbol) {
        const uint8_t length = lengths[symbol];
        if (length > 0)
            codes[symbol] = {reversed(next[length]++, length), length};
    }
    return codes;
}

/// Bits into memory that the caller has made long enough.
class BitWriter
{
public:
    explicit BitWriter(unsigned char *target)
        : place(target)
    {
    }

    /// At most 15 bits; three times at most between two calls of flush().
    void put(uint64_t value, int count)
    {
        bits |= value << used;
        used += count;
    }
    /// Writes eight bytes, of which those that are not full are written again.
    void flush()
    {
        qToLittleEndian(bits, place);
        place += used / 8;
        bits >>= used / 8 * 8;
        used %= 8;
    }
    /// Up to a whole byte. Returns where the next one belongs.
    unsigned char *finish()
    {
        flush();
        if (used > 0)
            *place++ = static_cast<unsigned char>(bits);
        used = 0;
        bits = 0;
        return place;
    }

private:
    unsigned char *place;
    uint64_t bits = 0;
    int used = 0;
};

/// RFC 1951, 3.2.7: the lengths of all codes, four bits each, and none for distances.
void putHeader(BitWriter &writer, const Lengths &lengths, bool isLast)
{
    constexpr int kLengthCodes = 19;
    constexpr int kRunCodes = 3; // the first ones: not used
    writer.put(isLast ? 1 : 0, 1);
    writer.put(2, 2);
    writer.put(kSymbols - 257, 5);
    writer.put(0, 5);
    writer.flush();
    writer.put(kLengthCodes - 4, 4);
    for (int i = 0; i < kLengthCodes; ++i) {
        writer.put(i < kRunCodes ? 0 : 4, 3);
        writer.flush();
    }
    for (const uint8_t length : lengths) {
        writer.put(reversed(length, 4), 4);
        writer.flush();
    }
    writer.put(0, 4); // the one distance, not used
    writer.flush();
}

void putBytes(BitWriter &writer, const Codes &codes, const unsigned char *bytes, size_t count)
{
    const auto put = [&](unsigned char byte) { writer.put(codes[byte].bits, codes[byte].length); };
    size_t i = 0;
    for (; i + 3 <= count; i += 3) {
        put(bytes[i]);
        put(bytes[i + 1]);
        put(bytes[i + 2]);
        writer.flush();
    }
    for (; i < count; ++i)
        put(bytes[i]);
    writer.flush();
    writer.put(codes[kEnd].bits, codes[kEnd].length);
    writer.flush();
}

/// A piece of the bytes, whose codes are its own.
struct Block
{
    const unsigned char *bytes;
    size_t count;
    Lengths lengths;
    size_t bits; ///< without the header
};

Block blockOf(const unsigned char *bytes, size_t count)
{
    const Counts counts = countsOf(bytes, count);
    Block block = {bytes, count, lengthsFor(counts), 0};
    for (size_t symbol = 0; symbol < kSymbols; ++symbol)
        block.bits += size_t(counts[symbol]) * block.lengths[symbol];
    return block;
}

/// At least one.
std::vector<Block> blocksOf(const unsigned char *bytes, size_t count)
{
    std::vector<Block> blocks;
    for (size_t begin = 0; begin < count || blocks.empty(); begin += kBlockBytes)
        blocks.push_back(blockOf(bytes + begin, std::min(kBlockBytes, count - begin)));
    return blocks;
}

size_t bytesOf(const std::vector<Block> &blocks)
{
    size_t bits = 0;
    for (const Block &block : blocks)
        bits += block.bits;
    return bits / 8 + 1;
}

} // namespace

Bytes literal_stream::compressed(const unsigned char *bytes, size_t count)
{
    constexpr size_t kFrame = 16;        // of the stream, and what flush() writes too much
    constexpr size_t kBlockHeader = 160; // more than one takes
    const std::vector<Block> blocks = blocksOf(bytes, count);
    Bytes stream(bytesOf(blocks) + blocks.size() * kBlockHeader + kFrame);
    stream[0] = 0x78; // RFC 1950: deflate, 32 KiB; the fastest
    stream[1] = 0x01;
    BitWriter writer(stream.data() + 2);
    for (const Block &block : blocks) {
        putHeader(writer, block.lengths, &block == &blocks.back());
        putBytes(writer, codesOf(block.lengths), block.bytes, block.count);
    }
    unsigned char *end = writer.finish();
    qToBigEndian(libdeflate_adler32(1, bytes, count), end);
    stream.resize(size_t(end + 4 - stream.data()));
    return stream;
}

size_t literal_stream::sizeOf(const unsigned char *bytes, size_t count)
{
    return bytesOf(blocksOf(bytes, count));
}
