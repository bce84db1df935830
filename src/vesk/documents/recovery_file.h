#pragma once

#include "FileStamp.h"

#include <ResultMark.h>

#include <QImage>
#include <QList>
#include <QString>

#include <optional>

class VeskContext;

/// A document as its recovery file keeps it: with every pixel as it is, and what is known of it.
struct RecoveredDocument
{
    struct Layer
    {
        QImage picture;
        QString name;
        float alpha = 1.0F;
        bool isVisible = true;
    };

    QString name;
    QString path;           ///< of its own file; empty when it has none
    QString metadataSource; ///< file; may be empty
    std::optional<ResultMark> mark;
    int savedBits = 0;
    FileStamp stamp; ///< of its own file
    bool hasGainMap = false;
    QList<Layer> layers;
};

/// Files that unsaved documents come back from. Pixels are not compressed: a processor has better
/// things to do while somebody works. Any thread, but for the documents themselves.
namespace recovery {

/// What the document is now; shares its pixels. GUI thread.
RecoveredDocument snapshot(const VeskContext &document);
/// A new document with unsaved changes; its canvas belongs to canvasOwner. GUI thread.
VeskContext *restored(const RecoveredDocument &kept, QWidget *canvasOwner);

/// Replaces the file at path once the new one is complete on the disk. Returns why not, in words,
/// empty on success.
QString write(const RecoveredDocument &document, const QString &path);
/// Nothing for a file that is damaged, or of another program.
std::optional<RecoveredDocument> read(const QString &path);
/// Its name alone, without the pixels; empty when it is damaged.
QString readName(const QString &path);

} // namespace recovery
