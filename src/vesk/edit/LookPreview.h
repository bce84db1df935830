#pragma once

#include <Look.h>

#include <QImage>
#include <QThreadPool>
#include <QWidget>

#include <atomic>
#include <functional>
#include <memory>
#include <utility>

class LookLayers;
class VeskCanvas;

/// The layers of a document without a look, bottom to top.
struct LookSource
{
    /// Gives their pictures, or none when that is no longer possible. Called once, on another
    /// thread.
    std::function<QList<QImage>()> pictures;
    QList<double> opacities; ///< 0 for a layer that is hidden
};

/// Lies over a canvas and shows what a look would make of its document, as large as the screen
/// needs it: the pixels in view are reduced once, and each look is laid on those, beside the GUI
/// thread. Only the last look asked for is shown. Lets the mouse through. The canvas owns it. GUI
/// thread.
class LookPreview : public QWidget
{
    Q_OBJECT

public:
    explicit LookPreview(VeskCanvas *canvas);
    ~LookPreview() override;

    /// Without pictures nothing is shown, and no memory held.
    void setSource(const LookSource &source);
    /// Shows itself when the first answer is there.
    void show(const exposure::Look &look);
    /// Gets ready for the present view, without showing anything.
    void prepare();
    /// The document shows the look itself now.
    void end();
    bool isUnderWay() const { return isWanted; }
    const QImage &shown() const { return answer; }
    /// What is shown in the document's own levels, and where in the canvas; null while nothing is.
    std::pair<QImage, QRectF> shownLevels() const;

Q_SIGNALS:
    void ready();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    /// What of the picture is in view, and where on the screen.
    struct View
    {
        QRect pixels; ///< of the document
        QSize size;   ///< of the preview, device pixels; not more than the pixels
        QRectF place; ///< in the canvas
        bool operator==(const View &other) const
        {
            return pixels == other.pixels && size == other.size && place == other.place;
        }
    };

    View view() const;
    void request(bool isForShow);
    void take(const QImage &levels, const QImage &picture, const View &view);
    void lay();
    bool isAnswered() const;

    VeskCanvas *canvas;
    LookSource source;
    int sourceNumber = 0;
    exposure::Look wanted;
    bool isWanted = false;
    QImage answerLevels;
    QImage answer; // in the screen's colours
    View answerView;
    View askedView;
    int round = 0; // answers for an earlier one are stale
    std::shared_ptr<std::atomic<int>> latest;
    std::shared_ptr<LookLayers> prepared; // what only the worker uses
    QThreadPool worker;                   // one thread
};
