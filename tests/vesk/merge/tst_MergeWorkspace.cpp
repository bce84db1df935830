#include "DocumentArea.h"
#include "EditorActions.h"
#include "EditorWindow.h"
#include "FilmStrip.h"
#include "LightWindow.h"
#include "LoadedPicture.h"
#include "LookSlider.h"
#include "MainWindow.h"
#include "MergePreview.h"
#include "MergeWorkspace.h"
#include "ShotList.h"
#include "picture_document.h"

#include <VeskContext.h>
#include <layer_composition.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QtTest>

Q_DECLARE_METATYPE(exposure::Method)
Q_DECLARE_METATYPE(exposure::Alignment)

namespace {

constexpr int kPatienceMs = 60000;
constexpr QSize kSmallScreen(1366, 768);
constexpr QSize kShotSize(320, 240);

} // namespace

class TestMergeWorkspace : public QObject, private EditorWindow
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void pathsOfAContextMenu_goToTheWorkspaceAndOpenNoTabs();
    void command_opensWithWhatIsSelected();
    void merge_equalsTheCommandLine_data();
    void merge_equalsTheCommandLine();
    void merge_deepShots_givesADeepDocument();
    void merge_opensBesideTheOthers();
    void everyOption_changesThePreview_data();
    void everyOption_changesThePreview();
    void reset_givesTheNeutralLookBack();
    void shotSwitchedOff_isLeftOut();
    void mean_hasNoLookAndNoGhosts();
    void light_opensInItsOwnWindow_equalToTheCommandLine();
    void keyB_showsTheReferenceWhileItIsHeld();
    void actualSize_showsTheMergePixelForPixel_data();
    void actualSize_showsTheMergePixelForPixel();
    void actualSize_otherOption_isMergedAnew();
    void merge_behindASharpView_isNotDoneAgain();
    void split_showsTheReferenceAtTheLeft();
    void clipping_marksWhatIsTooBright();
    void blink_showsTheAlignedShotsInTurn();
    void automaticLook_setsTheSliders();
    void draggedOrder_isTheMergeOrder();
    void workspaceOnAResult_startsFromItsSettings();
    void enterOnABracket_opensItAndNextBracketFollows();
    void cancel_whileReadingOrPreviewing_closes();
    void cancel_whileMerging_leavesNothingBehind();
    void shotThatVanished_isNamed();
    void damagedShot_isNamedAndSwitchedOff();
    void shotOfAnotherSize_isNamed();
    void everyControl_isReachedAndNamed();
    void smallScreen_isLargeEnough();

private:
    void open(const QStringList &paths);
    MergeWorkspace *workspace() const { return window->findChild<MergeWorkspace *>(); }
    template <typename Part>
    Part *part(const char *name) const
    {
        return workspace()->findChild<Part *>(QLatin1String(name));
    }
    QImage previewed() const { return part<MergePreview>("mergePreview")->shown(); }
    void waitForPreview();
    void change(const std::function<void()> &how);
    void choose(const char *box, int data);
    QImage merged();
    QImage mergedByCommandLine(const QStringList &paths, const QStringList &options) const;
};

/// The workspace with these shots, and its first preview.
void TestMergeWorkspace::open(const QStringList &paths)
{
    window->openPaths({paths.first()});
    QTRY_COMPARE(documents->documents().size(), 1);
    strip->select(paths);
    QTRY_COMPARE(strip->selectedPaths().size(), paths.size());
    window->findChild<EditorActions *>()->mergeExposures->trigger();
    QVERIFY(workspace());
    QVERIFY(QTest::qWaitForWindowExposed(workspace()));
}

void TestMergeWorkspace::waitForPreview()
{
    QTRY_VERIFY_WITH_TIMEOUT(!previewed().isNull(), kPatienceMs);
}

/// Does it, and waits until the preview has followed.
void TestMergeWorkspace::change(const std::function<void()> &how)
{
    const qint64 before = previewed().cacheKey();
    how();
    QTRY_VERIFY_WITH_TIMEOUT(previewed().cacheKey() != before, kPatienceMs);
}

void TestMergeWorkspace::choose(const char *box, int data)
{
    auto *list = part<QComboBox>(box);
    list->setCurrentIndex(list->findData(data));
}

