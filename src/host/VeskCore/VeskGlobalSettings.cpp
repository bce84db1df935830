#include "VeskGlobalSettings.h"

#include "VeskSettingsFile.h"

#include <VeskRaw.h>

#include <QPointer>
#include <QStandardPaths>

namespace {

QString histogramKey()
{
    return QStringLiteral("histogramVisible");
}

QString languageKey()
{
    return QStringLiteral("language");
}

} // namespace

VeskGlobalSettings::VeskGlobalSettings(QObject *parent)
    : QObject(parent)
{
}

VeskGlobalSettings *VeskGlobalSettings::getInstance(QObject *parent)
{
    static QPointer<VeskGlobalSettings> instance;
    if (!instance)
        instance = new VeskGlobalSettings(parent);
    return instance;
}

QString VeskGlobalSettings::configFilePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
           QStringLiteral("/config.ini");
}

bool VeskGlobalSettings::isHistogramVisible() const
{
    return value(histogramKey(), true).toBool();
}

void VeskGlobalSettings::setHistogramVisible(bool visible)
{
    if (isHistogramVisible() == visible)
        return;
    setValue(histogramKey(), visible);
    Q_EMIT histogramVisibleChanged(visible);
}

QString VeskGlobalSettings::language() const
{
    return value(languageKey()).toString();
}

void VeskGlobalSettings::setLanguage(const QString &localeName)
{
    setValue(languageKey(), localeName);
}

qint64 VeskGlobalSettings::pixelLimit()
{
    constexpr qint64 kMegapixel = 1000 * 1000;
    const int megapixels = VeskSettingsFile::value(QStringLiteral("maxMegapixels")).toInt();
    return megapixels > 0 ? kMegapixel * megapixels : VeskRaw::kDefaultPixelLimit;
}

QVariant VeskGlobalSettings::value(const QString &key, const QVariant &defaultValue) const
{
    return VeskSettingsFile::value(key, defaultValue);
}

void VeskGlobalSettings::setValue(const QString &key, const QVariant &value)
{
    VeskSettingsFile::setValue(key, value);
}
