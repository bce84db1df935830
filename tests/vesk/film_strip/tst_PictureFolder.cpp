#include "PictureFolder.h"
#include "TestPictures.h"
#include "picture_kinds.h"

#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

class TestPictureFolder : public QObject
{
    Q_OBJECT

private slots:
    void inFolder_sortsNumbersByValueAndLeavesOtherFilesOut();
    void inFolder_derivedPicture_standsBehindItsOriginal();
    void inFolder_picturesThatQtDoesNotRead_areListed();
    void inFolder_missingFolder_isEmpty();
    void setPath_listsLaterAndAgainAfterAChange();
    void setPath_twice_answersForTheLastOnly();
};

static QStringList namesOf(const QList<FolderEntry> &entries)
{
    QStringList names;
    for (const FolderEntry &entry : entries)
        names.append(QFileInfo(entry.path).fileName());
    return names;
}

void TestPictureFolder::inFolder_sortsNumbersByValueAndLeavesOtherFilesOut()
{
    const TestPictures pictures;
    for (const char *name : {"10.png", "2.PNG", "1.jpg"})
        pictures.add(QLatin1String(name));
    QFile text(pictures.path(QStringLiteral("notes.txt")));
    QVERIFY(text.open(QIODevice::WriteOnly));
    QVERIFY(QDir(pictures.folder()).mkdir(QStringLiteral("folder.png")));
    QCOMPARE(
        namesOf(pictures::inFolder(pictures.folder())),
        (QStringList{QStringLiteral("1.jpg"), QStringLiteral("2.PNG"), QStringLiteral("10.png")}));
}

void TestPictureFolder::inFolder_derivedPicture_standsBehindItsOriginal()
{
    const TestPictures pictures;
    for (const char *name : {"IMG_3 merged.jpg", "IMG_3.png", "IMG_3.jpg", "IMG_4.jpg"})
        pictures.add(QLatin1String(name));
    QCOMPARE(namesOf(pictures::inFolder(pictures.folder())),
             (QStringList{QStringLiteral("IMG_3.jpg"), QStringLiteral("IMG_3.png"),
                          QStringLiteral("IMG_3 merged.jpg"), QStringLiteral("IMG_4.jpg")}));
}

void TestPictureFolder::inFolder_picturesThatQtDoesNotRead_areListed()
{
    const TestPictures pictures;
    QStringList expected{QStringLiteral("a.hdr")};
#ifdef VESK_WITH_AVIF
    expected += QStringLiteral("b.AVIF");
#endif
#ifdef VESK_WITH_OPENEXR
    expected += QStringLiteral("c.exr");
#endif
#ifdef VESK_WITH_JXL
    expected += QStringLiteral("d.jxl");
#endif
    for (const QString &name : std::as_const(expected)) {
        QFile file(pictures.path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(pictures::dialogPatterns().split(u' ').contains(u'*' + name.mid(1)));
    }
    QCOMPARE(namesOf(pictures::inFolder(pictures.folder())), expected);
}

void TestPictureFolder::inFolder_missingFolder_isEmpty()
{
    QVERIFY(pictures::inFolder(QStringLiteral("/no/such/folder")).isEmpty());
}

void TestPictureFolder::setPath_listsLaterAndAgainAfterAChange()
{
    const TestPictures pictures;
    pictures.add(QStringLiteral("a.png"));
    PictureFolder folder;
    QStringList names;
    connect(&folder, &PictureFolder::listed, this,
            [&](const QList<FolderEntry> &entries) { names = namesOf(entries); });
    folder.setPath(pictures.folder());
    QVERIFY(names.isEmpty());
    QTRY_COMPARE(names, QStringList{QStringLiteral("a.png")});
    pictures.add(QStringLiteral("b.png"));
    QTRY_COMPARE(names, (QStringList{QStringLiteral("a.png"), QStringLiteral("b.png")}));
}

void TestPictureFolder::setPath_twice_answersForTheLastOnly()
{
    const TestPictures first;
    const TestPictures second;
    first.add(QStringLiteral("first.png"));
    second.add(QStringLiteral("second.png"));
    PictureFolder folder;
    QList<QStringList> answers;
    connect(&folder, &PictureFolder::listed, this,
            [&](const QList<FolderEntry> &entries) { answers.append(namesOf(entries)); });
    folder.setPath(first.folder());
    folder.setPath(second.folder());
    QTRY_VERIFY(!answers.isEmpty());
    QCOMPARE(answers, QList<QStringList>{QStringList{QStringLiteral("second.png")}});
}

QTEST_GUILESS_MAIN(TestPictureFolder)
#include "tst_PictureFolder.moc"
