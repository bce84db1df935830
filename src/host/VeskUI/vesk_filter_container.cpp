#include "vesk_filter_container.h"

VeskFilterContainer::VeskFilterContainer(QWidget *content, VeskTitleWidget::TitleButtonFlag buttons,
                                         bool isFixedSize, QWidget *parent, bool staysOnTop)
    : VeskDialog(content, buttons, isFixedSize, parent, staysOnTop)
{
    setModal(false);
}

VeskFilterContainer::~VeskFilterContainer() = default;
