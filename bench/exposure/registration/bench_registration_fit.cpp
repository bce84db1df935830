// Prints how well the shots of a set lie over one another before and after registration, beside
// OpenCV's findTransformECC where that is installed, and how long each pair takes:
//   bench_registration_fit [--save FOLDER] [--reference N] [--no-ecc] PICTURE...

#include "LocalCorrelation.h"
#include "registration.h"
#include "resample.h"
#ifdef VESK_HAS_OPENCV
#include "opencv_ecc.h"
#endif

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

using registration::Transform;

QImage read(const QString &path)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    return reader.read();
}

/// Mean squared difference of neighbours, across and down, where the mask is covered.
double gradientEnergy(const QImage &anyPicture, const QImage &anyMask)
{
    const QImage picture = anyPicture.convertToFormat(QImage::Format_ARGB32);
    const QImage mask = anyMask.convertToFormat(QImage::Format_ARGB32);
    const auto row = [](const QImage &image, int y) {
        return reinterpret_cast<const QRgb *>(image.constScanLine(y));
    };
    double sum = 0;
    for (int y = 0; y + 1 < picture.height(); ++y) {
        const QRgb *here = row(picture, y);
        const QRgb *below = row(picture, y + 1);
        for (int x = 0; x + 1 < picture.width(); ++x) {
            if (qAlpha(row(mask, y)[x] & row(mask, y)[x + 1] & row(mask, y + 1)[x]) < 255)
                continue;
            const int across = qGreen(here[x + 1]) - qGreen(here[x]);
            const int down = qGreen(below[x]) - qGreen(here[x]);
            sum += across * across + down * down;
        }
    }
    return sum;
}

struct Times
{
    double wall = 0.0; ///< milliseconds
    double processor = 0.0;
};

/// The shortest of some runs.
template <typename Work>
Times timed(const Work &work, int runs)
{
    Times best{1e9, 1e9};
    for (int i = 0; i < runs; ++i) {
        const std::clock_t started = std::clock();
        QElapsedTimer timer;
        timer.start();
        work();
        best.wall = std::min(best.wall, double(timer.nsecsElapsed()) / 1e6);
        best.processor =
            std::min(best.processor, 1e3 * double(std::clock() - started) / CLOCKS_PER_SEC);
    }
    return best;
}

void printCorrelation(const char *name, const QImage &reference, const QImage &shot)
{
    const LocalCorrelation full = localCorrelation(reference, shot);
    const LocalCorrelation half =
        localCorrelation(reference.scaled(reference.size() / 2), shot.scaled(reference.size() / 2));
    std::printf("    %-9s correlation %.3f (%d windows), at half size %.3f (%d)\n", name, full.mean,
                full.windows, half.mean, half.windows);
}

void printOurs(const QImage &reference, const QImage &shot, const Transform &transform)
{
    QImage aligned;
    const Times times =
        timed([&] { aligned = registration::resample(shot, transform, reference.size()); }, 3);
    printCorrelation("before", reference, shot);
    printCorrelation("after", reference, aligned);
    std::printf("    sharpness %.3f, resampled in %.1f ms (%.1f ms of processor)\n",
                gradientEnergy(aligned, aligned) / gradientEnergy(shot, aligned), times.wall,
                times.processor);
}

void printPair(const QImage &reference, const QImage &shot)
{
    registration::Options options;
    options.reference = 0;
    const Times times = timed([&] { registration::registerShots({reference, shot}, options); }, 5);
    std::printf("    the pair alone in %.1f ms (%.1f ms of processor)\n", times.wall,
                times.processor);
}

void printEcc(const QImage &reference, const QImage &shot)
{
#ifdef VESK_HAS_OPENCV
    Transform ecc;
    ecc.kind = registration::Kind::Perspective;
    const Times times = timed([&] { ecc.matrix = opencv::eccHomography(reference, shot); }, 1);
    printCorrelation("ECC", reference, registration::resample(shot, ecc, reference.size()));
    std::printf("    ECC in %.1f ms (%.1f ms of processor)\n", times.wall, times.processor);
#else
    Q_UNUSED(reference)
    Q_UNUSED(shot)
#endif
}

void printTransform(const QString &path, const Transform &transform)
{
    const registration::Matrix &m = transform.matrix;
    std::printf("%s: %s, confidence %.2f, residual %.2f px\n"
                "    %.6f %.6f %.3f  %.6f %.6f %.3f  %.3e %.3e\n",
                qPrintable(QFileInfo(path).fileName()),
                qPrintable(registration::kindName(transform.kind)), transform.confidence,
                transform.residualPixels, m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7]);
}

void save(const QString &folder, int index, const QImage &shot, const QImage &aligned)
{
    if (folder.isEmpty())
        return;
    shot.save(QStringLiteral("%1/%2-before.png").arg(folder).arg(index), nullptr, 90);
    aligned.save(QStringLiteral("%1/%2-after.png").arg(folder).arg(index), nullptr, 90);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOptions({{"save", "folder for the aligned shots", "folder"},
                       {"reference", "index of the reference", "index", "-1"},
                       {"no-ecc", "leave out OpenCV"}});
    parser.process(application);
    const QStringList paths = parser.positionalArguments();
    QList<QImage> shots;
    for (const QString &path : paths)
        shots.append(read(path));
    registration::Options options;
    options.reference = parser.value("reference").toInt();
    const registration::Result result = registration::registerShots(shots, options);
    if (result.outcome != registration::Outcome::Done)
        return 1;
    const QImage &reference = shots[result.reference];
    for (int i = 0; i < int(shots.size()); ++i) {
        const Transform &transform = result.transforms[size_t(i)];
        printTransform(paths[i], transform);
        save(parser.value("save"), i, shots[i],
             registration::resample(shots[i], transform, reference.size()));
        if (i == result.reference)
            continue;
        printOurs(reference, shots[i], transform);
        printPair(reference, shots[i]);
        if (!parser.isSet("no-ecc"))
            printEcc(reference, shots[i]);
    }
    return 0;
}
