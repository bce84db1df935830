#include "exposure_merge.h"

#include <QtTest>

#include <memory>

class ExposureMergeTest : public QObject
{
    Q_OBJECT

private slots:
    void emptyList_givesNull() { QVERIFY(!mergeExposures({})); }
};

QTEST_GUILESS_MAIN(ExposureMergeTest)
#include "tst_exposure_merge.moc"
