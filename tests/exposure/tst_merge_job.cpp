#include "merge_job.h"

#include <QColorSpace>
#include <QPainter>
#include <QtTest>

#include <random>

namespace {

/// A scene with detail at every size.
QImage scene(QSize size)
{
    std::mt19937 random(3);
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(QColor(120, 110, 100));
    QPainter painter(&picture);
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < 1500; ++i) {
        painter.setBrush(
            QColor(int(random() % 200) + 20, int(random() % 200) + 20, int(random() % 200) + 20));
        painter.drawRect(int(random() % unsigned(size.width())),
                         int(random() % unsigned(size.height())), int(random() % 24) + 2,
                         int(random() % 24) + 2);
    }
    return picture;
}

QImage exposed(const QImage &picture, double factor)
{
    QImage shot = picture;
    for (int y = 0; y < shot.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(shot.scanLine(y));
        for (int x = 0; x < shot.width(); ++x)
            row[x] = qRgb(std::min(255, int(qRed(row[x]) * factor)),
                          std::min(255, int(qGreen(row[x]) * factor)),
                          std::min(255, int(qBlue(row[x]) * factor)));
    }
    return shot;
}

QImage moved(const QImage &large, QSize size, QPoint by)
{
    return large.copy(QRect(QPoint(40, 40) + by, size));
}

const QSize kSize(480, 360);

/// A dark, a middle and a bright shot; each stands elsewhere by a few pixels.
QList<QImage> bracket(QPoint second = {}, QPoint third = {})
{
    const QImage large = scene(kSize + QSize(80, 80));
    QList<QImage> shots{exposed(moved(large, kSize, {}), 0.5), moved(large, kSize, second),
                        exposed(moved(large, kSize, third), 1.8)};
    for (QImage &shot : shots) {
        shot.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
        shot.setDotsPerMeterX(11811);
        shot.setDotsPerMeterY(11811);
    }
    return shots;
}

} // namespace

class TestMergeJob : public QObject
{
    Q_OBJECT

private slots:
    void merge_tripodShots_areLeftWhereTheyAre()
    {
        const exposure::Outcome outcome = exposure::merge(bracket());
        QCOMPARE(outcome.error, exposure::Error::None);
        QCOMPARE(outcome.picture.size(), kSize);
        for (const registration::Transform &transform : outcome.report.transforms)
            QCOMPARE(transform.kind, registration::Kind::Identity);
    }

    void merge_bothProducts_areThoseOfTheirOwnMerges()
    {
        exposure::Options how;
        how.crop = true;
        how.exposures = {0.5, 1.0, 1.8};
        const auto merged = [&how](exposure::Product product) {
            how.product = product;
            return exposure::merge(bracket({3, -2}, {-4, 1}), how);
        };
        const exposure::Outcome both = merged(exposure::Product::Both);
        const exposure::Outcome light = merged(exposure::Product::Light);
        QCOMPARE(both.error, exposure::Error::None);
        QCOMPARE(both.picture, merged(exposure::Product::Picture).picture);
        QVERIFY(!both.light.isNull());
        QCOMPARE(both.light, light.picture);
        QVERIFY(light.light.isNull());
        QCOMPARE(both.bounds, light.bounds);
        QCOMPARE(both.report.exposures, light.report.exposures);
        QCOMPARE(both.light.size(), both.picture.size());
    }

    void merge_profileAndResolution_areKept()
    {
        const exposure::Outcome outcome = exposure::merge(bracket());
        QCOMPARE(outcome.picture.colorSpace(), QColorSpace(QColorSpace::DisplayP3));
        QCOMPARE(outcome.picture.dotsPerMeterX(), 11811);
        QCOMPARE(outcome.picture.dotsPerMeterY(), 11811);
    }

    void merge_shiftedShots_areBroughtBack_data()
    {
        QTest::addColumn<exposure::Alignment>("alignment");
        QTest::newRow("whole pixels") << exposure::Alignment::Shift;
        QTest::newRow("perspective") << exposure::Alignment::Perspective;
    }

    void merge_shiftedShots_areBroughtBack()
    {
        QFETCH(const exposure::Alignment, alignment);
        exposure::Options options;
        options.alignment = alignment;
        options.reference = 0;
        const exposure::Outcome outcome = exposure::merge(bracket({2, -1}, {-1, 2}), options);
        QCOMPARE(outcome.error, exposure::Error::None);
        const auto &transforms = outcome.report.transforms;
        QCOMPARE(transforms[1].matrix[2], 2.0);
        QCOMPARE(transforms[1].matrix[5], -1.0);
        QCOMPARE(transforms[2].matrix[2], -1.0);
        QCOMPARE(transforms[2].matrix[5], 2.0);
    }

