#include "VeskLog.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QStandardPaths>

#include <cstdarg>
#include <cstdio>

namespace {

Q_LOGGING_CATEGORY(lcHost, "vesk.host")

/// Empty when the format is not one that printf takes.
QByteArray formatted(const char *format, va_list arguments)
{
    va_list measured;
    va_copy(measured, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, measured);
    va_end(measured);
    if (length <= 0)
        return {};
    QByteArray text(length, Qt::Uninitialized); // has room for the final NUL
    std::vsnprintf(text.data(), static_cast<std::size_t>(length) + 1, format, arguments);
    return text;
}

QString numbered(const QString &path, int number)
{
    return number == 0 ? path : path + QLatin1Char('.') + QString::number(number);
}

void rotate(const QString &path)
{
    QFile::remove(numbered(path, VeskLog::kKeptFiles));
    for (int number = VeskLog::kKeptFiles; number > 0; --number)
        QFile::rename(numbered(path, number - 1), numbered(path, number));
}

} // namespace

VeskLog *VeskLog::Instance()
{
    static VeskLog *const log = new VeskLog;
    return log;
}

void VeskLog::Log(const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const QByteArray text = formatted(format, arguments);
    va_end(arguments);

    qCInfo(lcHost).noquote() << QString::fromUtf8(text).trimmed();
    QByteArray entry =
        QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs).toLatin1() + ' ' + text;
    if (!entry.endsWith('\n'))
        entry += '\n';
    write(entry);
}

QString VeskLog::filePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
           QStringLiteral("/vesk.log");
}

void VeskLog::write(const QByteArray &entry)
{
    const QMutexLocker locker(&mutex);
    const QString path = filePath();
    const QFileInfo info(path);
    QDir().mkpath(info.path());
    if (info.size() > 0 && info.size() + entry.size() > kMaximumFileSize)
        rotate(path);
    // Opened for each entry: another process of the editor may rotate the same file.
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        return;
    const qint64 written = file.write(entry);
    if (written > 0 && written < entry.size()) // a full disk: no half entry for the next to join
        file.resize(file.size() - written);
}
