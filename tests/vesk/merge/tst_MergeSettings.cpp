#include "MergeSettings.h"

#include <QtTest>

class TestMergeSettings : public QObject
{
    Q_OBJECT

private slots:
    void strokes_goThroughTheMark();
    void strokes_tooLongForAMark_areLeftOut();
    void strokes_ofADamagedMark_areNone();
    void otherStrokes_areAnotherMerge();
    void followOrder_namesTheSameShots();
    void optionsFor_anotherSize_scalesTheStrokes();
};

namespace {

const QStringList kPaths{QStringLiteral("/f/a.png"), QStringLiteral("/f/b.png"),
                         QStringLiteral("/f/c.png")};

MergeSettings painted()
{
    MergeSettings settings;
    settings.options.crop = true;
    settings.options.reference = 1;
    settings.strokes = {
        {2, 40, {{100, 80}, {120, 90}}}, {brush::kErase, 7, {{110, 85}}}, {0, 0, {{50, 60}}}};
    return settings;
}

} // namespace

void TestMergeSettings::strokes_goThroughTheMark()
{
    const MergeSettings settings = painted();
    const QString words = settings.asOptions(kPaths);
    QVERIFY2(words.endsWith(QStringLiteral("--paint 3:40:100,80,20,10+0:7:110,85+1@50,60")),
             qPrintable(words));
    const MergeSettings read = MergeSettings::fromMark(settings.methodWord(), words, kPaths);
    QVERIFY(read.strokes == settings.strokes);
    QCOMPARE(read.options.reference, 1);
    QVERIFY(read.options.crop);
}

void TestMergeSettings::strokes_tooLongForAMark_areLeftOut()
{
    MergeSettings settings = painted();
    for (int i = 0; i < 20000; ++i)
        settings.strokes[0].points.push_back({i, i});
    QVERIFY(!settings.asOptions(kPaths).contains(QStringLiteral("--paint")));
}

void TestMergeSettings::strokes_ofADamagedMark_areNone()
{
    const auto read = MergeSettings::fromMark(QStringLiteral("fusion"),
                                              QStringLiteral("--paint 3:40:100 --crop"), kPaths);
    QVERIFY(read.strokes.empty());
    QVERIFY(read.options.crop);
}

void TestMergeSettings::otherStrokes_areAnotherMerge()
{
    MergeSettings other = painted();
    QVERIFY(other.isSameButLook(painted()));
    other.strokes[0].points[0] += QPoint(1, 0);
    QVERIFY(!other.isSameButLook(painted()));
}

void TestMergeSettings::followOrder_namesTheSameShots()
{
    MergeSettings settings = painted();
    settings.options.ghostReference = 0;
    settings.followOrder({kPaths[2], kPaths[0], kPaths[1]}, kPaths);
    QCOMPARE(settings.options.reference, 0);
    QCOMPARE(settings.options.ghostReference, 2);
    QCOMPARE(settings.strokes[0].shot, 1);
    QCOMPARE(settings.strokes[1].shot, brush::kErase);
    QCOMPARE(settings.strokes[2].shot, 2);
}

void TestMergeSettings::optionsFor_anotherSize_scalesTheStrokes()
{
    MergeSettings settings = painted();
    settings.strokes.pop_back();
    settings.strokes.pop_back();
    settings.paintedOn = {400, 200};
    const exposure::Options half = settings.optionsFor({200, 100});
    QCOMPARE(half.takes.size(), size_t(1));
    QCOMPARE(half.takes[0].shot, 2);
    QCOMPARE(half.takes[0].mask.size(), QSize(200, 100));
    QCOMPARE(int(half.takes[0].mask.constScanLine(40)[50]), 255);
    QCOMPARE(int(half.takes[0].mask.constScanLine(40)[50 - 21]), 0);
    QCOMPARE(int(settings.optionsFor({400, 200}).takes[0].mask.constScanLine(80)[100 - 39]), 255);
}

QTEST_GUILESS_MAIN(TestMergeSettings)
#include "tst_MergeSettings.moc"
