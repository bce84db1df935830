#pragma once

#include <QWidget>

/// A frame in the palette's highlight colour over a part of its window, with a breath of it inside.
/// The mouse does not meet it. GUI thread.
class DropFrame : public QWidget
{
    Q_OBJECT

public:
    explicit DropFrame(QWidget *window);

    /// Null, and a place in another window, hides it.
    void showAround(const QWidget *place);

protected:
    void paintEvent(QPaintEvent *event) override;
};
