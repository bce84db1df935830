#include "HistogramDock.h"
#include "HistogramView.h"

#include <VeskContext.h>
#include <VeskGlobalSettings.h>
#include <VeskLayerManager.h>
#include <VeskUIController.h>
#include <layer_composition.h>
#include <picture_histogram.h>

#include <QAction>
#include <QActionGroup>

#include <utility>

HistogramDock::HistogramDock(QWidget *parent)
    : QDockWidget(tr("Histogram"), parent)
    , histogram(new HistogramView)
{
    setObjectName(QStringLiteral("histogramDock"));
    setWidget(histogram);
    addViewActions();
    worker.setMaxThreadCount(1);
    delay.setSingleShot(true);
    delay.setInterval(0);
    connect(&delay, &QTimer::timeout, this, &HistogramDock::refresh);
    connect(toggleViewAction(), &QAction::triggered, this,
            [](bool isShown) { VeskGlobalSettings::getInstance()->setHistogramVisible(isShown); });
    connect(VeskGlobalSettings::getInstance(), &VeskGlobalSettings::histogramVisibleChanged, this,
            &QWidget::setVisible);
    connect(VeskUIController::getInstance(), &VeskUIController::notified, this,
            [this](const QString &name) {
                if (name == QLatin1String("initHistogramWidget"))
                    refreshSoon();
            });
}

/// On the right mouse button.
void HistogramDock::addViewActions()
{
    using Channel = HistogramView::Channel;
    histogram->setContextMenuPolicy(Qt::ActionsContextMenu);
    auto *group = new QActionGroup(this);
    const std::pair<QString, Channel> channels[] = {{tr("All channels"), Channel::All},
                                                    {tr("Luminosity"), Channel::Luminosity},
                                                    {tr("Red"), Channel::Red},
                                                    {tr("Green"), Channel::Green},
                                                    {tr("Blue"), Channel::Blue}};
    for (const auto &[text, channel] : channels) {
        auto *action = new QAction(text, group);
        action->setCheckable(true);
        action->setChecked(channel == Channel::All);
        connect(action, &QAction::triggered, this,
                [this, shownChannel = channel] { histogram->setChannel(shownChannel); });
    }
    histogram->addActions(group->actions());
    auto *separator = new QAction(this);
    separator->setSeparator(true);
    auto *logarithmic = new QAction(tr("Logarithmic"), this);
    logarithmic->setCheckable(true);
    connect(logarithmic, &QAction::toggled, histogram, &HistogramView::setLogarithmic);
    histogram->addActions({separator, logarithmic});
}

HistogramDock::~HistogramDock()
{
    worker.waitForDone();
}

void HistogramDock::showDocument(VeskContext *document)
{
    if (shown)
        shown->disconnect(this);
    if (canvas)
        canvas->disconnect(this);
    shown = document;
    canvas = document ? document->getCanvas() : nullptr;
    if (document)
        connect(document, &VeskContext::layersChanged, this, &HistogramDock::refreshSoon);
    if (canvas)
        connect(canvas, &VeskCanvas::histogramChanged, this, &HistogramDock::takeFromCanvas);
    refreshSoon();
}

/// The dock's own button. The window's closing only hides its docks.
void HistogramDock::closeEvent(QCloseEvent *event)
{
    QDockWidget::closeEvent(event);
    VeskGlobalSettings::getInstance()->setHistogramVisible(false);
}

void HistogramDock::showEvent(QShowEvent *event)
{
    QDockWidget::showEvent(event);
    refreshSoon();
}

void HistogramDock::refreshSoon()
{
    ++round;
    delay.start();
}

void HistogramDock::refresh()
{
    if (!isVisible())
        return;
    if (!shown) {
        histogram->clear();
        return;
    }
    const std::vector<SourceLayer> layers = composition::visibleLayers(shown);
    const QSize size = shown->getLayerManager()->size();
    const VeskScreenColours::Conversion toCommon = histogram::toCommon(layers);
    worker.clear(); // counts that nobody waits for any more
    worker.start([this, asked = round, layers, size, toCommon] {
        const VeskCanvas::Histogram counts = histogram::countLevels(layers, size, toCommon);
        QMetaObject::invokeMethod(
            this,
            [this, asked, counts] {
                if (asked == round)
                    histogram->setHistogram(counts);
            },
            Qt::QueuedConnection);
    });
}

/// Somebody has had the canvas count: that is newer than anything under way.
void HistogramDock::takeFromCanvas()
{
    ++round;
    delay.stop();
    histogram->setHistogram(canvas->histogram());
}
