#include "DocumentSaver.h"
#include "FileDialogAnswerer.h"
#include "LoadedPicture.h"
#include "MessageBoxAnswerer.h"
#include "SmallDisk.h"
#include "TestPictures.h"
#include "editor_application.h"
#include "editor_settings.h"
#include "picture_document.h"

#include <VeskContext.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureReader.h>
#include <exif_metadata.h>
#include <layer_composition.h>
#include <metadata_reader.h>

#include <QColorSpace>
#include <QDir>
#include <QFileInfo>
#include <QRgba64>
#include <QSignalSpy>
#include <QTest>

#include <sys/resource.h>

namespace {

/// All levels of 16 bits, each once.
QImage deepRamp()
{
    QImage ramp(256, 256, QImage::Format_RGBX64);
    for (int y = 0; y < 256; ++y) {
        auto *row = reinterpret_cast<QRgba64 *>(ramp.scanLine(y));
        for (int x = 0; x < 256; ++x) {
            const auto level = quint16(256 * y + x);
            row[x] =
                QRgba64::fromRgba64(level, quint16(65535 - level), quint16(level ^ 0x5555), 0xFFFF);
        }
    }
    return ramp;
}

} // namespace

class TestDocumentSaver : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void save_ownFile_replacesItAndClearsTheMark();
    void save_untitled_asksForAFile();
    void save_untitled_opensNoNamelessFile();
    void save_transparent_isReopenedToTheBit_data();
    void save_transparent_isReopenedToTheBit();
    void save_transparentAsJpeg_becomesWhiteAndSaysSo();
    void save_opaqueAsJpeg_doesNotSpeakOfTransparency();
    void save_otherKindOfFile_isNeverOverwritten();
    void saveAs_cancelled_changesNothing();
    void saveAs_jpeg_asksForTheQualityAndRemembersIt();
    void saveAs_qualityCancelled_writesNothing();
    void saveAs_withoutSuffix_takesThatOfTheKind();
    void saveAs_otherSuffix_neverReplacesUnasked();
    void saveAs_otherFile_isTheDocumentsFromThenOn();
    void saveAs_deepPicture_offersBothDepths_data();
    void saveAs_deepPicture_offersBothDepths();
    void save_afterSavingWith8Bits_keepsThat();
    void save_keepsTheCamerasMetadata();
    void save_mergedPicture_takesTheMetadataOfItsSource();
    void save_missingFolder_keepsDocumentModifiedAndOffersAnotherPlace();
    void save_fullDisk_leavesTheOldFileAsItWas();
    void save_beyondTheLimitOfFileSizes_failsAndKeepsTheOldFile();
    void save_mergedPicture_keepsProfileAndResolution_data();
    void save_mergedPicture_keepsProfileAndResolution();
    void save_noVisibleLayer_isRefusedAndNoOtherPlaceOffered();
    void settle_unmodified_asksNothing();
    void settle_discard_allowsClosingAndWritesNothing();
    void settle_cancel_keepsTheDocument();
    void settle_saveThatFails_keepsTheDocument();

private:
    VeskContext *makeDocument(const QString &path);
    QImage readBack(const QString &name) const
    {
        return QImage(pictures->path(name)).convertToFormat(QImage::Format_RGB32);
    }

    std::unique_ptr<TestPictures> pictures;
    std::unique_ptr<QWidget> window;
    std::unique_ptr<VeskContext> document;
    std::unique_ptr<MessageBoxAnswerer> boxes;
    std::unique_ptr<FileDialogAnswerer> dialogs;
    DocumentSaver *saver = nullptr;
    const QImage picture = TestPictures::texture({60, 40}, 2);
    const std::atomic<bool> neverCancelled{false};
};

void TestDocumentSaver::init()
{
    pictures = std::make_unique<TestPictures>();
    window = std::make_unique<QWidget>();
    boxes = std::make_unique<MessageBoxAnswerer>();
    dialogs = std::make_unique<FileDialogAnswerer>();
    saver = new DocumentSaver(window.get());
    saver->setFolder(pictures->folder());
}

