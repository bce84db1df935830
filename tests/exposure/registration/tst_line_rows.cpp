#include "LineResampler.h"
#include "line_rows.h"
#include "vector_targets.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

using namespace registration;

namespace {

constexpr int kWidths[] = {1, 2, 3, 5, 7, 8, 9, 15, 16, 17, 31, 64, 131};
constexpr int kHeight = 11;

/// Random channels, most pixels opaque.
template <typename Channel>
std::vector<Channel> randomChannels(int width, std::mt19937 &random)
{
    std::vector<Channel> channels(4 * size_t(width) * kHeight);
    for (size_t i = 0; i < channels.size(); ++i) {
        const bool isFull = i % 4 == 3 ? random() % 8 != 0 : random() % 5 == 0;
        channels[i] = Channel(isFull ? ~0U : random());
    }
    return channels;
}

/// Places along a line, rounded, or anywhere where the step is no number.
std::vector<int32_t> places(size_t count, double first, double step, int most, std::mt19937 &random)
{
    std::vector<int32_t> line(count);
    for (size_t i = 0; i < count; ++i) {
        const double at = std::isnan(step) ? double(random() % unsigned(most + 1))
                                           : kPhases * (first + step * double(i));
        line[i] = int32_t(std::lround(at));
    }
    return line;
}

template <typename Channel>
bool areEqual(const LineColumns<Channel> &a, const LineColumns<Channel> &b, int width)
{
    const size_t count = 4 * size_t(width);
    return std::equal(a.sums(0), a.sums(0) + count, b.sums(0)) &&
           std::equal(a.least(0), a.least(0) + count, b.least(0)) &&
           std::equal(a.most(0), a.most(0) + count, b.most(0));
}

template <typename Channel>
void compareDown(double slope)
{
    std::mt19937 random(3);
    for (const int width : kWidths) {
        const std::vector<Channel> pixels = randomChannels<Channel>(width, random);
        const SourcePixels source{reinterpret_cast<const uint8_t *>(pixels.data()),
                                  4 * sizeof(Channel) * size_t(width), width, kHeight, false};
        for (const int begin : {0, width / 3}) {
            const ColumnRange range{begin, width};
            const std::vector<int32_t> line =
                places(size_t(width - begin), kHeight / 2 + 0.3, slope, kHeight * kPhases, random);
            LineColumns<Channel> expected(width);
            plain::filterDown(source, line.data(), range, expected);
            for (const int64_t target : vectorTargets::all()) {
                const vectorTargets::Forced forced(target);
                LineColumns<Channel> fast(width);
                filterDown(source, line.data(), range, fast);
                QVERIFY2(areEqual(fast, expected, width), hwy::TargetName(target));
            }
        }
    }
}

template <typename Channel>
void compareAcross(double step)
{
    std::mt19937 random(4);
    for (const int width : kWidths) {
        const std::vector<Channel> pixels = randomChannels<Channel>(width, random);
        const SourcePixels source{reinterpret_cast<const uint8_t *>(pixels.data()),
                                  4 * sizeof(Channel) * size_t(width), width, kHeight, false};
        LineColumns<Channel> columns(width);
        const std::vector<int32_t> line = places(size_t(width), 4.2, 0.01, 0, random);
        plain::filterDown(source, line.data(), {0, width}, columns);
        columns.repeatOutermost();
        const int most = (width - 1) * kPhases;
        const size_t count = std::isnan(step) ? 67 : size_t((width - 1) / step) + 1;
        std::vector<int32_t> across = places(count, 0.004, step, most, random);
        for (int32_t &place : across)
            place = std::clamp(place, 0, most);
        for (const bool isOpaque : {false, true}) {
            std::vector<Channel> expected(4 * count);
            plain::filterAcross(columns, across.data(), count, isOpaque, expected.data());
            for (const int64_t target : vectorTargets::all()) {
                const vectorTargets::Forced forced(target);
                std::vector<Channel> fast(4 * count);
                filterAcross(columns, across.data(), count, isOpaque, fast.data());
                QVERIFY2(fast == expected, hwy::TargetName(target));
            }
        }
    }
}

} // namespace

class TestLineRows : public QObject
{
    Q_OBJECT

private slots:
    void filterDown_equalsThePlainOne_data();
    void filterDown_equalsThePlainOne();
    void filterAcross_equalsThePlainOne_data();
    void filterAcross_equalsThePlainOne();
    void filterDown_beyondTheShot_repeatsItsRows();
    void filterAcross_besideTheShot_repeatsItsColumns();
    void areRowsLevel_ofHands_theyAre_data();
    void areRowsLevel_ofHands_theyAre();
};

