#include "FileStamp.h"

#include <QDateTime>
#include <QFileInfo>

FileStamp FileStamp::of(const QString &path)
{
    const QFileInfo file(path);
    if (path.isEmpty() || !file.isFile())
        return {};
    return {file.size(), file.lastModified().toMSecsSinceEpoch()};
}
