#include "DocumentLoader.h"
#include "TestPictures.h"

#include <VeskGlobalSettings.h>

#include <QSignalSpy>
#include <QTest>

class TestDocumentLoader : public QObject
{
    Q_OBJECT

private slots:
    void load_severalFiles_answersInOrderWithPixels();
    void load_damagedAndMissing_areListedOnceAtTheEndAndBlockNothing();
    void load_wrongSuffix_isReadByContent();
    void load_morePixelsThanTheSettingsAllow_isRefused();
    void load_doesNotWorkInTheCall();
    void load_whileBusy_joinsTheBatch();
    void destroyed_whileReading_isSafe();

private:
    TestPictures pictures;
};

void TestDocumentLoader::load_severalFiles_answersInOrderWithPixels()
{
    const QStringList paths{pictures.add(QStringLiteral("b.png"), {30, 20}, 1),
                            pictures.add(QStringLiteral("a.png"), {31, 21}, 2)};
    DocumentLoader loader;
    QList<LoadedPicture> answers;
    connect(&loader, &DocumentLoader::loaded, this,
            [&](const LoadedPicture &picture) { answers.append(picture); });
    QSignalSpy started(&loader, &DocumentLoader::started);
    QSignalSpy finished(&loader, &DocumentLoader::finished);
    loader.load(paths);
    QVERIFY(loader.isBusy());
    QVERIFY(finished.wait());
    QVERIFY(!loader.isBusy());
    QCOMPARE(answers.size(), 2);
    QCOMPARE(answers.at(0).path, paths.at(0));
    QCOMPARE(answers.at(1).image.convertToFormat(QImage::Format_RGB32),
             TestPictures::texture({31, 21}, 2));
    QCOMPARE(started.size(), 2);
    QCOMPARE(started.at(1).at(1).toInt(), 2); // the second ...
    QCOMPARE(started.at(1).at(2).toInt(), 2); // ... of two
}

void TestDocumentLoader::load_damagedAndMissing_areListedOnceAtTheEndAndBlockNothing()
{
    const QString damaged = pictures.addDamaged(QStringLiteral("damaged.png"));
    const QString missing = pictures.path(QStringLiteral("missing.png"));
    const QString good = pictures.add(QStringLiteral("good.png"));
    DocumentLoader loader;
    QStringList opened;
    QList<LoadedPicture> failures;
    connect(&loader, &DocumentLoader::loaded, this, [&](const LoadedPicture &picture) {
        if (!picture.image.isNull())
            opened.append(picture.path);
    });
    connect(&loader, &DocumentLoader::finished, this,
            [&](const QList<LoadedPicture> &failed) { failures = failed; });
    QSignalSpy finished(&loader, &DocumentLoader::finished);
    loader.load({damaged, missing, good});
    QVERIFY(finished.wait());
    QCOMPARE(opened, QStringList{good});
    QCOMPARE(failures.size(), 2);
    QCOMPARE(failures.at(0).path, damaged);
    QVERIFY(!failures.at(0).problem.isEmpty());
    QVERIFY(failures.at(0).problem != failures.at(1).problem);

    loader.load({good});
    QVERIFY(finished.wait());
    QVERIFY(failures.isEmpty()); // told only once
}

void TestDocumentLoader::load_wrongSuffix_isReadByContent()
{
    const QString path = pictures.path(QStringLiteral("really_a_png.jpg"));
    QVERIFY(TestPictures::texture({20, 10}, 3).save(path, "PNG"));
    DocumentLoader loader;
    QSize size;
    connect(&loader, &DocumentLoader::loaded, this,
            [&](const LoadedPicture &picture) { size = picture.image.size(); });
    QSignalSpy finished(&loader, &DocumentLoader::finished);
    loader.load({path});
    QVERIFY(finished.wait());
    QCOMPARE(size, QSize(20, 10));
}

void TestDocumentLoader::load_morePixelsThanTheSettingsAllow_isRefused()
{
    const QString limitKey = QStringLiteral("maxMegapixels");
    const QString path = pictures.add(QStringLiteral("wide.png"), {1001, 1000});
    const auto problemOf = [](const QString &file) {
        static const std::atomic<bool> neverCancelled{false};
        return loadPicture(file, neverCancelled).problem;
    };
    VeskGlobalSettings::getInstance()->setValue(limitKey, 1);
    const QString refused = problemOf(path);
    VeskGlobalSettings::getInstance()->setValue(limitKey, QVariant());
    QCOMPARE(refused, QStringLiteral("the picture is too large (1001 x 1000 pixels)"));
    QCOMPARE(problemOf(path), QString());
}

void TestDocumentLoader::load_doesNotWorkInTheCall()
{
    DocumentLoader loader;
    QSignalSpy loaded(&loader, &DocumentLoader::loaded);
    loader.load({pictures.add(QStringLiteral("later.png"))});
    QCOMPARE(loaded.size(), 0); // only from the event loop
    QVERIFY(loaded.wait());
}

void TestDocumentLoader::load_whileBusy_joinsTheBatch()
{
    DocumentLoader loader;
    QSignalSpy started(&loader, &DocumentLoader::started);
    QSignalSpy finished(&loader, &DocumentLoader::finished);
    loader.load({pictures.add(QStringLiteral("first.png"))});
    loader.load({pictures.add(QStringLiteral("second.png"))});
    QVERIFY(finished.wait());
    QCOMPARE(finished.size(), 1);
    QCOMPARE(started.size(), 2);
    QCOMPARE(started.at(1).at(2).toInt(), 2);
}

void TestDocumentLoader::destroyed_whileReading_isSafe()
{
    auto loader = std::make_unique<DocumentLoader>();
    QSignalSpy loaded(loader.get(), &DocumentLoader::loaded);
    loader->load({pictures.add(QStringLiteral("large.png"), {1500, 1000}),
                  pictures.add(QStringLiteral("never.png"))});
    loader.reset();
    QCoreApplication::processEvents(); // the answer must not find its way to a deleted loader
    QCOMPARE(loaded.size(), 0);
}

QTEST_GUILESS_MAIN(TestDocumentLoader)
#include "tst_DocumentLoader.moc"
