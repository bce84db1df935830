#include "VeskSettingsFile.h"

#include "VeskGlobalSettings.h"
#include "ini_file.h"
#include "ini_value.h"

#include <QLoggingCategory>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <algorithm>
#include <initializer_list>
#include <vector>

namespace {

Q_LOGGING_CATEGORY(lcSettings, "vesk.host")

static_assert(VeskSettingsFile::kLargestBytes == ini::kLargestBytes);

bool isMarked(const QString &text, QLatin1String mark)
{
    return text.startsWith(mark) && text.endsWith(u')');
}

/// Colours, fonts, dates and the like.
bool isSerialised(const QString &text)
{
    return isMarked(text, QLatin1String("@Variant(")) ||
           isMarked(text, QLatin1String("@DateTime("));
}

/// The numbers of "@Mark(1 2)"; empty unless there are that many.
std::vector<int> numbersOf(const QString &text, QLatin1String mark, size_t count)
{
    std::vector<int> numbers;
    if (!isMarked(text, mark))
        return numbers;
    for (const QString &number : text.mid(mark.size()).chopped(1).split(u' '))
        numbers.push_back(number.toInt());
    return numbers.size() == count ? numbers : std::vector<int>();
}

QVariant valueOf(const QString &text)
{
    if (text == QLatin1String("@Invalid()"))
        return {};
    if (isMarked(text, QLatin1String("@ByteArray(")))
        return ini::withoutMarks(text).toLatin1();
    const std::vector<int> point = numbersOf(text, QLatin1String("@Point("), 2);
    if (!point.empty())
        return QPoint(point[0], point[1]);
    const std::vector<int> size = numbersOf(text, QLatin1String("@Size("), 2);
    if (!size.empty())
        return QSize(size[0], size[1]);
    const std::vector<int> rect = numbersOf(text, QLatin1String("@Rect("), 4);
    if (!rect.empty())
        return QRect(rect[0], rect[1], rect[2], rect[3]);
    return ini::withoutMarks(text);
}

QVariant valueOf(const QStringList &texts)
{
    if (texts.size() == 1)
        return valueOf(texts.first());
    QStringList list;
    for (const QString &text : texts)
        list += ini::withoutMarks(text);
    return list;
}

QStringList markedTexts(const QStringList &texts)
{
    if (texts.isEmpty())
        return {QStringLiteral("@Invalid()")};
    QStringList marked;
    for (const QString &text : texts)
        marked += ini::withMarks(text);
    return marked;
}

QStringList markedNumbers(const char *mark, std::initializer_list<int> numbers)
{
    QStringList texts;
    for (const int number : numbers)
        texts += QString::number(number);
    return {QLatin1String(mark) + texts.join(u' ') + u')'};
}

/// Empty for a value that the file does not take.
QStringList textsOf(const QVariant &value)
{
    const QRect rect = value.toRect();
    switch (value.typeId()) {
    case QMetaType::QStringList:
        return markedTexts(value.toStringList());
    case QMetaType::QByteArray:
        return {QStringLiteral("@ByteArray(") + QString::fromLatin1(value.toByteArray()) + u')'};
    case QMetaType::QPoint:
        return markedNumbers("@Point(", {value.toPoint().x(), value.toPoint().y()});
    case QMetaType::QSize:
        return markedNumbers("@Size(", {value.toSize().width(), value.toSize().height()});
    case QMetaType::QRect:
        return markedNumbers("@Rect(", {rect.x(), rect.y(), rect.width(), rect.height()});
    default:
        return value.canConvert<QString>() ? QStringList(ini::withMarks(value.toString()))
                                           : QStringList();
    }
}

} // namespace

QVariant VeskSettingsFile::value(const QString &key, const QVariant &defaultValue)
{
    const auto texts = ini::read(VeskGlobalSettings::configFilePath(), key);
    if (!texts || std::any_of(texts->begin(), texts->end(), isSerialised))
        return defaultValue;
    return valueOf(*texts);
}

bool VeskSettingsFile::setValue(const QString &key, const QVariant &value)
{
    const QString path = VeskGlobalSettings::configFilePath();
    const QStringList texts = value.isValid() ? textsOf(value) : QStringList();
    const bool isWritten = value.isValid() ? !texts.isEmpty() && ini::store(path, key, texts)
                                           : ini::store(path, key, std::nullopt);
    if (!isWritten)
        qCWarning(lcSettings).noquote() << "cannot write" << path;
    return isWritten;
}
