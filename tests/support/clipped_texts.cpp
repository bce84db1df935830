#include "clipped_texts.h"

#include <QAbstractButton>
#include <QLabel>

namespace {

QSize neededSize(const QWidget &widget)
{
    const auto *label = qobject_cast<const QLabel *>(&widget);
    if (label && label->wordWrap()) {
        return {1, label->heightForWidth(label->width())};
    }
    return widget.sizeHint();
}

void note(const QWidget &widget, QStringList &clipped)
{
    const QSize needed = neededSize(widget);
    const bool isLargeEnough =
        widget.width() >= needed.width() && widget.height() >= needed.height();
    const bool isInside = widget.parentWidget()->rect().contains(widget.geometry());
    if (isLargeEnough && isInside) {
        return;
    }
    clipped += QStringLiteral("%1 is at (%2, %3) %4 x %5 in %6 x %7 and needs %8 x %9")
                   .arg(widget.objectName())
                   .arg(widget.x())
                   .arg(widget.y())
                   .arg(widget.width())
                   .arg(widget.height())
                   .arg(widget.parentWidget()->width())
                   .arg(widget.parentWidget()->height())
                   .arg(needed.width())
                   .arg(needed.height());
}

} // namespace

QStringList clippedTexts(const QWidget &window)
{
    QStringList clipped;
    for (const QLabel *label : window.findChildren<QLabel *>()) {
        note(*label, clipped);
    }
    for (const QAbstractButton *button : window.findChildren<QAbstractButton *>()) {
        if (!button->text().isEmpty()) {
            note(*button, clipped);
        }
    }
    return clipped;
}
