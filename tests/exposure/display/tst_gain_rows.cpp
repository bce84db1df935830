// The gains of a row: fast against plain on every vector target, plain against the formula.

#include "gain_rows.h"
#include "vector_targets.h"

#include <QRandomGenerator>
#include <QtTest>

#include <cmath>
#include <cstring>
#include <vector>

class TestGainRows : public QObject
{
    Q_OBJECT

private slots:
    void gainsOfRow_anyLength_equalsPlainOnEveryTarget_data();
    void gainsOfRow_anyLength_equalsPlainOnEveryTarget();
    void gainsOfRowPlain_anyLight_isTheLogarithmWithinItsBounds();
};

namespace {

struct Row
{
    std::vector<float> base;
    std::vector<float> light;
};

/// From black to far beyond white, and some that are the same.
Row randomRow(size_t count, quint32 seed)
{
    QRandomGenerator random(seed);
    Row row;
    for (size_t i = 0; i < count; ++i) {
        row.base.push_back(float(random.generateDouble()) + display::kGainOffset);
        row.light.push_back(i % 7 == 0 ? row.base.back() - display::kGainOffset
                                       : float(std::exp2(24.0 * random.generateDouble() - 12.0)));
    }
    row.light[0] = 0.0F;
    return row;
}

} // namespace

void TestGainRows::gainsOfRow_anyLength_equalsPlainOnEveryTarget_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {1, 3, 4, 7, 8, 9, 15, 16, 17, 31, 64, 131, 1000})
        QTest::addRow("%d samples", count) << count;
}

void TestGainRows::gainsOfRow_anyLength_equalsPlainOnEveryTarget()
{
    QFETCH(int, count);
    const auto length = size_t(count);
    const Row row = randomRow(length + 1, quint32(count));
    const display::GainTerms terms{1.7F, 16.0F};
    // One sample in, so that no vector is aligned, and one of padding.
    std::vector<float> plain(length + 1, -7.0F);
    display::gainsOfRowPlain(row.base.data() + 1, row.light.data() + 1, length, terms,
                             plain.data());
    for (const int64_t target : vectorTargets::all()) {
        const vectorTargets::Forced forced(target);
        std::vector<float> fast(length + 1, -7.0F);
        display::gainsOfRow(row.base.data() + 1, row.light.data() + 1, length, terms, fast.data());
        QVERIFY2(std::memcmp(plain.data(), fast.data(), sizeof(float) * plain.size()) == 0,
                 hwy::TargetName(target));
    }
}

void TestGainRows::gainsOfRowPlain_anyLight_isTheLogarithmWithinItsBounds()
{
    const Row row = randomRow(20000, 5);
    const display::GainTerms terms{0.8F, 256.0F};
    std::vector<float> gains(row.base.size());
    display::gainsOfRowPlain(row.base.data(), row.light.data(), gains.size(), terms, gains.data());
    double worst = 0.0;
    for (size_t i = 0; i < gains.size(); ++i) {
        const double exact = std::clamp(
            std::log2((0.8 * double(row.light[i]) + 1.0 / 64.0) / double(row.base[i])), 0.0, 8.0);
        worst = std::max(worst, std::abs(double(gains[i]) - exact));
    }
    qInfo("worst error %g stops", worst);
    QVERIFY(worst < 2e-6);
}

QTEST_APPLESS_MAIN(TestGainRows)
#include "tst_gain_rows.moc"
