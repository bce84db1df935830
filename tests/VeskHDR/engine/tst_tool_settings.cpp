#include "tool_settings.h"

#include <QColor>
#include <QDateTime>
#include <QSettings>
#include <QStandardPaths>
#include <QtTest>

namespace {

QString path()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
           QStringLiteral("/config.ini");
}

QByteArray contents()
{
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList filesBeside()
{
    return QDir(QFileInfo(path()).path()).entryList(QDir::Files | QDir::Hidden);
}

} // namespace

/// The tool shares the file with its host, who keeps in it whatever QSettings can write.
class TestToolSettings : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        const QString folder = QFileInfo(path()).path();
        QDir(folder).removeRecursively();
        QVERIFY(QDir().mkpath(folder));
    }

    void missingFile_readsAsEmptyAndIsNotMade()
    {
        QCOMPARE(tool_settings::language(), QString());
        QCOMPARE(tool_settings::openCLDevice(), QString());
        QVERIFY(filesBeside().isEmpty());
    }

    void value_isTheTextThatQSettingsGives_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::newRow("text") << QVariant("de_DE");
        QTest::newRow("marks and signs") << QVariant("@Variant(1); a=\"b\", \\x41 %");
        QTest::newRow("spaces") << QVariant("  GPU  ");
        QTest::newRow("beyond ASCII") << QVariant(QString::fromUtf8("\u65e5\u00e4"));
        QTest::newRow("NUL") << QVariant(QString("a") + QChar(0) + "b");
        QTest::newRow("bytes") << QVariant(QByteArray("de_DE"));
        QTest::newRow("number") << QVariant(5);
        QTest::newRow("nothing") << QVariant("");
        QTest::newRow("list") << QVariant(QStringList{"a", "b"});
        QTest::newRow("no value") << QVariant();
    }
    void value_isTheTextThatQSettingsGives()
    {
        QFETCH(const QVariant, value);
        QSettings(path(), QSettings::IniFormat).setValue("language", value);
        QSettings(path(), QSettings::IniFormat).setValue("OpenCLDevice", value);
        QCOMPARE(tool_settings::language(), value.toString());
        QCOMPARE(tool_settings::openCLDevice(), value.toString());
    }

    /// These ended the process when a value was more than text.
    void objectInTheFile_isNotLookedAt_data()
    {
        QTest::addColumn<QByteArray>("object");
        const QByteArray bytes = "\\0\\0\\0\\x9\\xff\\xff\\xff\\xf0)";
        QTest::newRow("plain") << "@Variant(" + bytes;
        QTest::newRow("date") << "@DateTime(" + bytes;
        QTest::newRow("hexadecimal") << "@V\\x61riant(" + bytes;
        QTest::newRow("octal") << "\\100Variant(" + bytes;
        QTest::newRow("bracket") << "@Variant\\x28" + bytes;
        QTest::newRow("two lines") << "@Var\\\niant(" + bytes;
        QTest::newRow("list") << "a, @Variant(" + bytes;
    }
    void objectInTheFile_isNotLookedAt()
    {
        QFETCH(const QByteArray, object);
        const QByteArray text = "[General]\nOpenCLDevice=A\nx=" + object + "\nlanguage=" + object +
                                "\n[group]\ny=" + object + '\n';
        write(text);
        QCOMPARE(tool_settings::openCLDevice(), QString("A"));
        tool_settings::language();
        QCOMPARE(contents(), text);
        tool_settings::setOpenCLDevice("B; \"b\"");
        QCOMPARE(tool_settings::openCLDevice(), QString("B; \"b\""));
        QByteArray changed = text;
        QCOMPARE(contents(), changed.replace("=A\n", "=\"B; \\\"b\\\"\"\n"));
        QCOMPARE(filesBeside(), QStringList("config.ini"));
    }

    void soundFileOfTheHost_keepsEveryOtherByte()
    {
        {
            QSettings settings(path(), QSettings::IniFormat);
            settings.setValue("colour", QColor(Qt::red));
            settings.setValue("date", QDateTime(QDate(2026, 11, 21), QTime(1, 2)));
            settings.setValue("editor/recentFiles", QStringList{"a,@Variant(1).png", "b"});
            settings.setValue("OpenCLDevice", "A");
        }
        const QByteArray before = contents();
        QVERIFY(before.contains("@Variant("));
        for (int round = 0; round < 2; ++round) {
            QCOMPARE(tool_settings::openCLDevice(), QString("A"));
            QCOMPARE(contents(), before);
        }
        tool_settings::setOpenCLDevice("GPU, B");
        QByteArray changed = before;
        QCOMPARE(contents(), changed.replace("OpenCLDevice=A", "OpenCLDevice=\"GPU, B\""));
        QCOMPARE(filesBeside(), QStringList("config.ini"));
    }

    void storedName_isWhatQSettingsReads()
    {
        for (const QString &name : {QString("GPU, \"x\"; y=1"), QString("@device"), QString(" a "),
                                    QString(), QString::fromUtf8("\u65e5a\u00e4f"),
                                    QString("a\\b\n\x01"
                                            "c")}) {
            tool_settings::setOpenCLDevice(name);
            QFile::remove(path() + "2"); // QSettings remembers files by name and time
            QVERIFY(QFile::copy(path(), path() + "2"));
            QSettings settings(path() + "2", QSettings::IniFormat);
            settings.sync();
            QCOMPARE(settings.value("OpenCLDevice", "?").toString(), name);
        }
    }

private:
    static void write(const QByteArray &text)
    {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(text), text.size());
    }
};

QTEST_GUILESS_MAIN(TestToolSettings)
#include "tst_tool_settings.moc"
