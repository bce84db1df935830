#include "SmallDisk.h"

#include <QProcess>

namespace {

bool run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

} // namespace

SmallDisk::SmallDisk(const QString &options)
    : mounted(run(QStringLiteral("mount"),
                  {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"), options,
                   QStringLiteral("tmpfs"), folder.path()}))
{
}

SmallDisk::~SmallDisk()
{
    if (mounted)
        run(QStringLiteral("umount"), {folder.path()});
}

bool SmallDisk::makeReadOnly()
{
    return mounted && run(QStringLiteral("mount"),
                          {QStringLiteral("-o"), QStringLiteral("remount,ro"), folder.path()});
}
