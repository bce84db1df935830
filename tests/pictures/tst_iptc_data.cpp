#include "iptc_data.h"

#include "xmp_namespaces.h"

#include <QtEndian>
#include <QtTest>

namespace {

QByteArray dataset(int record, int number, const QByteArray &value)
{
    QByteArray head("\x1C\0\0\0\0", 5);
    head[1] = char(record);
    head[2] = char(number);
    qToBigEndian(quint16(value.size()), head.data() + 3);
    return head + value;
}

QByteArray resource(quint16 kind, const QByteArray &value, const QByteArray &name = {})
{
    QByteArray bytes = "8BIM" + QByteArray(2, '\0') + char(name.size()) + name;
    qToBigEndian(kind, bytes.data() + 4);
    bytes.append(bytes.size() % 2, '\0');
    QByteArray length(4, '\0');
    qToBigEndian(quint32(value.size()), length.data());
    return bytes + length + value + QByteArray(value.size() % 2, '\0');
}

const QByteArray kUtf8 = dataset(1, 90, "\x1B%G");
const QByteArray kKeywords = dataset(2, 25, "night") + dataset(2, 25,
                                                               "Gr\xC3\xB6\xC3\x9F"
                                                               "e");

} // namespace

class TestIptcData : public QObject
{
    Q_OBJECT

private slots:
    void inPhotoshopBlock_amongOthers_findsTheDatasets()
    {
        const QByteArray block = resource(0x03ED, "seven b") +
                                 resource(0x0404, kKeywords, "a name") + resource(0x0425, "digest");
        QCOMPARE(iptc::inPhotoshopBlock(block), kKeywords);
        QCOMPARE(iptc::inPhotoshopBlock(resource(0x03ED, "seven b")), QByteArray());
        QCOMPARE(iptc::inPhotoshopBlock({}), QByteArray());
    }

    void inPhotoshopBlock_ofAnyLength_isReadBack()
    {
        for (int length = 0; length < 6; ++length) {
            const QByteArray datasets = dataset(2, 105, QByteArray(length, 'h'));
            const QByteArray block = iptc::photoshopBlock(datasets);
            QVERIFY(block.startsWith(QByteArray("Photoshop 3.0\0", 14)));
            QCOMPARE(iptc::inPhotoshopBlock(block.mid(14)), datasets);
        }
    }

    void inPhotoshopBlock_cutOrDamagedAnywhere_isSafe()
    {
        const QByteArray block = resource(0x03ED, "seven b") + resource(0x0404, kKeywords, "name");
        for (int i = 0; i < block.size(); ++i) {
            QByteArray damaged = block;
            damaged[i] = '\xFF';
            for (const QByteArray &bytes : {damaged, block.left(i)})
                QVERIFY(iptc::inPhotoshopBlock(bytes).size() <= block.size());
        }
    }

    void forNewPixels_keepsTextsAndDropsWhatDescribesPixels()
    {
        const QByteArray texts = kUtf8 + kKeywords;
        QCOMPARE(iptc::forNewPixels(texts + dataset(2, 202, "preview") + dataset(3, 20, "\x01") +
                                    dataset(8, 10, "object")),
                 texts);
        QCOMPARE(iptc::forNewPixels(texts + QByteArray(3, '\0')), texts);
    }

    void forNewPixels_damaged_isEmpty()
    {
        QCOMPARE(iptc::forNewPixels(kKeywords.chopped(1)), QByteArray());
        QCOMPARE(iptc::forNewPixels(kKeywords + "rest"), QByteArray());
        QCOMPARE(iptc::forNewPixels(QByteArray("\x1C\x02\x19\xFF\xFF", 5)), QByteArray());
        QCOMPARE(iptc::forNewPixels({}), QByteArray());
    }

    void addTo_givesWhatThePacketLacks()
    {
        XmpPacket packet;
        packet.setText(xmp::kPhotoshop, "City", "Graz");
        iptc::addTo(packet, kUtf8 + kKeywords + dataset(2, 90, "Wien") +
                                dataset(2, 116, "\xC2\xA9 Ann") + dataset(2, 80, "Ann"));
        QCOMPARE(packet.items(xmp::kDublinCore, "subject"), QStringList({"night", "Größe"}));
        QCOMPARE(packet.items(xmp::kDublinCore, "rights"), QStringList("© Ann"));
        QCOMPARE(packet.items(xmp::kDublinCore, "creator"), QStringList("Ann"));
        QCOMPARE(packet.text(xmp::kPhotoshop, "City"), QString("Graz"));
        QVERIFY(!packet.has(xmp::kDublinCore, "title"));
    }

    void addTo_withoutCharacterSet_readsLatin1()
    {
        XmpPacket packet;
        iptc::addTo(packet, dataset(2, 25,
                                    "Gr\xF6\xDF"
                                    "e"));
        QCOMPARE(packet.items(xmp::kDublinCore, "subject"), QStringList("Größe"));
    }
};

QTEST_GUILESS_MAIN(TestIptcData)
#include "tst_iptc_data.moc"