void TestDocumentSaver::cleanup()
{
    document.reset();
    window.reset();
    boxes.reset();
    dialogs.reset();
}

/// A modified document of that file (empty: none).
VeskContext *TestDocumentSaver::makeDocument(const QString &path)
{
    document.reset(document::create(picture, QFileInfo(path).fileName(), path, window.get()));
    document->setSaveAble(true);
    return document.get();
}

void TestDocumentSaver::save_ownFile_replacesItAndClearsTheMark()
{
    const QString path = pictures->add(QStringLiteral("own.png"), {10, 10}, 1);
    QSignalSpy saved(saver, &DocumentSaver::saved);
    QVERIFY(saver->save(makeDocument(path)));
    QCOMPARE(readBack(QStringLiteral("own.png")), picture);
    QVERIFY(!document->isSaveAble());
    QCOMPARE(saved.size(), 1);
    QVERIFY(dialogs->offered.isEmpty());
    QCOMPARE(pictures->names(), QStringList{QStringLiteral("own.png")}); // no temporary file left
}

void TestDocumentSaver::save_untitled_asksForAFile()
{
    dialogs->answerNextWith(pictures->path(QStringLiteral("new.tif")));
    QVERIFY(saver->save(makeDocument({})));
    QCOMPARE(dialogs->offered, QStringList{pictures->path(QStringLiteral("Untitled.jpg"))});
    QCOMPARE(readBack(QStringLiteral("new.tif")), picture);
    QCOMPARE(document->getFilePath(), pictures->path(QStringLiteral("new.tif")));
    QCOMPARE(document->getFileName(), QStringLiteral("new.tif"));
}

static int namelessOpenings = 0; // what Qt has complained about

void TestDocumentSaver::save_untitled_opensNoNamelessFile()
{
    namelessOpenings = 0;
    const QtMessageHandler before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &text) {
            namelessOpenings += text.contains(QStringLiteral("No file name specified"));
        });
    dialogs->answerNextWith(pictures->path(QStringLiteral("new.png")));
    const bool isSaved = saver->save(makeDocument({}));
    qInstallMessageHandler(before);
    QVERIFY(isSaved);
    QCOMPARE(namelessOpenings, 0);
}

/// Transparent from left to right, in all levels.
static QImage transparentPicture()
{
    QImage image(64, 48, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgba(5 * y, 255 - 5 * y, (x * y) % 256, 4 * x));
    return image;
}

void TestDocumentSaver::save_transparent_isReopenedToTheBit_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QImage::Format>("format"); // of the document's picture
    QTest::newRow("PNG") << "a.png" << QImage::Format_ARGB32;
    QTest::newRow("TIFF") << "a.tif" << QImage::Format_ARGB32;
}

void TestDocumentSaver::save_transparent_isReopenedToTheBit()
{
    QFETCH(QString, name);
    QFETCH(QImage::Format, format);
    const QImage transparent = transparentPicture().convertToFormat(format);
    document.reset(document::create(transparent, {}, {}, window.get()));
    document->setSaveAble(true);
    dialogs->answerNextWith(pictures->path(name));
    QVERIFY(saver->save(document.get()));
    const LoadedPicture reopened = loadPicture(pictures->path(name), neverCancelled);
    QCOMPARE(reopened.image.format(), format);
    QCOMPARE(reopened.image, transparent);
}

void TestDocumentSaver::save_transparentAsJpeg_becomesWhiteAndSaysSo()
{
    document.reset(document::create(transparentPicture(), {}, {}, window.get()));
    document->setSaveAble(true);
    dialogs->quality = 100;
    dialogs->answerNextWith(pictures->path(QStringLiteral("flat.jpg")));
    QVERIFY(saver->save(document.get()));
    const QImage flat(pictures->path(QStringLiteral("flat.jpg")));
    for (int y = 0; y < flat.height(); ++y)
        QVERIFY(qGray(flat.pixel(0, y)) >= 253);
    QVERIFY(dialogs->qualityTexts.join(QString()).contains(QStringLiteral("becomes white")));
}