/// Presses Merge, and gives the picture of the document that it opens.
QImage TestMergeWorkspace::merged()
{
    const auto before = documents->documents().size();
    part<QPushButton>("mergeButton")->click();
    if (!QTest::qWaitFor([&] { return documents->documents().size() == before + 1; }, kPatienceMs))
        return {};
    return composition::composedPicture(current());
}

QImage TestMergeWorkspace::mergedByCommandLine(const QStringList &paths,
                                               const QStringList &options) const
{
    const QString output = pictures->path(QStringLiteral("expected.tif"));
    QProcess program;
    program.start(qEnvironmentVariable("VESK_BIN_DIR") + QStringLiteral("/veskhdr"),
                  QStringList{QStringLiteral("merge"), QStringLiteral("--force")} + options +
                      paths + QStringList{QStringLiteral("-o"), output});
    program.waitForFinished(kPatienceMs);
    const std::atomic<bool> neverCancelled{false};
    return loadPicture(output, neverCancelled).image;
}

void TestMergeWorkspace::command_opensWithWhatIsSelected()
{
    const QStringList bracket = pictures->addBracket(3, kShotSize);
    QCOMPARE(window->findChild<EditorActions *>()->mergeExposures->shortcut(),
             QKeySequence(QStringLiteral("Ctrl+M")));
    open(bracket.mid(0, 2));
    QCOMPARE(part<ShotList>("shotList")->paths(), bracket.mid(0, 2));
    waitForPreview();
    // Once more, with others selected: they come along.
    strip->select({bracket.at(2)});
    window->findChild<EditorActions *>()->mergeExposures->trigger();
    QCOMPARE(part<ShotList>("shotList")->paths(), bracket);
    QCOMPARE(window->findChildren<MergeWorkspace *>().size(), 1);
}

void TestMergeWorkspace::merge_equalsTheCommandLine_data()
{
    using exposure::Alignment;
    using exposure::Method;
    QTest::addColumn<Method>("method");
    QTest::addColumn<Alignment>("alignment");
    QTest::addColumn<int>("ghosts"); // place in the list
    QTest::addColumn<bool>("crop");
    QTest::addColumn<double>("look");
    QTest::addColumn<int>("reference"); // -1: automatic
    QTest::addColumn<QString>("options");
    const auto row = [](const char *name, Method method, Alignment alignment, int ghosts, bool crop,
                        double look, int reference, const char *options) {
        QTest::newRow(name) << method << alignment << ghosts << crop << look << reference
                            << QString::fromLatin1(options);
    };
    row("as it opens", Method::Fusion, Alignment::Perspective, 0, false, 0, -1, "");
    row("shifts, cropped", Method::Fusion, Alignment::Shift, 0, true, 0, -1,
        "--align shift --crop");
    row("tripod, with ghosts", Method::Fusion, Alignment::None, 1, false, 0, -1,
        "--align none --ghosts off");
    row("ghosts from the third", Method::Fusion, Alignment::None, 4, false, 0, -1,
        "--align none --ghosts s3.png");
    row("a look", Method::Fusion, Alignment::Perspective, 0, false, 0.5, -1,
        "--exposure 0.5 --contrast 0.5 --saturation 1.5");
    row("onto the first", Method::Fusion, Alignment::Perspective, 0, false, 0, 0,
        "--reference s1.png");
    row("mean", Method::Mean, Alignment::Shift, 0, false, 0, -1, "--method mean");
    row("mean, cropped", Method::Mean, Alignment::Shift, 0, true, 0, -1, "--method mean --crop");
    row("mean, tripod", Method::Mean, Alignment::None, 0, false, 0, -1,
        "--method mean --align none");
}

void TestMergeWorkspace::merge_equalsTheCommandLine()
{
    QFETCH(exposure::Method, method);
    QFETCH(exposure::Alignment, alignment);
    QFETCH(int, ghosts);
    QFETCH(bool, crop);
    QFETCH(double, look);
    QFETCH(int, reference);
    QFETCH(QString, options);
    const QStringList bracket = pictures->addBracket(3, kShotSize);
    open(bracket);
    waitForPreview();
    choose("methodBox", int(method));
    choose("alignmentBox", int(alignment));
    part<QComboBox>("ghostsBox")->setCurrentIndex(ghosts);
    part<QCheckBox>("cropBox")->setChecked(crop);
    part<LookSlider>("exposureSlider")->setValue(look);
    part<LookSlider>("contrastSlider")->setValue(look);
    part<LookSlider>("saturationSlider")->setValue(1 + look);
    if (reference >= 0) {
        part<ShotList>("shotList")->setCurrentRow(reference);
        part<QPushButton>("referenceButton")->click();
    }
    QStringList words = options.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (QString &word : words) {
        if (word.endsWith(QLatin1String(".png")))
            word = pictures->path(word);
    }
    const QImage expected = mergedByCommandLine(bracket, words);
    QVERIFY(!expected.isNull());
    const QImage picture = merged();
    QCOMPARE(picture.size(), expected.size());
    QCOMPARE(picture.convertToFormat(QImage::Format_RGB32), expected);
    QTRY_VERIFY(!workspace());
}

