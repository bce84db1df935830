#include "editor_settings.h"

#include <VeskGlobalSettings.h>

#include <QDir>
#include <QTest>
#include <QVariant>

#include <utility>

class TestEditorSettings : public QObject
{
    Q_OBJECT

private slots:
    void settings_damagedValues_readAsDefaults();
};

void TestEditorSettings::settings_damagedValues_readAsDefaults()
{
    VeskGlobalSettings::getInstance()->setValue(QStringLiteral("editor/jpegQuality"),
                                                QStringLiteral("rubbish"));
    VeskGlobalSettings::getInstance()->setValue(QStringLiteral("editor/folder"),
                                                QStringLiteral("/no/such/folder"));
    QCOMPARE(settings::jpegQuality(), 95);
    QVERIFY(QDir(settings::folder()).exists());
    const QString recovery = QStringLiteral("editor/recoverySeconds");
    for (const auto &[text, seconds] :
         {std::pair("rubbish", 20), std::pair("0", 1), std::pair("7", 7), std::pair("900", 20)}) {
        VeskGlobalSettings::getInstance()->setValue(recovery, QLatin1String(text));
        QCOMPARE(settings::recoverySeconds(), seconds);
    }
    settings::setJpegQuality(1000);
    QCOMPARE(settings::jpegQuality(), 100);
}

QTEST_GUILESS_MAIN(TestEditorSettings)
#include "tst_editor_settings.moc"
