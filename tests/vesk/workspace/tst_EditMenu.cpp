#include "AdjustDock.h"
#include "DocumentArea.h"
#include "DocumentHistory.h"
#include "EditMenu.h"
#include "EditorWindow.h"
#include "FilmStrip.h"
#include "MainWindow.h"

#include <CropTool.h>
#include <LookPreview.h>
#include <LookSlider.h>
#include <StraightenTool.h>
#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureHost.h>
#include <VeskSelection.h>
#include <layer_composition.h>
#include <metadata_reader.h>
#include <picture_document.h>
#include <picture_edits.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QImageReader>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>

/// The edits as a person makes them: menu, keys and mouse.
class TestEditMenu : public QObject, private EditorWindow
{
    Q_OBJECT

private slots:
    void init()
    {
        setUp();
        edit = window->findChild<EditMenu *>();
        openAndWait({pictures->add(QStringLiteral("a.png"), {300, 200}, 3)});
        first = picture().copy();
    }
    void cleanup() { tearDown(); }
    void rotate_andUndo_byKeys();
    void crop_byMouse_andUndo();
    void crop_selection_isWhereTheFrameBegins();
    void crop_ratio_isKept();
    void crop_escape_leavesThePicture();
    void straighten_byLine_levelsIt();
    void adjust_slider_showsAtOnceAndBecomesOneStep();
    void adjust_undo_takesTheSlidersBack();
    void undo_whileTheStepIsMade_takesItBack();
    void redo_whileTheStepIsUndone_bringsItBack();
    void adjust_undoBeforeTheSliderRests_takesTheLookBack();
    void adjust_compareHeld_showsThePictureWithoutTheLook();
    void adjust_autoAndReset_leaveNothing();
    void adjust_saveAtOnce_savesWhatIsSeen();
    void adjust_largePicture_previewsBeforeTheDocumentChanges();
    void cropAndRotate_saved_metadataAreTrue();
    void copyAndPaste_makeADocument();
    void actions_withoutDocument_areOff();
    void twoDocuments_haveTheirOwnHistories();
    void undo_pressedAgainAndAgain_takesAllStepsBack();
    void undo_underWay_isDoneBeforeTheDocumentIsSaved();
    void undo_ofAChangedDocument_isDropped();
    void adjust_severalLayers_previewsAllOfThem();
    void adjust_preview_isWhatTheDocumentGets_data();
    void adjust_preview_isWhatTheDocumentGets();

private:
    QImage picture() const { return document::layerPictures(*current()).constFirst(); }
    VeskCanvas *canvas() const { return documents->currentCanvas(); }
    LookSlider *slider(const char *name) const
    {
        return window->findChild<LookSlider *>(QLatin1String(name));
    }
    void dragOn(QWidget *overlay, QPointF from, QPointF to) const;
    void showAdjust();

    EditMenu *edit = nullptr;
    QImage first;
};

/// Document pixels.
void TestEditMenu::dragOn(QWidget *overlay, QPointF from, QPointF to) const
{
    const auto at = [this](QPointF place) { return canvas()->toWidget(place).toPoint(); };
    QTest::mousePress(overlay, Qt::LeftButton, {}, at(from));
    QTest::mouseMove(overlay, at((from + to) / 2));
    QTest::mouseMove(overlay, at(to));
    QTest::mouseRelease(overlay, Qt::LeftButton, {}, at(to));
}

void TestEditMenu::showAdjust()
{
    edit->adjust->trigger();
    QVERIFY(edit->adjustDock()->isVisible());
}

void TestEditMenu::rotate_andUndo_byKeys()
{
    edit->rotateRight->trigger();
    QTRY_COMPARE(picture().size(), QSize(200, 300));
    QCOMPARE(canvas()->canvasSize(), QSize(200, 300));
    QVERIFY(current()->isSaveAble());
    QVERIFY(edit->undo->isEnabled());
    edit->undo->trigger();
    QTRY_COMPARE(picture(), first);
    QVERIFY(!current()->isSaveAble());
    edit->redo->trigger();
    QTRY_COMPARE(picture().size(), QSize(200, 300));
}

