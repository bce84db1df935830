#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// A catalogue as translators write it (a .ts file).
struct TranslationCatalogue
{
    struct Message
    {
        QString context;
        QString source;
        QString comment;          ///< tells equal sources of one context apart; mostly empty
        bool isCounted = false;   ///< has a form for each plural of the language
        QStringList translations; ///< one, or one for each plural
        QString type;             ///< "unfinished", "vanished", ...; empty when translated

        QString translation() const { return translations.value(0); }
    };

    QString language;
    QList<Message> messages;
};

/// Empty when the file cannot be read.
TranslationCatalogue readTranslationCatalogue(const QString &path);

/// %1, %2, %n, ..., sorted.
QStringList placeholdersOf(const QString &text);
