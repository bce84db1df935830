// The fast fusion against the plain one: every byte, on every vector target and thread count.

#include "fusion.h"
#include "fusion_plain.h"
#include "random_shots.h"
#include "vector_targets.h"

#include "parallel_rows.h"

#include <QtTest>

using fusion::Options;
using fusion::Shot;

class tst_fusion : public QObject
{
    Q_OBJECT

private slots:
    void fuse_anySize_equalsPlainOnEveryTarget_data();
    void fuse_anySize_equalsPlainOnEveryTarget();
    void fuse_severalThreads_equalsPlain();
    void fuse_manyRows_needsNoneThatAreGivenBack_data();
    void fuse_manyRows_needsNoneThatAreGivenBack();
    void fuse_uncoveredPixels_equalsPlain_data();
    void fuse_uncoveredPixels_equalsPlain();
    void fuse_masks_equalsPlain();
    void fuse_otherWeights_equalsPlain();
    void fuse_rowPadding_isNotLookedAt();

private:
    static void compareOnEveryTarget(const std::vector<Shot> &shots, const Options &options = {});
};

void tst_fusion::compareOnEveryTarget(const std::vector<Shot> &shots, const Options &options)
{
    const QImage plain = fusePlain(shots, options);
    for (const int64_t target : vectorTargets::all()) {
        const vectorTargets::Forced forced(target);
        const fusion::Result result = fusion::fuse(shots, options);
        QCOMPARE(result.status, fusion::Status::Done);
        QVERIFY2(result.picture == plain, hwy::TargetName(target));
    }
}

void tst_fusion::fuse_anySize_equalsPlainOnEveryTarget_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("count");
    const QSize sizes[] = {{1, 1},   {1, 7},   {7, 1},   {2, 2},   {3, 2},   {8, 5},    {15, 17},
                           {16, 16}, {31, 33}, {63, 65}, {64, 64}, {130, 7}, {97, 101}, {257, 19}};
    for (const QSize size : sizes)
        for (const int count : {1, 2, 3})
            QTest::addRow("%d shots, %d x %d", count, size.width(), size.height()) << size << count;
    QTest::newRow("64 shots, 33 x 35") << QSize(33, 35) << 64;
}

void tst_fusion::fuse_anySize_equalsPlainOnEveryTarget()
{
    QFETCH(QSize, size);
    QFETCH(int, count);
    for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_RGBX64})
        compareOnEveryTarget(randomShots::bracket(size_t(count), size, format, 15));
}

void tst_fusion::fuse_severalThreads_equalsPlain()
{
    for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_RGBX64}) {
        const auto shots = randomShots::bracket(3, {463, 431}, format, 16);
        const QImage plain = fusePlain(shots);
        for (const int threads : {1, 2, 5}) {
            parallel::setThreadLimit(threads);
            QVERIFY2(fusion::fuse(shots).picture == plain, qPrintable(QString::number(threads)));
        }
        parallel::setThreadLimit(0);
    }
}

void tst_fusion::fuse_manyRows_needsNoneThatAreGivenBack_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("8 bits") << QImage::Format_RGB32;
    QTest::newRow("16 bits") << QImage::Format_RGBX64;
}

/// What rows of a smaller level have been read for good goes back to the system in large pages,
/// others with each number of threads: a row too early would come back as zeros, and show.
void tst_fusion::fuse_manyRows_needsNoneThatAreGivenBack()
{
    QFETCH(QImage::Format, format);
    const std::vector<Shot> shots = randomShots::bracket(3, {1601, 2203}, format, 77);
    parallel::setThreadLimit(1);
    const QImage one = fusion::fuse(shots).picture;
    for (const int threads : {2, 3}) {
        parallel::setThreadLimit(threads);
        QCOMPARE(fusion::fuse(shots).picture, one);
    }
    parallel::setThreadLimit(0);
}

void tst_fusion::fuse_uncoveredPixels_equalsPlain_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("8 bits") << QImage::Format_ARGB32;
    QTest::newRow("8 bits, premultiplied") << QImage::Format_ARGB32_Premultiplied;
    QTest::newRow("16 bits") << QImage::Format_RGBA64;
    QTest::newRow("16 bits, premultiplied") << QImage::Format_RGBA64_Premultiplied;
}

void tst_fusion::fuse_uncoveredPixels_equalsPlain()
{
    QFETCH(QImage::Format, format);
    for (const QSize size : {QSize(1, 1), QSize(37, 41), QSize(70, 3)}) {
        auto shots = randomShots::bracket(3, size, format, 17);
        randomShots::uncover(shots, 18);
        compareOnEveryTarget(shots);
    }
    auto shots = randomShots::bracket(2, {23, 29}, format, 19);
    shots[1].picture.fill(Qt::transparent);
    compareOnEveryTarget(shots);
}

void tst_fusion::fuse_masks_equalsPlain()
{
    auto shots = randomShots::bracket(4, {45, 67}, QImage::Format_RGB32, 20);
    randomShots::maskSome(shots, 21);
    compareOnEveryTarget(shots);
}

void tst_fusion::fuse_otherWeights_equalsPlain()
{
    Options options;
    options.exposureWeight = 0.5;
    options.contrastWeight = 2.0;
    options.saturationWeight = 1.0;
    compareOnEveryTarget(randomShots::bracket(3, {45, 67}, QImage::Format_RGB32, 22), options);
    compareOnEveryTarget(randomShots::bracket(3, {45, 67}, QImage::Format_RGBX64, 22), options);
}

/// A picture that is a part of a larger one has rows whose ends hold other pixels.
void tst_fusion::fuse_rowPadding_isNotLookedAt()
{
    const auto large = randomShots::bracket(2, {90, 40}, QImage::Format_RGB32, 23);
    std::vector<Shot> views;
    std::vector<Shot> copies;
    for (const Shot &shot : large) {
        views.push_back({QImage(shot.picture.constScanLine(3) + 8 * 4, 61, 31,
                                shot.picture.bytesPerLine(), QImage::Format_RGB32),
                         {}});
        copies.push_back({shot.picture.copy(8, 3, 61, 31), {}});
    }
    QVERIFY(fusion::fuse(views).picture == fusion::fuse(copies).picture);
}

QTEST_GUILESS_MAIN(tst_fusion)
#include "tst_fusion.moc"
