#include "VeskToolHDRWidget.h"

#include "VeskDeviceInfo.h"
#include "VeskFilterContainer.h"
#include "VeskOpenCLDeviceSelection.h"
#include "VeskToolHDR.h"
#include "clipped_texts.h"
#include "process_per_test.h"
#include "recording_tool.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QImageReader>
#include <QLineEdit>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <QTranslator>
#include <QtTest>

#include <memory>

namespace {

void playDevices(const QByteArray &names)
{
    qputenv("VESK_SCRIPT_PLATFORM", "Test Platform");
    qputenv("VESK_SCRIPT_DEVICES", names);
}

/// The panel with a tool that records, and what a user would touch.
struct Panel
{
    Panel() { widget.setTool(&tool); }

    template <class Control>
    Control &control(const char *name)
    {
        return *widget.findChild<Control *>(QString::fromLatin1(name));
    }
    void click(const char *name)
    {
        QTest::mouseClick(&control<QAbstractButton>(name), Qt::LeftButton);
    }
    QListWidget &list() { return control<QListWidget>("fileList"); }
    QStringList &calls() { return ToolRecord::instance().calls; }
    void add(const QString &path, const QImage &picture = QImage(8, 8, QImage::Format_RGB32))
    {
        ToolRecord::instance().files.insert(path, picture);
        tool.addFile(path);
        widget.updateState();
    }
    /// Shows the panel and forgets what that told the tool.
    void show()
    {
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        calls().clear();
    }

    VeskToolHDR tool;
    VeskToolHDRWidget widget;
};

/// Clicks Browse; drive(chooser) is called once the file chooser is open.
template <class Drive>
void browse(Panel &panel, Drive drive)
{
    bool wasDriven = false;
    QTimer::singleShot(0, qApp, [&] {
        auto *chooser = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!chooser) {
            return;
        }
        wasDriven = true;
        drive(*chooser);
    });
    panel.click("browseBtn");
    QVERIFY(wasDriven);
}

void choose(QFileDialog &chooser, const QStringList &names)
{
    chooser.findChild<QLineEdit *>("fileNameEdit")
        ->setText('"' + names.join(QStringLiteral("\" \"")) + '"');
    auto *buttons = chooser.findChild<QDialogButtonBox *>();
    QTest::mouseClick(buttons->button(QDialogButtonBox::Open), Qt::LeftButton);
}

QSize iconSize(const QListWidgetItem &item)
{
    return item.data(Qt::DecorationRole).value<QIcon>().actualSize(QSize(1000, 1000));
}

} // namespace

/// The panel, with a tool that only records and devices that a scripted OpenCL platform plays.
class TestVeskToolHDRWidget : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void metaObject_listsTheSlotsInOrder();
    void construction_setsToolWindowFlagsAndIconSize();
    void setTool_fillsTheListAndDisablesOk();

    void okButton_isEnabledFromTwoPicturesOn();
    void thumbnail_fitsInto160x120_neverEnlarged_data();
    void thumbnail_fitsInto160x120_neverEnlarged();
    void thumbnail_takesPixelsOfThePictureAndMixesNone();
    void onePixelWidePicture_hasNoThumbnailButItsPath();
    void pictures_areListedInPathOrder();
    void longPath_isCutAtItsBeginning();
    void updateState_replacesTheEntries();

    void remove_withoutSelection_doesNothing();
    void remove_asksForThePathOfTheSelectedEntry();
    void remove_readsTheStoredPathNotTheText();

    void show_withDevice_offersOpenCL();
    void show_withoutDevice_unchecksAndTellsTheToolToUseTheProcessor();
    void show_again_keepsTheUncheckedBox();
    void cudaCheck_clicked_tellsTheTool();
    void cudaCheck_clickedWithoutDevice_tellsTheToolToUseTheProcessor();
    void cudaCheck_changedByProgram_tellsNothing();
    void alignCheck_clicked_tellsTheTool();
    void deviceButton_afterTheDialog_showsTheCurrentName();
    void deviceButton_afterTheDialogWithoutChoice_showsTheCurrentName();

    void browse_opensTheChooserInTheToolsDirectory();
    void browse_chosenFiles_goToTheTool();
    void browse_cancelled_callsNothing();

    void ok_hidesFrameAndPanelThenMerges();
    void ok_withoutFrame_hidesThePanel();
    void cancel_emptiesTheSetHidesAndLeavesTheOldEntries();
    void toolIsGone_controlsDoNothing_data();
    void toolIsGone_controlsDoNothing();
    void toolGoesWhileTheFrameIsHidden_okDoesNothingMore();
    void toolGoesWhileTheChooserIsOpen_addsNothing();
    void panelGoesWhileTheDeviceDialogIsOpen_doesNothingMore();
    void panelInItsFrame_inEveryLanguage_clipsNoText();
    void panelInItsFrame_atLargeFonts_growsAndClipsNoText_data();
    void panelInItsFrame_atLargeFonts_growsAndClipsNoText();
    void description_inEveryLanguage_takesTwoLines();
};

