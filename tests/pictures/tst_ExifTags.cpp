#include "ExifTags.h"
#include "camera_block.h"

#include <QtTest>

using Directory = ExifTags::Directory;

class TestExifTags : public QObject
{
    Q_OBJECT

private slots:
    void parse_camerasBlock_tellsItsValues()
    {
        const ExifTags tags = ExifTags::parse(camera_block::made());
        QVERIFY(tags.hasBigEndianNumbers());
        QCOMPARE(tags.text(Directory::Picture, ExifTags::Make), QStringLiteral("Maker"));
        QCOMPARE(tags.number(Directory::Picture, ExifTags::Orientation).value_or(0), 6u);
        QCOMPARE(tags.number(Directory::Exposure, ExifTags::PixelWidth).value_or(0), 999u);
        QCOMPARE(tags.fraction(Directory::Exposure, ExifTags::ExposureTime).value_or(0), 1 / 60.0);
        QCOMPARE(tags.entries(Directory::Place).size(), size_t(1));
        QVERIFY(!tags.find(Directory::Picture, ExifTags::Model));
        QVERIFY(!tags.number(Directory::Picture, ExifTags::Make));
        QVERIFY(!tags.fraction(Directory::Picture, ExifTags::Make));
    }

    void parse_signatureInFront_isPassedOver()
    {
        const ExifTags tags = ExifTags::parse(QByteArray("Exif\0\0", 6) + camera_block::made());
        QCOMPARE(tags.text(Directory::Picture, ExifTags::Make), QStringLiteral("Maker"));
    }

    void fraction_dividedByZero_isNothing()
    {
        ExifTags tags;
        tags.setFraction(Directory::Exposure, ExifTags::FNumber, 8, 0);
        QVERIFY(!tags.fraction(Directory::Exposure, ExifTags::FNumber));
        tags.setSignedFraction(Directory::Exposure, ExifTags::ExposureBias, -4, 3);
        QCOMPARE(*tags.fraction(Directory::Exposure, ExifTags::ExposureBias), -4 / 3.0);
    }

    void block_ofEveryKindOfEntry_isReadByLibexif_data()
    {
        QTest::addColumn<bool>("isBigEndian");
        QTest::newRow("little-endian") << false;
        QTest::newRow("big-endian") << true;
    }

    void block_ofEveryKindOfEntry_isReadByLibexif()
    {
        QFETCH(bool, isBigEndian);
        ExifTags tags(isBigEndian);
        tags.setText(Directory::Picture, ExifTags::Make, "A camera");
        tags.setShort(Directory::Picture, ExifTags::Orientation, 3);
        tags.setFraction(Directory::Exposure, ExifTags::ExposureTime, 1, 60);
        tags.setSignedFraction(Directory::Exposure, ExifTags::ExposureBias, -4, 3);
        tags.setLong(Directory::Exposure, ExifTags::PixelWidth, 70000);
        tags.setBytes(Directory::Exposure, ExifTags::ExifVersion, "0230");
        tags.setBytes(Directory::Place, EXIF_TAG_GPS_VERSION_ID, QByteArray("\2\3\0\0", 4));
        tags.setText(Directory::Interoperability, ExifTags::InteroperabilityIndex, "R98");
        const QByteArray block = tags.block();
        const auto value = [&block](ExifIfd ifd, int tag) {
            return camera_block::valueOf(block, ifd, tag);
        };
        QCOMPARE(value(EXIF_IFD_0, EXIF_TAG_MAKE), QByteArray("A camera"));
        QCOMPARE(value(EXIF_IFD_0, EXIF_TAG_ORIENTATION), QByteArray("Bottom-right"));
        QCOMPARE(value(EXIF_IFD_EXIF, EXIF_TAG_EXPOSURE_TIME), QByteArray("1/60 sec."));
        QCOMPARE(value(EXIF_IFD_EXIF, EXIF_TAG_EXPOSURE_BIAS_VALUE), QByteArray("-1.33 EV"));
        QCOMPARE(value(EXIF_IFD_EXIF, EXIF_TAG_PIXEL_X_DIMENSION), QByteArray("70000"));
        QCOMPARE(value(EXIF_IFD_EXIF, EXIF_TAG_EXIF_VERSION), QByteArray("Exif Version 2.3"));
        QCOMPARE(camera_block::bytesOf(block, EXIF_IFD_GPS, EXIF_TAG_GPS_VERSION_ID),
                 QByteArray("\2\3\0\0", 4));
        QCOMPARE(camera_block::bytesOf(block, EXIF_IFD_INTEROPERABILITY,
                                       EXIF_TAG_INTEROPERABILITY_INDEX),
                 QByteArray("R98", 4));
    }