void TestEditMenu::crop_byMouse_andUndo()
{
    edit->crop->trigger();
    auto *tool = canvas()->findChild<CropTool *>();
    QVERIFY(tool && tool->isVisible());
    dragOn(tool, {0, 0}, {40, 30});
    const QRect area = tool->area();
    QVERIFY(std::abs(area.left() - 40) <= 2 && std::abs(area.top() - 30) <= 2);
    QTest::keyClick(tool, Qt::Key_Return);
    QTRY_COMPARE(picture(), first.copy(area));
    edit->undo->trigger();
    QTRY_COMPARE(picture(), first);
}

void TestEditMenu::crop_selection_isWhereTheFrameBegins()
{
    const QRect selected(30, 20, 110, 90);
    current()->getSelection()->setRect(selected);
    edit->crop->trigger();
    auto *tool = canvas()->findChild<CropTool *>();
    QCOMPARE(tool->area(), selected);
    QTest::keyClick(tool, Qt::Key_Return);
    QTRY_COMPARE(picture(), first.copy(selected));
}

void TestEditMenu::crop_ratio_isKept()
{
    edit->crop->trigger();
    auto *tool = canvas()->findChild<CropTool *>();
    auto *ratios = tool->findChild<QComboBox *>(QStringLiteral("ratioBox"));
    ratios->setCurrentIndex(2); // 1 : 1
    Q_EMIT ratios->activated(2);
    QCOMPARE(tool->area().size(), QSize(200, 200));
    QTest::mouseClick(tool->findChild<QPushButton *>(QStringLiteral("cropButton")), Qt::LeftButton);
    QTRY_COMPARE(picture().size(), QSize(200, 200));
}

void TestEditMenu::crop_escape_leavesThePicture()
{
    edit->crop->trigger();
    auto *tool = canvas()->findChild<CropTool *>();
    dragOn(tool, {0, 0}, {100, 100});
    QTest::keyClick(tool, Qt::Key_Escape);
    QTRY_VERIFY(!canvas()->findChild<CropTool *>());
    QCOMPARE(picture(), first);
    QVERIFY(!current()->isSaveAble());
}

void TestEditMenu::straighten_byLine_levelsIt()
{
    edit->straighten->trigger();
    auto *tool = canvas()->findChild<StraightenTool *>();
    QVERIFY(tool);
    dragOn(tool, {50, 100}, {250, 110});
    QTRY_VERIFY(picture().size() != first.size());
    QVERIFY(picture().width() < 300 && picture().height() < 200);
    edit->undo->trigger();
    QTRY_COMPARE(picture(), first);
}

void TestEditMenu::adjust_slider_showsAtOnceAndBecomesOneStep()
{
    showAdjust();
    auto *preview = edit->adjustDock()->preview();
    QSignalSpy ready(preview, &LookPreview::ready);
    auto *exposure = slider("exposureSlider")->findChild<QSlider *>();
    exposure->setValue(50);
    QTRY_VERIFY(!ready.isEmpty());
    QVERIFY(canvas()->preview());
    exposure->setValue(100);
    exposure->setValue(80);
    exposure::Look look;
    look.exposure = 0.8;
    const QImage expected = edits::adjusted(first, look);
    QTRY_COMPARE(picture(), expected);
    slider("shadowsSlider")->setValue(0.5);
    look.shadows = 0.5;
    const QImage both = edits::adjusted(first, look);
    QTRY_COMPARE(picture(), both);
    QTRY_VERIFY(!canvas()->preview());
    QCOMPARE(DocumentHistory::of(*current()).stack().count(), 1);
}

void TestEditMenu::adjust_undo_takesTheSlidersBack()
{
    showAdjust();
    slider("contrastSlider")->setValue(0.4);
    QTRY_VERIFY(picture() != first);
    QCOMPARE(edit->adjustDock()->look().contrast, 0.4);
    edit->undo->trigger();
    QTRY_COMPARE(picture(), first);
    QTRY_COMPARE(edit->adjustDock()->look().contrast, 0.0);
    edit->redo->trigger();
    QTRY_COMPARE(edit->adjustDock()->look().contrast, 0.4);
}

