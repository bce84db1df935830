#include "TestPictures.h"

#include <QDir>
#include <QFile>

#include <algorithm>

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
        QImage exposed = scene;
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x) {
                const QRgb pixel = scene.pixel(x, y);
                const auto expose = [shot](int level) {
                    return std::min(255, (level << shot) / 4);
                };
                exposed.setPixel(
                    x, y, qRgb(expose(qRed(pixel)), expose(qGreen(pixel)), expose(qBlue(pixel))));
            }
        paths.append(path(QStringLiteral("s%1.png").arg(shot + 1)));
        exposed.save(paths.constLast());
    }
    return paths;
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
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            picture.setPixel(x, y,
                             qRgb((x * 7 + seed * 31) % 256, (y * 5 + x * seed) % 256,
                                  (x * y / 8 + seed * 13) % 256));
    return picture;
}
