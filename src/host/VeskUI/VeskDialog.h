#pragma once

#include "VeskTitleWidget.h"
#include "veskui_export.h"

#include <QDialog>
#include <QPointer>

class QSizeGrip;

/// The editor's dialog frame: shows a content widget under the editor's own title bar.
///
/// The title bar shows the content's window title and follows its changes. Its close button and
/// the Escape key reject the dialog. The content is a plain child of the frame, whatever window
/// flags it had: the frame is its parent widget, and it can be hidden and shown on its own. GUI
/// thread only.
///
/// A tool calls the constructor, show(bool), exec and the destructor.
class VESKUI_EXPORT VeskDialog : public QDialog
{
    Q_OBJECT

public:
    /// content: shown at the size that it has when it was resized before, else at its size hint;
    ///     the frame owns it from now on and deletes it with itself. Null gives an empty frame.
    /// buttons: title bar buttons beside the close button.
    /// isFixedSize: true keeps the frame at the content's size hint, false lets the user resize it.
    /// parent: window that the frame stays above; owns the frame. With null the frame stays above
    ///     the window that is active when it is shown.
    /// staysOnTop: true for a utility window that stays above the editor's windows while the user
    ///     works in them, takes no place in the task bar and does not keep the program running;
    ///     false for a dialog.
    explicit VeskDialog(QWidget *content,
                        VeskTitleWidget::TitleButtonFlag buttons = VeskTitleWidget::CloseButtonOnly,
                        bool isFixedSize = false, QWidget *parent = nullptr,
                        bool staysOnTop = false);
    ~VeskDialog() override;

    using QDialog::show;
    /// Shows the frame in front of the editor's other windows. isActivated: true also gives it the
    /// keyboard, false leaves the keyboard where it is.
    void show(bool isActivated);

    /// Null once somebody else has deleted it.
    QWidget *contentWidget() const { return embedded; }
    VeskTitleWidget *titleBar() const { return title; }

protected:
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void embedContent();
    void takeTitleOf(const QString &contentTitle);
    void toggleMaximized();

    VeskTitleWidget *title;
    QPointer<QWidget> embedded;
    QSizeGrip *sizeGrip = nullptr;
};
