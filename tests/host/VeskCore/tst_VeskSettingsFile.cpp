#include <VeskSettingsFile.h>

#include "UnprivilegedUser.h"

#include <VeskGlobalSettings.h>

#include <QColor>
#include <QFont>
#include <QProcess>
#include <QSettings>
#include <QtTest>

#include <sys/stat.h>

/// The file as people, crashes and other programs leave it.
namespace {

constexpr const char *kWriterVariable = "VESK_TEST_WRITER";
constexpr int kKeysPerWriter = 10;

const QString kKey = QStringLiteral("language");

QString path()
{
    return VeskGlobalSettings::configFilePath();
}

QString folder()
{
    return QFileInfo(path()).path();
}

QString asidePath()
{
    return path() + QStringLiteral(".damaged");
}

void writeConfig(const QByteArray &contents)
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(contents), qint64(contents.size()));
}

QByteArray contentsOf(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What a process does that writes its own keys while others write theirs.
void writeKeys(const QString &writer)
{
    for (int i = 0; i < kKeysPerWriter; ++i)
        VeskSettingsFile::setValue(QStringLiteral("%1/%2").arg(writer).arg(i), i);
}

} // namespace

class TestVeskSettingsFile : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QVERIFY(QDir().mkpath(folder()));
        for (const QString &name : {path(), asidePath()}) {
            QDir(name).removeRecursively();
            QFile::remove(name);
        }
    }

    void value_writtenAndRead_isTheSame_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::newRow("truth value") << QVariant(true);
        QTest::newRow("number") << QVariant(-7);
        QTest::newRow("text") << QVariant(
            QStringLiteral("a \"b\" \\ ; = @Variant(1) % \u65e5\u672c"));
        QTest::newRow("texts") << QVariant(QStringList{QStringLiteral("a,b"), QString()});
        QTest::newRow("bytes") << QVariant(QByteArray("\0\xFF)", 3));
        QTest::newRow("point") << QVariant(QPoint(1, -2));
        QTest::newRow("size") << QVariant(QSize(3, 4));
        QTest::newRow("rectangle") << QVariant(QRect(1, 2, 3, 4));
    }

    void value_writtenAndRead_isTheSame()
    {
        QFETCH(QVariant, value);
        QVERIFY(VeskSettingsFile::setValue(kKey, value));
        const QVariant back = VeskSettingsFile::value(kKey);
        QVERIFY(back.canConvert(value.metaType()));
        QCOMPARE(back.toString(), value.toString());
        if (value.typeId() == QMetaType::QStringList)
            QCOMPARE(back, value);
        QCOMPARE(back.toPoint(), value.toPoint());
        QCOMPARE(back.toSize(), value.toSize());
        QCOMPARE(back.toRect(), value.toRect());
        QCOMPARE(back.toByteArray(), value.toByteArray());
        QVERIFY(!QFile::exists(asidePath()));
    }

    void serialisedObject_readsAsDefaultAndStays_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("list of four billion")
            << QByteArray("x=@Variant(\\0\\0\\0\\xb\\xff\\xff\\xff\\xf0)");
        QTest::newRow("no such type") << QByteArray("x=@Variant(\\0\\0\\x7f\\x7f\\0\\0)");
        const QByteArray object = "ariant(\\0\\0\\0\\x9\\xff\\xff\\xff\\xf0)";
        QTest::newRow("first letter in hexadecimal") << "x=\\x40V" + object;
        QTest::newRow("first letter in octal") << "x=\\100V" + object;
        QTest::newRow("a letter in hexadecimal") << QByteArray("x=@V\\x61riant(") + object.mid(7);
        QTest::newRow("bracket in hexadecimal")
            << QByteArray("x=@Variant\\x28\\0\\0\\0\\x9\\xff\\xff\\xff\\xf0)");
        QTest::newRow("on two lines") << "x=@\\\nV" + object;
        QTest::newRow("in a list") << "x=a, @V" + object;
        QTest::newRow("date") << QByteArray("x=@DateTime(\\0\\0\\0\\x10\\0)");
        QByteArray nested = "x=@Variant(";
        for (int depth = 0; depth < 100000; ++depth)
            nested += "\\0\\0\\0\\x9\\0\\0\\0\\0\\x1";
        QTest::newRow("lists in lists in lists") << nested + ")";
    }

    void serialisedObject_readsAsDefaultAndStays()
    {
        QFETCH(QByteArray, line);
        writeConfig("[General]\nlanguage=de_DE\n" + line + "\nz=1\n");
        QCOMPARE(VeskSettingsFile::value(QStringLiteral("x"), 5).toInt(), 5);
        QCOMPARE(VeskSettingsFile::value(kKey).toString(), QStringLiteral("de_DE"));
        QVERIFY(VeskSettingsFile::setValue(kKey, QStringLiteral("fr_FR")));
        QVERIFY(contentsOf(path()) == "[General]\nlanguage=fr_FR\n" + line + "\nz=1\n");
        QVERIFY(!QFile::exists(asidePath()));
    }

    void soundFileOfQSettings_keepsItsObjects()
    {
        const QVariantHash values{{"colour", QColor(Qt::red)},
                                  {"date", QDateTime(QDate(2026, 11, 21), QTime(1, 2))},
                                  {"group/font", QFont("Sans", 12)},
                                  {"recent", QStringList{"a,@Variant(1).png", "@b"}}};
        {
            QSettings settings(path(), QSettings::IniFormat);
            for (auto value = values.begin(); value != values.end(); ++value)
                settings.setValue(value.key(), value.value());
        }
        const QByteArray before = contentsOf(path());
        QCOMPARE(VeskSettingsFile::value(QStringLiteral("colour"), 5).toInt(), 5);
        QCOMPARE(VeskSettingsFile::value(QStringLiteral("recent")), values["recent"]);
        QCOMPARE(contentsOf(path()), before);
        QVERIFY(VeskSettingsFile::setValue(kKey, QStringLiteral("fr_FR")));
        const QSettings after(path(), QSettings::IniFormat);
        for (auto value = values.begin(); value != values.end(); ++value)
            QCOMPARE(after.value(value.key()), value.value());
        QVERIFY(!QFile::exists(asidePath()));
    }

    void fileBeyondTheLimit_readsAsDefaultAndStays()
    {
        const QByteArray contents =
            "[General]\nlanguage=" + QByteArray(int(VeskSettingsFile::kLargestBytes), 'x');
        writeConfig(contents);
        QCOMPARE(VeskSettingsFile::value(kKey, 5).toInt(), 5);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^cannot write")));
        QVERIFY(!VeskSettingsFile::setValue(kKey, QStringLiteral("fr_FR")));
        QVERIFY(contentsOf(path()) == contents);
    }

    void object_isNotWritten()
    {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^cannot write")));
        QVERIFY(!VeskSettingsFile::setValue(kKey, QVariantHash{{"a", 1}}));
        QVERIFY(!QFile::exists(path()));
    }

    void invalidValue_removesTheKey()
    {
        writeConfig("[General]\nlanguage=de_DE\nx=1\n");
        QVERIFY(VeskSettingsFile::setValue(kKey, QVariant()));
        QCOMPARE(contentsOf(path()), QByteArray("[General]\nx=1\n"));
    }

    /// Qt 5 knows the letters beyond ASCII by their numbers, and reads the bytes of UTF-8 wrongly.
    void textBeyondAscii_isReadFromAndWrittenForEveryRelease()
    {
        writeConfig("[General]\nlanguage=\\xe4\\x65e5\nx=\xc3\xa4\ny=\xe4\n");
        QCOMPARE(VeskSettingsFile::value(kKey).toString(), QString::fromUtf8("\u00e4\u65e5"));
        QCOMPARE(VeskSettingsFile::value("x").toString(), QString::fromUtf8("\u00e4"));
        QCOMPARE(VeskSettingsFile::value("y").toString(), QString::fromUtf8("\u00e4"));
        QVERIFY(VeskSettingsFile::setValue(kKey, QString::fromUtf8("\u65e5a")));
        QCOMPARE(contentsOf(path()).split('\n').at(1), QByteArray("language=\\x65e5\\x61"));
    }

    void directoryInItsPlace_readsAsDefaultTakesNothingAndStays()
    {
        QVERIFY(QDir().mkpath(path() + QStringLiteral("/inside")));
        QCOMPARE(VeskSettingsFile::value(kKey, 5).toInt(), 5);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^cannot write")));
        QVERIFY(!VeskSettingsFile::setValue(kKey, 6));
        QVERIFY(QFileInfo(path() + QStringLiteral("/inside")).isDir());
    }

    void pipeInItsPlace_doesNotBlock()
    {
        QCOMPARE(::mkfifo(QFile::encodeName(path()).constData(), 0600), 0);
        QCOMPARE(VeskSettingsFile::value(kKey, 5).toInt(), 5);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^cannot write")));
        QVERIFY(!VeskSettingsFile::setValue(kKey, 6));
    }

    void linkToItself_readsAsDefault()
    {
        QVERIFY(QFile::link(path(), path()));
        QCOMPARE(VeskSettingsFile::value(kKey, 5).toInt(), 5);
        VeskSettingsFile::setValue(kKey, 6);
    }

    void unreadableFile_readsAsDefaultAndStays()
    {
        const QByteArray contents = "[General]\nlanguage=de_DE\n";
        writeConfig(contents);
        const UnprivilegedUser user({folder(), path()});
        if (!user.canReach(path()))
            QSKIP("root cannot step down here");
        QVERIFY(QFile::setPermissions(path(), {}));
        QCOMPARE(VeskSettingsFile::value(kKey, 5).toInt(), 5);
        VeskSettingsFile::setValue(kKey, 6);
        QVERIFY(QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner));
        QCOMPARE(contentsOf(path()), contents);
    }

    void readOnlyFolder_takesNothing()
    {
        const QByteArray contents = "[General]\nlanguage=de_DE\n";
        writeConfig(contents);
        const UnprivilegedUser user({folder(), path()});
        if (!user.canReach(path()))
            QSKIP("root cannot step down here");
        QVERIFY(QFile::setPermissions(path(), QFile::ReadOwner));
        QVERIFY(QFile::setPermissions(folder(), QFile::ReadOwner | QFile::ExeOwner));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^cannot write")));
        const bool isWritten = VeskSettingsFile::setValue(kKey, QStringLiteral("fr_FR"));
        QVERIFY(QFile::setPermissions(folder(),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        QVERIFY(!isWritten);
        QCOMPARE(contentsOf(path()), contents);
    }

    void fullDisk_keepsTheOldFile()
    {
        const QByteArray contents = "[General]\nlanguage=de_DE\n";
        writeConfig(contents);
        QProcess process;
        process.setProgram(QStringLiteral("/bin/sh"));
        process.setArguments({QStringLiteral("-c"),
                              QStringLiteral("ulimit -f 0; trap '' XFSZ; exec \"$0\""),
                              QCoreApplication::applicationFilePath()});
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QLatin1String(kWriterVariable), QStringLiteral("full"));
        process.setProcessEnvironment(environment);
        process.start();
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(contentsOf(path()), contents);
    }

    void severalProcesses_loseNoKey()
    {
        const QStringList writers = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
        std::vector<std::unique_ptr<QProcess>> processes;
        for (const QString &writer : writers) {
            processes.push_back(std::make_unique<QProcess>());
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert(QLatin1String(kWriterVariable), writer);
            processes.back()->setProcessEnvironment(environment);
            processes.back()->start(QCoreApplication::applicationFilePath(), QStringList());
        }
        for (const auto &process : processes) {
            QVERIFY(process->waitForFinished(120000));
            QCOMPARE(process->exitCode(), 0);
        }
        const QSettings settings(path(), QSettings::IniFormat);
        for (const QString &writer : writers)
            for (int i = 0; i < kKeysPerWriter; ++i)
                QCOMPARE(settings.value(QStringLiteral("%1/%2").arg(writer).arg(i), -1).toInt(), i);
    }
};

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QString writer = qEnvironmentVariable(kWriterVariable);
    if (!writer.isEmpty()) {
        writeKeys(writer);
        return 0;
    }
    TestVeskSettingsFile test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_VeskSettingsFile.moc"
