#include "set_merge.h"

#include "dng_writer.h"
#include "merge_pictures.h"
#include "picture_set.h"

#include <QColorSpace>
#include <QTemporaryDir>
#include <QtTest>

#include <random>

namespace {

const QSize kSize(201, 151);

/// Blocks of random colours; by: how far the camera was moved; factor: the exposure.
QImage shot(double factor, QPoint by = {})
{
    constexpr int kBlock = 5;
    QImage picture(kSize, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            std::minstd_rand random(
                unsigned((y + by.y() + 50) / kBlock * 1000 + (x + by.x() + 50) / kBlock + 1));
            random.discard(3);
            const auto level = [&] { return std::min(255, int(random() % 200 * factor)); };
            const int red = level();
            const int green = level();
            picture.setPixel(x, y, qRgb(red, green, level()));
        }
    }
    return picture;
}

QList<QImage> bracket()
{
    return {shot(0.5), shot(1.0, {3, -2}), shot(1.8, {1, 4})};
}

} // namespace

class TestSetMerge : public QObject
{
    Q_OBJECT

private slots:
    void mean_equalsTheTools_data();
    void mean_equalsTheTools();
    void mean_cropped_isTheCommonArea();
    void fusion_bringsTheShotsToTheFirstOnesColours();
    void fusion_deepIsWanted_hasSixteenBits();
    void radiance_isTheJobsLight();
    void readOptions_areTheMethodsOwn();
    void readOptions_ofRawFilesAlone_areLinear();
    void badSets_areErrors_data();
    void badSets_areErrors();
    void cancelled_givesNoPicture_data();
    void cancelled_givesNoPicture();
};

void TestSetMerge::mean_equalsTheTools_data()
{
    QTest::addColumn<bool>("align");
    QTest::newRow("aligned") << true;
    QTest::newRow("as they are") << false;
}

void TestSetMerge::mean_equalsTheTools()
{
    QFETCH(bool, align);
    QList<QImage *> pictures;
    for (const QImage &picture : bracket())
        pictures.append(new QImage(picture));
    merge::Options how;
    how.align = align;
    const merge::Outcome expected = merge::mergePictures(pictures, how);
    exposure::Options options;
    options.alignment = align ? exposure::Alignment::Shift : exposure::Alignment::None;
    const exposure::SetOutcome outcome =
        exposure::mergeSet(exposure::Method::Mean, bracket(), options);
    QVERIFY(outcome.pairShifts == expected.pairShifts);
    QVERIFY(outcome.summedShifts == expected.summedShifts);
    QCOMPARE(outcome.report.area, QRect(QPoint(), kSize));
    QCOMPARE(outcome.error, exposure::Error::None);
    QCOMPARE(outcome.picture, *expected.picture);
    QCOMPARE(outcome.report.transforms.size(), size_t(3));
    QCOMPARE(outcome.report.reference, 0);
    if (align)
        QCOMPARE(
            outcome.report.transforms[1].matrix,
            registration::shiftMatrix(expected.summedShifts[0].x(), expected.summedShifts[0].y()));
}

void TestSetMerge::mean_cropped_isTheCommonArea()
{
    exposure::Options options;
    options.alignment = exposure::Alignment::Shift;
    const exposure::Outcome whole = exposure::mergeSet(exposure::Method::Mean, bracket(), options);
    options.crop = true;
    const exposure::Outcome cropped =
        exposure::mergeSet(exposure::Method::Mean, bracket(), options);
    QVERIFY(cropped.report.area.size() != kSize);
    QCOMPARE(cropped.picture, whole.picture.copy(cropped.report.area));
}

void TestSetMerge::fusion_bringsTheShotsToTheFirstOnesColours()
{
    QList<QImage> shots = bracket();
    shots[0].setColorSpace(QColorSpace::DisplayP3);
    shots[1].setColorSpace(QColorSpace::SRgb);
    shots[2].setColorSpace(QColorSpace::AdobeRgb);
    QList<QImage> brought = shots;
    QVERIFY(!picture_set::bringToFirst(brought).conversions.empty());
    const exposure::Outcome expected = exposure::merge(brought);
    const exposure::Outcome outcome = exposure::mergeSet(exposure::Method::Fusion, shots);
    QCOMPARE(outcome.picture, expected.picture);
    QVERIFY(outcome.picture != exposure::merge(shots).picture);
}

