// A batch whose editor is killed, and goes on when the editor is started again.

#include "TestPictures.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

namespace {

constexpr int kPatienceMs = 120000;
constexpr int kBrackets = 8;

/// The window that merges, in a process of its own.
class Victim
{
public:
    explicit Victim(const QString &folder)
    {
        process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/batch_victim"),
                      {folder});
    }
    ~Victim() { kill(); }

    bool waitForLine(const QByteArray &line, int times)
    {
        while (count(line) < times && process.waitForReadyRead(kPatienceMs))
            lines += process.readAllStandardOutput();
        return count(line) >= times;
    }
    bool waitForEnd()
    {
        const bool isOver = process.waitForFinished(kPatienceMs);
        lines += process.readAllStandardOutput();
        return isOver && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    }
    void kill()
    {
        process.kill();
        process.waitForFinished();
        lines += process.readAllStandardOutput();
    }
    int count(const QByteArray &line) const { return int(lines.split('\n').count(line)); }
    QByteArray lastLine() const { return lines.trimmed().split('\n').last(); }

private:
    QProcess process;
    QByteArray lines;
};

} // namespace

class TestBatchKilled : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void editorKilled_goesOnAndMakesEachBracketOnce_data();
    void editorKilled_goesOnAndMakesEachBracketOnce();

private:
    QStringList files() const;
    QStringList results() const;
    QHash<QString, QDateTime> times() const;
    QHash<QString, int> recordsPerResult() const;

    std::unique_ptr<TestPictures> pictures;
};

void TestBatchKilled::initTestCase()
{
    qputenv("PATH", qgetenv("VESK_BIN_DIR") + ':' + qgetenv("PATH"));
}

QStringList TestBatchKilled::files() const
{
    return QDir(pictures->path(QStringLiteral("merged")))
        .entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
}

QStringList TestBatchKilled::results() const
{
    return files().filter(QRegularExpression(QStringLiteral("^[^.].* merged\\.jpg$")));
}

QHash<QString, QDateTime> TestBatchKilled::times() const
{
    QHash<QString, QDateTime> found;
    for (const QString &name : results())
        found.insert(name,
                     QFileInfo(pictures->path(QStringLiteral("merged/") + name)).lastModified());
    return found;
}

QHash<QString, int> TestBatchKilled::recordsPerResult() const
{
    QHash<QString, int> records;
    QFile log(pictures->path(QStringLiteral("merged/veskhdr-batch.jsonl")));
    if (log.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : log.readAll().trimmed().split('\n'))
            ++records[QJsonDocument::fromJson(line).object().value("output").toString()];
    }
    return records;
}

void TestBatchKilled::editorKilled_goesOnAndMakesEachBracketOnce_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("times");
    QTest::newRow("while the first is merged") << QByteArray("merging") << 1;
    QTest::newRow("right behind the second") << QByteArray("merged") << 2;
    QTest::newRow("while the sixth is merged") << QByteArray("merging") << 6;
}

void TestBatchKilled::editorKilled_goesOnAndMakesEachBracketOnce()
{
    QFETCH(QByteArray, line);
    QFETCH(int, times);
    pictures = std::make_unique<TestPictures>();
    for (int i = 0; i < kBrackets; ++i)
        pictures->addCameraBracket(QStringLiteral("k%1_").arg(i), 3, i, {160, 120});
    Victim victim(pictures->folder());
    QVERIFY(victim.waitForLine(line, times));
    victim.kill();
    QVERIFY(victim.count("merged") < kBrackets);
    // Its merge ends with it, and leaves nothing half-written.
    QTRY_VERIFY_WITH_TIMEOUT(files().filter(QStringLiteral(".tmp")).isEmpty(), kPatienceMs);
    const QHash<QString, QDateTime> before = this->times();
    QVERIFY(before.size() >= victim.count("merged"));

    Victim second(pictures->folder());
    QVERIFY(second.waitForEnd());
    const int rest = kBrackets - int(before.size());
    QCOMPARE(second.lastLine(), QStringLiteral("%1 merged, %2 done already, 0 failed, 0 stopped")
                                    .arg(rest)
                                    .arg(before.size())
                                    .toLocal8Bit());
    QCOMPARE(second.count("merged"), rest);
    QCOMPARE(results().size(), kBrackets);
    const QHash<QString, QDateTime> after = this->times();
    for (auto result = before.cbegin(); result != before.cend(); ++result)
        QCOMPARE(after.value(result.key()), result.value());
    const QHash<QString, int> records = recordsPerResult();
    for (auto record = records.cbegin(); record != records.cend(); ++record)
        QVERIFY2(record.value() == 1, qPrintable(record.key()));
}

QTEST_GUILESS_MAIN(TestBatchKilled)
#include "tst_batch_killed.moc"
