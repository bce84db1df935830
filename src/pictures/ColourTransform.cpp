#include "ColourTransform.h"

#include "colour_profile.h"
#include "parallel_rows.h"

#include <QColorSpace>

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <vector>

namespace {

using Pixels = ColourTransform::Pixels;

cmsUInt32Number layoutOf(Pixels pixels)
{
    switch (pixels) {
    case Pixels::Words8:
        return Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? TYPE_BGRA_8 : TYPE_ARGB_8;
    case Pixels::Words16:
        return TYPE_RGBA_16;
    case Pixels::Grey8: // by way of a table of 16 bits
    case Pixels::Grey16:
        return TYPE_GRAY_16;
    case Pixels::Inks8:
        return TYPE_CMYK_8;
    case Pixels::InvertedInks8:
        return TYPE_CMYK_8_REV;
    case Pixels::Inks16:
        return TYPE_CMYK_16;
    case Pixels::LabFloat:
        return TYPE_Lab_FLT;
    }
    return TYPE_BGRA_8;
}

bool areWords(Pixels pixels)
{
    return pixels == Pixels::Words8 || pixels == Pixels::Words16;
}

bool isGrey(Pixels pixels)
{
    return pixels == Pixels::Grey8 || pixels == Pixels::Grey16;
}

bool isSound(const ColourTransform::Colours &colours)
{
    if (areWords(colours.pixels))
        return colour_profile::fitsRgbPixels(colours.profile);
    if (isGrey(colours.pixels))
        return colour_profile::fitsGreyPixels(colours.profile);
    return colours.pixels != Pixels::LabFloat && colour_profile::fitsInkPixels(colours.profile);
}

/// Grey as sRGB has it: its curve, and white where all profiles meet.
cmsHPROFILE standardGrey(const little_cms::Context &context)
{
    const cmsFloat64Number srgb[] = {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
    const little_cms::Curve curve(cmsBuildParametricToneCurve(context.get(), 4, srgb),
                                  &cmsFreeToneCurve);
    return curve ? cmsCreateGrayProfileTHR(context.get(), cmsD50_xyY(), curve.get()) : nullptr;
}

little_cms::Profile standardFor(Pixels pixels, const little_cms::Context &context)
{
    if (pixels == Pixels::LabFloat)
        return {cmsCreateLab4ProfileTHR(context.get(), nullptr), &cmsCloseProfile};
    if (isGrey(pixels))
        return {standardGrey(context), &cmsCloseProfile};
    if (areWords(pixels))
        return little_cms::open(context, colour_profile::of(colour_profile::Space::Srgb));
    return {nullptr, &cmsCloseProfile};
}

/// Computing in full instead of through a coarse table: what has 16 bits, or comes from floating
/// point, is meant to be exact.
cmsUInt32Number flagsFor(Pixels from, Pixels to)
{
    constexpr cmsUInt32Number kInks16 = cmsFLAGS_HIGHRESPRECALC;
    cmsUInt32Number flags = cmsFLAGS_BLACKPOINTCOMPENSATION;
    if (areWords(from))
        flags |= cmsFLAGS_COPY_ALPHA;
    if (from == Pixels::Inks16)
        return flags | kInks16;
    const bool isDeep = from == Pixels::LabFloat || isGrey(from) || to == Pixels::Words16;
    return isDeep ? flags | cmsFLAGS_NOOPTIMIZE : flags;
}

void fillOpaque(void *words, Pixels target, int count)
{
    if (target == Pixels::Words8)
        std::fill_n(static_cast<QRgb *>(words), count, qRgb(0, 0, 0));
    else
        std::fill_n(static_cast<QRgba64 *>(words), count, QRgba64::fromRgba64(0, 0, 0, 0xFFFF));
}

template <typename Level, typename Word>
void lookUp(const void *levels, void *words, const void *table, int count)
{
    const auto *from = static_cast<const Level *>(levels);
    std::transform(from, from + count, static_cast<Word *>(words),
                   [=](Level level) { return static_cast<const Word *>(table)[level]; });
}

void lookUpRow(const void *from, Pixels source, void *to, Pixels target, const void *table,
               int count)
{
    const bool isByte = source == Pixels::Grey8;
    if (target == Pixels::Words8)
        return isByte ? lookUp<quint8, QRgb>(from, to, table, count)
                      : lookUp<quint16, QRgb>(from, to, table, count);
    return isByte ? lookUp<quint8, QRgba64>(from, to, table, count)
                  : lookUp<quint16, QRgba64>(from, to, table, count);
}

QImage::Format wordsFor(const QImage &picture)
{
    const QPixelFormat pixels = picture.pixelFormat();
    const bool isDeep = std::max(pixels.redSize(), pixels.blackSize()) > 8;
    if (picture.hasAlphaChannel())
        return isDeep ? QImage::Format_RGBA64 : QImage::Format_ARGB32;
    return isDeep ? QImage::Format_RGBX64 : QImage::Format_RGB32;
}

} // namespace

ColourTransform::ColourTransform(const Colours &from, const Colours &to)
    : context(little_cms::newContext())
    , transform(nullptr, &cmsDeleteTransform)
    , source(from.pixels)
    , target(to.pixels)
{
    if (context)
        create(from, to);
}

void ColourTransform::create(const Colours &from, const Colours &to)
{
    const auto profileOf = [this](const Colours &colours) {
        return isSound(colours) ? little_cms::open(context, colours.profile)
                                : standardFor(colours.pixels, context);
    };
    const little_cms::Profile first = profileOf(from);
    if (!first)
        return;
    const little_cms::Profile last = profileOf(to);
    if (!last)
        return;
    transform.reset(cmsCreateTransformTHR(context.get(), first.get(), layoutOf(source), last.get(),
                                          isGrey(source) ? TYPE_RGBA_16 : layoutOf(target),
                                          INTENT_RELATIVE_COLORIMETRIC, flagsFor(source, target)));
    if (transform && isGrey(source))
        fillGreyTable();
    if (!transform || !areWords(source))
        return;
    identity = from.profile == to.profile || keepsColours(first, last);
    if (source == Pixels::Words16 && target == Pixels::Words16)
        shaper = MatrixShaper::between(first, last);
}

/// Full computation is slow, and a table of all levels is small.
void ColourTransform::fillGreyTable()
{
    constexpr int kHalfLevel = 128;
    const int count = source == Pixels::Grey8 ? 0x100 : 0x10000;
    const int step = 0xFFFF / (count - 1);
    std::vector<QRgba64> words(size_t(count), QRgba64::fromRgba64(0, 0, 0, 0xFFFF));
    identity = true;
    for (int i = 0; i < count; ++i) {
        const auto level = static_cast<quint16>(i * step);
        QRgba64 &word = words[size_t(i)];
        cmsDoTransform(transform.get(), &level, &word, 1);
        for (const int channel : {word.red(), word.green(), word.blue()})
            identity = identity && std::abs(channel - level) < kHalfLevel;
    }
    for (int i = 0; identity && i < count; ++i) {
        const auto level = static_cast<quint16>(i * step);
        words[size_t(i)] = QRgba64::fromRgba64(level, level, level, 0xFFFF);
    }
    setGreyTable(words);
}

void ColourTransform::setGreyTable(const std::vector<QRgba64> &words)
{
    const bool isDeep = target == Pixels::Words16;
    greyTable.resize(qsizetype(words.size() * (isDeep ? sizeof(QRgba64) : sizeof(QRgb))));
    if (isDeep)
        std::copy(words.begin(), words.end(), reinterpret_cast<QRgba64 *>(greyTable.data()));
    else
        std::transform(words.begin(), words.end(), reinterpret_cast<QRgb *>(greyTable.data()),
                       [](QRgba64 word) { return word.toArgb32(); });
}

/// By a grid of colours, as exactly as Little CMS can: two profiles may describe one space in other
/// bytes.
bool ColourTransform::keepsColours(const little_cms::Profile &from,
                                   const little_cms::Profile &to) const
{
    constexpr int kSteps = 16;
    constexpr int kHalfLevel = 128;
    const little_cms::Transform exact(
        cmsCreateTransformTHR(context.get(), from.get(), TYPE_RGB_16, to.get(), TYPE_RGB_16,
                              INTENT_RELATIVE_COLORIMETRIC,
                              cmsFLAGS_BLACKPOINTCOMPENSATION | cmsFLAGS_NOOPTIMIZE),
        &cmsDeleteTransform);
    for (int i = 0; exact && i < kSteps * kSteps * kSteps; ++i) {
        const auto step = [i](int divisor) { return quint16(i / divisor % kSteps * 0x1111); };
        const quint16 before[3] = {step(1), step(kSteps), step(kSteps * kSteps)};
        quint16 after[3];
        cmsDoTransform(exact.get(), before, after, 1);
        for (int channel = 0; channel < 3; ++channel) {
            if (std::abs(int(before[channel]) - int(after[channel])) >= kHalfLevel)
                return false;
        }
    }
    return bool(exact);
}

void ColourTransform::convertRow(const void *from, void *to, int count) const
{
    if (shaper)
        return shaper->convertRow(static_cast<const QRgba64 *>(from), static_cast<QRgba64 *>(to),
                                  count);
    if (!greyTable.isEmpty())
        return lookUpRow(from, source, to, target, greyTable.constData(), count);
    if (!areWords(source))
        fillOpaque(to, target, count);
    cmsDoTransform(transform.get(), from, to, static_cast<cmsUInt32Number>(count));
}

ColourTransform::Outcome ColourTransform::bring(QImage &picture, const QByteArray &profile)
{
    const QImage::Format words = wordsFor(picture);
    const bool isDeep = words == QImage::Format_RGBX64 || words == QImage::Format_RGBA64;
    const Pixels pixels = isDeep ? Pixels::Words16 : Pixels::Words8;
    const QByteArray own = picture.colorSpace().iccProfile();
    if (own == profile)
        return Outcome::Unchanged;
    const ColourTransform way({own, pixels}, {profile, pixels});
    if (!way.isIdentity())
        picture = way.isNull() ? QImage() : std::move(picture).convertToFormat(words);
    uchar *const bytes = way.isIdentity() ? nullptr : picture.bits();
    if (picture.isNull())
        return Outcome::Failed;
    if (bytes) {
        parallel::rows(picture.size(), [&](int begin, int end) {
            for (int y = begin; y < end; ++y) {
                uchar *const row = bytes + y * picture.bytesPerLine();
                way.convertRow(row, row, picture.width());
            }
        });
    }
    picture.setColorSpace(profile.isEmpty() ? QColorSpace() : QColorSpace::fromIccProfile(profile));
    return bytes ? Outcome::Converted : Outcome::Unchanged;
}
