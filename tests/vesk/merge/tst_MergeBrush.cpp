#include "DocumentArea.h"
#include "EditorActions.h"
#include "EditorWindow.h"
#include "FilmStrip.h"
#include "LoadedPicture.h"
#include "MainWindow.h"
#include "MergePreview.h"
#include "MergeWorkspace.h"
#include "ShotList.h"
#include "picture_document.h"

#include <VeskContext.h>
#include <layer_composition.h>
#include <stroke_parts.h>
#include <stroke_text.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QPainter>
#include <QProcess>
#include <QPushButton>
#include <QSlider>
#include <QtTest>

namespace {

constexpr int kPatienceMs = 60000;
const QSize kShotSize(640, 480);
const QRect kThing(300, 200, 60, 60);
const QColor kYellow(225, 215, 20);

/// Red minus blue, on average around there: of the scene without the thing next to nothing.
int yellowness(const QImage &picture, QPoint place)
{
    constexpr int kPeriod = 37; // of the scene's red
    int sum = 0;
    for (int y = -kPeriod / 2; y <= kPeriod / 2; ++y)
        for (int x = -kPeriod / 2; x <= kPeriod / 2; ++x) {
            const QRgb pixel = picture.pixel(place + QPoint(x, y));
            sum += qRed(pixel) - qBlue(pixel);
        }
    return sum / (kPeriod * kPeriod);
}

} // namespace

/// The brush of the merge window: the mouse paints, the merge follows.
class TestMergeBrush : public QObject, private EditorWindow
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void stroke_partComesFromTheShot_equalToTheCommandLine_data();
    void stroke_partComesFromTheShot_equalToTheCommandLine();
    void stroke_onLargeShots_isSharpWhereItIs();
    void shiftClick_thingComesFromTheShot();
    void undoClearAndEraser_giveThePreviewBack();
    void keys_areTheBrushes();
    void shotOfTheList_isPaintedWith();
    void shotSwitchedOff_takesItsStrokesAlong();
    void workspaceOnAResult_startsFromItsStrokes();
    void workspaceOnAResult_ofAnotherOrder_findsTheShots();
    void mean_hasNoBrush();
    void otherBracket_hasNoStrokes();
    void everyControl_isReachedAndNamed();

private:
    void open(const QStringList &paths);
    QStringList addBracket(QSize size = kShotSize, const QRect &thing = kThing);
    MergeWorkspace *workspace() const { return window->findChild<MergeWorkspace *>(); }
    template <typename Part>
    Part *part(const char *name) const
    {
        return workspace()->findChild<Part *>(QLatin1String(name));
    }
    MergePreview *preview() const { return part<MergePreview>("mergePreview"); }
    QWidget *layer() const { return part<QWidget>("brushLayer"); }
    void click(const char *name) { part<QPushButton>(name)->click(); }
    void change(const std::function<void()> &how);
    QPoint inView(QPoint place) const;
    void paint(const QList<QPoint> &places, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {});
    QImage previewed() const { return preview()->shown(); }
    QImage merged();
    brush::Strokes strokesOfResult();
    QImage byCommandLine(const QStringList &paths, const QStringList &options) const;
};

/// The second of three has a yellow thing.
QStringList TestMergeBrush::addBracket(QSize size, const QRect &thing)
{
    const QStringList paths = pictures->addBracket(3, size);
    QImage second(paths[1]);
    second = second.convertToFormat(QImage::Format_RGB32);
    QPainter(&second).fillRect(thing, kYellow);
    second.save(paths[1]);
    return paths;
}

/// The workspace with these shots, as they lie, with the brush.
void TestMergeBrush::open(const QStringList &paths)
{
    window->openPaths({paths.first()});
    QTRY_COMPARE(documents->documents().size(), 1);
    strip->select(paths);
    QTRY_COMPARE(strip->selectedPaths().size(), paths.size());
    window->findChild<EditorActions *>()->mergeExposures->trigger();
    QVERIFY(workspace());
    QVERIFY(QTest::qWaitForWindowExposed(workspace()));
    QTRY_VERIFY_WITH_TIMEOUT(!previewed().isNull(), kPatienceMs);
    auto *alignment = part<QComboBox>("alignmentBox");
    change(
        [&] { alignment->setCurrentIndex(alignment->findData(int(exposure::Alignment::None))); });
    change([&] { part<QComboBox>("ghostsBox")->setCurrentIndex(2); }); // all from the first
    click("brushButton");
    QVERIFY(layer()->isVisible());
}

/// Does it, and waits until the preview has followed.
void TestMergeBrush::change(const std::function<void()> &how)
{
    const qint64 before = previewed().cacheKey();
    how();
    QTRY_VERIFY_WITH_TIMEOUT(previewed().cacheKey() != before, kPatienceMs);
}

