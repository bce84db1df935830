#include "area_mean.h"
#include "parallel_rows.h"
#include "vector_targets.h"

#include <QColorSpace>
#include <QRgba64>
#include <QtTest>

#include <random>

namespace {

QImage noise(QSize size, QImage::Format format)
{
    std::mt19937 random(7);
    QImage picture(size, QImage::Format_RGBA64);
    for (int y = 0; y < size.height(); ++y) {
        auto *row = reinterpret_cast<QRgba64 *>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            row[x] =
                qRgba64(quint16(random()), quint16(random()), quint16(random()), quint16(random()));
    }
    return picture.convertToFormat(format);
}

int channelCount(const QImage &picture)
{
    return picture.isGrayscale() && picture.depth() <= 16 ? 1 : 4;
}

double channelOf(const QImage &picture, int x, int y, int channel)
{
    const uchar *row = picture.constScanLine(y);
    const bool isDeep = picture.depth() == 64 || picture.format() == QImage::Format_Grayscale16;
    const int i = x * channelCount(picture) + channel;
    return isDeep ? reinterpret_cast<const quint16 *>(row)[i] : row[i];
}

/// How much of pixel i lies under pixel `part` of a smaller row.
double covered(int i, int part, int from, int to)
{
    const double begin = double(part) * from / to;
    const double end = double(part + 1) * from / to;
    return std::max(0.0, std::min(i + 1.0, end) - std::max(double(i), begin));
}

double expectedChannel(const QImage &picture, QSize size, QPoint place, int channel)
{
    double sum = 0;
    double area = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const double share = covered(x, place.x(), picture.width(), size.width()) *
                                 covered(y, place.y(), picture.height(), size.height());
            sum += share > 0 ? share * channelOf(picture, x, y, channel) : 0;
            area += share;
        }
    }
    return sum / area;
}

} // namespace

