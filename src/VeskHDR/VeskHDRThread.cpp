#include "VeskHDRThread.h"

#include "exposure_merge.h"
#include "mtb_alignment.h"
#include "opencl_merge.h"
#include "picture_pixels.h"

#include <QCoreApplication>
#include <QDialog>
#include <QImage>

#include <algorithm>
#include <array>
#include <exception>
#include <limits>
#include <memory>

namespace {

constexpr int kHighestPriority = std::numeric_limits<int>::max();
constexpr int kMaxDevicePictures = 5;

quint64 ticksSince(std::clock_t start)
{
    return static_cast<quint64>(std::clock() - start);
}

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

/// The picture as the device reads it: words in rows of 4 * width bytes, cut or padded with
/// transparent black to that size. Shares the pixels where it can; null without a picture, or
/// without memory.
QImage deviceWords(const QImage &picture, QSize size)
{
    const QImage words = pixels::asWords(picture);
    if (words.isNull() || (words.size() == size && words.bytesPerLine() == 4 * size.width()))
        return words;
    return words.convertToFormat(QImage::Format_ARGB32).copy({QPoint(0, 0), size});
}

} // namespace

VeskHDRThread::VeskHDRThread(QObject *parent)
{
    Q_UNUSED(parent)
}

VeskHDRThread::~VeskHDRThread() = default;

void VeskHDRThread::setParams(QList<QImage *> images, QImage *&result, QDialog *toClose,
                              bool onDevice, bool alignFirst)
{
    imageList = std::move(images);
    resultImage = result;
    dialog = toClose;
    useOpenCL = onDevice;
    align = alignFirst;
}

void VeskHDRThread::getData(QImage *&out) const
{
    out = resultImage;
}

quint64 VeskHDRThread::getTime() const
{
    return elapsedTicks;
}

bool VeskHDRThread::isFailed() const
{
    return failed;
}

QList<QImage *> VeskHDRThread::remainingPictures() const
{
    return imageList;
}

void VeskHDRThread::run()
{
    // Allocated first: the dialog must close even when the merge leaves no memory.
    auto completion = std::make_unique<MergeCompletionEvent>();
    try {
        if (!mergePictures())
            failed = true;
    } catch (const std::exception &) { // memory, or threads, are lacking
        failed = true;
    }
    QCoreApplication::postEvent(dialog, completion.release(), kHighestPriority);
}

/// Pictures that cannot be merged are refused before the alignment, which deletes what it shifts.
bool VeskHDRThread::canMerge() const
{
    if (imageList.isEmpty() || !std::all_of(imageList.begin(), imageList.end(), isPicture))
        return false;
    return useOpenCL ? imageList.size() <= kMaxDevicePictures : haveOneSize(imageList);
}

bool VeskHDRThread::mergePictures()
{
    if (!canMerge())
        return false;
    const std::clock_t start = std::clock();
    if (align)
        mtb_alignment(false, imageList);
    const bool isMerged = useOpenCL ? mergeOnDevice(start) : mergeOnProcessor(start);
    if (isMerged)
        deletePictures();
    return isMerged;
}

bool VeskHDRThread::mergeOnProcessor(std::clock_t start)
{
    std::unique_ptr<QImage> merged(mergeExposures(imageList));
    if (!merged)
        return false;
    elapsedTicks = ticksSince(start);
    resultImage = merged.release();
    return true;
}

bool VeskHDRThread::mergeOnDevice(std::clock_t start)
{
    const QSize size = imageList.first()->size();
    std::array<QImage, kMaxDevicePictures> words;
    std::array<uchar *, kMaxDevicePictures> rows = {};
    for (int i = 0; i < imageList.size(); ++i) {
        words[i] = deviceWords(*imageList[i], size);
        if (words[i].isNull())
            return false;
        // The merge only reads; QImage::bits would copy pixels that are shared.
        rows[i] = const_cast<uchar *>(words[i].constBits());
    }
    auto merged = std::make_unique<QImage>(size, QImage::Format_RGB32);
    if (merged->isNull())
        return false;
    merged->fill(Qt::black); // what a device that fails leaves to be seen
    elapsedTicks = ticksSince(start);
    elapsedTicks +=
        simpleOCLHDR(merged->bits(), rows.data(), size.width(), size.height(), imageList.size());
    resultImage = merged.release();
    return true;
}

void VeskHDRThread::deletePictures()
{
    qDeleteAll(imageList);
    imageList.clear();
}
