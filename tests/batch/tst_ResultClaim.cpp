#include "ResultClaim.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

class TestResultClaim : public QObject
{
    Q_OBJECT

private slots:
    void claimedResult_isRefusedToOthersUntilItIsReleased()
    {
        const QTemporaryDir folder;
        const QString result = folder.filePath("a.jpg");
        ResultClaim one;
        ResultClaim other;
        QVERIFY(one.take(result));
        QVERIFY(!other.take(result));
        QVERIFY(other.take(folder.filePath("b.jpg")));
        one.release();
        QVERIFY(other.take(result));
    }

    void released_leavesNothing()
    {
        const QTemporaryDir folder;
        {
            ResultClaim claim;
            QVERIFY(claim.take(folder.filePath("a.jpg")));
            QVERIFY(!QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
        }
        QVERIFY(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
    }

    /// A file that nobody has locked: its process was killed.
    void claimOfTheDead_isTakenOver()
    {
        const QTemporaryDir folder;
        ResultClaim first;
        QVERIFY(first.take(folder.filePath("a.jpg")));
        const QString name = QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).first();
        first.release();
        QFile left(folder.filePath(name));
        QVERIFY(left.open(QIODevice::WriteOnly));
        left.close();
        ResultClaim second;
        QVERIFY(second.take(folder.filePath("a.jpg")));
    }

    void folderThatTakesNoFile_isLeftToTheMerge()
    {
        ResultClaim claim;
        QVERIFY(claim.take("/nowhere/a.jpg"));
    }
};

QTEST_GUILESS_MAIN(TestResultClaim)
#include "tst_ResultClaim.moc"
