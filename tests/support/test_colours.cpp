#include "test_colours.h"

#include <QColorSpace>
#include <QRgba64>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr cmsUInt32Number kExact =
    cmsFLAGS_BLACKPOINTCOMPENSATION | cmsFLAGS_NOOPTIMIZE | cmsFLAGS_NOCACHE;
constexpr double kSwelling = 1.4;

cmsHPROFILE opened(const QByteArray &profile)
{
    return profile.isEmpty() ? cmsCreate_sRGBProfile()
                             : cmsOpenProfileFromMem(profile.constData(), quint32(profile.size()));
}

/// The profiles are closed.
cmsHTRANSFORM between(cmsHPROFILE from, cmsUInt32Number layout, cmsHPROFILE to,
                      cmsUInt32Number otherLayout)
{
    const cmsHTRANSFORM way =
        cmsCreateTransform(from, layout, to, otherLayout, INTENT_RELATIVE_COLORIMETRIC, kExact);
    cmsCloseProfile(from);
    cmsCloseProfile(to);
    return way;
}

cmsHTRANSFORM labOfSrgb()
{
    static const cmsHTRANSFORM way =
        between(cmsCreate_sRGBProfile(), TYPE_RGB_DBL, cmsCreateLab4Profile(nullptr), TYPE_Lab_16);
    return way;
}

cmsHTRANSFORM srgbOfLab()
{
    static const cmsHTRANSFORM way =
        between(cmsCreateLab4Profile(nullptr), TYPE_Lab_16, cmsCreate_sRGBProfile(), TYPE_RGB_DBL);
    return way;
}

cmsInt32Number labOfInks(const cmsUInt16Number inks[], cmsUInt16Number lab[], void *)
{
    double rgb[3];
    for (int i = 0; i < 3; ++i)
        rgb[i] = std::pow((1 - inks[i] / 65535.0) * (1 - inks[3] / 65535.0), kSwelling);
    cmsDoTransform(labOfSrgb(), rgb, lab, 1);
    return TRUE;
}

cmsInt32Number inksOfLab(const cmsUInt16Number lab[], cmsUInt16Number inks[], void *)
{
    double rgb[3];
    cmsDoTransform(srgbOfLab(), lab, rgb, 1);
    for (double &light : rgb)
        light = std::pow(std::clamp(light, 0.0, 1.0), 1 / kSwelling);
    const double brightest = *std::max_element(rgb, rgb + 3);
    for (int i = 0; i < 3; ++i)
        inks[i] = quint16(std::lround(brightest > 0 ? (1 - rgb[i] / brightest) * 65535 : 0));
    inks[3] = quint16(std::lround((1 - brightest) * 65535));
    return TRUE;
}

void writeTable(cmsHPROFILE profile, cmsTagSignature tag, int inputs, int outputs, int steps,
                cmsSAMPLER16 sampler)
{
    cmsPipeline *pipeline =
        cmsPipelineAlloc(nullptr, cmsUInt32Number(inputs), cmsUInt32Number(outputs));
    cmsStage *table =
        cmsStageAllocCLut16bit(nullptr, cmsUInt32Number(steps), cmsUInt32Number(inputs),
                               cmsUInt32Number(outputs), nullptr);
    cmsStageSampleCLut16bit(table, sampler, nullptr, 0);
    cmsPipelineInsertStage(pipeline, cmsAT_BEGIN,
                           cmsStageAllocToneCurves(nullptr, cmsUInt32Number(inputs), nullptr));
    cmsPipelineInsertStage(pipeline, cmsAT_END, table);
    cmsPipelineInsertStage(pipeline, cmsAT_END,
                           cmsStageAllocToneCurves(nullptr, cmsUInt32Number(outputs), nullptr));
    cmsWriteTag(profile, tag, pipeline);
    cmsPipelineFree(pipeline);
}

void writeText(cmsHPROFILE profile, cmsTagSignature tag, const char *text)
{
    cmsMLU *words = cmsMLUalloc(nullptr, 1);
    cmsMLUsetASCII(words, "en", "US", text);
    cmsWriteTag(profile, tag, words);
    cmsMLUfree(words);
}

QByteArray makeInkProfile()
{
    const cmsHPROFILE profile = cmsCreateProfilePlaceholder(nullptr);
    cmsSetProfileVersion(profile, 4.3);
    cmsSetDeviceClass(profile, cmsSigOutputClass);
    cmsSetColorSpace(profile, cmsSigCmykData);
    cmsSetPCS(profile, cmsSigLabData);
    cmsWriteTag(profile, cmsSigMediaWhitePointTag, cmsD50_XYZ());
    writeText(profile, cmsSigProfileDescriptionTag, "Swelling inks");
    writeText(profile, cmsSigCopyrightTag, "None");
    for (const auto tag : {cmsSigAToB0Tag, cmsSigAToB1Tag, cmsSigAToB2Tag})
        writeTable(profile, tag, 4, 3, 13, &labOfInks);
    for (const auto tag : {cmsSigBToA0Tag, cmsSigBToA1Tag, cmsSigBToA2Tag})
        writeTable(profile, tag, 3, 4, 41, &inksOfLab);
    return test_colours::saved(profile);
}

