#include "engine_pictures.h"
#include "engine_targets.h"
#include "little_memory.h"
#include "mtb_alignment.h"
#include "mtb_alignment_plain.h"
#include "mtb_search.h"
#include "mtb_shifts.h"
#include "parallel_rows.h"

#include <QImageReader>
#include <QProcess>
#include <QtTest>

#include <climits>
#include <cstring>
#include <memory>

namespace {

using Picture = std::unique_ptr<QImage>;

constexpr auto kAlignOnePicture = "--align-one-picture";

/// All formats whose pixels are words of 32 bits.
const QList<QImage::Format> kWordFormats = {QImage::Format_RGB32,
                                            QImage::Format_ARGB32,
                                            QImage::Format_ARGB32_Premultiplied,
                                            QImage::Format_RGBX8888,
                                            QImage::Format_RGBA8888,
                                            QImage::Format_RGBA8888_Premultiplied,
                                            QImage::Format_BGR30,
                                            QImage::Format_RGB30,
                                            QImage::Format_A2BGR30_Premultiplied,
                                            QImage::Format_A2RGB30_Premultiplied};

/// The same words under another format.
QImage reread(const QImage &words, QImage::Format format)
{
    QImage picture = words.copy();
    picture.reinterpretAsFormat(format);
    return picture;
}

bool haveSameWords(const QImage &one, const QImage &other)
{
    const auto rowBytes = size_t(one.width()) * 4;
    for (int y = 0; y < one.height(); ++y) {
        if (memcmp(one.constScanLine(y), other.constScanLine(y), rowBytes) != 0)
            return false;
    }
    return one.size() == other.size();
}

QPoint shiftBetween(const QImage &first, const QImage &second)
{
    QImage a = first;
    QImage b = second;
    return mtb::pairShifts({&a, &b}).front();
}

/// A bracket of one scene: picture i shows what lies `offset` further on, i times as bright.
QList<QImage *> bracket(QSize size, const QList<QPoint> &offsets)
{
    QList<QImage *> list;
    for (int i = 0; i < offsets.size(); ++i)
        list.append(new QImage(pictures::scene(size, offsets[i], 0.6 + 0.3 * i, 7)));
    return list;
}

} // namespace

class TestMtbAlignment : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { parallel::setThreadLimit(0); }

    void wordsOfAnyFormat_areReadAsTheyStand();
    void halving_roundsHalfUp_5x3GivesA3x2Level();
    void halving_takesQtsPixels();

    void identicalTexturedPictures_haveShiftZeroAndAnEqualCopy();
    void uniformPictures_takeTheFirstCandidateAtEveryLevel_data();
    void uniformPictures_takeTheFirstCandidateAtEveryLevel();
    void equalErrors_keepTheEarlierCandidate();
    void knownShifts_areFoundAndUndone();
    void largestFindableShift_isFound();
    void pyramidLevels_followTheSmallerSide();
    void skipSearch_leavesShiftsUnwrittenAndPicturesInPlace();
    void firstPicture_isNeverReplaced();
    void twoPictures_giveExactlyOneShiftedCopy();
    void fewerThanTwoPictures_endTheProcessWithTheReport();
    void otherFormats_alignLikeTheir32BitCopies();

    void borrowedPixels_areNotWrittenAndNotKept();
    void lackOfMemory_leavesPicturesAndShiftsAsTheyWere();
    void extremeThresholdsAndLevels_areDefined_data();
    void extremeThresholdsAndLevels_areDefined();
    void levelsBeyondTheMost_searchAsTheMost();

    void differentSizes_areSafeAndEqualThePlainCode();
    void emptyPictures_leaveTheCallersShift();
    void randomPictures_equalThePlainCode();
    void randomGreyImagesThresholdsAndLevels_equalThePlainCode();
    void shiftsUpToTheLargest_equalThePlainCode();
    void threadCounts_giveTheSameShifts();
    void photographs_equalThePlainCode_data();
    void photographs_equalThePlainCode();
};

