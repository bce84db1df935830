#include <PicturePyramid.h>

#include <QRandomGenerator>
#include <QtTest>

namespace {

QImage randomPicture(const QSize &size)
{
    QRandomGenerator random(4711);
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            picture.setPixel(x, y, random.generate() | 0xff000000U);
    return picture;
}

// The obvious way: every pixel is the mean of the up to four pixels below it.
QImage plainHalf(const QImage &image)
{
    QImage half((image.width() + 1) / 2, (image.height() + 1) / 2, image.format());
    for (int y = 0; y < half.height(); ++y) {
        for (int x = 0; x < half.width(); ++x) {
            int sums[4] = {};
            int count = 0;
            for (int i = 0; i < 4; ++i) {
                const QPoint p(2 * x + i % 2, 2 * y + i / 2);
                if (!image.valid(p))
                    continue;
                const QRgb pixel = image.pixel(p);
                sums[0] += qRed(pixel);
                sums[1] += qGreen(pixel);
                sums[2] += qBlue(pixel);
                ++count;
            }
            const auto mean = [count](int sum) { return (2 * sum + count) / (2 * count); };
            half.setPixel(x, y, qRgb(mean(sums[0]), mean(sums[1]), mean(sums[2])));
        }
    }
    return half;
}

const QImage *built(PicturePyramid &pyramid, const PicturePyramid::TileKey &key,
                    const std::vector<SourceLayer> &layers)
{
    for (int steps = 0; steps < 10000; ++steps) {
        if (pyramid.buildStep(key, layers))
            return pyramid.tile(key);
    }
    return nullptr;
}

} // namespace

class TestPicturePyramid : public QObject
{
    Q_OBJECT

private slots:
    void levelForZoom_isTheSmallestThatIsLargeEnough_data();
    void levelForZoom_isTheSmallestThatIsLargeEnough();
    void levelSize_roundsUp();
    void tiles_equalThePlainMeans_data();
    void tiles_equalThePlainMeans();
    void tileRect_outsideOfTheLevel_isEmpty();
    void buildStep_readsOneTileAtMost();
    void build_readsEveryPixelOnce();
    void reset_dropsTheTiles();
    void tileOutside_isNoWork();
};

void TestPicturePyramid::levelForZoom_isTheSmallestThatIsLargeEnough_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("level");
    QTest::newRow("enlarged") << 3.0 << 0;
    QTest::newRow("actual size") << 1.0 << 0;
    QTest::newRow("just above a half") << 0.500001 << 0;
    QTest::newRow("a half") << 0.5 << 1;
    QTest::newRow("a third") << 1.0 / 3 << 1;
    QTest::newRow("an eighth") << 0.125 << 3;
    QTest::newRow("smallest") << 1.0 / 128 << 7;
}

void TestPicturePyramid::levelForZoom_isTheSmallestThatIsLargeEnough()
{
    QFETCH(double, zoom);
    QFETCH(int, level);
    QCOMPARE(PicturePyramid::levelForZoom(zoom), level);
}

void TestPicturePyramid::levelSize_roundsUp()
{
    PicturePyramid pyramid;
    pyramid.reset(QSize(1001, 1));
    QCOMPARE(pyramid.levelSize(0), QSize(1001, 1));
    QCOMPARE(pyramid.levelSize(1), QSize(501, 1));
    QCOMPARE(pyramid.levelSize(3), QSize(126, 1));
    pyramid.reset(QSize(0, 0));
    QVERIFY(pyramid.levelSize(1).isEmpty());
}

void TestPicturePyramid::tiles_equalThePlainMeans_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("1 x 1") << QSize(1, 1);
    QTest::newRow("one row") << QSize(700, 1);
    QTest::newRow("one column") << QSize(1, 700);
    QTest::newRow("whole tiles") << QSize(1024, 512);
    QTest::newRow("one pixel less") << QSize(1023, 511);
    QTest::newRow("one pixel more") << QSize(1025, 513);
    QTest::newRow("prime") << QSize(1103, 547);
}

