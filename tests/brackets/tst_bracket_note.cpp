#include "bracket_note.h"
#include "byte_order.h"

#include <QtTest>

namespace {

using Directory = ExifTags::Directory;

ExifTags withNote(const QByteArray &make, const QByteArray &note)
{
    ExifTags tags;
    tags.setText(Directory::Picture, ExifTags::Make, make);
    tags.setBytes(Directory::Exposure, ExifTags::MakerNote, note);
    return ExifTags::parse(tags.block());
}

QByteArray nikonNote(qint32 numerator, qint32 denominator)
{
    ExifTags own;
    own.setSignedFraction(Directory::Picture, 0x0019, numerator, denominator);
    return QByteArray("Nikon\0\2\x10\0\0", 10) + own.block();
}

/// A directory of one entry, whose numbers stand behind it: place is where the note begins.
QByteArray canonNote(quint32 place, qint16 stops32, quint32 numbers = 20)
{
    constexpr quint32 kDirectoryBytes = 2 + 12 + 4;
    const auto written = [](auto number) { return byte_order::written(number, false); };
    QByteArray note = written(quint16(1)) + written(quint16(4)) + written(quint16(3)) +
                      written(numbers) + written(place + kDirectoryBytes) + QByteArray(4, '\0');
    for (quint32 i = 0; i < numbers; ++i)
        note += written(i == 16 ? quint16(stops32) : quint16(7));
    return note;
}

/// Where the note of such a block stands.
quint32 placeOfNote(const ExifTags &tags)
{
    return tags.find(Directory::Exposure, ExifTags::MakerNote)->place;
}

ExifTags ofCanon(qint16 stops32)
{
    const quint32 place = placeOfNote(withNote("Canon", canonNote(0, stops32)));
    return withNote("Canon", canonNote(place, stops32));
}

} // namespace

class TestBracketNote : public QObject
{
    Q_OBJECT

private slots:
    void nikon_tellsStops()
    {
        const auto stops = brackets::bracketStopsIn(withNote("NIKON", nikonNote(-4, 3)));
        QVERIFY(stops);
        QCOMPARE(*stops, -4 / 3.0);
    }

    void canon_tellsStops()
    {
        const auto stops = brackets::bracketStopsIn(ofCanon(-64));
        QVERIFY(stops);
        QCOMPARE(*stops, -2.0);
        QCOMPARE(brackets::bracketStopsIn(ofCanon(0)), std::optional(0.0));
    }

    void otherCameras_tellNothing()
    {
        QVERIFY(!brackets::bracketStopsIn(withNote("Example", canonNote(0, 32))));
        QVERIFY(!brackets::bracketStopsIn(ExifTags()));
    }

    void valuesThatCannotBe_areNotTaken()
    {
        QVERIFY(!brackets::bracketStopsIn(ofCanon(32000)));
        QVERIFY(!brackets::bracketStopsIn(withNote("NIKON", nikonNote(1, 0))));
        QVERIFY(!brackets::bracketStopsIn(withNote("NIKON", nikonNote(99, 1))));
    }

    /// Cut off at every byte, and with places that lie outside.
    void damagedNotes_tellNothingOrTheTruth()
    {
        const QByteArray whole = canonNote(placeOfNote(ofCanon(32)), 32);
        for (int length = 1; length < whole.size(); ++length) {
            const auto stops = brackets::bracketStopsIn(withNote("Canon", whole.left(length)));
            QVERIFY(!stops || std::abs(*stops) <= 10);
        }
        QVERIFY(!brackets::bracketStopsIn(withNote("Canon", canonNote(0xFFFFFF00, 32))));
        QVERIFY(!brackets::bracketStopsIn(withNote("Canon", canonNote(0, 32, 3))));
        const QByteArray nikon = nikonNote(1, 1);
        for (int length = 1; length < nikon.size(); ++length)
            QVERIFY(!brackets::bracketStopsIn(withNote("NIKON", nikon.left(length))));
    }
};

QTEST_GUILESS_MAIN(TestBracketNote)
#include "tst_bracket_note.moc"
