#include "VeskFilterContainer.h"

#include <QPushButton>

VeskFilterContainer::VeskFilterContainer(QWidget *content, VeskTitleWidget::TitleButtonFlag buttons,
                                         bool isFixedSize, QWidget *parent, bool staysOnTop)
    : VeskDialog(content, buttons, isFixedSize, parent, staysOnTop)
{
    setModal(false);
    // A dialog would make the first button of a panel the one that Enter presses.
    const QList<QPushButton *> panelButtons = findChildren<QPushButton *>();
    for (QPushButton *button : panelButtons)
        button->setAutoDefault(false);
}

VeskFilterContainer::~VeskFilterContainer() = default;
