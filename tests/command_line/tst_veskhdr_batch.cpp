#include "PhotoFolder.h"
#include "ProgramRun.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

namespace {

/// Three shots at this second, "name_0.jpg" and so on.
void writeBracket(const PhotoFolder &photos, const QString &name, double second)
{
    for (int i = 0; i < 3; ++i)
        photos.writeShot(QStringLiteral("%1_%2.jpg").arg(name).arg(i), 2 * i - 2, second + i / 4.0,
                         {40, 30});
}

ProgramRun batchIn(const PhotoFolder &photos, const QStringList &words = {})
{
    return runProgramIn(photos.path(), QStringList({"batch", "in", "-o", "out", "--json"}) + words);
}

/// How often each status was told.
QMap<QString, int> statusesOf(const ProgramRun &run)
{
    QMap<QString, int> counts;
    for (const QByteArray &line : linesOf(run.output))
        ++counts[QJsonDocument::fromJson(line).object().value("status").toString()];
    return counts;
}

using Counts = QMap<QString, int>;

QStringList resultsIn(const PhotoFolder &photos)
{
    QStringList names = QDir(photos.path("out")).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    names.removeAll("veskhdr-batch.jsonl");
    return names;
}

} // namespace

class TestBatch : public QObject
{
    Q_OBJECT

private slots:
    void brackets_areMergedAndNamed()
    {
        const PhotoFolder photos;
        writeBracket(photos, "in/a", 0);
        writeBracket(photos, "in/b", 100);
        photos.writeShot("in/single.jpg", 0, 300);
        const ProgramRun run = batchIn(photos, {"--jobs", "1"}); // told in this order
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(statusesOf(run), Counts({{"merged", 2}}));
        QCOMPARE(resultsIn(photos), QStringList({"2026-06-21T120000_a_0_merged.jpg",
                                                 "2026-06-21T120140_b_0_merged.jpg"}));
        QVERIFY(run.errors.contains("single.jpg: left out, "));
        const QJsonObject told = QJsonDocument::fromJson(linesOf(run.output)[0]).object();
        QCOMPARE(told.value("output").toString(), QString("out/2026-06-21T120000_a_0_merged.jpg"));
        QCOMPARE(told.value("pictures").toArray().size(), 3);
        QCOMPARE(told.value("exitCode").toInt(), 0);
        QCOMPARE(told.value("warnings").toArray().size(), 0);
    }

    void pattern_namesTheResults()
    {
        const PhotoFolder photos;
        writeBracket(photos, "in/a", 0);
        QCOMPARE(batchIn(photos, {"--name", "{folder}-{first}-{last}-{count}.png"}).exitCode, 0);
        QCOMPARE(resultsIn(photos), QStringList("in-a_0-a_2-3.png"));
    }

    void dryRun_changesNothing()
    {
        const PhotoFolder photos;
        writeBracket(photos, "in/a", 0);
        const ProgramRun run = batchIn(photos, {"--dry-run"});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(statusesOf(run), Counts({{"planned", 1}}));
        QVERIFY(!QDir(photos.path("out")).exists());
    }

    void secondRun_doesWhatIsMissingAlone()
    {
        const PhotoFolder photos;
        writeBracket(photos, "in/a", 0);
        writeBracket(photos, "in/b", 100);
        QCOMPARE(batchIn(photos).exitCode, 0);
        QVERIFY(QFile::remove(photos.path("out/2026-06-21T120140_b_0_merged.jpg")));
        QCOMPARE(statusesOf(batchIn(photos)), Counts({{"merged", 1}, {"unchanged", 1}}));
        QCOMPARE(statusesOf(batchIn(photos)), Counts({{"unchanged", 2}}));
    }

