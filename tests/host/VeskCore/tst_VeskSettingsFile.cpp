#include <VeskSettingsFile.h>

#include "UnprivilegedUser.h"

#include <VeskGlobalSettings.h>

#include <QColor>
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

private Q_SLOTS:
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
        QCOMPARE(back.toStringList(), value.toStringList());
        QCOMPARE(back.toPoint(), value.toPoint());
        QCOMPARE(back.toSize(), value.toSize());
        QCOMPARE(back.toRect(), value.toRect());
        QCOMPARE(back.toByteArray(), value.toByteArray());
        QVERIFY(!QFile::exists(asidePath()));
    }

    void damagedObject_readsAsDefaultAndIsPutAside_data()
    {
        QTest::addColumn<QByteArray>("contents");
        QTest::newRow("list of four billion")
            << QByteArray("[General]\nlanguage=@Variant(\\0\\0\\0\\xb\\xff\\xff\\xff\\xf0)\n");
        QTest::newRow("no such type")
            << QByteArray("[General]\nlanguage=@Variant(\\0\\0\\x7f\\x7f\\0\\0)\n");
        QTest::newRow("in another key")
            << QByteArray("[General]\nx=@Variant(\\0\\0\\0\\x41\\0)\nlanguage=de_DE\n");
        QTest::newRow("behind an escape sequence")
            << QByteArray("[General]\nlanguage=\\x40Variant(\\0\\0\\0\\x9\\xff\\xff\\xff\\xf0)\n");
        QByteArray nested = "[General]\nlanguage=@Variant(";
        for (int depth = 0; depth < 100000; ++depth)
            nested += "\\0\\0\\0\\x9\\0\\0\\0\\0\\x1";
        QTest::newRow("lists in lists in lists") << nested + ")\n";
        QTest::newRow("larger than the limit")
            << "[General]\nlanguage=" + QByteArray(int(VeskSettingsFile::kLargestBytes), 'x');
    }

    void damagedObject_readsAsDefaultAndIsPutAside()
    {
        QFETCH(QByteArray, contents);
        writeConfig(contents);
        QCOMPARE(VeskSettingsFile::value(kKey, 5).toInt(), 5);
        QVERIFY(!QFile::exists(path()));
        QVERIFY(contentsOf(asidePath()) == contents);
        QVERIFY(VeskSettingsFile::setValue(kKey, QStringLiteral("fr_FR")));
        QCOMPARE(VeskSettingsFile::value(kKey).toString(), QStringLiteral("fr_FR"));
    }

    void damagedObject_writeFirst_startsAnew()
    {
        writeConfig("[General]\nx=@Variant(\\0\\0\\0\\xb\\xff\\xff\\xff\\xf0)\n");
        QVERIFY(VeskSettingsFile::setValue(kKey, QStringLiteral("fr_FR")));
        QCOMPARE(VeskSettingsFile::value(kKey).toString(), QStringLiteral("fr_FR"));
        QVERIFY(QFile::exists(asidePath()));
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
