#include "tool_translator.h"

#include "tool_settings.h"

#include <QCoreApplication>
#include <QFile>
#include <QTranslator>
#include <QVariant>

#include <memory>

namespace {

bool loadCatalogue(QTranslator &translator, const QString &language)
{
    return translator.load(QStringLiteral(":/Resources/veskhdr_%1.qm").arg(language)) ||
           translator.load(QStringLiteral(":/veskhdr_%1.qm").arg(language));
}

/// Qt reads a catalogue in place, in the library's memory. The translator outlives the library, so
/// it gets bytes of its own.
bool keepCatalogue(QTranslator &translator)
{
    QFile file(translator.filePath());
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray catalogue = file.readAll();
    translator.setProperty("catalogue", catalogue);
    return translator.load(reinterpret_cast<const uchar *>(catalogue.constData()),
                           catalogue.size());
}

} // namespace

void tool_translator::install()
{
    const QString language = tool_settings::language();
    auto translator = std::make_unique<QTranslator>();
    if (loadCatalogue(*translator, language) && keepCatalogue(*translator))
        QCoreApplication::installTranslator(translator.release());
}
