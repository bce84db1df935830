#include "DocumentTabBar.h"
#include "DocumentTabs.h"

#include <VeskContext.h>

#include <QContextMenuEvent>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <functional>
#include <memory>
#include <vector>

class TestDocumentTabs : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void labels_thatFit_areTheWholeNames();
    void labels_ofThirteenShots_stayReadable();
    void labels_becomeWholeAgainWhenThereIsRoom();
    void toolTip_tellsTheWholePath();
    void list_offersAllDocumentsByTheirWholeNames();
    void list_ofASingleDocument_isNotShown();
    void middleClick_closesThatDocument();
    void middleClick_movedAway_closesNothing();
    void contextMenu_closesThatDocumentOrTheOthers();

private:
    using Documents = QList<VeskContext *>;
    using Signal = void (DocumentTabs::*)(VeskContext *);

    void add(int count);
    /// The documents that the signal tells of while something happens.
    Documents toldOf(Signal signal, const std::function<void()> &something);
    VeskContext *document(int index) const { return documents.at(size_t(index)).get(); }
    QTabBar *bar() const { return tabs->tabBar(); }
    QToolButton *listButton() const { return qobject_cast<QToolButton *>(tabs->cornerWidget()); }
    QMenu *contextMenu(int index) const;

    std::vector<std::unique_ptr<VeskContext>> documents;
    std::unique_ptr<DocumentTabs> tabs;
};

void TestDocumentTabs::init()
{
    tabs = std::make_unique<DocumentTabs>();
    tabs->resize(900, 200);
    tabs->show();
}

void TestDocumentTabs::cleanup()
{
    tabs.reset();
    documents.clear();
}

void TestDocumentTabs::add(int count)
{
    for (int i = 0; i < count; ++i) {
        documents.push_back(std::make_unique<VeskContext>());
        const QString name = QStringLiteral("holiday_IMG_04%1.jpg").arg(10 + i);
        documents.back()->setFileName(name);
        documents.back()->setFilePath(QStringLiteral("/pictures/") + name);
        tabs->add(documents.back().get());
    }
}

void TestDocumentTabs::labels_thatFit_areTheWholeNames()
{
    add(2);
    QCOMPARE(tabs->tabText(0), QStringLiteral("holiday_IMG_0410.jpg"));
    QCOMPARE(tabs->tabText(1), QStringLiteral("holiday_IMG_0411.jpg"));
}

void TestDocumentTabs::labels_ofThirteenShots_stayReadable()
{
    add(13);
    documents.at(3)->setSaveAble(true);
    QCOMPARE(tabs->tabText(0), QStringLiteral("…0410"));
    QCOMPARE(tabs->tabText(3), QStringLiteral("…0413 •"));
    QCOMPARE(tabs->tabText(12), QStringLiteral("…0422"));
    tabs->resize(300, 200); // not even these fit: the bar scrolls
    for (int i = 0; i < tabs->count(); ++i)
        QVERIFY(bar()->tabRect(i).width() >=
                bar()->fontMetrics().horizontalAdvance(tabs->tabText(i)));
}

void TestDocumentTabs::labels_becomeWholeAgainWhenThereIsRoom()
{
    add(13);
    QCOMPARE(tabs->tabText(0), QStringLiteral("…0410"));
    for (int i = 12; i > 1; --i)
        tabs->remove(documents.at(size_t(i)).get());
    QCOMPARE(tabs->tabText(0), QStringLiteral("holiday_IMG_0410.jpg"));
    tabs->resize(150, 200);
    QCOMPARE(tabs->tabText(0), QStringLiteral("…0410"));
    tabs->resize(900, 200);
    QCOMPARE(tabs->tabText(0), QStringLiteral("holiday_IMG_0410.jpg"));
}

void TestDocumentTabs::toolTip_tellsTheWholePath()
{
    add(13);
    QCOMPARE(tabs->tabToolTip(2), QStringLiteral("/pictures/holiday_IMG_0412.jpg"));
    VeskContext untitled;
    tabs->add(&untitled);
    QCOMPARE(tabs->tabToolTip(13), QStringLiteral("Untitled"));
    tabs->remove(&untitled);
}

void TestDocumentTabs::list_offersAllDocumentsByTheirWholeNames()
{
    add(13);
    QVERIFY(listButton()->isVisible());
    listButton()->click();
    auto *list = tabs->findChild<QMenu *>();
    QVERIFY(list->isVisible());
    const QList<QAction *> entries = list->actions();
    QCOMPARE(entries.size(), 13);
    QCOMPARE(entries.at(7)->text(), QStringLiteral("holiday_IMG_0417.jpg"));
    QVERIFY(entries.at(0)->isChecked());
    QVERIFY(!entries.at(7)->isChecked());
    QCOMPARE(toldOf(&DocumentTabs::documentChosen, [&] { entries.at(7)->trigger(); }),
             Documents{document(7)});
    list->close();
}

void TestDocumentTabs::list_ofASingleDocument_isNotShown()
{
    add(1);
    QVERIFY(!listButton()->isVisible());
}

void TestDocumentTabs::middleClick_closesThatDocument()
{
    add(3);
    const auto click = [this] {
        QTest::mouseClick(bar(), Qt::MiddleButton, {}, bar()->tabRect(1).center());
    };
    QCOMPARE(toldOf(&DocumentTabs::closeRequested, click), Documents{document(1)});
}

void TestDocumentTabs::middleClick_movedAway_closesNothing()
{
    add(3);
    QSignalSpy closed(tabs.get(), &DocumentTabs::closeRequested);
    QTest::mousePress(bar(), Qt::MiddleButton, {}, bar()->tabRect(1).center());
    QTest::mouseRelease(bar(), Qt::MiddleButton, {}, bar()->tabRect(2).center());
    QTest::mouseClick(bar(), Qt::LeftButton, {}, bar()->tabRect(1).center());
    QVERIFY(closed.isEmpty());
}

TestDocumentTabs::Documents TestDocumentTabs::toldOf(Signal signal,
                                                     const std::function<void()> &something)
{
    Documents told;
    const QMetaObject::Connection connection =
        connect(tabs.get(), signal, this, [&told](VeskContext *one) { told.append(one); });
    something();
    disconnect(connection);
    return told;
}

/// As a click of the right button on that tab opens it.
QMenu *TestDocumentTabs::contextMenu(int index) const
{
    const QPoint position = bar()->tabRect(index).center();
    QContextMenuEvent click(QContextMenuEvent::Mouse, position, bar()->mapToGlobal(position));
    QCoreApplication::sendEvent(bar(), &click);
    return bar()->findChild<QMenu *>();
}

void TestDocumentTabs::contextMenu_closesThatDocumentOrTheOthers()
{
    add(3);
    QMenu *menu = contextMenu(1);
    QVERIFY(menu);
    QCOMPARE(menu->actions().size(), 2);
    const auto choose = [menu](int entry) {
        return [menu, entry] { menu->actions().at(entry)->trigger(); };
    };
    QCOMPARE(toldOf(&DocumentTabs::closeRequested, choose(0)), Documents{document(1)});
    QCOMPARE(toldOf(&DocumentTabs::closeOthersRequested, choose(1)), Documents{document(1)});
    menu->close();
}

QTEST_MAIN(TestDocumentTabs)
#include "tst_DocumentTabs.moc"