void TestMtbAlignment::wordsOfAnyFormat_areReadAsTheyStand()
{
    std::mt19937 random(20);
    const QImage first = pictures::scene({150, 140}, {10, 10}, 1.0, 21);
    QImage second = pictures::scene({150, 140}, {11, 9}, 0.8, 21);
    second.reinterpretAsFormat(QImage::Format_ARGB32);
    for (int y = 0; y < second.height(); ++y) // alphas that a conversion would multiply in
        reinterpret_cast<QRgb *>(second.scanLine(y))[y % 7] &= 0x80FFFFFFU;
    for (const QImage::Format format : kWordFormats) {
        const QImage odd = reread(second, format);
        const Picture shifted(shiftQImage(&odd, 2, 1));
        QCOMPARE(shifted->format(), QImage::Format_ARGB32);
        const Picture expected(shiftQImage(&second, 2, 1));
        QVERIFY(haveSameWords(*shifted, *expected));
        QImage lum(odd.size(), QImage::Format_Indexed8);
        QImage expectedLum(odd.size(), QImage::Format_Indexed8);
        std::vector<double> cdf;
        std::vector<double> expectedCdf;
        getLum(&odd, &lum, cdf);
        getLum(&second, &expectedLum, expectedCdf);
        QCOMPARE(lum, expectedLum);
        QVERIFY(cdf == expectedCdf);
        QCOMPARE(shiftBetween(first, odd), shiftBetween(first, second));
        QList<QImage *> list = {new QImage(first), new QImage(odd)};
        QList<QImage *> words = {new QImage(first), new QImage(second)};
        mtb_alignment(false, list);
        mtb_alignment(false, words);
        QVERIFY(haveSameWords(*list[1], *words[1]));
        qDeleteAll(list);
        qDeleteAll(words);
    }
}

void TestMtbAlignment::halving_roundsHalfUp_5x3GivesA3x2Level()
{
    std::mt19937 random(2);
    const mtb::BitmapPyramid pyramid = mtb::bitmapPyramid(
        mtb::greyImage(pictures::greyNoise({5, 3}, random)), 128, 4, mtb::halvings({5, 3}, 2));
    QCOMPARE(QSize(pyramid[1].threshold.width(), pyramid[1].threshold.height()), QSize(3, 2));
    QCOMPARE(QSize(pyramid[2].threshold.width(), pyramid[2].threshold.height()), QSize(2, 1));
}

void TestMtbAlignment::halving_takesQtsPixels()
{
    std::mt19937 random(3);
    for (const QSize size : {QSize(1, 1), QSize(5, 3), QSize(64, 65), QSize(127, 200),
                             QSize(1001, 333), QSize(20001, 3), QSize(3, 20001)}) {
        QImage grey = pictures::greyNoise(size, random);
        const mtb::BitmapPyramid pyramid =
            mtb::bitmapPyramid(mtb::greyImage(grey), 128, 4, mtb::halvings(grey.size(), 4));
        for (size_t level = 1; level < pyramid.size(); ++level) {
            grey = grey.scaled(qRound(grey.width() / 2.0), qRound(grey.height() / 2.0),
                               Qt::IgnoreAspectRatio, Qt::FastTransformation);
            const mtb::PackedBitmap &bitmap = pyramid[level].threshold;
            for (int y = 0; y < grey.height(); ++y) {
                for (int x = 0; x < grey.width(); ++x) {
                    const bool bit = bitmap.row(y)[x / 64] >> (x % 64) & 1;
                    QCOMPARE(bit, grey.constScanLine(y)[x] >= 128);
                }
            }
        }
    }
}

void TestMtbAlignment::identicalTexturedPictures_haveShiftZeroAndAnEqualCopy()
{
    const QImage picture = pictures::scene({300, 260}, {0, 0}, 1.0, 5);
    QCOMPARE(shiftBetween(picture, picture), QPoint(0, 0));
    QList<QImage *> list = {new QImage(picture), new QImage(picture)};
    mtb_alignment(false, list);
    QCOMPARE(list[1]->convertToFormat(QImage::Format_RGB32), picture);
    qDeleteAll(list);
}

void TestMtbAlignment::uniformPictures_takeTheFirstCandidateAtEveryLevel_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("shift");
    QTest::newRow("127 pixels, level 0") << QSize(127, 127) << -1;
    QTest::newRow("128 pixels, level 1") << QSize(128, 200) << -3;
    QTest::newRow("256 pixels, level 2") << QSize(300, 256) << -7;
    QTest::newRow("512 pixels, level 3") << QSize(512, 513) << -15;
}

