#include "VeskTitleWidget.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWindow>

#include <algorithm>

namespace {

constexpr int kUsualHeight = 32;
constexpr int kRoomAroundText = 8; // above and below together
constexpr int kButtonWidth = 36;
constexpr double kGlyphRadius = 4.5; // half the size of a button's sign

enum Shape { MinimizeShape, MaximizeShape, CloseShape };

QColor mixed(const QColor &a, const QColor &b, double shareOfB)
{
    const auto mix = [shareOfB](double x, double y) { return x + (y - x) * shareOfB; };
    return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()),
                            mix(a.blueF(), b.blueF()));
}

// The style's own title bar icons are bitmaps made for one theme; these follow the palette.
class TitleButton : public QAbstractButton
{
public:
    TitleButton(Shape buttonShape, QWidget *parent)
        : QAbstractButton(parent)
        , shape(buttonShape)
    {
        setFixedWidth(kButtonWidth);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
        setFocusPolicy(Qt::NoFocus); // the keyboard belongs to the content; Escape closes
        setAttribute(Qt::WA_Hover);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const bool isHot = underMouse() && isEnabled();
        if (isHot)
            painter.fillRect(rect(), backgroundColor());
        painter.setPen(QPen(glyphColor(isHot), 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(glyph().translated(QRectF(rect()).center()));
    }

private:
    QColor backgroundColor() const
    {
        if (shape == CloseShape)
            return isDown() ? QColor(0xa8, 0x1c, 0x1c) : QColor(0xd1, 0x34, 0x38);
        return mixed(palette().color(QPalette::Window), palette().color(QPalette::WindowText),
                     isDown() ? 0.25 : 0.15);
    }

    QColor glyphColor(bool isHot) const
    {
        if (isHot && shape == CloseShape)
            return Qt::white;
        return palette().color(isActiveWindow() ? QPalette::Active : QPalette::Disabled,
                               QPalette::WindowText);
    }

    QPainterPath glyph() const
    {
        constexpr double r = kGlyphRadius;
        QPainterPath path;
        switch (shape) {
        case MinimizeShape:
            path.moveTo(-r, 0);
            path.lineTo(r, 0);
            break;
        case MaximizeShape:
            path.addRect(-r, -r, 2 * r, 2 * r);
            break;
        case CloseShape:
            path.moveTo(-r, -r);
            path.lineTo(r, r);
            path.moveTo(-r, r);
            path.lineTo(r, -r);
            break;
        }
        return path;
    }

    const Shape shape;
};

} // namespace

VeskTitleWidget::VeskTitleWidget(TitleButtonFlag buttons, QWidget *parent)
    : QWidget(parent)
    , shownButtons(buttons)
    , label(new QLabel(this))
{
    fitHeight();
    setMinimumWidth(160);
    label->setTextFormat(Qt::PlainText);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    QFont font = label->font();
    font.setWeight(QFont::DemiBold);
    label->setFont(font);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(11, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(label, 1);
    if (buttons & MinimizeButton) {
        minimizeButton = addButton(MinimizeShape, QStringLiteral("minimizeButton"));
        connect(minimizeButton, &QAbstractButton::clicked, this,
                &VeskTitleWidget::minimizeRequested);
    }
    if (buttons & MaximizeButton) {
        maximizeButton = addButton(MaximizeShape, QStringLiteral("maximizeButton"));
        connect(maximizeButton, &QAbstractButton::clicked, this,
                &VeskTitleWidget::maximizeRequested);
    }
    closeButton = addButton(CloseShape, QStringLiteral("closeButton"));
    connect(closeButton, &QAbstractButton::clicked, this, &VeskTitleWidget::closeRequested);
    retranslate();
}

VeskTitleWidget::~VeskTitleWidget() = default;

QAbstractButton *VeskTitleWidget::addButton(int shape, const QString &name)
{
    auto *button = new TitleButton(static_cast<Shape>(shape), this);
    button->setObjectName(name);
    layout()->addWidget(button);
    return button;
}

void VeskTitleWidget::retranslate()
{
    const auto name = [](QAbstractButton *button, const QString &text) {
        if (!button)
            return;
        button->setToolTip(text);
        button->setAccessibleName(text);
    };
    name(minimizeButton, tr("Minimize"));
    name(maximizeButton, tr("Maximize"));
    name(closeButton, tr("Close"));
}

void VeskTitleWidget::setTitle(const QString &title)
{
    fullTitle = title;
    elideTitle();
}

void VeskTitleWidget::elideTitle()
{
    const QString shown =
        label->fontMetrics().elidedText(fullTitle, Qt::ElideRight, label->width());
    label->setText(shown);
    label->setToolTip(shown == fullTitle ? QString() : fullTitle);
}

void VeskTitleWidget::fitHeight()
{
    setFixedHeight(std::max(kUsualHeight, fontMetrics().height() + kRoomAroundText));
}

void VeskTitleWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    } else if (event->type() == QEvent::FontChange) {
        fitHeight();
        elideTitle();
    } else if (event->type() == QEvent::ActivationChange) {
        label->setEnabled(isActiveWindow()); // a frame in the background steps back
    }
}

void VeskTitleWidget::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    layout()->activate(); // the label must have its new width before the title is cut to it
    elideTitle();
}

void VeskTitleWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QColor window = palette().color(QPalette::Window);
    const QColor text = palette().color(QPalette::WindowText);
    painter.fillRect(rect(), mixed(window, text, 0.06));
    painter.fillRect(0, height() - 1, width(), 1, mixed(window, text, 0.18));
}

void VeskTitleWidget::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    pressPosition = event->globalPosition().toPoint();
    windowStart = window()->pos();
    isPressed = true;
}

void VeskTitleWidget::mouseMoveEvent(QMouseEvent *event)
{
    if (!isPressed || !(event->buttons() & Qt::LeftButton) || window()->isMaximized())
        return;
    if (!isDragging && (event->globalPosition().toPoint() - pressPosition).manhattanLength() <
                           QApplication::startDragDistance())
        return;
    if (!isDragging) {
        // The window system knows about screen edges and, on some, alone may move windows.
        QWindow *handle = window()->windowHandle();
        if (handle && handle->startSystemMove()) {
            isPressed = false;
            return;
        }
        isDragging = true;
    }
    window()->move(windowStart + event->globalPosition().toPoint() - pressPosition);
}

void VeskTitleWidget::mouseReleaseEvent(QMouseEvent *)
{
    isPressed = false;
    isDragging = false;
}

void VeskTitleWidget::mouseDoubleClickEvent(QMouseEvent *event)
{
    isPressed = false;
    if (event->button() == Qt::LeftButton && maximizeButton)
        Q_EMIT maximizeRequested();
}
