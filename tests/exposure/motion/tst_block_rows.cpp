// The blocks of the search for movement: fast against plain on every vector target.

#include "block_rows.h"
#include "vector_targets.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <vector>

using motion::BlockRow;
using motion::BlockWords;

class tst_block_rows : public QObject
{
    Q_OBJECT

private slots:
    void measureBlocks_anyRow_equalsPlainOnEveryTarget_data();
    void measureBlocks_anyRow_equalsPlainOnEveryTarget();
    void measureBlocksPlain_knownPixels_givesMeansAndExtremes();
};

namespace {

/// Ten numbers for each block: three means, three of each extreme, covered; and one of padding.
struct Measured
{
    std::vector<uint8_t> numbers;
    BlockRow row;

    explicit Measured(size_t blocks)
        : numbers(10 * (blocks + 1), 77)
    {
        const auto plane = [&](size_t i) { return &numbers[i * (blocks + 1)]; };
        for (size_t i = 0; i < 3; ++i) {
            row.means[i] = plane(i);
            row.darkest[i] = plane(3 + i);
            row.brightest[i] = plane(6 + i);
        }
        row.covered = plane(9);
    }
};

} // namespace

void tst_block_rows::measureBlocks_anyRow_equalsPlainOnEveryTarget_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("side");
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("hasAlpha");
    for (const int side : {2, 4, 8, 16})
        for (const int width : {1, 2, 15, 16, 17, 31, 33, 127, 512, 513, 1031})
            for (const int rows : {1, side - 1, side})
                for (const bool hasAlpha : {false, true})
                    QTest::addRow("%d pixels, %d rows of blocks of %d%s", width, rows, side,
                                  hasAlpha ? ", some uncovered" : "")
                        << width << side << rows << hasAlpha;
}

void tst_block_rows::measureBlocks_anyRow_equalsPlainOnEveryTarget()
{
    QFETCH(int, width);
    QFETCH(int, side);
    QFETCH(int, rows);
    QFETCH(bool, hasAlpha);
    QRandomGenerator random(quint32(width * 100 + side * 10 + rows));
    std::vector<std::vector<uint32_t>> pixels;
    pixels.resize(size_t(rows), std::vector<uint32_t>(size_t(width)));
    BlockWords words;
    words.side = size_t(side);
    words.width = size_t(width);
    words.hasAlpha = hasAlpha;
    for (auto &row : pixels) {
        for (uint32_t &pixel : row)
            pixel = random.generate() | (random.bounded(40) > 0 ? 0xFF000000U : 0U);
        // The ends of the range, where sums could leave their bits.
        std::fill(row.begin(), row.begin() + width / 3, 0xFFFFFFFFU);
        words.rows[words.rowCount++] = row.data();
    }
    const size_t blocks = size_t((width + side - 1) / side);
    Measured plain(blocks);
    motion::measureBlocksPlain(words, 0, blocks, plain.row);
    for (const int64_t target : vectorTargets::all()) {
        const vectorTargets::Forced forced(target);
        Measured fast(blocks);
        motion::measureBlocks(words, fast.row);
        QVERIFY2(fast.numbers == plain.numbers, hwy::TargetName(target));
    }
}

void tst_block_rows::measureBlocksPlain_knownPixels_givesMeansAndExtremes()
{
    const std::vector<uint32_t> upper{0xFF0A141E, 0xFF0B151F, 0xFF000000};
    const std::vector<uint32_t> lower{0xFF0C1620, 0x800D1721, 0xFFFF8001};
    BlockWords words;
    words.rows = {upper.data(), lower.data()};
    words.rowCount = 2;
    words.width = 3;
    words.hasAlpha = true;
    Measured measured(2);
    motion::measureBlocksPlain(words, 0, 2, measured.row);
    // Means of 10..13, 20..23, 30..33, rounded up from the half; the second block is one column.
    const std::vector<uint8_t> expected{12, 128, 77,  22, 64, 77, 32, 1,  77, 10,
                                        0,  77,  20,  0,  77, 30, 0,  77, 13, 255,
                                        77, 23,  128, 77, 33, 1,  77, 0,  1,  77};
    QCOMPARE(QByteArray(reinterpret_cast<const char *>(measured.numbers.data()),
                        int(measured.numbers.size()))
                 .toHex(' '),
             QByteArray(reinterpret_cast<const char *>(expected.data()), int(expected.size()))
                 .toHex(' '));
}

QTEST_GUILESS_MAIN(tst_block_rows)
#include "tst_block_rows.moc"
