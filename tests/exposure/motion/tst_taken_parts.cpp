#include "SmallShot.h"
#include "taken_parts.h"

#include "parallel_rows.h"

#include <QtTest>

#include <algorithm>
#include <random>

using motion::Take;

class TestTakenParts : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { parallel::setThreadLimit(0); }
    void addTakes_anySize_equalsTheDefinition_data();
    void addTakes_anySize_equalsTheDefinition();
    void addTakes_severalThreads_giveTheSame();
    void addTakes_emptyMask_leavesTheMasksAsTheyAre();
    void addTakes_part_isWholeAndFromNoOtherShot();
    void addTakes_twoPartsThatTouch_leaveNothingToOthers();
    void addTakes_sharedPlace_goesToTheLaterTake();
    void addTakes_whereTheShotDoesNotCover_leavesWhatWasThere();
    void addTakes_cancelled_saysSo();
};

namespace {

QImage emptyMask(QSize size)
{
    QImage mask(size, QImage::Format_Grayscale8);
    mask.fill(0);
    return mask;
}

QImage maskOf(QSize size, const QRect &part, int level = 255)
{
    QImage mask = emptyMask(size);
    const QRect inside = part & mask.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        std::fill_n(mask.scanLine(y) + inside.left(), inside.width(), uchar(level));
    return mask;
}

/// Opaque, but for a part.
QImage shotOf(QSize size, QImage::Format format, const QRect &uncovered = {})
{
    QImage shot(size, QImage::Format_ARGB32);
    shot.fill(qRgb(80, 90, 100));
    for (int y = std::max(0, uncovered.top()); y <= std::min(uncovered.bottom(), size.height() - 1);
         ++y)
        for (int x = std::max(0, uncovered.left());
             x <= std::min(uncovered.right(), size.width() - 1); ++x)
            shot.setPixel(x, y, qRgba(0, 0, 0, 0));
    return shot.convertToFormat(format);
}

std::vector<QImage> randomMasks(size_t count, QSize size)
{
    std::mt19937 random(7);
    std::vector<QImage> masks(count);
    for (size_t i = 1; i < count; ++i) { // the first one is null
        masks[i] =
            QImage((size.width() + 1) / 2, (size.height() + 1) / 2, QImage::Format_Grayscale8);
        for (int y = 0; y < masks[i].height(); ++y)
            for (int x = 0; x < masks[i].width(); ++x)
                masks[i].scanLine(y)[x] = uchar(random() % 3 == 0 ? 0 : random() % 256);
    }
    return masks;
}

/// What the header says, place by place.
class Definition
{
public:
    Definition(const std::vector<Take> &takes, const std::vector<QImage> &shots)
        : size(shots.front().size())
        , side(std::max(2, motion::blockSide(size) / 2))
        , width((size.width() + side - 1) / side)
        , height((size.height() + side - 1) / side)
        , labels(size_t(width * height))
    {
        for (const Take &take : takes)
            for (int i = 0; i < width * height; ++i)
                if (isAnyTaken(take.mask, i) && isCovered(shots[size_t(take.shot)], i))
                    labels[size_t(i)] = take.shot + 1;
        const std::vector<int> own = labels;
        for (int shot = 0; shot < int(shots.size()); ++shot)
            for (int i = 0; i < width * height; ++i)
                if (labels[size_t(i)] == 0 && isNear(own, i, shot + 1) &&
                    isCovered(shots[size_t(shot)], i))
                    labels[size_t(i)] = shot + 1;
    }

    int maskAt(const QImage &before, int shot, int x, int y) const
    {
        const int level = before.isNull() ? 255 : before.constScanLine(y)[x];
        const int taken = softAt(x, y, 0);
        return std::min(255, (level * (255 - taken) + 127) / 255 + softAt(x, y, shot + 1));
    }

private:
    template <typename Test>
    bool isAny(int block, Test test) const
    {
        const int left = block % width * side;
        const int top = block / width * side;
        for (int y = top; y < std::min(top + side, size.height()); ++y)
            for (int x = left; x < std::min(left + side, size.width()); ++x)
                if (test(x, y))
                    return true;
        return false;
    }

    bool isAnyTaken(const QImage &mask, int block) const
    {
        return isAny(block, [&](int x, int y) { return mask.constScanLine(y)[x] != 0; });
    }

    bool isCovered(const QImage &shot, int block) const
    {
        return !isAny(
            block, [&](int x, int y) { return shot.pixelColor(x, y).rgba64().alpha() != 0xFFFF; });
    }

