#include "FolderRest.h"

#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

void makeOld(const QString &path, int seconds)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(-seconds),
                             QFileDevice::FileModificationTime));
}

} // namespace

class TestFolderRest : public QObject
{
    Q_OBJECT

private slots:
    void fileOfBefore_hasRestedSinceItsOwnTime()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.jpg");
        write(path, "a");
        makeOld(path, 100);
        FolderRest rest;
        QVERIFY(rest.look({folder.path()}, 0));
        QVERIFY(rest.restOf(path, 0) >= 99000);
        QVERIFY(rest.rest(0) >= 99000);
        QVERIFY(!rest.look({folder.path()}, 500));
    }

    /// Files are copied with the time that they had.
    void fileThatCame_restsFromThenOn()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.jpg");
        FolderRest rest;
        rest.look({folder.path()}, 0);
        write(path, "a");
        makeOld(path, 100);
        QVERIFY(rest.look({folder.path()}, 1000));
        QCOMPARE(rest.restOf(path, 3000), 2000);
        QCOMPARE(rest.rest(3000), 2000);
    }

    void fileThatGrows_doesNotRest()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.jpg");
        FolderRest rest;
        rest.look({folder.path()}, 0);
        write(path, "a");
        rest.look({folder.path()}, 1000);
        write(path, "ab");
        QVERIFY(rest.look({folder.path()}, 4000));
        QCOMPARE(rest.restOf(path, 5000), 1000);
    }

    void fileThatIsGone_isAChange()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.jpg");
        write(path, "a");
        FolderRest rest;
        rest.look({folder.path()}, 0);
        QVERIFY(QFile::remove(path));
        QVERIFY(rest.look({folder.path()}, 1000));
        QCOMPARE(rest.restOf(path, 9000), 0);
    }

    void hiddenFiles_doNotCount()
    {
        const QTemporaryDir folder;
        FolderRest rest;
        rest.look({folder.path()}, 0);
        write(folder.filePath(".veskhdr-1.tmp"), "a");
        QVERIFY(!rest.look({folder.path()}, 1000));
    }
};

QTEST_GUILESS_MAIN(TestFolderRest)
#include "tst_FolderRest.moc"
