#include <picture_histogram.h>

#include <QtTest>

#include <cmath>
#include <numeric>

class TestPictureHistogram : public QObject
{
    Q_OBJECT

private slots:
    void everyPixel_isCountedInEveryChannel();
    void luminosity_isRec709Luma_data();
    void luminosity_isRec709Luma();
    void transparentPixels_areNotCounted();
    void halfTransparentPixels_countWithTheirOwnColour();
    void emptyDocument_countsNothing();
    void moreRowsThanAStrip_areAllCounted();
};

namespace {

QImage one(const QColor &color)
{
    QImage image(1, 1, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

quint64 sum(const std::array<quint32, 256> &counts)
{
    return std::accumulate(counts.begin(), counts.end(), quint64(0));
}

} // namespace

void TestPictureHistogram::everyPixel_isCountedInEveryChannel()
{
    QImage picture(256, 3, QImage::Format_RGB32);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 256; ++x)
            picture.setPixel(x, y, qRgb(x, 255 - x, 7));
    const VeskCanvas::Histogram counts = histogram::countLevels({{picture, 1.0}}, picture.size());
    for (int level = 0; level < 256; ++level) {
        QCOMPARE(counts.red[level], 3U);
        QCOMPARE(counts.green[level], 3U);
        QCOMPARE(counts.blue[level], level == 7 ? 768U : 0U);
    }
    QCOMPARE(sum(counts.luminosity), quint64(768));
}

void TestPictureHistogram::luminosity_isRec709Luma_data()
{
    QTest::addColumn<QColor>("color");
    for (const QRgb rgb : {0xff000000U, 0xffffffffU, 0xffff0000U, 0xff00ff00U, 0xff0000ffU,
                           0xff808080U, 0xff12c8f3U})
        QTest::newRow(qPrintable(QColor(rgb).name())) << QColor(rgb);
}

void TestPictureHistogram::luminosity_isRec709Luma()
{
    QFETCH(QColor, color);
    const int expected =
        int(std::lround(0.2126 * color.red() + 0.7152 * color.green() + 0.0722 * color.blue()));
    const VeskCanvas::Histogram counts = histogram::countLevels({{one(color), 1.0}}, QSize(1, 1));
    QCOMPARE(counts.luminosity[expected], 1U);
    QCOMPARE(sum(counts.luminosity), quint64(1));
}

void TestPictureHistogram::transparentPixels_areNotCounted()
{
    // The document is larger than the layer, and the layer has a hole.
    QImage picture(3, 1, QImage::Format_ARGB32);
    picture.fill(Qt::white);
    picture.setPixelColor(1, 0, Qt::transparent);
    const VeskCanvas::Histogram counts = histogram::countLevels({{picture, 1.0}}, QSize(10, 10));
    QCOMPARE(sum(counts.red), quint64(2));
    QCOMPARE(counts.luminosity[255], 2U);
}

void TestPictureHistogram::halfTransparentPixels_countWithTheirOwnColour()
{
    const VeskCanvas::Histogram counts =
        histogram::countLevels({{one(QColor(255, 255, 255, 128)), 1.0}}, QSize(1, 1));
    QCOMPARE(counts.green[255], 1U);
}

void TestPictureHistogram::emptyDocument_countsNothing()
{
    QCOMPARE(sum(histogram::countLevels({}, QSize(0, 0)).luminosity), quint64(0));
    QCOMPARE(sum(histogram::countLevels({}, QSize(5, 5)).luminosity), quint64(0));
}

void TestPictureHistogram::moreRowsThanAStrip_areAllCounted()
{
    QImage picture(3, 131, QImage::Format_RGB32);
    picture.fill(QColor(9, 9, 9));
    QCOMPARE(histogram::countLevels({{picture, 1.0}}, picture.size()).luminosity[9], 3U * 131U);
}

QTEST_GUILESS_MAIN(TestPictureHistogram)
#include "tst_picture_histogram.moc"
