#include "ini_file.h"

#include "ini_text.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>

#include <exception>

namespace {

constexpr int kLockMilliseconds = 5000;

/// Empty for a file that is not there yet; nothing when it must be left alone.
std::optional<QByteArray> contentsOf(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return QByteArray();
    QFile file(path);
    if (!info.isFile() || info.size() > ini::kLargestBytes || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray contents = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return contents;
}

bool replaceContents(const QString &path, const QByteArray &contents)
{
    const bool isNew = !QFileInfo::exists(path);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    if (isNew)
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    return file.write(contents) == contents.size() && file.commit();
}

bool change(const QString &path, const QString &key, const std::optional<QStringList> &value)
{
    if (!QDir().mkpath(QFileInfo(path).path()))
        return false;
    QLockFile lock(path + QStringLiteral(".lock"));
    if (!lock.tryLock(kLockMilliseconds))
        return false;
    const std::optional<QByteArray> old = contentsOf(path);
    if (!old)
        return false;
    const QByteArray changed =
        value ? ini::withValue(*old, key, *value) : ini::withoutKey(*old, key);
    return changed == *old || replaceContents(path, changed);
}

} // namespace

std::optional<QStringList> ini::read(const QString &path, const QString &key)
{
    try {
        const std::optional<QByteArray> contents = contentsOf(path);
        return contents ? find(*contents, key) : std::nullopt;
    } catch (const std::exception &) { // memory is lacking
        return std::nullopt;
    }
}

bool ini::store(const QString &path, const QString &key, const std::optional<QStringList> &value)
{
    try {
        return change(path, key, value);
    } catch (const std::exception &) {
        return false;
    }
}