void TestLineRows::filterDown_equalsThePlainOne_data()
{
    QTest::addColumn<double>("slope");
    for (const double slope : {0.0, 0.0002, -0.0015, 0.009, -0.06, 0.5})
        QTest::addRow("slope %g", slope) << slope;
    QTest::newRow("anywhere") << std::nan("");
}

void TestLineRows::filterDown_equalsThePlainOne()
{
    QFETCH(const double, slope);
    compareDown<uint8_t>(slope);
    compareDown<uint16_t>(slope);
}

void TestLineRows::filterAcross_equalsThePlainOne_data()
{
    QTest::addColumn<double>("step");
    for (const double step : {1.0, 1.0004, 0.9993, 1.02, 0.7, 1.4})
        QTest::addRow("step %g", step) << step;
    QTest::newRow("anywhere") << std::nan("");
}

void TestLineRows::filterAcross_equalsThePlainOne()
{
    QFETCH(const double, step);
    compareAcross<uint8_t>(step);
    compareAcross<uint16_t>(step);
}

void TestLineRows::filterDown_beyondTheShot_repeatsItsRows()
{
    const std::vector<uint16_t> pixels{1000, 2000, 3000, 0xFFFF, 1000, 2000, 3000, 0xFFFF};
    const SourcePixels source{reinterpret_cast<const uint8_t *>(pixels.data()), 8, 1, 2, true};
    for (const int32_t row : {-1000, 0, 40, 1000}) {
        LineColumns<uint16_t> columns(1);
        filterDown(source, &row, {0, 1}, columns);
        QCOMPARE(columns.sums(0)[1], 2000.0F);
        QCOMPARE(columns.least(0)[1], uint16_t(2000));
        QCOMPARE(columns.most(0)[1], uint16_t(2000));
    }
}

void TestLineRows::filterAcross_besideTheShot_repeatsItsColumns()
{
    const std::vector<uint8_t> pixels{10, 20, 30, 255, 10, 20, 30, 255};
    const SourcePixels source{pixels.data(), 8, 2, 1, true};
    const std::vector<int32_t> rows{0, 0};
    LineColumns<uint8_t> columns(2);
    filterDown(source, rows.data(), {0, 2}, columns);
    columns.repeatOutermost();
    const std::vector<int32_t> across{0, 64, kPhases};
    std::vector<uint8_t> out(12);
    filterAcross(columns, across.data(), across.size(), false, out.data());
    const std::vector<uint8_t> expected{10, 20, 30, 255, 10, 20, 30, 255, 10, 20, 30, 255};
    QCOMPARE(out, expected);
}

void TestLineRows::areRowsLevel_ofHands_theyAre_data()
{
    QTest::addColumn<std::vector<double>>("matrix");
    QTest::addColumn<bool>("areLevel");
    const auto row = [](const char *name, std::vector<double> matrix, bool areLevel) {
        QTest::newRow(name) << matrix << areLevel;
    };
    row("still", {1, 0, 0, 0, 1, 0, 0, 0, 1}, true);
    row("of a hand", {1.001, 0.004, 3.3, -0.0041, 0.9995, -2.7, 1e-6, -2e-6, 1}, true);
    row("falling a little", {1, 0, 0, 0.062, 1, 0, 0, 0, 1}, true);
    row("rising a little", {1, 0, 0, -0.062, 1, 0, 0, 0, 1}, true);
    row("falling", {1, 0, 0, 0.063, 1, 0, 0, 0, 1}, false);
    row("falling below", {1, 0, 0, 0, 1, 0, 0, 3e-4, 1}, true);
    row("smaller", {1.6, 0, 0, 0, 1, 0, 0, 0, 1}, false);
    row("larger", {0.6, 0, 0, 0, 1, 0, 0, 0, 1}, false);
    row("mirrored", {-1, 0, 0, 0, 1, 0, 0, 0, 1}, false);
    row("upright", {0, 1, 0, -1, 0, 0, 0, 0, 1}, false);
    row("tilted much", {1, 0, 0, 0, 1, 0, 1e-3, 0, 1}, false);
    row("behind the camera", {1, 0, 0, 0, 1, 0, -2e-3, 0, 1}, false);
    row("no map", {0, 0, 0, 0, 0, 0, 0, 0, 0}, false);
}

void TestLineRows::areRowsLevel_ofHands_theyAre()
{
    QFETCH(const std::vector<double>, matrix);
    QFETCH(const bool, areLevel);
    Matrix toShot;
    std::copy(matrix.begin(), matrix.end(), toShot.begin());
    QCOMPARE(areRowsLevel(toShot, {1000, 800}), areLevel);
}

QTEST_GUILESS_MAIN(TestLineRows)
#include "tst_line_rows.moc"
