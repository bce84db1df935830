#include "XmpPacket.h"

#include "xmp_namespaces.h"

#include <QtTest>

namespace {

/// A packet around these properties.
QByteArray packet(const QByteArray &properties, const QByteArray &spaces = {})
{
    return "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF "
           "xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\"><rdf:Description "
           "rdf:about=\"\" xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\" "
           "xmlns:dc=\"http://purl.org/dc/elements/1.1/\" " +
           spaces + ">" + properties + "</rdf:Description></rdf:RDF></x:xmpmeta>";
}

QByteArray nested(int levels)
{
    return QByteArray("<xmp:a rdf:parseType=\"Resource\">").repeated(levels) + "<xmp:b>1</xmp:b>" +
           QByteArray("</xmp:a>").repeated(levels);
}

QByteArray numbered(int count, int first = 0)
{
    QByteArray properties;
    for (int i = 0; i < count; ++i)
        properties += "<xmp:a" + QByteArray::number(first + i) + "/>";
    return properties;
}

QByteArray attributes(int count)
{
    QByteArray list;
    for (int i = 0; i < count; ++i)
        list += " xmp:a" + QByteArray::number(i) + "=\"\"";
    return list;
}

} // namespace

class TestXmpPacket : public QObject
{
    Q_OBJECT

private slots:
    void parse_plainPacket_tellsItsProperties()
    {
        const auto parsed = XmpPacket::parse(
            packet("<xmp:Rating>4</xmp:Rating><dc:subject><rdf:Bag><rdf:li>Größe</rdf:li>"
                   "<rdf:li>night</rdf:li></rdf:Bag></dc:subject>"));
        QVERIFY(parsed);
        QCOMPARE(parsed->text(xmp::kBasic, "Rating"), QString("4"));
        QCOMPARE(parsed->items(xmp::kDublinCore, "subject"), QStringList({"Größe", "night"}));
        QVERIFY(parsed->has(xmp::kDublinCore, "subject"));
        QVERIFY(!parsed->has(xmp::kDublinCore, "title"));
        QVERIFY(!parsed->has("urn:nobody:knows#", "title"));
    }

