#pragma once

#include <QImage>
#include <QWidget>

/// Shows what a merge would give, as large as it fits; the picture before it while showBefore is
/// set; or a text where there is no picture. GUI thread.
class MergePreview : public QWidget
{
    Q_OBJECT

public:
    explicit MergePreview(QWidget *parent = nullptr);

    /// In the screen's colours; null for none.
    void setAfter(const QImage &picture);
    void setBefore(const QImage &picture);
    void showBefore(bool isBefore);
    bool isShowingBefore() const { return isBeforeShown; }
    /// Said while there is no picture.
    void setText(const QString &text);
    const QString &text() const { return said; }
    /// What is shown now.
    const QImage &shown() const { return isBeforeShown ? before : after; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage after;
    QImage before;
    QString said;
    bool isBeforeShown = false;
};
