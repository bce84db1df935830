#pragma once

#include "FileStamp.h"

#include <ResultMark.h>

#include <QImage>
#include <QString>
#include <QStringList>

#include <optional>

class QWidget;
class VeskContext;

/// What the editor does with documents that hold one picture. GUI thread.
namespace document {

/// New document with one layer that shows picture and a canvas that belongs to canvasOwner. A null
/// picture gives a document without layers. The caller owns the document.
VeskContext *create(const QImage &picture, const QString &name, const QString &path,
                    QWidget *canvasOwner);

/// Gives context a new canvas that shows it and belongs to canvasOwner.
void addCanvas(VeskContext &context, QWidget *canvasOwner);

/// Lets the canvas and the selection follow the size of the layers.
void fitToLayers(VeskContext &context);

/// The file whose metadata go into the document's file when it is saved: the one it was read from,
/// unless another has been set (for a merged picture). May be empty.
QString metadataSource(const VeskContext &context);
void setMetadataSource(VeskContext &context, const QString &path);

/// How the document was merged, for its file; nothing unless it was.
std::optional<ResultMark> resultMark(const VeskContext &context);
void setResultMark(VeskContext &context, const ResultMark &mark);

/// The mark of what this program merged. paths: of the shots, in merge order. options: as on the
/// command line, or empty.
ResultMark markOfMerge(const QString &method, const QStringList &paths,
                       const QString &options = {});

/// The part that all shots of a merge cover, until the document's size changes; empty when that is
/// not known.
QRect coveredArea(const VeskContext &context);
void setCoveredArea(VeskContext &context, const QRect &area);

/// Bits per sample that the user has chosen for the document's file: 8 or 16, 0 for those that the
/// document has.
int savedBits(const VeskContext &context);
void setSavedBits(VeskContext &context, int bits);

/// The document's file as it was when it was read or written last; not known at first.
FileStamp fileStamp(const VeskContext &context);
void setFileStamp(VeskContext &context, const FileStamp &stamp);
/// Whether its file is there, and another than that.
bool isFileChanged(const VeskContext &context);

/// Whether its file holds a gain map, which the document does not have.
bool hasGainMapInFile(const VeskContext &context);
void setGainMapInFile(VeskContext &context, bool hasOne);

/// Shows or hides the layer at index, as a step of the document's history.
void setLayerVisible(VeskContext &context, int index, bool isVisible);
/// The document's file holds what it shows now.
void markSaved(VeskContext &context);

} // namespace document
