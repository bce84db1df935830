#include "dng_writer.h"

#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr int kTimeLimitMs = 240000;

struct Run
{
    int exitCode = -1; ///< -1 when a signal ended it or it did not end in time
    QByteArray output; ///< standard output and standard error
};

Run run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments, QIODevice::ReadOnly);
    if (!process.waitForFinished(kTimeLimitMs)) {
        process.kill();
        process.waitForFinished();
        return {-1, process.errorString().toLocal8Bit() + process.readAll()};
    }
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAll()};
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Paths below the folder, in alphabetical order.
QStringList filesBelow(const QString &folder)
{
    QStringList files;
    QDirIterator entries(folder, QDir::Files | QDir::Hidden | QDir::System,
                         QDirIterator::Subdirectories);
    while (entries.hasNext())
        files += QDir(folder).relativeFilePath(entries.next());
    files.sort();
    return files;
}

} // namespace

/// Installs the build into a folder that is then moved, as packages and users move it.
class TestInstall : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void programs_inAMovedTree_run_data();
    void programs_inAMovedTree_run();
    void libraries_inAMovedTree_areFoundBesideThePrograms();
    void rawConverter_inAMovedTree_isFoundFromTheLibrary();
    void cmakePackage_namesNoFolderOfTheBuild();
    void runtimeComponent_hasNothingForDevelopers();
    void embeddingGuide_showsTheExample_data();
    void embeddingGuide_showsTheExample();
    void example_againstTheMovedTree_takesOverThePictures();

private:
    QString path(const QString &name) const { return folder.filePath(name); }

    QTemporaryDir folder;
};

void TestInstall::initTestCase()
{
    QVERIFY(folder.isValid());
    const Run install = run(QStringLiteral(CMAKE_PROGRAM),
                            {QStringLiteral("--install"), QStringLiteral(BUILD_FOLDER),
                             QStringLiteral("--prefix"), path("before")});
    QVERIFY2(install.exitCode == 0, install.output);
    QVERIFY(QDir().rename(path("before"), path("moved")));
}

void TestInstall::programs_inAMovedTree_run_data()
{
    QTest::addColumn<QString>("program");
    QTest::newRow("veskhdr") << "veskhdr";
    QTest::newRow("vesk") << "vesk";
}

void TestInstall::programs_inAMovedTree_run()
{
    QFETCH(const QString, program);
    const Run version = run(path("moved/bin/" + program), {QStringLiteral("--version")});
    QVERIFY2(version.exitCode == 0, version.output);
    QVERIFY2(version.output.startsWith(program.toLatin1() + " 1."), version.output);
}

void TestInstall::libraries_inAMovedTree_areFoundBesideThePrograms()
{
    const QString ldd = QStandardPaths::findExecutable(QStringLiteral("ldd"));
    if (ldd.isEmpty())
        QSKIP("this system has no ldd");
    const QString libraries = QDir(path("moved")).canonicalPath() + "/" LIBRARY_FOLDER "/";
    const QString lines = QString::fromLocal8Bit(
        run(ldd, {path("moved/bin/vesk"), path("moved/bin/veskhdr")}).output);
    int found = 0;
    for (const QString &line : lines.split('\n')) {
        const QStringList words = line.simplified().split(' ');
        if (!words.first().startsWith(QLatin1String("libVesk")) &&
            !words.first().startsWith(QLatin1String("libTolvarin")))
            continue;
        QVERIFY2(words.value(2).startsWith(path("moved")) ||
                     QFileInfo(words.value(2)).canonicalFilePath().startsWith(libraries),
                 qPrintable(line));
        ++found;
    }
    QVERIFY(found > 0);
}

void TestInstall::rawConverter_inAMovedTree_isFoundFromTheLibrary()
{
    QStringList words{QStringLiteral("merge")};
    for (const char *name : {"a.dng", "b.dng"}) {
        QVERIFY(writeDng(path(name), {}));
        words += path(name);
    }
    words += {QStringLiteral("-o"), path("raw.png")};
    const Run merge = run(path("moved/bin/veskhdr"), words);
    QVERIFY2(merge.exitCode == 0, merge.output);

    const QString converter = path("moved/libexec/vesk-hdr/vesk-raw-converter");
    QVERIFY(QFile::rename(converter, converter + "-away"));
    words.last() = path("none.png");
    const Run refused = run(path("moved/bin/veskhdr"), words);
    QVERIFY(QFile::rename(converter + "-away", converter));
    QVERIFY(refused.exitCode > 0);
    QVERIFY2(refused.output.contains("cannot be started"), refused.output);
}

