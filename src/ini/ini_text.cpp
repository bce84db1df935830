#include "ini_text.h"

#include "ini_value.h"

#include <QList>

namespace {

/// A line as the format has it: a backslash or an open quote joins it with the next of the file.
struct Line
{
    qsizetype start = 0;
    qsizetype end = 0; ///< of a line break, of a comment, or of the file
    qsizetype equals = -1;
    /// Whether what is put behind the end is a line of its own.
    bool isClosed = true;
};

class LineReader
{
public:
    explicit LineReader(QByteArrayView text)
        : bytes(text)
        , at(text.startsWith("\xEF\xBB\xBF") ? 3 : 0)
    {
    }

    std::optional<Line> next()
    {
        skipSpacesAndComments();
        if (at == bytes.size())
            return std::nullopt;
        Line line;
        line.start = at;
        bool isInQuotes = false;
        while (at < bytes.size() && (isInQuotes || !endsLine(bytes[at])))
            pass(line, isInQuotes);
        line.end = at;
        line.isClosed = line.isClosed && !isInQuotes;
        return line;
    }

private:
    static bool endsLine(char byte) { return byte == '\n' || byte == '\r' || byte == ';'; }

    void skipSpacesAndComments()
    {
        while (at < bytes.size()) {
            const char byte = bytes[at];
            if (byte == ';')
                while (at < bytes.size() && bytes[at] != '\n' && bytes[at] != '\r')
                    ++at;
            else if (byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r')
                ++at;
            else
                return;
        }
    }

    void pass(Line &line, bool &isInQuotes)
    {
        const char byte = bytes[at++];
        if (byte == '\\')
            passEscaped(line);
        else if (byte == '"')
            isInQuotes = !isInQuotes;
        else if (byte == '=' && !isInQuotes && line.equals < 0)
            line.equals = at - 1;
    }

    void passEscaped(Line &line)
    {
        line.isClosed = at < bytes.size();
        if (!line.isClosed)
            return;
        const char byte = bytes[at++];
        const char other = byte == '\n' ? '\r' : '\n';
        if ((byte == '\n' || byte == '\r') && at < bytes.size() && bytes[at] == other)
            ++at;
    }

    QByteArrayView bytes;
    qsizetype at;
};

/// What a file says of one key.
struct Places
{
    QList<Line> values;
    std::optional<Line> lastHeader;  ///< of the key's group
    std::optional<Line> firstHeader; ///< of any group
};

bool isGeneral(QByteArrayView name)
{
    return name.compare("general", Qt::CaseInsensitive) == 0;
}

QString groupOf(QByteArrayView header)
{
    const qsizetype end = header.indexOf(']');
    const QByteArrayView name = header.first(end < 0 ? header.size() : end).sliced(1).trimmed();
    if (isGeneral(name))
        return {};
    if (name.startsWith('%') && isGeneral(name.sliced(1)))
        return QString::fromLatin1(name.sliced(1)) + u'/';
    return ini::readKey(name) + u'/';
}

/// Up to the first slash and with it, empty without one.
QString groupOfKey(const QString &key)
{
    return key.left(key.indexOf(u'/') + 1);
}

QByteArray writtenHeader(const QString &group)
{
    if (group.isEmpty())
        return "[General]";
    const QByteArray name = ini::writtenKey(group.chopped(1));
    return isGeneral(name) ? "[%" + name + ']' : '[' + name + ']';
}

Places placesOf(QByteArrayView text, const QString &key)
{
    Places places;
    QString group;
    LineReader lines(text);
    while (const std::optional<Line> line = lines.next()) {
        if (text[line->start] == '[') {
            group = groupOf(text.sliced(line->start, line->end - line->start));
            if (!places.firstHeader)
                places.firstHeader = line;
            if (line->isClosed && group == groupOfKey(key))
                places.lastHeader = line;
        } else if (line->equals >= 0) {
            const QByteArrayView name = text.sliced(line->start, line->equals - line->start);
            if (group + ini::readKey(name.trimmed()) == key)
                places.values += *line;
        }
    }
    return places;
}

/// Behind what stands on the line, a comment included.
qsizetype endOfLine(const QByteArray &text, qsizetype from)
{
    while (from < text.size() && text[from] != '\n' && text[from] != '\r')
        ++from;
    return from;
}

QByteArray withNewKey(QByteArray text, const Places &places, const QString &key,
                      const QByteArray &value)
{
    const QByteArray eol = text.contains("\r\n") ? "\r\n" : "\n";
    const QString group = groupOfKey(key);
    const QByteArray entry = ini::writtenKey(key.mid(group.size())) + '=' + value;
    if (places.lastHeader) {
        const qsizetype end = endOfLine(text, places.lastHeader->end);
        return text.insert(end, eol + entry + (end == text.size() ? eol : QByteArray()));
    }
    const QByteArray section = writtenHeader(group) + eol + entry + eol;
    if (places.firstHeader)
        return text.insert(places.firstHeader->start, section + eol);
    const qsizetype start = text.startsWith("\xEF\xBB\xBF") ? 3 : 0;
    const bool takesRestAlong = !group.isEmpty() && start < text.size();
    return text.insert(start, takesRestAlong ? section + eol + "[General]" + eol : section);
}

} // namespace

std::optional<QStringList> ini::find(QByteArrayView text, const QString &key)
{
    const Places places = placesOf(text, key);
    if (places.values.isEmpty())
        return std::nullopt;
    const Line &last = places.values.last();
    return readValue(text.sliced(last.equals + 1, last.end - last.equals - 1));
}

QByteArray ini::withValue(const QByteArray &text, const QString &key, const QStringList &value)
{
    const Places places = placesOf(text, key);
    const QByteArray written = writtenValue(value);
    if (places.values.isEmpty())
        return withNewKey(text, places, key, written);
    const Line &last = places.values.last();
    QByteArray changed = text;
    return changed.replace(last.equals + 1, last.end - last.equals - 1, written);
}

QByteArray ini::withoutKey(const QByteArray &text, const QString &key)
{
    const QList<Line> lines = placesOf(text, key).values;
    QByteArray changed = text;
    for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
        qsizetype end = line->end;
        if (end < changed.size() && changed[end] == '\r')
            ++end;
        if (end < changed.size() && changed[end] == '\n')
            ++end;
        changed.remove(line->start, end - line->start);
    }
    return changed;
}