void TestMtbAlignment::uniformPictures_takeTheFirstCandidateAtEveryLevel()
{
    QFETCH(QSize, size);
    QFETCH(int, shift);
    QImage a(size, QImage::Format_RGB32);
    a.fill(qRgb(90, 90, 90));
    QImage b(size, QImage::Format_RGB32);
    b.fill(qRgb(20, 20, 20));
    QCOMPARE(shiftBetween(a, b), QPoint(shift, shift));
    QCOMPARE(plain::pairShifts({&a, &b}).front(), QPoint(shift, shift));
}

void TestMtbAlignment::equalErrors_keepTheEarlierCandidate()
{
    // Rows that are all alike: a vertical shift changes nothing inside the picture, so of the three
    // candidates with the right x the first, y = -1, is kept unless its border costs something.
    Picture grey(setbitmap({40, 30}));
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 40; ++x)
            grey->scanLine(y)[x] = x % 7 < 3 ? 200 : 20;
    }
    int x = 99;
    int y = 99;
    getExpShift(grey.get(), 100, grey.get(), 100, 4, 0, x, y);
    QCOMPARE(QPoint(x, y), QPoint(0, -1));
}

void TestMtbAlignment::knownShifts_areFoundAndUndone()
{
    const QSize size(400, 300);
    QList<QImage *> list = bracket(size, {{50, 50}, {57, 46}, {52, 52}});
    QCOMPARE(mtb::pairShifts(list), std::vector<QPoint>({{7, -4}, {-5, 6}}));
    const QImage first = *list[0];
    mtb_alignment(false, list);
    QCOMPARE(*list[0], first);
    // The scene at (x, y) of the first picture is now at (x, y) of the others.
    const QImage second = pictures::scene(size, {50, 50}, 0.9, 7);
    const QImage third = pictures::scene(size, {50, 50}, 1.2, 7);
    for (int y = 20; y < size.height() - 20; ++y) {
        for (int x = 20; x < size.width() - 20; ++x) {
            QCOMPARE(list[1]->pixel(x, y), second.pixel(x, y));
            QCOMPARE(list[2]->pixel(x, y), third.pixel(x, y));
        }
    }
    qDeleteAll(list);
}

void TestMtbAlignment::largestFindableShift_isFound()
{
    const QSize size(600, 520);
    const int largest = mtb::largestFindableShift(mtb::pyramidLevels(size));
    QCOMPARE(largest, 15);
    for (const QPoint shift :
         {QPoint(largest, -largest), QPoint(-largest, largest), QPoint(largest, 0)}) {
        const QImage a = pictures::scene(size, {100, 100}, 1.0, 9);
        const QImage b = pictures::scene(size, QPoint(100, 100) + shift, 1.0, 9);
        QCOMPARE(shiftBetween(a, b), shift);
    }
}

void TestMtbAlignment::pyramidLevels_followTheSmallerSide()
{
    QCOMPARE(mtb::pyramidLevels({1, 1}), 0);
    QCOMPARE(mtb::pyramidLevels({4000, 127}), 0);
    QCOMPARE(mtb::pyramidLevels({128, 4000}), 1);
    QCOMPARE(mtb::pyramidLevels({3000, 4000}), 5);
    QCOMPARE(mtb::largestFindableShift(5), 63);
    QCOMPARE(mtb::largestFindableShift(0), 1);
    QCOMPARE(mtb::pyramidLevels({0, 0}), 0);
}

void TestMtbAlignment::skipSearch_leavesShiftsUnwrittenAndPicturesInPlace()
{
    const QImage a = pictures::scene({200, 200}, {0, 0}, 1.0, 5);
    const QImage b = pictures::scene({200, 200}, {3, 3}, 1.0, 5);
    int x = 41;
    int y = 42;
    mtbalign(true, &a, &b, 0.5, 4, 1, x, y);
    QCOMPARE(QPoint(x, y), QPoint(41, 42));
    QList<QImage *> list = {new QImage(a), new QImage(b)};
    mtb_alignment(true, list);
    QCOMPARE(list[1]->convertToFormat(QImage::Format_RGB32), b);
    qDeleteAll(list);
}

void TestMtbAlignment::firstPicture_isNeverReplaced()
{
    QList<QImage *> list = bracket({150, 140}, {{0, 0}, {1, 2}, {3, 1}, {2, 2}});
    const QList<QImage *> before = list;
    const QImage first = *list[0];
    mtb_alignment(false, list);
    QCOMPARE(list.size(), 4);
    QCOMPARE(list[0], before[0]);
    QCOMPARE(*list[0], first);
    qDeleteAll(list);
}

