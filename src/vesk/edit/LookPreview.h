#pragma once

#include <Look.h>
#include <VeskCanvas.h>

#include <QImage>
#include <QThreadPool>

#include <atomic>
#include <functional>
#include <memory>

class LookLayers;

/// The layers of a document without a look, bottom to top.
struct LookSource
{
    /// Gives their pictures, or none when that is no longer possible. Called once, on another
    /// thread.
    std::function<QList<QImage>()> pictures;
    QList<double> opacities; ///< 0 for a layer that is hidden
};

/// Lets a canvas show what a look would make of its document, as large as the screen needs it: the
/// pixels in view are reduced once, and each look is laid on those, beside the GUI thread. Only the
/// last look asked for is shown. The canvas owns it. GUI thread.
class LookPreview : public QObject
{
    Q_OBJECT

public:
    explicit LookPreview(VeskCanvas *canvas);
    ~LookPreview() override;

    /// Without pictures nothing is shown, and no memory held.
    void setSource(const LookSource &source);
    /// Shown when the first answer is there.
    void show(const exposure::Look &look);
    /// Gets ready for the present view, without showing anything.
    void prepare();
    /// The document shows the look itself now, or shall be seen without it.
    void end();
    bool isUnderWay() const { return isWanted; }

Q_SIGNALS:
    /// The canvas shows an answer.
    void ready();

private:
    void request(bool isForShow);
    void take(const VeskCanvas::Preview &answer, int answeredRound);

    VeskCanvas *canvas;
    LookSource source;
    int sourceNumber = 0;
    exposure::Look wanted;
    bool isWanted = false;
    int round = 0; // answers for an earlier one are stale
    std::shared_ptr<std::atomic<int>> latest;
    std::shared_ptr<LookLayers> prepared; // what only the worker uses
    QThreadPool worker;                   // one thread
};
