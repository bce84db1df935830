#include "exif_metadata.h"

#include <QFile>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <libexif/exif-loader.h>

namespace {

constexpr char kSignature[] = "Exif\0"; // and the literal's own zero byte
constexpr int kSignatureBytes = sizeof kSignature;
/// What fits into the one segment that JPEG files have for it.
constexpr int kLargestBlock = 65533 - kSignatureBytes;

struct UnrefLoader
{
    void operator()(ExifLoader *loader) const { exif_loader_unref(loader); }
};

bool isTiff(const QByteArray &start)
{
    return start.startsWith(QByteArray("II*\0", 4)) || start.startsWith(QByteArray("MM\0*", 4));
}

QByteArray readFromJpeg(const QString &path)
{
    const std::unique_ptr<ExifLoader, UnrefLoader> loader(exif_loader_new());
    if (!loader)
        return {};
    exif_loader_write_file(loader.get(), QFile::encodeName(path).constData());
    const unsigned char *bytes = nullptr;
    unsigned length = 0;
    exif_loader_get_buf(loader.get(), &bytes, &length);
    const QByteArray block(reinterpret_cast<const char *>(bytes), static_cast<int>(length));
    return block.startsWith(QByteArray(kSignature, kSignatureBytes)) ? block.mid(kSignatureBytes)
                                                                     : QByteArray();
}

quint32 bigEndian(const QByteArray &bytes)
{
    return bytes.size() < 4 ? 0
                            : quint32(uchar(bytes[0])) << 24 | quint32(uchar(bytes[1])) << 16 |
                                  quint32(uchar(bytes[2])) << 8 | quint32(uchar(bytes[3]));
}

/// Chunks are: length, name, that many bytes, checksum.
QByteArray readFromPng(QFile &file)
{
    constexpr qint64 kFileSignatureBytes = 8;
    constexpr qint64 kChecksumBytes = 4;
    file.seek(kFileSignatureBytes);
    while (true) {
        const QByteArray head = file.read(8);
        const qint64 length = bigEndian(head);
        if (head.size() < 8 || length > file.size() - file.pos())
            return {};
        if (head.endsWith("eXIf"))
            return file.read(length);
        file.seek(file.pos() + length + kChecksumBytes);
    }
}

/// An EXIF block has the layout of a TIFF file, so such a file is one itself.
QByteArray readFromTiff(QFile &file)
{
    constexpr qint64 kLargest = 1LL << 30;
    file.seek(0);
    return file.size() <= kLargest ? file.readAll() : QByteArray();
}

bool isEmpty(const ExifData &data)
{
    for (const ExifContent *content : data.ifd) {
        if (content->count > 0)
            return false;
    }
    return true;
}

void remove(ExifContent *content, ExifTag tag)
{
    // A damaged block can hold a tag more than once.
    while (ExifEntry *entry = exif_content_get_entry(content, tag))
        exif_content_remove_entry(content, entry);
}

/// What TIFF files say about their own storage, and the tags of other directories in them.
bool describesStorage(int tag)
{
    constexpr int kOrientation = 0x112;
    constexpr int kSamplesPerPixel = 0x115;
    constexpr int kRowsPerStrip = 0x116;
    constexpr int kStripByteCounts = 0x117;
    constexpr int kImageDescription = 0x10E;
    constexpr int kMake = 0x10F;
    constexpr int kModel = 0x110;
    if (tag == kImageDescription || tag == kMake || tag == kModel || tag == kOrientation)
        return false;
    const bool isLayout = tag >= 0xFE && tag <= 0x111;
    const bool isStrips =
        tag == kSamplesPerPixel || tag == kRowsPerStrip || tag == kStripByteCounts;
    const bool isPlanarOrPage = tag == 0x11C || tag == 0x11D || tag == 0x129;
    const bool isCodingOrTiles = tag == 0x13D || (tag >= 0x140 && tag <= 0x15B);
    const bool isJpegInside = tag >= 0x200 && tag <= 0x209;
    const bool isColourCoding = tag >= 0x211 && tag <= 0x214;
    const bool isPrivate = tag == 0x2BC || tag == 0x8290 || tag == 0x83BB || tag == 0x8649 ||
                           tag == 0x8773 || tag == 0x9C9B || tag >= 0xC000;
    return isLayout || isStrips || isPlanarOrPage || isCodingOrTiles || isJpegInside ||
           isColourCoding || isPrivate;
}

void removeStorageTags(ExifContent *content)
{
    for (unsigned i = content->count; i-- > 0;) {
        ExifEntry *entry = content->entries[i];
        if (describesStorage(entry->tag))
            exif_content_remove_entry(content, entry);
    }
}

void removeThumbnail(ExifData &data)
{
    ExifContent *content = data.ifd[EXIF_IFD_1];
    while (content->count > 0)
        exif_content_remove_entry(content, content->entries[content->count - 1]);
    data.size = 0; // the bytes stay with data, which frees them
}

ExifEntry *newEntry(ExifContent *content, ExifTag tag)
{
    remove(content, tag);
    ExifEntry *entry = exif_entry_new();
    if (!entry)
        return nullptr;
    exif_content_add_entry(content, entry);
    exif_entry_initialize(entry, tag);
    const bool isUsable = entry->parent == content && entry->data;
    exif_entry_unref(entry); // the content's from now on, if it took it
    return isUsable ? entry : nullptr;
}

void setShort(ExifContent *content, ExifTag tag, int value, ExifByteOrder order)
{
    if (ExifEntry *entry = newEntry(content, tag))
        exif_set_short(entry->data, order, static_cast<ExifShort>(value));
}

void setLong(ExifContent *content, ExifTag tag, int value, ExifByteOrder order)
{
    if (ExifEntry *entry = newEntry(content, tag))
        exif_set_long(entry->data, order, static_cast<ExifLong>(value));
}

void adapt(ExifData &data, QSize size)
{
    const ExifByteOrder order = exif_data_get_byte_order(&data);
    ExifContent *picture = data.ifd[EXIF_IFD_0];
    ExifContent *exposure = data.ifd[EXIF_IFD_EXIF];
    removeThumbnail(data);
    removeStorageTags(picture);
    // Places in the old picture's stored pixels mean others in the new one.
    remove(exposure, EXIF_TAG_SUBJECT_AREA);
    remove(exposure, EXIF_TAG_SUBJECT_LOCATION);
    setShort(picture, EXIF_TAG_ORIENTATION, 1, order);
    setLong(exposure, EXIF_TAG_PIXEL_X_DIMENSION, size.width(), order);
    setLong(exposure, EXIF_TAG_PIXEL_Y_DIMENSION, size.height(), order);
}

QByteArray serialise(ExifData &data)
{
    unsigned char *bytes = nullptr;
    unsigned length = 0;
    exif_data_save_data(&data, &bytes, &length);
    const std::unique_ptr<unsigned char, decltype(&std::free)> owner(bytes, &std::free);
    return QByteArray(reinterpret_cast<const char *>(bytes), static_cast<int>(length))
        .mid(kSignatureBytes);
}

} // namespace

