#include "BracketArrangement.h"

#include <QtTest>

using Place = BracketArrangement::Place;

namespace {

/// Two brackets, abc and DEF, and the loose shots x, which was taken between them, and y.
BracketArrangement arrangement()
{
    const auto shots = [](const char *names, int second) {
        BracketArrangement::Shots made;
        for (const char *name = names; *name; ++name) {
            Shot shot;
            shot.path = QLatin1Char(*name);
            shot.takenAt = QDateTime(QDate(2024, 5, 4), QTime(10, 0, second++), Qt::UTC);
            made.push_back(shot);
        }
        return made;
    };
    return {{shots("abc", 0), shots("DEF", 10)}, shots("xy", 5)};
}

QString textOf(const BracketArrangement::Shots &shots)
{
    QString text;
    for (const Shot &shot : shots)
        text += shot.path;
    return text;
}

/// "abc DEF | xy"
QString textOf(const BracketArrangement &arranged)
{
    QString text;
    for (int i = 0; i < arranged.bracketCount(); ++i)
        text += textOf(arranged.shotsOf(i)) + QLatin1Char(' ');
    return text + QStringLiteral("| ") + textOf(arranged.shotsOf(arranged.bracketCount()));
}

} // namespace

class TestBracketArrangement : public QObject
{
    Q_OBJECT

private slots:
    void joined_shotsAreOneBracketInTheOrderTaken_data();
    void joined_shotsAreOneBracketInTheOrderTaken();
    void canJoin_needsTwoPlaces();
    void split_makesTwoBrackets_data();
    void split_makesTwoBrackets();
    void canSplit_needsAShotBefore();
    void arrangeAs_before_isThatAgain_data();
    void arrangeAs_before_isThatAgain();
    void shotsWithoutATime_standInOrderOfTheirNames();
    void empty_hasNothing();
};

void TestBracketArrangement::joined_shotsAreOneBracketInTheOrderTaken_data()
{
    QTest::addColumn<QList<Place>>("places");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("made");
    const QList<Place> abc{{0, 0}, {0, 1}, {0, 2}};
    const QList<Place> def{{1, 0}, {1, 1}, {1, 2}};
    QTest::newRow("two brackets") << abc + def << QStringLiteral("abcDEF | xy") << 0;
    QTest::newRow("in any order") << def + abc << QStringLiteral("abcDEF | xy") << 0;
    QTest::newRow("a bracket and a loose shot, taken before it")
        << def + QList<Place>{{2, 0}} << QStringLiteral("abc xDEF | y") << 1;
    QTest::newRow("loose shots") << QList<Place>{{2, 1}, {2, 0}} << QStringLiteral("abc DEF xy | ")
                                 << 2;
    QTest::newRow("parts of brackets, one dissolves")
        << QList<Place>{{0, 1}, {0, 2}, {1, 0}} << QStringLiteral("bcD EF | axy") << 0;
    QTest::newRow("all but one of the other")
        << QList<Place>{{0, 0}, {1, 2}, {1, 1}} << QStringLiteral("aEF bc | xyD") << 0;
    QTest::newRow("all") << abc + def + QList<Place>{{2, 0}, {2, 1}}
                         << QStringLiteral("abcxyDEF | ") << 0;
}

void TestBracketArrangement::joined_shotsAreOneBracketInTheOrderTaken()
{
    QFETCH(QList<Place>, places);
    BracketArrangement arranged = arrangement();
    QVERIFY(arranged.canJoin(places));
    QTEST(arranged.join(places), "made");
    QTEST(textOf(arranged), "expected");
}

void TestBracketArrangement::canJoin_needsTwoPlaces()
{
    const BracketArrangement arranged = arrangement();
    QVERIFY(!arranged.canJoin({}));
    QVERIFY(!arranged.canJoin({{0, 0}, {0, 1}}));
    QVERIFY(!arranged.canJoin({{2, 0}}));
    QVERIFY(arranged.canJoin({{0, 0}, {1, 0}}));
    QVERIFY(arranged.canJoin({{2, 0}, {2, 1}}));
}

void TestBracketArrangement::split_makesTwoBrackets_data()
{
    QTest::addColumn<int>("shot");
    QTest::addColumn<QString>("expected");
    QTest::newRow("second: the first is left alone") << 1 << QStringLiteral("bcdef | axy");
    QTest::newRow("third") << 2 << QStringLiteral("ab cdef | xy");
    QTest::newRow("last: it is left alone") << 5 << QStringLiteral("abcde | xyf");
}

void TestBracketArrangement::split_makesTwoBrackets()
{
    QFETCH(int, shot);
    BracketArrangement arranged = arrangement();
    arranged.join({{0, 0}, {0, 1}, {0, 2}, {1, 0}, {1, 1}, {1, 2}});
    QVERIFY(arranged.canSplit({0, shot}));
    arranged.split({0, shot});
    QTEST(textOf(arranged).toLower(), "expected");
}

void TestBracketArrangement::canSplit_needsAShotBefore()
{
    const BracketArrangement arranged = arrangement();
    QVERIFY(!arranged.canSplit({0, 0}));
    QVERIFY(arranged.canSplit({1, 1}));
    QVERIFY(!arranged.canSplit({2, 1}));
}

void TestBracketArrangement::arrangeAs_before_isThatAgain_data()
{
    QTest::addColumn<QStringList>("groups");
    QTest::addColumn<QString>("loose");
    QTest::addColumn<QString>("expected");
    QTest::newRow("nothing") << QStringList() << QString() << QStringLiteral("abc DEF | xy");
    QTest::newRow("joined") << QStringList{"abcDEF"} << QString() << QStringLiteral("abcDEF | xy");
    QTest::newRow("of loose ones")
        << QStringList{"xy"} << QString() << QStringLiteral("abc xy DEF | ");
    QTest::newRow("taken apart") << QStringList() << QStringLiteral("abc")
                                 << QStringLiteral("DEF | abcxy");
    QTest::newRow("what is new stays")
        << QStringList{"aD"} << QString() << QStringLiteral("aD bc EF | xy");
    QTest::newRow("gone") << QStringList{"abQ", "QR", "cQ"} << QStringLiteral("Z")
                          << QStringLiteral("ab DEF | cxy");
}

void TestBracketArrangement::arrangeAs_before_isThatAgain()
{
    QFETCH(QStringList, groups);
    QFETCH(QString, loose);
    const auto paths = [](const QString &names) {
        return names.split(QString(), Qt::SkipEmptyParts);
    };
    QList<QStringList> pathsOf;
    for (const QString &group : groups)
        pathsOf += paths(group);
    BracketArrangement arranged = arrangement();
    arranged.arrangeAs(pathsOf, paths(loose));
    QTEST(textOf(arranged), "expected");
}

void TestBracketArrangement::shotsWithoutATime_standInOrderOfTheirNames()
{
    BracketArrangement::Shots shots(3);
    shots[0].path = QStringLiteral("i10");
    shots[1].path = QStringLiteral("i9");
    shots[2].path = QStringLiteral("i1");
    BracketArrangement arranged({}, shots);
    QCOMPARE(arranged.join({{0, 0}, {0, 1}, {0, 2}}), 0);
    QCOMPARE(textOf(arranged), QStringLiteral("i1i9i10 | "));
}

void TestBracketArrangement::empty_hasNothing()
{
    const BracketArrangement arranged;
    QCOMPARE(arranged.bracketCount(), 0);
    QVERIFY(arranged.shotsOf(0).empty());
}

QTEST_APPLESS_MAIN(TestBracketArrangement)
#include "tst_BracketArrangement.moc"
