#include "ColourTransform.h"

#include "colour_profile.h"
#include "parallel_rows.h"

#include <QColorSpace>
#include <QRandomGenerator>
#include <QRgba64>
#include <QtTest>

#include <algorithm>
#include <numeric>
#include <vector>

namespace {

using Pixels = ColourTransform::Pixels;
using Outcome = ColourTransform::Outcome;
using colour_profile::Space;

constexpr Space kSpaces[] = {Space::Srgb, Space::AdobeRgb, Space::ProPhotoRgb, Space::DisplayP3};

QByteArray saved(cmsHPROFILE profile)
{
    cmsUInt32Number length = 0;
    cmsSaveProfileToMem(profile, nullptr, &length);
    QByteArray bytes(int(length), '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &length);
    cmsCloseProfile(profile);
    return bytes;
}

QByteArray greyProfile(double gamma)
{
    cmsToneCurve *curve = cmsBuildGamma(nullptr, gamma);
    const QByteArray profile = saved(cmsCreateGrayProfile(cmsD50_xyY(), curve));
    cmsFreeToneCurve(curve);
    return profile;
}

/// What Little CMS gives without a short cut.
std::vector<quint16> exactly(const std::vector<quint16> &levels, const QByteArray &from,
                             const QByteArray &to)
{
    const cmsHPROFILE first = cmsOpenProfileFromMem(from.constData(), quint32(from.size()));
    const cmsHPROFILE last = cmsOpenProfileFromMem(to.constData(), quint32(to.size()));
    const cmsHTRANSFORM way = cmsCreateTransform(
        first, TYPE_RGBA_16, last, TYPE_RGBA_16, INTENT_RELATIVE_COLORIMETRIC,
        cmsFLAGS_BLACKPOINTCOMPENSATION | cmsFLAGS_NOOPTIMIZE | cmsFLAGS_COPY_ALPHA);
    std::vector<quint16> result(levels.size());
    cmsDoTransform(way, levels.data(), result.data(), quint32(levels.size() / 4));
    cmsDeleteTransform(way);
    cmsCloseProfile(first);
    cmsCloseProfile(last);
    return result;
}

std::vector<quint16> randomLevels(int count)
{
    QRandomGenerator random(7);
    std::vector<quint16> levels(size_t(count) * 4);
    for (quint16 &level : levels)
        level = quint16(random.bounded(0x10000));
    // The dark end, where curves are steep, and pure colours.
    for (size_t i = 0; i < levels.size() / 4; ++i)
        levels[i] = quint16(levels[i] & 0xFF);
    for (size_t i = levels.size() / 2; i < levels.size() / 4 * 3; i += 3)
        levels[i] = i % 2 ? 0xFFFF : 0;
    return levels;
}

QImage noise(QSize size, QImage::Format format)
{
    QRandomGenerator random(size.width() * 1000 + size.height());
    QImage picture(size, QImage::Format_RGBA64);
    for (int y = 0; y < size.height(); ++y) {
        auto *row = reinterpret_cast<quint64 *>(picture.scanLine(y));
        std::generate_n(row, size.width(), [&] { return random.generate64(); });
    }
    return picture.convertToFormat(format);
}

std::vector<quint16> alphaOf(const QImage &picture)
{
    const QImage words = picture.convertToFormat(QImage::Format_RGBA64);
    std::vector<quint16> alpha;
    for (int y = 0; y < words.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgba64 *>(words.constScanLine(y));
        for (int x = 0; x < words.width(); ++x)
            alpha.push_back(row[x].alpha());
    }
    return alpha;
}

} // namespace

class TestColourTransform : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { parallel::setThreadLimit(0); }

    void bring_displayP3Patch_hasTheColoursOfSrgb()
    {
        for (const auto format : {QImage::Format_RGB32, QImage::Format_RGBX64}) {
            QImage picture(3, 2, format);
            picture.fill(QColor(200, 100, 50));
            picture.setColorSpace(QColorSpace::DisplayP3);
            const QByteArray srgb = colour_profile::of(Space::Srgb);
            QCOMPARE(ColourTransform::bring(picture, srgb), Outcome::Converted);
            QCOMPARE(picture.format(), format);
            QCOMPARE(picture.pixelColor(2, 1).rgb(), qRgb(215, 93, 31));
            QCOMPARE(picture.colorSpace().iccProfile(), srgb);
        }
    }

