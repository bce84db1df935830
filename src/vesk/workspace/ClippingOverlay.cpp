#include "ClippingOverlay.h"

#include <VeskCanvas.h>
#include <VeskContext.h>
#include <layer_composition.h>

#include <QEvent>
#include <QPainter>
#include <QRgba64>

#include <algorithm>
#include <cmath>

namespace {

constexpr QRgb kBright = 0xFFFF0030;
constexpr QRgb kDark = 0xFF3060FF;

QRgb markOf(int red, int green, int blue, int top)
{
    if (red >= top || green >= top || blue >= top)
        return kBright;
    return red == 0 && green == 0 && blue == 0 ? kDark : 0;
}

} // namespace

ClippingOverlay::ClippingOverlay(VeskCanvas *shownCanvas)
    : QWidget(shownCanvas)
    , canvas(shownCanvas)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(canvas->rect());
    canvas->installEventFilter(this);
    show();
}

QImage ClippingOverlay::mask(const QImage &picture, const QList<int> &columns,
                             const QList<int> &rows)
{
    QImage marks(int(columns.size()), int(rows.size()), QImage::Format_ARGB32_Premultiplied);
    const bool isDeep = picture.depth() == 64 || picture.format() == QImage::Format_Grayscale16;
    for (int y = 0; y < marks.height(); ++y) {
        auto *out = reinterpret_cast<QRgb *>(marks.scanLine(y));
        const auto *words = reinterpret_cast<const QRgb *>(picture.constScanLine(rows[y]));
        for (int x = 0; x < marks.width(); ++x) {
            if (isDeep) {
                const QRgba64 deep = picture.pixelColor(columns[x], rows[y]).rgba64();
                out[x] = markOf(deep.red(), deep.green(), deep.blue(), 0xFFFF);
            } else {
                const QRgb pixel = picture.format() == QImage::Format_RGB32
                                       ? words[columns[x]]
                                       : picture.pixel(columns[x], rows[y]);
                out[x] = markOf(qRed(pixel), qGreen(pixel), qBlue(pixel), 0xFF);
            }
        }
    }
    return marks;
}

bool ClippingOverlay::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == canvas && event->type() == QEvent::Resize)
        setGeometry(canvas->rect());
    return QWidget::eventFilter(watched, event);
}

/// What is shown, and where in the widget all of it lies; null where that is not to be told.
std::pair<QImage, QRectF> ClippingOverlay::levels() const
{
    if (const VeskCanvas::Preview *preview = canvas->preview())
        return {preview->levels, preview->sight.place};
    const auto layers = composition::visibleLayers(canvas->context());
    if (layers.size() != 1)
        return {};
    const QImage &picture = layers.front().picture;
    return {picture,
            {canvas->toWidget({0, 0}),
             canvas->toWidget({double(picture.width()), double(picture.height())})}};
}

void ClippingOverlay::refresh(const QImage &picture, const QRectF &place)
{
    const View view{picture.cacheKey(), place, size()};
    if (view == shownView)
        return;
    shownView = view;
    const auto places = [](int length, double first, double shownLength, int pixels) {
        QList<int> all;
        for (int i = 0; i < length; ++i)
            all.append(std::clamp(int(std::floor((i + 0.5 - first) * pixels / shownLength)), 0,
                                  pixels - 1));
        return all;
    };
    marks = mask(picture, places(width(), place.x(), place.width(), picture.width()),
                 places(height(), place.y(), place.height(), picture.height()));
}

void ClippingOverlay::paintEvent(QPaintEvent *)
{
    const auto [picture, place] = levels();
    if (picture.isNull())
        return;
    refresh(picture, place);
    QPainter painter(this);
    painter.setClipRect(place);
    painter.drawImage(QPoint(), marks);
}
