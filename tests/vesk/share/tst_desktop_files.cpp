#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

namespace {

QString pathOf(const QString &name)
{
    return QStringLiteral(SHARE_FOLDER "/") + name;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Keys of a group of a desktop file.
QMap<QString, QString> keysOf(const QString &name, const QString &group)
{
    QMap<QString, QString> keys;
    bool isInside = false;
    const QString text = QString::fromUtf8(contentOf(pathOf(name)));
    for (const QString &line : text.split('\n')) {
        if (line.startsWith('['))
            isInside = line == '[' + group + ']';
        else if (isInside && line.contains('='))
            keys.insert(line.section('=', 0, 0), line.section('=', 1));
    }
    return keys;
}

/// Runs a tool that finds fault with files; its words when it does.
QString faultsBy(const QString &tool, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(tool, arguments);
    if (!process.waitForFinished())
        return process.errorString();
    return process.exitCode() == 0 ? QString() : QString::fromUtf8(process.readAll());
}

} // namespace

/// What desktops read of the editor.
class TestDesktopFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        if (!QFile::exists(pathOf("vesk.desktop")))
            QSKIP("this system has no desktop files");
    }

    void desktopFiles_areValid_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("the editor") << "vesk.desktop";
        QTest::newRow("open with") << "vesk-merge.desktop";
    }

    void desktopFiles_areValid()
    {
        QFETCH(const QString, name);
        if (QStandardPaths::findExecutable("desktop-file-validate").isEmpty())
            QSKIP("desktop-file-utils is not installed");
        const QString faults = faultsBy("desktop-file-validate", {pathOf(name)});
        QVERIFY2(faults.isEmpty(), qPrintable(faults));
    }

    void appStreamData_areValid()
    {
        if (QStandardPaths::findExecutable("appstreamcli").isEmpty())
            QSKIP("appstream is not installed");
        const QString faults =
            faultsBy("appstreamcli", {"validate", "--no-net", pathOf("vesk.metainfo.xml")});
        QVERIFY2(faults.isEmpty(), qPrintable(faults));
    }

    void appStreamData_nameTheFilesThatAreInstalled()
    {
        const QByteArray data = contentOf(pathOf("vesk.metainfo.xml"));
        QXmlStreamReader xml(data);
        while (!xml.atEnd())
            xml.readNext();
        QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
        QVERIFY(data.contains("<launchable type=\"desktop-id\">vesk.desktop</launchable>"));
        const QString types = keysOf("vesk.desktop", "Desktop Entry")["MimeType"];
        QCOMPARE(types.count(';'), data.count("<mediatype>"));
        QVERIFY(types.startsWith("image/jpeg;image/png;") && types.endsWith(';'));
    }

    void everyAction_handsTheFilesToTheMerge_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("group");
        QTest::addColumn<QString>("types"); ///< group and key
        QTest::newRow("open with") << "vesk-merge.desktop"
                                   << "Desktop Entry"
                                   << "Desktop Entry/MimeType";
        QTest::newRow("Dolphin") << "vesk-dolphin.desktop"
                                 << "Desktop Action mergeExposures"
                                 << "Desktop Entry/MimeType";
        QTest::newRow("Nemo") << "vesk-merge.nemo_action"
                              << "Nemo Action"
                              << "Nemo Action/Mimetypes";
    }

    void everyAction_handsTheFilesToTheMerge()
    {
        QFETCH(const QString, file);
        QFETCH(const QString, group);
        QFETCH(const QString, types);
        const auto keys = keysOf(file, group);
        QCOMPARE(keys["Exec"], QString("vesk --merge %F"));
        QCOMPARE(keys["Name"], QString("Merge Exposures"));
        for (const char *language : {"de", "es", "fr", "ja", "ko", "zh_CN", "zh_TW"})
            QVERIFY2(!keys[QStringLiteral("Name[%1]").arg(language)].isEmpty(), language);
        QCOMPARE(keysOf(file, types.section('/', 0, 0))[types.section('/', 1)],
                 keysOf("vesk.desktop", "Desktop Entry")["MimeType"]);
    }

    void contextMenus_areForSeveralPictures()
    {
        const auto dolphin = keysOf("vesk-dolphin.desktop", "Desktop Entry");
        QCOMPARE(dolphin["Type"], QString("Service"));
        QCOMPARE(dolphin["Actions"], QString("mergeExposures;"));
        QCOMPARE(dolphin["X-KDE-MinNumberOfUrls"], QString("2"));
        const auto nemo = keysOf("vesk-merge.nemo_action", "Nemo Action");
        QCOMPARE(nemo["Selection"], QString("m"));
        QCOMPARE(nemo["Quote"], QString("double")); // paths with blanks stay whole
    }

    void nautilusScript_keepsNamesWhole()
    {
        const QTemporaryDir folder;
        QFile standIn(folder.filePath("vesk"));
        QVERIFY(standIn.open(QIODevice::WriteOnly));
        standIn.write("#!/bin/sh\nprintf '%s\\n' \"$@\"\n");
        standIn.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        standIn.close();
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("PATH", folder.path() + ':' + environment.value("PATH"));
        process.setProcessEnvironment(environment);
        process.start("sh", {SOURCE_SHARE_FOLDER "/Merge Exposures", "a b.jpg", "-c \"$d\".jpg"});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.readAll(), QByteArray("--merge\n--\na b.jpg\n-c \"$d\".jpg\n"));
    }
};

QTEST_GUILESS_MAIN(TestDesktopFiles)
#include "tst_desktop_files.moc"
