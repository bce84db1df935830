#include "tiff_file.h"

namespace {

tmsize_t onRead(thandle_t device, void *bytes, tmsize_t length)
{
    return static_cast<QIODevice *>(device)->read(static_cast<char *>(bytes), length);
}

tmsize_t onWrite(thandle_t device, void *bytes, tmsize_t length)
{
    return static_cast<QIODevice *>(device)->write(static_cast<const char *>(bytes), length);
}

toff_t onSeek(thandle_t handle, toff_t offset, int origin)
{
    auto *device = static_cast<QIODevice *>(handle);
    const qint64 start = origin == SEEK_CUR   ? device->pos()
                         : origin == SEEK_END ? device->size()
                                              : 0;
    device->seek(start + static_cast<qint64>(offset));
    return static_cast<toff_t>(device->pos());
}

int onClose(thandle_t)
{
    return 0;
}

toff_t onSize(thandle_t device)
{
    return static_cast<toff_t>(static_cast<QIODevice *>(device)->size());
}

int keepSilent(TIFF *, void *, const char *, const char *, va_list)
{
    return 1;
}

} // namespace

tiff_file::File tiff_file::open(QIODevice &device, const char *mode)
{
    const std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)> options(
        TIFFOpenOptionsAlloc(), &TIFFOpenOptionsFree);
    if (!options)
        return {nullptr, &TIFFClose};
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), &keepSilent, nullptr);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), &keepSilent, nullptr);
    device.seek(0);
    return {TIFFClientOpenExt("picture", mode, &device, &onRead, &onWrite, &onSeek, &onClose,
                              &onSize, nullptr, nullptr, options.get()),
            &TIFFClose};
}
