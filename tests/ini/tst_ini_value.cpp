#include "ini_value.h"

#include <QtTest>

#include <random>

class TestIniValue : public QObject
{
    Q_OBJECT

private slots:
    void readValue_ofEachNotation_isTheTextsOfIt_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("texts");
        const auto row = [](const char *name, const QByteArray &bytes, const QStringList &texts) {
            QTest::newRow(name) << bytes << texts;
        };
        row("nothing", "", {QString()});
        row("spaces around", " \ta b \t", {"a b"});
        row("quotes keep spaces", "\" a \"", {" a "});
        row("quotes in between", "a\" b\" c ", {"a bc "});
        row("letters", "\\a\\b\\f\\n\\r\\t\\v\\\"\\\\\\?\\'", {"\a\b\f\n\r\t\v\"\\?'"});
        row("hexadecimal", "\\x41\\x4eA\\x65e5", {QString::fromUtf8("A\u04ea\u65e5")});
        row("hexadecimal beyond 16 bits", "\\x1000041", {"A"});
        row("hexadecimal without digits", "\\xg", {"g"});
        row("octal", "\\101\\08", {QString("A") + QChar(0) + "8"});
        row("unknown letter", "a\\qb", {"ab"});
        row("backslash at the end", "a \\", {"a "});
        row("joined lines", "a\\\nb\\\r\nc\\\n\rd", {"abcd"});
        row("escaped space at the end", "a\\x20 ", {"a "});
        row("list", "a, \"b, c\" ,,d", {"a", "b, c", "", "d"});
        row("comma alone", ",", {"", ""});
        row("UTF-8", "\u00e4\u65e5", {QString::fromUtf8("\u00e4\u65e5")});
        row("Latin-1", "\xe4\xf6", {QString::fromUtf8("\u00e4\u00f6")});
        row("Latin-1 at the end", "a\xe4", {QString::fromUtf8("a\u00e4")});
        row("serialised object", "@Variant(\\0\\0\\0\\x43)",
            {QString::fromLatin1("@Variant(\0\0\0C)", 14)});
        row("escaped mark", "@V\\x61riant(", {"@Variant("});
    }
    void readValue_ofEachNotation_isTheTextsOfIt()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const QStringList, texts);
        QCOMPARE(ini::readValue(bytes), texts);
    }

    void writtenValue_ofAnyTexts_isAsciiAndReadsTheSame()
    {
        std::mt19937 random(20261121);
        const char16_t units[] = u"ab09xF ,;=\"\\'?@%\n\r\t\0\u007f\u00e4\u65e5\xd83d\xde00";
        for (int round = 0; round < 5000; ++round) {
            QStringList texts;
            for (unsigned i = 0; i <= random() % 3; ++i) {
                QString text;
                for (unsigned length = random() % 6; length > 0; --length)
                    text += QChar(units[random() % (std::size(units) - 1)]);
                texts += text;
            }
            const QByteArray written = ini::writtenValue(texts);
            QCOMPARE(ini::readValue(written), texts);
            for (const char byte : written)
                QVERIFY(byte >= ' ' && byte < 0x7f);
        }
    }

    void key_writtenAndRead_isTheSame_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QByteArray>("written");
        QTest::newRow("plain") << "OpenCLDevice" << QByteArray("OpenCLDevice");
        QTest::newRow("path") << "a/b-c_d.e" << QByteArray("a\\b-c_d.e");
        QTest::newRow("blank and percent") << "a b%" << QByteArray("a%20b%25");
        QTest::newRow("control") << "\n" << QByteArray("%0A");
        QTest::newRow("beyond Latin-1")
            << QString::fromUtf8("\u00e4\u65e5") << QByteArray("%E4%U65E5");
    }
    void key_writtenAndRead_isTheSame()
    {
        QFETCH(const QString, key);
        QFETCH(const QByteArray, written);
        QCOMPARE(ini::writtenKey(key), written);
        QCOMPARE(ini::readKey(written), key);
    }

    void readKey_ofPercentWithoutDigits_keepsIt()
    {
        for (const QString key : {"%", "a%2", "%zz", "%U12", "%Uzzzz"})
            QCOMPARE(ini::readKey(key.toLatin1()), key);
    }

    void marks_ofTexts_comeOffAndOn()
    {
        QCOMPARE(ini::withoutMarks("@@a"), QString("@a"));
        QCOMPARE(ini::withoutMarks("@String(a)"), QString("a"));
        QCOMPARE(ini::withoutMarks("@ByteArray(a)"), QString("a"));
        QCOMPARE(ini::withoutMarks("@Invalid()"), QString());
        QCOMPARE(ini::withoutMarks("@Variant(a)"), QString("@Variant(a)"));
        for (const QString &text : {QString("a"), QString("@a"), QString("@String(a)"),
                                    QString::fromLatin1("a\0b", 3), QString()})
            QCOMPARE(ini::withoutMarks(ini::withMarks(text)), text);
    }
};

QTEST_GUILESS_MAIN(TestIniValue)
#include "tst_ini_value.moc"
