#include "DocumentArea.h"
#include "DocumentHistory.h"
#include "DocumentTabs.h"
#include "TestPictures.h"
#include "picture_document.h"

#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskContextManager.h>
#include <VeskLayerBase.h>
#include <VeskLayerManager.h>
#include <layer_composition.h>
#include <merged_document.h>

#include <QSignalSpy>
#include <QTabBar>
#include <QTest>

class TestDocumentArea : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { area.reset(); }
    void startPage_isShownWhileNothingIsOpen();
    void noDocument_toolsStillFindACurrentOne();
    void open_showsTheDocumentInFront();
    void close_lastDocument_goesBackToTheStartPage();
    void tabMark_followsUnsavedChanges();
    void choosingATab_makesItsDocumentCurrent();
    void merge_fromTheStartPage_opensOneTab();
    void merge_replacesTheDocumentInItsPlace();
    void merge_ofAClosedDocument_getsACanvasOfItsOwn();
    void merge_overUnsavedChanges_keepsThemInATabOfTheirOwn();
    void merge_overAHiddenLayer_keepsIt();
    void merge_overChangesThatMayBeLost_replacesThem();
    void close_changedOnItsWay_staysClosed();
    void allowReplacing_endsWhenItIsTakenBackOrTheDocumentSaved_data();
    void allowReplacing_endsWhenItIsTakenBackOrTheDocumentSaved();
    void documentOf_findsTheFileUnderAnotherSpelling();
    void closing_releasesDocumentAndCanvas();

private:
    VeskContext *open(const QString &name, int seed = 1)
    {
        return area->open(TestPictures::texture({40, 30}, seed), name,
                          QStringLiteral("/pictures/") + name);
    }
    /// What the tool does at the end of a merge.
    static void mergeOver(VeskContext *document, QSize size = {20, 10})
    {
        merged_document::replace(document, std::make_unique<QImage>(TestPictures::texture(size, 9)),
                                 QStringLiteral("layer 0"));
    }
    QStringList tabTexts() const
    {
        const auto *tabs = area->findChild<DocumentTabs *>();
        QStringList texts;
        for (int i = 0; i < tabs->count(); ++i)
            texts.append(tabs->tabText(i));
        return texts;
    }
    static VeskContextManager &manager() { return *VeskContextManager::getInstance(); }

    std::unique_ptr<DocumentArea> area;
};

void TestDocumentArea::init()
{
    area = std::make_unique<DocumentArea>(new QWidget);
    area->resize(800, 300);
    area->show();
}

void TestDocumentArea::startPage_isShownWhileNothingIsOpen()
{
    QCOMPARE(area->currentIndex(), 0);
    QVERIFY(!area->currentDocument());
    QVERIFY(area->documents().isEmpty());
    QVERIFY(tabTexts().isEmpty());
}

void TestDocumentArea::noDocument_toolsStillFindACurrentOne()
{
    const VeskContext *blank = manager().getCurrentContext();
    QVERIFY(blank);
    QVERIFY(blank->getCanvas());
    QVERIFY(!blank->isSaveAble());
}

void TestDocumentArea::open_showsTheDocumentInFront()
{
    open(QStringLiteral("a.png"));
    QSignalSpy changed(area.get(), &DocumentArea::currentDocumentChanged);
    VeskContext *second = open(QStringLiteral("b.png"));
    QVERIFY(!changed.isEmpty());
    QCOMPARE(area->currentDocument(), second);
    QCOMPARE(area->currentIndex(), 1);
    QVERIFY(area->currentCanvas()->isVisible());
    QCOMPARE(area->currentCanvas()->canvasSize(), QSize(40, 30));
    QCOMPARE(tabTexts(), (QStringList{QStringLiteral("a.png"), QStringLiteral("b.png")}));
}

void TestDocumentArea::close_lastDocument_goesBackToTheStartPage()
{
    area->close(open(QStringLiteral("a.png")));
    QCOMPARE(area->currentIndex(), 0);
    QVERIFY(manager().getCurrentContext());
    QVERIFY(tabTexts().isEmpty());
}

void TestDocumentArea::tabMark_followsUnsavedChanges()
{
    VeskContext *document = open(QStringLiteral("a & b.png"));
    QCOMPARE(tabTexts(), QStringList{QStringLiteral("a && b.png")});
    document->setSaveAble(true);
    QCOMPARE(tabTexts(), QStringList{QStringLiteral("a && b.png •")});
    document->setSaveAble(false);
    QCOMPARE(tabTexts(), QStringList{QStringLiteral("a && b.png")});
}

void TestDocumentArea::choosingATab_makesItsDocumentCurrent()
{
    VeskContext *first = open(QStringLiteral("a.png"));
    open(QStringLiteral("b.png"));
    auto *tabs = area->findChild<DocumentTabs *>();
    QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(0).center());
    QCOMPARE(manager().getCurrentContext(), first);
    QCOMPARE(area->currentDocument(), first);
}

void TestDocumentArea::merge_fromTheStartPage_opensOneTab()
{
    mergeOver(manager().getCurrentContext());
    QCOMPARE(tabTexts(), QStringList{QStringLiteral("Untitled Document •")});
    QCOMPARE(area->currentIndex(), 1);
    QVERIFY(area->currentCanvas()->isVisible());
    QCOMPARE(area->currentCanvas()->canvasSize(), QSize(20, 10));
    area->close(area->currentDocument());
    QVERIFY(manager().getCurrentContext()); // a new blank one
    QCOMPARE(area->currentIndex(), 0);
}