/// As soon as somebody can press the key, not only once the step is there.
void TestEditMenu::undo_whileTheStepIsMade_takesItBack()
{
    QVERIFY(!edit->undo->isEnabled());
    edit->rotateLeft->trigger();
    QVERIFY(edit->undo->isEnabled());
    edit->undo->trigger();
    QTRY_COMPARE(picture(), first);
    QTRY_VERIFY(!edit->undo->isEnabled());
    QVERIFY(edit->redo->isEnabled());
}

void TestEditMenu::redo_whileTheStepIsUndone_bringsItBack()
{
    edit->rotateLeft->trigger();
    edit->settle();
    const QImage turned = picture();
    edit->undo->trigger();
    QVERIFY(edit->redo->isEnabled());
    edit->redo->trigger();
    edit->undo->trigger();
    edit->redo->trigger();
    QTRY_VERIFY(!edit->redo->isEnabled());
    QCOMPARE(picture(), turned);
    QVERIFY(edit->undo->isEnabled());
    QCOMPARE(DocumentHistory::of(*current()).stack().count(), 1);
}

void TestEditMenu::adjust_undoBeforeTheSliderRests_takesTheLookBack()
{
    showAdjust();
    slider("contrastSlider")->setValue(0.4);
    QVERIFY(edit->undo->isEnabled());
    edit->undo->trigger();
    QTRY_COMPARE(edit->adjustDock()->look().contrast, 0.0);
    QTRY_COMPARE(picture(), first);
    QVERIFY(edit->redo->isEnabled());
    slider("contrastSlider")->setValue(0.3);
    slider("contrastSlider")->setValue(0.0); // back again: nothing to undo
    edit->settle();
    QVERIFY(!edit->undo->isEnabled());
}

void TestEditMenu::adjust_compareHeld_showsThePictureWithoutTheLook()
{
    showAdjust();
    auto *compare = window->findChild<QPushButton *>(QStringLiteral("compareLookButton"));
    const auto live = [this] {
        return canvas()->preview() ? canvas()->preview()->picture : QImage();
    };
    slider("exposureSlider")->setValue(1);
    QTest::mousePress(compare, Qt::LeftButton); // the document gets its look meanwhile
    QTRY_COMPARE(live(), first);
    QTRY_VERIFY(picture() != first);
    QTest::qWait(50);
    QCOMPARE(live(), first);
    const QImage bright = picture();
    QTest::mouseRelease(compare, Qt::LeftButton);
    QTRY_VERIFY(!canvas()->preview());
    QTest::mousePress(compare, Qt::LeftButton);
    QTRY_COMPARE(live(), first);
    QTest::mouseRelease(compare, Qt::LeftButton);
    QVERIFY(!canvas()->preview());
    QCOMPARE(picture(), bright);
    QCOMPARE(DocumentHistory::of(*current()).stack().count(), 1);
}

void TestEditMenu::adjust_autoAndReset_leaveNothing()
{
    showAdjust();
    QTest::mouseClick(window->findChild<QPushButton *>(QStringLiteral("autoLookButton")),
                      Qt::LeftButton);
    QTRY_VERIFY(!edit->adjustDock()->look().isNeutral());
    edit->settle();
    QVERIFY(picture() != first);
    QTest::mouseClick(window->findChild<QPushButton *>(QStringLiteral("resetLookButton")),
                      Qt::LeftButton);
    edit->settle();
    QCOMPARE(picture(), first);
    QVERIFY(!current()->isSaveAble());
    QVERIFY(!edit->undo->isEnabled());
}

void TestEditMenu::adjust_saveAtOnce_savesWhatIsSeen()
{
    showAdjust();
    slider("saturationSlider")->setValue(0);
    action(QStringLiteral("Save"))->setEnabled(true); // the document is not yet known as changed
    action(QStringLiteral("Save"))->trigger();
    QVERIFY(!current()->isSaveAble());
    const QImage saved = QImage(current()->getFilePath());
    for (int x = 0; x < saved.width(); ++x)
        QVERIFY(qIsGray(saved.pixel(x, 100)));
}

