#include "camera_block.h"
#include "dng_writer.h"
#include "exif_metadata.h"
#include "metadata_reader.h"
#include "picture_writer.h"
#include "xmp_metadata.h"
#include "xmp_namespaces.h"

#include <QColorSpace>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <libdeflate.h>

namespace {

constexpr char kRegions[] = "http://www.metadataworkinggroup.com/schemas/regions/";

QByteArray dataset(int number, const QByteArray &value)
{
    QByteArray head("\x1C\x02\0\0\0", 5);
    head[2] = char(number);
    qToBigEndian(quint16(value.size()), head.data() + 3);
    return head + value;
}

QByteArray packet(const QByteArray &attributes, const QByteArray &properties = {})
{
    return "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF "
           "xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\"><rdf:Description "
           "rdf:about=\"\" xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\" "
           "xmlns:tiff=\"http://ns.adobe.com/tiff/1.0/\" "
           "xmlns:exif=\"http://ns.adobe.com/exif/1.0/\" "
           "xmlns:dc=\"http://purl.org/dc/elements/1.1/\" "
           "xmlns:crs=\"http://ns.adobe.com/camera-raw-settings/1.0/\" "
           "xmlns:xmpMM=\"http://ns.adobe.com/xap/1.0/mm/\" "
           "xmlns:xmpNote=\"http://ns.adobe.com/xmp/note/\" "
           "xmlns:hdrgm=\"http://ns.adobe.com/hdr-gain-map/1.0/\" "
           "xmlns:mwg-rs=\"http://www.metadataworkinggroup.com/schemas/regions/\" " +
           attributes + ">" + properties + "</rdf:Description></rdf:RDF></x:xmpmeta>";
}

/// What a photographer's files have: rating, keywords, copyright, and much about the old file.
Metadata cameraMetadata()
{
    Metadata metadata;
    metadata.exif = ExifTags::parse(camera_block::made());
    metadata.xmp = packet(
        "xmp:Rating=\"4\" tiff:Orientation=\"6\" tiff:ImageWidth=\"40\" tiff:ImageLength=\"30\" "
        "exif:PixelXDimension=\"40\" exif:PixelYDimension=\"30\" exif:ColorSpace=\"65535\" "
        "exif:NativeDigest=\"36864,1\" crs:Exposure2012=\"+1.50\" hdrgm:Version=\"1.0\" "
        "mwg-rs:Regions=\"face\" xmpMM:DocumentID=\"xmp.did:1\" xmpMM:InstanceID=\"xmp.iid:1\"",
        "<dc:subject><rdf:Bag><rdf:li>night</rdf:li><rdf:li>Größe</rdf:li></rdf:Bag></dc:subject>");
    metadata.iptc = dataset(25, "night") + dataset(116, "(c) Ann");
    return metadata;
}

ResultMark someMark()
{
    return {QStringLiteral("veskhdr"),
            QStringLiteral("9.8.7"),
            {"a.jpg", "ü.jpg"},
            QStringLiteral("fusion"),
            QStringLiteral("--crop")};
}

QImage upright(QSize size = {30, 40})
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::darkCyan);
    picture.setColorSpace(QColorSpace::SRgb);
    return picture;
}

QByteArray segment(char marker, const QByteArray &content)
{
    QByteArray length(2, '\0');
    qToBigEndian(quint16(content.size() + 2), length.data());
    return QByteArray("\xFF") + marker + length + content;
}

QByteArray xmpSegment(const QByteArray &xmp)
{
    return segment('\xE1', QByteArray("http://ns.adobe.com/xap/1.0/\0", 29) + xmp);
}

/// A piece of a packet that is too long for one segment.
QByteArray extensionSegment(const QByteArray &name, const QByteArray &whole, int place, int length)
{
    QByteArray numbers(8, '\0');
    qToBigEndian(quint32(whole.size()), numbers.data());
    qToBigEndian(quint32(place), numbers.data() + 4);
    return segment('\xE1', QByteArray("http://ns.adobe.com/xmp/extension/\0", 35) + name + numbers +
                               whole.mid(place, length));
}

QByteArray xmpIn(QByteArray file)
{
    QBuffer buffer(&file);
    buffer.open(QIODevice::ReadOnly);
    return metadata::xmpIn(buffer);
}

