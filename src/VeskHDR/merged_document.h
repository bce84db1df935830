#pragma once

#include <QString>

#include <memory>

QT_BEGIN_NAMESPACE
class QImage;
QT_END_NAMESPACE
class VeskContext;

namespace merged_document {

/// Opens the picture as a new, unsaved document of one layer and makes it current, in place of the
/// old document: takes over its canvas, takes it off the list of open documents and has it deleted
/// later. old may be null, and may have no canvas: the new document then has none either.
/// The editor may delete either document or the canvas at any step: what is left is done without
/// it. GUI thread.
void replace(VeskContext *old, std::unique_ptr<QImage> picture, const QString &layerName);

} // namespace merged_document
