// The half plane that is nearest once doubled: against normal equations that are solved in full.

#include "half_size.h"
#include "parallel_rows.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <vector>

class TestHalfSize : public QObject
{
    Q_OBJECT

private slots:
    void halfSizeOf_doubledPlane_givesThePlaneBack_data();
    void halfSizeOf_doubledPlane_givesThePlaneBack();
    void halfSizeOf_anyPlane_isNearerThanItsNeighbours();
    void halfSizeOf_constantPlane_staysConstant_data();
    void halfSizeOf_constantPlane_staysConstant();
    void halfSizeOf_anyNumberOfThreads_givesTheSameBits();
};

namespace {

using Plane = std::vector<float>; // 4 floats a place

Plane randomPlane(QSize size, quint32 seed)
{
    QRandomGenerator random(seed);
    Plane plane(4 * size_t(size.width()) * size_t(size.height()));
    for (float &number : plane)
        number = float(random.generateDouble());
    return plane;
}

float at(const Plane &plane, QSize size, int x, int y, int lane)
{
    const int column = std::clamp(x, 0, size.width() - 1);
    const int row = std::clamp(y, 0, size.height() - 1);
    return plane[4 * (size_t(row) * size_t(size.width()) + size_t(column)) + size_t(lane)];
}

/// Twice the size, by straight lines between the samples' middles.
Plane doubled(const Plane &half, QSize size)
{
    Plane full;
    for (int y = 0; y < 2 * size.height(); ++y) {
        for (int x = 0; x < 2 * size.width(); ++x) {
            const int farX = x % 2 == 0 ? x / 2 - 1 : x / 2 + 1;
            const int farY = y % 2 == 0 ? y / 2 - 1 : y / 2 + 1;
            for (int lane = 0; lane < 4; ++lane)
                full.push_back(0.75F * (0.75F * at(half, size, x / 2, y / 2, lane) +
                                        0.25F * at(half, size, farX, y / 2, lane)) +
                               0.25F * (0.75F * at(half, size, x / 2, farY, lane) +
                                        0.25F * at(half, size, farX, farY, lane)));
        }
    }
    return full;
}

Plane halved(const Plane &full, QSize size)
{
    return display::halfSizeOf(size, [&](int y, float *pixels) {
        const size_t stride = 4 * size_t(size.width());
        std::copy_n(full.begin() + qsizetype(stride * size_t(y)), stride, pixels);
    });
}

double distance(const Plane &one, const Plane &other)
{
    double sum = 0.0;
    for (size_t i = 0; i < one.size(); ++i)
        sum += std::pow(double(one[i]) - double(other[i]), 2.0);
    return sum;
}

} // namespace

void TestHalfSize::halfSizeOf_doubledPlane_givesThePlaneBack_data()
{
    QTest::addColumn<QSize>("half");
    for (const QSize size : {QSize(1, 1), QSize(1, 5), QSize(7, 1), QSize(2, 2), QSize(3, 4),
                             QSize(17, 13), QSize(31, 40)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size;
}

void TestHalfSize::halfSizeOf_doubledPlane_givesThePlaneBack()
{
    QFETCH(QSize, half);
    const Plane plane = randomPlane(half, 3);
    const Plane back = halved(doubled(plane, half), 2 * half);
    QCOMPARE(back.size(), plane.size());
    for (size_t i = 0; i < plane.size(); ++i)
        QVERIFY2(std::abs(back[i] - plane[i]) < 1e-5F, qPrintable(QString::number(i)));
}

/// The least squares: no other half plane comes nearer.
void TestHalfSize::halfSizeOf_anyPlane_isNearerThanItsNeighbours()
{
    const QSize half(9, 7);
    const Plane full = randomPlane(2 * half, 4);
    const Plane best = halved(full, 2 * half);
    const double least = distance(doubled(best, half), full);
    for (size_t i = 0; i < best.size(); ++i) {
        for (const float step : {-0.01F, 0.01F}) {
            Plane other = best;
            other[i] += step;
            QVERIFY(distance(doubled(other, half), full) > least);
        }
    }
}

void TestHalfSize::halfSizeOf_constantPlane_staysConstant_data()
{
    QTest::addColumn<QSize>("size");
    for (const QSize size : {QSize(1, 1), QSize(2, 1), QSize(1, 3), QSize(5, 5), QSize(101, 67)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size;
}

void TestHalfSize::halfSizeOf_constantPlane_staysConstant()
{
    QFETCH(QSize, size);
    const Plane full(4 * size_t(size.width()) * size_t(size.height()), 2.5F);
    const Plane half = halved(full, size);
    QCOMPARE(half.size(), 4 * size_t((size.width() + 1) / 2) * size_t((size.height() + 1) / 2));
    for (const float number : half)
        QVERIFY(std::abs(number - 2.5F) < 1e-5F);
}

void TestHalfSize::halfSizeOf_anyNumberOfThreads_givesTheSameBits()
{
    const QSize size(1031, 701);
    const Plane full = randomPlane(size, 5);
    parallel::setThreadLimit(1);
    const Plane one = halved(full, size);
    for (const int threads : {2, 3, 7}) {
        parallel::setThreadLimit(threads);
        QVERIFY(halved(full, size) == one);
    }
    parallel::setThreadLimit(0);
}

QTEST_APPLESS_MAIN(TestHalfSize)
#include "tst_half_size.moc"
