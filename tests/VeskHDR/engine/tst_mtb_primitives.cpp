#include "engine_pictures.h"
#include "little_memory.h"
#include "mtb_primitives.h"
#include "mtb_search.h"

#include <QProcess>
#include <QtTest>

#include <climits>
#include <memory>

namespace {

using Picture = std::unique_ptr<QImage>;

const QString kShift = QStringLiteral("--shift-without-memory");
const QString kBitmap = QStringLiteral("--bitmap-without-memory");

/// What a test starts in a process of its own, because it ends that process.
void runAsChild(const QString &task)
{
    const QImage picture(4, 4, QImage::Format_RGB32);
    littleMemory::refuseWithoutException();
    delete (task == kShift ? shiftQImage(&picture, 1, 1) : setbitmap({4, 4}));
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

} // namespace

class TestMtbPrimitives : public QObject
{
    Q_OBJECT

private slots:
    void getLum_weighsChannelsAndTruncates();
    void getLum_givesTheCumulativeHistogram();
    void getLum_addsTheSharesOneAfterTheOther();
    void getLum_resizesTheHistogramTo256Entries();
    void getLum_givesTheGreyColourTable();
    void setbitmap_hasTheTwoEntryColourTable();
    void setThreshold_levelsAtToleranceAreTrustedThoseBetweenAreNot();
    void sumimage_countsTheOnes();
    void sumimage_moreThan32BitsHold_isExact();
    void setThreshold_extremeThresholdsAndTolerances_areExact_data();
    void setThreshold_extremeThresholdsAndTolerances_areExact();
    void XORimages_readsExclusionBytesOnlyAtDifferingPixels();
    void XORimages_secondExclusionBitmapAdvancesOnlyWhereTheFirstLetsPass();
    void XORimages_startsAnewInEachRow();
    void shiftimage_fillsUncoveredPixelsWithZero();
    void shiftQImage_uncoveredPixelsAreTransparentBlack_data();
    void shiftQImage_uncoveredPixelsAreTransparentBlack();
    void shiftQImage_keepsWordsAndGivesArgb32();
    void noMemoryForThePicture_endsTheProcessWithTheReport_data();
    void noMemoryForThePicture_endsTheProcessWithTheReport();
};

void TestMtbPrimitives::getLum_weighsChannelsAndTruncates()
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

void TestMtbPrimitives::getLum_givesTheCumulativeHistogram()
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
void TestMtbPrimitives::getLum_addsTheSharesOneAfterTheOther()
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
    QCOMPARE(GreyHistogram::percentileLevel(fast, 0.8), 160);
    QCOMPARE(GreyHistogram::percentileLevel(fast, 1.0), 256);
}

void TestMtbPrimitives::getLum_resizesTheHistogramTo256Entries()
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

void TestMtbPrimitives::getLum_givesTheGreyColourTable()
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

void TestMtbPrimitives::setbitmap_hasTheTwoEntryColourTable()
{
    const Picture bitmap(setbitmap({7, 3}));
    QCOMPARE(bitmap->size(), QSize(7, 3));
    QCOMPARE(bitmap->format(), QImage::Format_Indexed8);
    QCOMPARE(bitmap->colorTable(), QVector<QRgb>({0xFF000000, 0xFFFFFFFF}));
}

void TestMtbPrimitives::setThreshold_levelsAtToleranceAreTrustedThoseBetweenAreNot()
{
    const Picture grey = pictures::greyRow({95, 96, 97, 99, 100, 103, 104, 105});
    const Picture tb(setbitmap(grey->size()));
    const Picture eb(setbitmap(grey->size()));
    setThreshold(grey.get(), 100, 4, tb.get(), eb.get());
    QCOMPARE(rowText(*tb, 0), QByteArray("00001111"));
    QCOMPARE(rowText(*eb, 0), QByteArray("11000011"));
}

void TestMtbPrimitives::sumimage_countsTheOnes()
{
    QCOMPARE(sumimage(bitmapOf({"1011", "0001", "0000"}).get()), qint64(4));
    QImage bytes(3, 2, QImage::Format_Indexed8);
    bytes.fill(255);
    QCOMPARE(sumimage(&bytes), qint64(6 * 255));
}