void TestVeskToolHDRWidget::initTestCase()
{
    if (!qEnvironmentVariableIsSet("OPENCL_LAYERS")) {
        QSKIP("No OpenCL layer that plays the devices (OPENCL_LAYERS is not set).");
    }
    playDevices("Graphics One|Graphics Two");
    QFile::remove(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
                  "/config.ini");
}

void TestVeskToolHDRWidget::metaObject_listsTheSlotsInOrder()
{
    const QMetaObject &meta = VeskToolHDRWidget::staticMetaObject;
    QCOMPARE(meta.className(), "VeskToolHDRWidget");
    QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        QCOMPARE(method.methodType(), QMetaMethod::Slot);
        QCOMPARE(method.access(), methods.isEmpty() ? QMetaMethod::Public : QMetaMethod::Private);
        methods += QString::fromLatin1(method.methodSignature());
    }
    QCOMPARE(methods, QStringList({"showEvent(QShowEvent*)", "on_cancelBtn_clicked()",
                                   "on_okBtn_clicked()", "on_browseBtn_clicked()",
                                   "on_removeBtn_clicked()", "on_alignCheck_clicked()",
                                   "on_cudaCheck_clicked()", "on_deviceButton_clicked()"}));
}

void TestVeskToolHDRWidget::construction_setsToolWindowFlagsAndIconSize()
{
    Panel panel;
    QCOMPARE(int(panel.widget.windowFlags()), 0x4080B);
    QCOMPARE(panel.list().iconSize(), QSize(90, 90));
    QCOMPARE(panel.widget.size(), QSize(527, 359));
    QVERIFY(!panel.widget.parentWidget());
}

void TestVeskToolHDRWidget::setTool_fillsTheListAndDisablesOk()
{
    VeskToolHDR tool;
    tool.addFile("/a.png");
    VeskToolHDRWidget widget;
    widget.setTool(&tool);
    QCOMPARE(widget.findChild<QListWidget *>("fileList")->count(), 1);
    QVERIFY(!widget.findChild<QPushButton *>("okBtn")->isEnabled());
}

void TestVeskToolHDRWidget::okButton_isEnabledFromTwoPicturesOn()
{
    Panel panel;
    QList<bool> enabled{panel.control<QPushButton>("okBtn").isEnabled()};
    for (int i = 1; i <= 5; ++i) {
        panel.add(QStringLiteral("/%1.png").arg(i));
        enabled += panel.control<QPushButton>("okBtn").isEnabled();
        QVERIFY(panel.control<QPushButton>("browseBtn").isEnabled());
        QVERIFY(panel.control<QPushButton>("removeBtn").isEnabled());
    }
    QCOMPARE(enabled, QList<bool>({false, false, true, true, true, true}));
}

void TestVeskToolHDRWidget::thumbnail_fitsInto160x120_neverEnlarged_data()
{
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QSize>("thumbnail");
    QTest::newRow("landscape 4:3") << QSize(4000, 3000) << QSize(160, 120);
    QTest::newRow("portrait 3:4") << QSize(3000, 4000) << QSize(90, 120);
    // 160 x 106 is aimed at; keeping the aspect fits the picture inside it.
    QTest::newRow("landscape 3:2")
        << QSize(6000, 4000) << QSize(6000, 4000).scaled(160, 106, Qt::KeepAspectRatio);
    QTest::newRow("small") << QSize(100, 80) << QSize(100, 80);
    QTest::newRow("as large as the box") << QSize(160, 120) << QSize(160, 120);
    QTest::newRow("1 x 1") << QSize(1, 1) << QSize(1, 1);
}

