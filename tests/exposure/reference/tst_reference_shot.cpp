#include "picture_reader.h"
#include "reference_shot.h"

#include <QDir>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <random>

using exposure::ShotLight;

namespace {

/// A scene of small patches over eight stops, and what a shot of so many stops more light shows.
QImage shotOf(double stops, unsigned seed = 5)
{
    constexpr QSize kSize(320, 240);
    std::mt19937 random(seed);
    QImage picture(kSize, QImage::Format_RGB32);
    for (int y = 0; y < kSize.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < kSize.width(); ++x) {
            const double light = std::exp2(double(random() % 1000) / 1000 * 8 - 6 + stops);
            const int level = std::clamp(int(255 * std::pow(light, 1 / 2.2)), 0, 255);
            row[x] = qRgb(level, level, level);
        }
    }
    return picture;
}

ShotLight light(double brightness, double visible, double detail, quint32 fingerprint = 0)
{
    return {brightness, visible, detail, fingerprint};
}

QList<QImage> readSet(const QString &folder, const QStringList &names)
{
    const QDir pictures(qEnvironmentVariable("VESK_TEST_PICTURES"));
    QList<QImage> shots;
    for (const QString &name : names)
        shots += picture::read(pictures.filePath(folder + name), {}).image;
    return shots;
}

} // namespace

class TestReferenceShot : public QObject
{
    Q_OBJECT

private slots:
    void reference_ofABracket_isTheOneThatShowsMost()
    {
        // The second clips nothing and has its darkest patches above black.
        const QList<QImage> shots{shotOf(-5), shotOf(-2.5), shotOf(0), shotOf(3)};
        QCOMPARE(exposure::referenceShot(shots), 1);
    }

    void reference_whateverTheOrder_isTheSameShot()
    {
        const QList<QImage> shots{shotOf(-4), shotOf(-1), shotOf(-0.5), shotOf(0), shotOf(3)};
        const QImage chosen = shots[exposure::referenceShot(shots)];
        std::vector<int> order{0, 1, 2, 3, 4};
        do {
            QList<QImage> others;
            for (int i : order)
                others += shots[i];
            QVERIFY(others[exposure::referenceShot(others)] == chosen);
        } while (std::next_permutation(order.begin(), order.end()));
    }

    void reference_ofShotsOfEqualLight_isTheSameWhateverTheirOrder()
    {
        const ShotLight one = light(90, 0.8, 1.0, 7);
        const ShotLight other = light(90, 0.8, 1.0, 3);
        QCOMPARE(exposure::referenceShot({one, other}), 1);
        QCOMPARE(exposure::referenceShot({other, one}), 0);
    }

    void reference_shotsAsGood_isTheMiddleExposure()
    {
        QCOMPARE(exposure::referenceShot({light(150, 0.8, 1.1), light(60, 0.8, 1.0),
                                          light(20, 0.4, 0.5), light(90, 0.8, 0.98)}),
                 1);
    }

    void reference_oneClearlyBetter_isThatOneThoughNotInTheMiddle()
    {
        QCOMPARE(exposure::referenceShot(
                     {light(20, 0.4, 0.5), light(60, 0.6, 0.8), light(150, 0.8, 1.0)}),
                 2);
    }

    void reference_twoAsNearToTheMiddle_isTheBetter()
    {
        QCOMPARE(exposure::referenceShot({light(100, 0.8, 0.95), light(120, 0.8, 1.0)}), 1);
        QCOMPARE(exposure::referenceShot({light(100, 0.8, 1.0), light(120, 0.8, 0.95)}), 0);
    }

    void reference_brightFogAgainstDetail_isTheDetail()
    {
        // Lifted black, as of a scan: nothing is dark, and nothing is to be seen.
        QImage fog(320, 240, QImage::Format_RGB32);
        fog.fill(qRgb(40, 40, 40));
        QCOMPARE(exposure::referenceShot({fog, shotOf(0), fog}), 1);
    }

    void reference_nothingToSeeAnywhere_isTheMiddle()
    {
        QList<QImage> shots;
        for (int grey : {255, 0, 2}) {
            shots += QImage(10, 10, QImage::Format_RGB32);
            shots.last().fill(qRgb(grey, grey, grey));
        }
        QCOMPARE(exposure::referenceShot(shots), 2);
        QCOMPARE(exposure::referenceShot({shots[0]}), 0);
    }

    void light_noiseAlone_isNoDetail()
    {
        std::mt19937 random(1);
        QImage noise(320, 240, QImage::Format_RGB32);
        for (int y = 0; y < noise.height(); ++y) {
            for (int x = 0; x < noise.width(); ++x) {
                const int grey = 120 + int(random() % 4);
                noise.setPixel(x, y, qRgb(grey, grey, grey));
            }
        }
        QCOMPARE(exposure::shotLight(noise).detail, 0.0);
        QCOMPARE(exposure::shotLight(noise).visibleShare, 1.0);
    }

    void light_transparentPoints_showNothing()
    {
        QImage picture = shotOf(0).convertToFormat(QImage::Format_ARGB32);
        QVERIFY(exposure::shotLight(picture).visibleShare > 0.5);
        picture.fill(qRgba(120, 120, 120, 0));
        QCOMPARE(exposure::shotLight(picture).visibleShare, 0.0);
    }

    void light_depthAndSizeOfThePicture_hardlyMatter()
    {
        const QImage picture = shotOf(0);
        const ShotLight words = exposure::shotLight(picture);
        const ShotLight deep = exposure::shotLight(picture.convertToFormat(QImage::Format_RGBX64));
        QCOMPARE(deep.brightness, words.brightness);
        QCOMPARE(deep.detail, words.detail);
        for (QSize size : {QSize(1, 1), QSize(1, 300), QSize(5, 7)})
            QVERIFY(exposure::shotLight(picture.copy(QRect({}, size))).brightness > 0);
    }

    void order_isFromDarkToBright()
    {
        const std::vector<int> expected{2, 0, 1};
        QCOMPARE(exposure::orderOfBrightness({light(50, 1, 1), light(90, 1, 1), light(10, 1, 1)}),
                 expected);
    }

    void photographs_bestExposed_isTheReference_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<int>("expected");
        const QStringList arch{"-4.72", "-1.82", "+1.51", "+4.09"};
        QStringList arches;
        for (const QString &stops : arch)
            arches += "StLouisArchMultExpEV" + stops + ".jpeg";
        QTest::newRow("arch") << "arch/" << arches << 2;
        QTest::newRow("church") << ""
                                << QStringList{"test1_memorial0061.png", "test1_memorial0064.png",
                                               "test1_memorial0067.png", "test1_memorial0070.png",
                                               "test1_memorial0073.png"}
                                << 1;
        QTest::newRow("house") << "brackets/House/"
                               << QStringList{"A.png", "B.png", "C.png", "D.png"} << 2;
        QTest::newRow("landscape")
            << "brackets/Landscape/"
            << QStringList{"landscape_under.png", "landscape_normal.png", "landscape_over.png"}
            << 1;
    }

    void photographs_bestExposed_isTheReference()
    {
        QFETCH(QString, folder);
        QFETCH(QStringList, names);
        const QList<QImage> shots = readSet(folder, names);
        if (shots.first().isNull())
            QSKIP("no photographs in VESK_TEST_PICTURES");
        QTEST(exposure::referenceShot(shots), "expected");
    }
};

QTEST_GUILESS_MAIN(TestReferenceShot)
#include "tst_reference_shot.moc"
