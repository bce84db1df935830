#include "tool_translator.h"

#include "VeskGlobalSettings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QResource>
#include <QTranslator>
#include <QtTest>

/// A translator stays for the life of the application object, so each test has one of its own.
class TestToolTranslator : public QObject
{
    Q_OBJECT

private slots:
    void knownLanguage_itsCatalogueIsInstalled_data()
    {
        QTest::addColumn<QString>("language");
        for (const char *language : {"zh_TW", "fr_FR", "ko_KR", "ja_JP", "es_ES", "zh_CN", "de_DE"})
            QTest::newRow(language) << QString::fromLatin1(language);
    }

    void knownLanguage_itsCatalogueIsInstalled()
    {
        QFETCH(QString, language);
        Application application;
        VeskGlobalSettings::getInstance()->setLanguage(language);
        tool_translator::install();
        QCOMPARE(application.languageChanges, 1);
        QTranslator expected;
        QVERIFY(expected.load(QStringLiteral(":/veskhdr_%1.qm").arg(language)));
        QCOMPARE(translatedSave(), expected.translate("VeskToolHDR", "Save"));
        QVERIFY(translatedSave() != QLatin1String("Save"));
    }

    void german_readsGerman()
    {
        Application application;
        VeskGlobalSettings::getInstance()->setLanguage(QStringLiteral("de_DE"));
        tool_translator::install();
        QCOMPARE(translatedSave(), QStringLiteral("Speichern"));
    }

    void otherLanguage_nothingIsInstalled_data()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("empty") << QStringLiteral("");
        QTest::newRow("another country") << QStringLiteral("fr_CA");
        QTest::newRow("language alone") << QStringLiteral("de");
        QTest::newRow("country in small letters") << QStringLiteral("de_de");
        QTest::newRow("English") << QStringLiteral("en_US");
        QTest::newRow("unknown") << QStringLiteral("xx_YY");
        QTest::newRow("a path") << QStringLiteral("../veskhdr");
    }

    void otherLanguage_nothingIsInstalled()
    {
        QFETCH(QString, language);
        Application application;
        VeskGlobalSettings::getInstance()->setLanguage(language);
        verifyNothingIsInstalled(application);
    }

    void missingKey_nothingIsInstalledOrWritten()
    {
        Application application;
        VeskGlobalSettings::getInstance()->setValue(QStringLiteral("language"), {});
        verifyNothingIsInstalled(application);
        QVERIFY(!VeskGlobalSettings::getInstance()->value(QStringLiteral("language")).isValid());
    }

    void missingFile_nothingIsInstalledOrWritten()
    {
        Application application;
        QCoreApplication::setApplicationName(QStringLiteral("never configured"));
        QVERIFY(!QFile::exists(VeskGlobalSettings::configFilePath()));
        verifyNothingIsInstalled(application);
        QVERIFY(!QFile::exists(VeskGlobalSettings::configFilePath()));
        QCoreApplication::setApplicationName({});
    }

    void damagedFile_nothingIsInstalled()
    {
        Application application;
        QCoreApplication::setApplicationName(QStringLiteral("badly configured"));
        const QFileInfo file(VeskGlobalSettings::configFilePath());
        QVERIFY(file.dir().mkpath(QStringLiteral(".")));
        QFile config(file.filePath());
        QVERIFY(config.open(QIODevice::WriteOnly));
        config.write(QByteArray("\0\xff[[[\n=language=de_DE\n]", 24));
        config.close();
        verifyNothingIsInstalled(application);
        QCoreApplication::setApplicationName({});
    }

    void catalogueUnderResources_goesBeforeTheLibrarysOwn()
    {
        Application application;
        const OtherBundle bundle;
        QVERIFY(bundle.isRegistered);
        VeskGlobalSettings::getInstance()->setLanguage(QStringLiteral("ja_JP"));
        tool_translator::install();
        QCOMPARE(application.languageChanges, 1);
        QCOMPARE(translatedSave(), QStringLiteral("someone else's translation"));
    }

    void damagedCatalogueUnderResources_librarysOwnIsInstalled()
    {
        Application application;
        const OtherBundle bundle;
        VeskGlobalSettings::getInstance()->setLanguage(QStringLiteral("es_ES"));
        tool_translator::install();
        QCOMPARE(application.languageChanges, 1);
        QCOMPARE(translatedSave(), QStringLiteral("Guardar"));
    }

    void damagedCatalogueAlone_nothingIsInstalled()
    {
        Application application;
        const OtherBundle bundle;
        QVERIFY(QFile::exists(QStringLiteral(":/Resources/veskhdr_xx_XX.qm")));
        VeskGlobalSettings::getInstance()->setLanguage(QStringLiteral("xx_XX"));
        verifyNothingIsInstalled(application);
    }

private:
    /// Counts the installations: each tells the application that the language changed.
    struct Application : QObject
    {
        Application() { application.installEventFilter(this); }

        bool eventFilter(QObject *, QEvent *event) override
        {
            languageChanges += event->type() == QEvent::LanguageChange;
            return false;
        }

        int argumentCount = 1;
        char name[20] = "tst_tool_translator";
        char *arguments[2] = {name, nullptr};
        QCoreApplication application{argumentCount, arguments};
        int languageChanges = 0;
    };

    struct OtherBundle
    {
        OtherBundle()
            : isRegistered(QResource::registerResource(path))
        {
        }
        ~OtherBundle() { QResource::unregisterResource(path); }

        const QString path = QStringLiteral(VESK_OTHER_BUNDLE);
        const bool isRegistered;
    };

    static QString translatedSave() { return QCoreApplication::translate("VeskToolHDR", "Save"); }

    static void verifyNothingIsInstalled(const Application &application)
    {
        tool_translator::install();
        QCOMPARE(application.languageChanges, 0);
        QCOMPARE(translatedSave(), QStringLiteral("Save"));
    }
};

QTEST_APPLESS_MAIN(TestToolTranslator)
#include "tst_tool_translator.moc"