void TestDocumentSaver::save_opaqueAsJpeg_doesNotSpeakOfTransparency()
{
    dialogs->answerNextWith(pictures->path(QStringLiteral("opaque.jpg")));
    QVERIFY(saver->save(makeDocument({})));
    QVERIFY(!dialogs->qualityTexts.isEmpty());
    QVERIFY(!dialogs->qualityTexts.join(QString()).contains(QStringLiteral("transparen")));
}

void TestDocumentSaver::save_otherKindOfFile_isNeverOverwritten()
{
    const QString raw = pictures->path(QStringLiteral("IMG_1.CR2"));
    QVERIFY(!saver->save(makeDocument(raw))); // the dialog is cancelled
    QCOMPARE(dialogs->offered, QStringList{pictures->path(QStringLiteral("IMG_1.jpg"))});
    QVERIFY(!QFile::exists(raw));
}

void TestDocumentSaver::saveAs_cancelled_changesNothing()
{
    QVERIFY(!saver->saveAs(makeDocument({})));
    QVERIFY(document->isSaveAble());
    QVERIFY(pictures->names().isEmpty());
    QVERIFY(boxes->shown().isEmpty());
}

void TestDocumentSaver::saveAs_jpeg_asksForTheQualityAndRemembersIt()
{
    dialogs->quality = 30;
    dialogs->answerNextWith(pictures->path(QStringLiteral("low.jpg")));
    QVERIFY(saver->saveAs(makeDocument({})));
    QCOMPARE(settings::jpegQuality(), 30);
    dialogs->quality = 98;
    dialogs->answerNextWith(pictures->path(QStringLiteral("high.jpg")));
    QVERIFY(saver->saveAs(document.get()));
    QCOMPARE(dialogs->qualityQuestions, 2);
    QVERIFY(QFileInfo(pictures->path(QStringLiteral("high.jpg"))).size() >
            QFileInfo(pictures->path(QStringLiteral("low.jpg"))).size());
}

void TestDocumentSaver::saveAs_qualityCancelled_writesNothing()
{
    dialogs->quality = -1;
    dialogs->answerNextWith(pictures->path(QStringLiteral("no.jpg")));
    QVERIFY(!saver->saveAs(makeDocument({})));
    QVERIFY(pictures->names().isEmpty());
    QVERIFY(document->isSaveAble());
}

void TestDocumentSaver::saveAs_withoutSuffix_takesThatOfTheKind()
{
    dialogs->answerNextWith(pictures->path(QStringLiteral("bare")));
    QVERIFY(saver->saveAs(makeDocument(pictures->path(QStringLiteral("x.png")))));
    QCOMPARE(pictures->names(), QStringList{QStringLiteral("bare.png")});
}

void TestDocumentSaver::saveAs_otherSuffix_neverReplacesUnasked()
{
    pictures->add(QStringLiteral("x.v2.png"), {5, 5}, 9); // the dialog asks about "x.v2" only
    boxes->answerNextWith(QMessageBox::Close);
    dialogs->answerNextWith(pictures->path(QStringLiteral("x.v2")));
    QVERIFY(!saver->saveAs(makeDocument(pictures->path(QStringLiteral("x.png")))));
    QCOMPARE(readBack(QStringLiteral("x.v2.png")), TestPictures::texture({5, 5}, 9));
    QCOMPARE(boxes->shown().first().title, QStringLiteral("Not Saved"));
    QVERIFY(document->isSaveAble());
}

