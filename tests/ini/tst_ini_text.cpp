#include "ini_text.h"

#include <QColor>
#include <QSettings>
#include <QtTest>

#include <random>

namespace {

const QString kKey = QStringLiteral("OpenCLDevice");

QStringList found(const QByteArray &text, const QString &key)
{
    return ini::find(text, key).value_or(QStringList());
}

} // namespace

class TestIniText : public QObject
{
    Q_OBJECT

private slots:
    void find_inEachPlace_isTheValue_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("in General") << QByteArray("[General]\nOpenCLDevice=a b\n");
        QTest::newRow("without a header") << QByteArray("OpenCLDevice=a b");
        QTest::newRow("behind a byte order mark") << QByteArray("\xEF\xBB\xBFOpenCLDevice=a b");
        QTest::newRow("in other letter case") << QByteArray("[generaL]\r\n OpenCLDevice =a b\r\n");
        QTest::newRow("behind a group") << QByteArray("[a]\nx=1\n[General]\nOpenCLDevice=a b");
        QTest::newRow("twice") << QByteArray("OpenCLDevice=x\nOpenCLDevice=a b\n");
        QTest::newRow("before a comment") << QByteArray("OpenCLDevice=a b ;x\n;OpenCLDevice=y\n");
        QTest::newRow("escaped key") << QByteArray("Open%43LDevice=a b\n");
        QTest::newRow("on two lines") << QByteArray("OpenCLDevice=a\\\n b\n");
        QTest::newRow("behind a joined line")
            << QByteArray("x=\\\nOpenCLDevice=y\nOpenCLDevice=a b");
        QTest::newRow("behind an open quote")
            << QByteArray("x=\"\nOpenCLDevice=y\"\nOpenCLDevice=a b");
    }
    void find_inEachPlace_isTheValue()
    {
        QFETCH(const QByteArray, text);
        QCOMPARE(found(text, kKey), QStringList("a b"));
    }

    void find_whatIsNotThere_isNothing_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("another group") << QByteArray("[a]\nOpenCLDevice=x\n");
        QTest::newRow("the group that is called General")
            << QByteArray("[%General]\nOpenCLDevice=x\n");
        QTest::newRow("comment") << QByteArray(";OpenCLDevice=x\n");
        QTest::newRow("letter case") << QByteArray("openCLDevice=x\n");
        QTest::newRow("no equals sign") << QByteArray("OpenCLDevice\n");
        QTest::newRow("within a quote") << QByteArray("x=\"\nOpenCLDevice=y\n\"");
    }
    void find_whatIsNotThere_isNothing()
    {
        QFETCH(const QByteArray, text);
        QVERIFY(!ini::find(text, kKey));
    }

    void withValue_changesNothingElse_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("changed");
        const auto row = [](const char *name, const QByteArray &text, const QByteArray &changed) {
            QTest::newRow(name) << text << changed;
        };
        row("in its place", "a=1\nOpenCLDevice = x ;c\nb=2\n", "a=1\nOpenCLDevice =v;c\nb=2\n");
        row("the last of two", "OpenCLDevice=x\nOpenCLDevice=y", "OpenCLDevice=x\nOpenCLDevice=v");
        row("below its header", "[a]\nx=1\n[General] ;c\ny=2\n",
            "[a]\nx=1\n[General] ;c\nOpenCLDevice=v\ny=2\n");
        row("header at the end", "[General]", "[General]\nOpenCLDevice=v\n");
        row("other header only", "x=1\n\n[a]\ny=@Variant(1)\n",
            "x=1\n\n[General]\nOpenCLDevice=v\n\n[a]\ny=@Variant(1)\n");
        row("no header", "\xEF\xBB\xBFx=1\n", "\xEF\xBB\xBF[General]\nOpenCLDevice=v\nx=1\n");
        row("nothing", "", "[General]\nOpenCLDevice=v\n");
        row("line ends of Windows", "[General]\r\nx=1\r\n",
            "[General]\r\nOpenCLDevice=v\r\nx=1\r\n");
        row("open quote behind the header", "[General] \"\nx=1\n",
            "[General]\nOpenCLDevice=v\n\n[General] \"\nx=1\n");
        row("backslash behind the header", "[General] \\",
            "[General]\nOpenCLDevice=v\n\n[General] \\");
    }
    void withValue_changesNothingElse()
    {
        QFETCH(const QByteArray, text);
        QFETCH(const QByteArray, changed);
        QCOMPARE(ini::withValue(text, kKey, {"v"}), changed);
        QCOMPARE(found(changed, kKey), QStringList("v"));
    }

    void withValue_ofANewGroup_takesNoOtherKeysAlong_data()
    {
        QTest::addColumn<QString>("key");
        QTest::newRow("group") << "editor/folder";
        QTest::newRow("group in a group") << "editor/a/b";
        QTest::newRow("group that is called General") << "General/x";
        QTest::newRow("odd letters") << QString::fromUtf8("] \u65e5/a=b");
    }
    void withValue_ofANewGroup_takesNoOtherKeysAlong()
    {
        QFETCH(const QString, key);
        for (const QByteArray text :
             {"x=1\n", "x=\"1", "[General]\nx=1\n", "[b]\ny=2\n[General]\nx=1"}) {
            const QByteArray changed = ini::withValue(text, key, {"v"});
            QCOMPARE(found(changed, key), QStringList("v"));
            QCOMPARE(found(changed, "x"), found(text, "x"));
            QCOMPARE(found(changed, "b/y"), found(text, "b/y"));
        }
    }

    void withoutKey_leavesTheRest()
    {
        const QByteArray text = "a=1\r\nOpenCLDevice=x\r\nb=2\nOpenCLDevice=\"y\nz\"\nc=3";
        QCOMPARE(ini::withoutKey(text, kKey), QByteArray("a=1\r\nb=2\nc=3"));
        QCOMPARE(ini::withoutKey("a=1\nOpenCLDevice=x", kKey), QByteArray("a=1\n"));
        QCOMPARE(ini::withoutKey("a=1", kKey), QByteArray("a=1"));
    }

    void find_ofWhatQSettingsWrites_isTheSame()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a.ini"));
        const QStringList list{"a,b", "", " c ", "@d", QString::fromUtf8("\u65e5")};
        {
            QSettings settings(path, QSettings::IniFormat);
            settings.setValue("list", list);
            settings.setValue("group/colour", QColor(Qt::red));
            settings.setValue("group/b c/text", "x;y\\\"z\x01"
                                                "f");
            settings.setValue("General/x", 5);
        }
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.readAll();
        QStringList marked = list;
        marked[3] = "@@d";
        QCOMPARE(found(text, "list"), marked);
        QVERIFY(found(text, "group/colour").first().startsWith("@Variant("));
        QCOMPARE(found(text, "group/b c/text"), QStringList("x;y\\\"z\x01"
                                                            "f"));
        QCOMPARE(found(text, "General/x"), QStringList("5"));
    }

    /// Texts of pieces that matter to the format; QSettings is the judge.
    void anyText_readAsQSettingsDoesAndChangedForIt()
    {
        const QByteArrayList pieces{
            "a", "=",     "\n", "\r\n", "[",   "]",  "General", ";", "\"", "\\",    ",",  " ", "\t",
            "%", "[b]\n", "a=", "x41",  "\\x", "10", "\u65e5",  "/", "b",  "U0041", "%41"};
        std::mt19937 random(20261122);
        QTemporaryDir folder;
        int keys = 0;
        for (int round = 0; round < 1500; ++round) {
            QByteArray text;
            for (unsigned length = random() % 24; length > 0; --length)
                text += pieces[int(random() % unsigned(pieces.size()))];
            keys += compareWithQSettings(folder.filePath(QString::number(round)), text);
            if (QTest::currentTestFailed())
                qFatal("text: %s", text.toPercentEncoding().constData());
        }
        QVERIFY2(keys > 500, qPrintable(QString::number(keys)));
    }

