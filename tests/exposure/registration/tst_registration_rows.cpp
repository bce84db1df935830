#include "correlation.h"
#include "grey_rows.h"
#include "normalise_rows.h"
#include "patch_rows.h"
#include "resample_rows.h"
#include "vector_targets.h"

#include <QtTest>

#include <random>
#include <vector>

using namespace registration;

namespace {

constexpr size_t kWidths[] = {1, 2, 7, 8, 9, 15, 16, 17, 31, 32, 33, 63, 64, 67, 131};

/// Calls check() once for each vector target that this processor has.
template <typename Check>
void onEveryTarget(const Check &check)
{
    for (int64_t target : vectorTargets::all()) {
        const vectorTargets::Forced forced(target);
        QVERIFY2(check(), hwy::TargetName(target));
    }
}

/// Random words with many clipped, black and transparent ones among them.
std::vector<uint32_t> randomPixels(size_t count, std::mt19937 &random)
{
    constexpr uint32_t kSpecial[] = {0xFFFFFFFFU, 0xFF000000U, 0U,          0xFFFA0000U,
                                     0xFF00F900U, 0x80102030U, 0xFF030303U, 0xFF040404U};
    std::vector<uint32_t> pixels(count);
    for (uint32_t &pixel : pixels)
        pixel = random() % 4 == 0 ? kSpecial[random() % 8] : uint32_t(random()) | 0xFF000000U;
    return pixels;
}

std::vector<uint16_t> randomGreys(size_t count, std::mt19937 &random)
{
    std::vector<uint16_t> greys(count);
    for (uint16_t &grey : greys)
        grey = random() % 5 == 0 ? 0xFFFF : uint16_t(random() % 4081);
    return greys;
}

std::vector<int16_t> randomNumbers(size_t count, std::mt19937 &random)
{
    std::vector<int16_t> numbers(count);
    for (int16_t &number : numbers)
        number = random() % 9 == 0 ? int16_t(127) : int16_t(int(random() % 255) - 127);
    return numbers;
}

bool areEqual(const CellSums &a, const CellSums &b)
{
    return a.count == b.count && a.sum == b.sum && a.squares == b.squares;
}

} // namespace

class tst_registration_rows : public QObject
{
    Q_OBJECT

private slots:
    void greyRows_equalThePlainOnes();
    void halveRow_equalsThePlainOne();
    void sumCells_equalsThePlainOne();
    void normaliseRow_equalsThePlainOne();
    void correlation_equalsThePlainOne();
    void readPatch_equalsThePlainOne();
    void resampleWords_equalsThePlainOne();
    void greyOfPairs_clippedPixel_saysNothing();
    void filterPhases_addUpToOne();
};

void tst_registration_rows::greyRows_equalThePlainOnes()
{
    std::mt19937 random(1);
    for (size_t width : kWidths) {
        const std::vector<uint32_t> upper = randomPixels(2 * width + 1, random);
        const std::vector<uint32_t> lower = randomPixels(2 * width + 1, random);
        for (uint32_t opaque : {0U, 0xFF000000U}) {
            const WordRows rows{upper.data() + 1, lower.data() + 1, width, opaque};
            std::vector<uint16_t> words(width);
            std::vector<uint16_t> pairs(width);
            plain::greyOfWords(rows, words.data());
            plain::greyOfPairs(rows, pairs.data());
            onEveryTarget([&] {
                std::vector<uint16_t> fastWords(width);
                std::vector<uint16_t> fastPairs(width);
                greyOfWords(rows, fastWords.data());
                greyOfPairs(rows, fastPairs.data());
                return fastWords == words && fastPairs == pairs;
            });
        }
    }
}

void tst_registration_rows::halveRow_equalsThePlainOne()
{
    std::mt19937 random(2);
    for (size_t width : kWidths) {
        const std::vector<uint16_t> upper = randomGreys(2 * width, random);
        const std::vector<uint16_t> lower = randomGreys(2 * width, random);
        std::vector<uint16_t> expected(width);
        plain::halveRow(upper.data(), lower.data(), width, expected.data());
        onEveryTarget([&] {
            std::vector<uint16_t> fast(width);
            halveRow(upper.data(), lower.data(), width, fast.data());
            return fast == expected;
        });
    }
}

void tst_registration_rows::sumCells_equalsThePlainOne()
{
    std::mt19937 random(3);
    std::vector<uint16_t> greys = randomGreys(8 * 64, random);
    std::fill_n(greys.begin(), 8, uint16_t{4080}); // the largest sums
    for (size_t lines = 1; lines <= kCellSide; ++lines) {
        CellSums expected[8];
        plain::sumCells(greys.data(), 64, lines, 8, expected);
        onEveryTarget([&] {
            CellSums fast[8];
            sumCells(greys.data(), 64, lines, 8, fast);
            return std::equal(std::begin(fast), std::end(fast), expected, areEqual);
        });
    }
}

