#pragma once

#include "VeskDialog.h"

/// The modeless frame around a tool's panel: the user goes on working in the document while it is
/// open. Hiding the panel's parent widget hides the frame; the tool shows both again with
/// panel->setVisible(true) and show(true). Closing it only hides it, so a tool can keep one frame
/// for its whole life. GUI thread only.
///
/// A tool calls the constructor.
class VESKUI_EXPORT VeskFilterContainer : public VeskDialog
{
    Q_OBJECT

public:
    /// Arguments and ownership as for VeskDialog.
    explicit VeskFilterContainer(
        QWidget *content,
        VeskTitleWidget::TitleButtonFlag buttons = VeskTitleWidget::CloseButtonOnly,
        bool isFixedSize = false, QWidget *parent = nullptr, bool staysOnTop = true);
    ~VeskFilterContainer() override;
};
