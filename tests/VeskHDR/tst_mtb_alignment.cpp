#include "engine_pictures.h"
#include "mtb_alignment.h"
#include "mtb_alignment_plain.h"
#include "mtb_search.h"
#include "mtb_shifts.h"
#include "parallel_rows.h"
#include "vector_targets.h"

#include <QImageReader>
#include <QProcess>
#include <QtTest>

#include <atomic>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

namespace {

/// What this program's allocations do: refuse blocks of so many bytes and more, or all that are
/// asked for without an exception.
std::atomic<size_t> smallestRefused{SIZE_MAX};
std::atomic<bool> refusesWithoutException{false};

} // namespace

void *operator new(size_t size)
{
    void *memory = size < smallestRefused ? std::malloc(size > 0 ? size : 1) : nullptr;
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void *operator new(size_t size, const std::nothrow_t &) noexcept
{
    return refusesWithoutException ? nullptr : std::malloc(size > 0 ? size : 1);
}

void *operator new[](size_t size)
{
    return operator new(size);
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory, size_t) noexcept
{
    std::free(memory);
}

namespace {

using Picture = std::unique_ptr<QImage>;

/// Refuses large blocks while it exists.
class LittleMemory
{
public:
    LittleMemory() { smallestRefused = 1024; }
    ~LittleMemory() { smallestRefused = SIZE_MAX; }
    LittleMemory(const LittleMemory &) = delete;
    LittleMemory &operator=(const LittleMemory &) = delete;
};

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

Picture bitmapOf(const QList<QByteArray> &rows)
{
    Picture bitmap(setbitmap(QSize(int(rows.first().size()), int(rows.size()))));
    for (int y = 0; y < rows.size(); ++y) {
        for (int x = 0; x < rows[y].size(); ++x)
            bitmap->scanLine(y)[x] = rows[y][x] == '1';
    }
    return bitmap;
}

QByteArray rowText(const QImage &bitmap, int y)
{
    QByteArray text;
    for (int x = 0; x < bitmap.width(); ++x)
        text += char('0' + bitmap.constScanLine(y)[x]);
    return text;
}

/// A grey image of these levels in one row.
Picture greyRow(const QVector<int> &levels)
{
    Picture grey(setbitmap(QSize(int(levels.size()), 1)));
    for (int x = 0; x < levels.size(); ++x)
        grey->scanLine(0)[x] = uchar(levels[x]);
    return grey;
}

const QString kAlignOnePicture = QStringLiteral("--align-one-picture");
const QString kShiftWithoutMemory = QStringLiteral("--shift-without-memory");
const QString kBitmapWithoutMemory = QStringLiteral("--bitmap-without-memory");

/// What a test starts in a process of its own, because it ends that process.
void runAsChild(const QString &task)
{
    QImage picture(4, 4, QImage::Format_RGB32);
    QList<QImage *> list = {&picture};
    refusesWithoutException = true;
    if (task == kAlignOnePicture)
        mtb_alignment(false, list);
    else if (task == kShiftWithoutMemory)
        delete shiftQImage(&picture, 1, 1);
    else
        delete setbitmap({4, 4});
}

QImage greyNoise(QSize size, std::mt19937 &random)
{
    QVector<QRgb> table;
    for (int level = 0; level < 256; ++level)
        table.append(qRgb(level, level, level));
    QImage grey = pictures::noise(size, QImage::Format_Indexed8, random);
    grey.setColorTable(table);
    return grey;
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

class MtbAlignmentTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { parallel::setThreadLimit(0); }

    void getLum_weighsChannelsAndTruncates();
    void getLum_givesTheCumulativeHistogram();
    void getLum_addsTheSharesOneAfterTheOther();
    void getLum_resizesTheHistogramTo256Entries();
    void getLum_givesTheGreyColourTable();
    void setbitmap_hasTheTwoEntryColourTable();
    void setThreshold_levelsAtToleranceAreTrustedThoseBetweenAreNot();
    void setThreshold_extremeThresholdsAndTolerances_areExact_data();
    void setThreshold_extremeThresholdsAndTolerances_areExact();
    void sumimage_countsTheOnes();
    void sumimage_moreThan32BitsHold_isExact();
    void XORimages_readsExclusionBytesOnlyAtDifferingPixels();
    void XORimages_secondExclusionBitmapAdvancesOnlyWhereTheFirstLetsPass();
    void XORimages_startsAnewInEachRow();
    void shiftimage_fillsUncoveredPixelsWithZero();
    void shiftQImage_uncoveredPixelsAreTransparentBlack_data();
    void shiftQImage_uncoveredPixelsAreTransparentBlack();
    void shiftQImage_keepsWordsAndGivesArgb32();
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
    void failedAssertion_endsTheProcessWithTheReport_data();
    void failedAssertion_endsTheProcessWithTheReport();
    void otherFormats_alignLikeTheir32BitCopies();

    void borrowedPixels_areNotWrittenAndNotKept();
    void lackOfMemory_leavesPicturesAndShiftsAsTheyWere();
    void extremeThresholdsAndLevels_areDefined_data();
    void extremeThresholdsAndLevels_areDefined();
    void levelsBeyondTheMost_searchAsTheMost();

    void sharedPictures_areCopiedNotChanged_data();
    void sharedPictures_areCopiedNotChanged();
    void shiftedInPlace_equalsShiftedCopy_data();
    void shiftedInPlace_equalsShiftedCopy();

    void differentSizes_areSafeAndEqualThePlainCode();
    void emptyPictures_leaveTheCallersShift();
    void randomPictures_equalThePlainCode();
    void randomGreyImagesThresholdsAndLevels_equalThePlainCode();
    void shiftsUpToTheLargest_equalThePlainCode();
    void threadCounts_giveTheSameShifts();
    void photographs_equalThePlainCode_data();
    void photographs_equalThePlainCode();
};

void MtbAlignmentTest::getLum_weighsChannelsAndTruncates()
{
    QImage picture(5, 1, QImage::Format_RGB32);
    const QList<QRgb> colors = {qRgb(255, 255, 255), qRgb(1, 1, 1), qRgb(255, 0, 0),
                                qRgb(0, 255, 0), qRgb(0, 0, 255)};
    for (int x = 0; x < 5; ++x)
        picture.setPixel(x, 0, colors[x]);
    QImage lum(5, 1, QImage::Format_Indexed8);
    std::vector<double> cdf;
    getLum(&picture, &lum, cdf);
    const QList<int> expected = {255, 1, 87, 127, 39};
    for (int x = 0; x < 5; ++x)
        QCOMPARE(int(lum.constScanLine(0)[x]), expected[x]);
}

void MtbAlignmentTest::getLum_givesTheCumulativeHistogram()
{
    QImage picture(4, 1, QImage::Format_RGB32);
    for (int x = 0; x < 4; ++x)
        picture.setPixel(x, 0, x < 3 ? qRgb(9, 9, 9) : qRgb(200, 200, 200));
    QImage lum(4, 1, QImage::Format_Indexed8);
    std::vector<double> cdf;
    getLum(&picture, &lum, cdf);
    QCOMPARE(cdf[8], 0.0);
    QCOMPARE(cdf[9], 0.75);
    QCOMPARE(cdf[199], 0.75);
    QCOMPARE(cdf[200], 1.0);
    QCOMPARE(cdf[255], 1.0);
}

/// Ten shares of a tenth add up to less than one: what a count of all pixels so far, times a tenth,
/// would not show. The threshold hangs on it.
void MtbAlignmentTest::getLum_addsTheSharesOneAfterTheOther()
{
    QImage picture(10, 1, QImage::Format_RGB32);
    for (int x = 0; x < 10; ++x)
        picture.setPixel(x, 0, qRgb(20 * x, 20 * x, 20 * x));
    QImage lum(10, 1, QImage::Format_Indexed8);
    std::vector<double> cdf;
    getLum(&picture, &lum, cdf);
    mtb::GreyImage grey(10, 1);
    const std::vector<double> fast = mtb::makeGrey(picture, grey).cumulative(10);
    double sum = 0;
    for (size_t i = 0; i < 10; ++i) {
        sum = 1.0 * 0.1 + sum;
        QVERIFY(cdf[20 * i] == sum); // not QCOMPARE, which takes near ones for equal
        QVERIFY(fast[20 * i] == sum);
    }
    QVERIFY(sum < 1.0);
    QCOMPARE(percentileLevel(fast, 0.8), 160);
    QCOMPARE(percentileLevel(fast, 1.0), 256);
}

void MtbAlignmentTest::getLum_resizesTheHistogramTo256Entries()
{
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QImage lum(2, 2, QImage::Format_Indexed8);
    for (const size_t entries : {size_t(0), size_t(10), size_t(1000)}) {
        std::vector<double> cdf(entries, 0.5);
        getLum(&picture, &lum, cdf);
        QCOMPARE(cdf.size(), size_t(256));
        QCOMPARE(cdf[254], 0.0);
    }
}

void MtbAlignmentTest::getLum_givesTheGreyColourTable()
{
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QImage lum(2, 2, QImage::Format_Indexed8);
    std::vector<double> cdf;
    getLum(&picture, &lum, cdf);
    QCOMPARE(lum.colorCount(), 256);
    QCOMPARE(lum.color(0), 0xFF000000U);
    QCOMPARE(lum.color(18), 0xFF121212U);
    QCOMPARE(lum.color(255), 0xFFFFFFFFU);
}

void MtbAlignmentTest::setbitmap_hasTheTwoEntryColourTable()
{
    const Picture bitmap(setbitmap({7, 3}));
    QCOMPARE(bitmap->size(), QSize(7, 3));
    QCOMPARE(bitmap->format(), QImage::Format_Indexed8);
    QCOMPARE(bitmap->colorTable(), QVector<QRgb>({0xFF000000, 0xFFFFFFFF}));
}

void MtbAlignmentTest::setThreshold_levelsAtToleranceAreTrustedThoseBetweenAreNot()
{
    const Picture grey = greyRow({95, 96, 97, 99, 100, 103, 104, 105});
    const Picture tb(setbitmap(grey->size()));
    const Picture eb(setbitmap(grey->size()));
    setThreshold(grey.get(), 100, 4, tb.get(), eb.get());
    QCOMPARE(rowText(*tb, 0), QByteArray("00001111"));
    QCOMPARE(rowText(*eb, 0), QByteArray("11000011"));
}

void MtbAlignmentTest::sumimage_countsTheOnes()
{
    QCOMPARE(sumimage(bitmapOf({"1011", "0001", "0000"}).get()), qint64(4));
    QImage bytes(3, 2, QImage::Format_Indexed8);
    bytes.fill(255);
    QCOMPARE(sumimage(&bytes), qint64(6 * 255));
}

void MtbAlignmentTest::sumimage_moreThan32BitsHold_isExact()
{
    QImage bytes(4200, 4100, QImage::Format_Indexed8);
    bytes.fill(255);
    QCOMPARE(sumimage(&bytes), qint64(4200) * 4100 * 255);
    QVERIFY(sumimage(&bytes) > qint64(UINT_MAX));
}

void MtbAlignmentTest::setThreshold_extremeThresholdsAndTolerances_areExact_data()
{
    QTest::addColumn<int>("threshold");
    QTest::addColumn<int>("tolerance");
    QTest::addColumn<QByteArray>("above");
    QTest::addColumn<QByteArray>("trusted");
    QTest::newRow("lowest threshold") << INT_MIN << 4 << QByteArray("11") << QByteArray("11");
    QTest::newRow("highest threshold") << INT_MAX << 4 << QByteArray("00") << QByteArray("11");
    QTest::newRow("largest tolerance") << 100 << INT_MAX << QByteArray("01") << QByteArray("00");
    QTest::newRow("smallest tolerance") << 100 << INT_MIN << QByteArray("01") << QByteArray("11");
    QTest::newRow("both largest") << INT_MAX << INT_MAX << QByteArray("00") << QByteArray("10");
    QTest::newRow("both smallest") << INT_MIN << INT_MIN << QByteArray("11") << QByteArray("11");
    QTest::newRow("lowest, widest") << INT_MIN << INT_MAX << QByteArray("11") << QByteArray("11");
    QTest::newRow("highest, narrowest")
        << INT_MAX << INT_MIN << QByteArray("00") << QByteArray("11");
}

void MtbAlignmentTest::setThreshold_extremeThresholdsAndTolerances_areExact()
{
    QFETCH(int, threshold);
    QFETCH(int, tolerance);
    QFETCH(QByteArray, above);
    QFETCH(QByteArray, trusted);
    const Picture grey = greyRow({0, 255});
    const Picture tb(setbitmap(grey->size()));
    const Picture eb(setbitmap(grey->size()));
    setThreshold(grey.get(), threshold, tolerance, tb.get(), eb.get());
    QCOMPARE(rowText(*tb, 0), above);
    QCOMPARE(rowText(*eb, 0), trusted);
}

void MtbAlignmentTest::XORimages_readsExclusionBytesOnlyAtDifferingPixels()
{
    // Columns 2 and 5 differ. They read bytes 0 and 1 of the first exclusion bitmap: the zeros at
    // columns 2 and 5 are never looked at.
    const Picture tb1 = bitmapOf({"001001"});
    const Picture tb2 = bitmapOf({"000000"});
    const Picture eb1 = bitmapOf({"110110"});
    const Picture eb2 = bitmapOf({"111111"});
    const Picture out(setbitmap({6, 1}));
    XORimages(tb1.get(), eb1.get(), tb2.get(), eb2.get(), out.get());
    QCOMPARE(rowText(*out, 0), QByteArray("001001"));
}

void MtbAlignmentTest::XORimages_secondExclusionBitmapAdvancesOnlyWhereTheFirstLetsPass()
{
    // All columns differ. The first exclusion bitmap stops columns 0 and 2; the others read bytes
    // 0, 1 of the second one, which stops column 3.
    const Picture tb1 = bitmapOf({"1111"});
    const Picture tb2 = bitmapOf({"0000"});
    const Picture eb1 = bitmapOf({"0101"});
    const Picture eb2 = bitmapOf({"1011"});
    const Picture out(setbitmap({4, 1}));
    XORimages(tb1.get(), eb1.get(), tb2.get(), eb2.get(), out.get());
    QCOMPARE(rowText(*out, 0), QByteArray("0100"));
}

void MtbAlignmentTest::XORimages_startsAnewInEachRow()
{
    const Picture tb1 = bitmapOf({"11", "11"});
    const Picture tb2 = bitmapOf({"00", "00"});
    const Picture eb1 = bitmapOf({"11", "11"});
    const Picture eb2 = bitmapOf({"01", "10"});
    const Picture out(setbitmap({2, 2}));
    XORimages(tb1.get(), eb1.get(), tb2.get(), eb2.get(), out.get());
    QCOMPARE(rowText(*out, 0), QByteArray("01"));
    QCOMPARE(rowText(*out, 1), QByteArray("10"));
}

void MtbAlignmentTest::shiftimage_fillsUncoveredPixelsWithZero()
{
    const Picture in = bitmapOf({"111", "101", "111"});
    const Picture out = bitmapOf({"111", "111", "111"});
    shiftimage(in.get(), 1, -1, out.get());
    QCOMPARE(rowText(*out, 0), QByteArray("010"));
    QCOMPARE(rowText(*out, 1), QByteArray("011"));
    QCOMPARE(rowText(*out, 2), QByteArray("000"));
}

void MtbAlignmentTest::shiftQImage_uncoveredPixelsAreTransparentBlack_data()
{
    QTest::addColumn<QPoint>("shift");
    for (const QPoint shift :
         {QPoint(0, 0), QPoint(0, 1), QPoint(0, -1), QPoint(1, 0), QPoint(-1, 0), QPoint(1, 1),
          QPoint(-1, -1), QPoint(3, 0), QPoint(-3, 2), QPoint(0, -5), QPoint(8, 5), QPoint(9, 0),
          QPoint(-9, -6), QPoint(INT_MAX, INT_MIN)})
        QTest::addRow("%d, %d", shift.x(), shift.y()) << shift;
}

void MtbAlignmentTest::shiftQImage_uncoveredPixelsAreTransparentBlack()
{
    QFETCH(QPoint, shift);
    std::mt19937 random(1);
    const QImage in = pictures::noise({9, 6}, QImage::Format_ARGB32, random);
    const Picture out(shiftQImage(&in, shift.x(), shift.y()));
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 9; ++x) {
            const qint64 u = qint64(x) - shift.x();
            const qint64 v = qint64(y) - shift.y();
            const bool covered = u >= 0 && u < 9 && v >= 0 && v < 6;
            const QRgb expected = covered ? in.pixel(int(u), int(v)) : 0U;
            QCOMPARE(reinterpret_cast<const QRgb *>(out->constScanLine(y))[x], expected);
        }
    }
}

