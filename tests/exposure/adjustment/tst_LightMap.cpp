#include "LightMap.h"

#include <QtTest>

#include <cmath>

using exposure::LightMap;

namespace {

double surroundings(const LightMap &map, int x, int y, int level)
{
    const LightMap::Line line = map.at(x, y);
    return (double(line.slope) * level * 257 + double(line.offset)) / 257;
}

} // namespace

class TestLightMap : public QObject
{
    Q_OBJECT

private slots:
    void flatPicture_hasItselfAround()
    {
        QImage picture(123, 77, QImage::Format_RGB32);
        picture.fill(qRgb(90, 90, 90));
        const LightMap map(picture);
        for (const QPoint place : {QPoint(0, 0), QPoint(60, 40), QPoint(122, 76)})
            QVERIFY(std::abs(surroundings(map, place.x(), place.y(), 90) - 90) < 0.01);
    }

    void fineDetail_isAveraged()
    {
        QImage picture(200, 200, QImage::Format_RGB32);
        for (int y = 0; y < 200; ++y) {
            for (int x = 0; x < 200; ++x)
                picture.setPixel(x, y, (x + y) % 2 ? qRgb(106, 106, 106) : qRgb(94, 94, 94));
        }
        const LightMap map(picture);
        QVERIFY(std::abs(surroundings(map, 100, 100, 94) - 100) < 2);
        QVERIFY(std::abs(surroundings(map, 101, 100, 106) - 100) < 2);
    }

    void strongEdge_isKept()
    {
        QImage picture(300, 200, QImage::Format_RGB32);
        picture.fill(qRgb(20, 20, 20));
        for (int y = 0; y < 200; ++y) {
            for (int x = 150; x < 300; ++x)
                picture.setPixel(x, y, qRgb(230, 230, 230));
        }
        const LightMap map(picture);
        QVERIFY(surroundings(map, 146, 100, 20) < 45);
        QVERIFY(surroundings(map, 153, 100, 230) > 205);
    }

    void row_isWhatAtSays_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("one pixel") << QSize(1, 1);
        QTest::newRow("a column") << QSize(1, 37);
        QTest::newRow("cells of one pixel") << QSize(211, 97);
        QTest::newRow("larger cells, cut off") << QSize(1031, 613);
    }

    void row_isWhatAtSays()
    {
        QFETCH(const QSize, size);
        QImage picture(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x)
                picture.setPixel(x, y, QRgb(x * 7919 + y * 104729) | 0xFF000000U);
        }
        const LightMap map(picture);
        std::vector<float> slopes(size_t(size.width()));
        std::vector<float> offsets(slopes);
        for (const int y : {0, size.height() / 2, size.height() - 1}) {
            map.row({}, 0, y, size.width(), slopes.data(), offsets.data());
            for (int x = 0; x < size.width(); ++x) {
                QCOMPARE(slopes[size_t(x)], map.at(x, y).slope);
                QCOMPARE(offsets[size_t(x)], map.at(x, y).offset);
            }
        }
    }

    void cells_areBounded()
    {
        QImage picture(4003, 10, QImage::Format_RGB32);
        picture.fill(Qt::gray);
        const LightMap map(picture);
        QVERIFY(map.cells().width() <= LightMap::kSide);
        QCOMPARE(map.cells(), QSize(308, 1));
    }
};

QTEST_GUILESS_MAIN(TestLightMap)
#include "tst_LightMap.moc"
