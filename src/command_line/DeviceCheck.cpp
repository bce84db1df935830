#include "DeviceCheck.h"

#include "merge_pictures.h"
#include "opencl_devices.h"

#include <QElapsedTimer>
#include <QImage>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

namespace {

constexpr int kPictures = 5;
/// More than half of what the device takes at once, so that each row is a band, and no multiple of
/// the width of a work group.
constexpr QSize kSize(1048577, 2);
constexpr size_t kPixels = size_t(kSize.width()) * size_t(kSize.height());
constexpr quint32 kSeed = 5;

/// A pixel for every pair of a largest and a smallest channel, which is what the weight hangs on.
std::vector<QRgb> everyPair()
{
    std::vector<QRgb> pixels;
    for (int largest = 0; largest < 256; ++largest)
        for (int smallest = 0; smallest <= largest; ++smallest)
            pixels.push_back(qRgb(smallest, largest, (largest + smallest) / 2));
    return pixels;
}

/// Random pixels, and somewhere among them all pairs, in each picture elsewhere.
QImage builtInPicture(std::mt19937 &random)
{
    QImage picture(kSize, QImage::Format_RGB32);
    if (picture.isNull())
        return picture;
    auto *first = reinterpret_cast<QRgb *>(picture.bits());
    std::generate(first, first + kPixels,
                  [&random] { return 0xFF000000U | static_cast<QRgb>(random()); });
    const std::vector<QRgb> pairs = everyPair();
    const size_t offset = random() % (kPixels - pairs.size());
    std::copy(pairs.begin(), pairs.end(), first + offset);
    return picture;
}

qint64 differingBytes(const QImage &one, const QImage &other)
{
    qint64 count = 0;
    const uchar *bytes = one.constBits();
    const uchar *otherBytes = other.constBits();
    for (qint64 i = 0; i < one.sizeInBytes(); ++i)
        count += bytes[i] != otherBytes[i];
    return count;
}

/// Merges twice and takes the time of the second merge. Null when it fails.
std::unique_ptr<QImage> merged(const std::vector<QImage> &pictures, const merge::Options &options,
                               qint64 &milliseconds)
{
    merge::Outcome outcome;
    for (int round = 0; round < 2; ++round) {
        QList<QImage *> list;
        for (const QImage &picture : pictures)
            list.append(new QImage(picture)); // shares the pixels
        QElapsedTimer timer;
        timer.start();
        outcome = merge::mergePictures(list, options);
        milliseconds = timer.elapsed();
        qDeleteAll(list);
        if (!outcome.isDeviceComplete)
            return nullptr;
    }
    return std::move(outcome.picture);
}

} // namespace

DeviceCheck command_line::checkDevice(cl_device_id id)
{
    DeviceCheck check;
    check.problem = opencl::deviceProblem(id, kSize, kPictures);
    if (!check.problem.isEmpty())
        return check;

    std::mt19937 random(kSeed);
    std::vector<QImage> pictures(kPictures);
    for (QImage &picture : pictures)
        picture = builtInPicture(random);
    merge::Options options;
    options.align = false;
    const auto onProcessor = merged(pictures, options, check.processorMilliseconds);
    options.onDevice = true;
    options.device = id;
    const auto onDevice = merged(pictures, options, check.deviceMilliseconds);
    if (!onDevice || !onProcessor) {
        check.problem = onProcessor ? QStringLiteral("it fails to merge")
                                    : QStringLiteral("not enough memory for the check");
        return check;
    }
    check.bytes = onProcessor->sizeInBytes();
    check.differingBytes = differingBytes(*onDevice, *onProcessor);
    return check;
}