QByteArray chunk(const QByteArray &name, const QByteArray &content)
{
    QByteArray length(4, '\0');
    qToBigEndian(quint32(content.size()), length.data());
    return length + name + content + QByteArray(4, '\0');
}

QByteArray compressed(const QByteArray &bytes)
{
    libdeflate_compressor *compressor = libdeflate_alloc_compressor(6);
    QByteArray stream(qsizetype(libdeflate_zlib_compress_bound(compressor, size_t(bytes.size()))),
                      '\0');
    stream.truncate(
        qsizetype(libdeflate_zlib_compress(compressor, bytes.constData(), size_t(bytes.size()),
                                           stream.data(), size_t(stream.size()))));
    libdeflate_free_compressor(compressor);
    return stream;
}

} // namespace

class TestMetadata : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder;

    WriteResult write(const QString &name, const Metadata &metadata,
                      const std::optional<ResultMark> &mark = {}, QSize size = {30, 40})
    {
        WriteOptions options;
        options.metadata = metadata;
        options.mark = mark;
        options.mayReplace = true;
        return picture::write(upright(size), folder.filePath(name), *picture::formatOfSuffix(name),
                              options);
    }

    void save(const QString &name, const QByteArray &bytes)
    {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    static void addFormats()
    {
        QTest::addColumn<QString>("suffix");
        for (const char *suffix : {"jpg", "png", "tif"})
            QTest::newRow(suffix) << QString::fromLatin1(suffix);
    }

    /// The pictures' tags as ExifTool reads them, with their groups.
    QJsonObject tagsOf(const QString &name)
    {
        QProcess tool;
        tool.start("exiftool", {"-j", "-G1", "-n", "-struct", folder.filePath(name)});
        tool.waitForFinished();
        return QJsonDocument::fromJson(tool.readAllStandardOutput()).array().first().toObject();
    }

private slots:
    void initTestCase() { QVERIFY(folder.isValid()); }

    void roundTrip_betweenFormats_keepsWhatPeopleWrote_data()
    {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        for (const char *first : {"jpg", "png", "tif"}) {
            for (const char *second : {"jpg", "png", "tif"})
                QTest::addRow("%s to %s", first, second) << QString(first) << QString(second);
        }
    }

    void roundTrip_betweenFormats_keepsWhatPeopleWrote()
    {
        QFETCH(const QString, first);
        QFETCH(const QString, second);
        write("first." + first, cameraMetadata());
        const WriteResult result =
            write("second." + second, metadata::read(folder.filePath("first." + first)));
        QCOMPARE(result.leftOut, QStringList());
        const Metadata again = metadata::read(folder.filePath("second." + second));
        QCOMPARE(again.exif.text(ExifTags::Directory::Picture, ExifTags::Make), QString("Maker"));
        const auto xmp = XmpPacket::parse(again.xmp);
        QVERIFY(xmp);
        QCOMPARE(xmp->text(xmp::kBasic, "Rating"), QString("4"));
        QCOMPARE(xmp->items(xmp::kDublinCore, "subject"), QStringList({"night", "Größe"}));
        const bool canHoldDatasets = first != "png" && second != "png";
        if (canHoldDatasets)
            QCOMPARE(again.iptc.left(cameraMetadata().iptc.size()), cameraMetadata().iptc);
        else
            QCOMPARE(xmp->items(xmp::kDublinCore, "rights"), QStringList("(c) Ann"));
        // Each program writes the same again.
        QCOMPARE(write("third." + second, again).error, OutputFile::Error::None);
        QCOMPARE(metadata::read(folder.filePath("third." + second)).xmp, again.xmp);
    }

    void written_readByExifTool_isTheSame_data() { addFormats(); }

    void written_readByExifTool_isTheSame()
    {
        if (QStandardPaths::findExecutable("exiftool").isEmpty())
            QSKIP("exiftool is not installed");
        QFETCH(const QString, suffix);
        const QString name = "tool." + suffix;
        write(name, cameraMetadata(), someMark());
        const QJsonObject tags = tagsOf(name);
        QCOMPARE(tags["XMP-xmp:Rating"].toInt(), 4);
        QCOMPARE(tags["XMP-dc:Subject"].toArray(), QJsonArray({"night", "Größe"}));
        QCOMPARE(tags["XMP-tiff:Orientation"].toInt(), 1);
        QCOMPARE(tags["XMP-tiff:ImageWidth"].toInt(), 30);
        QCOMPARE(tags["XMP-tiff:ImageHeight"].toInt(), 40);
        QCOMPARE(tags["XMP-exif:ColorSpace"].toInt(), 1);
        QCOMPARE(tags["IFD0:Orientation"].toInt(), 1);
        QCOMPARE(tags["XMP-vesk:Program"].toString(), QString("veskhdr"));
        QCOMPARE(tags["XMP-vesk:Sources"].toArray(), QJsonArray({"a.jpg", "ü.jpg"}));
        QCOMPARE(tags["XMP-xmp:CreatorTool"].toString(), QString("veskhdr 9.8.7"));
        if (suffix != "png")
            QCOMPARE(tags["IPTC:CopyrightNotice"].toString(), QString("(c) Ann"));
        else
            QCOMPARE(tags["XMP-dc:Rights"].toString(), QString("(c) Ann"));
        QVERIFY(!tags.contains("ExifTool:Warning"));
    }

    void forUprightPicture_whatNoLongerHolds_isMadeTrueOrLeftOut()
    {
        const xmp::Adapted adapted =
            xmp::forUprightPicture(cameraMetadata(), upright(), PictureFormat::Jpeg, nullptr);
        const auto packet = XmpPacket::parse(adapted.packet);
        QVERIFY(packet);
        QCOMPARE(packet->text(xmp::kTiff, "Orientation"), QString("1"));
        QCOMPARE(packet->text(xmp::kTiff, "ImageWidth"), QString("30"));
        QCOMPARE(packet->text(xmp::kTiff, "ImageLength"), QString("40"));
        QCOMPARE(packet->text(xmp::kExif, "PixelXDimension"), QString("30"));
        QCOMPARE(packet->text(xmp::kExif, "PixelYDimension"), QString("40"));
        QCOMPARE(packet->text(xmp::kExif, "ColorSpace"), QString("1"));
        QVERIFY(!packet->has(xmp::kExif, "NativeDigest"));
        QVERIFY(!packet->has(xmp::kMediaManagement, "InstanceID"));
        QCOMPARE(packet->text(xmp::kMediaManagement, "DocumentID"), QString("xmp.did:1"));
        QVERIFY(!adapted.packet.contains("camera-raw-settings"));
        QVERIFY(!adapted.packet.contains("gain-map"));
        QVERIFY(!adapted.packet.contains(kRegions));
        QCOMPARE(adapted.leftOut.size(), 1);
        QVERIFY(adapted.leftOut[0].contains("regions"));
    }

    void forUprightPicture_sameSizeAndOrientation_keepsRegions()
    {
        Metadata metadata;
        metadata.xmp = packet("tiff:Orientation=\"1\" tiff:ImageWidth=\"30\" "
                              "tiff:ImageLength=\"40\" mwg-rs:Regions=\"face\"");
        const auto keeps = [&](QSize size) {
            return xmp::forUprightPicture(metadata, upright(size), PictureFormat::Png, nullptr)
                .packet.contains(kRegions);
        };
        QVERIFY(keeps({30, 40}));
        QVERIFY(!keeps({30, 39}));
        metadata.xmp.replace("Orientation=\"1\"", "Orientation=\"3\"");
        QVERIFY(!keeps({30, 40}));
    }

    void forUprightPicture_otherColours_areTold()
    {
        QImage wide = upright();
        wide.setColorSpace(QColorSpace::DisplayP3);
        Metadata metadata;
        metadata.xmp = packet("exif:ColorSpace=\"1\"");
        const auto packet = XmpPacket::parse(
            xmp::forUprightPicture(metadata, wide, PictureFormat::Png, nullptr).packet);
        QCOMPARE(packet->text(xmp::kExif, "ColorSpace"), QString("65535"));
    }

    void forUprightPicture_nothingToSay_givesNoPacket()
    {
        const xmp::Adapted adapted =
            xmp::forUprightPicture({}, upright(), PictureFormat::Png, nullptr);
        QCOMPARE(adapted.packet, QByteArray());
        QCOMPARE(adapted.leftOut, QStringList());
    }

    void forUprightPicture_withMark_isAResultMadeFromTheOther()
    {
        const ResultMark mark = someMark();
        const xmp::Adapted adapted =
            xmp::forUprightPicture(cameraMetadata(), upright(), PictureFormat::Tiff, &mark);
        const std::optional<ResultMark> found = result_mark::in(adapted.packet);
        QVERIFY(found);
        QCOMPARE(found->program, mark.program);
        QCOMPARE(found->version, mark.version);
        QCOMPARE(found->sources, mark.sources);
        QCOMPARE(found->method, mark.method);
        QCOMPARE(found->options, mark.options);
        const auto packet = XmpPacket::parse(adapted.packet);
        QVERIFY(!packet->has(xmp::kMediaManagement, "DocumentID"));
        QCOMPARE(packet->text(xmp::kMediaManagement, "OriginalDocumentID"), QString("xmp.did:1"));
        QCOMPARE(packet->count(xmp::kMediaManagement, "History"), 1);
        QVERIFY(!result_mark::in(cameraMetadata().xmp));
    }

    void mark_ofAnOlderResult_staysUnlessThereIsANewOne()
    {
        const ResultMark mark = someMark();
        Metadata metadata;
        metadata.xmp = xmp::forUprightPicture({}, upright(), PictureFormat::Png, &mark).packet;
        QVERIFY(result_mark::in(
            xmp::forUprightPicture(metadata, upright(), PictureFormat::Png, nullptr).packet));
        ResultMark newer;
        newer.program = "other";
        const auto found = result_mark::in(
            xmp::forUprightPicture(metadata, upright(), PictureFormat::Png, &newer).packet);
        QCOMPARE(found->program, QString("other"));
        QCOMPARE(found->sources, QStringList());
    }

    void write_damagedXmpAndIptc_areLeftOutAndNamed_data() { addFormats(); }

    void write_damagedXmpAndIptc_areLeftOutAndNamed()
    {
        QFETCH(const QString, suffix);
        Metadata metadata = cameraMetadata();
        metadata.xmp.chop(20);
        metadata.iptc.chop(1);
        const WriteResult result = write("damaged." + suffix, metadata, someMark());
        QCOMPARE(result.error, OutputFile::Error::None);
        QCOMPARE(result.leftOut.size(), 2);
        QVERIFY(result.leftOut[0].startsWith("the XMP data"));
        QVERIFY(result.leftOut[1].startsWith("the IPTC data"));
        const Metadata again = metadata::read(folder.filePath("damaged." + suffix));
        QVERIFY(result_mark::in(again.xmp));
        QVERIFY(again.iptc.isEmpty());
        QVERIFY(!again.exif.isEmpty());
    }

    void write_tooMuchForJpeg_keepsWhatPeopleWrote()
    {
        Metadata metadata = cameraMetadata();
        metadata.xmp.replace("<dc:subject>", "<exif:UserComment>" + QByteArray(70000, 'x') +
                                                 "</exif:UserComment><dc:subject>");
        metadata.iptc = dataset(120, QByteArray(30000, 'c')).repeated(3);
        const WriteResult result = write("large.jpg", metadata, someMark());
        QCOMPARE(result.error, OutputFile::Error::None);
        QCOMPARE(result.leftOut.filter("too large").size(), 2);
        const Metadata again = metadata::read(folder.filePath("large.jpg"));
        const auto xmp = XmpPacket::parse(again.xmp);
        QVERIFY(xmp);
        QCOMPARE(xmp->text(xmp::kBasic, "Rating"), QString("4"));
        QVERIFY(!xmp->has(xmp::kExif, "UserComment"));
        QVERIFY(result_mark::in(again.xmp));
        QCOMPARE(write("large.tif", metadata).leftOut.filter("too large"), QStringList());
    }

    void read_extendedPacketOfJpeg_isJoined()
    {
        const QByteArray name(32, 'A');
        const QByteArray whole = packet("", "<dc:source>" + QByteArray(500, 's') + "</dc:source>");
        const QByteArray standard =
            packet("xmp:Rating=\"3\" xmpNote:HasExtendedXMP=\"" + name + "\"");
        const QByteArray pieces = extensionSegment(name, whole, 300, 9999) +
                                  extensionSegment(QByteArray(32, 'B'), "other", 0, 5) +
                                  extensionSegment(name, whole, 0, 300).repeated(2);
        const auto joined = XmpPacket::parse(xmpIn("\xFF\xD8" + xmpSegment(standard) + pieces));
        QVERIFY(joined);
        QCOMPARE(joined->text(xmp::kDublinCore, "source").size(), 500);
        QCOMPARE(joined->text(xmp::kBasic, "Rating"), QString("3"));
        const auto lacking = XmpPacket::parse(
            xmpIn("\xFF\xD8" + xmpSegment(standard) + extensionSegment(name, whole, 0, 300)));
        QVERIFY(lacking);
        QVERIFY(!lacking->has(xmp::kDublinCore, "source"));
        QCOMPARE(lacking->text(xmp::kBasic, "Rating"), QString("3"));
    }

    void read_pngWithCompressedText_isInflated()
    {
        const QByteArray head = "\x89PNG\r\n\x1A\n";
        const QByteArray keyword("XML:com.adobe.xmp\0", 18);
        const QByteArray xmp = packet("xmp:Rating=\"2\"");
        QCOMPARE(xmpIn(head + chunk("iTXt", keyword + QByteArray("\1\0\0\0", 4) + compressed(xmp))),
                 xmp);
        QCOMPARE(xmpIn(head + chunk("iTXt", keyword + QByteArray("\0\0\0\0", 4) + xmp)), xmp);
        QCOMPARE(xmpIn(head + chunk("iTXt", keyword + QByteArray("\1\0\0\0", 4) + "rubbish")),
                 QByteArray());
        const QByteArray bomb = compressed(QByteArray(64 << 20, ' '));
        QCOMPARE(xmpIn(head + chunk("iTXt", keyword + QByteArray("\1\0\0\0", 4) + bomb)),
                 QByteArray());
    }

    void read_webp_findsThePacket()
    {
        QByteArray length(4, '\0');
        const QByteArray xmp = packet("xmp:Rating=\"2\"");
        qToLittleEndian(quint32(xmp.size()), length.data());
        QCOMPARE(xmpIn("RIFF\1\1\1\1WEBPXMP " + length + xmp), xmp);
    }

    void read_cutOrDamagedAnywhere_isSafe_data() { addFormats(); }

    void read_cutOrDamagedAnywhere_isSafe()
    {
        QFETCH(const QString, suffix);
        const QString name = "sound." + suffix;
        write(name, cameraMetadata(), someMark(), {3, 2});
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray sound = file.readAll();
        for (qsizetype i = 0; i < sound.size(); i += 7) {
            QByteArray damaged = sound;
            damaged[i] = char(damaged[i] ^ 0xA5);
            for (QByteArray bytes : {damaged, sound.left(i)}) {
                QBuffer buffer(&bytes);
                buffer.open(QIODevice::ReadOnly);
                QVERIFY(metadata::xmpIn(buffer).size() <= sound.size());
                QVERIFY(metadata::iptcIn(buffer).size() <= sound.size());
            }
        }
    }

    void read_sidecar_winsOverThePicture()
    {
        Metadata inside;
        inside.xmp = packet("xmp:Rating=\"1\" xmp:Label=\"Red\"");
        write("shot.tif", inside);
        save("shot.xmp", packet("xmp:Rating=\"2\""));
        const QString path = folder.filePath("shot.tif");
        // That one belongs to a raw file of the name.
        QCOMPARE(XmpPacket::parse(metadata::read(path).xmp)->text(xmp::kBasic, "Rating"),
                 QString("1"));
        save("shot.tif.xmp", packet("xmp:Rating=\"3\""));
        const auto both = XmpPacket::parse(metadata::read(path).xmp);
        QCOMPARE(both->text(xmp::kBasic, "Rating"), QString("3"));
        QCOMPARE(both->text(xmp::kBasic, "Label"), QString("Red"));
        save("shot.tif.xmp", "rubbish");
        QCOMPARE(XmpPacket::parse(metadata::read(path).xmp)->text(xmp::kBasic, "Rating"),
                 QString("1"));
    }

    void read_missingFileOrFolder_isEmpty()
    {
        QVERIFY(metadata::read(folder.filePath("missing.jpg")).isEmpty());
        QVERIFY(metadata::read(folder.path()).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestMetadata)
#include "tst_metadata.moc"
