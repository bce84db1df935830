#include "StartPage.h"

#include <QAction>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int kIconSide = 96;
constexpr int kButtonIconSide = 24;
constexpr int kButtonWidth = 260;

/// Gives way where the window is low: a small screen needs the buttons more.
class Emblem : public QWidget
{
public:
    QSize sizeHint() const override { return {kIconSide, kIconSide}; }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        icon.paint(&painter, rect());
    }

private:
    const QIcon icon{QStringLiteral(":/vesk/vesk.svg")};
};

QToolButton *buttonFor(QAction *action)
{
    auto *button = new QToolButton;
    button->setDefaultAction(action);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setIconSize(QSize(kButtonIconSide, kButtonIconSide));
    button->setMinimumWidth(kButtonWidth);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

} // namespace

StartPage::StartPage(const QList<QAction *> &actions, QWidget *parent)
    : QWidget(parent)
{
    auto *hint = new QLabel(tr("Drop photographs or a folder here"));
    QFont font = hint->font();
    font.setPointSizeF(font.pointSizeF() * 1.3);
    hint->setFont(font);

    auto *column = new QVBoxLayout(this);
    column->addStretch();
    column->addWidget(new Emblem, 0, Qt::AlignHCenter);
    column->addSpacing(8);
    column->addWidget(hint, 0, Qt::AlignHCenter);
    column->addSpacing(8);
    for (QAction *action : actions)
        column->addWidget(buttonFor(action), 0, Qt::AlignHCenter);
    column->addStretch();
}