class TestAreaMean : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { parallel::setThreadLimit(0); }

    void eachPixel_isTheMeanOfWhatItCovers_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<QSize>("size");
        const std::pair<const char *, QImage::Format> formats[] = {
            {"RGB32", QImage::Format_RGB32},
            {"RGBX64", QImage::Format_RGBX64},
            {"8 bits, alpha", QImage::Format_ARGB32_Premultiplied},
            {"16 bits, alpha", QImage::Format_RGBA64_Premultiplied},
            {"grey", QImage::Format_Grayscale8},
            {"deep grey", QImage::Format_Grayscale16}};
        for (const auto &[name, format] : formats) {
            for (const QSize size : {QSize(1, 1), QSize(10, 5), QSize(9, 7), QSize(31, 2),
                                     QSize(29, 19), QSize(1, 19)})
                QTest::addRow("%s, %dx%d", name, size.width(), size.height()) << format << size;
        }
    }

    void eachPixel_isTheMeanOfWhatItCovers()
    {
        QFETCH(const QImage::Format, format);
        QFETCH(const QSize, size);
        const QImage picture = noise({31, 19}, format);
        const QImage small = picture::areaMean(picture, size);
        QCOMPARE(small.size(), size);
        QCOMPARE(small.format(), format);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                for (int channel = 0; channel < channelCount(picture); ++channel) {
                    const double expected = expectedChannel(picture, size, {x, y}, channel);
                    QVERIFY(std::abs(channelOf(small, x, y, channel) - expected) < 0.52);
                }
            }
        }
    }

    void white_staysWhite()
    {
        for (const auto format :
             {QImage::Format_RGB32, QImage::Format_RGBX64, QImage::Format_Grayscale16}) {
            QImage picture(1201, 803, format);
            picture.fill(Qt::white);
            QImage expected(399, 267, format);
            expected.fill(Qt::white);
            QCOMPARE(picture::areaMean(picture, expected.size()), expected);
        }
    }

    /// Of so many that a sum in single precision rounds.
    void white_ofVeryManyPixels_staysWhite()
    {
        QImage picture(1301, 2903, QImage::Format_RGBX64);
        picture.fill(Qt::white);
        for (const QSize size : {QSize(1, 1), QSize(3, 2), QSize(2, 7)}) {
            QImage expected(size, QImage::Format_RGBX64);
            expected.fill(Qt::white);
            QCOMPARE(picture::areaMean(picture, size), expected);
        }
    }

    void everyThreadCount_givesTheSame()
    {
        const QImage picture = noise({301, 211}, QImage::Format_RGBX64);
        parallel::setThreadLimit(1);
        const QImage alone = picture::areaMean(picture, {97, 71});
        for (const int threads : {2, 5}) {
            parallel::setThreadLimit(threads);
            QCOMPARE(picture::areaMean(picture, {97, 71}), alone);
        }
    }

    void everyTarget_givesTheSame()
    {
        for (const auto format : {QImage::Format_RGB32, QImage::Format_RGBA64_Premultiplied,
                                  QImage::Format_Grayscale8, QImage::Format_Grayscale16}) {
            const QImage picture = noise({301, 211}, format);
            for (const QSize size : {QSize(97, 71), QSize(300, 3), QSize(1, 1)}) {
                const QImage expected = picture::areaMean(picture, size);
                for (const int64_t target : vectorTargets::all()) {
                    const vectorTargets::Forced forced(target);
                    QCOMPARE(picture::areaMean(picture, size), expected);
                }
            }
        }
    }

    void area_isThatOfThePartCutOut()
    {
        for (const auto format : {QImage::Format_RGB32, QImage::Format_RGBX64,
                                  QImage::Format_Grayscale8, QImage::Format_RGB888}) {
            const QImage picture = noise({301, 211}, format);
            for (const QRect &area :
                 {picture.rect(), QRect(20, 30, 200, 150), QRect(300, 210, 1, 1)}) {
                for (const QSize size : {area.size(), QSize(1, 1), QSize(90, 70)})
                    QCOMPARE(picture::areaMean(picture, area, size),
                             picture::areaMean(picture.copy(area), size));
            }
        }
    }

    /// A picture of which the left, the right and a row lie elsewhere.
    void pixelsFromSeveralPlaces_areThoseOfOnePicture()
    {
        for (const auto format : {QImage::Format_ARGB32_Premultiplied, QImage::Format_RGBX64,
                                  QImage::Format_Grayscale16}) {
            const QImage picture = noise({301, 211}, format);
            const QImage left = picture.copy(0, 0, 100, 211);
            const QImage right = picture.copy(100, 0, 201, 211);
            const QImage row = picture.copy(0, 77, 301, 1);
            const int bytes = picture.depth() / 8;
            picture::PixelSource source{
                right, [&](int x, int y) -> picture::PixelRun {
                    if (y == 77)
                        return {row.constBits() + x * bytes, 301};
                    if (x < 100)
                        return {left.constScanLine(y) + x * bytes, 100};
                    return {right.constScanLine(y) + (x - 100) * bytes, 301};
                }};
            for (const QRect &area : {picture.rect(), QRect(90, 70, 30, 90)}) {
                for (const QSize size : {area.size(), QSize(1, 1), QSize(11, 41)})
                    QCOMPARE(picture::areaMean(source, area, size),
                             picture::areaMean(picture, area, size));
            }
        }
    }

    void profileAndResolution_stay()
    {
        QImage picture = noise({40, 30}, QImage::Format_RGB32);
        picture.setColorSpace(QColorSpace::DisplayP3);
        picture.setDotsPerMeterX(4242);
        const QImage small = picture::areaMean(picture, {20, 15});
        QCOMPARE(small.colorSpace(), picture.colorSpace());
        QCOMPARE(small.dotsPerMeterX(), 4242);
    }

    void otherFormatsAndLargerSizes_areScaledByQt()
    {
        const QImage dense = noise({40, 30}, QImage::Format_RGB888);
        QCOMPARE(picture::areaMean(dense, {20, 15}).size(), QSize(20, 15));
        const QImage picture = noise({40, 30}, QImage::Format_RGB32);
        QCOMPARE(picture::areaMean(picture, {80, 15}).size(), QSize(80, 15));
        QCOMPARE(picture::areaMean(picture, picture.size()), picture);
        QVERIFY(picture::areaMean(picture, {0, 5}).isNull());
        QVERIFY(picture::areaMean({}, {5, 5}).isNull());
    }
};

QTEST_GUILESS_MAIN(TestAreaMean)
#include "tst_area_mean.moc"
