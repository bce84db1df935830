// The editor in each of its languages.

#include "DocumentArea.h"
#include "DocumentSaver.h"
#include "JpegQualityDialog.h"
#include "LanguageMenu.h"
#include "MainWindow.h"
#include "MessageBoxAnswerer.h"
#include "StartPage.h"
#include "TestPictures.h"
#include "clipped_texts.h"
#include "editor_application.h"

#include <VeskActionManager.h>
#include <VeskContext.h>
#include <VeskGlobalSettings.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QLibraryInfo>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QTranslator>

namespace {

constexpr QSize kSmallScreen(1024, 700);

/// Goes through the menus below the menu bar.
void collectMenus(const QMenu *menu, QList<const QMenu *> &menus)
{
    menus.append(menu);
    for (const QAction *action : menu->actions()) {
        if (action->menu())
            collectMenus(action->menu(), menus);
    }
}

QStringList mnemonics(const QList<QAction *> &actions)
{
    QStringList found;
    for (const QAction *action : actions) {
        QString text = action->text();
        text.remove(QStringLiteral("&&"));
        const int mark = text.indexOf(QLatin1Char('&'));
        if (mark >= 0)
            found.append(text.mid(mark + 1, 1).toUpper());
    }
    return found;
}

bool areUnique(QStringList texts)
{
    return texts.removeDuplicates() == 0;
}

} // namespace

class TestEditorLanguage : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { end(); }
    void choiceInTheMenu_appliesAtTheNextStart();
    void englishAgain_appliesAtTheNextStart();
    void menus_areTranslated_data() { addLanguages(); }
    void menus_areTranslated();
    void mnemonics_areUniqueInEachMenu_data() { addLanguages(); }
    void mnemonics_areUniqueInEachMenu();
    void buttons_showNoMnemonics_data() { addLanguages(); }
    void buttons_showNoMnemonics();
    void window_clipsNoText_data() { addLanguages(); }
    void window_clipsNoText();
    void qualityDialog_clipsNoText_data() { addLanguages(); }
    void qualityDialog_clipsNoText();
    void questionBeforeLosingWork_isTranslatedToTheButtons_data() { addLanguages(); }
    void questionBeforeLosingWork_isTranslatedToTheButtons();
    void reasonOfAFailedOpen_isTranslated();
    void reasonOfAFailedSave_isTranslated();

private:
    static void addLanguages();
    void start(const QString &language);
    void restart();
    void end();
    QString menuTitle(int index) const { return window->menuBar()->actions().at(index)->text(); }

    std::unique_ptr<MainWindow> window;
};

void TestEditorLanguage::addLanguages()
{
    QTest::addColumn<QString>("language");
    for (const char *language : {"", "de_DE", "es_ES", "fr_FR", "ja_JP", "ko_KR", "zh_CN", "zh_TW"})
        QTest::newRow(*language ? language : "English") << language;
}

void TestEditorLanguage::start(const QString &language)
{
    VeskGlobalSettings::getInstance()->setLanguage(language);
    restart();
}

/// What main() does.
void TestEditorLanguage::restart()
{
    end();
    workspace::setUpEditor(*qApp);
    window = std::make_unique<MainWindow>();
    window->resize(kSmallScreen);
    window->show();
}

void TestEditorLanguage::end()
{
    window.reset();
    delete VeskActionManager::getInstance({}); // with the actions that all windows share
    qDeleteAll(qApp->findChildren<QTranslator *>());
}

void TestEditorLanguage::choiceInTheMenu_appliesAtTheNextStart()
{
    start({});
    QCOMPARE(menuTitle(0), QStringLiteral("&File"));
    MessageBoxAnswerer boxes;
    window->findChild<LanguageMenu *>()->actions().at(1)->trigger();
    QCOMPARE(boxes.shown().size(), 1);
    QVERIFY(boxes.shown().first().text.contains(QStringLiteral("Deutsch")));
    QCOMPARE(menuTitle(0), QStringLiteral("&File"));
    restart();
    QCOMPARE(menuTitle(0), QStringLiteral("&Datei"));
    QCOMPARE(VeskActionManager::getInstance({})->getActionByName(QStringLiteral("Save"))->text(),
             QStringLiteral("&Speichern"));
}

void TestEditorLanguage::englishAgain_appliesAtTheNextStart()
{
    start(QStringLiteral("ja_JP"));
    QCOMPARE(menuTitle(0), QStringLiteral("ファイル(&F)"));
    MessageBoxAnswerer boxes;
    window->findChild<LanguageMenu *>()->actions().at(0)->trigger();
    restart();
    QCOMPARE(menuTitle(0), QStringLiteral("&File"));
}

void TestEditorLanguage::menus_areTranslated()
{
    QFETCH(QString, language);
    if (language.isEmpty())
        return;
    QTranslator catalogue;
    QVERIFY(catalogue.load(QStringLiteral(":/vesk/i18n/vesk_%1.qm").arg(language)));
    start(language);
    const auto *actions = window->findChild<EditorActions *>();
    QCOMPARE(actions->open->text(), catalogue.translate("EditorActions", "&Open…"));
    QCOMPARE(actions->merge->text(), catalogue.translate("EditorActions", "&Merge to HDR…"));
    QCOMPARE(actions->save->text(), catalogue.translate("VeskActionManager", "&Save"));
    const QStringList titles{"&File",  "&Edit",     "&View", "&Pictures",
                             "&Tools", "&Settings", "&Help"};
    const QMap<int, const char *> others{{1, "EditMenu"}, {2, "ViewMenu"}};
    QCOMPARE(window->menuBar()->actions().size(), titles.size());
    for (int i = 0; i < titles.size(); ++i) {
        QCOMPARE(menuTitle(i),
                 catalogue.translate(others.value(i, "MainWindow"), titles.at(i).toUtf8()));
        QVERIFY(menuTitle(i) != titles.at(i));
    }
}

