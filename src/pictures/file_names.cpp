#include "file_names.h"

#include <QStringDecoder>

#include <algorithm>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr char16_t kFirstByte = 0xDC00; // a byte b becomes U+DC00 + b
constexpr qsizetype kLongestCharacter = 4;

bool isByte(QChar c)
{
    return c.unicode() >= kFirstByte + 0x80 && c.unicode() <= kFirstByte + 0xFF;
}

bool isPlain(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    return !decoder.hasError() && text.toUtf8() == bytes;
}

/// Length of the UTF-8 character that begins there; 0 when none does.
qsizetype characterAt(const QByteArray &bytes, qsizetype at)
{
    const qsizetype longest = std::min(kLongestCharacter, bytes.size() - at);
    for (qsizetype length = 1; length <= longest; ++length) {
        if (isPlain(bytes.mid(at, length)))
            return length;
    }
    return 0;
}

/// A lone surrogate; those of a pair stand for one character together.
bool hasBytes(const QString &name)
{
    for (qsizetype i = 0; i < name.size(); ++i) {
        const bool isPair =
            name[i].isHighSurrogate() && i + 1 < name.size() && name[i + 1].isLowSurrogate();
        if (isPair)
            ++i;
        else if (isByte(name[i]))
            return true;
    }
    return false;
}

} // namespace

QString file_names::fromBytes(const QByteArray &name)
{
    if (isPlain(name))
        return QString::fromUtf8(name);
    QString text;
    for (qsizetype at = 0; at < name.size();) {
        const qsizetype length = characterAt(name, at);
        if (length > 0)
            text += QString::fromUtf8(name.mid(at, length));
        else
            text += QChar(char16_t(kFirstByte + uchar(name[at])));
        at += std::max(length, qsizetype(1));
    }
    return text;
}

QByteArray file_names::toBytes(const QString &name)
{
    if (!hasBytes(name))
        return name.toUtf8();
    QByteArray bytes;
    for (qsizetype i = 0; i < name.size(); ++i) {
        const bool isPair =
            name[i].isHighSurrogate() && i + 1 < name.size() && name[i + 1].isLowSurrogate();
        if (isPair)
            bytes += name.mid(i++, 2).toUtf8();
        else if (isByte(name[i]))
            bytes += char(name[i].unicode() - kFirstByte);
        else
            bytes += QString(name[i]).toUtf8();
    }
    return bytes;
}

QStringList file_names::entriesOf(const QString &folder)
{
    const std::unique_ptr<DIR, int (*)(DIR *)> directory(::opendir(toBytes(folder).constData()),
                                                         &::closedir);
    QStringList names;
    while (const dirent *entry = directory ? ::readdir(directory.get()) : nullptr) {
        const QByteArray name = entry->d_name;
        if (name != "." && name != "..")
            names += fromBytes(name);
    }
    return names;
}

file_names::ReadablePath::ReadablePath(const QString &name)
    : readable(name)
{
    if (!hasBytes(name))
        return;
    // Pipes must not block, and devices must not become the terminal.
    descriptor = ::open(toBytes(name).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor >= 0)
        readable = QStringLiteral("/proc/%1/fd/%2").arg(::getpid()).arg(descriptor);
}

file_names::ReadablePath::~ReadablePath()
{
    if (descriptor >= 0)
        ::close(descriptor);
}