void TestEditMenu::adjust_largePicture_previewsBeforeTheDocumentChanges()
{
    VeskContext *large =
        documents->open(TestPictures::texture({6000, 4000}, 1), QStringLiteral("large"), {});
    QCOMPARE(current(), large);
    showAdjust();
    auto *preview = edit->adjustDock()->preview();
    const qint64 key = picture().cacheKey();
    QSignalSpy ready(preview, &LookPreview::ready);
    slider("exposureSlider")->setValue(1);
    QTRY_VERIFY(!ready.isEmpty());
    QCOMPARE(picture().cacheKey(), key);
    QVERIFY(canvas()->preview()->picture.width() <=
            canvas()->width() * canvas()->devicePixelRatioF() + 1);
    edit->settle();
    QVERIFY(picture().cacheKey() != key);
}

/// A photograph that was taken upright lies in its file, and is shown upright.
void TestEditMenu::cropAndRotate_saved_metadataAreTrue()
{
    const QString photo =
        qEnvironmentVariable("VESK_TEST_PICTURES") + QStringLiteral("/IMG_3871.jpeg");
    if (!QFile::exists(photo))
        QSKIP("no photographs: set VESK_TEST_PICTURES");
    const QString path = pictures->path(QStringLiteral("photo.jpeg"));
    QVERIFY(QFile::copy(photo, path));
    openAndWait({path});
    const QSize upright = picture().size();
    edit->rotateRight->trigger();
    edit->settle();
    QCOMPARE(picture().size(), upright.transposed());
    edit->crop->trigger();
    auto *tool = canvas()->findChild<CropTool *>();
    const QSize half = picture().size() / 2;
    dragOn(tool, {0, 0}, {double(half.width()), double(half.height())});
    const QSize size = tool->area().size();
    QTest::keyClick(tool, Qt::Key_Return);
    edit->settle();
    QCOMPARE(picture().size(), size);
    action(QStringLiteral("Save"))->trigger();
    const ExifTags before = metadata::read(photo).exif;
    const ExifTags after = metadata::read(path).exif;
    QCOMPARE(QImageReader(path).size(), size);
    QCOMPARE(after.number(ExifTags::Directory::Exposure, ExifTags::PixelWidth).value_or(0),
             quint32(size.width()));
    QCOMPARE(after.number(ExifTags::Directory::Exposure, ExifTags::PixelHeight).value_or(0),
             quint32(size.height()));
    QCOMPARE(after.number(ExifTags::Directory::Picture, ExifTags::Orientation).value_or(1), 1U);
    QCOMPARE(after.text(ExifTags::Directory::Picture, ExifTags::Model),
             before.text(ExifTags::Directory::Picture, ExifTags::Model));
    QVERIFY(!after.text(ExifTags::Directory::Picture, ExifTags::Model).isEmpty());
}

void TestEditMenu::copyAndPaste_makeADocument()
{
    edit->copy->trigger();
    QTRY_VERIFY(edit->paste->isEnabled());
    edit->paste->trigger();
    QCOMPARE(documents->documents().size(), 2);
    QVERIFY(current()->isSaveAble());
    QCOMPARE(picture().convertToFormat(first.format()), first);
}

void TestEditMenu::actions_withoutDocument_areOff()
{
    documents->close(current());
    QTRY_VERIFY(!current());
    for (const QAction *action : {edit->undo, edit->redo, edit->copy, edit->crop, edit->straighten,
                                  edit->rotateLeft, edit->rotateRight})
        QVERIFY2(!action->isEnabled(), qPrintable(action->objectName()));
}

/// The next press comes while the step before is still made on its thread.
void TestEditMenu::undo_pressedAgainAndAgain_takesAllStepsBack()
{
    edit->rotateRight->trigger();
    QTRY_COMPARE(picture().size(), QSize(200, 300));
    for (int i = 0; i < 4; ++i) {
        const int before = DocumentHistory::of(*current()).revision();
        edit->rotateRight->trigger();
        QTRY_VERIFY(DocumentHistory::of(*current()).revision() > before);
    }
    for (int i = 0; i < 7; ++i) // more often than there are steps
        edit->undo->trigger();
    QTRY_VERIFY(!edit->undo->isEnabled());
    QCOMPARE(picture(), first);
    edit->redo->trigger();
    edit->redo->trigger();
    edit->settle();
    QCOMPARE(picture(), picture_step::turned(first, 2));
}

