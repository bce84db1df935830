#include "ShotReader.h"

#include <QtTest>

#include <algorithm>
#include <random>
#include <vector>

using fusion::ShotReader;

/// Rows as if a shot covered everything, against looking for each pixel's nearest one.
class TestShotReader : public QObject
{
    Q_OBJECT

private slots:
    void row_anyCoverage_takesTheNearestPixel_data();
    void row_anyCoverage_takesTheNearestPixel();
    void row_betweenTwoRows_takesTheUpperOne();
    void row_withoutAnyPixel_isBlack();
    void usableRow_anyGap_leavesItsBlockOut();
    void whole_shot_isUsable();
};

namespace {

constexpr QRgb kNothing = 0;

QImage covered(QSize size, unsigned seed, unsigned gapsInTen)
{
    std::mt19937 random(seed);
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < size.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            row[x] = random() % 10 < gapsInTen ? kNothing : QRgb(random()) | 0xFF000000U;
    }
    return picture;
}

QRgb nearestInRow(const QImage &picture, int x, int y)
{
    for (int left = x; left >= 0; --left) {
        if (qAlpha(picture.pixel(left, y)) == 255)
            return picture.pixel(left, y);
    }
    for (int right = x; right < picture.width(); ++right) {
        if (qAlpha(picture.pixel(right, y)) == 255)
            return picture.pixel(right, y);
    }
    return kNothing;
}

QRgb expectedAt(const QImage &picture, int x, int y)
{
    for (int distance = 0; distance < picture.height(); ++distance) {
        for (const int row : {y - distance, y + distance}) {
            if (row < 0 || row >= picture.height())
                continue;
            const QRgb found = nearestInRow(picture, x, row);
            if (found != kNothing)
                return found;
        }
    }
    return kNothing;
}

void requireRows(const QImage &picture)
{
    const fusion::Shot shot{picture, {}};
    const ShotReader<quint32> reader(shot);
    std::vector<quint32> room(size_t(picture.width()));
    for (int y = 0; y < picture.height(); ++y) {
        const quint32 *row = reader.row(y, room.data());
        for (int x = 0; x < picture.width(); ++x)
            QCOMPARE(row[x], expectedAt(picture, x, y));
    }
}

} // namespace

void TestShotReader::row_anyCoverage_takesTheNearestPixel_data()
{
    QTest::addColumn<unsigned>("gapsInTen");
    for (const unsigned gaps : {0U, 1U, 5U, 9U})
        QTest::addRow("%u of ten missing", gaps) << gaps;
}

void TestShotReader::row_anyCoverage_takesTheNearestPixel()
{
    QFETCH(const unsigned, gapsInTen);
    unsigned seed = 0;
    for (const QSize size : {QSize(1, 1), QSize(1, 7), QSize(7, 1), QSize(5, 12), QSize(23, 17)})
        requireRows(covered(size, ++seed, gapsInTen));
}

void TestShotReader::row_betweenTwoRows_takesTheUpperOne()
{
    QImage picture(3, 5, QImage::Format_ARGB32_Premultiplied);
    picture.fill(0);
    picture.setPixel(1, 1, qRgb(10, 20, 30));
    picture.setPixel(2, 3, qRgb(40, 50, 60));
    requireRows(picture);
    const fusion::Shot shot{picture, {}};
    std::vector<quint32> room(3);
    QCOMPARE(ShotReader<quint32>(shot).row(2, room.data())[0], qRgb(10, 20, 30));
}

void TestShotReader::row_withoutAnyPixel_isBlack()
{
    QImage picture(4, 3, QImage::Format_ARGB32_Premultiplied);
    picture.fill(0);
    requireRows(picture);
}

void TestShotReader::usableRow_anyGap_leavesItsBlockOut()
{
    unsigned seed = 20;
    for (const QSize size : {QSize(1, 1), QSize(8, 6), QSize(9, 7)}) {
        for (const unsigned gapsInTen : {1U, 6U}) {
            const QImage picture = covered(size, ++seed, gapsInTen);
            const fusion::Shot shot{picture, {}};
            const ShotReader<quint32> reader(shot);
            std::vector<float> shares(size_t(size.width() + 1) / 2);
            for (int y = 0; y < (size.height() + 1) / 2; ++y) {
                reader.usableRow(y, shares.data());
                for (int x = 0; x < (size.width() + 1) / 2; ++x) {
                    const QImage block =
                        picture.copy(QRect(2 * x, 2 * y, 2, 2).intersected(picture.rect()));
                    bool isWhole = true;
                    for (int i = 0; i < block.width() * block.height(); ++i)
                        isWhole &= qAlpha(block.pixel(i % block.width(), i / block.width())) == 255;
                    QCOMPARE(shares[size_t(x)], isWhole ? 1.0F : 0.0F);
                }
            }
        }
    }
}

void TestShotReader::whole_shot_isUsable()
{
    const QImage picture = covered({9, 7}, 1, 0);
    const fusion::Shot shot{picture, {}};
    const ShotReader<quint32> reader(shot);
    QVERIFY(!reader.isPartlyUsable());
    const fusion::Shot part{covered({9, 7}, 1, 1), {}};
    QVERIFY(ShotReader<quint32>(part).isPartlyUsable());
}

QTEST_GUILESS_MAIN(TestShotReader)
#include "tst_ShotReader.moc"
