#include "MetadataOptions.h"

#include "PartOptions.h"

#include <QFileInfo>

#include <algorithm>

void MetadataOptions::addTo(QCommandLineParser &parser) const
{
    parser.addOptions({from, none});
}

QString MetadataOptions::read(const QCommandLineParser &parser, MergeOptions &options) const
{
    options.metadataSource = parser.value(from);
    options.keepsMetadata = !parser.isSet(none);
    options.description = describe(parser, options);
    if (parser.isSet(from) && !options.keepsMetadata)
        return QStringLiteral("--metadata-from and --no-metadata exclude each other");
    if (parser.isSet(from) && options.metadataSource.isEmpty())
        return QStringLiteral("--metadata-from takes a picture");
    return {};
}

/// The options that make the picture what it is, without folders; no names of pictures where none
/// are wanted.
QString MetadataOptions::describe(const QCommandLineParser &parser,
                                  const MergeOptions &options) const
{
    QStringList passedOver{QStringLiteral("o"),           QStringLiteral("output"),
                           QStringLiteral("method"),      QStringLiteral("max-megapixels"),
                           QStringLiteral("force"),       QStringLiteral("json"),
                           QStringLiteral("verbose"),     QStringLiteral("ghost-mask"),
                           QStringLiteral("no-metadata"), QStringLiteral("metadata-from"),
                           QStringLiteral("take"),        QStringLiteral("paint")};
    if (parser.isSet(none))
        passedOver += {QStringLiteral("reference"), QStringLiteral("ghosts")};
    QStringList words;
    QStringList names = parser.optionNames();
    names.removeDuplicates();
    for (const QString &name : std::as_const(names)) {
        if (passedOver.contains(name))
            continue;
        words += QStringLiteral("--") + name;
        const QString value = QFileInfo(parser.value(name)).fileName();
        if (!value.isEmpty())
            words += value;
    }
    if (!parser.isSet(none))
        words += command_line::wordsOfParts(options);
    return words.join(u' ');
}

ResultMark command_line::markOf(const MergeOptions &options)
{
    ResultMark mark;
    mark.program = QStringLiteral("veskhdr");
    mark.version = QStringLiteral(VESK_VERSION);
    mark.method = wordOf(options.method);
    mark.options = options.description;
    for (const QString &picture : options.pictures) {
        if (options.keepsMetadata)
            mark.sources += QFileInfo(picture).fileName();
    }
    return mark;
}