void TestMergeWorkspace::merge_deepShots_givesADeepDocument()
{
    QStringList bracket;
    for (const int shot : {1, 2, 3}) {
        QImage deep = TestPictures::texture(kShotSize, 1).convertToFormat(QImage::Format_RGBX64);
        for (int y = 0; y < deep.height(); ++y) {
            auto *row = reinterpret_cast<QRgba64 *>(deep.scanLine(y));
            for (int x = 0; x < deep.width(); ++x)
                row[x] =
                    qRgba64(quint16(row[x].red() / 4 * shot), quint16(row[x].green() / 4 * shot),
                            quint16(row[x].blue() / 4 * shot + 100), 0xFFFF);
        }
        bracket.append(pictures->path(QStringLiteral("deep%1.png").arg(shot)));
        QVERIFY(deep.save(bracket.constLast()));
    }
    open(bracket);
    waitForPreview();
    const QImage expected = mergedByCommandLine(bracket, {});
    QCOMPARE(expected.format(), QImage::Format_RGBX64);
    QCOMPARE(merged(), expected);
}

void TestMergeWorkspace::merge_opensBesideTheOthers()
{
    const QStringList bracket = pictures->addBracket(3, kShotSize);
    open(bracket);
    waitForPreview();
    VeskContext *first = current();
    QVERIFY(!merged().isNull());
    QCOMPARE(documents->documents().size(), 2);
    QVERIFY(documents->documents().contains(first));
    QVERIFY(current() != first);
    QVERIFY(current()->isSaveAble());
    QVERIFY(current()->getFilePath().isEmpty());
    const std::optional<ResultMark> mark = document::resultMark(*current());
    QVERIFY(mark);
    QCOMPARE(mark->method, QStringLiteral("fusion"));
    QCOMPARE(mark->sources.size(), 3);
    QCOMPARE(mark->options, QString());
    const QString source = document::metadataSource(*current());
    QVERIFY(bracket.contains(source));
    QCOMPARE(current()->getFileName(),
             QStringLiteral("%1 merged").arg(QFileInfo(source).completeBaseName()));
}

void TestMergeWorkspace::everyOption_changesThePreview_data()
{
    QTest::addColumn<QString>("option");
    for (const char *option :
         {"method", "alignment", "ghosts", "exposure", "contrast", "highlights", "shadows",
          "blackPoint", "saturation", "crop", "reference", "off"})
        QTest::newRow(option) << QString::fromLatin1(option);
}

void TestMergeWorkspace::everyOption_changesThePreview()
{
    QFETCH(QString, option);
    open(pictures->addBracket(3, kShotSize));
    waitForPreview();
    const QImage before = previewed();
    auto *list = part<ShotList>("shotList");
    if (option == QLatin1String("method"))
        change([&] { choose("methodBox", int(exposure::Method::Mean)); });
    else if (option == QLatin1String("alignment"))
        change([&] { choose("alignmentBox", int(exposure::Alignment::None)); });
    else if (option == QLatin1String("ghosts"))
        change([&] { part<QComboBox>("ghostsBox")->setCurrentIndex(1); });
    else if (option == QLatin1String("crop"))
        change([&] { part<QCheckBox>("cropBox")->setChecked(true); });
    else if (option == QLatin1String("reference"))
        change([&] {
            list->setCurrentRow(2);
            part<QPushButton>("referenceButton")->click();
        });
    else if (option == QLatin1String("off"))
        change([&] { list->item(0)->setCheckState(Qt::Unchecked); });
    else
        change(
            [&] { part<LookSlider>(qPrintable(option + QLatin1String("Slider")))->setValue(0.4); });
    QVERIFY(!previewed().isNull());
    const QStringList showing{"method",  "exposure",   "contrast",   "saturation",
                              "shadows", "highlights", "blackPoint", "off"};
    if (showing.contains(option))
        QVERIFY(previewed() != before);
}

