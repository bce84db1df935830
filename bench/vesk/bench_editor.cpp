// What the editor's user waits for, in milliseconds:
//
//   bench_editor [PICTURE...]
//
// frames while a picture of 24 megapixels is panned, with 8 and 16 bits, in the screen's colours
// and not; and, where pictures are given, the preview of their merge after each kind of change, and
// how soon a merge at full size is over once it is cancelled. Wall clock and processor time of the
// process. Needs a platform, offscreen is enough.

#include "MergeJob.h"
#include "MergePreviewer.h"
#include "MergeShot.h"
#include "picture_document.h"
#include "screen_colours.h"

#include <VeskCanvas.h>
#include <VeskContext.h>

#include <QApplication>
#include <QColorSpace>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QtTest>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

constexpr QSize kPictureSize(6000, 4000);
constexpr QSize kCanvasSize(1920, 1080);
constexpr int kFrames = 40;

constexpr int kPatienceMs = 120000;

/// Wall clock and processor time since its construction.
class Watch
{
public:
    Watch() { wall.start(); }
    double wallMs() const { return double(wall.nsecsElapsed()) / 1e6; }
    double processorMs() const { return double(std::clock() - ticks) * 1e3 / CLOCKS_PER_SEC; }

private:
    QElapsedTimer wall;
    const std::clock_t ticks = std::clock();
};

QImage largePicture(QImage::Format format, QColorSpace::NamedColorSpace space)
{
    QImage picture(kPictureSize, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            row[x] = qRgb(x / 24, y / 16, (x ^ y) & 255);
    }
    picture = picture.convertToFormat(format);
    picture.setColorSpace(space);
    return picture;
}

void measurePan(const char *name, const QImage &picture, double zoom)
{
    QWidget window;
    const std::unique_ptr<VeskContext> document(document::create(picture, {}, {}, &window));
    VeskCanvas *canvas = document->getCanvas();
    canvas->resize(kCanvasSize);
    canvas->setZoom(zoom);
    QImage screen(kCanvasSize, QImage::Format_RGB32);
    const Watch first;
    canvas->render(&screen);
    const double firstMs = first.processorMs();
    std::vector<double> frames;
    for (int frame = 0; frame < kFrames; ++frame) {
        QTest::keyClick(canvas, frame % 2 == 0 ? Qt::Key_Right : Qt::Key_Down);
        const Watch watch;
        canvas->render(&screen);
        frames.push_back(watch.processorMs());
    }
    std::sort(frames.begin(), frames.end());
    std::printf("pan   %-28s zoom %.2f: first %6.1f, median %6.1f, worst %6.1f\n", name, zoom,
                firstMs, frames[frames.size() / 2], frames.back());
}

void measurePreview(const char *change, MergePreviewer &previewer, const QList<QImage> &shots,
                    const MergeSettings &settings)
{
    bool isReady = false;
    const QMetaObject::Connection connection =
        QObject::connect(&previewer, &MergePreviewer::ready, [&] { isReady = true; });
    const Watch watch;
    previewer.request(shots, settings);
    while (!isReady && watch.wallMs() < kPatienceMs)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::printf("preview  %-20s wall %7.1f, processor %7.1f\n", change, watch.wallMs(),
                watch.processorMs());
    QObject::disconnect(connection);
}

void measurePreviews(const QStringList &paths)
{
    QList<QImage> shots;
    const std::atomic<bool> never{false};
    for (const QString &path : paths)
        shots.append(merge_shot::read(path, never).small);
    MergePreviewer previewer;
    MergeSettings settings;
    measurePreview("first", previewer, shots, settings);
    settings.options.adjustment.exposure = 0.5;
    measurePreview("look", previewer, shots, settings);
    settings.options.ghosts = exposure::Ghosts::Keep;
    measurePreview("ghosts", previewer, shots, settings);
    settings.options.alignment = exposure::Alignment::None;
    measurePreview("alignment", previewer, shots, settings);
    settings.method = exposure::Method::Mean;
    measurePreview("method", previewer, shots, settings);
}

/// When the worker has let go, not only the user.
void measureCancel(const QStringList &paths, double afterShare)
{
    auto job = std::make_unique<MergeJob>();
    double reached = 0;
    QObject::connect(job.get(), &MergeJob::progressed,
                     [&](const QString &, double done) { reached = done; });
    MergeTask task;
    task.paths = paths;
    job->start(task);
    const Watch patience;
    while (reached < afterShare && job->isRunning() && patience.wallMs() < kPatienceMs)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const Watch watch;
    job->cancel();
    const double user = watch.wallMs();
    job.reset();
    std::printf("cancel  at %3.0f %%: user free after %.2f, worker gone after wall %.1f, processor "
                "%.1f\n",
                100 * reached, user, watch.wallMs(), watch.processorMs());
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    screen_colours::applySettings();
    const QImage plain = largePicture(QImage::Format_RGB32, QColorSpace::SRgb);
    const QImage wide = largePicture(QImage::Format_RGB32, QColorSpace::DisplayP3);
    const QImage deep = largePicture(QImage::Format_RGBX64, QColorSpace::ProPhotoRgb);
    for (const double zoom : {1.0, 0.6}) {
        measurePan("8 bits, sRGB", plain, zoom);
        measurePan("8 bits, Display P3", wide, zoom);
        measurePan("16 bits, ProPhoto RGB", deep, zoom);
    }
    const QStringList paths = QCoreApplication::arguments().mid(1);
    if (paths.size() < 2)
        return 0;
    measurePreviews(paths);
    for (const double share : {0.05, 0.4, 0.7, 0.85})
        measureCancel(paths, share);
    return 0;
}
