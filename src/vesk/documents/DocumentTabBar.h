#pragma once

#include <QTabBar>

/// The bar above the documents: no tab becomes too narrow to be read, rather the bar scrolls. The
/// middle button closes a tab. GUI thread.
class DocumentTabBar : public QTabBar
{
    Q_OBJECT

public:
    using QTabBar::QTabBar;

    /// What tabs with these labels would take, in pixels.
    int widthFor(const QStringList &labels) const;
    /// Draws a line over the tab in front.
    void setMarked(bool isMarked);

Q_SIGNALS:
    void closeOthersRequested(int index);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    QSize minimumTabSizeHint(int index) const override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    int frameWidth() const;

    bool isMarked = false;
    int pressedIndex = -1; // by the middle button
};
