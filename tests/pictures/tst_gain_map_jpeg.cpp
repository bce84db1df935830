// JPEG files with a gain map: the base for every viewer, the map for those who know of it.

#include "BrightJpeg.h"
#include "FileParts.h"
#include "XmpPacket.h"
#include "camera_block.h"
#include "gain_map.h"
#include "metadata_reader.h"
#include "picture_reader.h"
#include "picture_writer.h"
#include "xmp_namespaces.h"

#include <QBuffer>
#include <QColorSpace>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>

#include <jpeglib.h>

class TestGainMapJpeg : public QObject
{
    Q_OBJECT

private slots:
    void write_anyPicture_basesPixelsAreThoseOfThePlainFile_data();
    void write_anyPicture_basesPixelsAreThoseOfThePlainFile();
    void write_mapAndTerms_areReadByTheStandards();
    void write_differentChannels_areToldEach();
    void write_fullMetadata_areKeptBesideTheMap();
    void write_largestPackets_leaveRoomForTheDirectory();
    void write_otherProgram_readsListAndProperties();
    void read_ownFile_tellsSizeAndTerms();
    void read_withoutIso_takesTheOlderForm_data();
    void read_withoutIso_takesTheOlderForm();
    void read_withoutList_takesTheDirectory();
    void read_plainFiles_haveNone();
    void read_cutFile_saysThatTheMapIsMissing();
    void read_senselessTerms_areRefused_data();
    void read_senselessTerms_areRefused();
    void read_damagedBytes_neverCrash();
};

namespace {

QImage randomPicture(QSize size, quint32 seed)
{
    QRandomGenerator random(seed);
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            picture.setPixel(x, y, qRgb(x * 3 % 256, y * 5 % 256, int(random.bounded(256))));
    return picture;
}

GainMap smallMap(QSize size)
{
    GainMap map;
    map.picture = randomPicture(size, 9);
    map.terms.channels.fill({0.0, 2.5, 1.0, 1.0 / 64, 1.0 / 64});
    map.terms.alternateHeadroom = 2.5;
    return map;
}

QByteArray written(const QImage &picture, const WriteOptions &options)
{
    QByteArray file;
    QBuffer device(&file);
    device.open(QIODevice::ReadWrite);
    const WriteResult result = picture::write(picture, device, PictureFormat::Jpeg, options);
    if (!result.reason.isEmpty() || !result.leftOut.isEmpty())
        qWarning("%s", qPrintable(result.reason + result.leftOut.join(u' ')));
    return file;
}

QByteArray brightFile(QSize size = {60, 40})
{
    WriteOptions options;
    options.gainMap = smallMap({(size.width() + 1) / 2, (size.height() + 1) / 2});
    return written(randomPicture(size, 1), options);
}

/// By the library that all JPEG readers have inside; red, green and blue.
QByteArray decodedByLibjpeg(const QByteArray &file)
{
    jpeg_decompress_struct codec = {};
    jpeg_error_mgr errors;
    codec.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&codec);
    jpeg_mem_src(&codec, reinterpret_cast<const unsigned char *>(file.constData()),
                 static_cast<unsigned long>(file.size()));
    jpeg_read_header(&codec, TRUE);
    codec.out_color_space = JCS_RGB;
    jpeg_start_decompress(&codec);
    QByteArray pixels;
    QByteArray row(qsizetype(codec.output_width) * 3, '\0');
    while (codec.output_scanline < codec.output_height) {
        auto *bytes = reinterpret_cast<JSAMPROW>(row.data());
        jpeg_read_scanlines(&codec, &bytes, 1);
        pixels += row;
    }
    jpeg_finish_decompress(&codec);
    jpeg_destroy_decompress(&codec);
    return pixels;
}

std::optional<gain_map::Found> found(const QByteArray &file)
{
    QByteArray bytes = file;
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    return gain_map::read(device);
}

/// Another name for the segments of the standard, so that nobody knows them.
QByteArray withoutIso(QByteArray file)
{
    return file.replace("urn:iso:std:iso:ts:21496:-1", "urn:iso:std:iso:ts:00000:-0");
}

QByteArray withoutList(QByteArray file)
{
    return file.replace(QByteArray("MPF\0MM", 6), QByteArray("XXX\0XX", 6));
}

bool isNear(double one, double other)
{
    return std::abs(one - other) < 1e-6;
}

} // namespace

void TestGainMapJpeg::write_anyPicture_basesPixelsAreThoseOfThePlainFile_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("quality");
    for (const QSize size : {QSize(1, 1), QSize(16, 16), QSize(17, 33), QSize(211, 97)})
        for (const int quality : {60, 95})
            QTest::addRow("%d x %d, quality %d", size.width(), size.height(), quality)
                << size << quality;
}