void MtbAlignmentTest::shiftQImage_keepsWordsAndGivesArgb32()
{
    QImage in(2, 1, QImage::Format_RGB32);
    in.fill(0xFF123456);
    const Picture out(shiftQImage(&in, 0, 0));
    QCOMPARE(out->format(), QImage::Format_ARGB32);
    QCOMPARE(reinterpret_cast<const QRgb *>(out->constScanLine(0))[1], 0xFF123456U);
}

void MtbAlignmentTest::wordsOfAnyFormat_areReadAsTheyStand()
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

void MtbAlignmentTest::halving_roundsHalfUp_5x3GivesA3x2Level()
{
    std::mt19937 random(2);
    const mtb::BitmapPyramid pyramid = mtb::bitmapPyramid(mtb::greyImage(greyNoise({5, 3}, random)),
                                                          128, 4, mtb::halvings({5, 3}, 2));
    QCOMPARE(QSize(pyramid[1].threshold.width(), pyramid[1].threshold.height()), QSize(3, 2));
    QCOMPARE(QSize(pyramid[2].threshold.width(), pyramid[2].threshold.height()), QSize(2, 1));
}

void MtbAlignmentTest::halving_takesQtsPixels()
{
    std::mt19937 random(3);
    for (const QSize size : {QSize(1, 1), QSize(5, 3), QSize(64, 65), QSize(127, 200),
                             QSize(1001, 333), QSize(20001, 3), QSize(3, 20001)}) {
        QImage grey = greyNoise(size, random);
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

void MtbAlignmentTest::identicalTexturedPictures_haveShiftZeroAndAnEqualCopy()
{
    const QImage picture = pictures::scene({300, 260}, {0, 0}, 1.0, 5);
    QCOMPARE(shiftBetween(picture, picture), QPoint(0, 0));
    QList<QImage *> list = {new QImage(picture), new QImage(picture)};
    mtb_alignment(false, list);
    QCOMPARE(list[1]->convertToFormat(QImage::Format_RGB32), picture);
    qDeleteAll(list);
}

void MtbAlignmentTest::uniformPictures_takeTheFirstCandidateAtEveryLevel_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("shift");
    QTest::newRow("127 pixels, level 0") << QSize(127, 127) << -1;
    QTest::newRow("128 pixels, level 1") << QSize(128, 200) << -3;
    QTest::newRow("256 pixels, level 2") << QSize(300, 256) << -7;
    QTest::newRow("512 pixels, level 3") << QSize(512, 513) << -15;
}

void MtbAlignmentTest::uniformPictures_takeTheFirstCandidateAtEveryLevel()
{
    QFETCH(QSize, size);
    QFETCH(int, shift);
    QImage a(size, QImage::Format_RGB32);
    a.fill(qRgb(90, 90, 90));
    QImage b(size, QImage::Format_RGB32);
    b.fill(qRgb(20, 20, 20));
    QCOMPARE(shiftBetween(a, b), QPoint(shift, shift));
    QCOMPARE(pairShiftsPlain({&a, &b}).front(), QPoint(shift, shift));
}

void MtbAlignmentTest::equalErrors_keepTheEarlierCandidate()
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

void MtbAlignmentTest::knownShifts_areFoundAndUndone()
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

void MtbAlignmentTest::largestFindableShift_isFound()
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

void MtbAlignmentTest::pyramidLevels_followTheSmallerSide()
{
    QCOMPARE(mtb::pyramidLevels({1, 1}), 0);
    QCOMPARE(mtb::pyramidLevels({4000, 127}), 0);
    QCOMPARE(mtb::pyramidLevels({128, 4000}), 1);
    QCOMPARE(mtb::pyramidLevels({3000, 4000}), 5);
    QCOMPARE(mtb::largestFindableShift(5), 63);
    QCOMPARE(mtb::largestFindableShift(0), 1);
    QCOMPARE(mtb::pyramidLevels({0, 0}), 0);
}

void MtbAlignmentTest::skipSearch_leavesShiftsUnwrittenAndPicturesInPlace()
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

void MtbAlignmentTest::firstPicture_isNeverReplaced()
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

void MtbAlignmentTest::twoPictures_giveExactlyOneShiftedCopy()
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

void MtbAlignmentTest::failedAssertion_endsTheProcessWithTheReport_data()
{
    QTest::addColumn<QString>("task");
    QTest::addColumn<QByteArrayList>("parts");
    QTest::newRow("fewer than two pictures")
        << kAlignOnePicture
        << QByteArrayList{"ImagePtrList.size()>=2", "mtb_alignment", ".cpp:80:"};
    QTest::newRow("no memory for a shifted picture")
        << kShiftWithoutMemory << QByteArrayList{"out!=NULL", "shiftQImage", ".cpp:60:"};
    QTest::newRow("no memory for a bitmap")
        << kBitmapWithoutMemory << QByteArrayList{"img!=NULL", "setbitmap", ".cpp:336:"};
}

void MtbAlignmentTest::failedAssertion_endsTheProcessWithTheReport()
{
#if !defined(__GLIBC__)
    QSKIP("the report's form is that of another C library");
#endif
    QFETCH(QString, task);
    QFETCH(QByteArrayList, parts);
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {task});
    QVERIFY(child.waitForFinished());
    QCOMPARE(child.exitStatus(), QProcess::CrashExit);
    const QByteArray report = child.readAllStandardError();
    for (const QByteArray &part : parts + QByteArrayList{"src/VeskHDR/mtb_alignment.cpp"})
        QVERIFY2(report.contains(part), report.constData());
}