exif::Data exif::parse(const QByteArray &block)
{
    if (block.isEmpty())
        return nullptr;
    const QByteArray bytes = QByteArray(kSignature, kSignatureBytes) + block;
    Data data(exif_data_new());
    if (!data)
        return data;
    // Keep everything as the camera wrote it.
    exif_data_unset_option(data.get(), EXIF_DATA_OPTION_IGNORE_UNKNOWN_TAGS);
    exif_data_unset_option(data.get(), EXIF_DATA_OPTION_FOLLOW_SPECIFICATION);
    exif_data_load_data(data.get(), reinterpret_cast<const unsigned char *>(bytes.constData()),
                        static_cast<unsigned>(bytes.size()));
    return data;
}

QByteArray exif::read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray start = file.read(8);
    if (start.startsWith("\xFF\xD8"))
        return readFromJpeg(path);
    if (start.startsWith("\x89PNG"))
        return readFromPng(file);
    return isTiff(start) ? readFromTiff(file) : QByteArray();
}

QByteArray exif::forMergedPicture(const QByteArray &block, QSize size)
{
    const Data data = parse(block);
    if (!data || isEmpty(*data))
        return {};
    adapt(*data, size);
    QByteArray adapted = serialise(*data);
    if (adapted.size() > kLargestBlock) {
        remove(data->ifd[EXIF_IFD_EXIF], EXIF_TAG_MAKER_NOTE);
        adapted = serialise(*data);
    }
    return adapted.size() > kLargestBlock ? QByteArray() : adapted;
}