void TestVeskToolHDRWidget::thumbnail_fitsInto160x120_neverEnlarged()
{
    QFETCH(QSize, picture);
    QFETCH(QSize, thumbnail);
    Panel panel;
    QImage image(picture, QImage::Format_Mono);
    image.fill(1);
    panel.add("/a.png", image);
    QCOMPARE(iconSize(*panel.list().item(0)), thumbnail);
}

void TestVeskToolHDRWidget::thumbnail_takesPixelsOfThePictureAndMixesNone()
{
    QImage stripes(321, 243, QImage::Format_RGB32);
    for (int y = 0; y < stripes.height(); ++y) {
        for (int x = 0; x < stripes.width(); ++x)
            stripes.setPixel(x, y, qRgb(x % 2 * 255, y % 3 * 127, 0));
    }
    Panel panel;
    panel.add("/a.png", stripes);
    const QIcon icon = panel.list().item(0)->data(Qt::DecorationRole).value<QIcon>();
    const QImage shown = icon.pixmap(QSize(1000, 1000)).toImage();
    const QImage expected = stripes.scaled(158, 120, Qt::KeepAspectRatio, Qt::FastTransformation);
    QCOMPARE(shown.convertToFormat(QImage::Format_RGB32), expected);
}

void TestVeskToolHDRWidget::onePixelWidePicture_hasNoThumbnailButItsPath()
{
    Panel panel;
    panel.add("/narrow.png", QImage(1, 1000, QImage::Format_RGB32));
    QCOMPARE(panel.list().count(), 1);
    QVERIFY(panel.list().item(0)->data(Qt::DecorationRole).value<QIcon>().isNull());
    QCOMPARE(panel.list().item(0)->text(), QStringLiteral("/narrow.png"));
}

void TestVeskToolHDRWidget::pictures_areListedInPathOrder()
{
    Panel panel;
    panel.add("/b.jpg");
    panel.add("/a.jpg");
    panel.add("/B.jpg");
    QStringList texts;
    for (int i = 0; i < panel.list().count(); ++i) {
        const QListWidgetItem *item = panel.list().item(i);
        texts += item->text();
        QCOMPARE(item->data(Qt::UserRole).toString(), item->text());
        QCOMPARE(item->type(), int(QListWidgetItem::Type));
    }
    QCOMPARE(texts, QStringList({"/B.jpg", "/a.jpg", "/b.jpg"}));
}

void TestVeskToolHDRWidget::longPath_isCutAtItsBeginning()
{
    Panel panel;
    panel.add('/' + QStringLiteral("folder/").repeated(50) + "IMG_1.png");
    panel.show();
    QListWidgetItem *item = panel.list().item(0);
    const auto shown = [&panel] { return panel.list().viewport()->grab().toImage(); };
    const QImage image = shown();

    item->setText('/' + QStringLiteral("folder/").repeated(60) + "IMG_1.png");
    QCOMPARE(shown(), image);
    item->setText('/' + QStringLiteral("folder/").repeated(50) + "IMG_2.png");
    QVERIFY(shown() != image);
}

void TestVeskToolHDRWidget::updateState_replacesTheEntries()
{
    Panel panel;
    panel.add("/a.png");
    panel.add("/b.png");
    panel.tool.removeFile("/a.png");
    panel.widget.updateState();
    QCOMPARE(panel.list().count(), 1);
    QCOMPARE(panel.list().item(0)->text(), QStringLiteral("/b.png"));
    QVERIFY(!panel.control<QPushButton>("okBtn").isEnabled());
}

void TestVeskToolHDRWidget::remove_withoutSelection_doesNothing()
{
    Panel panel;
    panel.add("/a.png");
    panel.show();
    panel.click("removeBtn");
    QCOMPARE(panel.calls(), QStringList());

    // The keyboard's arrival makes the first entry current, but selects nothing.
    panel.list().setFocus();
    QVERIFY(panel.list().currentItem());
    panel.click("removeBtn");
    QCOMPARE(panel.calls(), QStringList());
    QCOMPARE(panel.list().count(), 1);
}