void MtbAlignmentTest::otherFormats_alignLikeTheir32BitCopies()
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

void MtbAlignmentTest::borrowedPixels_areNotWrittenAndNotKept()
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

void MtbAlignmentTest::lackOfMemory_leavesPicturesAndShiftsAsTheyWere()
{
    QList<QImage *> list = bracket({150, 140}, {{0, 0}, {1, 2}});
    const QList<QImage *> before = list;
    int x = 41;
    int y = 42;
    {
        const LittleMemory little;
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

void MtbAlignmentTest::extremeThresholdsAndLevels_areDefined_data()
{
    QTest::addColumn<int>("threshold");
    QTest::addColumn<int>("tolerance");
    for (const int threshold : {INT_MIN, INT_MIN + 1, -1, 0, 128, 256, INT_MAX - 1, INT_MAX}) {
        for (const int tolerance : {INT_MIN, -1, 0, 4, INT_MAX})
            QTest::addRow("%d, %d", threshold, tolerance) << threshold << tolerance;
    }
}

void MtbAlignmentTest::extremeThresholdsAndLevels_areDefined()
{
    QFETCH(int, threshold);
    QFETCH(int, tolerance);
    std::mt19937 random(22);
    const QImage a = greyNoise({70, 9}, random);
    const QImage b = greyNoise({70, 9}, random);
    for (const int level : {INT_MIN, -1, 0, 2}) {
        QPoint fast(5, 6);
        QPoint plain(5, 6);
        getExpShift(&a, threshold, &b, 128, tolerance, level, fast.rx(), fast.ry());
        getExpShiftPlain(&a, threshold, &b, 128, tolerance, level, plain.rx(), plain.ry());
        QCOMPARE(fast, plain);
    }
}

/// Uniform pictures take the first candidate at every level: the largest shift there is.
void MtbAlignmentTest::levelsBeyondTheMost_searchAsTheMost()
{
    QImage uniform(3, 2, QImage::Format_RGB32);
    uniform.fill(qRgb(90, 90, 90));
    const auto lum = greyRow({7, 7, 7});
    for (const int level : {30, 31, 32, 64, INT_MAX}) {
        QPoint shift;
        mtbalign(false, &uniform, &uniform, 0.5, 4, level, shift.rx(), shift.ry());
        QCOMPARE(shift, QPoint(-INT_MAX, -INT_MAX));
        getExpShift(lum.get(), 7, lum.get(), 7, 4, level, shift.rx(), shift.ry());
        QCOMPARE(shift, QPoint(-INT_MAX, -INT_MAX));
        getExpShiftPlain(lum.get(), 7, lum.get(), 7, 4, level, shift.rx(), shift.ry());
        QCOMPARE(shift, QPoint(-INT_MAX, -INT_MAX));
        QCOMPARE(mtb::largestFindableShift(level), INT_MAX);
    }
}

void MtbAlignmentTest::sharedPictures_areCopiedNotChanged_data()
{
    QTest::addColumn<bool>("inPlace");
    QTest::newRow("into new pictures") << false;
    QTest::newRow("in place") << true;
}

void MtbAlignmentTest::sharedPictures_areCopiedNotChanged()
{
    QFETCH(bool, inPlace);
    const QImage held = pictures::scene({40, 40}, {3, 3}, 1.0, 5);
    const QImage before = held.copy();
    QList<QImage *> list = {new QImage(held), new QImage(held)};
    shift::pictures(list, {QPoint(2, 3)}, inPlace ? shift::Memory::Reused : shift::Memory::New);
    QCOMPARE(held, before);
    const Picture expected(shiftQImage(&before, 2, 3));
    QCOMPARE(*list[1], *expected);
    qDeleteAll(list);
}

void MtbAlignmentTest::shiftedInPlace_equalsShiftedCopy_data()
{
    shiftQImage_uncoveredPixelsAreTransparentBlack_data();
}

void MtbAlignmentTest::shiftedInPlace_equalsShiftedCopy()
{
    QFETCH(QPoint, shift);
    std::mt19937 random(14);
    for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_ARGB32,
                                        QImage::Format_RGBA8888, QImage::Format_RGB888}) {
        const QImage picture = pictures::noise({9, 6}, format, random);
        const Picture expected(shiftQImage(&picture, shift.x(), shift.y()));
        for (const auto memory : {shift::Memory::New, shift::Memory::Reused}) {
            QList<QImage *> list = {new QImage(9, 6, format), new QImage(picture.copy())};
            const uchar *pixels = list[1]->constBits();
            shift::pictures(list, {shift}, memory);
            QCOMPARE(list[1]->format(), QImage::Format_ARGB32);
            QCOMPARE(*list[1], *expected);
            QCOMPARE(list[1]->constBits() == pixels,
                     memory == shift::Memory::Reused && format != QImage::Format_RGB888);
            qDeleteAll(list);
        }
    }
}

