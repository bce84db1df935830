#include "VeskHDRThread.h"

#include "exposure_merge.h"
#include "mtb_alignment.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDialog>
#include <QImage>

#include <algorithm>
#include <exception>
#include <limits>
#include <memory>

namespace {

constexpr int kHighestPriority = std::numeric_limits<int>::max();

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
    auto completion = std::make_unique<QCloseEvent>();
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
    return haveOneSize(imageList);
}

bool VeskHDRThread::mergePictures()
{
    if (!canMerge())
        return false;
    const std::clock_t start = std::clock();
    if (align)
        mtb_alignment(false, imageList);
    if (!mergeOnProcessor(start))
        return false;
    deletePictures();
    return true;
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

void VeskHDRThread::deletePictures()
{
    qDeleteAll(imageList);
    imageList.clear();
}
