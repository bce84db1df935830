#include "TestPictures.h"
#include "ThumbnailLoader.h"

#include <QSignalSpy>
#include <QTest>

class TestThumbnailLoader : public QObject
{
    Q_OBJECT

private slots:
    void makeThumbnail_landscape_fitsTheSide();
    void makeThumbnail_smallPicture_isNotEnlarged();
    void makeThumbnail_damagedFile_isNull();
    void makeThumbnail_thinPicture_isNotEmpty();
    void request_answersWithItsNumber();
    void request_lastAskedComesFirst();
    void dropWaiting_dropsWhatHasNotStarted();

private:
    std::atomic<bool> cancelled{false};
    TestPictures pictures;
};

void TestThumbnailLoader::makeThumbnail_landscape_fitsTheSide()
{
    const QString path = pictures.add(QStringLiteral("landscape.jpg"), {800, 400});
    QCOMPARE(thumbnail::make(path, 100, cancelled).size(), QSize(100, 50));
}

void TestThumbnailLoader::makeThumbnail_smallPicture_isNotEnlarged()
{
    const QString path = pictures.add(QStringLiteral("small.png"), {30, 20});
    QCOMPARE(thumbnail::make(path, 100, cancelled).size(), QSize(30, 20));
}

void TestThumbnailLoader::makeThumbnail_damagedFile_isNull()
{
    QFile file(pictures.path(QStringLiteral("text.jpg")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("no picture");
    file.close();
    QVERIFY(thumbnail::make(file.fileName(), 100, cancelled).isNull());
}

void TestThumbnailLoader::makeThumbnail_thinPicture_isNotEmpty()
{
    const QString path = pictures.add(QStringLiteral("thin.jpg"), {2000, 1});
    const QImage small = thumbnail::make(path, 100, cancelled);
    QCOMPARE(small.width(), 100);
    QCOMPARE(small.height(), 1);
}

void TestThumbnailLoader::request_answersWithItsNumber()
{
    ThumbnailLoader loader(64);
    QSignalSpy ready(&loader, &ThumbnailLoader::ready);
    const int first = loader.request(pictures.add(QStringLiteral("one.png")));
    const int second = loader.request(pictures.path(QStringLiteral("missing.png")));
    QVERIFY(first != 0 && first != second);
    QTRY_COMPARE(ready.size(), 2);
    for (const QList<QVariant> &answer : qAsConst(ready)) {
        const bool isFirst = answer.at(0).toInt() == first;
        QCOMPARE(answer.at(2).value<QImage>().isNull(), !isFirst);
    }
}

void TestThumbnailLoader::request_lastAskedComesFirst()
{
    QStringList paths;
    for (int i = 0; i < 8; ++i)
        paths.append(pictures.add(QStringLiteral("p%1.png").arg(i), {400, 300}, i));
    ThumbnailLoader loader(64);
    QSignalSpy ready(&loader, &ThumbnailLoader::ready);
    for (const QString &path : qAsConst(paths))
        loader.request(path);
    QTRY_COMPARE(ready.size(), 8);
    // The first two start at once; of the others the one asked for first comes last.
    QStringList order;
    for (const QList<QVariant> &answer : qAsConst(ready))
        order.append(answer.at(1).toString());
    QVERIFY(order.indexOf(paths.at(7)) < order.indexOf(paths.at(3)));
    QVERIFY(order.indexOf(paths.at(6)) < order.indexOf(paths.at(2)));
}

void TestThumbnailLoader::dropWaiting_dropsWhatHasNotStarted()
{
    const QString path = pictures.add(QStringLiteral("dropped.png"), {400, 300});
    ThumbnailLoader loader(64);
    QSignalSpy ready(&loader, &ThumbnailLoader::ready);
    for (int i = 0; i < 10; ++i)
        loader.request(path);
    loader.dropWaiting();
    const int later = loader.request(path);
    QTRY_VERIFY(!ready.isEmpty() && ready.size() == 3); // two had started
    QStringList numbers;
    for (const QList<QVariant> &answer : qAsConst(ready))
        numbers.append(answer.at(0).toString());
    QVERIFY(numbers.contains(QString::number(later)));
}

QTEST_GUILESS_MAIN(TestThumbnailLoader)
#include "tst_ThumbnailLoader.moc"
