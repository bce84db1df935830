#include "VeskSettingsFile.h"

#include "VeskGlobalSettings.h"

#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QRegularExpression>
#include <QSettings>

#include <exception>

namespace {

Q_LOGGING_CATEGORY(lcSettings, "vesk.host")

enum class State { Usable, Damaged, NoFile };

/// In the place of a value, or of one in a list of values.
bool holdsSerialisedObject(const QByteArray &text)
{
    static const QRegularExpression object(QStringLiteral(
        R"((?:^|\n)[^=\n]*=(?:[^\n]*,)?[ \t"]*(?:@|\\x0*40)(?:Variant|DateTime)\()"));
    return QString::fromLatin1(text).contains(object);
}

State stateOf(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return State::Usable;
    if (!info.isFile())
        return State::NoFile;
    if (info.size() > VeskSettingsFile::kLargestBytes)
        return State::Damaged;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && holdsSerialisedObject(file.readAll()) ? State::Damaged
                                                                                   : State::Usable;
}

bool putAside(const QString &path)
{
    const QString aside = path + QStringLiteral(".damaged");
    QFile::remove(aside);
    const bool isAside = QFile::rename(path, aside);
    qCWarning(lcSettings).noquote()
        << path << "is damaged" << (isAside ? "and renamed" : "and cannot be renamed");
    return isAside;
}

/// False when the file must be left alone.
bool makeUsable(const QString &path)
{
    const State state = stateOf(path);
    return state == State::Usable || (state == State::Damaged && putAside(path));
}

bool write(const QString &path, const QString &key, const QVariant &value)
{
    QSettings settings(path, QSettings::IniFormat);
    if (value.isValid())
        settings.setValue(key, value);
    else
        settings.remove(key);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

} // namespace

QVariant VeskSettingsFile::value(const QString &key, const QVariant &defaultValue)
{
    const QString path = VeskGlobalSettings::configFilePath();
    if (!makeUsable(path))
        return defaultValue;
    try {
        // Opened anew each time: QSettings shares the parsed file within the process, and the path
        // follows the application's name.
        return QSettings(path, QSettings::IniFormat).value(key, defaultValue);
    } catch (const std::exception &) { // memory is lacking
        putAside(path);
        return defaultValue;
    }
}

bool VeskSettingsFile::setValue(const QString &key, const QVariant &value)
{
    const QString path = VeskGlobalSettings::configFilePath();
    bool isWritten = false;
    try {
        isWritten = makeUsable(path) && write(path, key, value);
    } catch (const std::exception &) {
        isWritten = putAside(path) && write(path, key, value);
    }
    if (!isWritten)
        qCWarning(lcSettings).noquote() << "cannot write" << path;
    return isWritten;
}
