#include "DropFrame.h"
#include "DropTarget.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QListWidget>
#include <QMimeData>
#include <QSignalSpy>
#include <QtTest>

namespace {

constexpr QRect kList(40, 30, 200, 120);
const QColor kBack(Qt::white);
const QColor kHighlight(10, 100, 200);

} // namespace

/// A window with a list that takes what ends in ".jpg".
class TestDropTarget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { window.reset(); }
    void files_lightUpTheirPlace();
    void leaving_takesTheLightAway();
    void dropping_takesTheLightAwayAndTellsTheFilesLater();
    void otherFiles_areRefusedAndLightNothing_data();
    void otherFiles_areRefusedAndLightNothing();
    void onAPartOfTheWindow_reachesTheWindow();
    void placeInAnotherWindow_isNotFramed();
    void frame_letsTheMouseThrough();

private:
    bool enter(const QList<QUrl> &urls, QWidget *where = nullptr);
    bool drop(const QList<QUrl> &urls);
    bool isLit() const { return frame->isVisible(); }
    QColor colourAt(QPoint place) const { return window->grab().toImage().pixelColor(place); }

    std::unique_ptr<QWidget> window;
    QListWidget *list = nullptr;
    DropTarget *target = nullptr;
    DropFrame *frame = nullptr;
};

void TestDropTarget::init()
{
    window = std::make_unique<QWidget>();
    window->resize(300, 200);
    QPalette palette(kBack);
    palette.setColor(QPalette::Window, kBack);
    palette.setColor(QPalette::Highlight, kHighlight);
    window->setPalette(palette);
    list = new QListWidget(window.get());
    list->setGeometry(kList);
    target = new DropTarget(window.get(), [this](const QStringList &paths) -> QWidget * {
        return paths.first().endsWith(QLatin1String(".jpg")) ? list : nullptr;
    });
    frame = window->findChild<DropFrame *>();
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
}

bool TestDropTarget::enter(const QList<QUrl> &urls, QWidget *where)
{
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent event({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QCoreApplication::sendEvent(where ? where : window.get(), &event);
    return event.isAccepted();
}

bool TestDropTarget::drop(const QList<QUrl> &urls)
{
    QMimeData data;
    data.setUrls(urls);
    QDropEvent event({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QCoreApplication::sendEvent(window.get(), &event);
    return event.isAccepted();
}

void TestDropTarget::files_lightUpTheirPlace()
{
    QVERIFY(!isLit());
    const QColor before = colourAt(kList.topLeft() + QPoint(1, 60));
    QVERIFY(before != kHighlight);
    QVERIFY(enter({QUrl::fromLocalFile("/a.jpg")}));
    QVERIFY(isLit());
    QCOMPARE(frame->geometry(), kList);
    QCOMPARE(colourAt(kList.topLeft() + QPoint(1, 60)), kHighlight);
    QCOMPARE(colourAt(kList.bottomRight() - QPoint(1, 1)), kHighlight);
    QVERIFY(colourAt(kList.center()) != kHighlight); // one still reads what is there
    QCOMPARE(colourAt(kList.topLeft() - QPoint(2, 2)), kBack);
}

void TestDropTarget::leaving_takesTheLightAway()
{
    QVERIFY(enter({QUrl::fromLocalFile("/a.jpg")}));
    QDragLeaveEvent event;
    QCoreApplication::sendEvent(window.get(), &event);
    QVERIFY(!isLit());
}

void TestDropTarget::dropping_takesTheLightAwayAndTellsTheFilesLater()
{
    const QSignalSpy dropped(target, &DropTarget::dropped);
    const QList<QUrl> urls{QUrl::fromLocalFile("/a.jpg"), QUrl("https://example.org/x.jpg"),
                           QUrl::fromLocalFile("/b c.txt")};
    QVERIFY(enter(urls));
    QVERIFY(drop(urls));
    QVERIFY(!isLit());
    QCOMPARE(dropped.size(), 0);
    QTRY_COMPARE(dropped.size(), 1);
    QCOMPARE(dropped.at(0).at(0).toStringList(), (QStringList{"/a.jpg", "/b c.txt"}));
}

void TestDropTarget::otherFiles_areRefusedAndLightNothing_data()
{
    QTest::addColumn<QList<QUrl>>("urls");
    QTest::newRow("no file") << QList<QUrl>();
    QTest::newRow("not on this machine") << QList<QUrl>{QUrl("https://example.org/x.jpg")};
    QTest::newRow("nothing takes it") << QList<QUrl>{QUrl::fromLocalFile("/a.txt")};
}

void TestDropTarget::otherFiles_areRefusedAndLightNothing()
{
    QFETCH(QList<QUrl>, urls);
    const QSignalSpy dropped(target, &DropTarget::dropped);
    QVERIFY(enter({QUrl::fromLocalFile("/a.jpg")})); // a light that was left on goes out
    QVERIFY(!enter(urls));
    QVERIFY(!isLit());
    QVERIFY(!drop(urls));
    QCoreApplication::processEvents();
    QCOMPARE(dropped.size(), 0);
}

void TestDropTarget::onAPartOfTheWindow_reachesTheWindow()
{
    QVERIFY(enter({QUrl::fromLocalFile("/a.jpg")}, list->viewport()));
    QVERIFY(isLit());
}

void TestDropTarget::placeInAnotherWindow_isNotFramed()
{
    list->setWindowFlag(Qt::Window);
    list->show();
    QVERIFY(enter({QUrl::fromLocalFile("/a.jpg")}));
    QVERIFY(!isLit());
}

void TestDropTarget::frame_letsTheMouseThrough()
{
    QVERIFY(enter({QUrl::fromLocalFile("/a.jpg")}));
    QCOMPARE(window->childAt(kList.center()), list->viewport());
}

QTEST_MAIN(TestDropTarget)
#include "tst_DropTarget.moc"
