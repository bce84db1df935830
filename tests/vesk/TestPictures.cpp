#include "TestPictures.h"

#include <ExposureData.h>
#include <metadata_reader.h>
#include <picture_writer.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>

QString TestPictures::path(const QString &name) const
{
    return directory.filePath(name);
}

QString TestPictures::add(const QString &name, QSize size, int seed) const
{
    const bool isWritten = texture(size, seed).save(path(name));
    return isWritten ? path(name) : QString();
}

QStringList TestPictures::addBracket(int count, QSize size) const
{
    const QImage scene = texture(size, 7);
    QStringList paths;
    for (int shot = 0; shot < count; ++shot) {
        paths.append(path(QStringLiteral("s%1.png").arg(shot + 1)));
        exposed(scene, shot).save(paths.constLast());
    }
    return paths;
}

QStringList TestPictures::addCameraBracket(const QString &prefix, int count, int minute,
                                           QSize size) const
{
    const QImage scene = texture(size, 7);
    sample::ExposureData data;
    data.takenAt = QDateTime(QDate(2024, 5, 4), QTime(10, minute), Qt::UTC);
    QStringList paths;
    for (int shot = 0; shot < count; ++shot) {
        data.stops = shot - count / 2;
        data.exposureTime = std::exp2(data.stops) / 100;
        data.takenAt = data.takenAt.addSecs(1);
        QBuffer jpeg;
        jpeg.open(QIODevice::WriteOnly);
        exposed(scene, shot).save(&jpeg, "jpg", 95);
        QFile file(path(QStringLiteral("%1%2.jpg").arg(prefix).arg(shot + 1)));
        if (file.open(QIODevice::WriteOnly))
            file.write(sample::withExif(jpeg.data(), sample::exifBlock(data, size)));
        paths.append(file.fileName());
    }
    return paths;
}

QString TestPictures::addResult(const QString &name, const QStringList &sources) const
{
    WriteOptions options;
    options.metadata = metadata::read(sources.value(0));
    options.mark =
        ResultMark{QStringLiteral("vesk"), QStringLiteral("1"), {}, QStringLiteral("fusion"), {}};
    for (const QString &source : sources)
        options.mark->sources += QFileInfo(source).fileName();
    picture::write(texture({60, 40}, 3), path(name), PictureFormat::Jpeg, options);
    return path(name);
}

/// Twice as bright with every shot.
QImage TestPictures::exposed(const QImage &scene, int shot)
{
    QImage picture = scene;
    const auto expose = [shot](int level) { return std::min(255, (level << shot) / 4); };
    for (int y = 0; y < scene.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < scene.width(); ++x)
            row[x] = qRgb(expose(qRed(row[x])), expose(qGreen(row[x])), expose(qBlue(row[x])));
    }
    return picture;
}

QString TestPictures::addDamaged(const QString &name) const
{
    QFile file(add(name, {200, 150}, 5));
    if (!file.open(QIODevice::ReadWrite) || !file.resize(file.size() / 2))
        return {};
    return file.fileName();
}

QStringList TestPictures::names() const
{
    return QDir(folder()).entryList(QDir::Files | QDir::Hidden);
}

QImage TestPictures::texture(QSize size, int seed)
{
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            row[x] = qRgb((x * 7 + seed * 31) % 256, (y * 5 + x * seed) % 256,
                          (x * y / 8 + seed * 13) % 256);
    }
    return picture;
}
