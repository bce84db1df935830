#pragma once

#include <develop_options.h>

#include <QObject>
#include <QThreadPool>

#include <memory>

/// Develops light beside the GUI thread. A new request ends the one under way; only the last one
/// is answered. GUI thread.
class LightDeveloper : public QObject
{
    Q_OBJECT

public:
    explicit LightDeveloper(QObject *parent = nullptr);
    ~LightDeveloper() override;

    /// What is to be made of the light.
    struct Request
    {
        QImage light;  ///< Format_RGBX32FPx4
        QSize largest; ///< the picture is reduced to fit into it; an empty one: it is not
        develop::Options how;
        bool isForScreen = false; ///< in the screen's colours
        bool marksWhite = false;  ///< what has no detail left because it is too bright, in red
    };
    void request(const Request &request);
    /// Drops what is under way.
    void cancel();
    bool isBusy() const { return current != nullptr; }

Q_SIGNALS:
    void progressed(double done);
    void ready(const develop::Result &result);

private:
    using Flag = std::shared_ptr<std::atomic<bool>>;

    void take(const develop::Result &result, const Flag &cancelled);
    develop::Result answer(const Request &request, const Flag &cancelled);
    const QImage &reduced(const QImage &light, QSize largest);

    QThreadPool worker; // one thread
    Flag current;
    // Used on the worker's thread only: the light as it was last reduced.
    qint64 reducedKey = 0;
    QSize reducedTo;
    QImage small;
};
