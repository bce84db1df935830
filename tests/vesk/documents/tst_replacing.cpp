#include "DocumentSaver.h"
#include "FileDialogAnswerer.h"
#include "LoadedPicture.h"
#include "MessageBoxAnswerer.h"
#include "TestPictures.h"
#include "picture_document.h"

#include <VeskContext.h>
#include <picture_writer.h>

#include <QFileInfo>
#include <QTest>

/// What is asked before a document's own file is replaced.
class TestReplacing : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void save_fileChangedElsewhere_isNotReplacedUnasked();
    void save_fileChangedElsewhere_replacedWhenTheUserAgrees();
    void save_fileChangedElsewhere_goesToAnotherPlace();
    void save_fileThatHasGone_isWrittenAgain();
    void save_gainMap_asksOnceBeforeItIsLost();

private:
    void makeDocument(const QString &path);
    QImage load(const QString &name) const
    {
        return QImage(pictures->path(name)).convertToFormat(QImage::Format_RGB32);
    }

    std::unique_ptr<TestPictures> pictures;
    std::unique_ptr<QWidget> window;
    std::unique_ptr<VeskContext> document;
    std::unique_ptr<MessageBoxAnswerer> boxes;
    std::unique_ptr<FileDialogAnswerer> dialogs;
    DocumentSaver *saver = nullptr;
    const QImage shown = TestPictures::texture({60, 40}, 2);
    const std::atomic<bool> neverCancelled{false};
};

void TestReplacing::init()
{
    pictures = std::make_unique<TestPictures>();
    window = std::make_unique<QWidget>();
    boxes = std::make_unique<MessageBoxAnswerer>();
    dialogs = std::make_unique<FileDialogAnswerer>();
    saver = new DocumentSaver(window.get());
}

void TestReplacing::cleanup()
{
    document.reset();
    window.reset();
    boxes.reset();
    dialogs.reset();
}

/// A modified document of that file.
void TestReplacing::makeDocument(const QString &path)
{
    document.reset(document::create(shown, QFileInfo(path).fileName(), path, window.get()));
    document->setSaveAble(true);
}

void TestReplacing::save_fileChangedElsewhere_isNotReplacedUnasked()
{
    const QString path = pictures->add(QStringLiteral("own.png"), {10, 10}, 1);
    makeDocument(path);
    document::setFileStamp(*document, FileStamp::of(path));
    pictures->add(QStringLiteral("own.png"), {30, 30}, 7); // another program
    boxes->answerNextWith(QMessageBox::Cancel);
    QVERIFY(!saver->save(document.get()));
    QCOMPARE(boxes->shown().size(), 1);
    QCOMPARE(load(QStringLiteral("own.png")).size(), QSize(30, 30));
    QVERIFY(document->isSaveAble());
}

void TestReplacing::save_fileChangedElsewhere_replacedWhenTheUserAgrees()
{
    const QString path = pictures->add(QStringLiteral("own.png"), {10, 10}, 1);
    makeDocument(path);
    document::setFileStamp(*document, FileStamp::of(path));
    QVERIFY(saver->save(document.get())); // nobody has changed it
    QVERIFY(boxes->shown().isEmpty());
    document->setSaveAble(true);
    QVERIFY(saver->save(document.get())); // but for the editor itself
    QVERIFY(boxes->shown().isEmpty());
    pictures->add(QStringLiteral("own.png"), {30, 30}, 7);
    document->setSaveAble(true);
    boxes->answerNextWith(QMessageBox::Yes);
    QVERIFY(saver->save(document.get()));
    QCOMPARE(load(QStringLiteral("own.png")), shown);
    QCOMPARE(boxes->shown().size(), 1);
}

void TestReplacing::save_fileChangedElsewhere_goesToAnotherPlace()
{
    const QString path = pictures->add(QStringLiteral("own.png"), {10, 10}, 1);
    makeDocument(path);
    document::setFileStamp(*document, FileStamp::of(path));
    pictures->add(QStringLiteral("own.png"), {30, 30}, 7);
    dialogs->answerNextWith(pictures->path(QStringLiteral("mine.png"))); // the default is Save As
    QVERIFY(saver->save(document.get()));
    QCOMPARE(load(QStringLiteral("own.png")).size(), QSize(30, 30));
    QCOMPARE(load(QStringLiteral("mine.png")), shown);
}

void TestReplacing::save_fileThatHasGone_isWrittenAgain()
{
    const QString path = pictures->add(QStringLiteral("own.png"), {10, 10}, 1);
    makeDocument(path);
    document::setFileStamp(*document, FileStamp::of(path));
    QFile::remove(path);
    QVERIFY(saver->save(document.get()));
    QVERIFY(boxes->shown().isEmpty());
    QCOMPARE(load(QStringLiteral("own.png")), shown);
}

void TestReplacing::save_gainMap_asksOnceBeforeItIsLost()
{
    const QString path = pictures->path(QStringLiteral("bright.jpg"));
    WriteOptions options;
    options.gainMap.picture = QImage(8, 8, QImage::Format_RGB32);
    options.gainMap.picture.fill(Qt::gray);
    QCOMPARE(picture::write(shown, path, PictureFormat::Jpeg, options).reason, QString());
    const LoadedPicture read = loadPicture(path, neverCancelled);
    QVERIFY(read.hasGainMap);
    QVERIFY(read.stamp == FileStamp::of(path));
    QVERIFY(!loadPicture(pictures->add(QStringLiteral("a.jpg")), neverCancelled).hasGainMap);
    makeDocument(path);
    document::setGainMapInFile(*document, true);
    boxes->answerNextWith(QMessageBox::Cancel);
    QVERIFY(!saver->save(document.get()));
    QVERIFY(loadPicture(path, neverCancelled).hasGainMap);
    QVERIFY(boxes->shown().constFirst().text.contains(QLatin1String("gain map")));
    boxes->answerNextWith(QMessageBox::Yes);
    QVERIFY(saver->save(document.get()));
    QVERIFY(!loadPicture(path, neverCancelled).hasGainMap);
    document->setSaveAble(true);
    QVERIFY(saver->save(document.get()));
    QCOMPARE(boxes->shown().size(), 2); // it is gone: nothing to ask
}

QTEST_MAIN(TestReplacing)
#include "tst_replacing.moc"
