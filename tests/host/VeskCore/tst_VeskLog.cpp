#include <VeskLog.h>

#include "SmallDisk.h"

#include <QtTest>

#include <thread>
#include <vector>

namespace {

QString backup(int number)
{
    return VeskLog::filePath() + QLatin1Char('.') + QString::number(number);
}

QByteArray contents(const QString &path = VeskLog::filePath())
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What follows the time stamp.
QList<QByteArray> entries(const QByteArray &log)
{
    QList<QByteArray> texts;
    for (const QByteArray &line : log.split('\n'))
        if (!line.isEmpty())
            texts.append(line.mid(line.indexOf(' ') + 1));
    return texts;
}

/// Texts "THREAD-NUMBER FILLER".
void logFromThreads(int threadCount, int entriesEach, const QByteArray &filler)
{
    std::vector<std::thread> threads;
    threads.reserve(static_cast<size_t>(threadCount));
    for (int thread = 0; thread < threadCount; ++thread)
        threads.emplace_back([thread, entriesEach, &filler] {
            for (int i = 0; i < entriesEach; ++i)
                VeskLog::Instance()->Log("%d-%d %s\n", thread, i, filler.constData());
        });
    for (std::thread &thread : threads)
        thread.join();
}

} // namespace

class TestVeskLog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // The entries of these tests are of no interest on the terminal.
        QLoggingCategory::setFilterRules(QStringLiteral("vesk.host=false"));
    }

    void init() { QDir(QFileInfo(VeskLog::filePath()).path()).removeRecursively(); }

    void instance_isAlwaysTheSame() { QCOMPARE(VeskLog::Instance(), VeskLog::Instance()); }

    void log_writesTimeStampAndTextAsItIs()
    {
        VeskLog::Instance()->Log("HDR \n");
        const QRegularExpression form(
            QStringLiteral("^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}Z HDR \n$"));
        QVERIFY2(form.match(QString::fromUtf8(contents())).hasMatch(), contents().constData());
    }

    void log_formatsAsPrintfDoes()
    {
        VeskLog::Instance()->Log("%s %d %05.1f %%", "\xC3\xBC", 42, 2.5);
        QCOMPARE(entries(contents()), QList<QByteArray>{"\xC3\xBC 42 002.5 %"});
    }

    void log_addsMissingLineBreak()
    {
        VeskLog::Instance()->Log("one");
        VeskLog::Instance()->Log("two\n");
        QCOMPARE(entries(contents()), (QList<QByteArray>{"one", "two"}));
    }

    void log_longText_isNotCut()
    {
        const QByteArray text(100000, 'x');
        VeskLog::Instance()->Log("%s", text.constData());
        QCOMPARE(entries(contents()), QList<QByteArray>{text});
    }

    void log_reachesTheLoggingCategory()
    {
        QLoggingCategory::setFilterRules(QStringLiteral("vesk.host=true"));
        QTest::ignoreMessage(QtInfoMsg, "removeContext tool");
        VeskLog::Instance()->Log("removeContext tool \n");
        QLoggingCategory::setFilterRules(QStringLiteral("vesk.host=false"));
    }

    void fullFile_rotatesAndKeepsTwo()
    {
        const QByteArray text(VeskLog::kMaximumFileSize * 2 / 3, 'x');
        for (int i = 0; i < 5; ++i)
            VeskLog::Instance()->Log("%d%s", i, text.constData());
        QCOMPARE(entries(contents()).value(0).left(1), QByteArray("4"));
        QCOMPARE(entries(contents(backup(1))).value(0).left(1), QByteArray("3"));
        QCOMPARE(entries(contents(backup(2))).value(0).left(1), QByteArray("2"));
        QVERIFY(!QFile::exists(backup(3)));
        QVERIFY(QFileInfo(VeskLog::filePath()).size() <= VeskLog::kMaximumFileSize);
    }

    void severalThreads_everyEntryWhole()
    {
        logFromThreads(4, 100, QByteArray());
        const QList<QByteArray> written = entries(contents());
        QCOMPARE(written.size(), 400);
        for (int thread = 0; thread < 4; ++thread)
            for (int i = 0; i < 100; ++i)
                QVERIFY(written.contains(QStringLiteral("%1-%2 ").arg(thread).arg(i).toLatin1()));
    }

    void severalThreads_rotateOneAfterTheOther()
    {
        // Every entry needs a file of its own.
        const QByteArray filler(VeskLog::kMaximumFileSize * 2 / 3, '.');
        for (int round = 0; round < 5; ++round) {
            logFromThreads(4, 4, filler);
            for (const QString &path : {VeskLog::filePath(), backup(1), backup(2)})
                QCOMPARE(entries(contents(path)).size(), 1);
        }
    }

    void fullDisk_keepsWhatIsThereAndGoesOnWhenThereIsRoom()
    {
        const SmallDisk disk(QStringLiteral("size=16k"));
        if (!disk.isMounted())
            QSKIP("no disk can be mounted here");
        const QByteArray usualFolder = qgetenv("XDG_DATA_HOME");
        qputenv("XDG_DATA_HOME", QFile::encodeName(disk.path()));
        const QByteArray page(4096, '.');
        VeskLog::Instance()->Log("before");
        QFile ballast(disk.path() + QStringLiteral("/ballast"));
        QVERIFY(ballast.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        while (ballast.write(page) == page.size()) {
        }
        // The rest of the log's own page has room for a part of this entry.
        VeskLog::Instance()->Log("%s", page.constData());
        QVERIFY(ballast.remove());
        VeskLog::Instance()->Log("after");
        const QList<QByteArray> written = entries(contents());
        qputenv("XDG_DATA_HOME", usualFolder);
        QCOMPARE(written, (QList<QByteArray>{"before", "after"}));
    }

    void deviceThatIsFull_isLeftOut()
    {
        if (!QFile::exists(QStringLiteral("/dev/full")))
            QSKIP("there is no device that is always full");
        QVERIFY(QDir().mkpath(QFileInfo(VeskLog::filePath()).path()));
        QVERIFY(QFile::link(QStringLiteral("/dev/full"), VeskLog::filePath()));
        VeskLog::Instance()->Log("lost\n");
        QVERIFY(QFileInfo(VeskLog::filePath()).isSymLink());
    }

    void unwritableFile_isLeftOut()
    {
        // A folder where the file should be.
        QVERIFY(QDir().mkpath(VeskLog::filePath()));
        VeskLog::Instance()->Log("lost\n");
        QVERIFY(QFileInfo(VeskLog::filePath()).isDir());
    }
};

QTEST_GUILESS_MAIN(TestVeskLog)
#include "tst_VeskLog.moc"
