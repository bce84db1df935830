#pragma once

#include <QImage>
#include <QObject>
#include <QString>
#include <QThreadPool>

#include <atomic>

namespace thumbnail {

/// A small, upright copy of a picture file in the colours of the screen, at most side x side pixels
/// and never enlarged; null when the file is no picture or would take too much memory. Raw
/// conversions end soon after cancelled has become true. Any thread.
QImage make(const QString &path, int side, const std::atomic<bool> &cancelled);

} // namespace thumbnail

/// Makes thumbnails beside the GUI thread. What was asked for last comes first: that is what the
/// user is looking at. Destroying it waits for those under way. GUI thread.
class ThumbnailLoader : public QObject
{
    Q_OBJECT

public:
    explicit ThumbnailLoader(int side, QObject *parent = nullptr);
    ~ThumbnailLoader() override;

    /// Returns the number of the request, never 0 and never used again.
    int request(const QString &path);
    /// Drops what has not been started yet. Answers on their way still come.
    void dropWaiting() { waiting.clear(); }

Q_SIGNALS:
    /// Answers a request. thumbnail is null when there is none to be had.
    void ready(int request, const QString &path, const QImage &thumbnail);

private:
    struct Request
    {
        int number;
        QString path;
    };

    void startNext();
    void take(const Request &request, const QImage &thumbnail);

    const int side;
    QThreadPool workers;
    std::atomic<bool> cancelled{false};
    QList<Request> waiting; // asked last at the end
    int running = 0;
    int lastNumber = 0;
};
