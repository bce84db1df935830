#pragma once

#include <QImage>
#include <QStringList>
#include <QTimer>
#include <QWidget>

class MergePreview;
class QLabel;
class QPushButton;

/// The buttons below the preview, with their keys: how it is looked at. GUI thread.
class PreviewBar : public QWidget
{
    Q_OBJECT

public:
    /// preview: borrowed.
    explicit PreviewBar(MergePreview *preview, QWidget *parent = nullptr);

    /// While there is a picture.
    void setUsable(bool isUsable);
    /// The aligned shots that blinking shows one after the other, in the screen's colours.
    void setShots(const QList<QImage> &shots, const QStringList &names);
    /// Ends when they are those of another set.
    void stopBlinking();
    bool isBlinking() const;

Q_SIGNALS:
    /// Blinking has begun, and wants setShots.
    void shotsWanted();
    /// The picture before is held to be seen, or no more.
    void beforeHeld(bool isHeld);
    /// The picture before has to be there.
    void splitToggled(bool isOn);

private:
    QPushButton *add(const QString &text, const char *name, const QString &tip);
    QPushButton *addSwitch(const QString &text, const char *name, const QString &tip, Qt::Key key);
    void addZoom();
    void showZoom();
    void blink();

    MergePreview *preview;
    QPushButton *before;
    QPushButton *split;
    QPushButton *clipping;
    QPushButton *loupe;
    QPushButton *blinking;
    QLabel *zoomLabel = nullptr;
    QList<QImage> shots;
    QStringList names;
    qsizetype shownShot = 0;
    QTimer beat;
};