void TestInstall::cmakePackage_namesNoFolderOfTheBuild()
{
    const QString package = path("moved/" LIBRARY_FOLDER "/cmake/VeskHDR");
    const QStringList files = filesBelow(package);
    QVERIFY(files.contains("VeskHDRConfig.cmake"));
    QVERIFY(files.contains("VeskHDRConfigVersion.cmake"));
    for (const QString &file : files) {
        const QByteArray text = contentOf(package + '/' + file);
        for (const QByteArray &name : {QByteArray(SOURCE_FOLDER), QByteArray(BUILD_FOLDER),
                                       path("before").toLocal8Bit(), QByteArray("Engine")})
            QVERIFY2(!text.contains(name), qPrintable(file + ": " + name));
    }
}

void TestInstall::runtimeComponent_hasNothingForDevelopers()
{
    const Run install =
        run(QStringLiteral(CMAKE_PROGRAM),
            {QStringLiteral("--install"), QStringLiteral(BUILD_FOLDER), QStringLiteral("--prefix"),
             path("runtime"), QStringLiteral("--component"), QStringLiteral("runtime")});
    QVERIFY2(install.exitCode == 0, install.output);
    const QStringList files = filesBelow(path("runtime"));
    for (const char *file :
         {"bin/veskhdr", "bin/vesk", "share/man/man1/veskhdr.1", "share/man/man1/vesk.1",
          "share/applications/vesk.desktop", "share/applications/vesk-merge.desktop",
          "share/kio/servicemenus/vesk-merge.desktop", "share/nemo/actions/vesk-merge.nemo_action",
          "share/metainfo/org.vesk_hdr.vesk.metainfo.xml",
          "share/bash-completion/completions/veskhdr"})
        QVERIFY2(files.contains(file), file);
    for (const QString &file : files) {
        QVERIFY2(!file.endsWith(".h") && !file.endsWith(".cmake"), qPrintable(file));
        QVERIFY2(!file.endsWith(".so"), qPrintable(file));
    }
}

void TestInstall::embeddingGuide_showsTheExample_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("file");
    QTest::newRow("CMakeLists.txt") << "cmake"
                                    << "CMakeLists.txt";
    QTest::newRow("main.cpp") << "cpp"
                              << "main.cpp";
}

void TestInstall::embeddingGuide_showsTheExample()
{
    QFETCH(const QString, language);
    QFETCH(const QString, file);
    const QByteArray guide = contentOf(QStringLiteral(SOURCE_FOLDER "/docs/embedding.md"));
    const QByteArray example =
        contentOf(QStringLiteral(SOURCE_FOLDER "/examples/embedding/") + file);
    QVERIFY(!example.isEmpty());
    QVERIFY(guide.contains("```" + language.toLatin1() + '\n' + example + "```\n"));
}

void TestInstall::example_againstTheMovedTree_takesOverThePictures()
{
    // NOLINTNEXTLINE(bugprone-suspicious-missing-comma): folder and name
    QStringList configure{"-S", SOURCE_FOLDER "/examples/embedding",
                          "-B", path("host"),
                          "-G", CMAKE_GENERATOR_NAME,
                          "-D", "CMAKE_PREFIX_PATH=" + path("moved"),
                          "-D", "CMAKE_CXX_COMPILER=" CXX_COMPILER};
    if (*SANITIZERS)
        configure += {"-D", "CMAKE_CXX_FLAGS=-fsanitize=" SANITIZERS};
    const Run configured = run(QStringLiteral(CMAKE_PROGRAM), configure);
    QVERIFY2(configured.exitCode == 0, configured.output);
    const Run built = run(QStringLiteral(CMAKE_PROGRAM), {"--build", path("host")});
    QVERIFY2(built.exitCode == 0, built.output);

    QStringList pictures;
    for (const char *name : {"dark.ppm", "bright.ppm"}) {
        pictures += path(name);
        QFile picture(pictures.last());
        QVERIFY(picture.open(QIODevice::WriteOnly));
        picture.write("P6 2 1 255\n" + QByteArray(6, *name));
    }
    const Run host = run(path("host/hdr_host"), pictures);
    QVERIFY2(host.exitCode == 0, host.output);
    QVERIFY2(host.output.contains("HDR 1.0 took over 2 pictures"), host.output);
}

QTEST_GUILESS_MAIN(TestInstall)
#include "tst_install.moc"