    void parse_whatCannotBeTrusted_givesNothing_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("zero bytes") << QByteArray(9, '\0');
        QTest::newRow("no XML") << QByteArray("Just a letter.");
        QTest::newRow("cut") << packet("<xmp:Rating>4</xmp:Rating>").chopped(9);
        QTest::newRow("bytes behind it") << packet("") + "<x/>";
        QTest::newRow("entities") << "<!DOCTYPE x [<!ENTITY a \"aaaa\">]>" +
                                         packet("<xmp:Label>&a;</xmp:Label>");
        QTest::newRow("document type") << "<!DOCTYPE x>" + packet("<xmp:Rating>4</xmp:Rating>");
        QTest::newRow("deep") << packet(nested(200));
        QTest::newRow("very deep") << packet(nested(100000));
        QTest::newRow("many properties") << packet(numbered(2001));
        QTest::newRow("many properties in parts")
            << packet(numbered(1500) +
                      "</rdf:Description><rdf:Description rdf:about=\"\" "
                      "xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\">" +
                      numbered(600, 5000));
        QTest::newRow("many attributes") << packet("", attributes(2001));
        QTest::newRow("many items")
            << packet("<dc:subject><rdf:Bag>" + QByteArray("<rdf:li/>").repeated(20001) +
                      "</rdf:Bag></dc:subject>");
        QTest::newRow("large") << packet("<xmp:Label>" + QByteArray(5 << 20, 'x') + "</xmp:Label>");
        QTest::newRow("not UTF-8") << packet("<xmp:Label>\xFF\xFE</xmp:Label>");
    }

    void parse_whatCannotBeTrusted_givesNothing()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!XmpPacket::parse(bytes));
    }

    void parse_asMuchAsIsAllowed_isTaken()
    {
        QVERIFY(XmpPacket::parse(packet(nested(50))));
        QVERIFY(XmpPacket::parse(packet(numbered(1900))));
        const auto keywords = XmpPacket::parse(
            packet("<dc:subject><rdf:Bag>" + QByteArray("<rdf:li>a</rdf:li>").repeated(19000) +
                   "</rdf:Bag></dc:subject>"));
        QVERIFY(keywords);
        QCOMPARE(keywords->count(xmp::kDublinCore, "subject"), 19000);
    }

    void parse_zeroBytesBehindThePacket_arePassedOver()
    {
        QVERIFY(XmpPacket::parse(packet("<xmp:Rating>4</xmp:Rating>") + QByteArray(3, '\0')));
    }

    void parse_eachByteDamaged_isSafe()
    {
        const QByteArray sound =
            packet("<xmp:Rating>4</xmp:Rating><dc:title><rdf:Alt><rdf:li "
                   "xml:lang=\"x-default\">Window</rdf:li></rdf:Alt></dc:title>");
        int readable = 0;
        for (int i = 0; i < sound.size(); ++i) {
            for (const char byte : {'<', '\xFF', '"', ' '}) {
                QByteArray damaged = sound;
                damaged[i] = byte;
                if (const auto parsed = XmpPacket::parse(damaged)) {
                    ++readable;
                    QVERIFY(XmpPacket::parse(parsed->serialized()));
                }
            }
        }
        QVERIFY(readable > 0);
    }

    void serialized_readAgain_isTheSame()
    {
        XmpPacket made;
        made.setText(xmp::kBasic, "Label", "a < b & \"c\"");
        made.setItems(xmp::kDublinCore, "creator", {"Ann", "Bob"}, XmpPacket::Array::Seq);
        made.setDefaultText(xmp::kDublinCore, "rights", "© Ann");
        const auto again = XmpPacket::parse(made.serialized());
        QVERIFY(again);
        QCOMPARE(again->text(xmp::kBasic, "Label"), QString("a < b & \"c\""));
        QCOMPARE(again->items(xmp::kDublinCore, "creator"), QStringList({"Ann", "Bob"}));
        QCOMPARE(again->items(xmp::kDublinCore, "rights"), QStringList("© Ann"));
        QCOMPARE(again->serialized(), made.serialized());
    }

    void setText_whatXmlDoesNotHold_isReplaced()
    {
        XmpPacket made;
        made.setText(xmp::kBasic, "Label", QString("a\x01") + QChar(0xDCFF) + "b");
        const auto again = XmpPacket::parse(made.serialized());
        QVERIFY(again);
        QCOMPARE(again->text(xmp::kBasic, "Label"), QString("a\uFFFD\uFFFDb"));
    }

    void setItems_replacesTheListThatWasThere()
    {
        XmpPacket made;
        made.setItems(xmp::kDublinCore, "subject", {"a", "b", "c"}, XmpPacket::Array::Bag);
        made.setItems(xmp::kDublinCore, "subject", {"d"}, XmpPacket::Array::Bag);
        QCOMPARE(made.items(xmp::kDublinCore, "subject"), QStringList("d"));
        QCOMPARE(made.count(xmp::kDublinCore, "subject"), 1);
    }

    void removeNamespace_takesItsPropertiesAlone()
    {
        auto parsed = XmpPacket::parse(packet(
            "<xmp:Rating>4</xmp:Rating><y:a>1</y:a><y:b rdf:parseType=\"Resource\"><y:c>2</y:c>"
            "</y:b>",
            "xmlns:y=\"http://example.com/y/\""));
        QVERIFY(parsed);
        QCOMPARE(parsed->namespaces().size(), 2);
        QVERIFY(parsed->weightOf("http://example.com/y/") > 3);
        parsed->removeNamespace("http://example.com/y/");
        parsed->removeNamespace("http://example.com/never/seen/");
        QCOMPARE(parsed->namespaces(), QList<QByteArray>{xmp::kBasic});
    }

    void add_takesWhatIsLackingWithAllThatBelongsToIt()
    {
        auto one = XmpPacket::parse(packet("<xmp:Rating>4</xmp:Rating><dc:subject><rdf:Bag>"
                                           "<rdf:li>own</rdf:li></rdf:Bag></dc:subject>"));
        const auto other = XmpPacket::parse(
            packet("<xmp:Rating>1</xmp:Rating><dc:subject><rdf:Bag><rdf:li>x</rdf:li><rdf:li>y"
                   "</rdf:li></rdf:Bag></dc:subject><dc:title><rdf:Alt><rdf:li "
                   "xml:lang=\"x-default\">Window</rdf:li><rdf:li xml:lang=\"en\">Window"
                   "</rdf:li><rdf:li xml:lang=\"de\">Fenster"
                   "</rdf:li></rdf:Alt></dc:title><y:s rdf:parseType=\"Resource\"><y:l><rdf:Seq>"
                   "<rdf:li>1</rdf:li><rdf:li>2</rdf:li></rdf:Seq></y:l></y:s>",
                   "xmlns:y=\"http://example.com/y/\""));
        QVERIFY(one && other);
        one->add(*other);
        const auto sum = XmpPacket::parse(one->serialized());
        QVERIFY(sum);
        QCOMPARE(sum->text(xmp::kBasic, "Rating"), QString("4"));
        QCOMPARE(sum->items(xmp::kDublinCore, "subject"), QStringList("own"));
        QCOMPARE(sum->items(xmp::kDublinCore, "title"),
                 QStringList({"Window", "Window", "Fenster"}));
        QCOMPARE(sum->text(xmp::kDublinCore, "title[3]/?xml:lang"), QString("de"));
        QCOMPARE(sum->items("http://example.com/y/",
                            "s/" + XmpPacket::prefixOf("http://example.com/y/").toLatin1() + ":l"),
                 QStringList({"1", "2"}));
    }

    void packets_onSeveralThreads_doNotDisturbEachOther()
    {
        std::vector<std::unique_ptr<QThread>> threads;
        std::atomic<int> right = 0;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back(QThread::create([i, &right] {
                for (int round = 0; round < 50; ++round) {
                    XmpPacket made;
                    made.setText(xmp::kBasic, "Label", QString::number(i * 1000 + round));
                    const auto again = XmpPacket::parse(made.serialized());
                    right += again && again->text(xmp::kBasic, "Label").toInt() == i * 1000 + round;
                }
            }));
            threads.back()->start();
        }
        for (const auto &thread : threads)
            thread->wait();
        QCOMPARE(right.load(), 200);
    }
};

QTEST_GUILESS_MAIN(TestXmpPacket)
#include "tst_XmpPacket.moc"
