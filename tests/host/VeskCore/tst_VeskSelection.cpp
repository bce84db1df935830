#include <VeskSelection.h>

#include <QtTest>

class TestVeskSelection : public QObject
{
    Q_OBJECT

private slots:
    void newSelection_isEmptyAndSizedToTheDocument()
    {
        const VeskSelection selection(nullptr, 640, 480);
        QCOMPARE(selection.getWidth(), 640);
        QCOMPARE(selection.getHeight(), 480);
        QVERIFY(selection.isEmpty());
    }

    void negativeLengths_countAsZero()
    {
        VeskSelection selection(nullptr, -1, -7);
        QCOMPARE(selection.getWidth(), 0);
        QCOMPARE(selection.getHeight(), 0);
        selection.selectAll();
        QVERIFY(selection.isEmpty());
    }

    void setRect_isCutToTheDocument()
    {
        VeskSelection selection(nullptr, 100, 50);
        selection.setRect(QRect(90, 40, 30, 30));
        QCOMPARE(selection.getRect(), QRect(90, 40, 10, 10));
        selection.setRect(QRect(200, 200, 5, 5));
        QVERIFY(selection.isEmpty());
        QCOMPARE(selection.getRect(), QRect());
    }

    void selectAll_thenClear()
    {
        VeskSelection selection(nullptr, 100, 50);
        selection.selectAll();
        QCOMPARE(selection.getRect(), QRect(0, 0, 100, 50));
        selection.clear();
        QVERIFY(selection.isEmpty());
    }

    void changed_isSentOncePerRealChange()
    {
        VeskSelection selection(nullptr, 100, 50);
        QSignalSpy changed(&selection, &VeskSelection::changed);
        selection.clear();
        QCOMPARE(changed.count(), 0);
        selection.selectAll();
        selection.selectAll();
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.first().first().toRect(), QRect(0, 0, 100, 50));
    }
};

QTEST_GUILESS_MAIN(TestVeskSelection)
#include "tst_VeskSelection.moc"
