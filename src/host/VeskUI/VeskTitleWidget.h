#pragma once

#include "veskui_export.h"

#include <QPoint>
#include <QString>
#include <QWidget>

class QAbstractButton;
class QLabel;

/// Title bar of the editor's own frames: shows a title, lets the user drag the window that it sits
/// in, and has buttons at its end. It draws with the palette only, so it fits light and dark
/// themes. It closes nothing itself, it tells. GUI thread only.
class VESKUI_EXPORT VeskTitleWidget : public QWidget
{
    Q_OBJECT

public:
    /// Buttons beside the close button, which is always there. The values may be or-ed.
    enum TitleButtonFlag {
        CloseButtonOnly = 0x0,
        MinimizeButton = 0x1,
        MaximizeButton = 0x2,
        MinimizeAndMaximizeButtons = MinimizeButton | MaximizeButton
    };

    /// parent, if any, owns the title bar.
    explicit VeskTitleWidget(TitleButtonFlag buttons = CloseButtonOnly, QWidget *parent = nullptr);
    ~VeskTitleWidget() override;

    TitleButtonFlag buttons() const { return shownButtons; }
    /// The title as it was set; what is shown is cut with an ellipsis where it does not fit.
    QString title() const { return fullTitle; }

public Q_SLOTS:
    void setTitle(const QString &title);

Q_SIGNALS:
    void closeRequested();
    void minimizeRequested();
    /// The user asks to change between maximized and normal: by the button, or by a double click
    /// where there is a button.
    void maximizeRequested();

protected:
    void changeEvent(QEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QAbstractButton *addButton(int shape, const QString &name);
    void retranslate();
    void elideTitle();
    void fitHeight();

    const TitleButtonFlag shownButtons;
    QString fullTitle;
    QLabel *label;
    QAbstractButton *minimizeButton = nullptr;
    QAbstractButton *maximizeButton = nullptr;
    QAbstractButton *closeButton = nullptr;
    QPoint pressPosition; // on the screen
    QPoint windowStart;   // where the window was then
    bool isPressed = false;
    bool isDragging = false;
};
