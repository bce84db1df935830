#include "language_choice.h"

#include <VeskGlobalSettings.h>

#include <QFile>
#include <QProcess>
#include <QSettings>
#include <QTest>

namespace {

QString inTheFile()
{
    return QSettings(VeskGlobalSettings::configFilePath(), QSettings::IniFormat)
        .value("language", "none")
        .toString();
}

} // namespace

class TestLanguageChoice : public QObject
{
    Q_OBJECT

private slots:
    void init() { QFile::remove(VeskGlobalSettings::configFilePath()); }
    void languageFor_desktop_isTheFirstWithTexts_data();
    void languageFor_desktop_isTheFirstWithTexts();
    void start_withoutAChoice_followsTheDesktop();
    void start_withAChoice_keepsIt_data();
    void start_withAChoice_keepsIt();
    void start_inEnglish_writesNoSettings();
    void editor_startsInTheDesktopsLanguage();
};

void TestLanguageChoice::languageFor_desktop_isTheFirstWithTexts_data()
{
    QTest::addColumn<QStringList>("desktop");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *desktop, const char *expected) {
        QTest::newRow(*desktop ? desktop : "nothing")
            << QString(desktop).split(' ', Qt::SkipEmptyParts) << QString(expected);
    };
    row("", "");
    row("C", "");
    row("en-GB", "");
    row("de", "de_DE");
    row("de-AT de-Latn-AT", "de_DE");
    row("es-MX", "es_ES");
    row("fr_CA", "fr_FR");
    row("ja-JP", "ja_JP");
    row("ko", "ko_KR");
    row("zh", "zh_CN");
    row("zh-CN", "zh_CN");
    row("zh-SG zh-Hans-SG", "zh_CN");
    row("zh-TW", "zh_TW");
    row("zh-HK zh-Hant-HK", "zh_TW");
    row("zh-MO", "zh_TW");
    row("zh-Hant", "zh_TW");
    row("nl nl-Latn-NL nl-NL es", "es_ES");
    row("pt-BR", "");
    row("xx de", "de_DE");
    row("en-US de", "");
    row("nl en de", "");
}

void TestLanguageChoice::languageFor_desktop_isTheFirstWithTexts()
{
    QFETCH(QStringList, desktop);
    QTEST(language_choice::languageFor(desktop), "expected");
}

/// The tools find it in the file.
void TestLanguageChoice::start_withoutAChoice_followsTheDesktop()
{
    QCOMPARE(language_choice::atStart({"de-AT"}), QStringLiteral("de_DE"));
    QCOMPARE(inTheFile(), QStringLiteral("de_DE"));
    QCOMPARE(language_choice::atStart({"ja"}), QStringLiteral("ja_JP"));
    QCOMPARE(inTheFile(), QStringLiteral("ja_JP"));
    QCOMPARE(language_choice::atStart({"en"}), QString());
    QCOMPARE(inTheFile(), QString());
    QCOMPARE(language_choice::atStart({"fr"}), QStringLiteral("fr_FR"));
}

void TestLanguageChoice::start_withAChoice_keepsIt_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::newRow("English") << QString();
    QTest::newRow("another language") << QStringLiteral("ko_KR");
    QTest::newRow("the desktop's") << QStringLiteral("de_DE");
}

void TestLanguageChoice::start_withAChoice_keepsIt()
{
    QFETCH(QString, chosen);
    language_choice::atStart({"de"});
    language_choice::choose(chosen);
    for (const char *desktop : {"de", "fr", "en"})
        QCOMPARE(language_choice::atStart({desktop}), chosen);
    QCOMPARE(inTheFile(), chosen);
}

void TestLanguageChoice::start_inEnglish_writesNoSettings()
{
    QCOMPARE(language_choice::atStart({"C"}), QString());
    QVERIFY(!QFile::exists(VeskGlobalSettings::configFilePath()));
}

/// The real program, by what it leaves in the settings for the tools.
void TestLanguageChoice::editor_startsInTheDesktopsLanguage()
{
    const QTemporaryDir home;
    QProcess editor;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_DATA_HOME", home.path());
    environment.insert("LC_ALL", "de_AT.UTF-8");
    editor.setProcessEnvironment(environment);
    editor.start(qEnvironmentVariable("VESK_BIN_DIR") + "/vesk", {});
    QVERIFY(editor.waitForStarted());
    const auto language = [&home] {
        return QSettings(home.filePath("vesk/config.ini"), QSettings::IniFormat).value("language");
    };
    QTRY_COMPARE_WITH_TIMEOUT(language().toString(), QStringLiteral("de_DE"), 20000);
    editor.kill();
    editor.waitForFinished();
}

QTEST_GUILESS_MAIN(TestLanguageChoice)
#include "tst_language_choice.moc"
