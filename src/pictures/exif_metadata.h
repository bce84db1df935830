#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

#include <memory>

#include <libexif/exif-data.h>

/// The EXIF block that a camera put into a picture file: JPEG, PNG, TIFF and those camera raw
/// files that are TIFF files inside. Blocks are passed without their "Exif" signature, as PNG files
/// hold them. Any thread, reentrant.
namespace exif {

struct UnrefData
{
    void operator()(ExifData *data) const { exif_data_unref(data); }
};
using Data = std::unique_ptr<ExifData, UnrefData>;

/// The block's entries as the camera wrote them; null when the block is empty or memory is lacking.
Data parse(const QByteArray &block);

/// The file's block, or empty when it has none.
QByteArray read(const QString &path);

/// The block for an upright picture of this size that was made from it: orientation 1, these pixel
/// dimensions, no thumbnail and nothing that describes how the old file stored its pixels. Empty
/// when the block is empty or damaged.
QByteArray forMergedPicture(const QByteArray &block, QSize size);

} // namespace exif