void TestVeskToolHDRWidget::remove_asksForThePathOfTheSelectedEntry()
{
    Panel panel;
    panel.add("/a.png");
    panel.add("/b.png");
    panel.add("/c.png");
    panel.show();
    panel.list().scrollToItem(panel.list().item(1));
    QTest::mouseClick(panel.list().viewport(), Qt::LeftButton, Qt::NoModifier,
                      panel.list().visualItemRect(panel.list().item(1)).center());
    panel.click("removeBtn");
    QCOMPARE(panel.calls(), QStringList{"removeFile(/b.png)"});
    QCOMPARE(panel.tool.fileList(), QList<QString>({"/a.png", "/c.png"}));
}

void TestVeskToolHDRWidget::remove_readsTheStoredPathNotTheText()
{
    Panel panel;
    panel.add("/a.png");
    panel.show();
    panel.list().item(0)->setText("something else");
    panel.list().setCurrentRow(0);
    panel.click("removeBtn");
    QCOMPARE(panel.calls(), QStringList{"removeFile(/a.png)"});
}

void TestVeskToolHDRWidget::show_withDevice_offersOpenCL()
{
    Panel panel;
    panel.widget.show();
    QVERIFY(panel.control<QCheckBox>("cudaCheck").isEnabled());
    QVERIFY(panel.control<QCheckBox>("cudaCheck").isChecked());
    QVERIFY(panel.control<QPushButton>("deviceButton").isEnabled());
    QCOMPARE(panel.control<QPushButton>("deviceButton").text(), QStringLiteral("Graphics One"));
    QCOMPARE(panel.calls(), QStringList{"setCuda(true)"});
}

void TestVeskToolHDRWidget::show_withoutDevice_unchecksAndTellsTheToolToUseTheProcessor()
{
    playDevices("");
    Panel panel;
    panel.widget.show();
    QVERIFY(!panel.control<QCheckBox>("cudaCheck").isEnabled());
    QVERIFY(!panel.control<QCheckBox>("cudaCheck").isChecked());
    QVERIFY(!panel.control<QPushButton>("deviceButton").isEnabled());
    QCOMPARE(panel.control<QPushButton>("deviceButton").text(), QString());
    QCOMPARE(panel.calls(), QStringList{"setCuda(false)"});
    QVERIFY(panel.control<QCheckBox>("alignCheck").isEnabled());
}

void TestVeskToolHDRWidget::show_again_keepsTheUncheckedBox()
{
    Panel panel;
    // As a show without a device leaves it.
    panel.control<QCheckBox>("cudaCheck").setChecked(false);
    panel.control<QCheckBox>("cudaCheck").setEnabled(false);
    panel.widget.show();
    QVERIFY(panel.control<QCheckBox>("cudaCheck").isEnabled());
    QVERIFY(!panel.control<QCheckBox>("cudaCheck").isChecked());
    panel.widget.hide();
    panel.widget.show();
    QCOMPARE(panel.calls(), QStringList({"setCuda(false)", "setCuda(false)"}));
    panel.click("cudaCheck");
    QCOMPARE(panel.calls().last(), QStringLiteral("setCuda(true)"));
}

void TestVeskToolHDRWidget::cudaCheck_clicked_tellsTheTool()
{
    Panel panel;
    panel.show();
    panel.click("cudaCheck");
    panel.click("cudaCheck");
    QCOMPARE(panel.calls(), QStringList({"setCuda(false)", "setCuda(true)"}));
}

void TestVeskToolHDRWidget::cudaCheck_clickedWithoutDevice_tellsTheToolToUseTheProcessor()
{
    playDevices("");
    Panel panel;
    panel.show();
    auto &check = panel.control<QCheckBox>("cudaCheck");
    check.setEnabled(true);
    panel.click("cudaCheck");
    QVERIFY(check.isChecked());
    QCOMPARE(panel.calls(), QStringList{"setCuda(false)"});
}

void TestVeskToolHDRWidget::cudaCheck_changedByProgram_tellsNothing()
{
    Panel panel;
    panel.show();
    panel.control<QCheckBox>("cudaCheck").setChecked(false);
    panel.control<QCheckBox>("alignCheck").setChecked(false);
    QCOMPARE(panel.calls(), QStringList());
}

void TestVeskToolHDRWidget::alignCheck_clicked_tellsTheTool()
{
    Panel panel;
    panel.show();
    panel.click("alignCheck");
    panel.click("alignCheck");
    QCOMPARE(panel.calls(), QStringList({"setAlignment(false)", "setAlignment(true)"}));
}