    void block_interoperabilityAlone_isReadBack()
    {
        ExifTags tags;
        tags.setText(Directory::Interoperability, ExifTags::InteroperabilityIndex, "R03");
        QCOMPARE(ExifTags::parse(tags.block())
                     .text(Directory::Interoperability, ExifTags::InteroperabilityIndex),
                 QStringLiteral("R03"));
    }

    void block_ofNothing_isEmpty() { QCOMPARE(ExifTags().block(), QByteArray()); }

    void block_makerNote_staysAtItsPlace_data()
    {
        QTest::addColumn<int>("place");
        for (const int place : {68, 69, 70, 100, 500, 40001})
            QTest::addRow("at %d", place) << place;
    }

    void block_makerNote_staysAtItsPlace()
    {
        QFETCH(int, place);
        const QByteArray note("\1\2\3 a camera's own \0\xFF", 21);
        ExifTags tags = ExifTags::parse(camera_block::withMakerNoteAt(place, note));
        tags.setText(Directory::Picture, ExifTags::Model, QByteArray(50, 'm'));
        tags.setText(Directory::Exposure, ExifTags::DateTimeOriginal, QByteArray(300, 'd'));
        const QByteArray block = tags.block();
        QCOMPARE(block.mid(place, note.size()), note);
        const ExifTags again = ExifTags::parse(block);
        const ExifTags::Entry *found = again.find(Directory::Exposure, ExifTags::MakerNote);
        QVERIFY(found);
        QCOMPARE(int(found->place), place);
        QCOMPARE(found->value, note);
        QCOMPARE(again.text(Directory::Picture, ExifTags::Make), QStringLiteral("Maker"));
        QCOMPARE(again.text(Directory::Picture, ExifTags::Model).size(), 50);
        QCOMPARE(again.text(Directory::Exposure, ExifTags::DateTimeOriginal).size(), 300);
    }

    void block_makerNoteWithoutPlace_closesUp()
    {
        ExifTags tags = ExifTags::parse(camera_block::withMakerNoteAt(40000, "some private note"));
        tags.forgetPlaceOfMakerNote();
        QVERIFY(tags.block().size() < 200);
    }

    void read_directoryBehind64KB_isFound()
    {
        const ExifTags tags = ExifTags::parse(camera_block::withMakerNoteAt(300000, "note"));
        QCOMPARE(tags.text(Directory::Picture, ExifTags::Make), QStringLiteral("Maker"));
    }

    void parse_damagedAnywhere_isSafe()
    {
        const QByteArray block = camera_block::made();
        for (int i = 0; i < block.size(); ++i) {
            for (const char byte : {'\xFF', '\0', '\1', '\x80'}) {
                QByteArray damaged = block;
                damaged[i] = byte;
                QVERIFY(ExifTags::parse(damaged).block().size() < 4096);
            }
            ExifTags::parse(block.left(i)).block();
        }
    }

    void parse_directoryThatNamesItself_ends()
    {
        QByteArray block("II*\0\10\0\0\0\1\0\x69\x87\4\0\1\0\0\0\10\0\0\0\0\0\0\0", 26);
        QVERIFY(ExifTags::parse(block).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestExifTags)
#include "tst_ExifTags.moc"
