#include "ini_value.h"

#include <cctype>
#include <cstring>

namespace {

/// The letters of two-character escape sequences, and what they stand for.
constexpr char kEscapeLetters[] = "abfnrtv\"?'\\";
constexpr char kEscaped[] = "\a\b\f\n\r\t\v\"?'\\";

int digitOf(char digit, int base)
{
    int value = base;
    if (digit >= '0' && digit <= '9')
        value = digit - '0';
    else if (digit >= 'a' && digit <= 'f')
        value = digit - 'a' + 10;
    else if (digit >= 'A' && digit <= 'F')
        value = digit - 'A' + 10;
    return value < base ? value : -1;
}

bool isUtf8(QByteArrayView bytes)
{
    return QString::fromUtf8(bytes).toUtf8() == bytes;
}

QString decoded(QByteArrayView bytes)
{
    return isUtf8(bytes) ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
}

class ValueReader
{
public:
    explicit ValueReader(QByteArrayView value)
        : bytes(value)
        , isInUtf8(isUtf8(value))
    {
    }

    QStringList read()
    {
        skipSpaces();
        while (at < bytes.size()) {
            const char next = bytes[at];
            if (next == '\\')
                readEscape();
            else if (next == '"')
                passQuote();
            else if (next == ',' && !isInQuotes)
                passComma();
            else
                readPlain();
        }
        endText();
        return texts;
    }

private:
    void skipSpaces()
    {
        while (at < bytes.size() && (bytes[at] == ' ' || bytes[at] == '\t'))
            ++at;
    }

    void passQuote()
    {
        ++at;
        isQuoted = true;
        isInQuotes = !isInQuotes;
        if (!isInQuotes)
            startRun();
    }

    void passComma()
    {
        ++at;
        endText();
        startRun();
    }

    /// Spaces before this are the text's own, spaces behind it may be its end.
    void startRun()
    {
        skipSpaces();
        kept = text.size();
    }

    void readPlain()
    {
        const qsizetype start = at++;
        while (at < bytes.size() && bytes[at] != '\\' && bytes[at] != '"' && bytes[at] != ',')
            ++at;
        const QByteArrayView run = bytes.sliced(start, at - start);
        text += isInUtf8 ? QString::fromUtf8(run) : QString::fromLatin1(run);
    }

    void readEscape()
    {
        ++at;
        if (at < bytes.size())
            readEscaped(bytes[at++]);
        kept = text.size();
    }

    void readEscaped(char letter)
    {
        const char *const known = letter ? std::strchr(kEscapeLetters, letter) : nullptr;
        if (known)
            text += QLatin1Char(kEscaped[known - kEscapeLetters]);
        else if (letter == 'x')
            readNumber(16);
        else if (digitOf(letter, 8) >= 0)
            readNumber(8, --at);
        else if (letter == '\n' || letter == '\r')
            passLineEnd(letter);
    }

    void readNumber(int base) { readNumber(base, at); }

    void readNumber(int base, qsizetype start)
    {
        quint16 code = 0;
        for (at = start; at < bytes.size() && digitOf(bytes[at], base) >= 0; ++at)
            code = static_cast<quint16>(code * base + digitOf(bytes[at], base));
        if (at > start)
            text += QChar(code);
    }

    /// A line goes on behind its end: CR LF and LF CR are one.
    void passLineEnd(char first)
    {
        const char second = first == '\n' ? '\r' : '\n';
        if (at < bytes.size() && bytes[at] == second)
            ++at;
    }

    void endText()
    {
        while (!isQuoted && text.size() > kept && (text.back() == u' ' || text.back() == u'\t'))
            text.chop(1);
        texts += text;
        text.clear();
        kept = 0;
        isQuoted = false;
    }