void MtbAlignmentTest::differentSizes_areSafeAndEqualThePlainCode()
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
            mtbalignPlain(false, &first, &second, 0.5, 4, 1, plain.rx(), plain.ry());
            QCOMPARE(fast, plain);
        }
        QList<QImage *> list = {new QImage(a), new QImage(b), new QImage(a)};
        mtb_alignment(false, list);
        QCOMPARE(list[1]->size(), other);
        qDeleteAll(list);
    }
}

void MtbAlignmentTest::emptyPictures_leaveTheCallersShift()
{
    // No candidate has fewer differences than the picture has pixels.
    const QImage empty;
    int x = 7;
    int y = 8;
    getExpShift(&empty, 100, &empty, 100, 4, 3, x, y);
    QCOMPARE(QPoint(x, y), QPoint(7, 8));
}

void MtbAlignmentTest::randomPictures_equalThePlainCode()
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
        QVERIFY(forced.isRunning());
        const int levels = int(random() % 4);
        QPoint fast;
        QPoint plain;
        mtbalign(false, &a, &b, 0.5, 4, levels, fast.rx(), fast.ry());
        mtbalignPlain(false, &a, &b, 0.5, 4, levels, plain.rx(), plain.ry());
        QVERIFY2(fast == plain, qPrintable(QStringLiteral("round %1").arg(round)));
    }
}

