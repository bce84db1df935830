// The menus that remember something: recent files and the language.

#include "editor_settings.h"
#include "LanguageMenu.h"
#include "RecentFilesMenu.h"

#include <VeskGlobalSettings.h>

#include <QDir>
#include <QSignalSpy>
#include <QTest>

class MenusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void recentFiles_latestFirstWithoutDoubles();
    void recentFiles_keepsOnlyTheLast();
    void recentFiles_chosen_isTold();
    void recentFiles_clear_emptiesListAndSettings();
    void recentFiles_survivesARestart();
    void language_offersEnglishAndSevenOthers();
    void language_chosen_isWrittenForTheNextStart();
    void language_sameAgain_saysNothing();
    void settings_damagedValues_readAsDefaults();
};

static QStringList textsOf(const QMenu &menu)
{
    QStringList texts;
    for (const QAction *action : menu.actions())
        texts.append(action->text());
    return texts;
}

void MenusTest::init()
{
    settings::setRecentFiles({});
    VeskGlobalSettings::getInstance()->setLanguage({});
}

void MenusTest::recentFiles_latestFirstWithoutDoubles()
{
    RecentFilesMenu menu;
    QVERIFY(!menu.isEnabled());
    menu.add(QStringLiteral("/p/a.png"));
    menu.add(QStringLiteral("/p/b & c.png"));
    menu.add(QStringLiteral("/p/a.png"));
    QVERIFY(menu.isEnabled());
    QCOMPARE(textsOf(menu).mid(0, 3),
             (QStringList{QStringLiteral("a.png"), QStringLiteral("b && c.png"), QString()}));
    menu.remove(QStringLiteral("/p/a.png"));
    QCOMPARE(settings::recentFiles(), QStringList{QStringLiteral("/p/b & c.png")});
}

void MenusTest::recentFiles_keepsOnlyTheLast()
{
    RecentFilesMenu menu;
    for (int i = 0; i < 20; ++i)
        menu.add(QStringLiteral("/p/%1.png").arg(i));
    QCOMPARE(settings::recentFiles().size(), RecentFilesMenu::kMaximum);
    QCOMPARE(settings::recentFiles().constFirst(), QStringLiteral("/p/19.png"));
}

void MenusTest::recentFiles_chosen_isTold()
{
    RecentFilesMenu menu;
    menu.add(QStringLiteral("/p/a.png"));
    QSignalSpy chosen(&menu, &RecentFilesMenu::fileChosen);
    menu.actions().constFirst()->trigger();
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(chosen.at(0).at(0).toString(), QStringLiteral("/p/a.png"));
}

void MenusTest::recentFiles_clear_emptiesListAndSettings()
{
    RecentFilesMenu menu;
    menu.add(QStringLiteral("/p/a.png"));
    menu.actions().constLast()->trigger();
    QVERIFY(settings::recentFiles().isEmpty());
    QVERIFY(!menu.isEnabled());
}

void MenusTest::recentFiles_survivesARestart()
{
    RecentFilesMenu().add(QStringLiteral("/p/a.png"));
    QCOMPARE(textsOf(RecentFilesMenu()).constFirst(), QStringLiteral("a.png"));
}

void MenusTest::language_offersEnglishAndSevenOthers()
{
    const LanguageMenu menu;
    QCOMPARE(menu.actions().size(), 8);
    QCOMPARE(menu.actions().constFirst()->text(), QStringLiteral("English"));
    QVERIFY(menu.actions().constFirst()->isChecked());
}

void MenusTest::language_chosen_isWrittenForTheNextStart()
{
    LanguageMenu menu;
    QSignalSpy changed(&menu, &LanguageMenu::languageChanged);
    menu.actions().at(1)->trigger();
    QCOMPARE(VeskGlobalSettings::getInstance()->language(), QStringLiteral("de_DE"));
    QCOMPARE(changed.size(), 1);
    QVERIFY(LanguageMenu().actions().at(1)->isChecked());
}

void MenusTest::language_sameAgain_saysNothing()
{
    LanguageMenu menu;
    QSignalSpy changed(&menu, &LanguageMenu::languageChanged);
    menu.actions().constFirst()->trigger();
    QCOMPARE(changed.size(), 0);
}

void MenusTest::settings_damagedValues_readAsDefaults()
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

QTEST_MAIN(MenusTest)
#include "tst_menus.moc"
