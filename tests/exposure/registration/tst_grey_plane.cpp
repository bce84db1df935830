// Grey planes of pictures in any format, whole ones beside those read a few rows at a time.

#include "grey_plane.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>

using registration::GreyPlane;

class tst_grey_plane : public QObject
{
    Q_OBJECT

private slots:
    void greyPlane_anyFormat_isThatOfTheConvertedPicture_data();
    void greyPlane_anyFormat_isThatOfTheConvertedPicture();
    void greyPlane_halfTransparent_saysNothing_data();
    void greyPlane_halfTransparent_saysNothing();
};

namespace {

const std::atomic<bool> kNever{false};

QImage randomPicture(QSize size, int leastAlpha)
{
    QRandomGenerator random(11);
    QImage picture(size, QImage::Format_RGBA64);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            reinterpret_cast<QRgba64 *>(picture.scanLine(y))[x] =
                qRgba64(quint16(random.bounded(65536)), quint16(random.bounded(65536)),
                        quint16(random.bounded(65536)), quint16(random.bounded(leastAlpha, 65536)));
    return picture;
}

bool areEqual(const GreyPlane &a, const GreyPlane &b)
{
    if (a.width != b.width || a.height != b.height)
        return false;
    for (int y = 0; y < a.height; ++y)
        if (!std::equal(a.row(y), a.row(y) + a.width, b.row(y)))
            return false;
    return true;
}

} // namespace

void tst_grey_plane::greyPlane_anyFormat_isThatOfTheConvertedPicture_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<QImage::Format>("direct");
    const auto add = [](const char *name, QImage::Format format, QImage::Format direct) {
        QTest::newRow(name) << format << direct;
    };
    add("24 bits", QImage::Format_RGB888, QImage::Format_RGB32);
    add("grey", QImage::Format_Grayscale8, QImage::Format_RGB32);
    add("palette", QImage::Format_Indexed8, QImage::Format_RGB32);
    add("one bit", QImage::Format_Mono, QImage::Format_RGB32);
    add("bytes with alpha", QImage::Format_RGBA8888, QImage::Format_ARGB32);
    add("deep grey", QImage::Format_Grayscale16, QImage::Format_RGBA64);
    add("ten bits", QImage::Format_RGB30, QImage::Format_RGBA64);
    add("floats", QImage::Format_RGBA32FPx4, QImage::Format_RGBA64);
    add("deep", QImage::Format_RGBX64, QImage::Format_RGBA64);
    add("deep, premultiplied", QImage::Format_RGBA64_Premultiplied, QImage::Format_RGBA64);
}

void tst_grey_plane::greyPlane_anyFormat_isThatOfTheConvertedPicture()
{
    QFETCH(QImage::Format, format);
    QFETCH(QImage::Format, direct);
    // More rows than are read at a time, and an odd one.
    for (const QSize size : {QSize(1, 1), QSize(7, 3), QSize(63, 331)}) {
        const QImage picture = randomPicture(size, 65535).convertToFormat(format);
        for (const bool isHalved : {false, true}) {
            const GreyPlane plane = registration::greyPlane(picture, isHalved, kNever);
            const GreyPlane expected =
                registration::greyPlane(picture.convertToFormat(direct), isHalved, kNever);
            QVERIFY(areEqual(plane, expected));
        }
    }
}

void tst_grey_plane::greyPlane_halfTransparent_saysNothing_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("deep") << QImage::Format_RGBA64;
    QTest::newRow("deep, premultiplied") << QImage::Format_RGBA64_Premultiplied;
    QTest::newRow("bytes, premultiplied") << QImage::Format_ARGB32_Premultiplied;
    QTest::newRow("bytes in another order") << QImage::Format_RGBA8888;
}

void tst_grey_plane::greyPlane_halfTransparent_saysNothing()
{
    QFETCH(QImage::Format, format);
    QImage picture(40, 30, QImage::Format_RGBA64);
    picture.fill(QColor::fromRgba64(qRgba64(30000, 20000, 10000, 65535)));
    const QColor half = QColor::fromRgba64(qRgba64(30000, 20000, 10000, 32768));
    picture.setPixelColor(5, 7, half);
    const GreyPlane plane = registration::greyPlane(picture.convertToFormat(format), false, kNever);
    QCOMPARE(plane.row(7)[5], registration::kNoGrey);
    QVERIFY(plane.row(7)[6] != registration::kNoGrey);
}

QTEST_GUILESS_MAIN(tst_grey_plane)
#include "tst_grey_plane.moc"
