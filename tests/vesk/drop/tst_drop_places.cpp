// Where the editor's windows take what is dropped on them.

#include "BatchWindow.h"
#include "BracketTable.h"
#include "DocumentArea.h"
#include "DropFrame.h"
#include "EditorActions.h"
#include "EditorWindow.h"
#include "FilmStrip.h"
#include "MainWindow.h"
#include "MergeWorkspace.h"
#include "ShotList.h"

#include <VeskCanvas.h>

#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QtTest>

namespace {

constexpr int kPatienceMs = 60000;

/// Sends it as the system does: to the part under the pointer.
template <typename Event>
bool send(QWidget *where, const QStringList &paths)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString &path : paths)
        urls += QUrl::fromLocalFile(path);
    data.setUrls(urls);
    Event event({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QCoreApplication::sendEvent(where, &event);
    return event.isAccepted();
}

/// The place that is framed in the window; null for none.
QRect litIn(const QWidget *window)
{
    const auto *frame = window->findChild<DropFrame *>();
    return frame->isVisible() ? frame->geometry() : QRect();
}

QRect placeOf(const QWidget *part)
{
    return {part->mapTo(part->window(), QPoint()), part->size()};
}

} // namespace

class TestDropPlaces : public QObject, private EditorWindow
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void pictures_lightUpTheDocuments();
    void folder_lightsUpTheFilmStrip();
    void folder_withoutAFilmStrip_lightsUpTheDocuments();
    void shots_lightUpTheListOfTheWorkspace();
    void folder_lightsUpTheTableOfBrackets();
};

void TestDropPlaces::pictures_lightUpTheDocuments()
{
    const QString one = pictures->add("one.png", {40, 30}, 1);
    const QString two = pictures->add("two.png", {40, 30}, 2);
    openAndWait({one});
    QVERIFY(send<QDragEnterEvent>(documents->currentCanvas(), {two}));
    QCOMPARE(litIn(window.get()), placeOf(documents));
    QVERIFY(send<QDropEvent>(window.get(), {two}));
    QCOMPARE(litIn(window.get()), QRect());
    QTRY_COMPARE(documents->documents().size(), 2);
}

void TestDropPlaces::folder_lightsUpTheFilmStrip()
{
    pictures->add("one.png", {40, 30}, 1);
    QVERIFY(send<QDragEnterEvent>(strip->viewport(), {pictures->folder()}));
    QCOMPARE(litIn(window.get()), placeOf(strip));
    QVERIFY(send<QDropEvent>(window.get(), {pictures->folder()}));
    QTRY_COMPARE(strip->paths().size(), 1);
    QCOMPARE(litIn(window.get()), QRect());
}

void TestDropPlaces::folder_withoutAFilmStrip_lightsUpTheDocuments()
{
    strip->parentWidget()->hide();
    QVERIFY(send<QDragEnterEvent>(window.get(), {pictures->folder()}));
    QCOMPARE(litIn(window.get()), placeOf(documents));
}

void TestDropPlaces::shots_lightUpTheListOfTheWorkspace()
{
    const QStringList shots = pictures->addBracket(3, {40, 30});
    MergeWorkspace workspace(shots.mid(0, 2), pictures->folder());
    workspace.show();
    auto *list = workspace.findChild<ShotList *>();
    QVERIFY(!send<QDragEnterEvent>(list->viewport(), {pictures->folder()}));
    QCOMPARE(litIn(&workspace), QRect());
    QVERIFY(send<QDragEnterEvent>(list->viewport(), {shots[2]}));
    QCOMPARE(litIn(&workspace), placeOf(list));
    QVERIFY(send<QDropEvent>(&workspace, {pictures->folder(), shots[2]}));
    QCOMPARE(litIn(&workspace), QRect());
    QTRY_COMPARE(list->paths(), shots);
}

void TestDropPlaces::folder_lightsUpTheTableOfBrackets()
{
    pictures->addCameraBracket("x", 3);
    BatchWindow batch(QDir::tempPath());
    batch.show();
    auto *table = batch.findChild<BracketTable *>();
    auto *line = batch.findChild<QLineEdit *>("inputLine");
    QVERIFY(!send<QDragEnterEvent>(line, {pictures->path("x1.jpg")}));
    QVERIFY(send<QDragEnterEvent>(line, {pictures->folder()}));
    QCOMPARE(litIn(&batch), placeOf(table));
    QVERIFY(send<QDropEvent>(&batch, {pictures->folder()}));
    QCOMPARE(litIn(&batch), QRect());
    QTRY_COMPARE_WITH_TIMEOUT(table->topLevelItemCount(), 1, kPatienceMs);
    QCOMPARE(line->text(), pictures->folder());
}

QTEST_MAIN(TestDropPlaces)
#include "tst_drop_places.moc"
