#include "engine_pictures.h"
#include "exposure_merge_plain.h"
#include "merge_pictures.h"
#include "mtb_alignment_plain.h"
#include "mtb_primitives.h"
#include "mtb_shifts.h"

#include <QColorSpace>
#include <QtTest>

#include <memory>

namespace {

constexpr QSize kSize(150, 140);

QList<QImage *> bracket()
{
    QList<QImage *> list;
    for (int i = 0; i < 3; ++i)
        list.append(new QImage(pictures::scene(kSize, {20 + i, 20 - 2 * i}, 0.6 + 0.3 * i, 7)));
    return list;
}

/// The bracket aligned and merged by the plain code.
QImage mergedPlainly(bool align)
{
    QList<QImage *> list = bracket();
    const std::vector<QPoint> shifts = mtb::summedShifts(plain::pairShifts(list));
    for (size_t i = 0; align && i < shifts.size(); ++i) {
        QImage *&picture = list[int(i) + 1];
        const std::unique_ptr<QImage> unshifted(picture);
        picture = shiftQImage(unshifted.get(), shifts[i].x(), shifts[i].y());
    }
    const std::unique_ptr<QImage> merged(plain::mergeExposures(list));
    qDeleteAll(list);
    return *merged;
}

} // namespace

/// On the processor, and on a device that is none. tst_VeskHDRThread takes the road to a device.
class TestMergePictures : public QObject
{
    Q_OBJECT

private slots:
    void merge_givesThePlainPixels_data();
    void merge_givesThePlainPixels();
    void merge_tellsItsStepsAndShifts();
    void merge_keepsProfileAndResolutionOfTheFirstPicture_data();
    void merge_keepsProfileAndResolutionOfTheFirstPicture();
    void missingDevice_leavesOpaqueBlackAndIsTold();
    void picturesThatCannotBeMerged_areKept_data();
    void picturesThatCannotBeMerged_areKept();
};

void TestMergePictures::merge_givesThePlainPixels_data()
{
    QTest::addColumn<bool>("align");
    QTest::addColumn<bool>("mayReusePixels");
    QTest::newRow("not aligned") << false << false;
    QTest::newRow("aligned into new pictures") << true << false;
    QTest::newRow("aligned in place") << true << true;
}

void TestMergePictures::merge_givesThePlainPixels()
{
    QFETCH(bool, align);
    merge::Options options;
    options.align = align;
    QFETCH(bool, mayReusePixels);
    options.mayReusePixels = mayReusePixels;
    QList<QImage *> list = bracket();
    const merge::Outcome outcome = merge::mergePictures(list, options);
    QVERIFY(outcome.error == merge::Error::None);
    QVERIFY(list.isEmpty());
    QVERIFY(outcome.isDeviceComplete);
    QCOMPARE(outcome.picture->format(), QImage::Format_RGB32);
    QCOMPARE(*outcome.picture, mergedPlainly(align));
    QVERIFY(mergedPlainly(true) != mergedPlainly(false));
}

void TestMergePictures::merge_tellsItsStepsAndShifts()
{
    for (const bool align : {true, false}) {
        QList<merge::Step> steps;
        merge::Options options;
        options.align = align;
        options.beforeStep = [&steps](merge::Step step) { steps.append(step); };
        QList<QImage *> list = bracket();
        const std::vector<QPoint> shifts = plain::pairShifts(list);
        const merge::Outcome outcome = merge::mergePictures(list, options);
        QCOMPARE(outcome.pairShifts, align ? shifts : std::vector<QPoint>());
        QCOMPARE(outcome.summedShifts, align ? mtb::summedShifts(shifts) : std::vector<QPoint>());
        QCOMPARE(steps.size(), align ? 2 : 1);
        QVERIFY(steps.first() == (align ? merge::Step::Align : merge::Step::Merge));
        QVERIFY(steps.last() == merge::Step::Merge);
    }
}

void TestMergePictures::merge_keepsProfileAndResolutionOfTheFirstPicture_data()
{
    merge_givesThePlainPixels_data();
}

void TestMergePictures::merge_keepsProfileAndResolutionOfTheFirstPicture()
{
    constexpr int k300Dpi = 11811;
    merge::Options options;
    QFETCH(bool, align);
    options.align = align;
    QFETCH(bool, mayReusePixels);
    options.mayReusePixels = mayReusePixels;
    for (const bool onDevice : {false, true}) {
        options.onDevice = onDevice;
        QList<QImage *> list = bracket();
        list[0]->setColorSpace(QColorSpace::DisplayP3);
        list[0]->setDotsPerMeterX(k300Dpi);
        list[0]->setDotsPerMeterY(2 * k300Dpi);
        list[1]->setColorSpace(QColorSpace::AdobeRgb);
        const merge::Outcome outcome = merge::mergePictures(list, options);
        QCOMPARE(outcome.picture->colorSpace(), QColorSpace(QColorSpace::DisplayP3));
        QCOMPARE(outcome.picture->dotsPerMeterX(), k300Dpi);
        QCOMPARE(outcome.picture->dotsPerMeterY(), 2 * k300Dpi);
    }
}

void TestMergePictures::missingDevice_leavesOpaqueBlackAndIsTold()
{
    merge::Options options;
    options.onDevice = true;
    QList<QImage *> list = bracket();
    const merge::Outcome outcome = merge::mergePictures(list, options);
    QVERIFY(!outcome.isDeviceComplete);
    QVERIFY(outcome.error == merge::Error::None);
    QVERIFY(list.isEmpty());
    QImage black(kSize, QImage::Format_RGB32);
    black.fill(Qt::black);
    QCOMPARE(*outcome.picture, black);
}

void TestMergePictures::picturesThatCannotBeMerged_areKept_data()
{
    QTest::addColumn<QList<QSize>>("sizes");
    QTest::addColumn<bool>("onDevice");
    QTest::addColumn<int>("error");
    const int none = int(merge::Error::NoPictures);
    QTest::newRow("no picture") << QList<QSize>() << false << none;
    QTest::newRow("a null picture") << QList<QSize>{{4, 4}, {}} << false << none;
    QTest::newRow("a null picture, device") << QList<QSize>{{}, {4, 4}} << true << none;
    QTest::newRow("another size") << QList<QSize>{{4, 4}, {4, 5}} << false
                                  << int(merge::Error::DifferentSizes);
}

void TestMergePictures::picturesThatCannotBeMerged_areKept()
{
    QFETCH(QList<QSize>, sizes);
    QFETCH(bool, onDevice);
    QFETCH(int, error);
    QList<QImage *> list;
    for (const QSize size : sizes)
        list.append(new QImage(size, QImage::Format_RGB32));
    const QList<QImage *> before = list;
    merge::Options options;
    options.onDevice = onDevice;
    const merge::Outcome outcome = merge::mergePictures(list, options);
    QCOMPARE(int(outcome.error), error);
    QVERIFY(!outcome.picture);
    QCOMPARE(outcome.ticks, quint64(0));
    QCOMPARE(list, before);
    qDeleteAll(list);
}

QTEST_GUILESS_MAIN(TestMergePictures)
#include "tst_merge_pictures.moc"