void tst_registration_rows::normaliseRow_equalsThePlainOne()
{
    std::mt19937 random(4);
    constexpr size_t kGroups = 40;
    const std::vector<uint16_t> greys = randomGreys(kGroups * kCellSide, random);
    std::vector<float> means(kGroups + 1);
    std::vector<float> scales(kGroups + 1);
    for (size_t i = 0; i <= kGroups; ++i) {
        means[i] = float(random() % 40000) / 10.0F;
        scales[i] = float(random() % 1000) / 257.0F;
    }
    std::vector<int8_t> expected(greys.size());
    plain::normaliseRow(greys.data(), kGroups, means.data(), scales.data(), expected.data());
    onEveryTarget([&] {
        std::vector<int8_t> fast(greys.size());
        normaliseRow(greys.data(), kGroups, means.data(), scales.data(), fast.data());
        return fast == expected;
    });
}

void tst_registration_rows::correlation_equalsThePlainOne()
{
    std::mt19937 random(5);
    for (size_t side : {16U, 33U, 80U, 96U}) {
        const size_t offsets = side == 96 ? 13 : 5;
        const size_t stride = (side + 31) / 32 * 32;
        std::vector<int16_t> tile = randomNumbers(stride * side, random);
        for (size_t y = 0; y < side; ++y)
            std::fill(&tile[y * stride] + side, &tile[y * stride] + stride, int16_t{0});
        const size_t patchStride = stride + offsets;
        const std::vector<int16_t> patch = randomNumbers(patchStride * (side + offsets), random);
        const CorrelationInput input{tile.data(), patch.data(), side, stride, patchStride, offsets};
        std::vector<int32_t> expected(offsets * offsets);
        plain::correlate(input, expected.data());
        const int32_t product = plain::dotProduct(tile.data(), patch.data(), side);
        onEveryTarget([&] {
            std::vector<int32_t> fast(offsets * offsets);
            correlate(input, fast.data());
            return fast == expected && dotProduct(tile.data(), patch.data(), side) == product;
        });
    }
}

void tst_registration_rows::readPatch_equalsThePlainOne()
{
    std::mt19937 random(6);
    constexpr int kSide = 96;
    std::vector<int8_t> plane(kSide * kSide);
    for (int8_t &value : plane)
        value = random() % 7 == 0 ? int8_t(-128) : int8_t(int(random() % 255) - 127);
    for (int round = 0; round < 50; ++round) {
        const auto step = [&] { return int64_t(random() % 4000) - 2000; };
        const PatchInput input{plane.data(),
                               kSide,
                               kSide,
                               kSide,
                               int64_t(random() % (40 << 16)) - (10 << 16),
                               int64_t(random() % (40 << 16)) - (10 << 16),
                               (8 << 16) + step(),
                               step(),
                               step(),
                               (1 << 16) + step(),
                               7,
                               60,
                               64};
        std::vector<int16_t> expected(64 * 60);
        const int there = plain::readPatch(input, expected.data());
        onEveryTarget([&] {
            std::vector<int16_t> fast(64 * 60);
            return readPatch(input, fast.data()) == there && fast == expected;
        });
    }
}

void tst_registration_rows::resampleWords_equalsThePlainOne()
{
    std::mt19937 random(7);
    for (const auto &[width, height] : {std::pair(1, 1), std::pair(5, 7), std::pair(37, 29)}) {
        const std::vector<uint32_t> pixels = randomPixels(size_t(width * height), random);
        std::vector<TapPlace> places(500);
        for (TapPlace &place : places) {
            place = {int(random() % unsigned(width + 4)) - 4,
                     int(random() % unsigned(height + 4)) - 4, uint16_t(random() % kPhases),
                     uint16_t(random() % kPhases), random() % 9 != 0};
        }
        for (bool isOpaque : {false, true}) {
            const SourcePixels source{reinterpret_cast<const uint8_t *>(pixels.data()),
                                      size_t(width) * 4, width, height, isOpaque};
            std::vector<uint32_t> expected(places.size());
            plain::resampleWords(source, places.data(), places.size(), expected.data());
            onEveryTarget([&] {
                std::vector<uint32_t> fast(places.size());
                resampleWords(source, places.data(), places.size(), fast.data());
                return fast == expected;
            });
        }
    }
}

void tst_registration_rows::greyOfPairs_clippedPixel_saysNothing()
{
    const uint32_t upper[] = {0xFF808080U, 0xFF808080U, 0xFF808080U, 0xFFFA8080U};
    const uint32_t lower[] = {0xFF808080U, 0xFF808080U, 0xFF808080U, 0xFF808080U};
    uint16_t greys[2];
    plain::greyOfPairs({upper, lower, 2, 0}, greys);
    QCOMPARE(int(greys[0]), 128 * 16);
    QCOMPARE(int(greys[1]), 0xFFFF);
}

void tst_registration_rows::filterPhases_addUpToOne()
{
    for (const TapWeights &weights : filterPhases()) {
        int sum = 0;
        for (size_t i = 0; i < kTaps; ++i)
            sum += weights[i];
        QCOMPARE(sum, kWeightOne);
    }
    QCOMPARE(int(filterPhases()[0][2]), kWeightOne); // on a pixel, that pixel alone
}

QTEST_GUILESS_MAIN(tst_registration_rows)
#include "tst_registration_rows.moc"
