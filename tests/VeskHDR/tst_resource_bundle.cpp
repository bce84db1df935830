#include "VeskGlobalSettings.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QResource>
#include <QXmlStreamReader>
#include <QtTest>

#include <dlfcn.h>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
using NoLeakCheck = __lsan::ScopedDisabler;
#else
struct NoLeakCheck
{
    NoLeakCheck() {} // in use as a variable
};
#endif

/// The bundle of the library just built, which this program does not link.
class TestResourceBundle : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QVERIFY(filesInReach().isEmpty());
        const NoLeakCheck librariesBelowKeepMemory; // that of OpenMP does
        library = dlopen(libraryPath().constData(), RTLD_NOW | RTLD_LOCAL);
        QVERIFY2(library, dlerror());
    }

    void cleanup()
    {
        unload();
        QVERIFY(filesInReach().isEmpty());
    }

    void load_bringsTheFilesIntoReach() { QCOMPARE(filesInReach(), kFiles); }

    void unload_takesTheFilesOutOfReachAndTheLibraryOutOfTheProcess()
    {
        unload();
        QCOMPARE(filesInReach(), QStringList());
        QVERIFY(!dlopen(libraryPath().constData(), RTLD_NOW | RTLD_NOLOAD));
    }

    void collection_listsTheFilesInOrderAtTheRoot()
    {
        QFile file(QStringLiteral(VESKHDR_COLLECTION));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QXmlStreamReader xml(&file);
        QStringList listed;
        while (!xml.atEnd()) {
            if (!xml.readNextStartElement())
                continue;
            if (xml.name() == QLatin1String("qresource")) {
                QCOMPARE(xml.attributes().value(QLatin1String("prefix")).toString(),
                         QStringLiteral("/"));
                QVERIFY(!xml.attributes().hasAttribute(QLatin1String("lang")));
            }
            if (xml.name() == QLatin1String("file"))
                listed << xml.readElementText();
        }
        QCOMPARE(listed, kFiles);
    }

    void files_areUncompressedAndWithoutTimes_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString &name : kFiles)
            QTest::newRow(qPrintable(name)) << name;
    }

    /// Times came with the second version of the format.
    void files_areUncompressedAndWithoutTimes()
    {
        QFETCH(QString, name);
        const QResource resource(QStringLiteral(":/") + name);
        QVERIFY(resource.isValid());
        QVERIFY(resource.size() > 0);
        QCOMPARE(resource.compressionAlgorithm(), QResource::NoCompression);
        QVERIFY(!resource.lastModified().isValid());
    }

    void catalogues_haveQtsMagic()
    {
        for (const QString &name : kFiles.mid(0, 7)) {
            QFile file(QStringLiteral(":/") + name);
            QVERIFY(file.open(QIODevice::ReadOnly));
            QCOMPARE(file.read(16).toHex(), QByteArray("3cb86418caef9c95cd211cbf60a1bddd"));
        }
    }

    void program_isEnciphered()
    {
        QFile file(QStringLiteral(":/hdr.cl_"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(!file.readAll().contains("kernel"));
    }

    void registrationFunctions_areExportedAndReturnOne()
    {
        using Registration = int (*)();
        const auto unregister = resolve<Registration>("_Z25qCleanupResources_veskhdrv");
        const auto registerAgain = resolve<Registration>("_Z22qInitResources_veskhdrv");
        QVERIFY(unregister && registerAgain);
        QCOMPARE(unregister(), 1);
        QCOMPARE(filesInReach(), QStringList());
        QCOMPARE(registerAgain(), 1);
        QCOMPARE(filesInReach(), kFiles);
    }

    void installedTranslation_outlivesTheLibrary()
    {
        VeskGlobalSettings::getInstance()->setLanguage(QStringLiteral("de_DE"));
        const auto install = resolve<void (*)()>("_ZN15tool_translator7installEv");
        QVERIFY(install);
        {
            const NoLeakCheck translatorIsNeverDeleted;
            install();
        }
        QCOMPARE(QCoreApplication::translate("VeskToolHDR", "Save"), QStringLiteral("Speichern"));
        unload();
        QCOMPARE(QCoreApplication::translate("VeskToolHDR", "Cancel"), QStringLiteral("Abbrechen"));
    }

private:
    static QByteArray libraryPath()
    {
#ifdef __APPLE__
        return qgetenv("VESK_LIB_DIR") + "/libVeskHDR.1.dylib";
#else
        return qgetenv("VESK_LIB_DIR") + "/libVeskHDR.so.1";
#endif
    }

    static QStringList filesInReach()
    {
        QStringList present;
        for (const QString &name : kFiles) {
            if (QFile::exists(QStringLiteral(":/") + name))
                present << name;
        }
        return present;
    }

    template <typename Function>
    Function resolve(const char *symbol) const
    {
        return reinterpret_cast<Function>(dlsym(library, symbol));
    }

    void unload()
    {
        if (library)
            dlclose(library);
        library = nullptr;
    }

    static const QStringList kFiles;
    void *library = nullptr;
};

const QStringList TestResourceBundle::kFiles = {
    QStringLiteral("veskhdr_zh_TW.qm"), QStringLiteral("veskhdr_fr_FR.qm"),
    QStringLiteral("veskhdr_ko_KR.qm"), QStringLiteral("veskhdr_ja_JP.qm"),
    QStringLiteral("veskhdr_es_ES.qm"), QStringLiteral("veskhdr_zh_CN.qm"),
    QStringLiteral("veskhdr_de_DE.qm"), QStringLiteral("hdr.cl_"),
};

QTEST_GUILESS_MAIN(TestResourceBundle)
#include "tst_resource_bundle.moc"
