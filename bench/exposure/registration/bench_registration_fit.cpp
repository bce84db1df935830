// Prints how well the shots of a set lie over one another, before and after registration:
//   bench_registration_fit [--save DIR] [--reference N] PICTURE...

#include "local_correlation.h"
#include "registration.h"
#include "resample.h"

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>

#include <cstdio>

namespace {

QImage read(const QString &path)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    const QImage picture = reader.read();
    return picture.depth() == 32 || picture.depth() == 64
               ? picture
               : picture.convertToFormat(QImage::Format_RGB32);
}

/// Mean squared difference of neighbours, across and down, where the mask is covered.
double gradientEnergy(const QImage &picture, const QImage &mask)
{
    double sum = 0;
    for (int y = 0; y + 1 < picture.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        const auto *below = reinterpret_cast<const QRgb *>(picture.constScanLine(y + 1));
        const auto *covered = reinterpret_cast<const QRgb *>(mask.constScanLine(y));
        const auto *coveredBelow = reinterpret_cast<const QRgb *>(mask.constScanLine(y + 1));
        for (int x = 0; x + 1 < picture.width(); ++x) {
            if (qAlpha(covered[x] & covered[x + 1] & coveredBelow[x]) == 255) {
                const int across = qGreen(row[x + 1]) - qGreen(row[x]);
                const int down = qGreen(below[x]) - qGreen(row[x]);
                sum += across * across + down * down;
            }
        }
    }
    return sum;
}

void printMatrix(const registration::Matrix &m)
{
    std::printf("    %.6f %.6f %.3f  %.6f %.6f %.3f  %.3e %.3e\n", m[0], m[1], m[2], m[3], m[4],
                m[5], m[6], m[7]);
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    QCommandLineParser parser;
    parser.addOptions({{"save", "folder for the aligned shots", "folder"},
                       {"reference", "index of the reference", "index", "-1"}});
    parser.process(app);
    QList<QImage> shots;
    for (const QString &path : parser.positionalArguments())
        shots.append(read(path));
    registration::Options options;
    options.reference = parser.value("reference").toInt();
    QElapsedTimer timer;
    timer.start();
    const registration::Result result = registration::registerShots(shots, options);
    const double elapsed = double(timer.nsecsElapsed()) / 1e6;
    if (result.outcome != registration::Outcome::Done)
        return 1;
    const QImage &reference = shots[result.reference];
    for (int i = 0; i < int(shots.size()); ++i) {
        const registration::Transform &transform = result.transforms[size_t(i)];
        timer.start();
        const QImage aligned = registration::resample(shots[i], transform, reference.size());
        const double resampling = double(timer.nsecsElapsed()) / 1e6;
        std::printf("%-28s %-11s confidence %.2f residual %.2f px  correlation %.3f -> %.3f  "
                    "sharpness %.3f  %.0f ms\n",
                    qPrintable(QFileInfo(parser.positionalArguments()[i]).fileName()),
                    qPrintable(registration::kindName(transform.kind)), transform.confidence,
                    transform.residualPixels, localCorrelation(reference, shots[i]).mean,
                    localCorrelation(reference, aligned).mean,
                    gradientEnergy(aligned, aligned) / gradientEnergy(shots[i], aligned), resampling);
        printMatrix(transform.matrix);
        if (parser.isSet("save"))
            aligned.save(QStringLiteral("%1/%2.png").arg(parser.value("save")).arg(i));
    }
    std::printf("registered %d shots in %.1f ms\n", int(shots.size()), elapsed);
    return 0;
}
