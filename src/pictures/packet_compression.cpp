#include "packet_compression.h"

#include <memory>

#include <libdeflate.h>

QByteArray packet_compression::inflate(const QByteArray &stream)
{
    constexpr qsizetype kLargestPacket = 4 << 20;
    const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)>
        decompressor(libdeflate_alloc_decompressor(), &libdeflate_free_decompressor);
    QByteArray bytes(kLargestPacket, Qt::Uninitialized);
    size_t length = 0;
    if (!decompressor || libdeflate_zlib_decompress(
                             decompressor.get(), stream.constData(), size_t(stream.size()),
                             bytes.data(), size_t(bytes.size()), &length) != LIBDEFLATE_SUCCESS)
        return {};
    bytes.truncate(qsizetype(length));
    bytes.squeeze();
    return bytes;
}