void TestMergeWorkspace::reset_givesTheNeutralLookBack()
{
    open(pictures->addBracket(3, kShotSize));
    waitForPreview();
    const QImage neutral = previewed();
    change([&] { part<LookSlider>("exposureSlider")->setValue(1); });
    QVERIFY(previewed() != neutral);
    change([&] { part<QPushButton>("resetButton")->click(); });
    QTRY_COMPARE_WITH_TIMEOUT(previewed(), neutral, kPatienceMs);
    QCOMPARE(part<LookSlider>("saturationSlider")->value(), 1.0);
}

void TestMergeWorkspace::shotSwitchedOff_isLeftOut()
{
    const QStringList bracket = pictures->addBracket(3, kShotSize);
    open(bracket);
    waitForPreview();
    auto *list = part<ShotList>("shotList");
    list->setFocus();
    list->setCurrentRow(2);
    change([&] { QTest::keyClick(list, Qt::Key_Space); });
    QCOMPARE(list->shotsOn().size(), 2);
    QCOMPARE(merged().convertToFormat(QImage::Format_RGB32),
             mergedByCommandLine(bracket.mid(0, 2), {}));
}

void TestMergeWorkspace::mean_hasNoLookAndNoGhosts()
{
    open(pictures->addBracket(3, kShotSize));
    waitForPreview();
    choose("methodBox", int(exposure::Method::Mean));
    for (const char *name : {"ghostsBox", "exposureSlider", "shadowsSlider", "saturationSlider",
                             "autoButton", "referenceButton"})
        QVERIFY2(!part<QWidget>(name)->isEnabled(), name);
    QCOMPARE(part<QComboBox>("alignmentBox")->findData(int(exposure::Alignment::Perspective)), -1);
    choose("methodBox", int(exposure::Method::Fusion));
    QVERIFY(part<QWidget>("exposureSlider")->isEnabled());
    QCOMPARE(part<QComboBox>("alignmentBox")->currentData().toInt(),
             int(exposure::Alignment::Perspective));
}

void TestMergeWorkspace::light_opensInItsOwnWindow_equalToTheCommandLine()
{
    const QStringList bracket = pictures->addBracket(3, kShotSize);
    open(bracket);
    waitForPreview();
    change([this] { choose("methodBox", int(exposure::Method::Radiance)); });
    QVERIFY(!part<QWidget>("exposureSlider")->isEnabled());
    QVERIFY(part<QWidget>("ghostsBox")->isEnabled());
    part<QPushButton>("mergeButton")->click();
    QTRY_VERIFY_WITH_TIMEOUT(window->findChild<LightWindow *>(), kPatienceMs);
    auto *shown = window->findChild<LightWindow *>();
    QCOMPARE(documents->documents().size(), 1); // what was open before
    QCOMPARE(shown->light().picture, mergedByCommandLine(bracket, {QStringLiteral("--method"),
                                                                   QStringLiteral("radiance")}));
    QCOMPARE(shown->light().mark->method, QStringLiteral("radiance"));
    boxes->answerNextWith(QMessageBox::Discard); // it is in no file
    QVERIFY(shown->close());
}

void TestMergeWorkspace::keyB_showsTheReferenceWhileItIsHeld()
{
    open(pictures->addBracket(3, kShotSize));
    waitForPreview();
    auto *list = part<ShotList>("shotList");
    const QImage after = previewed();
    for (QWidget *focused : {static_cast<QWidget *>(list), part<QWidget>("methodBox")}) {
        QTest::keyPress(focused, Qt::Key_B);
        QVERIFY(part<MergePreview>("mergePreview")->isShowingBefore());
        QCOMPARE(previewed(), list->shotsOn().at(list->shownReference()).small);
        QTest::keyRelease(focused, Qt::Key_B);
        QCOMPARE(previewed(), after);
    }
}

void TestMergeWorkspace::actualSize_showsTheMergePixelForPixel_data()
{
    QTest::addColumn<bool>("isCropped");
    QTest::addColumn<double>("shadows");
    QTest::newRow("whole") << false << 0.0;
    QTest::newRow("cropped, with a look") << true << 0.6;
}

