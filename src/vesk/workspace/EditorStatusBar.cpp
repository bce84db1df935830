#include "EditorStatusBar.h"

#include <VeskCanvas.h>

#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QRgba64>

namespace {

constexpr int kBarWidth = 120;
constexpr int kSwatchSide = 14;

/// Wide enough for its longest text, so that nothing moves while the pointer does.
QLabel *fixedLabel(const QString &longest)
{
    auto *label = new QLabel;
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(longest) + 8);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

QString percent(qreal zoom)
{
    const qreal value = zoom * 100;
    return QLocale().toString(value, 'f', value < 10 ? 1 : 0);
}

} // namespace

EditorStatusBar::EditorStatusBar(QWidget *parent)
    : QStatusBar(parent)
    , loadingText(new QLabel)
    , loadingBar(new QProgressBar)
    , pointer(fixedLabel(QStringLiteral("00000, 00000   R 00000 G 00000 B 00000")))
    , swatch(new QLabel)
    , size(fixedLabel(QStringLiteral("00000 × 00000")))
    , zoom(fixedLabel(QStringLiteral("3200 %")))
{
    loadingBar->setMaximumWidth(kBarWidth);
    loadingBar->setTextVisible(false);
    loadingBar->setRange(0, 0); // how long a file takes is not known
    addWidget(loadingText);
    addWidget(loadingBar);
    swatch->setFixedSize(kSwatchSide, kSwatchSide);
    swatch->setAutoFillBackground(true);
    for (QLabel *label : {pointer, swatch, size, zoom})
        addPermanentWidget(label);
    pointer->setObjectName(QStringLiteral("pointerLabel"));
    size->setObjectName(QStringLiteral("sizeLabel"));
    zoom->setObjectName(QStringLiteral("zoomLabel"));
    loadingText->setObjectName(QStringLiteral("loadingLabel"));
    hideLoading();
    showCanvas(nullptr);
}

void EditorStatusBar::showCanvas(VeskCanvas *canvas)
{
    if (shown)
        shown->disconnect(this);
    shown = canvas;
    if (canvas) {
        connect(canvas, &VeskCanvas::zoomChanged, this, &EditorStatusBar::showZoom);
        connect(canvas, &VeskCanvas::pointerMoved, this, &EditorStatusBar::showPointer);
    }
    showZoom();
    showPointer({-1, -1}, {});
}

void EditorStatusBar::showZoom()
{
    if (!shown) {
        size->clear();
        zoom->clear();
        return;
    }
    //: Width and height in pixels.
    size->setText(tr("%1 × %2").arg(shown->canvasSize().width()).arg(shown->canvasSize().height()));
    zoom->setText(tr("%1 %").arg(percent(shown->zoom())));
}

void EditorStatusBar::showPointer(const QPoint &pixel, const QColor &color)
{
    swatch->setVisible(color.isValid());
    if (!color.isValid()) {
        pointer->clear();
        return;
    }
    const bool isDeep = shown && shown->bitsPerChannel() > 8;
    const QRgba64 deep = color.rgba64();
    //: Position in pixels, and the levels of red, green and blue.
    pointer->setText(tr("%1, %2   R %3 G %4 B %5")
                         .arg(pixel.x())
                         .arg(pixel.y())
                         .arg(isDeep ? deep.red() : color.red())
                         .arg(isDeep ? deep.green() : color.green())
                         .arg(isDeep ? deep.blue() : color.blue()));
    QPalette colors = swatch->palette();
    colors.setColor(QPalette::Window, shown ? shown->onScreen(color) : color);
    swatch->setPalette(colors);
}

void EditorStatusBar::showLoading(const QString &name, int position, int total)
{
    loadingText->setText(total == 1
                             ? tr("Opening %1…").arg(name)
                             : tr("Opening %1 (%2 of %3)…").arg(name).arg(position).arg(total));
    loadingText->show();
    loadingBar->show();
}

void EditorStatusBar::hideLoading()
{
    loadingText->hide();
    loadingBar->hide();
}