QPoint TestMergeBrush::inView(QPoint place) const
{
    return preview()->viewPlace().targetOf(QRect(place, QSize(1, 1))).center().toPoint();
}

/// places: of the picture at full size.
void TestMergeBrush::paint(const QList<QPoint> &places, Qt::MouseButton button,
                           Qt::KeyboardModifiers modifiers)
{
    QTest::mousePress(layer(), button, modifiers, inView(places.first()));
    for (const QPoint &place : places.mid(1)) {
        const QPoint at = inView(place);
        QMouseEvent move(QEvent::MouseMove, at, layer()->mapToGlobal(at), Qt::NoButton, button,
                         modifiers);
        QCoreApplication::sendEvent(layer(), &move);
    }
    QTest::mouseRelease(layer(), button, modifiers, inView(places.last()));
}

QImage TestMergeBrush::merged()
{
    const auto before = documents->documents().size();
    click("mergeButton");
    if (!QTest::qWaitFor([&] { return documents->documents().size() == before + 1; }, kPatienceMs))
        return {};
    return composition::composedPicture(current()).convertToFormat(QImage::Format_RGB32);
}

brush::Strokes TestMergeBrush::strokesOfResult()
{
    const QString options = document::resultMark(*current()).value_or(ResultMark()).options;
    const QString painted = options.section(QStringLiteral("--paint "), 1);
    return brush::fromText(painted).value_or(brush::Strokes());
}

QImage TestMergeBrush::byCommandLine(const QStringList &paths, const QStringList &options) const
{
    const QString output = pictures->path(QStringLiteral("expected.tif"));
    QProcess program;
    program.start(qEnvironmentVariable("VESK_BIN_DIR") + QStringLiteral("/veskhdr"),
                  QStringList{QStringLiteral("merge"), QStringLiteral("--force"),
                              QStringLiteral("--no-align")} +
                      options + paths + QStringList{QStringLiteral("-o"), output});
    program.waitForFinished(kPatienceMs);
    const std::atomic<bool> neverCancelled{false};
    return loadPicture(output, neverCancelled).image;
}

void TestMergeBrush::stroke_partComesFromTheShot_equalToTheCommandLine_data()
{
    QTest::addColumn<QStringList>("ghosts");
    QTest::addColumn<int>("choice"); // place in the list
    QTest::newRow("ghosts left in") << QStringList{"--ghosts", "off"} << 1;
    QTest::newRow("ghosts removed") << QStringList{"--ghosts", "auto"} << 0;
}

void TestMergeBrush::stroke_partComesFromTheShot_equalToTheCommandLine()
{
    QFETCH(QStringList, ghosts);
    QFETCH(int, choice);
    const QStringList bracket = addBracket();
    open(bracket);
    change([&] { part<QComboBox>("ghostsBox")->setCurrentIndex(choice); });
    part<QComboBox>("brushShotBox")->setCurrentIndex(0);
    change([&] { paint({kThing.center(), kThing.center() + QPoint(10, 5)}); });
    const int without = yellowness(previewed(), kThing.center());
    part<QComboBox>("brushShotBox")->setCurrentIndex(1);
    change([&] { paint({kThing.topLeft(), kThing.center(), kThing.bottomRight()}); });
    QVERIFY(yellowness(previewed(), kThing.center()) > without + 60);
    const QImage picture = merged();
    const brush::Strokes strokes = strokesOfResult();
    QCOMPARE(strokes.size(), size_t(2));
    QCOMPARE(strokes[1].shot, 1);
    // The same by the merge itself, and by masks in files.
    const brush::Parts parts = brush::parts(strokes, kShotSize);
    QStringList words = ghosts;
    exposure::Options options;
    options.alignment = exposure::Alignment::None;
    options.ghosts = choice == 1 ? exposure::Ghosts::Keep : exposure::Ghosts::Remove;
    options.takes = parts.takes;
    QList<QImage> shots;
    for (const QString &path : bracket)
        shots.append(QImage(path));
    for (const motion::Take &take : parts.takes) {
        const QString mask = pictures->path(QStringLiteral("mask%1.png").arg(take.shot));
        QVERIFY(take.mask.save(mask));
        words += {QStringLiteral("--take"), QStringLiteral("%1=%2").arg(take.shot + 1).arg(mask)};
    }
    QCOMPARE(picture, exposure::mergeSet(exposure::Method::Fusion, shots, options)
                          .picture.convertToFormat(QImage::Format_RGB32));
    QCOMPARE(picture, byCommandLine(bracket, words));
    QCOMPARE(picture, byCommandLine(bracket, ghosts + QStringList{QStringLiteral("--paint"),
                                                                  brush::toText(strokes)}));
}

