#include "RecentFilesMenu.h"
#include "editor_settings.h"

#include <QSignalSpy>
#include <QTest>

class TestRecentFilesMenu : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void recentFiles_latestFirstWithoutDoubles();
    void recentFiles_keepsOnlyTheLast();
    void recentFiles_chosen_isTold();
    void recentFiles_clear_emptiesListAndSettings();
    void recentFiles_survivesARestart();
};

static QStringList textsOf(const QMenu &menu)
{
    QStringList texts;
    for (const QAction *action : menu.actions())
        texts.append(action->text());
    return texts;
}

void TestRecentFilesMenu::init()
{
    settings::setRecentFiles({});
}

void TestRecentFilesMenu::recentFiles_latestFirstWithoutDoubles()
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

void TestRecentFilesMenu::recentFiles_keepsOnlyTheLast()
{
    RecentFilesMenu menu;
    for (int i = 0; i < 20; ++i)
        menu.add(QStringLiteral("/p/%1.png").arg(i));
    QCOMPARE(settings::recentFiles().size(), RecentFilesMenu::kMaximum);
    QCOMPARE(settings::recentFiles().constFirst(), QStringLiteral("/p/19.png"));
}

void TestRecentFilesMenu::recentFiles_chosen_isTold()
{
    RecentFilesMenu menu;
    menu.add(QStringLiteral("/p/a.png"));
    QSignalSpy chosen(&menu, &RecentFilesMenu::fileChosen);
    menu.actions().constFirst()->trigger();
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(chosen.at(0).at(0).toString(), QStringLiteral("/p/a.png"));
}

void TestRecentFilesMenu::recentFiles_clear_emptiesListAndSettings()
{
    RecentFilesMenu menu;
    menu.add(QStringLiteral("/p/a.png"));
    menu.actions().constLast()->trigger();
    QVERIFY(settings::recentFiles().isEmpty());
    QVERIFY(!menu.isEnabled());
}

void TestRecentFilesMenu::recentFiles_survivesARestart()
{
    RecentFilesMenu().add(QStringLiteral("/p/a.png"));
    QCOMPARE(textsOf(RecentFilesMenu()).constFirst(), QStringLiteral("a.png"));
}

QTEST_MAIN(TestRecentFilesMenu)
#include "tst_RecentFilesMenu.moc"