void TestDocumentSaver::saveAs_otherFile_isTheDocumentsFromThenOn()
{
    const QString first = pictures->add(QStringLiteral("first.png"), {5, 5}, 9);
    dialogs->answerNextWith(pictures->path(QStringLiteral("second.png")));
    QVERIFY(saver->saveAs(makeDocument(first)));
    QCOMPARE(document->getFileName(), QStringLiteral("second.png"));
    document->setSaveAble(true);
    QVERIFY(saver->save(document.get())); // asks for nothing more
    QCOMPARE(dialogs->offered.size(), 1);
    QCOMPARE(readBack(QStringLiteral("first.png")), TestPictures::texture({5, 5}, 9));
}

/// Writes a JPEG with a camera's description.
static QByteArray addCameraPicture(const TestPictures &pictures, const QString &name)
{
    // One entry: the model "Box", little endian.
    const QByteArray exif = QByteArray::fromHex("49492a0008000000"
                                                "0100"
                                                "100102000400000042 6f7800"
                                                "00000000");
    QByteArray file;
    {
        QFile plain(pictures.add(name));
        if (!plain.open(QIODevice::ReadOnly))
            return {};
        file = plain.readAll();
    }
    const int length = exif.size() + 8;
    QByteArray segment = QByteArray::fromHex("ffe1");
    segment.append(char(length >> 8)).append(char(length & 255));
    segment.append(QByteArray("Exif\0\0", 6)).append(exif);
    file.insert(2, segment);
    QFile out(pictures.path(name));
    if (!out.open(QIODevice::WriteOnly) || out.write(file) != file.size())
        return {};
    return exif;
}

void TestDocumentSaver::saveAs_deepPicture_offersBothDepths_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("bits");
    QTest::newRow("png") << "a.png"
                         << "" << 16;
    QTest::newRow("tiff") << "a.tif"
                          << "" << 16;
    QTest::newRow("png, 16 chosen") << "a.png"
                                    << "PNG picture, 16 bits" << 16;
    QTest::newRow("png, 8 chosen") << "a.png"
                                   << "PNG picture, 8 bits" << 8;
    QTest::newRow("tiff, 8 chosen") << "a.tif"
                                    << "TIFF picture, 8 bits" << 8;
    QTest::newRow("tiff, but png with 8 chosen") << "a.tif"
                                                 << "PNG picture, 8 bits" << 16;
    QTest::newRow("no suffix, tiff with 8 chosen") << "a"
                                                   << "TIFF picture, 8 bits" << 8;
    QTest::newRow("jpeg") << "a.jpg"
                          << "" << 8;
}

void TestDocumentSaver::saveAs_deepPicture_offersBothDepths()
{
    QFETCH(QString, name);
    QFETCH(QString, kind);
    QFETCH(int, bits);
    makeDocument({});
    document.reset(document::create(deepRamp(), {}, {}, window.get()));
    dialogs->kind = kind;
    dialogs->answerNextWith(pictures->path(name));
    QVERIFY(saver->saveAs(document.get()));
    const LoadedPicture read = loadPicture(document->getFilePath(), neverCancelled);
    QCOMPARE(composition::bitsPerChannel({{read.image, 1.0}}), bits);
    if (bits == 16)
        QCOMPARE(read.image.convertToFormat(QImage::Format_RGBX64), deepRamp());
    else if (!name.endsWith(QLatin1String("jpg")))
        QCOMPARE(read.image.convertToFormat(QImage::Format_RGB32),
                 deepRamp().convertToFormat(QImage::Format_RGB32));
}

/// The file's depth is the user's choice, until it is made anew.
void TestDocumentSaver::save_afterSavingWith8Bits_keepsThat()
{
    document.reset(document::create(deepRamp(), {}, {}, window.get()));
    dialogs->kind = QStringLiteral("PNG picture, 8 bits");
    dialogs->answerNextWith(pictures->path(QStringLiteral("a.png")));
    QVERIFY(saver->saveAs(document.get()));
    document->setSaveAble(true);
    QVERIFY(saver->save(document.get()));
    const QImage read = loadPicture(document->getFilePath(), neverCancelled).image;
    QCOMPARE(composition::bitsPerChannel({{read, 1.0}}), 8);
}