void TestMtbAlignment::twoPictures_giveExactlyOneShiftedCopy()
{
    QList<QImage *> list = bracket({150, 140}, {{0, 0}, {1, 2}});
    mtb_alignment(false, list);
    QCOMPARE(list.size(), 2);
    QCOMPARE(list[0]->format(), QImage::Format_RGB32);
    QCOMPARE(list[1]->format(), QImage::Format_ARGB32);
    // Shifted by (1, 2): the uncovered column and rows are transparent black.
    QCOMPARE(list[1]->pixel(0, 100), 0U);
    QCOMPARE(list[1]->pixel(100, 1), 0U);
    QVERIFY(list[1]->pixel(1, 2) != 0U);
    qDeleteAll(list);
}

void TestMtbAlignment::fewerThanTwoPictures_endTheProcessWithTheReport()
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(kAlignOnePicture)});
    QVERIFY(child.waitForFinished());
    QCOMPARE(child.exitStatus(), QProcess::CrashExit);
    const QByteArray report = child.readAllStandardError();
    for (const char *part :
         {"ImagePtrList.size()>=2", "mtb_alignment", "src/VeskHDR/mtb_alignment.cpp", "80"})
        QVERIFY2(report.contains(part), report.constData());
}

void TestMtbAlignment::otherFormats_alignLikeTheir32BitCopies()
{
    const QSize size(200, 180);
    const QImage a = pictures::scene(size, {20, 20}, 1.0, 11);
    const QImage b = pictures::scene(size, {22, 19}, 1.0, 11);
    for (const QImage::Format format :
         {QImage::Format_Grayscale8, QImage::Format_Indexed8, QImage::Format_Mono,
          QImage::Format_RGB888, QImage::Format_RGBA64, QImage::Format_RGB16}) {
        const QImage oddA = a.convertToFormat(format);
        const QImage oddB = b.convertToFormat(format);
        QList<QImage *> odd = {new QImage(oddA), new QImage(oddB)};
        QList<QImage *> words = {new QImage(oddA.convertToFormat(QImage::Format_ARGB32)),
                                 new QImage(oddB.convertToFormat(QImage::Format_ARGB32))};
        mtb_alignment(false, odd);
        mtb_alignment(false, words);
        QCOMPARE(*odd[1], *words[1]);
        qDeleteAll(odd);
        qDeleteAll(words);
    }
}

void TestMtbAlignment::borrowedPixels_areNotWrittenAndNotKept()
{
    const QSize size(60, 50);
    const QImage scene = pictures::scene(size, {11, 12}, 1.0, 5);
    std::vector<QRgb> memory(size_t(size.width()) * size_t(size.height()));
    memcpy(memory.data(), scene.constBits(), memory.size() * sizeof(QRgb));
    const std::vector<QRgb> before = memory;
    QList<QImage *> list = {new QImage(pictures::scene(size, {10, 10}, 1.0, 5)),
                            new QImage(reinterpret_cast<uchar *>(memory.data()), size.width(),
                                       size.height(), QImage::Format_RGB32)};
    mtb_alignment(false, list);
    QVERIFY(memory == before);
    const QImage aligned = list[1]->copy();
    std::fill(memory.begin(), memory.end(), 0U);
    QCOMPARE(*list[1], aligned);
    qDeleteAll(list);
}

void TestMtbAlignment::lackOfMemory_leavesPicturesAndShiftsAsTheyWere()
{
    QList<QImage *> list = bracket({150, 140}, {{0, 0}, {1, 2}});
    const QList<QImage *> before = list;
    int x = 41;
    int y = 42;
    {
        const littleMemory::RefuseLargeBlocks little;
        mtb_alignment(false, list);
        mtbalign(false, list[0], list[1], 0.5, 4, 1, x, y);
        getExpShift(list[0], 100, list[1], 100, 4, 1, x, y);
    }
    QCOMPARE(list, before);
    QCOMPARE(QPoint(x, y), QPoint(41, 42));
    mtb_alignment(false, list);
    QVERIFY(list[1] != before[1]); // with memory it is replaced
    qDeleteAll(list);
}

