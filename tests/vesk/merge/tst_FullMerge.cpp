#include "FullMerge.h"
#include "TestPictures.h"

#include <QFile>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

/// A merge gives the same picture whatever was made ahead of it.
class TestFullMerge : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void start_withoutAnything_merges();
    void start_afterOneAhead_givesTheSamePicture();
    void start_whileOneIsUnderWay_waitsForIt();
    void start_whileOneOfOthersIsUnderWay_mergesItself();
    void start_whileOneFails_tellsWhy();
    void cancel_whileWaiting_tellsNothing();
    void ask_ahead_isMadeOnce();
    void ask_nowAfterAhead_doesNotWaitForThat();

private:
    static constexpr int kPatienceMs = 60000;

    MergeResult merged(FullMerge &full);
    QImage alone();
    void startAhead();

    std::unique_ptr<TestPictures> pictures;
    QStringList paths;
    MergeSettings settings;
    std::unique_ptr<SharpMerge> sharp;
};

void TestFullMerge::init()
{
    pictures = std::make_unique<TestPictures>();
    paths = pictures->addBracket(3, {640, 480});
    settings = {};
    settings.options.adjustment.exposure = 0.5;
    sharp = std::make_unique<SharpMerge>();
}

MergeResult TestFullMerge::merged(FullMerge &full)
{
    MergeResult got;
    bool isDone = false;
    QObject context;
    connect(&full, &FullMerge::finished, &context, [&](const MergeResult &result) {
        got = result;
        isDone = true;
    });
    full.start(paths, settings);
    return QTest::qWaitFor([&] { return isDone; }, kPatienceMs) ? got : MergeResult();
}

QImage TestFullMerge::alone()
{
    SharpMerge nothing;
    FullMerge full(nothing);
    return merged(full).picture;
}

/// Returns once the work is under way.
void TestFullMerge::startAhead()
{
    sharp->ask(paths, settings, SharpMerge::Need::Ahead);
    QVERIFY(!sharp->isRunningFor(paths, settings));
    QVERIFY(QTest::qWaitFor([&] { return sharp->isRunningFor(paths, settings); }, kPatienceMs));
}

void TestFullMerge::start_withoutAnything_merges()
{
    FullMerge full(*sharp);
    const MergeResult result = merged(full);
    QVERIFY2(!result.picture.isNull(), qPrintable(result.problem));
    QCOMPARE(result.picture.size(), QSize(640, 480));
    QVERIFY(!full.isRunning());
}

void TestFullMerge::start_afterOneAhead_givesTheSamePicture()
{
    FullMerge full(*sharp);
    QSignalSpy ready(sharp.get(), &SharpMerge::ready);
    startAhead();
    QVERIFY(ready.wait(kPatienceMs));
    QVERIFY(sharp->keptFor(paths, settings));
    for (const QString &path : std::as_const(paths))
        QVERIFY(QFile::remove(path)); // nothing of them is read again
    const MergeResult result = merged(full);
    QVERIFY2(!result.picture.isNull(), qPrintable(result.problem));
    init();
    QCOMPARE(result.picture, alone());
}

void TestFullMerge::start_whileOneIsUnderWay_waitsForIt()
{
    FullMerge full(*sharp);
    QSignalSpy ready(sharp.get(), &SharpMerge::ready);
    startAhead();
    const MergeResult result = merged(full);
    QCOMPARE(ready.count(), 1);
    QCOMPARE(result.picture, alone());
}

void TestFullMerge::start_whileOneOfOthersIsUnderWay_mergesItself()
{
    FullMerge full(*sharp);
    startAhead();
    QSignalSpy ready(sharp.get(), &SharpMerge::ready);
    settings.options.ghosts = exposure::Ghosts::Keep;
    const MergeResult result = merged(full);
    QCOMPARE(ready.count(), 0);
    QCOMPARE(result.picture, alone());
}

void TestFullMerge::start_whileOneFails_tellsWhy()
{
    FullMerge full(*sharp);
    const QString damaged = pictures->addDamaged(QStringLiteral("damaged.png"));
    paths.append(damaged);
    startAhead();
    const MergeResult result = merged(full);
    QVERIFY(result.picture.isNull());
    QVERIFY(result.problem.contains(QStringLiteral("damaged.png")));
    QVERIFY(!full.isRunning());
}

void TestFullMerge::cancel_whileWaiting_tellsNothing()
{
    FullMerge full(*sharp);
    QSignalSpy finished(&full, &FullMerge::finished);
    startAhead();
    full.start(paths, settings);
    QVERIFY(full.isRunning());
    full.cancel();
    QVERIFY(!full.isRunning());
    QVERIFY(!sharp->isUnderWay());
    QVERIFY(!finished.wait(300));
    QVERIFY(!merged(full).picture.isNull());
}

void TestFullMerge::ask_ahead_isMadeOnce()
{
    QSignalSpy ready(sharp.get(), &SharpMerge::ready);
    startAhead();
    sharp->ask(paths, settings, SharpMerge::Need::Ahead);
    settings.options.adjustment.exposure = 1; // looks do not count
    sharp->ask(paths, settings, SharpMerge::Need::Ahead);
    QVERIFY(ready.wait(kPatienceMs));
    sharp->ask(paths, settings, SharpMerge::Need::Ahead);
    QVERIFY(!sharp->isUnderWay());
    QCOMPARE(ready.count(), 1);
}

void TestFullMerge::ask_nowAfterAhead_doesNotWaitForThat()
{
    SharpMerge patient;
    patient.ask(paths, settings, SharpMerge::Need::Ahead);
    sharp->ask(paths, settings, SharpMerge::Need::Ahead);
    sharp->ask(paths, settings, SharpMerge::Need::Now);
    sharp->ask(paths, settings, SharpMerge::Need::Ahead); // takes nothing back
    QVERIFY(QTest::qWaitFor([&] { return sharp->isRunningFor(paths, settings); }, kPatienceMs));
    QVERIFY(!patient.isRunningFor(paths, settings));
}

QTEST_MAIN(TestFullMerge)
#include "tst_FullMerge.moc"
