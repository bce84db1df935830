#pragma once

#include <QImage>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A folder with pictures for one test.
class TestPictures
{
public:
    QString path(const QString &name) const;
    /// Writes a picture, in the format of the name's suffix, whose texture depends on seed.
    QString add(const QString &name, QSize size = {48, 32}, int seed = 1) const;
    /// s1.png, s2.png, ...: one scene, each twice as bright as the one before.
    QStringList addBracket(int count, QSize size = {160, 120}) const;
    /// PREFIX1.jpg, ...: the same as a camera's own bracket, a second apart, from that many minutes
    /// after ten o'clock on.
    QStringList addCameraBracket(const QString &prefix, int count, int minute = 0,
                                 QSize size = {160, 120}) const;
    /// A picture that was merged from these, with the metadata of the first one.
    QString addResult(const QString &name, const QStringList &sources) const;
    /// The first half of a picture file.
    QString addDamaged(const QString &name) const;
    QStringList names() const;
    QString folder() const { return directory.path(); }

    static QImage exposed(const QImage &scene, int shot);
    static QImage texture(QSize size, int seed);

private:
    QTemporaryDir directory;
};
