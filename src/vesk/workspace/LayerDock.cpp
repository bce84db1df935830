#include "LayerDock.h"
#include "picture_document.h"

#include <VeskContext.h>
#include <VeskLayerBase.h>
#include <VeskLayerManager.h>

#include <QListWidget>
#include <QSignalBlocker>

#include <cmath>

namespace {

constexpr int kIndexRole = Qt::UserRole; // in the document, 0 is the lowest layer

QListWidgetItem *itemFor(const VeskLayerBase &layer, int index)
{
    const QString percent =
        LayerDock::tr("%1 %").arg(static_cast<int>(std::lround(layer.getAlpha() * 100)));
    //: A layer and its opacity in percent.
    auto *item = new QListWidgetItem(LayerDock::tr("%1 — %2").arg(layer.getName(), percent));
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(layer.isVisible() ? Qt::Checked : Qt::Unchecked);
    item->setToolTip(LayerDock::tr("Tick to show the layer"));
    item->setData(kIndexRole, index);
    return item;
}

} // namespace

LayerDock::LayerDock(QWidget *parent)
    : QDockWidget(tr("Layers"), parent)
    , list(new QListWidget)
{
    setObjectName(QStringLiteral("layerDock"));
    list->setAccessibleName(tr("Layers"));
    setWidget(list);
    connect(list, &QListWidget::itemChanged, this, &LayerDock::onItemChanged);
    connect(list, &QListWidget::currentRowChanged, this, &LayerDock::onRowChosen);
}

void LayerDock::showDocument(VeskContext *document)
{
    if (shown) {
        shown->disconnect(this);
        shown->getLayerManager()->disconnect(this);
    }
    shown = document;
    if (document) {
        // Queued: a change may come from the very item that a rebuild deletes.
        connect(document, &VeskContext::layersChanged, this, &LayerDock::rebuild,
                Qt::QueuedConnection);
        connect(document->getLayerManager(), &VeskLayerManager::currentLayerChanged, this,
                &LayerDock::rebuild, Qt::QueuedConnection);
    }
    rebuild();
}

void LayerDock::rebuild()
{
    const QSignalBlocker quiet(list);
    list->clear();
    if (!shown)
        return;
    const VeskLayerManager *layers = shown->getLayerManager();
    for (int index = layers->count() - 1; index >= 0; --index)
        list->addItem(itemFor(*layers->layerAt(index), index));
    list->setCurrentRow(layers->count() - 1 - layers->getCurrentIndex());
}

void LayerDock::onItemChanged(const QListWidgetItem *item)
{
    if (shown)
        document::setLayerVisible(*shown, item->data(kIndexRole).toInt(),
                                  item->checkState() == Qt::Checked);
}

void LayerDock::onRowChosen(int row)
{
    if (const QListWidgetItem *item = list->item(row))
        shown->getLayerManager()->setCurrentIndex(item->data(kIndexRole).toInt());
}
