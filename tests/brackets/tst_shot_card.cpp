#include "SceneComparison.h"
#include "ShotCard.h"
#include "card_files.h"
#include "folder_shots.h"

#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QStringList pathsOf(const Bracket &bracket)
{
    QStringList paths;
    for (const Shot &shot : bracket.shots)
        paths += shot.path;
    return paths;
}

struct Score
{
    int right = 0;
    int lost = 0;
    int wrongWithoutWarning = 0;
    QMap<QString, int> lostPatterns;
};

/// A merge is wrong when its shots belong to two brackets, or some to none.
bool isWrong(const QStringList &paths, const QHash<QString, int> &bracketOf)
{
    QSet<int> brackets;
    for (const QString &path : paths)
        brackets += bracketOf.value(path, -1);
    return brackets.size() > 1 || brackets.contains(-1);
}

Score scoreOf(const ShotCard &card, const Grouping &grouping)
{
    Score score;
    QHash<QString, int> bracketOf;
    for (size_t i = 0; i < card.brackets.size(); ++i) {
        for (const QString &path : card.brackets[i])
            bracketOf.insert(path, int(i));
    }
    QSet<QStringList> found;
    for (const Bracket &bracket : grouping.brackets) {
        const QStringList paths = pathsOf(bracket);
        found += paths;
        if (isWrong(paths, bracketOf) && bracket.warnings.isEmpty()) {
            ++score.wrongWithoutWarning;
            ++score.lostPatterns["wrong: " + card.patternOf.value(paths.first())];
        }
    }
    for (const QStringList &bracket : card.brackets) {
        const bool isFound = found.contains(bracket);
        ++(isFound ? score.right : score.lost);
        if (!isFound)
            ++score.lostPatterns[card.patternOf.value(bracket.first())];
    }
    return score;
}

QString describe(const Score &score)
{
    QString text = QStringLiteral("%1 right, %2 lost, %3 wrong without a warning")
                       .arg(score.right)
                       .arg(score.lost)
                       .arg(score.wrongWithoutWarning);
    for (auto pattern = score.lostPatterns.cbegin(); pattern != score.lostPatterns.cend();
         ++pattern)
        text += QStringLiteral("\n  %1: %2").arg(pattern.key()).arg(pattern.value());
    return text;
}

} // namespace

class TestShotCard : public QObject
{
    Q_OBJECT

private slots:
    void patterns_areManyAndFillTheCard()
    {
        QVERIFY(ShotCard::patternCount() >= 40);
        ShotCard card(1, ShotCard::Clock::Exact);
        card.fill(2000);
        QVERIFY(card.shots.size() >= 2000);
        QVERIFY(card.brackets.size() > 250);
    }

    void card_brackets_areFound_data()
    {
        QTest::addColumn<int>("clock");
        QTest::addColumn<bool>("withPictures");
        const auto row = [](const char *name, ShotCard::Clock clock, bool withPictures) {
            QTest::newRow(name) << int(clock) << withPictures;
        };
        row("exact clock", ShotCard::Clock::Exact, true);
        row("whole seconds", ShotCard::Clock::WholeSeconds, true);
        row("clock set back", ShotCard::Clock::SetBackInBetween, true);
        row("whole minutes", ShotCard::Clock::WholeMinutes, true);
        row("exact clock, no pictures to look at", ShotCard::Clock::Exact, false);
    }

    void card_brackets_areFound()
    {
        QFETCH(const int, clock);
        QFETCH(const bool, withPictures);
        for (const quint32 seed : {1u, 2u, 3u}) {
            ShotCard card(seed, ShotCard::Clock(clock));
            card.fill(2000);
            const auto compare = [&card](const Shot &one, const Shot &other) {
                return card.compare(one, other);
            };
            const Grouping grouping = withPictures ? brackets::find(card.shots, {}, compare)
                                                   : brackets::find(card.shots, {});
            const Score score = scoreOf(card, grouping);
            const QString told = describe(score);
            qInfo("seed %u: %s", seed, qPrintable(told));
            // Exposures that go on where the scene changes can only be seen.
            const double least = withPictures ? 0.99 : 0.94;
            QVERIFY2(score.right >= least * (score.right + score.lost), qPrintable(told));
            QVERIFY2(score.wrongWithoutWarning == 0, qPrintable(told));
        }
    }

    /// Through files, headers and pictures.
    void cardOfFiles_brackets_areFound()
    {
        const QTemporaryDir folder;
        ShotCard card(11, ShotCard::Clock::Exact);
        card.fill(600);
        QVERIFY(card_files::write(card, folder.path()));
        const std::vector<Shot> shots =
            brackets::readFolder(folder.path(), {}, [](const QString &path, const QString &reason) {
                QFAIL(qPrintable(path + ": " + reason));
            });
        SceneComparison scenes;
        Grouping grouping =
            brackets::find(shots, {}, [&scenes](const Shot &one, const Shot &other) {
                return scenes.compare(one, other);
            });
        for (Bracket &bracket : grouping.brackets) {
            for (Shot &shot : bracket.shots)
                shot.path = "/card/" + QFileInfo(shot.path).fileName();
        }
        const Score score = scoreOf(card, grouping);
        const QString told = describe(score);
        qInfo("%s", qPrintable(told));
        QVERIFY2(score.right >= 0.99 * (score.right + score.lost), qPrintable(told));
        QVERIFY2(score.wrongWithoutWarning == 0, qPrintable(told));
    }

    void card_eachShot_standsInOnePlace()
    {
        ShotCard card(7, ShotCard::Clock::WholeSeconds);
        card.fill(1000);
        const Grouping grouping = brackets::find(card.shots, {});
        QMap<QString, int> places;
        for (const Bracket &bracket : grouping.brackets) {
            for (const Shot &shot : bracket.shots)
                ++places[shot.path];
        }
        for (const LeftOver &left : grouping.leftOver) {
            ++places[left.shot.path];
            QVERIFY(!left.reason.isEmpty());
        }
        QCOMPARE(places.size(), qsizetype(card.shots.size()));
        QVERIFY(std::all_of(places.cbegin(), places.cend(), [](int count) { return count == 1; }));
    }
};

QTEST_GUILESS_MAIN(TestShotCard)
#include "tst_shot_card.moc"
