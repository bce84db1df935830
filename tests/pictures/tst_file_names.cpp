#include "camera_block.h"
#include "exif_metadata.h"
#include "file_names.h"
#include "picture_writer.h"

#include <QDir>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

class TestFileNames : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder;

private slots:
    void everyName_comesBackByteForByte_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<int>("length");
        QTest::newRow("plain") << QByteArray("IMG_1.jpg") << 9;
        QTest::newRow("UTF-8") << QByteArray("\xC3\xA4\xF0\x9F\x8C\x84.jpg") << 7;
        QTest::newRow("Latin-1") << QByteArray("Gr\xFC\xDF"
                                               "e.jpg")
                                 << 9;
        QTest::newRow("cut character") << QByteArray("\xF0\x9F\x8C") << 3;
        QTest::newRow("lone byte before a character") << QByteArray("\xC3\xC3\xA4") << 2;
        QTest::newRow("too long a character") << QByteArray("\xC0\xAF") << 2;
        QTest::newRow("encoded surrogate") << QByteArray("\xED\xB3\xBF") << 3;
        QTest::newRow("pair made of it") << QByteArray("\xED\xA0\xBD\xED\xB8\x80") << 6;
        QTest::newRow("byte behind a character of two halves")
            << QByteArray("\xF0\x9F\x8C\x84\xFF") << 3;
        QTest::newRow("nothing") << QByteArray("") << 0;
    }

    void everyName_comesBackByteForByte()
    {
        QFETCH(QByteArray, name);
        QFETCH(int, length);
        const QString text = file_names::fromBytes(name);
        QCOMPARE(file_names::toBytes(text), name);
        QCOMPARE(int(text.size()), length);
    }

    void everyPairOfBytes_comesBack()
    {
        for (int first = 1; first < 256; ++first) {
            for (int second = 1; second < 256; ++second) {
                const char bytes[] = {char(first), char(second), 'x', char(first), '\0'};
                QCOMPARE(file_names::toBytes(file_names::fromBytes(bytes)), QByteArray(bytes));
            }
        }
    }

    void json_showsTheBytes()
    {
        const QJsonArray names{file_names::fromBytes("a\xFF.jpg")};
        const QByteArray json = QJsonDocument(names).toJson(QJsonDocument::Compact);
        QCOMPARE(json, QByteArray("[\"a\\udcff.jpg\"]"));
        QCOMPARE(file_names::toBytes(QJsonDocument::fromJson(json).array().first().toString()),
                 QByteArray("a\xFF.jpg"));
    }

    void pictureAndFolderOfInvalidNames_areWrittenFoundAndRead()
    {
        const QByteArray below = QFile::encodeName(folder.path()) + "/Stra\xDF"
                                                                    "e";
        QCOMPARE(::mkdir(below.constData(), 0777), 0);
        const QString path = file_names::fromBytes(below + "/gr\xFCn.jpg");
        QImage picture(30, 20, QImage::Format_RGB32);
        picture.fill(qRgb(0, 200, 0));
        WriteOptions options;
        options.metadata.exif = ExifTags::parse(camera_block::made());
        const WriteResult result = picture::write(picture, path, PictureFormat::Jpeg, options);
        QVERIFY2(result.error == OutputFile::Error::None, qPrintable(result.reason));
        QVERIFY(picture::write(picture, path, PictureFormat::Jpeg, options).error ==
                OutputFile::Error::Exists);
        QCOMPARE(file_names::entriesOf(file_names::fromBytes(below)),
                 QStringList(file_names::fromBytes("gr\xFCn.jpg")));
        QCOMPARE(exif::read(path).text(ExifTags::Directory::Picture, ExifTags::Make),
                 QStringLiteral("Maker"));
        const file_names::ReadablePath readable(path);
        QCOMPARE(QImageReader(readable.path()).read().size(), picture.size());
    }

    void readablePath_plainName_isItself()
    {
        const QString name = QStringLiteral("a/b/\u00E4.jpg");
        QCOMPARE(file_names::ReadablePath(name).path(), name);
    }

    void readablePath_missingFile_isItself()
    {
        const QString name = file_names::fromBytes("/nowhere/\xFF");
        QCOMPARE(file_names::ReadablePath(name).path(), name);
    }

    void entriesOf_missingFolder_areNone()
    {
        QCOMPARE(file_names::entriesOf(folder.filePath(QStringLiteral("none"))), QStringList());
    }
};

QTEST_GUILESS_MAIN(TestFileNames)
#include "tst_file_names.moc"
