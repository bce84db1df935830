// Reading and writing at 16 bits beside 8 bits, and with true colours beside the file's numbers:
// ratios of processor time, one thread, in one run. bench_codecs PHOTOGRAPH: one of 16 bits as it
// is, one of 8 bits with levels in between.

#include "ColourTransform.h"
#include "colour_profile.h"
#include "parallel_rows.h"
#include "picture_reader.h"
#include "picture_writer.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRgba64>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include <time.h>

namespace {

constexpr int kRuns = 5;

double processorSeconds()
{
    timespec time = {};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + 1e-9 * double(time.tv_nsec);
}

double median(std::vector<double> numbers)
{
    std::sort(numbers.begin(), numbers.end());
    return numbers[numbers.size() / 2];
}

/// Median of processor time of one over that of the other, in turns.
void printRatio(const char *title, const std::function<void()> &one,
                const std::function<void()> &other, double share)
{
    std::vector<double> ofOne;
    std::vector<double> ofOther;
    for (int run = 0; run <= kRuns; ++run) {
        const double begin = processorSeconds();
        one();
        const double middle = processorSeconds();
        other();
        if (run == 0)
            continue; // warms up
        ofOne.push_back(middle - begin);
        ofOther.push_back(processorSeconds() - middle);
    }
    std::printf("%-58s %7.0f ms %7.0f ms %6.2f x\n", title, 1000 * median(ofOne),
                1000 * median(ofOther), median(ofOne) / median(ofOther) / share);
}

/// The photograph with levels between those of 8 bits: each the mean of two by two.
QImage deepened(const QImage &photograph)
{
    const QImage words = photograph.convertToFormat(QImage::Format_RGBX64);
    QImage deep(words.size() - QSize(1, 1), QImage::Format_RGBX64);
    for (int y = 0; y < deep.height(); ++y) {
        const auto *upper = reinterpret_cast<const quint16 *>(words.constScanLine(y));
        const auto *lower = reinterpret_cast<const quint16 *>(words.constScanLine(y + 1));
        auto *row = reinterpret_cast<quint16 *>(deep.scanLine(y));
        for (int i = 0; i < 4 * deep.width(); ++i)
            row[i] = quint16((upper[i] + upper[i + 4] + lower[i] + lower[i + 4]) / 4);
    }
    return deep;
}

void write(const QImage &picture, const QString &path, TiffCompression compression)
{
    WriteOptions how;
    how.mayReplace = true;
    how.tiffCompression = compression;
    const WriteResult result = picture::write(picture, path, *picture::formatOfSuffix(path), how);
    if (!result.reason.isEmpty())
        qFatal("%s", qPrintable(result.reason));
}

void read(const QString &path, ReadOptions::Colours colours)
{
    ReadOptions options;
    options.depth = ReadOptions::Depth::AsStored;
    options.colours = colours;
    if (picture::read(path, options).image.isNull())
        qFatal("cannot read %s", qPrintable(path));
}

void compareDepths(const QImage &deep, const QImage &flat, const QTemporaryDir &folder)
{
    constexpr double kBytes = 2; // as many as at 8 bits
    const struct
    {
        const char *name;
        const char *file;
        TiffCompression compression;
    } kinds[] = {{"PNG", "a.png", TiffCompression::Lzw},
                 {"TIFF, LZW", "a.tif", TiffCompression::Lzw},
                 {"TIFF, Deflate", "b.tif", TiffCompression::Deflate},
                 {"TIFF, none", "c.tif", TiffCompression::None}};
    for (const auto &kind : kinds) {
        const QString ofDeep = folder.filePath(QStringLiteral("deep_") + kind.file);
        const QString ofFlat = folder.filePath(QStringLiteral("flat_") + kind.file);
        const QByteArray name = kind.name;
        printRatio(("write " + name + ", 16 bits / 8 bits, per byte").constData(),
                   [&] { write(deep, ofDeep, kind.compression); },
                   [&] { write(flat, ofFlat, kind.compression); }, kBytes);
        printRatio(("read " + name + ", 16 bits / 8 bits, per byte").constData(),
                   [&] { read(ofDeep, ReadOptions::Colours::True); },
                   [&] { read(ofFlat, ReadOptions::Colours::True); }, kBytes);
        printRatio(("read " + name + ", 8 bits, true colours / numbers").constData(),
                   [&] { read(ofFlat, ReadOptions::Colours::True); },
                   [&] { read(ofFlat, ReadOptions::Colours::AsStored); }, 1);
    }
}

void convert(const QImage &picture)
{
    QImage converted = picture;
    ColourTransform::bring(converted, colour_profile::of(colour_profile::Space::AdobeRgb));
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QString photograph = application.arguments().value(1);
    ReadOptions asStored;
    asStored.depth = ReadOptions::Depth::AsStored;
    const QImage picture = picture::read(photograph, asStored).image;
    const QTemporaryDir folder;
    if (picture.isNull() || !folder.isValid()) {
        std::fprintf(stderr, "usage: bench_codecs PHOTOGRAPH\n");
        return 64;
    }
    parallel::setThreadLimit(1);
    QImage deep =
        picture.depth() == 64 ? picture.convertToFormat(QImage::Format_RGBX64) : deepened(picture);
    QImage flat = deep.convertToFormat(QImage::Format_RGB32);
    printRatio(
        "read the photograph, true colours / numbers",
        [&] { read(photograph, ReadOptions::Colours::True); },
        [&] { read(photograph, ReadOptions::Colours::AsStored); }, 1);
    compareDepths(deep, flat, folder);
    printRatio(
        "convert colours, 16 bits / 8 bits, per byte", [&] { convert(deep); },
        [&] { convert(flat); }, 2);
    return 0;
}