void TestEditorLanguage::mnemonics_areUniqueInEachMenu()
{
    QFETCH(QString, language);
    start(language);
    const QStringList titles = mnemonics(window->menuBar()->actions());
    QCOMPARE(titles.size(), 7);
    QVERIFY2(areUnique(titles), qPrintable(titles.join(' ')));
    QList<const QMenu *> menus;
    for (const QAction *action : window->menuBar()->actions())
        collectMenus(action->menu(), menus);
    QVERIFY(menus.size() >= 7);
    for (const QMenu *menu : qAsConst(menus)) {
        const QStringList letters = mnemonics(menu->actions());
        QVERIFY2(areUnique(letters), qPrintable(menu->title() + letters.join(' ')));
    }
}

/// East Asian menus append the letter: "保存(&S)".
void TestEditorLanguage::buttons_showNoMnemonics()
{
    QFETCH(QString, language);
    start(language);
    const auto *actions = window->findChild<EditorActions *>();
    for (const QAction *action : {actions->open, actions->save, actions->zoomIn, actions->merge}) {
        QVERIFY2(!action->iconText().contains(QLatin1Char('&')), qPrintable(action->iconText()));
        QVERIFY2(!action->iconText().contains(QLatin1Char('(')), qPrintable(action->iconText()));
    }
    QVERIFY(actions->open->toolTip().startsWith(actions->open->iconText()));
    QVERIFY(actions->open->toolTip().contains(QLatin1Char('O'))); // Ctrl+O
}

void TestEditorLanguage::window_clipsNoText()
{
    QFETCH(QString, language);
    start(language);
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    QCoreApplication::sendPostedEvents();
    const auto *bar = window->findChild<QToolBar *>();
    const auto *more = bar->findChild<QToolButton *>(QStringLiteral("qt_toolbar_ext_button"));
    QVERIFY(more);
    QVERIFY2(!more->isVisible(), "the tool bar is too long for a small screen");
    const QStringList clipped =
        clippedTexts(*bar) + clippedTexts(*window->findChild<StartPage *>());
    QVERIFY2(clipped.isEmpty(), qPrintable(clipped.join('\n')));
}

void TestEditorLanguage::qualityDialog_clipsNoText()
{
    QFETCH(QString, language);
    start(language);
    JpegQualityDialog dialog(95, true);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QCoreApplication::sendPostedEvents();
    const QStringList clipped = clippedTexts(dialog);
    QVERIFY2(clipped.isEmpty(), qPrintable(clipped.join('\n')));
}

void TestEditorLanguage::questionBeforeLosingWork_isTranslatedToTheButtons()
{
    QFETCH(QString, language);
    const QString catalogues = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    QTranslator qtTexts;
    if (!language.isEmpty() && !qtTexts.load(QStringLiteral("qtbase_") + language, catalogues))
        QSKIP("Qt's own catalogues are not installed");
    start(language);
    VeskContext *document = window->findChild<DocumentArea *>()->open(
        TestPictures::texture({8, 8}, 1), QStringLiteral("work.png"), {});
    document->setSaveAble(true);
    MessageBoxAnswerer boxes;
    boxes.answerNextWith(QMessageBox::Cancel);
    QVERIFY(!window->close());
    document->setSaveAble(false);
    const MessageBoxAnswerer::Box box = boxes.shown().constFirst();
    const QStringList english{"Save", "Cancel", "Discard"};
    QCOMPARE(box.buttonTexts.size(), english.size());
    for (int i = 0; i < english.size(); ++i)
        QCOMPARE(box.buttonTexts.at(i) == english.at(i), language.isEmpty());
    QCOMPARE(box.title == QStringLiteral("Unsaved Changes"), language.isEmpty());
    QVERIFY(box.text.contains(QStringLiteral("work.png")));
}

void TestEditorLanguage::reasonOfAFailedOpen_isTranslated()
{
    const TestPictures pictures;
    start(QStringLiteral("de_DE"));
    const QString damaged = pictures.addDamaged(QStringLiteral("halb.png"));
    QVERIFY(!damaged.isEmpty());
    window->openPaths({damaged, pictures.path(QStringLiteral("fehlt.png"))});
    QTRY_VERIFY(window->findChild<QMessageBox *>());
    const auto *box = window->findChild<QMessageBox *>();
    QCOMPARE(box->text(), QStringLiteral("2 Dateien konnten nicht geöffnet werden:"));
    QCOMPARE(box->informativeText(),
             QStringLiteral("„halb.png“: das Bild ist unvollständig oder beschädigt\n"
                            "„fehlt.png“: diese Datei gibt es nicht"));
}

void TestEditorLanguage::reasonOfAFailedSave_isTranslated()
{
    start(QStringLiteral("fr_FR"));
    VeskContext *document = window->findChild<DocumentArea *>()->open(
        TestPictures::texture({8, 8}, 1), QStringLiteral("x.png"),
        QStringLiteral("/no/such/folder/x.png"));
    MessageBoxAnswerer boxes;
    boxes.answerNextWith(QMessageBox::Close);
    QVERIFY(!window->findChild<DocumentSaver *>()->save(document));
    QVERIFY(boxes.shown().first().text.endsWith(QStringLiteral(": ce dossier n’existe pas.")));
}

int main(int argc, char **argv)
{
    workspace::nameEditor();
    QApplication application(argc, argv);
    TestEditorLanguage test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_editor_language.moc"