void TestMergeBrush::stroke_onLargeShots_isSharpWhereItIs()
{
    const QRect thing(900, 640, 200, 160);
    const QStringList bracket = addBracket({2000, 1500}, thing);
    open(bracket);
    part<QComboBox>("brushShotBox")->setCurrentIndex(1);
    const int before = yellowness(previewed(), thing.center() * previewed().width() / 2000);
    change([&] { paint({thing.center(), thing.center() + QPoint(20, 0)}); });
    QVERIFY(yellowness(previewed(), thing.center() * previewed().width() / 2000) > before + 60);
    click("actualSizeButton");
    QTRY_VERIFY_WITH_TIMEOUT(!preview()->sharpRegion().after.isNull(), kPatienceMs);
    const QRect area = preview()->sharpRegion().area;
    QVERIFY(area.contains(thing.center()));
    const QImage seen = preview()->sharpRegion().after.convertToFormat(QImage::Format_RGB32);
    const QImage picture = merged();
    QCOMPARE(seen, picture.copy(area));
    QCOMPARE(picture,
             byCommandLine(bracket, {QStringLiteral("--ghosts"), bracket[0],
                                     QStringLiteral("--paint"), brush::toText(strokesOfResult())}));
}

void TestMergeBrush::shiftClick_thingComesFromTheShot()
{
    const QStringList bracket = addBracket();
    open(bracket);
    part<QComboBox>("brushShotBox")->setCurrentIndex(1);
    const int without = yellowness(previewed(), kThing.center());
    change([&] { paint({kThing.center()}, Qt::LeftButton, Qt::ShiftModifier); });
    QVERIFY(yellowness(previewed(), kThing.center()) > 150);
    QVERIFY2(without < 80, qPrintable(QString::number(without)));
    const QImage picture = merged();
    const brush::Strokes strokes = strokesOfResult();
    QCOMPARE(strokes.size(), size_t(1));
    QVERIFY(strokes[0].isThing());
    QCOMPARE(picture, byCommandLine(bracket, {QStringLiteral("--ghosts"), bracket[0],
                                              QStringLiteral("--paint"), brush::toText(strokes)}));
}

void TestMergeBrush::undoClearAndEraser_giveThePreviewBack()
{
    open(addBracket());
    part<QComboBox>("brushShotBox")->setCurrentIndex(1);
    const QImage plain = previewed();
    QVERIFY(!part<QPushButton>("undoStrokeButton")->isEnabled());
    QVERIFY(!part<QPushButton>("clearStrokesButton")->isEnabled());
    change([&] { paint({kThing.center()}); });
    const QImage one = previewed();
    QVERIFY(one != plain);
    change([&] { paint({QPoint(80, 80), QPoint(140, 100)}); });
    const QImage two = previewed();
    QVERIFY(two != one);
    change([&] { QTest::keyClick(workspace(), Qt::Key_Z, Qt::ControlModifier); });
    QCOMPARE(previewed(), one);
    change([&] { click("clearStrokesButton"); });
    QCOMPARE(previewed(), plain);
    change([&] { click("undoStrokeButton"); });
    QCOMPARE(previewed(), one);
    part<QSlider>("brushSizeSlider")->setValue(80);
    change([&] { paint({kThing.center()}, Qt::RightButton); });
    QCOMPARE(previewed(), plain);
    change([&] { click("undoStrokeButton"); });
    click("eraserButton");
    change([&] { paint({kThing.center()}); });
    QCOMPARE(previewed(), plain);
}

void TestMergeBrush::keys_areTheBrushes()
{
    open(addBracket());
    auto *size = part<QSlider>("brushSizeSlider");
    const int before = size->value();
    QTest::keyClick(workspace(), Qt::Key_BracketRight);
    QVERIFY(size->value() > before);
    QTest::keyClick(workspace(), Qt::Key_BracketLeft);
    QCOMPARE(size->value(), before);
    QTest::keyClick(workspace(), Qt::Key_E);
    QVERIFY(part<QPushButton>("eraserButton")->isChecked());
    QTest::keyClick(workspace(), Qt::Key_P);
    QVERIFY(!layer()->isVisible());
    QVERIFY(!size->isVisible());
    QTest::keyClick(workspace(), Qt::Key_P);
    QVERIFY(layer()->isVisible());
}

void TestMergeBrush::shotOfTheList_isPaintedWith()
{
    open(addBracket());
    part<ShotList>("shotList")->setCurrentRow(2);
    QCOMPARE(part<QComboBox>("brushShotBox")->currentIndex(), 2);
    part<ShotList>("shotList")->setCurrentRow(1);
    QCOMPARE(part<QComboBox>("brushShotBox")->currentText(), QStringLiteral("s2.png"));
}

