#include "merge_pictures.h"

#include "exposure_merge.h"
#include "mtb_shifts.h"
#include "opencl_merge.h"
#include "picture_pixels.h"

#include <QColorSpace>

#include <algorithm>
#include <ctime>
#include <exception>
#include <new>

namespace {

bool isPicture(const QImage *picture)
{
    return picture && !picture->isNull();
}

bool haveOneSize(const QList<QImage *> &pictures)
{
    return std::all_of(pictures.begin(), pictures.end(), [&pictures](const QImage *picture) {
        return picture->size() == pictures.first()->size();
    });
}

/// What makes a merge impossible is found before the alignment, which deletes what it shifts.
merge::Error problemOf(const QList<QImage *> &pictures, const merge::Options &options)
{
    if (pictures.isEmpty() || !std::all_of(pictures.begin(), pictures.end(), isPicture))
        return merge::Error::NoPictures;
    return options.onDevice || haveOneSize(pictures) ? merge::Error::None
                                                     : merge::Error::DifferentSizes;
}

quint64 ticksSince(std::clock_t start)
{
    return static_cast<quint64>(std::clock() - start);
}

void keepProfileAndResolution(const QImage &first, QImage &merged)
{
    merged.setColorSpace(first.colorSpace());
    merged.setDotsPerMeterX(first.dotsPerMeterX());
    merged.setDotsPerMeterY(first.dotsPerMeterY());
}

/// The picture as a device reads it: words in rows of 4 * width bytes, of this size. Shares the
/// pixels where it can.
QImage deviceWords(const QImage &picture, QSize size)
{
    QImage words = pixels::asWords(picture);
    if (words.size() != size || words.bytesPerLine() != 4 * size.width()) {
        const QImage view(words.constBits(), words.width(), words.height(), words.bytesPerLine(),
                          QImage::Format_ARGB32);
        words = view.copy({QPoint(0, 0), size});
    }
    if (words.isNull())
        throw std::bad_alloc();
    return words;
}

QImage opaqueBlack(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    if (picture.isNull())
        throw std::bad_alloc();
    picture.fill(Qt::black);
    return picture;
}

void mergeOnDevice(const QList<QImage *> &pictures, cl_device_id device, std::clock_t start,
                   merge::Outcome &outcome)
{
    const QSize size = pictures.first()->size();
    std::vector<QImage> words;
    std::vector<uchar *> rows;
    for (const QImage *picture : pictures) {
        words.push_back(deviceWords(*picture, size));
        // The merge only reads; QImage::bits would copy pixels that are shared.
        rows.push_back(const_cast<uchar *>(words.back().constBits()));
    }
    outcome.picture = std::make_unique<QImage>(opaqueBlack(size));
    const quint64 ticksBefore = ticksSince(start);
    const opencl::Run run =
        opencl::mergeWords(device, outcome.picture->bits(), rows.data(), size.width(),
                           size.height(), static_cast<int>(rows.size()));
    outcome.ticks = ticksBefore + run.ticks;
    outcome.isDeviceComplete = run.isComplete;
}

void mergeOnProcessor(const QList<QImage *> &pictures, std::clock_t start, merge::Outcome &outcome)
{
    outcome.picture.reset(mergeExposures(pictures));
    if (!outcome.picture)
        throw std::bad_alloc();
    outcome.ticks = ticksSince(start);
}

void alignAndMerge(QList<QImage *> &pictures, const merge::Options &options,
                   merge::Outcome &outcome)
{
    const std::clock_t start = std::clock();
    if (options.align) {
        options.beforeStep(merge::Step::Align);
        const auto memory = options.mayReusePixels ? shift::Memory::Reused : shift::Memory::New;
        mtb::Alignment found = mtb::alignPictures(pictures, false, memory);
        outcome.pairShifts = std::move(found.pairShifts);
        outcome.summedShifts = std::move(found.summedShifts);
    }
    options.beforeStep(merge::Step::Merge);
    if (options.onDevice)
        mergeOnDevice(pictures, options.device, start, outcome);
    else
        mergeOnProcessor(pictures, start, outcome);
    keepProfileAndResolution(*pictures.first(), *outcome.picture);
}

} // namespace

merge::Outcome merge::mergePictures(QList<QImage *> &pictures, const Options &options)
{
    Outcome outcome;
    outcome.error = problemOf(pictures, options);
    if (outcome.error != Error::None)
        return outcome;
    try {
        alignAndMerge(pictures, options, outcome);
    } catch (const std::exception &) { // memory, or threads, are lacking
        outcome = Outcome();
        outcome.error = Error::NoMemory;
        return outcome;
    }
    qDeleteAll(pictures);
    pictures.clear();
    return outcome;
}