void TestVeskToolHDRWidget::deviceButton_afterTheDialog_showsTheCurrentName()
{
    Panel panel;
    panel.show();
    QTimer::singleShot(0, qApp, [] {
        QWidget *dialog = QApplication::activeModalWidget();
        dialog->findChild<QComboBox *>("deviceCombo")->setCurrentIndex(1);
        QTest::mouseClick(dialog->findChild<QPushButton *>("okButton"), Qt::LeftButton);
    });
    panel.click("deviceButton");
    QCOMPARE(panel.control<QPushButton>("deviceButton").text(), QStringLiteral("Graphics Two"));
    QCOMPARE(panel.calls(), QStringList());
}

void TestVeskToolHDRWidget::deviceButton_afterTheDialogWithoutChoice_showsTheCurrentName()
{
    Panel panel;
    panel.show();
    panel.control<QPushButton>("deviceButton").setText("stale");
    QTimer::singleShot(0, qApp,
                       [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    panel.click("deviceButton");
    QCOMPARE(panel.control<QPushButton>("deviceButton").text(), QStringLiteral("Graphics One"));
}

void TestVeskToolHDRWidget::browse_opensTheChooserInTheToolsDirectory()
{
    const QTemporaryDir directory;
    ToolRecord::instance().directory = directory.path();
    Panel panel;
    panel.show();
    browse(panel, [&](QFileDialog &chooser) {
        QString filter = QStringLiteral("Image files(");
        for (const QByteArray &format : QImageReader::supportedImageFormats()) {
            filter += " *." + QString::fromLatin1(format);
        }
        QCOMPARE(chooser.nameFilters(), QStringList{filter + ')'});
        QCOMPARE(chooser.windowTitle(), QStringLiteral("Open a image for HDR"));
        QCOMPARE(chooser.fileMode(), QFileDialog::ExistingFiles);
        QCOMPARE(chooser.directory().absolutePath(), directory.path());
        QVERIFY(!chooser.parentWidget());
        chooser.reject();
    });
}

void TestVeskToolHDRWidget::browse_chosenFiles_goToTheTool()
{
    const QTemporaryDir directory;
    for (const char *name : {"a.png", "b.png"}) {
        QVERIFY(QImage(8, 8, QImage::Format_RGB32).save(directory.filePath(name)));
    }
    ToolRecord::instance().directory = directory.path();
    Panel panel;
    panel.show();
    browse(panel, [](QFileDialog &chooser) { choose(chooser, {"b.png", "a.png"}); });
    QCOMPARE(panel.calls(),
             QStringList{QStringLiteral("addFiles(%1,%2)")
                             .arg(directory.filePath("b.png"), directory.filePath("a.png"))});
}

void TestVeskToolHDRWidget::browse_cancelled_callsNothing()
{
    const QTemporaryDir directory;
    ToolRecord::instance().directory = directory.path();
    Panel panel;
    panel.add("/a.png");
    panel.show();
    browse(panel, [](QFileDialog &chooser) { QTest::keyClick(&chooser, Qt::Key_Escape); });
    QCOMPARE(panel.calls(), QStringList());
    QCOMPARE(panel.list().count(), 1);
}

void TestVeskToolHDRWidget::ok_hidesFrameAndPanelThenMerges()
{
    VeskToolHDR tool;
    auto *panel = new VeskToolHDRWidget; // the frame deletes it
    panel->setTool(&tool);
    VeskFilterContainer frame(panel, VeskTitleWidget::TitleButtonFlag(0), false, nullptr, true);
    tool.addFile("/a.png");
    tool.addFile("/b.png");
    panel->updateState();
    panel->setVisible(true);
    frame.show(true);
    QCOMPARE(panel->parentWidget(), &frame);
    QVERIFY(panel->isVisible());

    bool wasHiddenWhileApplying = false;
    ToolRecord::instance().whileApplying = [&] {
        wasHiddenWhileApplying = frame.isHidden() && panel->isHidden();
    };
    ToolRecord::instance().calls.clear();
    QTest::mouseClick(panel->findChild<QPushButton *>("okBtn"), Qt::LeftButton);
    QCOMPARE(ToolRecord::instance().calls, QStringList{"apply()"});
    QVERIFY(wasHiddenWhileApplying);

    panel->setVisible(true);
    frame.show(true);
    QVERIFY(panel->isVisible());
    QVERIFY(frame.isVisible());
}

void TestVeskToolHDRWidget::ok_withoutFrame_hidesThePanel()
{
    Panel panel;
    panel.add("/a.png");
    panel.add("/b.png");
    panel.show();
    panel.click("okBtn");
    QCOMPARE(panel.calls(), QStringList{"apply()"});
    QVERIFY(panel.widget.isHidden());
}

void TestVeskToolHDRWidget::cancel_emptiesTheSetHidesAndLeavesTheOldEntries()
{
    VeskToolHDR tool;
    auto *panel = new VeskToolHDRWidget; // the frame deletes it
    panel->setTool(&tool);
    VeskFilterContainer frame(panel, VeskTitleWidget::TitleButtonFlag(0), false, nullptr, true);
    tool.addFile("/a.png");
    panel->updateState();
    panel->setVisible(true);
    frame.show(true);

    bool wasShownWhileClearing = false;
    ToolRecord::instance().whileClearing = [&] {
        wasShownWhileClearing = frame.isVisible() && panel->isVisible();
    };
    ToolRecord::instance().calls.clear();
    QTest::mouseClick(panel->findChild<QPushButton *>("cancelBtn"), Qt::LeftButton);
    QCOMPARE(ToolRecord::instance().calls, QStringList{"clear()"});
    QVERIFY(wasShownWhileClearing);
    QVERIFY(frame.isHidden());
    QVERIFY(panel->isHidden());
    QCOMPARE(tool.fileList().size(), 0);
    QCOMPARE(panel->findChild<QListWidget *>("fileList")->count(), 1);
    panel->updateState();
    QCOMPARE(panel->findChild<QListWidget *>("fileList")->count(), 0);
}

void TestVeskToolHDRWidget::toolIsGone_controlsDoNothing_data()
{
    QTest::addColumn<QString>("control");
    for (const char *control :
         {"cancelBtn", "okBtn", "browseBtn", "removeBtn", "alignCheck", "cudaCheck"})
        QTest::newRow(control) << control;
}

void TestVeskToolHDRWidget::toolIsGone_controlsDoNothing()
{
    QFETCH(QString, control);
    auto tool = std::make_unique<VeskToolHDR>();
    tool->addFile("/a.png");
    tool->addFile("/b.png");
    VeskToolHDRWidget widget;
    widget.setTool(tool.get());
    widget.show();
    widget.findChild<QListWidget *>("fileList")->setCurrentRow(0);
    tool.reset();
    ToolRecord::instance().calls.clear();
    // Nothing may open: a chooser would keep the click waiting.
    QTimer::singleShot(0, &widget, [] {
        if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
            dialog->reject();
    });
    widget.findChild<QAbstractButton *>(control)->click();
    widget.hide();
    widget.show();
    widget.updateState();
    QCOMPARE(ToolRecord::instance().calls, QStringList());
    QCOMPARE(widget.findChild<QListWidget *>("fileList")->count(), 0);
    QVERIFY(!widget.findChild<QPushButton *>("okBtn")->isEnabled());
}

/// An editor may react to the frame that hides by taking down everything.
void TestVeskToolHDRWidget::toolGoesWhileTheFrameIsHidden_okDoesNothingMore()
{
    class TakeDown : public QObject
    {
    public:
        std::unique_ptr<VeskToolHDR> tool = std::make_unique<VeskToolHDR>();
        QPointer<VeskToolHDRWidget> panel;
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::Hide) {
                tool.reset();
                panel->deleteLater();
            }
            return false;
        }
    } editor;
    editor.tool->addFile("/a.png");
    editor.tool->addFile("/b.png");
    QWidget frame;
    editor.panel = new VeskToolHDRWidget(&frame);
    editor.panel->setTool(editor.tool.get());
    frame.show();
    frame.installEventFilter(&editor);
    ToolRecord::instance().calls.clear();
    editor.panel->findChild<QPushButton *>("okBtn")->click();
    QCOMPARE(ToolRecord::instance().calls, QStringList());
    QVERIFY(!editor.tool);
}

