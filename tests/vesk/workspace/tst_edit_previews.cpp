#include "EditorWindow.h"
#include "TestPictures.h"

#include <AdjustDock.h>
#include <DocumentArea.h>
#include <DocumentHistory.h>
#include <EditMenu.h>
#include <LookPreview.h>
#include <MainWindow.h>
#include <PictureEditor.h>
#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureHost.h>
#include <picture_edits.h>

#include <QAction>
#include <QSignalSpy>
#include <QtTest>

#include <cstdlib>

namespace {

constexpr QSize kLarge(6000, 4000);
constexpr int kPatienceMs = 60000; // the sanitizers are slow
constexpr double kNear = 1.5;      // mean difference of 8-bit levels

/// Without details that each way to reduce it shows in its own way.
QImage large(int seed)
{
    return TestPictures::texture(kLarge / 8, seed)
        .scaled(kLarge, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

/// What a large edit shows before it is made, and edits that follow one another quickly.
class TestEditPreviews : public QObject, private EditorWindow
{
    Q_OBJECT

private slots:
    void init()
    {
        setUp();
        edit = window->findChild<EditMenu *>();
        editor = window->findChild<PictureEditor *>();
    }
    void cleanup() { tearDown(); }

    void largeEdit_isSeenBeforeItIsMade_data();
    void largeEdit_isSeenBeforeItIsMade();
    void severalLayers_areAllSeen();
    void documentChangesMeanwhile_previewGoes();

    void turns_pressedQuickly_followOneAnother();
    void undo_whileAnEditIsMade_waitsForIt();
    void undo_ofAnEditThatIsDropped_isDroppedToo();
    void turn_whileALookIsShown_keepsIt();
    void look_triedWhileATurnIsMade_isSeenUntilItIsMade();
    void look_takenBackWhileItIsMade_isGone();

private:
    QImage picture() const { return document::layerPictures(*current()).constFirst(); }
    VeskCanvas *canvas() const { return documents->currentCanvas(); }
    QImage seen() const { return canvas()->grab().toImage(); }
    void watchForPreview();
    /// Of what was seen early and what is seen now.
    double differenceFrom(const QImage &before) const;

    EditMenu *edit = nullptr;
    PictureEditor *editor = nullptr;
    bool isMade = false; // the document has changed
    QImage early;        // what the canvas showed until then, if it was a preview
};

void TestEditPreviews::watchForPreview()
{
    isMade = false;
    early = QImage();
    connect(&DocumentHistory::of(*current()), &DocumentHistory::changed, this, [this] {
        if (!isMade && canvas()->preview())
            early = seen();
        isMade = true;
    });
}

double TestEditPreviews::differenceFrom(const QImage &before) const
{
    const QImage late = seen();
    double sum = 0;
    for (int y = 0; y < late.height(); ++y) {
        for (int x = 0; x < late.width(); ++x)
            sum += std::abs(qRed(late.pixel(x, y)) - qRed(before.pixel(x, y)));
    }
    return before.size() == late.size() ? sum / late.width() / late.height() : 255;
}

void TestEditPreviews::largeEdit_isSeenBeforeItIsMade_data()
{
    QTest::addColumn<QString>("first"); // done before
    QTest::addColumn<QString>("what");
    QTest::addColumn<double>("zoom"); // 0: fitted
    QTest::newRow("turn") << QString() << QStringLiteral("turn") << 0.0;
    QTest::newRow("turn, undone") << QStringLiteral("turn") << QStringLiteral("undo") << 0.0;
    QTest::newRow("turn, from a detail") << QString() << QStringLiteral("turn") << 1.0;
    QTest::newRow("crop") << QString() << QStringLiteral("crop") << 0.0;
    QTest::newRow("crop, undone") << QStringLiteral("crop") << QStringLiteral("undo") << 0.0;
    QTest::newRow("straighten") << QString() << QStringLiteral("straighten") << 0.0;
    QTest::newRow("half turn") << QString() << QStringLiteral("half") << 0.0;
    QTest::newRow("half turn, of a detail") << QString() << QStringLiteral("half") << 1.0;
    QTest::newRow("look of a part, undone")
        << QStringLiteral("look") << QStringLiteral("undo") << 0.0;
    QTest::newRow("look of a part, undone in a detail")
        << QStringLiteral("look") << QStringLiteral("undo") << 0.4;
}

void TestEditPreviews::largeEdit_isSeenBeforeItIsMade()
{
    QFETCH(const QString, first);
    QFETCH(const QString, what);
    QFETCH(const double, zoom);
    QImage before = large(1);
    for (int y = 0; y < 200; ++y) // neither darkened nor lightened: this look takes no white away
        std::memset(before.scanLine(y), 0xFF, size_t(before.bytesPerLine()));
    documents->open(before, QStringLiteral("large"), {});
    const auto act = [this](const QString &name) {
        const QList<QImage> layers = document::layerPictures(*current());
        exposure::Look look;
        look.exposure = 1;
        if (name == QLatin1String("turn"))
            edit->rotateLeft->trigger();
        else if (name == QLatin1String("half"))
            editor->start(*current(), edits::turn(layers, 2));
        else if (name == QLatin1String("crop"))
            editor->start(*current(), edits::crop(layers, {500, 100, 3001, 2802}));
        else if (name == QLatin1String("straighten"))
            editor->start(*current(), edits::straighten(layers, 7));
        else if (name == QLatin1String("look"))
            edit->adjustDock()->setLook(look);
        else if (name == QLatin1String("undo"))
            edit->undo->trigger();
    };
    act(first);
    edit->settle();
    if (zoom > 0)
        canvas()->showPlace(zoom, {1500, 1200});
    QTRY_VERIFY_WITH_TIMEOUT(!canvas()->preview(), kPatienceMs);
    watchForPreview();
    act(what);
    QTRY_VERIFY_WITH_TIMEOUT(isMade, kPatienceMs);
    QVERIFY(!early.isNull());
    QTRY_VERIFY_WITH_TIMEOUT(!canvas()->preview(), kPatienceMs);
    const double difference = differenceFrom(early);
    QVERIFY2(difference < kNear, qPrintable(QString::number(difference)));
}

void TestEditPreviews::severalLayers_areAllSeen()
{
    documents->open(large(1), QStringLiteral("two"), {});
    auto *upper = new VeskLayer(QStringLiteral("upper"));
    QImage part(kLarge / 2, QImage::Format_RGB32);
    part.fill(qRgb(10, 200, 10));
    upper->setVeskPictureHost(new VeskPictureHost(part));
    upper->setAlpha(0.5F);
    current()->getLayerManager()->addLayer(upper, true);
    auto *hidden = new VeskLayer(QStringLiteral("hidden"));
    hidden->setVeskPictureHost(new VeskPictureHost(part));
    hidden->setVisible(false);
    current()->getLayerManager()->addLayer(hidden, true);
    watchForPreview();
    edit->rotateRight->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(isMade, kPatienceMs);
    QVERIFY(!early.isNull());
    QTRY_VERIFY_WITH_TIMEOUT(!canvas()->preview(), kPatienceMs);
    const double difference = differenceFrom(early);
    QVERIFY2(difference < kNear, qPrintable(QString::number(difference)));
}

void TestEditPreviews::documentChangesMeanwhile_previewGoes()
{
    documents->open(large(1), QStringLiteral("large"), {});
    const QImage other = large(2);
    edit->rotateLeft->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(canvas()->preview(), kPatienceMs);
    document::setLayerPictures(*current(), {other});
    edit->settle();
    QTRY_VERIFY_WITH_TIMEOUT(!canvas()->preview(), kPatienceMs);
    QCOMPARE(picture(), other);
}

void TestEditPreviews::turns_pressedQuickly_followOneAnother()
{
    const QImage first = TestPictures::texture({300, 200}, 1);
    documents->open(first, QStringLiteral("small"), {});
    for (int i = 0; i < 3; ++i)
        edit->rotateRight->trigger();
    QCOMPARE(picture(), first); // nobody waited
    QTRY_COMPARE(picture(), picture_step::turned(first, 3));
    QTRY_VERIFY(!editor->isBusy());
    QCOMPARE(DocumentHistory::of(*current()).stack().count(), 3);
}

void TestEditPreviews::undo_whileAnEditIsMade_waitsForIt()
{
    const QImage first = TestPictures::texture({300, 200}, 1);
    documents->open(first, QStringLiteral("small"), {});
    edit->rotateRight->trigger();
    edit->undo->trigger();
    QCOMPARE(DocumentHistory::of(*current()).stack().count(), 0);
    QTRY_COMPARE(DocumentHistory::of(*current()).stack().count(), 1);
    QTRY_VERIFY(!editor->isBusy());
    QCOMPARE(picture(), first);
    QVERIFY(edit->redo->isEnabled());
}

/// It was not meant for what was done before.
void TestEditPreviews::undo_ofAnEditThatIsDropped_isDroppedToo()
{
    const QImage first = TestPictures::texture({300, 200}, 1);
    documents->open(first, QStringLiteral("small"), {});
    edit->rotateRight->trigger();
    edit->settle();
    const QImage turned = picture();
    edit->rotateRight->trigger();
    edit->undo->trigger();
    document::setLayerPictures(*current(), {turned});
    edit->settle();
    QCOMPARE(picture(), turned);
    QCOMPARE(DocumentHistory::of(*current()).stack().index(), 1);
}

void TestEditPreviews::turn_whileALookIsShown_keepsIt()
{
    const QImage first = TestPictures::texture({300, 200}, 1);
    documents->open(first, QStringLiteral("small"), {});
    edit->adjust->trigger();
    exposure::Look look;
    look.contrast = 0.4;
    edit->adjustDock()->setLook(look);
    edit->rotateRight->trigger();
    edit->settle();
    QCOMPARE(picture(), picture_step::turned(edits::adjusted(first, look), 1));
    QTRY_VERIFY(edit->adjustDock()->look().isNeutral()); // the next one would be another step
    QTRY_VERIFY_WITH_TIMEOUT(!canvas()->preview(), kPatienceMs);
}

/// It is one of the turned picture as soon as there is one.
void TestEditPreviews::look_triedWhileATurnIsMade_isSeenUntilItIsMade()
{
    const QImage first = large(1);
    documents->open(first, QStringLiteral("large"), {});
    edit->adjust->trigger();
    const LookPreview *preview = edit->adjustDock()->preview();
    QSignalSpy done(editor, &PictureEditor::finished);
    edit->rotateLeft->trigger();
    exposure::Look look;
    look.exposure = 1;
    edit->adjustDock()->setLook(look);
    edit->adjustDock()->commit();
    QVERIFY(done.wait(kPatienceMs));
    QCOMPARE(picture().size(), kLarge.transposed());
    QVERIFY(editor->isBusy());
    QVERIFY(preview->isUnderWay());
    QSignalSpy ready(preview, &LookPreview::ready);
    QTRY_VERIFY_WITH_TIMEOUT(!ready.isEmpty() || !editor->isBusy(), kPatienceMs);
    const QImage live = seen();
    edit->settle();
    QVERIFY(!preview->isUnderWay());
    QCOMPARE(picture(), edits::adjusted(picture_step::turned(first, 3), look));
    QTRY_VERIFY_WITH_TIMEOUT(!canvas()->preview(), kPatienceMs);
    const double difference = differenceFrom(live);
    QVERIFY2(difference < kNear, qPrintable(QString::number(difference)));
}

void TestEditPreviews::look_takenBackWhileItIsMade_isGone()
{
    const QImage first = TestPictures::texture({300, 200}, 1);
    documents->open(first, QStringLiteral("small"), {});
    edit->adjust->trigger();
    exposure::Look look;
    look.contrast = 0.4;
    edit->adjustDock()->setLook(look);
    edit->adjustDock()->commit();
    QVERIFY(editor->isBusy());
    edit->adjustDock()->setLook({});
    edit->adjustDock()->commit();
    edit->settle();
    QCOMPARE(picture(), first);
    QVERIFY(edit->adjustDock()->look().isNeutral());
    QTRY_VERIFY_WITH_TIMEOUT(!canvas()->preview(), kPatienceMs);
    QVERIFY(!edit->undo->isEnabled());
}

QTEST_MAIN(TestEditPreviews)
#include "tst_edit_previews.moc"
