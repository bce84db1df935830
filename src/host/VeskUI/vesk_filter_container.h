#pragma once

#include "vesk_dialog.h"

/// The frame of a tool's panel: a dialog that stays open beside the document while the user works,
/// not modal, and that is hidden, not destroyed, when it is closed. GUI thread.
class VESKUI_EXPORT VeskFilterContainer : public VeskDialog
{
    Q_OBJECT

public:
    /// As VeskDialog.
    VeskFilterContainer(QWidget *content, VeskTitleWidget::TitleButtonFlag flag, bool resizable,
                        QWidget *parent, bool staysOnTop);
    ~VeskFilterContainer() override;
};