    bool isNear(const std::vector<int> &own, int block, int label) const
    {
        for (int y = -3; y <= 3; ++y)
            for (int x = -3; x <= 3; ++x)
                if (own[size_t(clamped(block % width + x, block / width + y))] == label)
                    return true;
        return false;
    }

    int clamped(int x, int y) const
    {
        return std::clamp(y, 0, height - 1) * width + std::clamp(x, 0, width - 1);
    }

    /// 5 x 5 around; label 0: any.
    int meanAt(int x, int y, int label) const
    {
        x = std::clamp(x, 0, width - 1);
        y = std::clamp(y, 0, height - 1);
        int sum = 0;
        for (int dy = -2; dy <= 2; ++dy)
            for (int dx = -2; dx <= 2; ++dx) {
                const int there = labels[size_t(clamped(x + dx, y + dy))];
                sum += there != 0 && (label == 0 || there == label) ? 255 : 0;
            }
        return (sum + 12) / 25;
    }

    int softAt(int x, int y, int label) const
    {
        const int factor = side / 2;
        if (factor == 1)
            return meanAt(x, y, label);
        const int full = 2 * factor;
        const int fromX = x + factor / 2;
        const int fromY = y + factor / 2;
        const int shareX = 2 * (fromX % factor) + 1;
        const int shareY = 2 * (fromY % factor) + 1;
        const auto row = [&](int blockY) {
            return meanAt(fromX / factor - 1, blockY, label) * (full - shareX) +
                   meanAt(fromX / factor, blockY, label) * shareX;
        };
        const int sum = row(fromY / factor - 1) * (full - shareY) + row(fromY / factor) * shareY;
        return (sum + full * full / 2) / (full * full);
    }

    QSize size;
    int side;
    int width;
    int height;
    std::vector<int> labels;
};

} // namespace

void TestTakenParts::addTakes_anySize_equalsTheDefinition_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QImage::Format>("format");
    for (const QSize size : {QSize(1, 1), QSize(1, 40), QSize(37, 1), QSize(64, 48), QSize(63, 47),
                             QSize(65, 49), QSize(101, 89)})
        for (const QImage::Format format :
             {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_RGBA64_Premultiplied})
            QTest::addRow("%d x %d, format %d", size.width(), size.height(), int(format))
                << size << format;
    QTest::newRow("blocks of 4") << QSize(4003, 23) << QImage::Format_ARGB32_Premultiplied;
    QTest::newRow("blocks of 8") << QSize(19, 8011) << QImage::Format_RGB888;
}

void TestTakenParts::addTakes_anySize_equalsTheDefinition()
{
    QFETCH(QSize, size);
    QFETCH(QImage::Format, format);
    const int width = size.width();
    const int height = size.height();
    const std::vector<QImage> shots{shotOf(size, format),
                                    shotOf(size, format, QRect(width / 2, 0, width, height / 2)),
                                    shotOf(size, format)};
    const std::vector<Take> takes{
        {1, maskOf(size, QRect(width / 4, height / 4, width / 2, height / 2), 1)},
        {0, maskOf(size, QRect(0, 0, (width + 3) / 4, (height + 2) / 3))},
        {1, maskOf(size, QRect(width - 2, height - 2, 2, 2), 128)}};
    const std::vector<QImage> before = randomMasks(3, size);
    std::vector<QImage> masks = before;
    QVERIFY(motion::addTakes(takes, shots, masks));
    const Definition definition(takes, shots);
    for (size_t i = 0; i < masks.size(); ++i) {
        QCOMPARE(masks[i].format(), QImage::Format_Grayscale8);
        QCOMPARE(masks[i].size(), QSize((width + 1) / 2, (height + 1) / 2));
        for (int y = 0; y < masks[i].height(); ++y)
            for (int x = 0; x < masks[i].width(); ++x)
                QCOMPARE(int(masks[i].constScanLine(y)[x]),
                         definition.maskAt(before[i], int(i), x, y));
    }
}

void TestTakenParts::addTakes_severalThreads_giveTheSame()
{
    const QSize size(701, 503);
    const std::vector<QImage> shots(3, shotOf(size, QImage::Format_RGB32));
    const std::vector<Take> takes{{2, maskOf(size, QRect(100, 100, 333, 77))}};
    std::vector<QImage> one;
    parallel::setThreadLimit(1);
    QVERIFY(motion::addTakes(takes, shots, one));
    for (const int threads : {2, 7}) {
        parallel::setThreadLimit(threads);
        std::vector<QImage> many;
        QVERIFY(motion::addTakes(takes, shots, many));
        QCOMPARE(many, one);
    }
}