    void changedPictureOrOption_isMergedAnew()
    {
        const PhotoFolder photos;
        writeBracket(photos, "in/a", 0);
        QCOMPARE(batchIn(photos).exitCode, 0);
        QCOMPARE(statusesOf(batchIn(photos, {"--", "--no-align"})), Counts({{"merged", 1}}));
        QCOMPARE(statusesOf(batchIn(photos, {"--", "--no-align"})), Counts({{"unchanged", 1}}));
        QFile shot(photos.path("in/a_1.jpg"));
        QVERIFY(shot.open(QIODevice::ReadWrite));
        QVERIFY(shot.setFileTime(QDateTime::currentDateTime().addSecs(60),
                                 QFileDevice::FileModificationTime));
        shot.close();
        QCOMPARE(statusesOf(batchIn(photos, {"--", "--no-align"})), Counts({{"merged", 1}}));
    }

    void otherFileInThePlace_isNeverReplaced()
    {
        const PhotoFolder photos;
        writeBracket(photos, "in/a", 0);
        photos.write("out/2026-06-21T120000_a_0_merged.jpg", "A letter.");
        const ProgramRun run = batchIn(photos, {"--", "--force"});
        QCOMPARE(run.exitCode, 73);
        QCOMPARE(statusesOf(run), Counts({{"failed", 1}}));
        QVERIFY(run.errors.contains("no result of veskhdr"));
        QFile file(photos.path("out/2026-06-21T120000_a_0_merged.jpg"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("A letter."));
    }

    void damagedBracket_isNamedAndOthersAreMerged()
    {
        const PhotoFolder photos;
        writeBracket(photos, "in/a", 0);
        writeBracket(photos, "in/b", 100);
        QFile shot(photos.path("in/a_1.jpg"));
        QVERIFY(shot.open(QIODevice::ReadWrite));
        QVERIFY(shot.resize(shot.size() - 6)); // not all pixels are there
        shot.close();
        const ProgramRun run = batchIn(photos);
        QCOMPARE(run.exitCode, 65);
        QCOMPARE(statusesOf(run), Counts({{"failed", 1}, {"merged", 1}}));
        QVERIFY(run.errors.contains("a_1.jpg: "));
        QCOMPARE(resultsIn(photos), QStringList("2026-06-21T120140_b_0_merged.jpg"));
    }

    void twoBracketsOfOneName_areNotMixed()
    {
        const PhotoFolder photos;
        writeBracket(photos, "in/x/a", 0);
        writeBracket(photos, "in/y/a", 0);
        const ProgramRun run = batchIn(photos, {"--recursive"});
        QCOMPARE(run.exitCode, 73);
        QCOMPARE(statusesOf(run), Counts({{"failed", 1}, {"merged", 1}}));
        QVERIFY(run.errors.contains("another bracket has this name"));
        const ProgramRun apart = batchIn(photos, {"--recursive", "--name", "{folder}_{first}.jpg"});
        QCOMPARE(apart.exitCode, 0);
        QCOMPARE(statusesOf(apart), Counts({{"merged", 2}}));
    }

    void resultsAmongThePictures_areNoPictures()
    {
        const PhotoFolder photos;
        writeBracket(photos, "in/a", 0);
        const QStringList words{"batch", "in", "-o", "in", "--json"};
        QCOMPARE(statusesOf(runProgramIn(photos.path(), words)), Counts({{"merged", 1}}));
        QCOMPARE(statusesOf(runProgramIn(photos.path(), words)), Counts({{"unchanged", 1}}));
    }

    void otherMethod_isMadeAnew()
    {
        const PhotoFolder photos;
        writeBracket(photos, "in/a", 0);
        QCOMPARE(statusesOf(batchIn(photos, {"--", "--no-align"})), Counts({{"merged", 1}}));
        const QStringList mean{"--", "--no-align", "--method", "mean"};
        QCOMPARE(statusesOf(batchIn(photos, mean)), Counts({{"merged", 1}}));
        QCOMPARE(statusesOf(batchIn(photos, mean)), Counts({{"unchanged", 1}}));
    }

    void shards_shareTheWork()
    {
        const PhotoFolder photos;
        for (int i = 0; i < 9; ++i)
            writeBracket(photos, QStringLiteral("in/b%1").arg(i), 100 * i);
        int merged = 0;
        for (int part = 1; part <= 3; ++part) {
            const QString shard = QStringLiteral("%1/3").arg(part);
            const Counts counts = statusesOf(batchIn(photos, {"--shard", shard}));
            QCOMPARE(counts.value("unchanged"), 0);
            QVERIFY2(counts.value("merged") < 9, "one part does all");
            merged += counts.value("merged");
            QCOMPARE(statusesOf(batchIn(photos, {"--shard", shard})).value("merged"), 0);
        }
        QCOMPARE(merged, 9);
        QCOMPARE(statusesOf(batchIn(photos)), Counts({{"unchanged", 9}}));
    }

    /// At the same time on one folder, and one of them dies: the next run does the rest.
    void shardThatDies_isMadeUpFor()
    {
        const PhotoFolder photos;
        for (int i = 0; i < 8; ++i)
            writeBracket(photos, QStringLiteral("in/b%1").arg(i), 100 * i);
        std::vector<std::unique_ptr<Program>> programs;
        for (int part = 1; part <= 3; ++part) {
            programs.push_back(std::make_unique<Program>());
            programs.back()->setWorkingDirectory(photos.path());
            programs.back()->setArguments(
                {"batch", "in", "-o", "out", "--shard", QStringLiteral("%1/3").arg(part)});
            programs.back()->start();
        }
        QVERIFY(programs[0]->waitForStarted());
        programs[0]->kill();
        for (const auto &program : programs)
            QVERIFY(program->waitForFinished());
        QCOMPARE(programs[1]->exitCode(), 0);
        QCOMPARE(programs[2]->exitCode(), 0);
        QCOMPARE(batchIn(photos).exitCode, 0);
        QCOMPARE(resultsIn(photos).size(), 8);
        QCOMPARE(statusesOf(batchIn(photos)), Counts({{"unchanged", 8}}));
    }

    void wrongOptions_areRefused_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::newRow("no folder") << QStringList({"batch", "-o", "out"});
        QTest::newRow("no output") << QStringList({"batch", "in"});
        QTest::newRow("shard is no part")
            << QStringList({"batch", "in", "-o", "out", "--shard", "4/3"});
        QTest::newRow("shard of nothing")
            << QStringList({"batch", "in", "-o", "out", "--shard", "2"});
        QTest::newRow("unknown format")
            << QStringList({"batch", "in", "-o", "out", "--name", "{first}.gif"});
        QTest::newRow("name with a folder")
            << QStringList({"batch", "in", "-o", "out", "--name", "x/{first}.jpg"});
        QTest::newRow("unknown option of merge")
            << QStringList({"batch", "in", "-o", "out", "--", "--fast"});
        QTest::newRow("picture behind --")
            << QStringList({"batch", "in", "-o", "out", "--", "a.jpg"});
        QTest::newRow("wrong gap") << QStringList({"batch", "in", "-o", "out", "--gap", "x"});
    }

    void wrongOptions_areRefused()
    {
        QFETCH(const QStringList, words);
        const PhotoFolder photos;
        writeBracket(photos, "in/a", 0);
        const ProgramRun run = runProgramIn(photos.path(), words);
        QCOMPARE(run.exitCode, 64);
        QVERIFY(run.errors.startsWith("veskhdr: batch: "));
        QVERIFY(!QDir(photos.path("out")).exists());
    }

    void missingFolder_isNamedAndOthersAreMerged()
    {
        const PhotoFolder photos;
        writeBracket(photos, "in/a", 0);
        const ProgramRun run = batchIn(photos, {"missing"});
        QCOMPARE(run.exitCode, 66);
        QCOMPARE(statusesOf(run), Counts({{"merged", 1}}));
    }
};

QTEST_GUILESS_MAIN(TestBatch)
#include "tst_veskhdr_batch.moc"
