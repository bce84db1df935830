#include "ShotCache.h"

#include "file_names.h"

#include <QFileInfo>

namespace {

QString stampOf(const QString &path)
{
    const file_names::ReadablePath readable(path);
    const QFileInfo file(readable.path());
    return QStringLiteral("%1@%2").arg(file.size()).arg(file.lastModified().toMSecsSinceEpoch());
}

} // namespace

std::optional<ShotReading> ShotCache::find(const QString &path) const
{
    const auto known = files.constFind(path);
    if (known == files.cend() || known->stamp != stampOf(path))
        return std::nullopt;
    return known->reading;
}

void ShotCache::insert(const QString &path, const ShotReading &reading)
{
    files.insert(path, {stampOf(path), reading});
}