private:
    /// How many keys were compared.
    static int compareWithQSettings(const QString &path, const QByteArray &text)
    {
        const auto write = [](const QString &name, const QByteArray &contents) {
            QFile file(name);
            if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
                qFatal("cannot write");
        };
        write(path, text);
        const QByteArray changed = ini::withValue(text, "b/new", {"v, w"});
        write(path + "c", changed);
        const QSettings before(path, QSettings::IniFormat);
        const QSettings after(path + "c", QSettings::IniFormat);
        static_cast<void>(
            after.allKeys()); // QSettings forgets to look for some keys of odd groups without it
        if (after.value("b/new").toString() != "v, w")
            QTest::qFail("new key", __FILE__, __LINE__);
        const QStringList keys = before.allKeys();
        for (const QString &key : keys) {
            if (key.contains("//") || key.startsWith('/') || key.endsWith('/') || key.isEmpty())
                continue; // QSettings does not find these itself
            const QStringList expected = before.value(key).toStringList();
            if (found(text, key) != expected &&
                QTest::qCompare(found(text, key), expected, qPrintable(key), "QSettings", __FILE__,
                                __LINE__))
                continue;
            if (key != "b/new" && after.value(key) != before.value(key))
                QTest::qFail(qPrintable("lost " + key), __FILE__, __LINE__);
        }
        return int(keys.size());
    }
};

QTEST_GUILESS_MAIN(TestIniText)
#include "tst_ini_text.moc"