void TestEditMenu::undo_underWay_isDoneBeforeTheDocumentIsSaved()
{
    edit->rotateRight->trigger();
    QTRY_COMPARE(picture().size(), QSize(200, 300));
    edit->rotateRight->trigger();
    QTRY_COMPARE(picture().size(), QSize(300, 200));
    edit->undo->trigger();
    action(QStringLiteral("Save"))->trigger();
    QCOMPARE(QImage(current()->getFilePath()).size(), QSize(200, 300));
    QVERIFY(!current()->isSaveAble());
}

/// Somebody else gives the document another picture meanwhile: the way back stays whole.
void TestEditMenu::undo_ofAChangedDocument_isDropped()
{
    edit->rotateRight->trigger();
    QTRY_COMPARE(picture().size(), QSize(200, 300));
    const QImage turned = picture();
    edit->undo->trigger();
    document::setLayerPictures(*current(), {turned});
    edit->settle();
    QCOMPARE(picture(), turned);
    edit->undo->trigger();
    QTRY_COMPARE(picture(), first);
}

void TestEditMenu::adjust_severalLayers_previewsAllOfThem()
{
    auto *upper = new VeskLayer(QStringLiteral("upper"));
    QImage part(100, 80, QImage::Format_RGB32);
    part.fill(qRgb(60, 60, 60));
    upper->setVeskPictureHost(new VeskPictureHost(part));
    upper->setAlpha(0.5F);
    current()->getLayerManager()->addLayer(upper, true);
    showAdjust();
    canvas()->zoomToActualSize();
    auto *preview = edit->adjustDock()->preview();
    QSignalSpy ready(preview, &LookPreview::ready);
    slider("exposureSlider")->setValue(1);
    QTRY_VERIFY(!ready.isEmpty());
    const QImage live = canvas()->preview()->picture;
    QCOMPARE(live.size(), QSize(300, 200));
    edit->settle();
    const QImage done = composition::composedPicture(current());
    for (const QPoint &at : {QPoint(20, 20), QPoint(99, 79), QPoint(101, 81), QPoint(250, 150)}) {
        const QColor a = live.pixelColor(at);
        const QColor b = done.pixelColor(at);
        QVERIFY2(
            std::abs(a.red() - b.red()) <= 1 && std::abs(a.green() - b.green()) <= 1 &&
                std::abs(a.blue() - b.blue()) <= 1,
            qPrintable(
                QStringLiteral("%1 %2: %3 %4").arg(at.x()).arg(at.y()).arg(a.name(), b.name())));
    }
}

void TestEditMenu::adjust_preview_isWhatTheDocumentGets_data()
{
    QTest::addColumn<double>("before");
    QTest::newRow("the first look") << 0.0;
    QTest::newRow("instead of another") << 0.6; // the preview begins with what was before that
}

void TestEditMenu::adjust_preview_isWhatTheDocumentGets()
{
    QFETCH(const double, before);
    showAdjust();
    canvas()->zoomToActualSize();
    slider("contrastSlider")->setValue(before);
    edit->settle();
    auto *preview = edit->adjustDock()->preview();
    QSignalSpy ready(preview, &LookPreview::ready);
    slider("contrastSlider")->setValue(-0.4);
    QTRY_VERIFY(!ready.isEmpty());
    const QImage live = canvas()->preview()->picture;
    edit->settle();
    QCOMPARE(live.convertToFormat(QImage::Format_RGB32),
             picture().convertToFormat(QImage::Format_RGB32));
}

void TestEditMenu::twoDocuments_haveTheirOwnHistories()
{
    VeskContext *one = current();
    edit->rotateLeft->trigger();
    QTRY_COMPARE(picture().size(), QSize(200, 300));
    openAndWait({pictures->add(QStringLiteral("b.png"), {80, 60}, 4)});
    QVERIFY(!edit->undo->isEnabled());
    documents->makeCurrent(one);
    QVERIFY(edit->undo->isEnabled());
    edit->undo->trigger();
    QTRY_COMPARE(picture(), first);
}

QTEST_MAIN(TestEditMenu)
#include "tst_EditMenu.moc"
