#pragma once

#include "vesk_title_widget.h"
#include "veskui_export.h"

#include <QDialog>
#include <QPointer>

/// The editor's dialog frame: shows one content widget below the editor's own title bar, under the
/// content's window title. GUI thread.
///
/// Closing it by the title bar, the Escape key or the window system rejects it. accept() and
/// reject() end exec() as in any dialog.
class VESKUI_EXPORT VeskDialog : public QDialog
{
    Q_OBJECT

public:
    /// Takes ownership of content, which becomes a direct child of the frame (not a window any
    /// more, whatever its flags) and is destroyed no later than it. resizable lets the user resize
    /// the frame; without it the frame follows the content's size. staysOnTop keeps the frame over
    /// the other windows of the editor. parent, if any, owns the frame.
    VeskDialog(QWidget *content, VeskTitleWidget::TitleButtonFlag flag, bool resizable,
               QWidget *parent, bool staysOnTop);
    ~VeskDialog() override;

    /// Borrowed; null once somebody else has deleted it.
    QWidget *contentWidget() const { return content; }

    using QDialog::show;
    /// Shows the frame and its content. activate also raises the frame and gives it the keyboard.
    void show(bool activate);

private:
    QPointer<QWidget> content;
};