void MtbAlignmentTest::randomGreyImagesThresholdsAndLevels_equalThePlainCode()
{
    std::mt19937 random(778);
    const std::vector<int64_t> targets = vectorTargets::all();
    for (int round = 0; round < 5000; ++round) {
        const QSize size(1 + int(random() % 200), 1 + int(random() % 9));
        const QImage a = greyNoise(size, random);
        const QImage b = greyNoise(size, random);
        const vectorTargets::Forced forced(targets[size_t(round) % targets.size()]);
        QVERIFY(forced.isRunning());
        const int threshold1 = int(random() % 270) - 6;
        const int threshold2 = int(random() % 270) - 6;
        const int tolerance = int(random() % 120) - 10;
        const int levels = int(random() % 5) - 1;
        QPoint fast(1000, 1000);
        QPoint plain(1000, 1000);
        getExpShift(&a, threshold1, &b, threshold2, tolerance, levels, fast.rx(), fast.ry());
        getExpShiftPlain(&a, threshold1, &b, threshold2, tolerance, levels, plain.rx(), plain.ry());
        QVERIFY2(fast == plain, qPrintable(QStringLiteral("round %1").arg(round)));
    }
}

void MtbAlignmentTest::shiftsUpToTheLargest_equalThePlainCode()
{
    const QSize size(260, 257);
    const QImage a = pictures::scene(size, {100, 100}, 1.0, 13);
    for (int x = -9; x <= 9; x += 3) {
        for (int y = -9; y <= 9; y += 3) {
            QImage first = a;
            QImage second = pictures::scene(size, {100 + x, 100 + y}, 0.8, 13);
            QCOMPARE(mtb::pairShifts({&first, &second}), pairShiftsPlain({&first, &second}));
        }
    }
}

