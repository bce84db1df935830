#include "MessageBoxAnswerer.h"
#include "ToolSession.h"

#include "VeskContext.h"
#include "VeskContextManager.h"
#include "VeskFilterContainer.h"
#include "VeskToolHDRWidget.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QTimer>
#include <QtTest>

/// The panel and the real tool, as the user meets them: in their frame, with files on the disk.
class TestPanelWithTool : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void browse_addsTheChosenFilesInPathOrder();
    void browse_sixFiles_keepsFive();
    void remove_takesExactlyTheSelectedPicture();
    void remove_untilEmpty_disablesOkOnTheWay();
    void cancel_leavesTheEntriesUntilTheNextActivation();
    void escapeOrCross_dropsThePicturesAsCancelDoes_data();
    void escapeOrCross_dropsThePicturesAsCancelDoes();
    void ok_mergesAndEmptiesTheList();
    void ok_tellsItsFilesUntilTheNewDocumentIsOpen();

private:
    void activate(const QStringList &files = QStringList());
    void browse(const QStringList &names);
    void select(int row);
    void click(const char *button) { QTest::mouseClick(session->button(button), Qt::LeftButton); }
    QListWidget &list() { return *session->panel()->findChild<QListWidget *>("fileList"); }
    QStringList shownNames();

    std::unique_ptr<ToolSession> session;
};

void TestPanelWithTool::init()
{
    session = std::make_unique<ToolSession>();
}

void TestPanelWithTool::cleanup()
{
    session.reset();
}

void TestPanelWithTool::activate(const QStringList &files)
{
    session->uiManager.selected = files;
    session->uiManager.directory = session->path(QString());
    session->tool->active(session->document, &session->uiManager);
    QVERIFY(QTest::qWaitForWindowExposed(session->frame()));
}

/// Chooses files of the tool's directory in the chooser that Browse opens.
void TestPanelWithTool::browse(const QStringList &names)
{
    bool isChosen = false;
    QTimer::singleShot(0, qApp, [&] {
        auto *chooser = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!chooser) {
            return;
        }
        isChosen = true;
        chooser->findChild<QLineEdit *>("fileNameEdit")
            ->setText('"' + names.join(QStringLiteral("\" \"")) + '"');
        QTest::mouseClick(chooser->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Open),
                          Qt::LeftButton);
    });
    click("browseBtn");
    QVERIFY(isChosen);
}

void TestPanelWithTool::select(int row)
{
    list().scrollToItem(list().item(row));
    QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier,
                      list().visualItemRect(list().item(row)).center());
}

QStringList TestPanelWithTool::shownNames()
{
    QStringList names;
    for (int row = 0; row < list().count(); ++row) {
        names += QFileInfo(list().item(row)->text()).fileName();
    }
    return names;
}

void TestPanelWithTool::browse_addsTheChosenFilesInPathOrder()
{
    session->writePictures(3);
    activate();
    browse({"c.bmp", "a.bmp"});
    QCOMPARE(shownNames(), QStringList({"a.bmp", "c.bmp"}));
    QVERIFY(session->button("okBtn")->isEnabled());
    browse({"b.bmp"});
    QCOMPARE(shownNames(), QStringList({"a.bmp", "b.bmp", "c.bmp"}));
}

void TestPanelWithTool::browse_sixFiles_keepsFive()
{
    session->writePictures(6);
    activate();
    MessageBoxAnswerer boxes;
    browse({"a.bmp", "b.bmp", "c.bmp", "d.bmp", "e.bmp", "f.bmp"});
    QCOMPARE(shownNames(), QStringList({"a.bmp", "b.bmp", "c.bmp", "d.bmp", "e.bmp"}));
    QCOMPARE(boxes.shown().size(), 0);
    browse({"f.bmp"});
    QCOMPARE(boxes.shown().size(), 1);
    QCOMPARE(boxes.shown().first().text, QStringLiteral("You can only add up to 5 pictures."));
    QCOMPARE(list().count(), 5);
}

void TestPanelWithTool::remove_takesExactlyTheSelectedPicture()
{
    activate(session->writePictures(3));
    select(1);
    click("removeBtn");
    QCOMPARE(shownNames(), QStringList({"a.bmp", "c.bmp"}));
    QCOMPARE(session->tool->fileList(),
             QList<QString>({session->path("a.bmp"), session->path("c.bmp")}));
    click("removeBtn");
    QCOMPARE(list().count(), 2);
}

void TestPanelWithTool::remove_untilEmpty_disablesOkOnTheWay()
{
    activate(session->writePictures(2));
    QVERIFY(session->button("okBtn")->isEnabled());
    select(0);
    click("removeBtn");
    QVERIFY(!session->button("okBtn")->isEnabled());
    select(0);
    click("removeBtn");
    QCOMPARE(list().count(), 0);
}

void TestPanelWithTool::cancel_leavesTheEntriesUntilTheNextActivation()
{
    activate(session->writePictures(2));
    click("cancelBtn");
    QVERIFY(session->frame()->isHidden());
    QVERIFY(session->panel()->isHidden());
    QCOMPARE(session->tool->fileList().size(), 0);
    QCOMPARE(list().count(), 2);

    activate();
    QVERIFY(session->panel()->isVisible());
    QCOMPARE(list().count(), 0);
    QVERIFY(!session->button("okBtn")->isEnabled());
}

void TestPanelWithTool::escapeOrCross_dropsThePicturesAsCancelDoes_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("Escape") << true;
    QTest::newRow("cross") << false;
}

/// Or the next bracket would be mixed into the one that was given up.
void TestPanelWithTool::escapeOrCross_dropsThePicturesAsCancelDoes()
{
    QFETCH(bool, byKey);
    activate(session->writePictures(2));
    if (byKey)
        QTest::keyClick(session->frame(), Qt::Key_Escape);
    else
        Q_EMIT session->frame()->titleBar()->closeRequested();
    QVERIFY(session->frame()->isHidden());
    QVERIFY(session->panel()->isHidden());
    QCOMPARE(session->tool->fileList().size(), 0);

    const QString other = session->writePicture("other.bmp", {30, 20}); // of another size
    activate({other});
    QCOMPARE(session->tool->fileList(), QList<QString>{other});
    QVERIFY(session->panel()->isVisible());
}

void TestPanelWithTool::ok_mergesAndEmptiesTheList()
{
    activate(session->writePictures(2));
    MessageBoxAnswerer boxes;
    click("okBtn");
    QVERIFY(session->frame()->isHidden());
    QCOMPARE(boxes.shown().size(), 1);
    QCOMPARE(boxes.shown().first().title, QStringLiteral("loaded"));
    QCOMPARE(list().count(), 0);
    QVERIFY(!session->button("okBtn")->isEnabled());
}

void TestPanelWithTool::ok_tellsItsFilesUntilTheNewDocumentIsOpen()
{
    const QStringList files = session->writePictures(2);
    activate(files);
    QVERIFY(session->tool->filesInMerge().isEmpty());
    QList<QString> told;
    connect(VeskContextManager::getInstance(), &VeskContextManager::contextAdded, this,
            [&] { told = session->tool->filesInMerge(); });
    MessageBoxAnswerer boxes;
    click("okBtn");
    QCOMPARE(told, QList<QString>(files));
    QVERIFY(session->tool->filesInMerge().isEmpty());
}

int main(int argc, char **argv)
{
    // The chooser that tests can drive on every platform.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication app(argc, argv);
    TestPanelWithTool test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_panel_with_tool.moc"
