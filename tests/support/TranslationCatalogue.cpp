#include "TranslationCatalogue.h"

#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

using Message = TranslationCatalogue::Message;

QStringList readTranslations(QXmlStreamReader &xml, bool isCounted)
{
    if (!isCounted)
        return {xml.readElementText()};
    QStringList forms;
    while (xml.readNextStartElement())
        forms += xml.readElementText();
    return forms;
}

Message readMessage(QXmlStreamReader &xml, const QString &context)
{
    Message message;
    message.context = context;
    message.isCounted = xml.attributes().value(QLatin1String("numerus")) == QLatin1String("yes");
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("source")) {
            message.source = xml.readElementText();
        } else if (xml.name() == QLatin1String("comment")) {
            message.comment = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            message.type = xml.attributes().value(QLatin1String("type")).toString();
            message.translations = readTranslations(xml, message.isCounted);
        } else {
            xml.skipCurrentElement();
        }
    }
    return message;
}

void readContext(QXmlStreamReader &xml, QList<Message> &messages)
{
    QString context;
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("name"))
            context = xml.readElementText();
        else if (xml.name() == QLatin1String("message"))
            messages += readMessage(xml, context);
        else
            xml.skipCurrentElement();
    }
}

} // namespace

TranslationCatalogue readTranslationCatalogue(const QString &path)
{
    TranslationCatalogue catalogue;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return catalogue;
    QXmlStreamReader xml(&file);
    if (xml.readNextStartElement()) {
        catalogue.language = xml.attributes().value(QLatin1String("language")).toString();
        while (xml.readNextStartElement()) {
            if (xml.name() == QLatin1String("context"))
                readContext(xml, catalogue.messages);
            else
                xml.skipCurrentElement();
        }
    }
    return xml.hasError() ? TranslationCatalogue() : catalogue;
}

QStringList placeholdersOf(const QString &text)
{
    static const QRegularExpression placeholder(QStringLiteral("%(\\d+|n)"));
    QStringList found;
    auto match = placeholder.globalMatch(text);
    while (match.hasNext())
        found += match.next().captured();
    std::sort(found.begin(), found.end());
    return found;
}
