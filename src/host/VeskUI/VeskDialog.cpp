#include "VeskDialog.h"
#include "window_placement.h"

#include <QEvent>
#include <QHideEvent>
#include <QPainter>
#include <QShowEvent>
#include <QSizeGrip>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int kBorder = 1;

Qt::WindowFlags frameFlags(bool staysOnTop)
{
    return (staysOnTop ? Qt::Tool : Qt::Dialog) | Qt::FramelessWindowHint;
}

/// The content in the frame's layout. A content may fix a minimum size that is too small for its
/// texts in a large font or in another language: it gets what its own layout asks for.
class ContentItem : public QWidgetItem
{
public:
    using QWidgetItem::QWidgetItem;

    QSize minimumSize() const override
    {
        const QSize fixed = QWidgetItem::minimumSize();
        const QLayout *inner = wid->layout();
        if (!inner)
            return fixed;
        const int width = std::max(fixed.width(), inner->totalSizeHint().width());
        const int height = inner->hasHeightForWidth() ? inner->minimumHeightForWidth(width)
                                                      : inner->totalMinimumSize().height();
        return {width, std::max(fixed.height(), height)};
    }

    QSize sizeHint() const override { return QWidgetItem::sizeHint().expandedTo(minimumSize()); }
};

} // namespace

VeskDialog::VeskDialog(QWidget *content, VeskTitleWidget::TitleButtonFlag buttons, bool isFixedSize,
                       QWidget *parent, bool staysOnTop)
    : QDialog(parent, frameFlags(staysOnTop))
    , title(new VeskTitleWidget(buttons, this))
    , embedded(content)
{
    setAttribute(Qt::WA_QuitOnClose, !staysOnTop);
    connect(title, &VeskTitleWidget::closeRequested, this, &QDialog::reject);
    connect(title, &VeskTitleWidget::minimizeRequested, this, &QWidget::showMinimized);
    connect(title, &VeskTitleWidget::maximizeRequested, this, &VeskDialog::toggleMaximized);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(kBorder, kBorder, kBorder, kBorder);
    column->setSpacing(0);
    column->addWidget(title);
    if (content)
        embedContent();
    if (isFixedSize)
        column->setSizeConstraint(QLayout::SetFixedSize);
    else
        sizeGrip = new QSizeGrip(this);
}

VeskDialog::~VeskDialog() = default;

void VeskDialog::embedContent()
{
    const bool hasOwnSize = embedded->testAttribute(Qt::WA_Resized);
    const QSize ownSize = embedded->size();
    // Flags of a top-level window have no meaning inside the frame, so they are dropped.
    embedded->setParent(this, Qt::Widget);
    auto *column = static_cast<QVBoxLayout *>(layout());
    column->addItem(new ContentItem(embedded));
    column->setStretchFactor(embedded, 1);
    connect(embedded, &QWidget::windowTitleChanged, this, &VeskDialog::takeTitleOf);
    takeTitleOf(embedded->windowTitle());
    if (hasOwnSize)
        resize(ownSize + QSize(2 * kBorder, title->height() + 2 * kBorder));
}

void VeskDialog::takeTitleOf(const QString &contentTitle)
{
    setWindowTitle(contentTitle); // for the task bar and for screen readers
    title->setTitle(contentTitle);
}

void VeskDialog::toggleMaximized()
{
    if (isMaximized())
        showNormal();
    else
        showMaximized();
}

void VeskDialog::show(bool isActivated)
{
    setAttribute(Qt::WA_ShowWithoutActivating, !isActivated);
    setVisible(true);
    raise();
    if (isActivated)
        activateWindow();
}

void VeskDialog::showEvent(QShowEvent *event)
{
    if (!event->spontaneous() && !parentWidget()) {
        QWidget *active = window_placement::stayAboveActive(*this);
        if (!testAttribute(Qt::WA_Moved))
            adjustPosition(active);
    }
    QDialog::showEvent(event);
}

void VeskDialog::hideEvent(QHideEvent *event)
{
    // QDialog centres itself at every show unless it was moved by the program: keep the place that
    // the user gave to the frame.
    if (!event->spontaneous())
        setAttribute(Qt::WA_Moved);
    QDialog::hideEvent(event);
}

void VeskDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && sizeGrip)
        sizeGrip->setVisible(!isMaximized());
}

void VeskDialog::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    if (!sizeGrip)
        return;
    sizeGrip->resize(sizeGrip->sizeHint());
    sizeGrip->move(rect().bottomRight() - sizeGrip->rect().bottomRight());
    sizeGrip->raise();
}

void VeskDialog::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QColor border = palette().color(QPalette::WindowText);
    border.setAlphaF(0.35);
    painter.setPen(border);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