void TestDocumentArea::merge_replacesTheDocumentInItsPlace()
{
    open(QStringLiteral("a.png"));
    VeskContext *replaced = open(QStringLiteral("b.png"));
    open(QStringLiteral("c.png"));
    area->makeCurrent(replaced);
    const QPointer<VeskCanvas> canvas = replaced->getCanvas();
    mergeOver(replaced);
    QCOMPARE(tabTexts(),
             (QStringList{QStringLiteral("a.png"), QStringLiteral("Untitled Document •"),
                          QStringLiteral("c.png")}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(canvas); // moved, not deleted with the page it was in
    QCOMPARE(area->currentCanvas(), canvas.data());
    QVERIFY(canvas->isVisible());
    QCOMPARE(area->documents().size(), 3);
}

void TestDocumentArea::merge_ofAClosedDocument_getsACanvasOfItsOwn()
{
    mergeOver(nullptr);
    QTRY_VERIFY(area->currentCanvas());
    QTRY_VERIFY(area->currentCanvas()->isVisible());
    QCOMPARE(area->currentCanvas()->canvasSize(), QSize(20, 10));
}

void TestDocumentArea::merge_overUnsavedChanges_keepsThemInATabOfTheirOwn()
{
    VeskContext *modified = open(QStringLiteral("work.png"), 4);
    modified->setSaveAble(true);
    document::setMetadataSource(*modified, QStringLiteral("/pictures/camera.jpg"));
    document::setResultMark(*modified, document::markOfMerge(QStringLiteral("mean"), {}));
    mergeOver(modified);
    QTRY_COMPARE(tabTexts(), (QStringList{QStringLiteral("Untitled Document •"),
                                          QStringLiteral("work.png •")}));
    QCOMPARE(area->currentDocument()->getFileName(), QStringLiteral("Untitled Document"));
    const VeskContext *kept = area->documents().at(1);
    QCOMPARE(composition::composedPicture(kept), TestPictures::texture({40, 30}, 4));
    QCOMPARE(kept->getFilePath(), QStringLiteral("/pictures/work.png"));
    QCOMPARE(document::metadataSource(*kept), QStringLiteral("/pictures/camera.jpg"));
    QVERIFY(document::resultMark(*kept));
}

void TestDocumentArea::merge_overAHiddenLayer_keepsIt()
{
    const QImage picture = TestPictures::texture({30, 20}, 1);
    VeskContext *document = area->open(picture, "work", {});
    document->getLayerManager()->layerAt(0)->setVisible(false);
    document->setSaveAble(true);
    mergeOver(document);
    QTRY_COMPARE(area->documents().size(), 2);
    const VeskContext *kept = area->documents().constLast();
    QCOMPARE(kept->getFileName(), QStringLiteral("work"));
    QVERIFY(kept->isSaveAble());
    QCOMPARE(document::layerPictures(*kept).value(0), picture);
    QVERIFY(!kept->getLayerManager()->layerAt(0)->isVisible());
}

/// An edit that was still being made is added when another document comes to the front.
void TestDocumentArea::close_changedOnItsWay_staysClosed()
{
    area->open(TestPictures::texture({20, 10}, 1), "other", {});
    QPointer<VeskContext> document =
        area->open(TestPictures::texture({20, 10}, 1), "discarded", {});
    connect(area.get(), &DocumentArea::currentDocumentChanged, this, [document] {
        if (document)
            document->setSaveAble(true);
    });
    area->close(document);
    QTRY_VERIFY(!document);
    QTest::qWait(20);
    QCOMPARE(area->documents().size(), 1);
}

void TestDocumentArea::merge_overChangesThatMayBeLost_replacesThem()
{
    VeskContext *modified = open(QStringLiteral("work.png"), 4);
    modified->setSaveAble(true);
    area->allowReplacing(modified);
    QVERIFY(modified->isSaveAble()); // until something has replaced it
    mergeOver(modified);
    QCoreApplication::processEvents();
    QCOMPARE(tabTexts(), QStringList{QStringLiteral("Untitled Document •")});
}

void TestDocumentArea::allowReplacing_endsWhenItIsTakenBackOrTheDocumentSaved_data()
{
    QTest::addColumn<bool>("isSaved");
    QTest::newRow("taken back") << false;
    QTest::newRow("saved, and modified again") << true;
}

void TestDocumentArea::allowReplacing_endsWhenItIsTakenBackOrTheDocumentSaved()
{
    QFETCH(bool, isSaved);
    VeskContext *modified = open(QStringLiteral("work.png"), 4);
    modified->setSaveAble(true);
    area->allowReplacing(modified);
    if (isSaved) {
        modified->setSaveAble(false);
        modified->setSaveAble(true);
    } else {
        area->allowReplacing(nullptr);
    }
    mergeOver(modified);
    QTRY_COMPARE(tabTexts(), (QStringList{QStringLiteral("Untitled Document •"),
                                          QStringLiteral("work.png •")}));
}

void TestDocumentArea::documentOf_findsTheFileUnderAnotherSpelling()
{
    const TestPictures pictures;
    const QString path = pictures.add(QStringLiteral("x.png"));
    VeskContext *document = area->open(QImage(path), QStringLiteral("x.png"), path);
    QCOMPARE(area->documentOf(pictures.folder() + QStringLiteral("/./x.png")), document);
    QVERIFY(!area->documentOf(pictures.path(QStringLiteral("y.png"))));
}

void TestDocumentArea::closing_releasesDocumentAndCanvas()
{
    const QPointer<VeskContext> document = open(QStringLiteral("a.png"));
    const QPointer<VeskCanvas> canvas = document->getCanvas();
    area->close(document);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!document);
    QVERIFY(!canvas);
}

QTEST_MAIN(TestDocumentArea)
#include "tst_DocumentArea.moc"
