#pragma once

#include <adjust.h>

#include <QImage>
#include <QObject>
#include <QRect>
#include <QThreadPool>

#include <atomic>
#include <memory>

/// A part of a merged picture at full size, to be shown.
struct RegionRequest
{
    QImage merged; ///< without its look
    QImage before; ///< of the same size, or null
    exposure::Look look;
    QRect area;    ///< of both
    QSize shownAs; ///< where that is smaller than the area
};

struct RegionPicture
{
    QRect area;
    QImage after;    ///< in the screen's colours, as are the others
    QImage before;   ///< null unless asked for
    QImage clipping; ///< see clipping::marks
};

/// Gives parts of a picture its look, beside the GUI thread, pixel for pixel as the whole would get
/// it. Only the last request is answered. GUI thread.
class RegionRenderer : public QObject
{
    Q_OBJECT

public:
    explicit RegionRenderer(QObject *parent = nullptr);
    ~RegionRenderer() override;

    void request(const RegionRequest &request);
    /// Drops what is under way.
    void cancel();

Q_SIGNALS:
    void ready(const RegionPicture &picture);

private:
    RegionPicture render(const RegionRequest &request); // on the worker's thread

    qint64 mapped = 0; // key of the picture that the map is of
    std::unique_ptr<exposure::LightMap> map;
    QThreadPool worker; // one thread
    std::shared_ptr<std::atomic<bool>> current;
};