void TestDocumentSaver::save_keepsTheCamerasMetadata()
{
    QVERIFY(!addCameraPicture(*pictures, QStringLiteral("camera.jpg")).isEmpty());
    QVERIFY(saver->save(makeDocument(pictures->path(QStringLiteral("camera.jpg")))));
    QVERIFY(exif::read(pictures->path(QStringLiteral("camera.jpg"))).block().contains("Box"));
}

void TestDocumentSaver::save_mergedPicture_takesTheMetadataOfItsSource()
{
    addCameraPicture(*pictures, QStringLiteral("first.jpg"));
    document::setMetadataSource(*makeDocument({}), pictures->path(QStringLiteral("first.jpg")));
    document::setResultMark(
        *document, document::markOfMerge(QStringLiteral("mean"), {QStringLiteral("/a/first.jpg")}));
    dialogs->answerNextWith(pictures->path(QStringLiteral("merged.png")));
    QVERIFY(saver->save(document.get()));
    QCOMPARE(dialogs->offered, QStringList{pictures->path(QStringLiteral("first-HDR.jpg"))});
    const Metadata written = metadata::read(pictures->path(QStringLiteral("merged.png")));
    QVERIFY(written.exif.block().contains("Box"));
    const std::optional<ResultMark> mark = result_mark::in(written.xmp);
    QVERIFY(mark);
    QCOMPARE(mark->program, QStringLiteral("vesk"));
    QCOMPARE(mark->sources, QStringList{QStringLiteral("first.jpg")});
}

void TestDocumentSaver::save_missingFolder_keepsDocumentModifiedAndOffersAnotherPlace()
{
    QVERIFY(!saver->save(makeDocument(QStringLiteral("/no/such/folder/x.png"))));
    QVERIFY(document->isSaveAble());
    QCOMPARE(boxes->shown().size(), 1);
    const MessageBoxAnswerer::Box box = boxes->shown().first();
    QCOMPARE(box.title, QStringLiteral("Not Saved"));
    QVERIFY(box.text.contains(QStringLiteral("/no/such/folder/x.png")));
    QVERIFY(box.text.contains(QStringLiteral("no such folder")));
    QCOMPARE(dialogs->offered.size(), 1); // the box's default answer
}

void TestDocumentSaver::save_fullDisk_leavesTheOldFileAsItWas()
{
    const SmallDisk disk(QStringLiteral("size=8k"));
    if (!disk.isMounted())
        QSKIP("no disk can be mounted here");
    const QString path = disk.path() + QStringLiteral("/old.png");
    QVERIFY(TestPictures::texture({8, 8}, 1).save(path));
    document.reset(document::create(TestPictures::texture({300, 200}, 3), QStringLiteral("old.png"),
                                    path, window.get()));
    document->setSaveAble(true);
    QVERIFY(!saver->save(document.get()));
    QCOMPARE(QImage(path).convertToFormat(QImage::Format_RGB32), TestPictures::texture({8, 8}, 1));
    QCOMPARE(QDir(disk.path()).entryList(QDir::Files | QDir::Hidden),
             QStringList{QStringLiteral("old.png")});
    QVERIFY(document->isSaveAble());
    QVERIFY(boxes->shown().first().text.contains(QStringLiteral("No space left")));
}

/// The system would end the program, and unsaved work with it.
void TestDocumentSaver::save_beyondTheLimitOfFileSizes_failsAndKeepsTheOldFile()
{
    workspace::setUpEditor(*qApp);
    const QString path = pictures->add(QStringLiteral("own.png"), {10, 10}, 1);
    struct rlimit before = {};
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const struct rlimit small = {1000, before.rlim_max};
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &small), 0);
    boxes->answerNextWith(QMessageBox::Close);
    const bool isSaved = saver->save(makeDocument(path));
    ::setrlimit(RLIMIT_FSIZE, &before);
    QVERIFY(!isSaved);
    QVERIFY(document->isSaveAble());
    QCOMPARE(readBack(QStringLiteral("own.png")), TestPictures::texture({10, 10}, 1));
    QCOMPARE(pictures->names(), QStringList{QStringLiteral("own.png")});
}

