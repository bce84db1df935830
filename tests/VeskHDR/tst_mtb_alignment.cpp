#include "mtb_alignment.h"
#include "mtb_shifts.h"

#include <QtTest>

#include <memory>

class MtbAlignmentTest : public QObject
{
    Q_OBJECT

private slots:
    void largestShift_ofNoLevels_isOne() { QCOMPARE(mtb::largestFindableShift(0), 1); }
};

QTEST_GUILESS_MAIN(MtbAlignmentTest)
#include "tst_mtb_alignment.moc"
