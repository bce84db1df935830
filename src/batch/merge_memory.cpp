#include "merge_memory.h"

#include "file_names.h"
#include "picture_header.h"

#include <VeskRawType.h>

#include <QFile>

#include <algorithm>

namespace {

/// Bytes per pixel of the picture: for each shot, and once.
struct Cost
{
    double perShot;
    double once;
};

// Measured on two to five shots of 12 megapixels: 7 per shot and 7 for the fusion of 8 bits, 17
// and 10 of 16 bits, 5 and 19 for light, 4 and 4 for the mean; here with an allowance.
constexpr Cost kFusion = {7.5, 9};
constexpr Cost kDeepFusion = {18, 14};
constexpr Cost kRadiance = {6, 22};
constexpr Cost kDeepRadiance = {12, 26};
constexpr Cost kMean = {4.2, 6};
/// A raw converter holds the sensor's values, four colours of 16 bits and the picture.
constexpr double kConverter = 24;
/// The program, its libraries and its tables.
constexpr double kProgram = 48.0 * 1024 * 1024;

Cost costOf(const merge_memory::Needs &needs)
{
    const bool isDeep = needs.areDeep || needs.areRaw;
    switch (needs.method) {
    case merge_memory::Method::Mean:
        return kMean;
    case merge_memory::Method::Radiance:
        return isDeep ? kDeepRadiance : kRadiance;
    case merge_memory::Method::Fusion:
        break;
    }
    return isDeep || needs.isResultDeep ? kDeepFusion : kFusion;
}

bool isDeepFile(const QString &path)
{
    constexpr int kUsualBits = 8;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const std::optional<PictureHeader> header = picture::headerOf(file);
    return header && header->bitsPerSample > kUsualBits;
}

} // namespace

merge_memory::Needs merge_memory::of(const Bracket &bracket)
{
    Needs needs;
    needs.shots = int(bracket.shots.size());
    for (const Shot &shot : bracket.shots) {
        const file_names::ReadablePath readable(shot.path);
        needs.size = needs.size.expandedTo(shot.size);
        needs.areRaw = needs.areRaw || VeskRawType::isRaw(readable.path());
        needs.areDeep = needs.areDeep || isDeepFile(readable.path());
    }
    return needs;
}

qint64 merge_memory::peakBytes(const Needs &needs)
{
    const Cost cost = costOf(needs);
    const double pixels = double(needs.size.width()) * needs.size.height();
    const int converters = needs.areRaw ? std::min(needs.shots, needs.threads) : 0;
    const double bytesPerPixel = cost.perShot * needs.shots + cost.once + kConverter * converters;
    return qint64(kProgram + pixels * bytesPerPixel);
}