/// The preview is sharp where the merge, and so the command line, has its pixels.
void TestMergeWorkspace::actualSize_showsTheMergePixelForPixel()
{
    QFETCH(bool, isCropped);
    QFETCH(double, shadows);
    const QStringList bracket = pictures->addBracket(3, {2600, 1900});
    open(bracket);
    waitForPreview();
    auto *preview = part<MergePreview>("mergePreview");
    part<QCheckBox>("cropBox")->setChecked(isCropped);
    part<LookSlider>("shadowsSlider")->setValue(shadows);
    part<QPushButton>("actualSizeButton")->click();
    QCOMPARE(preview->zoom(), 1.0);
    QTRY_VERIFY_WITH_TIMEOUT(preview->isSharp() && !preview->sharpRegion().after.isNull(),
                             kPatienceMs);
    const QRect area = preview->sharpRegion().area;
    QVERIFY(area.contains(preview->viewPlace().visible()));
    const QImage seen = preview->sharpRegion().after;
    const QImage widget = preview->grab().toImage();
    QStringList words;
    if (isCropped)
        words += {QStringLiteral("--crop"), QStringLiteral("--shadows"), QStringLiteral("0.6")};
    const QImage expected = mergedByCommandLine(bracket, words).copy(area);
    QCOMPARE(seen.convertToFormat(QImage::Format_RGB32), expected);
    // And that is what stands on the screen.
    const QPoint shift = preview->viewPlace().targetOf(area).topLeft().toPoint();
    const QRect inWidget = QRect(shift, area.size()) & widget.rect();
    QCOMPARE(widget.copy(inWidget).convertToFormat(QImage::Format_RGB32),
             expected.copy(inWidget.translated(-shift)));
}

void TestMergeWorkspace::actualSize_otherOption_isMergedAnew()
{
    open(pictures->addBracket(3, {1600, 1200}));
    waitForPreview();
    auto *preview = part<MergePreview>("mergePreview");
    part<QPushButton>("actualSizeButton")->click();
    QTRY_VERIFY_WITH_TIMEOUT(!preview->sharpRegion().after.isNull(), kPatienceMs);
    const QImage before = preview->sharpRegion().after;
    part<ShotList>("shotList")->item(0)->setCheckState(Qt::Unchecked);
    QVERIFY(!preview->isSharp()); // what is stale is not shown
    QTRY_VERIFY_WITH_TIMEOUT(!preview->sharpRegion().after.isNull(), kPatienceMs);
    QVERIFY(preview->sharpRegion().after != before);
}

void TestMergeWorkspace::merge_behindASharpView_isNotDoneAgain()
{
    const QStringList bracket = pictures->addBracket(3, {1600, 1200});
    open(bracket);
    waitForPreview();
    part<QPushButton>("actualSizeButton")->click();
    auto *preview = part<MergePreview>("mergePreview");
    QTRY_VERIFY_WITH_TIMEOUT(preview->isSharp(), kPatienceMs);
    part<LookSlider>("exposureSlider")->setValue(0.5);
    const QImage expected =
        mergedByCommandLine(bracket, {QStringLiteral("--exposure"), QStringLiteral("0.5")});
    for (const QString &path : bracket)
        QVERIFY(QFile::remove(path)); // nobody reads them again
    QCOMPARE(merged().convertToFormat(QImage::Format_RGB32), expected);
}

void TestMergeWorkspace::split_showsTheReferenceAtTheLeft()
{
    open(pictures->addBracket(3, kShotSize));
    waitForPreview();
    auto *preview = part<MergePreview>("mergePreview");
    const QImage whole = preview->grab().toImage();
    QTest::keyClick(part<ShotList>("shotList"), Qt::Key_S);
    QVERIFY(part<QPushButton>("splitButton")->isChecked());
    const QImage halves = preview->grab().toImage();
    const QSize half(preview->width() / 2 - 20, preview->height());
    QVERIFY(halves.copy({{0, 0}, half}) != whole.copy({{0, 0}, half}));
    const QPoint right(preview->width() / 2 + 20, 0);
    QCOMPARE(halves.copy({right, half}), whole.copy({right, half}));
    preview->setFocus();
    QTest::keyClick(preview, Qt::Key_Right, Qt::ShiftModifier);
    QVERIFY(preview->splitPlace() > 0.5);
    const int line = qRound(preview->splitPlace() * preview->width());
    QTest::mousePress(preview, Qt::LeftButton, {}, {line, 40});
    QTest::mouseMove(preview, {preview->width() / 4, 40});
    QTest::mouseRelease(preview, Qt::LeftButton, {}, {preview->width() / 4, 40});
    QVERIFY(qAbs(preview->splitPlace() - 0.25) < 0.02);
}

