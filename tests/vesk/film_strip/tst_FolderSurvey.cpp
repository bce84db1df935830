#include "FolderSurvey.h"
#include "TestPictures.h"

#include <picture_rating.h>

#include <QSignalSpy>
#include <QTest>

Q_DECLARE_METATYPE(FolderNotes)

class TestFolderSurvey : public QObject
{
    Q_OBJECT

private slots:
    void init() { pictures = std::make_unique<TestPictures>(); }
    void of_twoBrackets_areFoundByTimeWithTheirStops();
    void of_result_isKnownByItsMarkAndInNoBracket();
    void of_stars_areRead();
    void of_pictureWithoutData_hasANote();
    void start_twice_answersForTheLastOnly();
    void cancelled_endsWithoutBrackets();

private:
    FolderNotes notes() const
    {
        const std::atomic<bool> never{false};
        return survey::of(pictures->folder(), pictures::inFolder(pictures->folder()), never);
    }

    std::unique_ptr<TestPictures> pictures;
};

void TestFolderSurvey::of_twoBrackets_areFoundByTimeWithTheirStops()
{
    const QStringList later = pictures->addCameraBracket(QStringLiteral("a"), 3, 30);
    const QStringList sooner = pictures->addCameraBracket(QStringLiteral("b"), 5, 0);
    const FolderNotes found = notes();
    QCOMPARE(found.brackets, (QList<QStringList>{sooner, later}));
    QCOMPARE(found.pictures.value(later.at(0)).bracket, 1);
    QCOMPARE(found.pictures.value(later.at(0)).stops.value_or(9), -1.0);
    QCOMPARE(found.pictures.value(later.at(1)).stops.value_or(9), 0.0);
    QCOMPARE(found.pictures.value(sooner.at(4)).stops.value_or(9), 2.0);
    QCOMPARE(found.pictures.value(sooner.at(0)).shot.iso, 100);
}

void TestFolderSurvey::of_result_isKnownByItsMarkAndInNoBracket()
{
    const QStringList bracket = pictures->addCameraBracket(QStringLiteral("a"), 3);
    const QString result = pictures->addResult(QStringLiteral("a0 merged.jpg"), bracket);
    const FolderNotes found = notes();
    QCOMPARE(found.brackets, QList<QStringList>{bracket});
    QCOMPARE(found.pictures.value(result).mark.value_or(ResultMark()).sources.size(), 3);
    QCOMPARE(found.pictures.value(result).bracket, -1);
    QVERIFY(!found.pictures.value(bracket.first()).mark);
}

void TestFolderSurvey::of_stars_areRead()
{
    const QString path = pictures->add(QStringLiteral("a.png"));
    QCOMPARE(rating::write(path, 3), QString());
    QCOMPARE(notes().pictures.value(path).stars, 3);
}

void TestFolderSurvey::of_pictureWithoutData_hasANote()
{
    const QString path = pictures->addDamaged(QStringLiteral("a.png"));
    const FolderNotes found = notes();
    QVERIFY(found.pictures.contains(path));
    QVERIFY(found.brackets.isEmpty());
}

void TestFolderSurvey::start_twice_answersForTheLastOnly()
{
    const TestPictures other;
    pictures->addCameraBracket(QStringLiteral("a"), 3);
    const QStringList second = other.addCameraBracket(QStringLiteral("b"), 4);
    FolderSurvey survey;
    QList<QList<QStringList>> answers;
    connect(&survey, &FolderSurvey::ready, this,
            [&](const FolderNotes &found) { answers += found.brackets; });
    survey.start(pictures->folder(), pictures::inFolder(pictures->folder()));
    survey.start(other.folder(), pictures::inFolder(other.folder()));
    QTRY_VERIFY(!answers.isEmpty());
    QCOMPARE(answers, QList<QList<QStringList>>{QList<QStringList>{second}});
}

void TestFolderSurvey::cancelled_endsWithoutBrackets()
{
    pictures->addCameraBracket(QStringLiteral("a"), 3);
    const std::atomic<bool> cancelled{true};
    const FolderNotes found =
        survey::of(pictures->folder(), pictures::inFolder(pictures->folder()), cancelled);
    QVERIFY(found.brackets.isEmpty());
}

QTEST_GUILESS_MAIN(TestFolderSurvey)
#include "tst_FolderSurvey.moc"
