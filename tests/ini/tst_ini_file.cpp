#include "ini_file.h"

#include "UnprivilegedUser.h"

#include <QtTest>

#include <sys/stat.h>

class TestIniFile : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        path = folder->filePath(QStringLiteral("sub/config.ini"));
    }

    void store_intoAMissingFolder_makesAFileForTheUserAlone()
    {
        QVERIFY(ini::store(path, "a/b", QStringList{"1", "2"}));
        QCOMPARE(*ini::read(path, "a/b"), QStringList({"1", "2"}));
        QCOMPARE(int(QFile::permissions(path) & 0x0FF), 0);
        QVERIFY(ini::store(path, "a/b", std::nullopt));
        QVERIFY(!ini::read(path, "a/b"));
    }

    void store_keepsThePermissions()
    {
        write("a=1\n");
        QCOMPARE(::chmod(QFile::encodeName(path), 0644), 0);
        QVERIFY(ini::store(path, "a", QStringList("2")));
        struct stat status = {};
        QCOMPARE(::stat(QFile::encodeName(path), &status), 0);
        QCOMPARE(int(status.st_mode & 0777), 0644);
        QCOMPARE(contents(), QByteArray("a=2\n"));
    }

    void store_throughALink_changesTheFileBehindIt()
    {
        write("a=1\n");
        const QString link = folder->filePath(QStringLiteral("link.ini"));
        QVERIFY(QFile::link(path, link));
        QVERIFY(ini::store(link, "a", QStringList("2")));
        QVERIFY(QFileInfo(link).isSymLink());
        QCOMPARE(contents(), QByteArray("a=2\n"));
    }

    void store_ofWhatIsThere_leavesTheFileAlone()
    {
        write("a=1\n");
        struct stat before = {};
        struct stat after = {};
        QCOMPARE(::stat(QFile::encodeName(path), &before), 0);
        QVERIFY(ini::store(path, "a", QStringList("1")));
        QCOMPARE(::stat(QFile::encodeName(path), &after), 0);
        QCOMPARE(after.st_ino, before.st_ino);
    }

    void fileBeyondTheLimit_isNeitherReadNorWritten()
    {
        const QByteArray text = "a=1\nb=" + QByteArray(int(ini::kLargestBytes), 'x');
        write(text);
        QVERIFY(!ini::read(path, "a"));
        QVERIFY(!ini::store(path, "a", QStringList("2")));
        QVERIFY(contents() == text);
    }

    void unreadableFile_isNotWritten()
    {
        write("a=1\n");
        const UnprivilegedUser user({folder->path(), QFileInfo(path).path(), path});
        if (!user.canReach(path))
            QSKIP("root cannot step down here");
        QVERIFY(QFile::setPermissions(path, QFile::WriteOwner));
        QVERIFY(!ini::read(path, "a"));
        QVERIFY(!ini::store(path, "a", QStringList("2")));
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
        QCOMPARE(contents(), QByteArray("a=1\n"));
    }

private:
    void write(const QByteArray &text) const
    {
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(text), text.size());
    }

    QByteArray contents() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::unique_ptr<QTemporaryDir> folder;
    QString path;
};

QTEST_GUILESS_MAIN(TestIniFile)
#include "tst_ini_file.moc"
