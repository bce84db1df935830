#include "LightMap.h"
#include "adjust.h"
#include "parallel_rows.h"
#include "vector_targets.h"

#include <QRgba64>
#include <QtTest>

#include <random>

using exposure::Look;

namespace {

const Look kLooks[] = {
    {0.0, 0.0, -1.0, 1.0, 0.0, 1.0, 1.0},  {0.0, 0.0, 1.0, -1.0, 0.0, 1.0, 1.0},
    {0.7, 0.3, 0.0, 0.0, 0.04, 0.9, 1.0},  {0.0, 0.0, 0.0, 0.0, 0.0, 1.0, 3.0},
    {-1.3, -0.4, 0.7, 0.4, 0.1, 0.8, 0.2}, {4.0, 1.0, -0.3, -0.2, 0.4, 0.6, 0.0},
};

/// Noise with black, white and vivid pixels among it.
QImage noise(QSize size, QImage::Format format)
{
    std::mt19937 random(23);
    QImage picture(size, QImage::Format_RGBA64);
    const quint16 extremes[] = {0, 0xFFFF, 1, 0xFFFE};
    const auto channel = [&] {
        return random() % 6 == 0 ? extremes[random() % 4] : quint16(random());
    };
    for (int y = 0; y < size.height(); ++y) {
        auto *row = reinterpret_cast<QRgba64 *>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            row[x] = qRgba64(channel(), channel(), channel(), channel());
    }
    return picture.convertToFormat(format);
}

} // namespace

/// The fast code against the definition, whole pictures to the bit.
class TestAdjustPlain : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { parallel::setThreadLimit(0); }

    void everyTarget_givesThePlainPixels_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::newRow("RGB32") << QImage::Format_RGB32;
        QTest::newRow("ARGB32") << QImage::Format_ARGB32;
        QTest::newRow("RGBX64") << QImage::Format_RGBX64;
        QTest::newRow("RGBA64") << QImage::Format_RGBA64;
    }

    void everyTarget_givesThePlainPixels()
    {
        QFETCH(const QImage::Format, format);
        constexpr QSize kSizes[] = {{1, 1},   {1, 37},  {15, 3},   {16, 2},  {17, 5},
                                    {67, 31}, {521, 7}, {1031, 3}, {2603, 2}};
        for (const QSize size : kSizes) {
            const QImage picture = noise(size, format);
            for (const Look &look : kLooks) {
                QImage expected = picture;
                exposure::adjustPlain(expected, look);
                QVERIFY(expected != picture || size.width() == 1);
                for (const int64_t target : vectorTargets::all()) {
                    const vectorTargets::Forced forced(target);
                    QImage adjusted = picture;
                    exposure::adjust(adjusted, look);
                    QVERIFY2(adjusted == expected, hwy::TargetName(target));
                }
            }
        }
    }

    void everyThreadCount_givesThePlainPixels()
    {
        const QImage picture = noise({641, 487}, QImage::Format_RGB32);
        for (const Look &look : kLooks) {
            QImage expected = picture;
            exposure::adjustPlain(expected, look);
            for (const int threads : {1, 2, 5}) {
                parallel::setThreadLimit(threads);
                QImage adjusted = picture;
                exposure::adjust(adjusted, look);
                QVERIFY2(adjusted == expected, qPrintable(QString::number(threads)));
            }
        }
    }

    /// However far apart the pixels of a reduced part lie in the map's cells.
    void lightMapRow_everyTarget_givesWhatEachPixelHasAlone()
    {
        const exposure::LightMap map(noise({2603, 40}, QImage::Format_RGB32));
        constexpr int kCount = 83;
        for (const double step : {0.37, 1.0, 4.4, 6.1, 8.5, 9.0, 31.0}) {
            const exposure::LightMap::Window window({11, 3}, step);
            for (const int64_t target : vectorTargets::all()) {
                const vectorTargets::Forced forced(target);
                std::vector<float> slopes(kCount);
                std::vector<float> offsets(kCount);
                map.row(window, 2, 1, kCount, slopes.data(), offsets.data());
                for (int x = 0; x < kCount; ++x) {
                    float slope = 0;
                    float offset = 0;
                    map.row(window, 2 + x, 1, 1, &slope, &offset);
                    QCOMPARE(slopes[size_t(x)], slope);
                    QCOMPARE(offsets[size_t(x)], offset);
                }
            }
        }
    }

    void neutral_changesNoByteOfEither()
    {
        const QImage picture = noise({61, 13}, QImage::Format_RGBA64);
        QImage fast = picture;
        QImage plain = picture;
        exposure::adjust(fast, {});
        exposure::adjustPlain(plain, {});
        QCOMPARE(fast.constBits(), picture.constBits());
        QCOMPARE(plain, picture);
    }
};

QTEST_GUILESS_MAIN(TestAdjustPlain)
#include "tst_adjust_plain.moc"
