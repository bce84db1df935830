#pragma once

#include <cstddef>
#include <vector>

/// Compression for what hardly repeats, such as the lower bytes of deep pictures: a zlib stream
/// (RFC 1950, RFC 1951) of single bytes, each with a code as long as its share asks for (D.
/// Huffman, "A Method for the Construction of Minimum-Redundancy Codes", 1952). It looks for no
/// repetition, which takes most of the time elsewhere. Any thread, reentrant.
namespace literal_stream {

using Bytes = std::vector<unsigned char>;

/// May throw std::bad_alloc.
Bytes compressed(const unsigned char *bytes, size_t count);

/// How many bytes compressed() makes of them, but for some hundreds: a few times faster than it.
size_t sizeOf(const unsigned char *bytes, size_t count);

} // namespace literal_stream
