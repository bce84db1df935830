#pragma once

#include "veskcore_export.h"

#include <QObject>
#include <QString>
#include <QVariant>

/// The editor's settings, kept in the INI file that the tools share. Every read sees what was last
/// written by anybody in the process; every write is on its way to the file at once. A missing or
/// damaged file reads as defaults; see VeskSettingsFile. GUI thread, except configFilePath.
///
/// A tool calls getInstance and isHistogramVisible; it reads its own keys from the file itself.
class VESKCORE_EXPORT VeskGlobalSettings : public QObject
{
    Q_OBJECT

public:
    /// The one instance, created on first call as a child of parent (null: kept for the life of
    /// the process). Created anew after its parent has taken it along.
    static VeskGlobalSettings *getInstance(QObject *parent = nullptr);

    /// "/config.ini" below the application's local data location; any thread. The folder may not
    /// exist yet.
    static QString configFilePath();

    /// Whether the histogram is shown; true by default.
    bool isHistogramVisible() const;
    void setHistogramVisible(bool visible);

    /// Locale name such as "de_DE"; empty for English.
    QString language() const;
    /// Read by the tools and the editor at their next start.
    void setLanguage(const QString &localeName);

    /// Pixels that a picture may have to be opened: the key "maxMegapixels" times a million, by
    /// default VeskRaw::kDefaultPixelLimit. Any thread.
    static qint64 pixelLimit();

    /// Any other key, in the notation of QSettings, with a value that VeskSettingsFile takes.
    QVariant value(const QString &key, const QVariant &defaultValue = {}) const;
    /// An invalid value removes the key.
    void setValue(const QString &key, const QVariant &value);

Q_SIGNALS:
    void histogramVisibleChanged(bool visible);

private:
    explicit VeskGlobalSettings(QObject *parent);
};