void TestVeskToolHDRWidget::toolGoesWhileTheChooserIsOpen_addsNothing()
{
    const QTemporaryDir directory;
    QVERIFY(QImage(8, 8, QImage::Format_RGB32).save(directory.filePath("a.png")));
    ToolRecord::instance().directory = directory.path();
    auto tool = std::make_unique<VeskToolHDR>();
    VeskToolHDRWidget widget;
    widget.setTool(tool.get());
    widget.show();
    ToolRecord::instance().calls.clear();
    QTimer::singleShot(0, qApp, [&tool] {
        tool.reset();
        choose(*qobject_cast<QFileDialog *>(QApplication::activeModalWidget()), {"a.png"});
    });
    widget.findChild<QPushButton *>("browseBtn")->click();
    QVERIFY(!tool);
    QCOMPARE(ToolRecord::instance().calls, QStringList());
}

void TestVeskToolHDRWidget::panelGoesWhileTheDeviceDialogIsOpen_doesNothingMore()
{
    VeskToolHDR tool;
    QPointer<VeskToolHDRWidget> widget = new VeskToolHDRWidget;
    widget->setTool(&tool);
    widget->show();
    QTimer::singleShot(0, qApp, [&widget] {
        delete widget;
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    });
    widget->findChild<QPushButton *>("deviceButton")->click();
    QVERIFY(!widget);
}

