#include "LanguageMenu.h"
#include "language_choice.h"

#include <VeskGlobalSettings.h>

#include <QSignalSpy>
#include <QTest>

class TestLanguageMenu : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void language_offersEnglishAndSevenOthers();
    void language_chosen_isWrittenForTheNextStart();
    void language_sameAgain_saysNothing();
};

void TestLanguageMenu::init()
{
    VeskGlobalSettings::getInstance()->setValue(QStringLiteral("language"), {});
}

void TestLanguageMenu::language_offersEnglishAndSevenOthers()
{
    const LanguageMenu menu;
    QCOMPARE(menu.actions().size(), 8);
    QCOMPARE(menu.actions().constFirst()->text(), QStringLiteral("English"));
    QVERIFY(menu.actions().constFirst()->isChecked());
}

void TestLanguageMenu::language_chosen_isWrittenForTheNextStart()
{
    LanguageMenu menu;
    QSignalSpy changed(&menu, &LanguageMenu::languageChanged);
    menu.actions().at(1)->trigger();
    QCOMPARE(VeskGlobalSettings::getInstance()->language(), QStringLiteral("de_DE"));
    QCOMPARE(changed.size(), 1);
    QVERIFY(LanguageMenu().actions().at(1)->isChecked());
}

void TestLanguageMenu::language_sameAgain_saysNothing()
{
    LanguageMenu menu;
    QSignalSpy changed(&menu, &LanguageMenu::languageChanged);
    menu.actions().constFirst()->trigger();
    QCOMPARE(changed.size(), 0);
    // It is a choice, all the same.
    QCOMPARE(language_choice::atStart({"de"}), QString());
}

QTEST_MAIN(TestLanguageMenu)
#include "tst_LanguageMenu.moc"
