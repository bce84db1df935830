#include "card_files.h"

#include "ExifTags.h"
#include "jpeg_encoder.h"

#include <QFile>
#include <QFileInfo>

#include <cmath>

namespace {

constexpr QSize kSize(96, 64);
constexpr int kCell = 8;

/// Light of a scene: smooth hills between points by chance, 0 to 1.
QImage pictureOf(int scene, double stops)
{
    QRandomGenerator random(quint32(scene) * 7919 + 1);
    QImage hills(kSize / kCell, QImage::Format_Grayscale8);
    for (int y = 0; y < hills.height(); ++y) {
        for (int x = 0; x < hills.width(); ++x)
            hills.scanLine(y)[x] = uchar(random.bounded(30, 220));
    }
    QImage picture = hills.scaled(kSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                         .convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const int level = qBound(0, int(qRed(row[x]) * std::exp2(stops / 4)), 255);
            row[x] = qRgb(level, level, level);
        }
    }
    return picture;
}

ExifTags tagsOf(const Shot &shot)
{
    using Directory = ExifTags::Directory;
    ExifTags tags;
    tags.setText(Directory::Picture, ExifTags::Model, shot.model.toLatin1());
    tags.setShort(Directory::Picture, ExifTags::Orientation, quint16(shot.orientation));
    tags.setText(Directory::Exposure, ExifTags::DateTimeOriginal,
                 shot.takenAt.toString("yyyy:MM:dd HH:mm:ss").toLatin1());
    tags.setText(Directory::Exposure, ExifTags::SubSecondsOriginal,
                 shot.takenAt.toString("zzz").toLatin1());
    tags.setText(Directory::Exposure, ExifTags::LensModel, shot.lens.toLatin1());
    tags.setFraction(Directory::Exposure, ExifTags::ExposureTime,
                     quint32(std::lround(shot.exposureSeconds * 1000000)), 1000000);
    tags.setFraction(Directory::Exposure, ExifTags::FNumber, quint32(shot.fNumber * 10), 10);
    tags.setFraction(Directory::Exposure, ExifTags::FocalLength, quint32(shot.focalLength), 1);
    tags.setShort(Directory::Exposure, ExifTags::Sensitivity, quint16(shot.iso));
    tags.setSignedFraction(Directory::Exposure, ExifTags::ExposureBias,
                           qint32(std::lround(shot.exposureBias.value_or(0) * 100)), 100);
    if (shot.mode != Shot::Exposure::Unknown)
        tags.setShort(Directory::Exposure, ExifTags::ExposureMode,
                      quint16(int(shot.mode) - int(Shot::Exposure::Automatic)));
    return tags;
}

} // namespace

bool card_files::write(const ShotCard &card, const QString &folder)
{
    for (const Shot &shot : card.shots) {
        QFile file(folder + u'/' + QFileInfo(shot.path).fileName());
        PictureMetadata metadata;
        metadata.exif = tagsOf(shot);
        const double stops = std::log2(shot.exposureSeconds / 0.004);
        const QImage picture = pictureOf(card.sceneAt(shot.path), stops);
        if (!file.open(QIODevice::ReadWrite | QIODevice::Truncate) ||
            !jpeg_file::encode(picture, metadata, 90, file, {}).isEmpty())
            return false;
    }
    return true;
}
