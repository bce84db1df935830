#pragma once

#include "PictureSteps.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QUndoStack>
#include <QVariant>

#include <functional>
#include <memory>

class VeskContext;

/// What is done to a document, a picture for each layer.
struct DocumentEdit
{
    QString text; ///< what the user did, for the menu
    /// As they are then; none as long as the steps are not applied.
    QList<QImage> pictures;
    /// Lead to the pictures, and once these are there, back.
    std::shared_ptr<PictureSteps> steps;
    /// Edits of one kind that follow one another become one, which begins where the first did: the
    /// later is made from the pictures before the earlier. Empty: each stands for itself.
    QString kind;
    QVariant settings; ///< of an edit with a kind, for who makes the next; invalid: none, no change
};

/// What was done to one document, to be undone and done again. It also knows whether the document
/// is as its file has it. Owned by the document. GUI thread.
///
/// Memory: the steps hold at most kMostBytes of pixels; the oldest are forgotten first, the latest
/// never.
class DocumentHistory : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 kMostBytes = 512LL * 1024 * 1024;

    ~DocumentHistory() override;

    /// That of the document, made at the first call.
    static DocumentHistory &of(VeskContext &document);

    QUndoStack &stack() { return steps; }
    /// Shows the edit, which is made where it is not yet, and keeps the way back.
    void add(DocumentEdit edit);
    /// Shows or hides the layer at index. Back and forth in a row is no step.
    void addVisibility(int layer, bool isVisible);
    /// The document's file has what it shows now.
    void markSaved();

    /// The settings of the latest edit if it is of that kind and another would become one with it.
    QVariant settingsToContinue(const QString &kind) const;
    /// Gives the pictures of the layers before that edit; without one those that there are. To be
    /// called on any thread, as it may take time; none are given once the document has changed.
    std::function<QList<QImage>()> picturesToContinue(const QString &kind) const;

    /// Those of the next step back or forth, where it takes time: its pictures can be made on
    /// another thread before it is taken. To be applied once to the pictures of the layers. Null
    /// where the step is quick, or there is none.
    std::shared_ptr<PictureSteps> stepAhead(bool isForward) const;
    /// Takes the step. pictures: those to which the steps of stepAhead were applied; none where it
    /// gave none.
    void step(bool isForward, const QList<QImage> &pictures = {});

    qint64 bytes() const;
    /// Counts every change of the pictures.
    int revision() const { return changes; }

Q_SIGNALS:
    /// The pictures are others than before.
    void changed();

private:
    explicit DocumentHistory(VeskContext &document);

    void forgetOldest();
    void followSaveAble(bool isSaveAble);
    void updateSaveAble();
    QString layerState() const;

    VeskContext &context;
    QUndoStack steps;
    QString savedLayers; // of the file, where it is known
    bool isRearranging = false;
    int changes = 0;
};

namespace document {

/// The pictures of the document's layers, bottom to top; null for a layer of another kind.
QList<QImage> layerPictures(const VeskContext &context);
/// How much each of the layers covers, 0 to 1; 0 where it is hidden.
QList<double> layerOpacities(const VeskContext &context);
/// The pictures, and the layers have none any more, so that the pictures can be changed without a
/// copy. Tells nobody: other pictures must follow.
QList<QImage> takeLayerPictures(VeskContext &context);
/// Gives each layer its picture; the canvas and the selection follow the size.
void setLayerPictures(VeskContext &context, const QList<QImage> &pictures);

} // namespace document
