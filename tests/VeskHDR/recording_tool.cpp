#include "recording_tool.h"

#include "VeskToolHDR.h"

namespace {

void record(const QString &call)
{
    ToolRecord::instance().calls += call;
}

QString text(bool flag)
{
    return flag ? QStringLiteral("true") : QStringLiteral("false");
}

} // namespace

ToolRecord &ToolRecord::instance()
{
    static ToolRecord record;
    return record;
}

VeskToolHDR::VeskToolHDR(QObject *parent)
    : IVeskInsideTool(parent)
{
}

VeskToolHDR::~VeskToolHDR()
{
    qDeleteAll(sources);
}

void VeskToolHDR::disActive()
{
}
void VeskToolHDR::init()
{
}
void VeskToolHDR::release()
{
}
void VeskToolHDR::active(VeskContext *, IVeskUIManager *)
{
}

void VeskToolHDR::setCuda(bool enabled)
{
    record(QStringLiteral("setCuda(%1)").arg(text(enabled)));
}

void VeskToolHDR::setAlignment(bool enabled)
{
    record(QStringLiteral("setAlignment(%1)").arg(text(enabled)));
}

QString VeskToolHDR::getDir() const
{
    return ToolRecord::instance().directory;
}

bool VeskToolHDR::addFile(const QString &path)
{
    static const QImage plain(8, 8, QImage::Format_RGB32);
    sources.insert(path, new QImage(ToolRecord::instance().files.value(path, plain)));
    return true;
}

bool VeskToolHDR::addFiles(const QList<QString> &paths)
{
    record(QStringLiteral("addFiles(%1)").arg(QStringList(paths).join(QLatin1Char(','))));
    return true;
}

void VeskToolHDR::removeFile(const QString &path)
{
    record(QStringLiteral("removeFile(%1)").arg(path));
    delete sources.take(path);
}

void VeskToolHDR::clear()
{
    record(QStringLiteral("clear()"));
    if (ToolRecord::instance().whileClearing)
        ToolRecord::instance().whileClearing();
    qDeleteAll(sources);
    sources.clear();
}

QList<QString> VeskToolHDR::fileList() const
{
    return sources.keys();
}

const QMap<QString, QImage *> &VeskToolHDR::sourcePictures() const
{
    return sources;
}

void VeskToolHDR::apply()
{
    record(QStringLiteral("apply()"));
    if (ToolRecord::instance().whileApplying) {
        ToolRecord::instance().whileApplying();
    }
}
