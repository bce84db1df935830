#include "PhotoFolder.h"

#include "ExposureData.h"
#include "dng_writer.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>

#include <cmath>

namespace {

/// Seconds that light falls in; a shutter has no others.
double exposureSeconds(double bias)
{
    return std::exp2(bias - 6);
}

} // namespace

QByteArray encodedPicture(const char *format, QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::gray);
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    return picture.save(&buffer, format) ? file : QByteArray();
}

QDateTime PhotoFolder::noon()
{
    return {QDate(2026, 6, 21), QTime(12, 0), Qt::UTC};
}

void PhotoFolder::write(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    const bool isWritten = QDir().mkpath(QFileInfo(file.fileName()).path()) &&
                           file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    if (!isWritten)
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

void PhotoFolder::writeShot(const QString &name, double bias, double seconds, QSize size) const
{
    sample::ExposureData exposure;
    exposure.stops = bias;
    exposure.exposureTime = exposureSeconds(bias);
    exposure.takenAt = noon().addMSecs(qRound64(seconds * 1000));
    const char *format = name.endsWith(QLatin1String(".png")) ? "png" : "jpg";
    write(name, sample::withExif(encodedPicture(format, size), sample::exifBlock(exposure, size)));
}

void PhotoFolder::writeRaw(const QString &name, double bias, int second) const
{
    DngRecipe recipe;
    recipe.orientation = 6;
    recipe.takenAt =
        noon().addSecs(second).toString(QStringLiteral("yyyy:MM:dd HH:mm:ss")).toLatin1();
    recipe.exposureBias = bias;
    recipe.exposureSeconds = exposureSeconds(bias);
    write(name, dngFile(recipe));
}