void TestMergeWorkspace::clipping_marksWhatIsTooBright()
{
    open(pictures->addBracket(3, kShotSize));
    waitForPreview();
    change([&] { part<LookSlider>("exposureSlider")->setValue(4); });
    auto *preview = part<MergePreview>("mergePreview");
    const auto redPixels = [preview] {
        int count = 0;
        const QImage seen = preview->grab().toImage().convertToFormat(QImage::Format_RGB32);
        for (int y = 0; y < seen.height(); ++y)
            for (int x = 0; x < seen.width(); ++x)
                count += seen.pixel(x, y) == 0xffff2020;
        return count;
    };
    QTest::keyClick(preview, Qt::Key_0, Qt::ControlModifier);
    const int before = redPixels();
    part<QPushButton>("clippingButton")->click();
    QVERIFY(redPixels() > before + 1000);
}

void TestMergeWorkspace::blink_showsTheAlignedShotsInTurn()
{
    open(pictures->addBracket(3, kShotSize));
    waitForPreview();
    const QImage after = previewed();
    part<QPushButton>("blinkButton")->click();
    QList<QImage> seen;
    const auto seesAnother = [&] {
        const QImage now = previewed();
        if (now != after && !seen.contains(now))
            seen += now;
        return seen.size() == 3;
    };
    QTRY_VERIFY_WITH_TIMEOUT(seesAnother(), kPatienceMs);
    part<QPushButton>("blinkButton")->click();
    QCOMPARE(previewed(), after);
}

void TestMergeWorkspace::automaticLook_setsTheSliders()
{
    open(pictures->addBracket(2, kShotSize)); // both of them dark
    waitForPreview();
    change([&] { part<QPushButton>("autoButton")->click(); });
    QVERIFY(part<LookSlider>("exposureSlider")->value() != 0.0 ||
            part<LookSlider>("shadowsSlider")->value() != 0.0 ||
            part<LookSlider>("whitePointSlider")->value() != 1.0);
    change([&] { part<QPushButton>("resetButton")->click(); });
    QCOMPARE(part<LookSlider>("exposureSlider")->value(), 0.0);
    QCOMPARE(part<LookSlider>("whitePointSlider")->value(), 1.0);
}

void TestMergeWorkspace::draggedOrder_isTheMergeOrder()
{
    const QStringList bracket = pictures->addBracket(3, kShotSize);
    open(bracket);
    waitForPreview();
    auto *list = part<ShotList>("shotList");
    list->setCurrentRow(2);
    QTest::keyClick(list, Qt::Key_Up, Qt::AltModifier);
    QTest::keyClick(list, Qt::Key_Up, Qt::AltModifier);
    const QStringList order{bracket[2], bracket[0], bracket[1]};
    QCOMPARE(list->paths(), order);
    choose("methodBox", int(exposure::Method::Mean)); // aligned onto the first
    const QImage expected =
        mergedByCommandLine(order, {QStringLiteral("--method"), QStringLiteral("mean"),
                                    QStringLiteral("--keep-order")});
    QCOMPARE(merged().convertToFormat(QImage::Format_RGB32), expected);
    QCOMPARE(document::resultMark(*current())->options, QStringLiteral("--keep-order"));
}

/// Of the document that has just been merged, and of its file.
void TestMergeWorkspace::workspaceOnAResult_startsFromItsSettings()
{
    const QStringList bracket = pictures->addBracket(3, kShotSize);
    open(bracket);
    waitForPreview();
    auto *list = part<ShotList>("shotList");
    list->item(0)->setCheckState(Qt::Unchecked);
    list->setCurrentRow(2);
    part<QPushButton>("referenceButton")->click();
    part<QCheckBox>("cropBox")->setChecked(true);
    part<QComboBox>("ghostsBox")->setCurrentIndex(3);
    choose("alignmentBox", int(exposure::Alignment::None));
    part<LookSlider>("shadowsSlider")->setValue(0.35);
    part<LookSlider>("exposureSlider")->setValue(-0.5);
    const QImage first = merged();
    QTRY_VERIFY(!workspace());
    strip->clearSelection();
    window->findChild<EditorActions *>()->mergeExposures->trigger();
    waitForPreview();
    list = part<ShotList>("shotList");
    QCOMPARE(list->paths(), bracket.mid(1));
    QCOMPARE(list->chosenReference(), 1);
    QVERIFY(part<QCheckBox>("cropBox")->isChecked());
    QCOMPARE(part<QComboBox>("ghostsBox")->currentIndex(), 3);
    QCOMPARE(part<QComboBox>("alignmentBox")->currentData().toInt(),
             int(exposure::Alignment::None));
    QCOMPARE(part<LookSlider>("shadowsSlider")->value(), 0.35);
    QCOMPARE(part<LookSlider>("exposureSlider")->value(), -0.5);
    QCOMPARE(merged(), first);
}

