#pragma once

#include <QDateTime>
#include <QSize>
#include <QTemporaryDir>

/// A grey picture as a file of that format ("jpg", "png"), without metadata.
QByteArray encodedPicture(const char *format, QSize size);

/// A folder with photographs, as cameras write them. Names may hold folders, which are made. What
/// cannot be written ends the test program.
class PhotoFolder
{
public:
    QString path(const QString &name = {}) const { return folder.filePath(name); }

    /// When the first shot is taken; the others say how many seconds later.
    static QDateTime noon();

    void write(const QString &name, const QByteArray &bytes) const;
    /// A JPEG or PNG file, by its suffix, with an exposure bias in stops.
    void writeShot(const QString &name, double bias, double seconds, QSize size = {6, 4}) const;
    /// A raw file, 64 x 48 on the sensor and 48 x 64 upright.
    void writeRaw(const QString &name, double bias, int second) const;

private:
    QTemporaryDir folder;
};