void TestMergeBrush::shotSwitchedOff_takesItsStrokesAlong()
{
    open(addBracket());
    auto *shots = part<ShotList>("shotList");
    part<QComboBox>("brushShotBox")->setCurrentIndex(1);
    change([&] { paint({kThing.center()}); });
    const QImage painted = previewed();
    change([&] { shots->item(1)->setCheckState(Qt::Unchecked); });
    QCOMPARE(part<QComboBox>("brushShotBox")->count(), 2);
    const int left = yellowness(previewed(), kThing.center());
    QVERIFY2(left < 80, qPrintable(QString::number(left)));
    change([&] { shots->item(1)->setCheckState(Qt::Checked); });
    QCOMPARE(previewed(), painted);
}

void TestMergeBrush::workspaceOnAResult_startsFromItsStrokes()
{
    open(addBracket());
    part<QComboBox>("brushShotBox")->setCurrentIndex(1);
    change([&] { paint({kThing.topLeft(), kThing.bottomRight()}); });
    change([&] { paint({QPoint(100, 100)}, Qt::LeftButton, Qt::AltModifier); });
    const QImage first = merged();
    const brush::Strokes strokes = strokesOfResult();
    QCOMPARE(strokes.size(), size_t(2));
    QTRY_VERIFY(!workspace());
    strip->clearSelection();
    window->findChild<EditorActions *>()->mergeExposures->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(!previewed().isNull(), kPatienceMs);
    QCOMPARE(merged(), first);
    QVERIFY(strokesOfResult() == strokes);
}

/// The workspace that opens has the shots by their paths again.
void TestMergeBrush::workspaceOnAResult_ofAnotherOrder_findsTheShots()
{
    open(addBracket());
    auto *shots = part<ShotList>("shotList");
    shots->setCurrentRow(2);
    change([&] { shots->moveCurrent(-2); });
    part<QComboBox>("brushShotBox")->setCurrentIndex(2); // s2.png now
    change([&] { paint({kThing.center()}); });
    const QImage first = merged();
    QCOMPARE(strokesOfResult().at(0).shot, 2);
    QTRY_VERIFY(!workspace());
    strip->clearSelection();
    window->findChild<EditorActions *>()->mergeExposures->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(!previewed().isNull(), kPatienceMs);
    QCOMPARE(merged(), first);
    QCOMPARE(strokesOfResult().at(0).shot, 1);
}

void TestMergeBrush::mean_hasNoBrush()
{
    open(addBracket());
    part<QComboBox>("brushShotBox")->setCurrentIndex(1);
    change([&] { paint({kThing.center()}); });
    auto *method = part<QComboBox>("methodBox");
    change([&] { method->setCurrentIndex(method->findData(int(exposure::Method::Mean))); });
    QVERIFY(!layer()->isVisible());
    QVERIFY(!part<QPushButton>("brushButton")->isEnabled());
    change([&] { method->setCurrentIndex(method->findData(int(exposure::Method::Fusion))); });
    QTRY_VERIFY(layer()->isVisible());
    merged();
    QCOMPARE(strokesOfResult().size(), size_t(1)); // they were not lost
}

void TestMergeBrush::otherBracket_hasNoStrokes()
{
    const QStringList bracket = addBracket();
    open(bracket);
    change([&] { paint({kThing.center()}); });
    workspace()->replaceShots({bracket[0], bracket[1]});
    QTRY_VERIFY_WITH_TIMEOUT(!previewed().isNull(), kPatienceMs);
    QVERIFY(!part<QPushButton>("undoStrokeButton")->isEnabled());
    merged();
    QVERIFY(strokesOfResult().empty());
}

void TestMergeBrush::everyControl_isReachedAndNamed()
{
    open(addBracket());
    change([&] { paint({kThing.center()}); });
    QSet<QWidget *> reached;
    QWidget *first = part<ShotList>("shotList");
    for (QWidget *next = first->nextInFocusChain(); next != first; next = next->nextInFocusChain())
        if (next->isVisible() && (next->focusPolicy() & Qt::TabFocus))
            reached.insert(next);
    for (const char *name : {"brushButton", "brushShotBox", "brushSizeSlider", "eraserButton",
                             "undoStrokeButton", "clearStrokesButton"}) {
        QVERIFY2(reached.contains(part<QWidget>(name)), name);
        QVERIFY2(!part<QWidget>(name)->toolTip().isEmpty(), name);
    }
    for (const char *name : {"brushShotBox", "brushSizeSlider"})
        QVERIFY2(!part<QWidget>(name)->accessibleName().isEmpty(), name);
    QVERIFY(workspace()->minimumSizeHint().width() <= 1366);
}

QTEST_MAIN(TestMergeBrush)
#include "tst_MergeBrush.moc"