void TestMtbAlignment::extremeThresholdsAndLevels_areDefined_data()
{
    QTest::addColumn<int>("threshold");
    QTest::addColumn<int>("tolerance");
    for (const int threshold : {INT_MIN, INT_MIN + 1, -1, 0, 128, 256, INT_MAX - 1, INT_MAX}) {
        for (const int tolerance : {INT_MIN, -1, 0, 4, INT_MAX})
            QTest::addRow("%d, %d", threshold, tolerance) << threshold << tolerance;
    }
}

void TestMtbAlignment::extremeThresholdsAndLevels_areDefined()
{
    QFETCH(int, threshold);
    QFETCH(int, tolerance);
    std::mt19937 random(22);
    const QImage a = pictures::greyNoise({70, 9}, random);
    const QImage b = pictures::greyNoise({70, 9}, random);
    for (const int level : {INT_MIN, -1, 0, 2}) {
        QPoint fast(5, 6);
        QPoint plain(5, 6);
        getExpShift(&a, threshold, &b, 128, tolerance, level, fast.rx(), fast.ry());
        plain::getExpShift(&a, threshold, &b, 128, tolerance, level, plain.rx(), plain.ry());
        QCOMPARE(fast, plain);
    }
}

/// Uniform pictures take the first candidate at every level: the largest shift there is.
void TestMtbAlignment::levelsBeyondTheMost_searchAsTheMost()
{
    QImage uniform(3, 2, QImage::Format_RGB32);
    uniform.fill(qRgb(90, 90, 90));
    const auto lum = pictures::greyRow({7, 7, 7});
    for (const int level : {30, 31, 32, 64, INT_MAX}) {
        QPoint shift;
        mtbalign(false, &uniform, &uniform, 0.5, 4, level, shift.rx(), shift.ry());
        QCOMPARE(shift, QPoint(-INT_MAX, -INT_MAX));
        getExpShift(lum.get(), 7, lum.get(), 7, 4, level, shift.rx(), shift.ry());
        QCOMPARE(shift, QPoint(-INT_MAX, -INT_MAX));
        plain::getExpShift(lum.get(), 7, lum.get(), 7, 4, level, shift.rx(), shift.ry());
        QCOMPARE(shift, QPoint(-INT_MAX, -INT_MAX));
        QCOMPARE(mtb::largestFindableShift(level), INT_MAX);
    }
}

void TestMtbAlignment::differentSizes_areSafeAndEqualThePlainCode()
{
    std::mt19937 random(12);
    for (const QSize other :
         {QSize(150, 200), QSize(210, 90), QSize(130, 131), QSize(1, 1), QSize(0, 0)}) {
        const QImage a = pictures::noise({140, 160}, QImage::Format_RGB32, random);
        const QImage b = pictures::noise(other, QImage::Format_RGB32, random);
        for (const auto &[first, second] : {std::pair(a, b), std::pair(b, a)}) {
            QPoint fast(5, 5);
            QPoint plain(5, 5);
            mtbalign(false, &first, &second, 0.5, 4, 1, fast.rx(), fast.ry());
            plain::mtbalign(false, &first, &second, 0.5, 4, 1, plain.rx(), plain.ry());
            QCOMPARE(fast, plain);
        }
        QList<QImage *> list = {new QImage(a), new QImage(b), new QImage(a)};
        mtb_alignment(false, list);
        QCOMPARE(list[1]->size(), other);
        qDeleteAll(list);
    }
}

void TestMtbAlignment::emptyPictures_leaveTheCallersShift()
{
    // No candidate has fewer differences than the picture has pixels.
    const QImage empty;
    int x = 7;
    int y = 8;
    getExpShift(&empty, 100, &empty, 100, 4, 3, x, y);
    QCOMPARE(QPoint(x, y), QPoint(7, 8));
}

void TestMtbAlignment::randomPictures_equalThePlainCode()
{
    constexpr uint32_t seed = 777;
    qInfo("seed %u", seed);
    std::mt19937 random(seed);
    const QList<QImage::Format> formats = {QImage::Format_RGB32, QImage::Format_ARGB32,
                                           QImage::Format_Grayscale8, QImage::Format_Indexed8,
                                           QImage::Format_RGB888};
    const std::vector<int64_t> targets = vectorTargets::all();
    for (int round = 0; round < 5000; ++round) {
        const QSize size(1 + int(random() % 150), 1 + int(random() % 20));
        QImage a = pictures::noise(size, formats[int(random() % 5)], random);
        QImage b = pictures::noise(size, formats[int(random() % 5)], random);
        const vectorTargets::Forced forced(targets[size_t(round) % targets.size()]);
        QVERIFY(vectorTargets::isEngineRunning(forced));
        const int levels = int(random() % 4);
        QPoint fast;
        QPoint plain;
        mtbalign(false, &a, &b, 0.5, 4, levels, fast.rx(), fast.ry());
        plain::mtbalign(false, &a, &b, 0.5, 4, levels, plain.rx(), plain.ry());
        QVERIFY2(fast == plain, qPrintable(QStringLiteral("round %1").arg(round)));
    }
}

