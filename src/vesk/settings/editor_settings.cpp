#include "editor_settings.h"

#include <VeskGlobalSettings.h>

#include <QDir>
#include <QStandardPaths>
#include <QVariant>

#include <algorithm>

namespace {

constexpr int kDefaultQuality = 95;
constexpr int kLongestRecoverySeconds = 20; // the rest of half a minute is for the writing

const QLatin1String kQuality("editor/jpegQuality");
const QLatin1String kScreenProfile("editor/screenProfile");
const QLatin1String kFolder("editor/folder");
const QLatin1String kFilmStripOrder("editor/filmStripOrder");
const QLatin1String kResultsHidden("editor/hideResults");
const QLatin1String kBatchMethod("editor/batchMethod");
const QLatin1String kBatchOptions("editor/batchOptions");
const QLatin1String kBatchBrackets("editor/batchBrackets");
const QLatin1String kRecent("editor/recentFiles");
const QLatin1String kTheme("editor/theme");
const QLatin1String kSession("editor/session");
const QLatin1String kRecoverySeconds("editor/recoverySeconds");
const QLatin1String kGeometry("editor/geometry");
const QLatin1String kLayout("editor/layout");

QVariant value(const QString &key)
{
    return VeskGlobalSettings::getInstance()->value(key);
}

void setValue(const QString &key, const QVariant &value)
{
    VeskGlobalSettings::getInstance()->setValue(key, value);
}

QString defaultFolder()
{
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QDir(pictures).exists() ? pictures : QDir::homePath();
}

} // namespace

int settings::jpegQuality()
{
    bool isNumber = false;
    const int quality = value(kQuality).toInt(&isNumber);
    return isNumber ? std::clamp(quality, 1, 100) : kDefaultQuality;
}

void settings::setJpegQuality(int quality)
{
    setValue(kQuality, quality);
}

QString settings::screenProfile()
{
    return value(kScreenProfile).toString();
}

void settings::setScreenProfile(const QString &path)
{
    setValue(kScreenProfile, path.isEmpty() ? QVariant() : path);
}

QString settings::folder()
{
    const QString last = value(kFolder).toString();
    return !last.isEmpty() && QDir(last).exists() ? last : defaultFolder();
}

void settings::setFolder(const QString &path)
{
    setValue(kFolder, path);
}

int settings::filmStripOrder()
{
    return value(kFilmStripOrder).toInt();
}

void settings::setFilmStripOrder(int key)
{
    setValue(kFilmStripOrder, key);
}

bool settings::areResultsHidden()
{
    return value(kResultsHidden).toBool();
}

void settings::setResultsHidden(bool areHidden)
{
    setValue(kResultsHidden, areHidden);
}

QString settings::batchMethod()
{
    return value(kBatchMethod).toString();
}

QString settings::batchOptions()
{
    return value(kBatchOptions).toString();
}

void settings::setBatch(const QString &method, const QString &options)
{
    setValue(kBatchMethod, method);
    setValue(kBatchOptions, options);
}

QStringList settings::batchBrackets()
{
    return value(kBatchBrackets).toStringList();
}

void settings::setBatchBrackets(const QStringList &texts)
{
    if (texts != batchBrackets())
        setValue(kBatchBrackets, texts.isEmpty() ? QVariant() : texts);
}

QStringList settings::recentFiles()
{
    return value(kRecent).toStringList();
}

void settings::setRecentFiles(const QStringList &paths)
{
    setValue(kRecent, paths);
}

QString settings::theme()
{
    return value(kTheme).toString();
}

void settings::setTheme(const QString &name)
{
    setValue(kTheme, name.isEmpty() ? QVariant() : name);
}

QStringList settings::session()
{
    return value(kSession).toStringList();
}

void settings::setSession(const QStringList &paths)
{
    if (paths != session())
        setValue(kSession, paths);
}

int settings::recoverySeconds()
{
    bool isNumber = false;
    const int seconds = value(kRecoverySeconds).toInt(&isNumber);
    return isNumber ? std::clamp(seconds, 1, kLongestRecoverySeconds) : kLongestRecoverySeconds;
}

QByteArray settings::windowGeometry()
{
    return value(kGeometry).toByteArray();
}

QByteArray settings::windowLayout()
{
    return value(kLayout).toByteArray();
}

void settings::setWindow(const QByteArray &geometry, const QByteArray &layout)
{
    setValue(kGeometry, geometry);
    setValue(kLayout, layout);
}