void TestMergeWorkspace::enterOnABracket_opensItAndNextBracketFollows()
{
    const QStringList first = pictures->addCameraBracket(QStringLiteral("a"), 3, 0, kShotSize);
    const QStringList second = pictures->addCameraBracket(QStringLiteral("b"), 4, 9, kShotSize);
    window->openPaths({pictures->folder()});
    QTRY_COMPARE(strip->bracketCount(), 2);
    QVERIFY(strip->stepBracket(1));
    QTest::keyClick(strip, Qt::Key_Return);
    QVERIFY(workspace());
    QCOMPARE(part<ShotList>("shotList")->paths(), first);
    waitForPreview();
    QVERIFY(workspace()->windowTitle().contains(QStringLiteral("bracket 1 of 2")));
    part<LookSlider>("shadowsSlider")->setValue(0.2);
    part<QPushButton>("nextBracketButton")->click();
    QCOMPARE(part<ShotList>("shotList")->paths(), second);
    QVERIFY(previewed().isNull());
    waitForPreview();
    QCOMPARE(part<LookSlider>("shadowsSlider")->value(), 0.2); // options stay
    QVERIFY(!part<QPushButton>("nextBracketButton")->isEnabled());
    QCOMPARE(strip->selectedPaths(), second);
}

void TestMergeWorkspace::cancel_whileReadingOrPreviewing_closes()
{
    const QStringList bracket = pictures->addBracket(5, {1600, 1200});
    open(bracket); // still reading
    QTest::keyClick(workspace(), Qt::Key_Escape);
    QTRY_VERIFY(!workspace());
    window->findChild<EditorActions *>()->mergeExposures->trigger();
    waitForPreview();
    part<QPushButton>("actualSizeButton")->click(); // sharpens
    QTest::keyClick(workspace(), Qt::Key_Escape);
    QTRY_VERIFY(!workspace());
    QCOMPARE(documents->documents().size(), 1);
}

void TestMergeWorkspace::cancel_whileMerging_leavesNothingBehind()
{
    const QStringList bracket = pictures->addBracket(5, {2400, 1800});
    open(bracket);
    waitForPreview();
    const QStringList filesBefore = pictures->names();
    part<QPushButton>("mergeButton")->click();
    QVERIFY(workspace()->isMerging());
    QVERIFY(part<QProgressBar>("mergeProgress")->isVisible());
    QVERIFY(!part<QPushButton>("mergeButton")->isEnabled());
    QTRY_VERIFY_WITH_TIMEOUT(part<QProgressBar>("mergeProgress")->value() > 0, kPatienceMs);
    QTest::keyClick(workspace(), Qt::Key_Escape);
    QVERIFY(!workspace()->isMerging()); // at once
    QVERIFY(workspace()->isVisible());
    QVERIFY(!part<QProgressBar>("mergeProgress")->isVisible());
    QVERIFY(part<QPushButton>("mergeButton")->isEnabled());
    QCOMPARE(documents->documents().size(), 1);
    // What had been under way does not turn up later.
    QVERIFY(!merged().isNull());
    QTest::qWait(0);
    QCOMPARE(documents->documents().size(), 2);
    QCOMPARE(pictures->names(), filesBefore);
}

void TestMergeWorkspace::shotThatVanished_isNamed()
{
    const QStringList bracket = pictures->addBracket(3, kShotSize);
    open(bracket);
    waitForPreview();
    QVERIFY(QFile::remove(bracket.at(1)));
    part<QPushButton>("mergeButton")->click();
    QTRY_COMPARE_WITH_TIMEOUT(boxes->shown().size(), 1, kPatienceMs);
    QVERIFY(boxes->shown().first().text.contains(QStringLiteral("“s2.png”")));
    QVERIFY(boxes->shown().first().text.contains(QStringLiteral("no such file")));
    QCOMPARE(documents->documents().size(), 1);
    QVERIFY(workspace()->isVisible());
    QVERIFY(part<QPushButton>("mergeButton")->isEnabled());
}

