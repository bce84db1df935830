#include "editor_settings.h"

#include <VeskGlobalSettings.h>

#include <QDir>
#include <QTest>
#include <QVariant>

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
    settings::setJpegQuality(1000);
    QCOMPARE(settings::jpegQuality(), 100);
}

QTEST_GUILESS_MAIN(TestEditorSettings)
#include "tst_editor_settings.moc"