void TestPicturePyramid::tiles_equalThePlainMeans()
{
    QFETCH(QSize, size);
    const QImage picture = randomPicture(size);
    const std::vector<SourceLayer> layers{{picture, 1.0}};
    PicturePyramid pyramid;
    pyramid.reset(size);
    QImage expected = picture;
    for (int level = 1; level <= 3; ++level) {
        expected = plainHalf(expected);
        QCOMPARE(pyramid.levelSize(level), expected.size());
        for (int row = 0; row * PicturePyramid::kTileSize < expected.height(); ++row) {
            for (int column = 0; column * PicturePyramid::kTileSize < expected.width(); ++column) {
                const PicturePyramid::TileKey key{level, column, row};
                const QImage *tile = built(pyramid, key, layers);
                QVERIFY(tile);
                QCOMPARE(tile->convertToFormat(QImage::Format_RGB32),
                         expected.copy(pyramid.tileRect(key)));
            }
        }
    }
}

void TestPicturePyramid::tileRect_outsideOfTheLevel_isEmpty()
{
    PicturePyramid pyramid;
    pyramid.reset(QSize(1024, 512));
    QCOMPARE(pyramid.tileRect({1, 1, 0}), QRect(256, 0, 256, 256));
    QVERIFY(pyramid.tileRect({1, 2, 0}).isEmpty());
    QVERIFY(pyramid.tileRect({1, 0, 1}).isEmpty());
}

void TestPicturePyramid::buildStep_readsOneTileAtMost()
{
    constexpr qint64 kTilePixels = 4LL * PicturePyramid::kTileSize * PicturePyramid::kTileSize;
    const QImage picture = randomPicture(QSize(2048, 2048));
    PicturePyramid pyramid;
    pyramid.reset(picture.size());
    qint64 before = 0;
    int steps = 1;
    while (!pyramid.buildStep({3, 0, 0}, {{picture, 1.0}})) {
        QVERIFY(pyramid.sourcePixelsRead() - before <= kTilePixels);
        before = pyramid.sourcePixelsRead();
        ++steps;
    }
    QCOMPARE(steps, 16 + 4 + 1);
}

void TestPicturePyramid::build_readsEveryPixelOnce()
{
    const QImage picture = randomPicture(QSize(1500, 1100));
    const std::vector<SourceLayer> layers{{picture, 1.0}};
    PicturePyramid pyramid;
    pyramid.reset(picture.size());
    QVERIFY(built(pyramid, {3, 0, 0}, layers));
    QCOMPARE(pyramid.sourcePixelsRead(), qint64(1500) * 1100);
    QVERIFY(built(pyramid, {3, 0, 0}, layers));
    QVERIFY(built(pyramid, {1, 1, 1}, layers));
    QCOMPARE(pyramid.sourcePixelsRead(), qint64(1500) * 1100);
}

void TestPicturePyramid::reset_dropsTheTiles()
{
    PicturePyramid pyramid;
    pyramid.reset(QSize(600, 600));
    QVERIFY(built(pyramid, {1, 0, 0}, {{randomPicture(QSize(600, 600)), 1.0}}));
    pyramid.reset(QSize(600, 600));
    QVERIFY(!pyramid.tile({1, 0, 0}));
}

void TestPicturePyramid::tileOutside_isNoWork()
{
    PicturePyramid pyramid;
    pyramid.reset(QSize(100, 100));
    QVERIFY(pyramid.buildStep({1, 9, 9}, {{randomPicture(QSize(100, 100)), 1.0}}));
    QVERIFY(!pyramid.tile({1, 9, 9}));
    QCOMPARE(pyramid.sourcePixelsRead(), qint64(0));
}

QTEST_GUILESS_MAIN(TestPicturePyramid)
#include "tst_PicturePyramid.moc"