    QByteArrayView bytes;
    bool isInUtf8;
    qsizetype at = 0;
    QStringList texts;
    QString text;
    qsizetype kept = 0;
    bool isQuoted = false;
    bool isInQuotes = false;
};

/// mustEscape: a digit that follows a number would count as part of it.
QByteArray escaped(char16_t code, bool mustEscape)
{
    const char letter = code < 0x80 ? static_cast<char>(code) : '\0';
    const char *const known = letter ? std::strchr(kEscaped, letter) : nullptr;
    if (known && letter != '?' && letter != '\'')
        return QByteArray("\\") + kEscapeLetters[known - kEscaped];
    if (code < 0x20 || code >= 0x7F || (mustEscape && digitOf(letter, 16) >= 0))
        return "\\x" + QByteArray::number(code, 16);
    return QByteArray(1, letter);
}

QByteArray writtenText(const QString &text)
{
    QByteArray written;
    bool isBehindNumber = false;
    for (const QChar character : text) {
        const QByteArray next = escaped(character.unicode(), isBehindNumber);
        isBehindNumber = next.startsWith("\\x");
        written += next;
    }
    const bool needsQuotes = text.contains(u';') || text.contains(u',') || text.contains(u'=') ||
                             text.startsWith(u' ') || text.endsWith(u' ');
    return needsQuotes ? '"' + written + '"' : written;
}

/// The character that the % at that place begins, and how many characters say so; 0 for none.
qsizetype readCode(QStringView key, qsizetype percent, QChar &character)
{
    const bool isLong = percent + 1 < key.size() && key[percent + 1] == u'U';
    const qsizetype start = percent + (isLong ? 2 : 1);
    const qsizetype digits = isLong ? 4 : 2;
    if (start + digits > key.size())
        return 0;
    bool isNumber = false;
    character = QChar(key.sliced(start, digits).toUShort(&isNumber, 16));
    return isNumber ? start + digits - percent : 0;
}

bool isPlainInKeys(char16_t code)
{
    return code < 0x80 &&
           (std::isalnum(static_cast<int>(code)) || code == '_' || code == '-' || code == '.');
}

} // namespace

QStringList ini::readValue(QByteArrayView bytes)
{
    return ValueReader(bytes).read();
}

QByteArray ini::writtenValue(const QStringList &texts)
{
    QByteArrayList written;
    for (const QString &text : texts)
        written += writtenText(text);
    return written.join(", ");
}

QString ini::readKey(QByteArrayView bytes)
{
    const QString written = decoded(bytes);
    QString key;
    for (qsizetype i = 0; i < written.size(); ++i) {
        QChar character = written[i] == u'\\' ? u'/' : written[i];
        const qsizetype length = written[i] == u'%' ? readCode(written, i, character) : 0;
        key += length > 0 || written[i] != u'%' ? character : QChar(u'%');
        i += qMax(length, qsizetype(1)) - 1;
    }
    return key;
}

QByteArray ini::writtenKey(const QString &key)
{
    QByteArray written;
    for (const QChar character : key) {
        const char16_t code = character.unicode();
        const QByteArray digits = QByteArray::number(code, 16).toUpper();
        if (code == '/')
            written += '\\';
        else if (isPlainInKeys(code))
            written += static_cast<char>(code);
        else
            written += code < 0x100 ? '%' + digits.rightJustified(2, '0')
                                    : "%U" + digits.rightJustified(4, '0');
    }
    return written;
}

QString ini::withoutMarks(const QString &text)
{
    if (text.startsWith(QLatin1String("@@")))
        return text.mid(1);
    if (text == QLatin1String("@Invalid()"))
        return {};
    for (const QLatin1String mark : {QLatin1String("@String("), QLatin1String("@ByteArray(")})
        if (text.startsWith(mark) && text.endsWith(u')'))
            return text.mid(mark.size()).chopped(1);
    return text;
}

QString ini::withMarks(const QString &text)
{
    if (text.contains(QChar::Null))
        return QStringLiteral("@String(") + text + u')';
    return text.startsWith(u'@') ? u'@' + text : text;
}
