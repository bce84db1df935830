#include "picture_kinds.h"

#include <PictureFormat.h>
#include <VeskRawType.h>

#include <QFileInfo>
#include <QImageReader>

namespace {

QStringList allSuffixes()
{
    QStringList all = VeskRawType::suffixes() + picture::ownSuffixes();
    const QList<QByteArray> formats = QImageReader::supportedImageFormats();
    for (const QByteArray &format : formats)
        all.append(QString::fromLatin1(format).toLower());
    all.removeAll(QStringLiteral("pdf")); // read by a plugin on some systems, yet no photograph
    all.removeDuplicates();
    all.sort();
    return all;
}

} // namespace

const QStringList &pictures::suffixes()
{
    static const QStringList all = allSuffixes();
    return all;
}

bool pictures::hasPictureSuffix(const QString &path)
{
    return suffixes().contains(QFileInfo(path).suffix().toLower());
}

QString pictures::dialogPatterns()
{
    QStringList patterns;
    for (const QString &suffix : suffixes())
        patterns << QStringLiteral("*.") + suffix << QStringLiteral("*.") + suffix.toUpper();
    return patterns.join(QLatin1Char(' '));
}