void TestSetMerge::fusion_deepIsWanted_hasSixteenBits()
{
    exposure::SetOptions options;
    QCOMPARE(exposure::mergeSet(exposure::Method::Fusion, bracket(), options).picture.format(),
             QImage::Format_RGB32);
    options.isDeepWanted = true;
    QCOMPARE(exposure::mergeSet(exposure::Method::Fusion, bracket(), options).picture.format(),
             QImage::Format_RGBX64);
}

void TestSetMerge::radiance_isTheJobsLight()
{
    exposure::Options options;
    options.exposures = {0.5, 1.0, 1.8};
    const exposure::SetOutcome outcome =
        exposure::mergeSet(exposure::Method::Radiance, bracket(), options);
    QCOMPARE(outcome.error, exposure::Error::None);
    QCOMPARE(outcome.picture.format(), QImage::Format_RGBX32FPx4);
    QVERIFY(outcome.report.areExposuresKnown);
    options.product = exposure::Product::Light;
    QCOMPARE(outcome.picture, exposure::merge(bracket(), options).picture);
}

void TestSetMerge::readOptions_areTheMethodsOwn()
{
    const ReadOptions mean = exposure::readOptionsFor(exposure::Method::Mean);
    QCOMPARE(mean.depth, ReadOptions::Depth::Eight);
    QCOMPARE(mean.colours, ReadOptions::Colours::AsStored);
    const ReadOptions fusion = exposure::readOptionsFor(exposure::Method::Fusion);
    QCOMPARE(fusion.depth, ReadOptions::Depth::AsStored);
    QCOMPARE(fusion.colours, ReadOptions::Colours::True);
}

void TestSetMerge::readOptions_ofRawFilesAlone_areLinear()
{
    const QTemporaryDir folder;
    const QString raw = folder.filePath(QStringLiteral("a.dng"));
    const QString other = folder.filePath(QStringLiteral("b.png"));
    QVERIFY(writeDng(raw, {}));
    QVERIFY(shot(1.0).save(other));
    using exposure::Method;
    QVERIFY(exposure::readOptionsFor(Method::Radiance, {raw, raw}).isRawLinear);
    QVERIFY(!exposure::readOptionsFor(Method::Radiance, {raw, other}).isRawLinear);
    QVERIFY(!exposure::readOptionsFor(Method::Fusion, {raw, raw}).isRawLinear);
    QVERIFY(!exposure::readOptionsFor(Method::Mean, {raw, raw}).isRawLinear);
}

void TestSetMerge::badSets_areErrors_data()
{
    QTest::addColumn<int>("method");
    for (const auto method : {exposure::Method::Fusion, exposure::Method::Mean})
        QTest::newRow(method == exposure::Method::Mean ? "mean" : "fusion") << int(method);
}

void TestSetMerge::badSets_areErrors()
{
    QFETCH(int, method);
    const auto errorOf = [method](const QList<QImage> &shots) {
        return exposure::mergeSet(exposure::Method(method), shots).error;
    };
    QCOMPARE(errorOf({shot(1), shot(1).copy(0, 0, 30, 30)}), exposure::Error::DifferentSizes);
    QCOMPARE(errorOf({shot(1), QImage()}), exposure::Error::NoPictures);
}

void TestSetMerge::cancelled_givesNoPicture_data()
{
    badSets_areErrors_data();
}

void TestSetMerge::cancelled_givesNoPicture()
{
    QFETCH(int, method);
    const std::atomic<bool> cancelled{true};
    exposure::Control control;
    control.cancelled = &cancelled;
    const exposure::Outcome outcome =
        exposure::mergeSet(exposure::Method(method), bracket(), {}, control);
    QCOMPARE(outcome.error, exposure::Error::Cancelled);
    QVERIFY(outcome.picture.isNull());
}

QTEST_GUILESS_MAIN(TestSetMerge)
#include "tst_set_merge.moc"
