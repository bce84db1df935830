#include "true_colours.h"

#include "ColourTransform.h"
#include "ExifTags.h"
#include "colour_profile.h"
#include "exif_block.h"
#include "parallel_rows.h"
#include "png_colours.h"

#include <QColorSpace>
#include <QRgba64>

#include <utility>
#include <vector>

namespace {

using Pixels = ColourTransform::Pixels;
using colour_profile::Space;

QImage::Format wordsFor(const QImage &picture)
{
    const bool isDeep = picture.depth() == 64 || picture.format() == QImage::Format_Grayscale16;
    if (picture.hasAlphaChannel())
        return isDeep ? QImage::Format_RGBA64 : QImage::Format_ARGB32;
    return isDeep ? QImage::Format_RGBX64 : QImage::Format_RGB32;
}

void tag(QImage &picture, const QByteArray &profile)
{
    picture.setColorSpace(profile.isEmpty() ? QColorSpace() : QColorSpace::fromIccProfile(profile));
}

/// A row whose red, green and blue are equal, through one channel; alpha stays.
template <typename Word, typename Level>
void convertGreyRow(const ColourTransform &way, Word *words, int count)
{
    std::vector<Level> levels(static_cast<size_t>(count));
    std::vector<Word> converted(levels.size());
    for (size_t x = 0; x < levels.size(); ++x) {
        if constexpr (sizeof(Word) == sizeof(QRgb))
            levels[x] = static_cast<Level>(qRed(words[x]));
        else
            levels[x] = words[x].red();
    }
    way.convertRow(levels.data(), converted.data(), count);
    for (size_t x = 0; x < levels.size(); ++x) {
        if constexpr (sizeof(Word) == sizeof(QRgb))
            words[x] = (converted[x] & RGB_MASK) | (words[x] & ~RGB_MASK);
        else
            words[x] = QRgba64::fromRgba64(converted[x].red(), converted[x].green(),
                                           converted[x].blue(), words[x].alpha());
    }
}

/// picture: words that all are grey. False when memory is lacking.
bool bringGreyToSrgb(QImage &picture, const QByteArray &profile)
{
    const bool isDeep = picture.depth() == 64;
    const QByteArray srgb = colour_profile::of(Space::Srgb);
    const ColourTransform way({profile, isDeep ? Pixels::Grey16 : Pixels::Grey8},
                              {srgb, isDeep ? Pixels::Words16 : Pixels::Words8});
    uchar *const bytes = picture.bits();
    if (way.isNull() || !bytes)
        return false;
    const int width = picture.width();
    parallel::rows(picture.size(), [&](int begin, int end) {
        for (int y = begin; y < end && !way.isIdentity(); ++y) {
            uchar *const row = bytes + y * picture.bytesPerLine();
            if (isDeep)
                convertGreyRow<QRgba64, quint16>(way, reinterpret_cast<QRgba64 *>(row), width);
            else
                convertGreyRow<QRgb, quint8>(way, reinterpret_cast<QRgb *>(row), width);
        }
    });
    tag(picture, srgb);
    return true;
}

ExifTags tagsIn(QFile &file)
{
    const QByteArray block = exif::blockIn(file);
    if (!block.isEmpty())
        return ExifTags::parse(block);
    const QByteArray start = file.peek(2);
    return start == "II" || start == "MM" ? ExifTags::read(file) : ExifTags();
}

/// By the number that some programs write, or as DCF 2.0 has it: uncalibrated, and the index R03.
bool saysAdobeRgb(const ExifTags &tags)
{
    using Directory = ExifTags::Directory;
    constexpr quint16 kStandard = 1;
    constexpr quint16 kAdobeRgb = 2;
    const std::optional<quint32> space = tags.number(Directory::Exposure, ExifTags::ColourSpace);
    if (space == kStandard || space == kAdobeRgb)
        return space == kAdobeRgb;
    return tags.text(Directory::Interoperability, ExifTags::InteroperabilityIndex) ==
           QLatin1String("R03");
}

/// Takes what the PNG file itself says in the place of what its reader has made of it.
void applyPngColours(DecodedPicture &picture, QFile &file)
{
    file.seek(0);
    if (!file.peek(4).endsWith("PNG"))
        return;
    const png_colours::Colours colours = png_colours::read(file);
    tag(picture.image, colours.profile);
    if (colours.isDamaged)
        picture.warnings += true_colours::damagedProfileWarning();
    if (colours.isHighRange)
        picture.warnings += QStringLiteral("that its colours are PQ or HLG does not count");
}

} // namespace

QString true_colours::damagedProfileWarning()
{
    return QStringLiteral("its colour profile is damaged or for other pixels and does not count");
}

void true_colours::settle(DecodedPicture &picture, QFile &file)
{
    QImage &image = picture.image;
    constexpr int kBitsOfFloats = 128;
    if (image.isNull() || image.depth() == kBitsOfFloats)
        return;
    applyPngColours(picture, file);
    const QByteArray profile = image.colorSpace().iccProfile();
    image = std::move(image).convertToFormat(wordsFor(image));
    const bool isSound = colour_profile::fitsRgbPixels(profile);
    if (!image.isNull() && !isSound && colour_profile::fitsGreyPixels(profile) && image.allGray()) {
        if (!bringGreyToSrgb(image, profile))
            image = QImage();
    } else if (!image.isNull() && !isSound) {
        if (!profile.isEmpty())
            picture.warnings += damagedProfileWarning();
        tag(image, saysAdobeRgb(tagsIn(file)) ? colour_profile::of(Space::AdobeRgb) : QByteArray());
    }
    if (image.isNull())
        picture = picture::failure(DecodeError::NoMemory);
}