    void convertRow_deepWords_areLittleCmsOwnWithinTwoLevels_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        for (const Space from : kSpaces) {
            for (const Space to : kSpaces)
                QTest::addRow("%d to %d", int(from), int(to)) << int(from) << int(to);
        }
    }

    void convertRow_deepWords_areLittleCmsOwnWithinTwoLevels()
    {
        QFETCH(int, from);
        QFETCH(int, to);
        const QByteArray first = colour_profile::of(Space(from));
        const QByteArray last = colour_profile::of(Space(to));
        const std::vector<quint16> levels = randomLevels(20011);
        const std::vector<quint16> expected = exactly(levels, first, last);
        std::vector<quint16> converted = levels;
        const ColourTransform way({first, Pixels::Words16}, {last, Pixels::Words16});
        way.convertRow(converted.data(), converted.data(), int(levels.size() / 4));
        int worst = 0;
        for (size_t i = 0; i < levels.size(); ++i)
            worst = std::max(worst, std::abs(int(converted[i]) - int(expected[i])));
        qInfo("worst difference %d of 65535", worst);
        QVERIFY(worst <= 2);
    }

    void convertRow_wordsOfEightBits_areExactWithinOneLevel()
    {
        const QByteArray p3 = colour_profile::of(Space::DisplayP3);
        const QByteArray adobe = colour_profile::of(Space::AdobeRgb);
        const ColourTransform way({p3, Pixels::Words8}, {adobe, Pixels::Words8});
        std::vector<QRgb> words;
        std::vector<quint16> levels;
        for (quint16 word : randomLevels(4001)) {
            levels.push_back(quint16((word >> 8) * 257));
            if (levels.size() % 4 == 0)
                words.push_back(qRgba(levels[levels.size() - 4] / 257,
                                      levels[levels.size() - 3] / 257,
                                      levels[levels.size() - 2] / 257, levels.back() / 257));
        }
        const std::vector<quint16> expected = exactly(levels, p3, adobe);
        way.convertRow(words.data(), words.data(), int(words.size()));
        for (size_t i = 0; i < words.size(); ++i) {
            QVERIFY(std::abs(qRed(words[i]) * 257 - expected[4 * i]) <= 257);
            QVERIFY(std::abs(qGreen(words[i]) * 257 - expected[4 * i + 1]) <= 257);
            QVERIFY(std::abs(qBlue(words[i]) * 257 - expected[4 * i + 2]) <= 257);
            QCOMPARE(qAlpha(words[i]) * 257, int(expected[4 * i + 3]));
        }
    }

    void convertRow_greyWithoutProfile_keepsEveryLevel()
    {
        std::vector<quint16> levels(0x10000);
        std::iota(levels.begin(), levels.end(), quint16(0));
        std::vector<QRgba64> words(levels.size());
        const ColourTransform way({{}, Pixels::Grey16},
                                  {colour_profile::of(Space::Srgb), Pixels::Words16});
        way.convertRow(levels.data(), words.data(), int(levels.size()));
        for (size_t i = 0; i < words.size(); ++i) {
            for (const quint16 level : {words[i].red(), words[i].green(), words[i].blue()})
                QCOMPARE(int(level), int(i));
            QCOMPARE(words[i].alpha(), quint16(0xFFFF));
        }
    }

    void convertRow_greyWithProfile_isWhatItsCurveSays()
    {
        const quint8 levels[] = {0, 128, 255};
        QRgb words[3];
        const ColourTransform way({greyProfile(1.0), Pixels::Grey8}, {{}, Pixels::Words8});
        way.convertRow(levels, words, 3);
        QCOMPARE(words[0], qRgb(0, 0, 0));
        QCOMPARE(words[1], qRgb(188, 188, 188)); // half of the light
        QCOMPARE(words[2], qRgb(255, 255, 255));
    }

    void convertRow_lab_isSeenUnderD50()
    {
        const float lab[] = {100, 0, 0, 0, 0, 0, 53.5850F, 0, 0, 54.2917F, 80.8125F, 69.8850F};
        QRgba64 words[4];
        const ColourTransform way({{}, Pixels::LabFloat}, {{}, Pixels::Words16});
        way.convertRow(lab, words, 4);
        QCOMPARE(words[0].toArgb32(), qRgb(255, 255, 255));
        QCOMPARE(words[1].toArgb32(), qRgb(0, 0, 0));
        QCOMPARE(words[2].toArgb32(), qRgb(128, 128, 128));
        QCOMPARE(words[3].toArgb32(), qRgb(255, 0, 0));
    }

    void isNull_inksWithoutSoundProfile_isTrue()
    {
        QVERIFY(ColourTransform({{}, Pixels::Inks8}, {{}, Pixels::Words8}).isNull());
        QVERIFY(ColourTransform({colour_profile::of(Space::AdobeRgb), Pixels::InvertedInks8},
                                {{}, Pixels::Words8})
                    .isNull());
    }

    void isIdentity_oneSpaceInOtherBytes_isTrue()
    {
        const QByteArray other = saved(cmsCreate_sRGBProfile());
        QVERIFY(other != colour_profile::of(Space::Srgb));
        for (const Pixels pixels : {Pixels::Words8, Pixels::Words16}) {
            for (const QByteArray &profile : {other, QByteArray(), QByteArray("rubbish")})
                QVERIFY(
                    ColourTransform({profile, pixels}, {colour_profile::of(Space::Srgb), pixels})
                        .isIdentity());
        }
    }

    void isIdentity_twoSpaces_isFalse()
    {
        for (const Space from : kSpaces) {
            for (const Space to : kSpaces)
                QCOMPARE(ColourTransform({colour_profile::of(from), Pixels::Words16},
                                         {colour_profile::of(to), Pixels::Words16})
                             .isIdentity(),
                         from == to);
        }
    }

    void bring_equalSpaces_touchesNoPixel()
    {
        QImage picture = noise({33, 5}, QImage::Format_Grayscale16);
        picture.setColorSpace(QColorSpace::fromIccProfile(saved(cmsCreate_sRGBProfile())));
        const uchar *before = picture.constBits();
        QCOMPARE(ColourTransform::bring(picture, {}), Outcome::Unchanged);
        QCOMPARE(picture.constBits(), before);
        QVERIFY(!picture.colorSpace().isValid());
    }

    void bring_sharedPicture_leavesTheOtherAlone()
    {
        QImage picture = noise({40, 30}, QImage::Format_ARGB32);
        const QImage other = picture;
        const QImage before = picture.copy();
        QCOMPARE(ColourTransform::bring(picture, colour_profile::of(Space::ProPhotoRgb)),
                 Outcome::Converted);
        QCOMPARE(other, before);
        QVERIFY(picture != before);
    }

    void bring_anyThreadsAndFormats_givesTheSamePixelsAndAlpha_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addRow("RGB32") << QImage::Format_RGB32;
        QTest::addRow("ARGB32") << QImage::Format_ARGB32;
        QTest::addRow("RGBX64") << QImage::Format_RGBX64;
        QTest::addRow("RGBA64") << QImage::Format_RGBA64;
    }

    void bring_anyThreadsAndFormats_givesTheSamePixelsAndAlpha()
    {
        QFETCH(QImage::Format, format);
        for (const QSize size : {QSize(1, 1), QSize(1, 31), QSize(613, 509)}) {
            const QImage source = noise(size, format);
            QImage first;
            for (const int threads : {1, 2, 5}) {
                parallel::setThreadLimit(threads);
                QImage picture = source;
                QCOMPARE(ColourTransform::bring(picture, colour_profile::of(Space::AdobeRgb)),
                         Outcome::Converted);
                QCOMPARE(picture.format(), format);
                first = first.isNull() ? picture : first;
                QCOMPARE(picture, first);
                QVERIFY(alphaOf(picture) == alphaOf(source));
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestColourTransform)
#include "tst_ColourTransform.moc"
