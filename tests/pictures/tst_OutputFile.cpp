#include "OutputFile.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

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

    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

private slots:
    void cleanup() { QFile::remove(target()); }

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

    void observer_hearsOfTheTemporaryNameBeforeAndAfter()
    {
        QStringList names;
        {
            OutputFile output(target(), false, [&](const QString &name) {
                QVERIFY(name.isEmpty() || !QFile::exists(name));
                names << name;
            });
            QVERIFY(output.open());
            QVERIFY(QFile::exists(names.value(0)));
        }
        QCOMPARE(names.size(), 2);
        QCOMPARE(names.last(), QString());
    }
};

QTEST_GUILESS_MAIN(TestOutputFile)
#include "tst_OutputFile.moc"
