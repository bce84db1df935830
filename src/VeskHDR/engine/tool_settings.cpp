#include "tool_settings.h"

#include "ini_file.h"
#include "ini_value.h"

#include <QStandardPaths>

namespace {

QString deviceKey()
{
    return QStringLiteral("OpenCLDevice");
}

QString path()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
           QStringLiteral("/config.ini");
}

/// Several texts are no text.
QString read(const QString &key)
{
    const auto texts = ini::read(path(), key);
    return texts && texts->size() == 1 ? ini::withoutMarks(texts->first()) : QString();
}

} // namespace

QString tool_settings::language()
{
    return read(QStringLiteral("language"));
}

QString tool_settings::openCLDevice()
{
    return read(deviceKey());
}

void tool_settings::setOpenCLDevice(const QString &name)
{
    ini::store(path(), deviceKey(), QStringList(ini::withMarks(name)));
}
