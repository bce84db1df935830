#include "VeskHDRThread.h"

#include "VeskDeviceInfo.h"
#include "merge_pictures.h"

#include <QCoreApplication>
#include <QDialog>
#include <QImage>

#include <limits>
#include <memory>

namespace {

constexpr int kHighestPriority = std::numeric_limits<int>::max();
constexpr int kMaxDevicePictures = 5;

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

void VeskHDRThread::allowReuseOfPixels()
{
    mayReusePixels = true;
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
    mergePictures();
    QCoreApplication::postEvent(dialog, completion.release(), kHighestPriority);
}

/// A device's failure is none of the tool's: it shows what the device gave.
void VeskHDRThread::mergePictures()
{
    if (useOpenCL && imageList.size() > kMaxDevicePictures) {
        failed = true;
        return;
    }
    merge::Options options;
    options.align = align;
    options.onDevice = useOpenCL;
    options.mayReusePixels = mayReusePixels;
    if (useOpenCL)
        options.device = VeskDeviceInfo::getInstance()->getCurrentOpenCLDeviceID();
    merge::Outcome outcome = merge::mergePictures(imageList, options);
    if (outcome.error != merge::Error::None) {
        failed = true;
        return;
    }
    elapsedTicks = outcome.ticks;
    resultImage = outcome.picture.release();
}
