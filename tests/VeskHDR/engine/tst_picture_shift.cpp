#include "engine_pictures.h"
#include "mtb_primitives.h"
#include "picture_shift.h"

#include <QtTest>

#include <climits>
#include <memory>

namespace {

using Picture = std::unique_ptr<QImage>;

} // namespace

class TestPictureShift : public QObject
{
    Q_OBJECT

private slots:
    void sharedPictures_areCopiedNotChanged_data();
    void sharedPictures_areCopiedNotChanged();
    void shiftedInPlace_equalsShiftedCopy_data();
    void shiftedInPlace_equalsShiftedCopy();
};

void TestPictureShift::sharedPictures_areCopiedNotChanged_data()
{
    QTest::addColumn<bool>("inPlace");
    QTest::newRow("into new pictures") << false;
    QTest::newRow("in place") << true;
}

void TestPictureShift::sharedPictures_areCopiedNotChanged()
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

void TestPictureShift::shiftedInPlace_equalsShiftedCopy_data()
{
    QTest::addColumn<QPoint>("shift");
    for (const QPoint shift :
         {QPoint(0, 0), QPoint(0, 1), QPoint(0, -1), QPoint(1, 0), QPoint(-1, 0), QPoint(1, 1),
          QPoint(-1, -1), QPoint(3, 0), QPoint(-3, 2), QPoint(0, -5), QPoint(8, 5), QPoint(9, 0),
          QPoint(-9, -6), QPoint(INT_MAX, INT_MIN)})
        QTest::addRow("%d, %d", shift.x(), shift.y()) << shift;
}

void TestPictureShift::shiftedInPlace_equalsShiftedCopy()
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

QTEST_GUILESS_MAIN(TestPictureShift)
#include "tst_picture_shift.moc"