std::vector<cmsCIELab> labOf(const QImage &picture)
{
    const QByteArray numbers = test_colours::numbersIn(
        picture, test_colours::saved(cmsCreateLab4Profile(nullptr)), TYPE_Lab_DBL);
    std::vector<cmsCIELab> colours(size_t(numbers.size()) / sizeof(cmsCIELab));
    std::memcpy(colours.data(), numbers.constData(), size_t(numbers.size()));
    return colours;
}

} // namespace

QByteArray test_colours::saved(cmsHPROFILE profile)
{
    cmsUInt32Number length = 0;
    cmsSaveProfileToMem(profile, nullptr, &length);
    QByteArray bytes(int(length), '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &length);
    cmsCloseProfile(profile);
    return bytes;
}

QByteArray test_colours::greyProfile(double gamma)
{
    cmsToneCurve *curve = cmsBuildGamma(nullptr, gamma);
    const QByteArray profile = saved(cmsCreateGrayProfile(cmsD50_xyY(), curve));
    cmsFreeToneCurve(curve);
    return profile;
}

QByteArray test_colours::inkProfile()
{
    static const QByteArray profile = makeInkProfile();
    return profile;
}

QImage test_colours::softScene(int width, int height)
{
    QImage picture(width, height, QImage::Format_RGBX64);
    const auto level = [](double part) { return quint16(std::lround(part * 65535)); };
    for (int y = 0; y < height; ++y) {
        auto *row = reinterpret_cast<QRgba64 *>(picture.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const double across = double(x) / width;
            const double down = double(y) / height;
            row[x] =
                QRgba64::fromRgba64(level(0.1 + 0.8 * across), level(0.15 + 0.7 * down),
                                    level(0.5 + 0.35 * std::sin(9 * across + 5 * down)), 0xFFFF);
        }
    }
    return picture;
}

QByteArray test_colours::numbersIn(const QImage &picture, const QByteArray &profile,
                                   cmsUInt32Number layout)
{
    const QImage words = picture.convertToFormat(QImage::Format_RGBX64);
    const cmsHPROFILE from = opened(picture.colorSpace().iccProfile());
    const cmsHPROFILE to = opened(profile);
    const cmsHTRANSFORM way =
        cmsCreateTransform(from, TYPE_RGBA_16, to, layout, INTENT_RELATIVE_COLORIMETRIC, kExact);
    const qsizetype numberBytes = T_BYTES(layout) == 0 ? 8 : T_BYTES(layout);
    const qsizetype pixelBytes = numberBytes * (T_CHANNELS(layout) + T_EXTRA(layout));
    QByteArray numbers(pixelBytes * words.width() * words.height(), '\0');
    for (int y = 0; y < words.height(); ++y)
        cmsDoTransform(way, words.constScanLine(y), numbers.data() + pixelBytes * words.width() * y,
                       quint32(words.width()));
    cmsDeleteTransform(way);
    cmsCloseProfile(from);
    cmsCloseProfile(to);
    return numbers;
}

QImage test_colours::brought(const QImage &picture, const QByteArray &profile)
{
    const QByteArray numbers = numbersIn(picture, profile, TYPE_RGBA_16);
    QImage words(reinterpret_cast<const uchar *>(numbers.constData()), picture.width(),
                 picture.height(), picture.width() * qsizetype(8), QImage::Format_RGBX64);
    words = words.copy();
    for (int y = 0; y < words.height(); ++y) {
        auto *row = reinterpret_cast<QRgba64 *>(words.scanLine(y));
        for (int x = 0; x < words.width(); ++x)
            row[x].setAlpha(0xFFFF);
    }
    QImage result = words.convertToFormat(picture.format());
    result.setColorSpace(QColorSpace::fromIccProfile(profile));
    return result;
}

double test_colours::meanDifference(const QImage &one, const QImage &other)
{
    const std::vector<cmsCIELab> first = labOf(one);
    const std::vector<cmsCIELab> second = labOf(other);
    if (first.size() != second.size() || first.empty())
        return HUGE_VAL;
    double sum = 0;
    for (size_t i = 0; i < first.size(); ++i)
        sum += cmsCIE2000DeltaE(&first[i], &second[i], 1, 1, 1);
    return sum / double(first.size());
}