void TestGainMapJpeg::write_anyPicture_basesPixelsAreThoseOfThePlainFile()
{
    QFETCH(QSize, size);
    QFETCH(int, quality);
    const QImage picture = randomPicture(size, 2);
    WriteOptions options;
    options.quality = quality;
    const QByteArray plain = written(picture, options);
    options.gainMap = smallMap({(size.width() + 1) / 2, (size.height() + 1) / 2});
    const QByteArray bright = written(picture, options);
    QVERIFY(bright.size() > plain.size());
    QCOMPARE(decodedByLibjpeg(bright), decodedByLibjpeg(plain));
    QCOMPARE(QImage::fromData(bright), QImage::fromData(plain));
    QTemporaryDir folder;
    QFile file(folder.filePath("bright.jpg"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bright);
    file.close();
    const DecodedPicture read = picture::read(file.fileName());
    QVERIFY2(read.reason.isEmpty(), qPrintable(read.reason));
    QVERIFY(read.warnings.isEmpty());
    QCOMPARE(read.image.convertToFormat(QImage::Format_RGB32),
             QImage::fromData(plain).convertToFormat(QImage::Format_RGB32));
}

void TestGainMapJpeg::write_mapAndTerms_areReadByTheStandards()
{
    const QByteArray file = brightFile();
    const BrightJpeg read(file);
    QCOMPARE(read.problem, QByteArray());
    QVERIFY(read.hasBaseVersion);
    QCOMPARE(read.listedBaseBytes, read.baseBytes);
    QCOMPARE(read.baseBytes + read.mapFile.size(), file.size());
    QCOMPARE(read.map.size(), QSize(30, 20));
    QVERIFY(isNear(read.baseHeadroom, 0.0));
    QVERIFY(isNear(read.alternateHeadroom, 2.5));
    for (const BrightJpeg::Channel &channel : read.channels) {
        QVERIFY(isNear(channel.least, 0.0));
        QVERIFY(isNear(channel.most, 2.5));
        QVERIFY(isNear(channel.gamma, 1.0));
        QVERIFY(isNear(channel.baseOffset, 1.0 / 64));
        QVERIFY(isNear(channel.alternateOffset, 1.0 / 64));
    }
}

void TestGainMapJpeg::write_differentChannels_areToldEach()
{
    WriteOptions options;
    options.gainMap = smallMap({8, 8});
    options.gainMap.terms.channels = {{{-1.5, 2.0, 0.5, 0.25, -0.125},
                                       {-0.5, 3.0, 1.5, 0.0, 0.5},
                                       {0.0, 3.5, 2.0, 0.03125, 0.0}}};
    options.gainMap.terms.baseHeadroom = 0.5;
    options.gainMap.terms.alternateHeadroom = 3.25;
    const QByteArray file = written(randomPicture({16, 16}, 4), options);
    const BrightJpeg read(file);
    QCOMPARE(read.problem, QByteArray());
    QVERIFY(isNear(read.baseHeadroom, 0.5));
    QVERIFY(isNear(read.alternateHeadroom, 3.25));
    const std::optional<gain_map::Found> iso = found(file);
    const std::optional<gain_map::Found> older = found(withoutIso(file));
    QVERIFY(iso && iso->isIso && older && !older->isIso);
    for (size_t c = 0; c < 3; ++c) {
        const GainMapTerms::Channel &told = options.gainMap.terms.channels[c];
        QVERIFY(isNear(read.channels[c].least, told.least));
        QVERIFY(isNear(read.channels[c].most, told.most));
        QVERIFY(isNear(read.channels[c].gamma, told.gamma));
        QVERIFY(isNear(read.channels[c].baseOffset, told.baseOffset));
        QVERIFY(isNear(read.channels[c].alternateOffset, told.alternateOffset));
        for (const gain_map::Found &map : {*iso, *older}) {
            QVERIFY(isNear(map.terms.channels[c].least, told.least));
            QVERIFY(isNear(map.terms.channels[c].most, told.most));
            QVERIFY(isNear(map.terms.channels[c].gamma, told.gamma));
            QVERIFY(isNear(map.terms.channels[c].baseOffset, told.baseOffset));
            QVERIFY(isNear(map.terms.channels[c].alternateOffset, told.alternateOffset));
        }
    }
    QVERIFY(isNear(older->terms.baseHeadroom, 0.5));
    QVERIFY(isNear(older->terms.alternateHeadroom, 3.25));
}

void TestGainMapJpeg::write_fullMetadata_areKeptBesideTheMap()
{
    QTemporaryDir folder;
    WriteOptions options;
    options.metadata.exif = ExifTags::parse(camera_block::made());
    QVERIFY(!options.metadata.exif.isEmpty());
    options.metadata.xmp =
        "<x:xmpmeta xmlns:x='adobe:ns:meta/'><rdf:RDF "
        "xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'><rdf:Description rdf:about='' "
        "xmlns:xmp='http://ns.adobe.com/xap/1.0/' xmp:Rating='4'/></rdf:RDF></x:xmpmeta>";
    options.mark = ResultMark{"program", "1", {"a.jpg"}, "fusion", {}};
    QImage picture = randomPicture({64, 48}, 3);
    picture.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
    const QByteArray plain = written(picture, options);
    options.gainMap = smallMap({32, 24});
    const QByteArray bright = written(picture, options);
    QCOMPARE(BrightJpeg(bright).problem, QByteArray());
    QCOMPARE(QImage::fromData(bright).colorSpace(), QImage::fromData(plain).colorSpace());
    const auto keep = [&folder](const char *name, const QByteArray &bytes) {
        QFile file(folder.filePath(name));
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
        file.close();
        return metadata::read(file.fileName());
    };
    const Metadata ofBright = keep("bright.jpg", bright);
    QCOMPARE(ofBright.exif.block(), keep("plain.jpg", plain).exif.block());
    const std::optional<XmpPacket> packet = XmpPacket::parse(ofBright.xmp);
    QVERIFY(packet);
    QCOMPARE(packet->text(xmp::kBasic, "Rating"), QString("4"));
    QCOMPARE(packet->text(xmp::kGainMap, "Version"), QString("1.0"));
    QVERIFY(result_mark::in(ofBright.xmp));
}

void TestGainMapJpeg::write_largestPackets_leaveRoomForTheDirectory()
{
    WriteOptions options;
    XmpPacket packet;
    packet.setText(xmp::kDublinCore, "source", QString(64200, u'x'));
    packet.setText(xmp::kPhotoshop, "Instructions", QString(300, u'y'));
    options.metadata.xmp = packet.serialized();
    QVERIFY(options.metadata.xmp.size() < 65502);
    options.gainMap = smallMap({8, 8});
    QByteArray file;
    QBuffer device(&file);
    device.open(QIODevice::ReadWrite);
    const WriteResult result =
        picture::write(randomPicture({16, 16}, 1), device, PictureFormat::Jpeg, options);
    QCOMPARE(result.reason, QString());
    QCOMPARE(result.leftOut.size(), 1);
    QCOMPARE(BrightJpeg(file).problem, QByteArray());
    const std::optional<gain_map::Found> older = found(withoutList(withoutIso(file)));
    QVERIFY(older && older->problem.isEmpty());
}

/// ExifTool reads what phones read.
void TestGainMapJpeg::write_otherProgram_readsListAndProperties()
{
    const QString program = QStandardPaths::findExecutable("exiftool");
    if (program.isEmpty())
        QSKIP("exiftool is not installed");
    QTemporaryDir folder;
    QFile file(folder.filePath("bright.jpg"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QByteArray bytes = brightFile();
    file.write(bytes);
    file.close();
    const BrightJpeg own(bytes);
    QProcess exiftool;
    exiftool.start(program, {"-json", "-n", "-struct", "-G1", "-MPF:all", "-XMP:all",
                             "-MPImageStart", file.fileName()});
    QVERIFY(exiftool.waitForFinished());
    const QJsonObject told =
        QJsonDocument::fromJson(exiftool.readAllStandardOutput()).array()[0].toObject();
    QCOMPARE(told["MPF0:NumberOfImages"].toInt(), 2);
    QCOMPARE(qint64(told["MPImage2:MPImageStart"].toInt()), own.baseBytes);
    QCOMPARE(qint64(told["MPImage2:MPImageLength"].toInt()), own.mapFile.size());
    QCOMPARE(told["XMP-hdrgm:Version"].toVariant().toDouble(), 1.0);
    const QByteArray text = QJsonDocument(told).toJson();
    QVERIFY(text.contains("\"Primary\""));
    QVERIFY(text.contains("\"GainMap\""));
    QVERIFY(text.contains(QByteArray::number(own.mapFile.size())));
    QFile map(folder.filePath("map.jpg"));
    QVERIFY(map.open(QIODevice::WriteOnly));
    map.write(own.mapFile);
    map.close();
    exiftool.start(program, {"-json", "-n", "-XMP-hdrgm:all", map.fileName()});
    QVERIFY(exiftool.waitForFinished());
    const QJsonObject ofMap =
        QJsonDocument::fromJson(exiftool.readAllStandardOutput()).array()[0].toObject();
    QCOMPARE(ofMap["GainMapMax"].toDouble(), 2.5);
    QCOMPARE(ofMap["HDRCapacityMax"].toDouble(), 2.5);
    QCOMPARE(ofMap["OffsetSDR"].toDouble(), 1.0 / 64);
}

void TestGainMapJpeg::read_ownFile_tellsSizeAndTerms()
{
    const std::optional<gain_map::Found> map = found(brightFile());
    QVERIFY(map);
    QCOMPARE(map->problem, QString());
    QVERIFY(map->isIso);
    QCOMPARE(map->size, QSize(30, 20));
    QVERIFY(isNear(map->terms.channels[1].most, 2.5));
    QVERIFY(isNear(map->terms.alternateHeadroom, 2.5));
}

void TestGainMapJpeg::read_withoutIso_takesTheOlderForm_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<bool>("isRead");
    QTest::newRow("as it is") << QByteArray() << QByteArray() << true;
    // As long as before, so that no place moves.
    QTest::newRow("no number") << QByteArray("GainMapMax=\"2.5\"")
                               << QByteArray("GainMapMax=\"abc\"") << false;
    QTest::newRow("the base is the bright one")
        << QByteArray("IsHDR=\"False\"") << QByteArray("IsHDR=\"True\" ") << false;
    QTest::newRow("no range") << QByteArray("GainMapMax=") << QByteArray("GainMapMux=") << false;
}

void TestGainMapJpeg::read_withoutIso_takesTheOlderForm()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QFETCH(bool, isRead);
    QByteArray file = withoutIso(brightFile());
    QVERIFY(file.contains(from));
    if (!from.isEmpty())
        file.replace(from, to);
    const std::optional<gain_map::Found> map = found(file);
    QVERIFY(map && !map->isIso);
    QCOMPARE(map->problem.isEmpty(), isRead);
    if (isRead)
        QVERIFY(isNear(map->terms.channels[2].most, 2.5));
}

void TestGainMapJpeg::read_withoutList_takesTheDirectory()
{
    const std::optional<gain_map::Found> map = found(withoutList(brightFile()));
    QVERIFY(map && map->isIso);
    QCOMPARE(map->problem, QString());
    QCOMPARE(map->size, QSize(30, 20));
}

void TestGainMapJpeg::read_plainFiles_haveNone()
{
    QVERIFY(!found(written(randomPicture({16, 16}, 1), {})));
    QVERIFY(!found(QByteArray()));
    QVERIFY(!found("no picture"));
}

void TestGainMapJpeg::read_cutFile_saysThatTheMapIsMissing()
{
    const QByteArray file = brightFile();
    for (const qsizetype bytes : {qsizetype(BrightJpeg(file).baseBytes) + 100, file.size() - 10}) {
        const std::optional<gain_map::Found> map = found(file.left(bytes));
        QVERIFY(map);
        QVERIFY(!map->problem.isEmpty());
    }
}

void TestGainMapJpeg::read_senselessTerms_areRefused_data()
{
    QTest::addColumn<int>("place"); // in the terms, of 4 bytes
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("a later version") << 0 << QByteArray("\0\1\0\0", 4);
    QTest::newRow("headroom over 0") << 9 << QByteArray("\0\0\0\0", 4);
    QTest::newRow("headrooms alike") << 13 << QByteArray("\0\0\0\0", 4);
    QTest::newRow("least above most") << 21 << QByteArray("\x7F\0\0\0", 4);
    QTest::newRow("gamma of 0") << 37 << QByteArray("\0\0\0\0", 4);
    QTest::newRow("offset over 0") << 49 << QByteArray("\0\0\0\0", 4);
}

void TestGainMapJpeg::read_senselessTerms_areRefused()
{
    QFETCH(int, place);
    QFETCH(QByteArray, bytes);
    QByteArray file = brightFile();
    // The older form must not help out.
    file.replace("hdr-gain-map/1.0/", "hdr-gain-map/0.0/");
    const qsizetype terms = file.lastIndexOf("urn:iso:std:iso:ts:21496:-1") + 28;
    file.replace(terms + place, bytes.size(), bytes);
    const std::optional<gain_map::Found> map = found(file);
    QVERIFY(map);
    QVERIFY(!map->problem.isEmpty());
}

void TestGainMapJpeg::read_damagedBytes_neverCrash()
{
    const QByteArray file = brightFile();
    QRandomGenerator random(11);
    int sound = 0;
    for (int i = 0; i < 3000; ++i) {
        QByteArray damaged = file;
        for (int j = 0; j < 3; ++j)
            damaged[qsizetype(random.bounded(std::min<int>(int(file.size()), 2500)))] =
                char(random.generate());
        const std::optional<gain_map::Found> map = found(
            damaged.left(i % 3 == 0 ? qsizetype(random.bounded(int(file.size()))) : file.size()));
        if (map && map->problem.isEmpty()) {
            ++sound;
            QVERIFY(!map->size.isEmpty());
            QVERIFY(map->terms.channels[0].least <= map->terms.channels[0].most);
        }
    }
    QVERIFY(sound > 0);
}

QTEST_GUILESS_MAIN(TestGainMapJpeg)
#include "tst_gain_map_jpeg.moc"