void MtbAlignmentTest::threadCounts_giveTheSameShifts()
{
    QList<QImage *> list = bracket({300, 280}, {{20, 20}, {25, 22}, {17, 26}});
    const std::vector<QPoint> plain = pairShiftsPlain(list);
    for (const int threads : {1, 2, 5, 64}) {
        parallel::setThreadLimit(threads);
        QCOMPARE(mtb::pairShifts(list), plain);
    }
    qDeleteAll(list);
}

void MtbAlignmentTest::photographs_equalThePlainCode_data()
{
    QTest::addColumn<QString>("names");
    QTest::newRow("hand-held bracket") << "IMG_387*.jpeg";
    QTest::newRow("church interior") << "test1_memorial*.png";
}

void MtbAlignmentTest::photographs_equalThePlainCode()
{
    QFETCH(QString, names);
    const QStringList paths = pictures::photographs(names);
    if (paths.isEmpty())
        QSKIP("no photographs here; set VESK_TEST_PICTURES to a folder that has them");
    pictures::Owned owned;
    for (const QString &path : paths.mid(0, 3))
        owned.push_back(std::make_unique<QImage>(QImageReader(path).read()));
    const QList<QImage *> list = pictures::list(owned);
    const std::vector<QPoint> plain = pairShiftsPlain(list);
    for (const int64_t target : vectorTargets::all()) {
        const vectorTargets::Forced forced(target);
        QVERIFY2(forced.isRunning(), hwy::TargetName(target));
        const std::vector<QPoint> fast = mtb::pairShifts(list);
        QVERIFY2(fast == plain, hwy::TargetName(target));
    }
}

int main(int argc, char **argv)
{
    if (argc == 2 && qstrncmp(argv[1], "--", 2) == 0) {
        runAsChild(QString::fromLatin1(argv[1]));
        return 0;
    }
    QCoreApplication app(argc, argv);
    MtbAlignmentTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_mtb_alignment.moc"