void TestMtbPrimitives::sumimage_moreThan32BitsHold_isExact()
{
    QImage bytes(4200, 4100, QImage::Format_Indexed8);
    bytes.fill(255);
    QCOMPARE(sumimage(&bytes), qint64(4200) * 4100 * 255);
    QVERIFY(sumimage(&bytes) > qint64(UINT_MAX));
}

void TestMtbPrimitives::setThreshold_extremeThresholdsAndTolerances_areExact_data()
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

void TestMtbPrimitives::setThreshold_extremeThresholdsAndTolerances_areExact()
{
    QFETCH(int, threshold);
    QFETCH(int, tolerance);
    QFETCH(QByteArray, above);
    QFETCH(QByteArray, trusted);
    const Picture grey = pictures::greyRow({0, 255});
    const Picture tb(setbitmap(grey->size()));
    const Picture eb(setbitmap(grey->size()));
    setThreshold(grey.get(), threshold, tolerance, tb.get(), eb.get());
    QCOMPARE(rowText(*tb, 0), above);
    QCOMPARE(rowText(*eb, 0), trusted);
}

void TestMtbPrimitives::XORimages_readsExclusionBytesOnlyAtDifferingPixels()
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

void TestMtbPrimitives::XORimages_secondExclusionBitmapAdvancesOnlyWhereTheFirstLetsPass()
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

void TestMtbPrimitives::XORimages_startsAnewInEachRow()
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

void TestMtbPrimitives::shiftimage_fillsUncoveredPixelsWithZero()
{
    const Picture in = bitmapOf({"111", "101", "111"});
    const Picture out = bitmapOf({"111", "111", "111"});
    shiftimage(in.get(), 1, -1, out.get());
    QCOMPARE(rowText(*out, 0), QByteArray("010"));
    QCOMPARE(rowText(*out, 1), QByteArray("011"));
    QCOMPARE(rowText(*out, 2), QByteArray("000"));
}

void TestMtbPrimitives::shiftQImage_uncoveredPixelsAreTransparentBlack_data()
{
    QTest::addColumn<QPoint>("shift");
    for (const QPoint shift :
         {QPoint(0, 0), QPoint(0, 1), QPoint(0, -1), QPoint(1, 0), QPoint(-1, 0), QPoint(1, 1),
          QPoint(-1, -1), QPoint(3, 0), QPoint(-3, 2), QPoint(0, -5), QPoint(8, 5), QPoint(9, 0),
          QPoint(-9, -6), QPoint(INT_MAX, INT_MIN)})
        QTest::addRow("%d, %d", shift.x(), shift.y()) << shift;
}

void TestMtbPrimitives::shiftQImage_uncoveredPixelsAreTransparentBlack()
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

void TestMtbPrimitives::shiftQImage_keepsWordsAndGivesArgb32()
{
    QImage in(2, 1, QImage::Format_RGB32);
    in.fill(0xFF123456);
    const Picture out(shiftQImage(&in, 0, 0));
    QCOMPARE(out->format(), QImage::Format_ARGB32);
    QCOMPARE(reinterpret_cast<const QRgb *>(out->constScanLine(0))[1], 0xFF123456U);
}

void TestMtbPrimitives::noMemoryForThePicture_endsTheProcessWithTheReport_data()
{
    QTest::addColumn<QString>("task");
    QTest::addColumn<QByteArrayList>("parts");
    QTest::newRow("shifted picture")
        << kShift
        << QByteArrayList{"out!=NULL", "shiftQImage", "src/VeskHDR/mtb_alignment.cpp:60:"};
    QTest::newRow("bitmap") << kBitmap
                            << QByteArrayList{"img!=NULL", "setbitmap",
                                              "src/VeskHDR/mtb_alignment.cpp:336:"};
}

void TestMtbPrimitives::noMemoryForThePicture_endsTheProcessWithTheReport()
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
    for (const QByteArray &part : parts)
        QVERIFY2(report.contains(part), report.constData());
}

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    if (argc == 2 && qstrncmp(argv[1], "--", 2) == 0) {
        runAsChild(QString::fromLatin1(argv[1]));
        return 0;
    }
    TestMtbPrimitives test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_mtb_primitives.moc"