    /// What moves in the shade has hardly a level of its own in linear light.
    void merge_linearShots_tellWhatMovesInTheShade()
    {
        QList<QImage> shots;
        QList<QImage> linear;
        for (int i = 0; i < 3; ++i) {
            QImage shot = exposed(moved(scene(kSize + QSize(80, 80)), kSize, {}), 0.4 + 0.1 * i);
            QPainter painter(&shot);
            painter.fillRect(40, 40, 200, 200, QColor(6, 6, 6));
            painter.fillRect(60 + 50 * i, 100, 30, 60, QColor(34, 34, 34));
            painter.end();
            shot.setColorSpace(QColorSpace::SRgb);
            shots += shot.convertToFormat(QImage::Format_RGBX64);
            linear += shots.last().convertedToColorSpace(QColorSpace::SRgbLinear);
            QCOMPARE(linear.last().format(), QImage::Format_RGBX64);
        }
        exposure::Options options;
        options.product = exposure::Product::Light;
        options.alignment = exposure::Alignment::None;
        const QImage expected = exposure::merge(shots, options).ghosts;
        const QImage found = exposure::merge(linear, options).ghosts;
        QVERIFY(!expected.isNull());
        QVERIFY(!found.isNull());
        int others = 0;
        for (int y = 0; y < found.height(); ++y)
            for (int x = 0; x < found.width(); ++x)
                others += found.constScanLine(y)[x] != expected.constScanLine(y)[x] ? 1 : 0;
        qInfo("%d pixels of the masks differ", others);
        QVERIFY(others < found.width() * found.height() / 200);
    }

    void merge_cropped_showsWhatAllShotsCover()
    {
        exposure::Options options;
        options.reference = 0;
        options.crop = true;
        const exposure::Outcome outcome = exposure::merge(bracket({2, -1}, {-1, 2}), options);
        QCOMPARE(outcome.report.area, QRect(2, 2, kSize.width() - 3, kSize.height() - 3));
        QCOMPARE(outcome.picture.size(), outcome.report.area.size());
    }

    void merge_movingThing_isFoundAndTakenFromOneShot()
    {
        QList<QImage> shots = bracket();
        QPainter(&shots[1]).fillRect(QRect(200, 120, 60, 60), QColor(250, 240, 20));
        exposure::Options options;
        options.alignment = exposure::Alignment::None;
        options.ghostReference = 0;
        const exposure::Outcome without = exposure::merge(shots, options);
        QVERIFY(without.report.hasGhosts);
        QCOMPARE(without.ghosts.size(), kSize);
        QVERIFY(qGray(without.ghosts.pixel(230, 150)) > 200);
        options.ghosts = exposure::Ghosts::Keep;
        const exposure::Outcome with = exposure::merge(shots, options);
        QVERIFY(with.ghosts.isNull());
        const auto yellowness = [](QRgb pixel) { return qRed(pixel) - qBlue(pixel); };
        const int blended = yellowness(with.picture.pixel(230, 150));
        const int whole = yellowness(without.picture.pixel(230, 150));
        QVERIFY2(blended > whole + 20,
                 qPrintable(QStringLiteral("%1 and %2").arg(blended).arg(whole)));
    }

    void merge_adjustment_isApplied()
    {
        exposure::Options options;
        options.adjustment.saturation = 0.0;
        const exposure::Outcome outcome = exposure::merge(bracket(), options);
        QVERIFY(qIsGray(outcome.picture.pixel(100, 100)));
    }

    void merge_deepShots_giveADeepPicture()
    {
        QList<QImage> shots = bracket();
        for (QImage &shot : shots)
            shot = shot.convertToFormat(QImage::Format_RGBX64);
        QCOMPARE(exposure::merge(shots).picture.format(), QImage::Format_RGBX64);
    }

    void refuse_wrongShots()
    {
        QCOMPARE(exposure::merge({}).error, exposure::Error::NoPictures);
        QCOMPARE(exposure::merge({bracket()[0], QImage()}).error, exposure::Error::NoPictures);
        QCOMPARE(exposure::merge({bracket()[0], bracket()[1].copy(0, 0, 9, 9)}).error,
                 exposure::Error::DifferentSizes);
    }

    void cancelled_givesNoPicture()
    {
        std::atomic<bool> cancelled = false;
        exposure::Control control;
        control.cancelled = &cancelled;
        control.progress = [&cancelled](exposure::Step step, double) {
            cancelled = cancelled || step == exposure::Step::Fuse;
        };
        const exposure::Outcome outcome = exposure::merge(bracket(), {}, control);
        QVERIFY(cancelled);
        QCOMPARE(outcome.error, exposure::Error::Cancelled);
        QVERIFY(outcome.picture.isNull());
    }

    void progress_ofEachStep_grows()
    {
        QMap<exposure::Step, double> done;
        exposure::Control control;
        control.progress = [&done](exposure::Step step, double part) {
            QVERIFY(part >= done.value(step) && part <= 1.0);
            done[step] = part;
        };
        exposure::merge(bracket({1, 1}), {}, control);
        QCOMPARE(done.size(), 4);
    }
};

QTEST_GUILESS_MAIN(TestMergeJob)
#include "tst_merge_job.moc"