void TestDocumentSaver::save_mergedPicture_keepsProfileAndResolution_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("layers");
    for (const char *name : {"merged.png", "merged.jpg", "merged.tif"}) {
        QTest::addRow("%s", name) << QString::fromLatin1(name) << 1;
        QTest::addRow("%s, two layers", name) << QString::fromLatin1(name) << 2;
    }
}

/// As the tool hands its result to the document.
void TestDocumentSaver::save_mergedPicture_keepsProfileAndResolution()
{
    QFETCH(QString, name);
    QFETCH(int, layers);
    QImage merged = picture;
    merged.setColorSpace(QColorSpace::DisplayP3);
    merged.setDotsPerMeterX(11811); // 300 dpi
    merged.setDotsPerMeterY(11811);
    makeDocument({})->getLayerManager()->removeLayer(0);
    for (int i = 0; i < layers; ++i) {
        auto *layer = new VeskLayer(QStringLiteral("layer"));
        layer->setVeskPictureHost(VeskPictureReader().ReadImageToHost(merged));
        document->getLayerManager()->addLayer(layer, true);
    }
    dialogs->answerNextWith(pictures->path(name));
    QVERIFY(saver->save(document.get()));
    const QImage read = loadPicture(pictures->path(name), neverCancelled).image;
    QCOMPARE(read.colorSpace(), QColorSpace(QColorSpace::DisplayP3));
    QCOMPARE(read.dotsPerMeterX(), 11811);
    QCOMPARE(read.dotsPerMeterY(), 11811);
}

void TestDocumentSaver::save_noVisibleLayer_isRefusedAndNoOtherPlaceOffered()
{
    const QString path = pictures->path(QStringLiteral("x.png"));
    makeDocument(path)->getLayerManager()->layerAt(0)->setVisible(false);
    QVERIFY(!saver->save(document.get()));
    QVERIFY(!saver->saveAs(document.get()));
    QVERIFY(dialogs->offered.isEmpty());
    QCOMPARE(boxes->shown().size(), 2);
    QCOMPARE(boxes->shown().first().standardButtons, QMessageBox::Ok);
    QVERIFY(!QFile::exists(path));
    QVERIFY(boxes->shown().first().text.contains(QStringLiteral("no layer is visible")));
}

void TestDocumentSaver::settle_unmodified_asksNothing()
{
    makeDocument({})->setSaveAble(false);
    QVERIFY(saver->settleUnsavedChanges(document.get()));
    QVERIFY(boxes->shown().isEmpty());
}

void TestDocumentSaver::settle_discard_allowsClosingAndWritesNothing()
{
    boxes->answerNextWith(QMessageBox::Discard);
    QVERIFY(saver->settleUnsavedChanges(makeDocument(pictures->path(QStringLiteral("x.png")))));
    QVERIFY(pictures->names().isEmpty());
    QVERIFY(boxes->shown().first().text.contains(QStringLiteral("x.png")));
}

void TestDocumentSaver::settle_cancel_keepsTheDocument()
{
    boxes->answerNextWith(QMessageBox::Cancel);
    QVERIFY(!saver->settleUnsavedChanges(makeDocument({})));
    QVERIFY(document->isSaveAble());
}

void TestDocumentSaver::settle_saveThatFails_keepsTheDocument()
{
    QVERIFY(!saver->settleUnsavedChanges(makeDocument(QStringLiteral("/no/such/folder/x.png"))));
    QCOMPARE(boxes->shown().size(), 2); // the question (answered with Save) and the failure
    QVERIFY(document->isSaveAble());
}

QTEST_MAIN(TestDocumentSaver)
#include "tst_DocumentSaver.moc"