void TestMtbAlignment::randomGreyImagesThresholdsAndLevels_equalThePlainCode()
{
    std::mt19937 random(778);
    const std::vector<int64_t> targets = vectorTargets::all();
    for (int round = 0; round < 5000; ++round) {
        const QSize size(1 + int(random() % 200), 1 + int(random() % 9));
        const QImage a = pictures::greyNoise(size, random);
        const QImage b = pictures::greyNoise(size, random);
        const vectorTargets::Forced forced(targets[size_t(round) % targets.size()]);
        QVERIFY(vectorTargets::isEngineRunning(forced));
        const int threshold1 = int(random() % 270) - 6;
        const int threshold2 = int(random() % 270) - 6;
        const int tolerance = int(random() % 120) - 10;
        const int levels = int(random() % 5) - 1;
        QPoint fast(1000, 1000);
        QPoint plain(1000, 1000);
        getExpShift(&a, threshold1, &b, threshold2, tolerance, levels, fast.rx(), fast.ry());
        plain::getExpShift(&a, threshold1, &b, threshold2, tolerance, levels, plain.rx(),
                           plain.ry());
        QVERIFY2(fast == plain, qPrintable(QStringLiteral("round %1").arg(round)));
    }
}

void TestMtbAlignment::shiftsUpToTheLargest_equalThePlainCode()
{
    const QSize size(260, 257);
    const QImage a = pictures::scene(size, {100, 100}, 1.0, 13);
    for (int x = -9; x <= 9; x += 3) {
        for (int y = -9; y <= 9; y += 3) {
            QImage first = a;
            QImage second = pictures::scene(size, {100 + x, 100 + y}, 0.8, 13);
            QCOMPARE(mtb::pairShifts({&first, &second}), plain::pairShifts({&first, &second}));
        }
    }
}

void TestMtbAlignment::threadCounts_giveTheSameShifts()
{
    QList<QImage *> list = bracket({300, 280}, {{20, 20}, {25, 22}, {17, 26}});
    const std::vector<QPoint> plain = plain::pairShifts(list);
    for (const int threads : {1, 2, 5, 64}) {
        parallel::setThreadLimit(threads);
        QCOMPARE(mtb::pairShifts(list), plain);
    }
    qDeleteAll(list);
}

void TestMtbAlignment::photographs_equalThePlainCode_data()
{
    QTest::addColumn<QString>("names");
    QTest::newRow("hand-held bracket") << "IMG_387*.jpeg";
    QTest::newRow("church interior") << "test1_memorial*.png";
}

void TestMtbAlignment::photographs_equalThePlainCode()
{
    QFETCH(QString, names);
    const QStringList paths = pictures::photographs(names);
    if (paths.isEmpty())
        QSKIP("no photographs here; set VESK_TEST_PICTURES to a folder that has them");
    pictures::Owned owned;
    for (const QString &path : paths.mid(0, 3))
        owned.push_back(std::make_unique<QImage>(QImageReader(path).read()));
    const QList<QImage *> list = pictures::list(owned);
    const std::vector<QPoint> plain = plain::pairShifts(list);
    for (const int64_t target : vectorTargets::all()) {
        const vectorTargets::Forced forced(target);
        QVERIFY2(vectorTargets::isEngineRunning(forced), hwy::TargetName(target));
        const std::vector<QPoint> fast = mtb::pairShifts(list);
        QVERIFY2(fast == plain, hwy::TargetName(target));
    }
}

int main(int argc, char **argv)
{
    if (argc == 2 && qstrcmp(argv[1], kAlignOnePicture) == 0) {
        QImage picture(4, 4, QImage::Format_RGB32);
        QList<QImage *> list = {&picture};
        mtb_alignment(false, list);
        return 0;
    }
    QCoreApplication app(argc, argv);
    TestMtbAlignment test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_mtb_alignment.moc"