void TestMergeWorkspace::damagedShot_isNamedAndSwitchedOff()
{
    QStringList bracket = pictures->addBracket(2, kShotSize);
    bracket.append(pictures->addDamaged(QStringLiteral("z.png")));
    open(bracket);
    waitForPreview();
    auto *list = part<ShotList>("shotList");
    QCOMPARE(list->count(), 3);
    QVERIFY(list->item(2)->text().contains(QStringLiteral("truncated or damaged")));
    QCOMPARE(list->item(2)->checkState(), Qt::Unchecked);
    QCOMPARE(list->shotsOn().size(), 2);
    QCOMPARE(merged().convertToFormat(QImage::Format_RGB32),
             mergedByCommandLine(bracket.mid(0, 2), {}));
}

void TestMergeWorkspace::shotOfAnotherSize_isNamed()
{
    QStringList bracket = pictures->addBracket(2, kShotSize);
    bracket.append(pictures->add(QStringLiteral("z.png"), {100, 80}));
    open(bracket);
    const auto *merge = part<QPushButton>("mergeButton");
    auto *list = part<ShotList>("shotList");
    QTRY_VERIFY_WITH_TIMEOUT(list->count() == 3 && !list->item(2)->icon().isNull(), kPatienceMs);
    QTRY_VERIFY(part<MergePreview>("mergePreview")->text().contains(QStringLiteral("“z.png”")));
    QVERIFY(!merge->isEnabled());
    QVERIFY(previewed().isNull());
    list->item(2)->setCheckState(Qt::Unchecked);
    waitForPreview();
    QVERIFY(merge->isEnabled());
}

void TestMergeWorkspace::everyControl_isReachedAndNamed()
{
    open(pictures->addBracket(3, kShotSize));
    waitForPreview();
    QSet<QWidget *> reached;
    QWidget *first = part<ShotList>("shotList");
    for (QWidget *next = first->nextInFocusChain(); next != first; next = next->nextInFocusChain())
        if (next->isVisible() && (next->focusPolicy() & Qt::TabFocus))
            reached.insert(next);
    for (const char *name :
         {"methodBox", "alignmentBox", "ghostsBox", "cropBox", "resetButton", "mergeButton",
          "closeButton", "addButton", "referenceButton", "beforeButton", "splitButton",
          "blinkButton", "clippingButton", "loupeButton", "fitButton", "actualSizeButton",
          "autoButton", "mergePreview"})
        QVERIFY2(reached.contains(part<QWidget>(name)), name);
    for (const char *name :
         {"exposureSlider", "contrastSlider", "saturationSlider", "highlightsSlider",
          "shadowsSlider", "blackPointSlider", "whitePointSlider"})
        QVERIFY2(reached.contains(part<QWidget>(name)->focusProxy()), name);
    for (const char *name : {"shotList", "mergePreview", "methodBox", "alignmentBox", "ghostsBox",
                             "exposureSlider", "contrastSlider", "saturationSlider"})
        QVERIFY2(!part<QWidget>(name)->accessibleName().isEmpty(), name);
}

void TestMergeWorkspace::smallScreen_isLargeEnough()
{
    open(pictures->addBracket(2, kShotSize));
    const QSize least = workspace()->minimumSizeHint();
    QVERIFY(least.width() <= kSmallScreen.width());
    QVERIFY(least.height() <= kSmallScreen.height() - 60); // the desktop's own bars
}

/// As the context menu of a file manager starts the editor.
void TestMergeWorkspace::pathsOfAContextMenu_goToTheWorkspaceAndOpenNoTabs()
{
    const QStringList bracket = pictures->addBracket(3, {30, 20});
    window->mergePaths({bracket.at(0), bracket.at(2)});
    QVERIFY(workspace() && workspace()->isVisible());
    const QStringList shown{bracket.at(0), bracket.at(2)};
    QTRY_COMPARE(workspace()->findChild<ShotList *>()->paths(), shown);
    QVERIFY(!current());
}

QTEST_MAIN(TestMergeWorkspace)
#include "tst_MergeWorkspace.moc"
