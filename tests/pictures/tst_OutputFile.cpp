#include "OutputFile.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

class TestOutputFile : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder;
    QString target() const { return folder.filePath(QStringLiteral("out.bin")); }

    QByteArray content() const
    {
        QFile file(target());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void save(const QByteArray &bytes) const
    {
        QFile file(target());
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    static void saveAt(const QString &path)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("left") == 4);
    }

    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

private slots:
    void cleanup()
    {
        QDir(folder.path()).removeRecursively();
        QVERIFY(QDir().mkdir(folder.path()));
    }

    void publish_givesTheFileItsName()
    {
        OutputFile output(target(), false);
        QVERIFY(output.open());
        QCOMPARE(output.device().write("new"), qint64(3));
        QVERIFY(!QFile::exists(target()));
        QVERIFY(output.publish());
        QCOMPARE(content(), QByteArray("new"));
        QCOMPARE(files().size(), 1);
    }

    void unpublished_leavesNothing()
    {
        {
            OutputFile output(target(), false);
            QVERIFY(output.open());
            output.device().write("new");
            QCOMPARE(files().size(), 1);
        }
        QCOMPARE(files(), QStringList());
    }

    void publish_targetAppearedMeanwhile_isRefused()
    {
        {
            OutputFile output(target(), false);
            QVERIFY(output.open());
            output.device().write("new");
            save("someone else's");
            QVERIFY(!output.publish());
            QVERIFY(output.error() == OutputFile::Error::Exists);
        }
        QCOMPARE(content(), QByteArray("someone else's"));
        QCOMPARE(files().size(), 1);
    }

    void publish_targetAppearedMeanwhile_isReplacedWhenAllowed()
    {
        OutputFile output(target(), true);
        QVERIFY(output.open());
        output.device().write("new");
        save("someone else's");
        QVERIFY(output.publish());
        QCOMPARE(content(), QByteArray("new"));
    }

    void open_danglingLink_isRefusedUnlessAllowed()
    {
        QVERIFY(QFile::link(folder.filePath(QStringLiteral("nowhere")), target()));
        OutputFile output(target(), false);
        QVERIFY(!output.open());
        QVERIFY(output.error() == OutputFile::Error::Exists);
    }

    void observer_hearsOfEachStep()
    {
        using Temporary = OutputFile::Temporary;
        QStringList names;
        QList<Temporary> states;
        {
            OutputFile output(target(), false, [&](const QString &name, Temporary state) {
                QCOMPARE(QFile::exists(name), state == Temporary::There);
                names << name;
                states << state;
            });
            QVERIFY(output.open());
        }
        QCOMPARE(states, QList({Temporary::Coming, Temporary::There, Temporary::Gone}));
        QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), 1);
    }

    void observer_fileCannotBeMade_hearsThatItIsGone()
    {
        using Temporary = OutputFile::Temporary;
        QList<Temporary> states;
        OutputFile output(QStringLiteral("/proc/out.bin"), false,
                          [&](const QString &, Temporary state) { states << state; });
        QVERIFY(!output.open());
        QCOMPARE(states, QList({Temporary::Coming, Temporary::Gone}));
    }

    void open_leftoverOfAKilledWriter_isSwept()
    {
        const QString leftover = folder.filePath(QStringLiteral(".veskhdr-0123456789abcdef.tmp"));
        saveAt(leftover);
        OutputFile output(target(), false);
        QVERIFY(output.open());
        QVERIFY(!QFile::exists(leftover));
    }

    void open_whileAnotherWrites_leavesItsFile()
    {
        OutputFile first(target(), true);
        QVERIFY(first.open());
        OutputFile second(folder.filePath(QStringLiteral("other.bin")), false);
        QVERIFY(second.open());
        QCOMPARE(files().size(), 2);
        first.device().write("first");
        QVERIFY(first.publish());
        QCOMPARE(content(), QByteArray("first"));
    }

    void open_filesOfOtherNamesAndKinds_stay()
    {
        QStringList others;
        for (const char *name :
             {".veskhdr-0123456789abcdeg.tmp", ".veskhdr-0123456789abcdef.tmp2",
              ".veskhdr-0123.tmp", "veskhdr-0123456789abcdef.tmp", ".veskhdr-0123456789ABCDEF.tmp"})
            others << folder.filePath(QLatin1String(name));
        for (const QString &other : std::as_const(others))
            saveAt(other);
        const QString link = folder.filePath(QStringLiteral(".veskhdr-00000000000000aa.tmp"));
        QVERIFY(QFile::link(others.first(), link));
        const QString below = folder.filePath(QStringLiteral(".veskhdr-00000000000000bb.tmp"));
        QVERIFY(QDir().mkdir(below));
        const QByteArray twin =
            QFile::encodeName(folder.filePath(QStringLiteral(".veskhdr-00000000000000cc.tmp")));
        QCOMPARE(::link(QFile::encodeName(others.first()).constData(), twin.constData()), 0);
        {
            OutputFile output(target(), false);
            QVERIFY(output.open());
        }
        for (const QString &other : std::as_const(others))
            QVERIFY2(QFile::exists(other), qPrintable(other));
        QVERIFY(QFileInfo(link).isSymLink() && QFileInfo(below).isDir());
        QVERIFY(QFile::exists(QFile::decodeName(twin)));
    }
};

QTEST_GUILESS_MAIN(TestOutputFile)
#include "tst_OutputFile.moc"
