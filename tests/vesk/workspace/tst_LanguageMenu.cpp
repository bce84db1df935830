#include "LanguageMenu.h"

#include <VeskGlobalSettings.h>

#include <QSignalSpy>
#include <QTest>

class LanguageMenuTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void language_offersEnglishAndSevenOthers();
    void language_chosen_isWrittenForTheNextStart();
    void language_sameAgain_saysNothing();
};

void LanguageMenuTest::init()
{
    VeskGlobalSettings::getInstance()->setLanguage({});
}

void LanguageMenuTest::language_offersEnglishAndSevenOthers()
{
    const LanguageMenu menu;
    QCOMPARE(menu.actions().size(), 8);
    QCOMPARE(menu.actions().constFirst()->text(), QStringLiteral("English"));
    QVERIFY(menu.actions().constFirst()->isChecked());
}

void LanguageMenuTest::language_chosen_isWrittenForTheNextStart()
{
    LanguageMenu menu;
    QSignalSpy changed(&menu, &LanguageMenu::languageChanged);
    menu.actions().at(1)->trigger();
    QCOMPARE(VeskGlobalSettings::getInstance()->language(), QStringLiteral("de_DE"));
    QCOMPARE(changed.size(), 1);
    QVERIFY(LanguageMenu().actions().at(1)->isChecked());
}

void LanguageMenuTest::language_sameAgain_saysNothing()
{
    LanguageMenu menu;
    QSignalSpy changed(&menu, &LanguageMenu::languageChanged);
    menu.actions().constFirst()->trigger();
    QCOMPARE(changed.size(), 0);
}

QTEST_MAIN(LanguageMenuTest)
#include "tst_LanguageMenu.moc"
