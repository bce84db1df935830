#include "TestPictures.h"
#include "picture_edits.h"

#include <adjust.h>
#include <area_mean.h>

#include <QColorSpace>
#include <QPainter>
#include <QtTest>

#include <cmath>

namespace {

QImage deep(const QImage &picture)
{
    return picture.convertToFormat(QImage::Format_RGBX64);
}

/// What becomes of a picture.
QImage made(DocumentEdit &edit, const QImage &before)
{
    if (edit.pictures.isEmpty()) {
        edit.pictures = {before};
        edit.steps->apply(edit.pictures);
    }
    return edit.pictures.constFirst();
}

void takeBack(DocumentEdit &edit, const QImage &before)
{
    QList<QImage> pictures = {made(edit, before)};
    QVERIFY(edit.steps->apply(pictures));
    QCOMPARE(pictures.constFirst(), before);
    QCOMPARE(pictures.constFirst().format(), before.format());
}

/// A white line across grey, sloping by so many degrees clockwise.
QImage horizon(double degrees)
{
    QImage picture(400, 300, QImage::Format_RGB32);
    picture.fill(qRgb(90, 90, 90));
    QPainter painter(&picture);
    painter.translate(200, 150);
    painter.rotate(degrees);
    painter.fillRect(-400, -3, 800, 6, Qt::white);
    return picture;
}

/// Where the line crosses a column.
int brightestRow(const QImage &picture, int x)
{
    int best = 0;
    for (int y = 0; y < picture.height(); ++y) {
        if (qRed(picture.pixel(x, y)) > qRed(picture.pixel(x, best)))
            best = y;
    }
    return best;
}

} // namespace

class TestPictureEdits : public QObject
{
    Q_OBJECT

private slots:
    void crop_givesTheArea_andTheWayBack()
    {
        const QImage before = TestPictures::texture({90, 60}, 1);
        DocumentEdit edit = edits::crop({before}, {10, 5, 50, 40});
        QCOMPARE(made(edit, before), before.copy(10, 5, 50, 40));
        takeBack(edit, before);
    }

    void turn_fourTimes_isWhatItWas()
    {
        QImage picture = deep(TestPictures::texture({91, 60}, 1));
        picture.setColorSpace(QColorSpace::ProPhotoRgb);
        const QImage before = picture;
        for (int i = 0; i < 4; ++i) {
            DocumentEdit edit = edits::turn({picture}, 1);
            picture = made(edit, picture);
        }
        QCOMPARE(picture, before);
        QCOMPARE(picture.colorSpace(), before.colorSpace());
        DocumentEdit left = edits::turn({before}, 3);
        QCOMPARE(made(left, before).pixel(0, 0), before.pixel(90, 0));
        takeBack(left, before);
    }

    void straighten_levelsTheHorizon_data()
    {
        QTest::addColumn<double>("degrees");
        for (const double degrees : {-12.0, -1.5, 0.7, 5.0, 20.0})
            QTest::newRow(qPrintable(QString::number(degrees))) << degrees;
    }

    void straighten_levelsTheHorizon()
    {
        QFETCH(const double, degrees);
        const QImage before = horizon(degrees);
        DocumentEdit edit = edits::straighten({before}, -degrees);
        const QImage after = made(edit, before);
        QVERIFY(std::abs(brightestRow(after, 4) - brightestRow(after, after.width() - 5)) <= 3);
        QVERIFY(std::abs(double(after.width()) / after.height() - 4.0 / 3) < 0.03);
        for (int x = 0; x < after.width(); ++x) { // nothing uncovered at the edges
            QVERIFY(qRed(after.pixel(x, 0)) >= 80);
            QVERIFY(qRed(after.pixel(x, after.height() - 1)) >= 80);
        }
        takeBack(edit, before);
    }

    /// What is shown until it is made.
    void straighten_reduced_isNearWhatIsMade()
    {
        QImage before =
            horizon(6).scaled(1600, 1200, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        for (const QImage &each : {before, deep(before)}) {
            DocumentEdit edit = edits::straighten({each}, -6);
            const QSize size = edit.steps->otherSizes({each}).constFirst();
            const QRect whole(QPoint(), size);
            const QImage ahead = edit.steps->otherReduced({each}, 0, whole, size / 4);
            const QImage after = made(edit, each);
            QCOMPARE(after.size(), size);
            const QImage small = picture::areaMean(after, size / 4);
            QCOMPARE(ahead.size(), small.size());
            double sum = 0;
            for (int y = 0; y < small.height(); ++y) {
                for (int x = 0; x < small.width(); ++x)
                    sum += std::abs(qRed(small.pixel(x, y)) - qRed(ahead.pixel(x, y)));
            }
            QVERIFY2(sum / small.width() / small.height() < 0.5,
                     qPrintable(QString::number(sum / small.width() / small.height())));
        }
    }

    void straighten_keepsDepthAndProfile()
    {
        QImage before = deep(horizon(3));
        before.setColorSpace(QColorSpace::AdobeRgb);
        DocumentEdit edit = edits::straighten({before}, -3);
        const QImage after = made(edit, before);
        QCOMPARE(after.format(), QImage::Format_RGBX64);
        QCOMPARE(after.colorSpace(), before.colorSpace());
    }

    void adjust_isTheMergesLook_atBothDepths()
    {
        exposure::Look look;
        look.exposure = 0.4;
        look.shadows = 0.7;
        for (const QImage &before :
             {TestPictures::texture({80, 60}, 2), deep(TestPictures::texture({80, 60}, 2))}) {
            QImage expected = before.convertToFormat(exposure::adjustableFormat(before));
            exposure::adjust(expected, look);
            DocumentEdit edit = edits::adjust({before}, look);
            QCOMPARE(edit.pictures.constFirst(), expected.convertToFormat(before.format()));
            takeBack(edit, before);
        }
    }

    void adjust_greys_staysGrey()
    {
        const QImage before =
            TestPictures::texture({80, 60}, 2).convertToFormat(QImage::Format_Grayscale8);
        exposure::Look look;
        look.exposure = 1;
        DocumentEdit edit = edits::adjust({before}, look);
        QCOMPARE(edit.pictures.constFirst().format(), QImage::Format_Grayscale8);
        takeBack(edit, before);
    }

    void adjust_neutral_changesNoByte()
    {
        const QImage before = TestPictures::texture({80, 60}, 2);
        const DocumentEdit edit = edits::adjust({before}, {});
        QCOMPARE(edit.pictures.constFirst().constBits(), before.constBits());
        QVERIFY(!edit.settings.isValid());
    }
};

QTEST_MAIN(TestPictureEdits)
#include "tst_picture_edits.moc"