void TestTakenParts::addTakes_emptyMask_leavesTheMasksAsTheyAre()
{
    const QSize size(40, 30);
    const std::vector<QImage> shots(2, shotOf(size, QImage::Format_RGB32));
    std::vector<QImage> none;
    QVERIFY(motion::addTakes({{1, emptyMask(size)}}, shots, none));
    QVERIFY(none.empty());
    std::vector<QImage> masks = randomMasks(2, size);
    QVERIFY(motion::addTakes({{1, emptyMask(size)}, {0, emptyMask(size)}}, shots, masks));
    QCOMPARE(masks, randomMasks(2, size));
}

void TestTakenParts::addTakes_part_isWholeAndFromNoOtherShot()
{
    const QSize size(4400, 400); // blocks of 4
    const QRect part(1003, 51, 61, 47);
    const std::vector<QImage> shots(3, shotOf(size, QImage::Format_RGB32));
    std::vector<QImage> masks = randomMasks(3, size);
    QVERIFY(motion::addTakes({{1, maskOf(size, part)}}, shots, masks));
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            for (size_t i = 0; i < masks.size(); ++i)
                QCOMPARE(int(masks[i].constScanLine(y / 2)[x / 2]), i == 1 ? 255 : 0);
    const QPoint beyond(part.right() + 4 * 7, 70);
    QCOMPARE(int(masks[0].constScanLine(beyond.y() / 2)[beyond.x() / 2]), 255);
}

void TestTakenParts::addTakes_twoPartsThatTouch_leaveNothingToOthers()
{
    const QSize size(200, 100);
    const std::vector<QImage> shots(3, shotOf(size, QImage::Format_RGB32));
    std::vector<QImage> masks;
    QVERIFY(motion::addTakes(
        {{0, maskOf(size, QRect(40, 20, 60, 60))}, {1, maskOf(size, QRect(100, 20, 60, 60))}},
        shots, masks));
    for (int x = 40; x < 160; ++x) {
        QCOMPARE(int(masks[2].constScanLine(25)[x / 2]), 0);
        const int sum = masks[0].constScanLine(25)[x / 2] + masks[1].constScanLine(25)[x / 2];
        QVERIFY(sum >= 254 && sum <= 256); // rounded
    }
}

void TestTakenParts::addTakes_sharedPlace_goesToTheLaterTake()
{
    const QSize size(120, 80);
    const std::vector<QImage> shots(2, shotOf(size, QImage::Format_RGB32));
    const QImage part = maskOf(size, QRect(30, 20, 50, 40));
    for (const int later : {0, 1}) {
        std::vector<QImage> masks;
        QVERIFY(motion::addTakes({{1 - later, part}, {later, part}}, shots, masks));
        QCOMPARE(int(masks[size_t(later)].constScanLine(20)[27]), 255);
        QCOMPARE(int(masks[size_t(1 - later)].constScanLine(20)[27]), 0);
    }
}

void TestTakenParts::addTakes_whereTheShotDoesNotCover_leavesWhatWasThere()
{
    const QSize size(120, 80);
    const std::vector<QImage> shots{shotOf(size, QImage::Format_ARGB32),
                                    shotOf(size, QImage::Format_ARGB32, QRect(60, 0, 60, 80))};
    std::vector<QImage> masks;
    QVERIFY(motion::addTakes({{1, maskOf(size, QRect(20, 0, 100, 80))}}, shots, masks));
    QCOMPARE(int(masks[0].constScanLine(20)[40 / 2]), 0);
    QCOMPARE(int(masks[1].constScanLine(20)[40 / 2]), 255);
    for (int x = 60; x < 120; ++x)
        QVERIFY(masks[0].constScanLine(20)[x / 2] > 0); // so something has weight there
    QCOMPARE(int(masks[0].constScanLine(20)[100 / 2]), 255);
}

void TestTakenParts::addTakes_cancelled_saysSo()
{
    const QSize size(40, 30);
    const std::atomic<bool> cancelled = true;
    const std::vector<QImage> shots(2, shotOf(size, QImage::Format_RGB32));
    std::vector<QImage> masks;
    QVERIFY(!motion::addTakes({{1, maskOf(size, QRect(5, 5, 9, 9))}}, shots, masks, &cancelled));
}

QTEST_GUILESS_MAIN(TestTakenParts)
#include "tst_taken_parts.moc"