void TestVeskToolHDRWidget::panelInItsFrame_inEveryLanguage_clipsNoText()
{
    for (const char *language :
         {"en", "zh_TW", "fr_FR", "ko_KR", "ja_JP", "es_ES", "zh_CN", "de_DE"}) {
        QTranslator translator;
        if (translator.load(QStringLiteral(":/veskhdr_%1.qm").arg(language))) {
            QCoreApplication::installTranslator(&translator);
        }
        VeskToolHDR tool;
        auto *panel = new VeskToolHDRWidget; // the frame deletes it
        panel->setTool(&tool);
        VeskFilterContainer frame(panel, VeskTitleWidget::TitleButtonFlag(0), false, nullptr, true);
        frame.setVisible(false);
        panel->setVisible(true);
        frame.show(true);
        QVERIFY(QTest::qWaitForWindowExposed(&frame));
        frame.resize(1, 1); // as small as it goes
        QCoreApplication::sendPostedEvents();
        const QStringList clipped = clippedTexts(*panel);
        QVERIFY2(clipped.isEmpty(), qPrintable(language + (": " + clipped.join('\n'))));
    }
}

void TestVeskToolHDRWidget::panelInItsFrame_atLargeFonts_growsAndClipsNoText_data()
{
    QTest::addColumn<bool>("isChangedLater");
    QTest::newRow("set beforehand") << false;
    QTest::newRow("set while it is shown") << true;
}

void TestVeskToolHDRWidget::panelInItsFrame_atLargeFonts_growsAndClipsNoText()
{
    QFETCH(bool, isChangedLater);
    QFont large = QApplication::font();
    large.setPointSize(28);
    if (!isChangedLater)
        QApplication::setFont(large);
    VeskToolHDR tool;
    auto *panel = new VeskToolHDRWidget; // the frame deletes it
    panel->setTool(&tool);
    VeskFilterContainer frame(panel, VeskTitleWidget::TitleButtonFlag(0), false, nullptr, true);
    panel->setVisible(true);
    frame.show(true);
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    if (isChangedLater)
        QApplication::setFont(large);
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    QVERIFY(frame.width() > 529);
    QVERIFY(frame.titleBar()->height() >= frame.titleBar()->fontMetrics().height());
    const QStringList clipped = clippedTexts(frame);
    QVERIFY2(clipped.isEmpty(), qPrintable(clipped.join('\n')));
}

/// At the size in which the panel opens: a third line would be a single word.
void TestVeskToolHDRWidget::description_inEveryLanguage_takesTwoLines()
{
    for (const char *language :
         {"en", "zh_TW", "fr_FR", "ko_KR", "ja_JP", "es_ES", "zh_CN", "de_DE"}) {
        QTranslator translator;
        if (translator.load(QStringLiteral(":/veskhdr_%1.qm").arg(language)))
            QCoreApplication::installTranslator(&translator);
        Panel panel;
        panel.show();
        const auto &label = panel.control<QLabel>("label");
        const int lines = label.heightForWidth(label.width()) / label.fontMetrics().lineSpacing();
        QVERIFY2(lines == 2, language);
    }
}

int main(int argc, char **argv)
{
    // The chooser that tests can drive on every platform.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    return runEachTestInItsOwnProcess<TestVeskToolHDRWidget>(argc, argv);
}
#include "tst_VeskToolHDRWidget.moc"
