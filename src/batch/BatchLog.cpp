#include "BatchLog.h"

#include "file_names.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool writeAll(int descriptor, const QByteArray &bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count =
            ::write(descriptor, bytes.constData() + written, size_t(bytes.size() - written));
        if (count <= 0)
            return false;
        written += count;
    }
    return true;
}

/// A line that was cut off must not swallow the next one.
bool endsWithinLine(int descriptor)
{
    struct stat info = {};
    char last = '\n';
    return ::fstat(descriptor, &info) == 0 && info.st_size > 0 &&
           ::pread(descriptor, &last, 1, info.st_size - 1) == 1 && last != '\n';
}

} // namespace

BatchLog::BatchLog(const QString &path)
    : file(path)
{
}

QString BatchLog::pathIn(const QString &folder)
{
    return folder + QStringLiteral("/veskhdr-batch.jsonl");
}

QHash<QString, QJsonObject> BatchLog::read() const
{
    QHash<QString, QJsonObject> records;
    const file_names::ReadablePath readable(file);
    QFile lines(readable.path());
    if (!lines.open(QIODevice::ReadOnly))
        return records;
    while (!lines.atEnd()) {
        const QJsonObject object = QJsonDocument::fromJson(lines.readLine()).object();
        const QString output = object.value(QLatin1String("output")).toString();
        if (!output.isEmpty())
            records.insert(QFileInfo(output).fileName(), object);
    }
    return records;
}

bool BatchLog::append(const QJsonObject &object) const
{
    constexpr mode_t kAsTheUserWants = 0666;
    const int descriptor = ::open(file_names::toBytes(file).constData(),
                                  O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, kAsTheUserWants);
    if (descriptor < 0)
        return false;
    ::flock(descriptor, LOCK_EX); // where there are no locks, lines are short enough
    QByteArray line = QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
    if (endsWithinLine(descriptor))
        line.prepend('\n');
    const bool isWritten = writeAll(descriptor, line) && ::fsync(descriptor) == 0;
    ::close(descriptor);
    return isWritten;
}
