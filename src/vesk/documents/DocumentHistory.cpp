#include "DocumentHistory.h"
#include "history_commands.h"
#include "picture_document.h"

#include <VeskContext.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureHost.h>
#include <VeskSelection.h>

#include <QScopedValueRollback>
#include <QSignalBlocker>

DocumentHistory &DocumentHistory::of(VeskContext &document)
{
    auto *history = document.findChild<DocumentHistory *>(QString(), Qt::FindDirectChildrenOnly);
    return *(history ? history : new DocumentHistory(document));
}

DocumentHistory::DocumentHistory(VeskContext &document)
    : QObject(&document)
    , context(document)
{
    if (document.isSaveAble())
        steps.resetClean();
    connect(&document, &VeskContext::saveAbleChanged, this, &DocumentHistory::followSaveAble);
    connect(&document, &VeskContext::layersChanged, this, [this] {
        ++changes;
        Q_EMIT changed();
    });
    connect(&steps, &QUndoStack::indexChanged, this, &DocumentHistory::updateSaveAble);
}

/// The document is gone already but for its name: nobody may hear that its steps go.
DocumentHistory::~DocumentHistory()
{
    steps.blockSignals(true);
}

/// Somebody else says that there are unsaved changes: no step leads to the file then.
void DocumentHistory::followSaveAble(bool isSaveAble)
{
    if (isSaveAble && steps.isClean() && !isRearranging)
        steps.resetClean();
}

/// A document is also saved when other steps have led to what its file holds.
void DocumentHistory::updateSaveAble()
{
    if (!isRearranging)
        context.setSaveAble(!steps.isClean() &&
                            (savedLayers.isEmpty() || savedLayers != layerState()));
}

/// Two equal ones give the same file.
QString DocumentHistory::layerState() const
{
    QString state;
    const VeskLayerManager *layers = context.getLayerManager();
    for (int index = 0; index < layers->count(); ++index) {
        const VeskLayerBase *layer = layers->layerAt(index);
        state += QStringLiteral("%1 %2 %3;")
                     .arg(layer->picture().cacheKey())
                     .arg(double(layer->getAlpha()))
                     .arg(layer->isVisible());
    }
    return state;
}

void DocumentHistory::add(DocumentEdit edit)
{
    steps.push(new PictureCommand(context, std::move(edit)));
    forgetOldest();
}

void DocumentHistory::addVisibility(int layer, bool isVisible)
{
    const VeskLayerBase *shown = context.getLayerManager()->layerAt(layer);
    if (!shown || shown->isVisible() == isVisible)
        return;
    if (!context.isSaveAble())
        savedLayers = layerState();
    steps.push(new VisibilityCommand(context, layer, isVisible));
}

void DocumentHistory::markSaved()
{
    savedLayers = layerState();
    steps.setClean();
    context.setSaveAble(false);
}

QVariant DocumentHistory::settingsToContinue(const QString &kind) const
{
    const auto *command = PictureCommand::continuable(steps, kind);
    return command ? command->settings() : QVariant();
}

std::function<QList<QImage>()> DocumentHistory::picturesToContinue(const QString &kind) const
{
    const QList<QImage> pictures = document::layerPictures(context);
    const auto *command = PictureCommand::continuable(steps, kind);
    if (!command)
        return [pictures] { return pictures; };
    return [pictures, steps = command->pictureSteps(),
            times = command->pictureSteps()->timesApplied()] {
        return steps->others(pictures, times);
    };
}

std::shared_ptr<PictureSteps> DocumentHistory::stepAhead(bool isForward) const
{
    const bool canStep = isForward ? steps.canRedo() : steps.canUndo();
    const int index = isForward ? steps.index() : steps.index() - 1;
    const auto *command =
        canStep ? dynamic_cast<const PictureCommand *>(steps.command(index)) : nullptr;
    if (!command || command->pictureSteps()->areInstant())
        return nullptr;
    return command->pictureSteps();
}

void DocumentHistory::step(bool isForward, const QList<QImage> &pictures)
{
    const int index = isForward ? steps.index() : steps.index() - 1;
    const auto *command = dynamic_cast<const PictureCommand *>(steps.command(index));
    if (command && !pictures.isEmpty())
        command->makeReady(pictures);
    if (isForward)
        steps.redo();
    else
        steps.undo();
}

qint64 DocumentHistory::bytes() const
{
    qint64 sum = 0;
    for (int i = 0; i < steps.count(); ++i) {
        if (const auto *command = dynamic_cast<const PictureCommand *>(steps.command(i)))
            sum += command->bytes();
    }
    return sum;
}

/// A stack cannot lose its lowest step: the others go on a fresh one, without being done again.
void DocumentHistory::forgetOldest()
{
    qint64 held = bytes();
    int first = 0;
    for (; held > kMostBytes && first < steps.count() - 1; ++first) {
        if (const auto *command = dynamic_cast<const PictureCommand *>(steps.command(first)))
            held -= command->bytes();
    }
    if (first == 0)
        return;
    const QScopedValueRollback<bool> quiet(isRearranging, true);
    const int clean = steps.cleanIndex() - first;
    std::vector<QUndoCommand *> kept;
    for (int i = first; i < steps.count(); ++i)
        kept.push_back(HistoryCommand::successor(steps.command(i)));
    steps.clear();
    if (clean < 0)
        steps.resetClean();
    for (QUndoCommand *command : kept) {
        if (steps.index() == clean)
            steps.setClean();
        steps.push(command);
    }
    if (steps.index() == clean)
        steps.setClean();
}

QList<QImage> document::layerPictures(const VeskContext &context)
{
    QList<QImage> pictures;
    const VeskLayerManager *layers = context.getLayerManager();
    for (int i = 0; i < layers->count(); ++i) {
        const auto *layer = qobject_cast<const VeskLayer *>(layers->layerAt(i));
        pictures.append(layer ? layer->picture() : QImage());
    }
    return pictures;
}

QList<double> document::layerOpacities(const VeskContext &context)
{
    QList<double> opacities;
    const VeskLayerManager *layers = context.getLayerManager();
    for (int i = 0; i < layers->count(); ++i) {
        const VeskLayerBase *layer = layers->layerAt(i);
        opacities.append(layer->isVisible() ? double(layer->getAlpha()) : 0.0);
    }
    return opacities;
}

QList<QImage> document::takeLayerPictures(VeskContext &context)
{
    const QList<QImage> pictures = layerPictures(context);
    const VeskLayerManager *layers = context.getLayerManager();
    for (int i = 0; i < layers->count(); ++i) {
        auto *layer = qobject_cast<VeskLayer *>(layers->layerAt(i));
        const QSignalBlocker quiet(layer);
        if (layer)
            layer->setVeskPictureHost(new VeskPictureHost);
    }
    return pictures;
}

void document::setLayerPictures(VeskContext &context, const QList<QImage> &pictures)
{
    VeskLayerManager *layers = context.getLayerManager();
    const VeskSelection *selection = context.getSelection();
    const QSize before =
        selection ? QSize(selection->getWidth(), selection->getHeight()) : layers->size();
    for (int i = 0; i < layers->count() && i < pictures.size(); ++i) {
        auto *layer = qobject_cast<VeskLayer *>(layers->layerAt(i));
        if (layer && !pictures[i].isNull())
            layer->setVeskPictureHost(new VeskPictureHost(pictures[i]));
    }
    if (layers->size() != before)
        fitToLayers(context);
}
