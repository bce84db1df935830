#include "VeskOpenCLDeviceSelection.h"

#include "VeskDeviceInfo.h"
#include "VeskDialog.h"
#include "clipped_texts.h"
#include "process_per_test.h"

#include <QScreen>
#include <QScrollBar>
#include <QSettings>
#include <QSizeGrip>
#include <QStandardPaths>
#include <QTimer>
#include <QTranslator>
#include <QtTest>

#if defined(__ELF__)
#include <dlfcn.h>

namespace {

int clearCount = 0;

} // namespace

/// Counts the fills of the table, each of which begins with clearing it. It stands before Qt's own,
/// and on this binary interface a member function is called like a free one.
void QTableWidget::clear()
{
    ++clearCount;
    static void *const hidden = dlsym(RTLD_NEXT, "_ZN12QTableWidget5clearEv");
    reinterpret_cast<void (*)(QTableWidget *)>(hidden)(this);
}
#endif

namespace {

const char *const kLanguages[] = {"zh_TW", "fr_FR", "ko_KR", "ja_JP", "es_ES", "zh_CN", "de_DE"};

/// The devices of this process's platform. facts: see the scripted platform. Must be called
/// before the registry is first used.
void playDevices(const QByteArray &names, const QByteArray &facts = QByteArray())
{
    qputenv("VESK_SCRIPT_PLATFORM", "Test Platform");
    qputenv("VESK_SCRIPT_DEVICES", names);
    qputenv("VESK_SCRIPT_FACTS", facts);
}

QString settingsFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
           QStringLiteral("/config.ini");
}

QString storedName()
{
    return QSettings(settingsFile(), QSettings::IniFormat).value("OpenCLDevice").toString();
}

QComboBox &comboOf(const QWidget &selection)
{
    return *selection.findChild<QComboBox *>("deviceCombo");
}

QTableWidget &tableOf(const QWidget &selection)
{
    return *selection.findChild<QTableWidget *>("deviceInfoTable");
}

QStringList valuesOf(const QWidget &selection)
{
    const QTableWidget &table = tableOf(selection);
    QStringList values;
    for (int row = 0; row < table.rowCount(); ++row) {
        values += table.item(row, 1)->text();
    }
    return values;
}

/// Runs the modal dialog; drive(frame, selection) is called once it is open, and may leave it open.
template <class Drive>
void runDialog(Drive drive)
{
    bool wasDriven = false;
    QTimer::singleShot(0, qApp, [&] {
        const QPointer frame = qobject_cast<VeskDialog *>(QApplication::activeModalWidget());
        if (!frame) {
            return;
        }
        wasDriven = true;
        drive(*frame, *frame->findChild<VeskOpenCLDeviceSelection *>());
        if (frame)
            frame->reject();
    });
    VeskOpenCLDeviceSelection::setDevice();
    QVERIFY(wasDriven);
}

} // namespace

/// The device dialog, with devices that a scripted OpenCL platform plays.
class TestVeskOpenCLDeviceSelection : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void metaObject_listsSignalAndSlotsInOrder();
    void form_hasItsObjectsLayoutsAndTexts();
    void platform_isShownCaptionThenValue();
    void table_showsThirteenFacts();
    void captions_areNotCutInCompactRows();
    void memorySizes_areRoundedToWholeUnits();
    void type_ofOneBit_isNamed_data();
    void type_ofOneBit_isNamed();
    void type_ofSeveralBits_isEmpty();
    void cacheType_isNamed_outsideTheThreeIsEmpty();
    void twoDevicesOfOneName_preselectsTheLater_showsTheFirst();
    void currentNameOfNoDevice_selectsTheFirst();
    void currentDevice_isPreselected();
    void initialSelection_fillsTheTableOnce();
    void unknownName_keepsTheRowsAndEmptiesTheirCells_data();
    void unknownName_keepsTheRowsAndEmptiesTheirCells();
    void changedSelection_refillsAllRows_sameSelectionDoesNot();
    void noExtensions_givesAnEmptyCell();
    void oneExtension_hasNoComma();
    void severalExtensions_areJoinedWithCommas();
    void manyExtensions_canBeReadInFull();
    void imageSupport_absent_isSaid();
    void noPlatform_showsEmptyListAndTwoHeaders_okStoresAnEmptyName();
    void ok_storesTheChoiceAndCloses();
    void closingTheFrame_storesNothing();
    void frame_isAResizableDialogWithACloseButtonOnly();
    void largeFont_growsTheFrame();
    void everyLanguage_translatesAndClipsNothing();
};

void TestVeskOpenCLDeviceSelection::initTestCase()
{
    if (!qEnvironmentVariableIsSet("OPENCL_LAYERS")) {
        QSKIP("No OpenCL layer that plays the devices (OPENCL_LAYERS is not set).");
    }
}

void TestVeskOpenCLDeviceSelection::init()
{
    QFile::remove(settingsFile());
}

void TestVeskOpenCLDeviceSelection::metaObject_listsSignalAndSlotsInOrder()
{
    const QMetaObject &meta = VeskOpenCLDeviceSelection::staticMetaObject;
    QCOMPARE(meta.className(), "VeskOpenCLDeviceSelection");
    QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        methods += QString::fromLatin1(meta.method(i).methodSignature());
    }
    QCOMPARE(methods, QStringList({"closed()", "updateDeviceTable(QString)", "ok()"}));
    QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
    QCOMPARE(meta.method(meta.methodOffset() + 1).access(), QMetaMethod::Private);
    QCOMPARE(meta.method(meta.methodOffset() + 2).access(), QMetaMethod::Private);
}

void TestVeskOpenCLDeviceSelection::form_hasItsObjectsLayoutsAndTexts()
{
    playDevices("Graphics One");
    const VeskOpenCLDeviceSelection selection(nullptr);
    QCOMPARE(selection.objectName(), QStringLiteral("VeskOpenCLDeviceSelection"));
    QCOMPARE(selection.size(), QSize(500, 600));
    QCOMPARE(selection.minimumSize(), QSize(500, 600));
    QCOMPARE(selection.windowTitle(), QStringLiteral("OpenCL Device Selection"));

    const auto *column = qobject_cast<QVBoxLayout *>(selection.layout());
    QVERIFY(column);
    QCOMPARE(column->objectName(), QStringLiteral("verticalLayout_2"));
    const auto *platform = qobject_cast<QGroupBox *>(column->itemAt(0)->widget());
    const auto *device = qobject_cast<QGroupBox *>(column->itemAt(1)->widget());
    const auto *row = qobject_cast<QHBoxLayout *>(column->itemAt(2)->layout());
    QCOMPARE(column->count(), 3);
    QVERIFY(platform && device && row);
    QCOMPARE(platform->objectName(), QStringLiteral("groupBox"));
    QCOMPARE(platform->title(), QStringLiteral("OpenCL Platform"));
    QCOMPARE(device->objectName(), QStringLiteral("groupBox_2"));
    QCOMPARE(device->title(), QStringLiteral("OpenCL Device"));

    const auto *grid = qobject_cast<QGridLayout *>(platform->layout());
    QVERIFY(grid);
    QCOMPARE(grid->objectName(), QStringLiteral("gridLayout"));
    QCOMPARE(grid->itemAtPosition(0, 0)->widget()->objectName(),
             QStringLiteral("openCLPlatformLabel"));
    QCOMPARE(device->layout()->objectName(), QStringLiteral("verticalLayout"));
    QCOMPARE(device->layout()->itemAt(0)->widget(), &comboOf(selection));
    QCOMPARE(device->layout()->itemAt(1)->widget(), &tableOf(selection));
    const QList<const QLayout *> layouts = {column, grid, device->layout()};
    for (const QLayout *layout : layouts) {
        QCOMPARE(layout->spacing(), 6);
        QCOMPARE(layout->contentsMargins(), QMargins(11, 11, 11, 11));
    }

    QCOMPARE(row->objectName(), QStringLiteral("horizontalLayout"));
    QCOMPARE(row->spacing(), 6);
    QCOMPARE(row->count(), 2);
    const QSpacerItem *spacer = row->itemAt(0)->spacerItem();
    QVERIFY(spacer);
    QCOMPARE(spacer->sizeHint(), QSize(40, 20));
    QCOMPARE(spacer->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(spacer->sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
    const auto *ok = qobject_cast<QPushButton *>(row->itemAt(1)->widget());
    QVERIFY(ok);
    QCOMPARE(ok->objectName(), QStringLiteral("okButton"));
    QCOMPARE(ok->text(), QStringLiteral("Ok"));
    QCOMPARE(ok->minimumSize(), QSize(80, 0));

    const QTableWidget &table = tableOf(selection);
    QCOMPARE(table.columnCount(), 2);
    QCOMPARE(table.horizontalHeaderItem(0)->text(), QStringLiteral("Name"));
    QCOMPARE(table.horizontalHeaderItem(1)->text(), QStringLiteral("Value"));
    QCOMPARE(table.editTriggers(), QAbstractItemView::NoEditTriggers);
    QVERIFY(table.horizontalHeader()->cascadingSectionResizes());
    QCOMPARE(table.horizontalHeader()->defaultSectionSize(), 150);
    QVERIFY(table.horizontalHeader()->stretchLastSection());
    QVERIFY(table.verticalHeader()->isHidden());
}

void TestVeskOpenCLDeviceSelection::platform_isShownCaptionThenValue()
{
    playDevices("Graphics One");
    const VeskOpenCLDeviceSelection selection(nullptr);
    QCOMPARE(selection.findChild<QLabel *>("openCLPlatformLabel")->text(),
             QStringLiteral("OpenCL Platform:Test Platform\nOpenCL Version:OpenCL 1.2 scripted"));
}

void TestVeskOpenCLDeviceSelection::table_showsThirteenFacts()
{
    qputenv("VESK_SCRIPT_EXTENSIONS", "cl_khr_fp64 cl_khr_byte_addressable_store");
    playDevices("Graphics One",
                "0:0x1002=24|0:0x100C=1700|0:0x1023=65536|0:0x101F=8589934592|0:0x101E=2097152"
                "|0:0x101D=128|0:0x101C=2|0:0x1000=4");
    const VeskOpenCLDeviceSelection selection(nullptr);
    const QTableWidget &table = tableOf(selection);
    QStringList captions;
    for (int row = 0; row < table.rowCount(); ++row) {
        captions += table.item(row, 0)->text();
    }
    QCOMPARE(
        captions,
        QStringList({"OpenCL Device Name", "OpenCL Device Vendor", "OpenCL Device Driver Version",
                     "OpenCL Device Global Cache Type", "OpenCL Device Cores",
                     "OpenCL Device Frequency", "OpenCL Device Local Memory Size",
                     "OpenCL Device Global Memory Size", "OpenCL Device Global Cache Size",
                     "OpenCL Device Global Cache Line", "OpenCL Device Image Support",
                     "OpenCL Device Type", "OpenCL Device Extensions"}));
    const QString vendor = QString::number(CL_DEVICE_VENDOR);
    const QString driver = QString::number(CL_DRIVER_VERSION);
    QCOMPARE(valuesOf(selection),
             QStringList({"Graphics One", vendor, driver, "Read and Write", "24", "1700 MHz",
                          "64 KB", "8192 MB", "2048 KB", "128", "Support", "GPU",
                          "cl_khr_fp64,cl_khr_byte_addressable_store"}));
}

void TestVeskOpenCLDeviceSelection::captions_areNotCutInCompactRows()
{
    playDevices("Graphics One");
    VeskOpenCLDeviceSelection selection(nullptr);
    selection.show();
    const QTableWidget &table = tableOf(selection);
    QVERIFY(table.columnWidth(0) >= 150);
    for (int row = 0; row < table.rowCount(); ++row) {
        const QString caption = table.item(row, 0)->text();
        QVERIFY2(table.columnWidth(0) > table.fontMetrics().horizontalAdvance(caption),
                 qPrintable(caption));
        QVERIFY(table.rowHeight(row) >= table.fontMetrics().height());
        QVERIFY(table.rowHeight(row) < 2 * table.fontMetrics().height());
    }
}

void TestVeskOpenCLDeviceSelection::memorySizes_areRoundedToWholeUnits()
{
    playDevices("One|Two", "0:0x1023=32768|0:0x101F=1073741824|0:0x101E=2048"
                           "|1:0x1023=1000|1:0x101F=1888000000|1:0x101E=1537");
    VeskOpenCLDeviceSelection selection(nullptr);
    QCOMPARE(valuesOf(selection).at(6), QStringLiteral("32 KB"));
    QCOMPARE(valuesOf(selection).at(7), QStringLiteral("1024 MB"));
    QCOMPARE(valuesOf(selection).at(8), QStringLiteral("2 KB"));
    comboOf(selection).setCurrentIndex(1);
    QCOMPARE(valuesOf(selection).at(6), QStringLiteral("1 KB"));
    QCOMPARE(valuesOf(selection).at(7), QStringLiteral("1801 MB"));
    QCOMPARE(valuesOf(selection).at(8), QStringLiteral("2 KB"));
}

void TestVeskOpenCLDeviceSelection::type_ofOneBit_isNamed_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    QTest::newRow("1") << 0 << "Default";
    QTest::newRow("2") << 1 << "CPU";
    QTest::newRow("4") << 2 << "GPU";
    QTest::newRow("8") << 3 << "Accelerator";
    QTest::newRow("16") << 4 << "";
    QTest::newRow("0") << 5 << "";
}

void TestVeskOpenCLDeviceSelection::type_ofOneBit_isNamed()
{
    QFETCH(int, index);
    QFETCH(QString, text);
    playDevices("a|b|c|d|e|f",
                "0:0x1000=1|1:0x1000=2|2:0x1000=4|3:0x1000=8|4:0x1000=16|5:0x1000=0");
    VeskOpenCLDeviceSelection selection(nullptr);
    comboOf(selection).setCurrentIndex(index);
    QCOMPARE(valuesOf(selection).at(11), text);
}

void TestVeskOpenCLDeviceSelection::type_ofSeveralBits_isEmpty()
{
    playDevices("One", "0:0x1000=3");
    const VeskOpenCLDeviceSelection selection(nullptr);
    QCOMPARE(valuesOf(selection).size(), 13);
    QCOMPARE(valuesOf(selection).at(11), QString());
}

void TestVeskOpenCLDeviceSelection::cacheType_isNamed_outsideTheThreeIsEmpty()
{
    playDevices("a|b|c|d", "0:0x101C=0|1:0x101C=1|2:0x101C=2|3:0x101C=3");
    VeskOpenCLDeviceSelection selection(nullptr);
    QStringList shown;
    for (int i = 0; i < 4; ++i) {
        comboOf(selection).setCurrentIndex(i);
        shown += valuesOf(selection).at(3);
    }
    QCOMPARE(shown, QStringList({"None", "Read Only", "Read and Write", ""}));
}

void TestVeskOpenCLDeviceSelection::twoDevicesOfOneName_preselectsTheLater_showsTheFirst()
{
    playDevices("Twin|Other|Twin", "0:0x1002=11|2:0x1002=22");
    VeskDeviceInfo::getInstance()->setCurrentOpenCLDeviceName("Twin");
    const VeskOpenCLDeviceSelection selection(nullptr);
    QCOMPARE(comboOf(selection).currentIndex(), 2);
    QCOMPARE(valuesOf(selection).at(4), QStringLiteral("11"));
}

void TestVeskOpenCLDeviceSelection::currentNameOfNoDevice_selectsTheFirst()
{
    playDevices("One|Two");
    VeskDeviceInfo::getInstance()->setCurrentOpenCLDeviceName("Gone");
    const VeskOpenCLDeviceSelection selection(nullptr);
    QCOMPARE(comboOf(selection).currentIndex(), 0);
    QCOMPARE(valuesOf(selection).at(0), QStringLiteral("One"));
}

void TestVeskOpenCLDeviceSelection::currentDevice_isPreselected()
{
    playDevices("One|Two|Three");
    VeskDeviceInfo::getInstance()->setCurrentOpenCLDeviceName("Two");
    const VeskOpenCLDeviceSelection selection(nullptr);
    QCOMPARE(comboOf(selection).count(), 3);
    QCOMPARE(comboOf(selection).currentText(), QStringLiteral("Two"));
    QCOMPARE(valuesOf(selection).at(0), QStringLiteral("Two"));
}

void TestVeskOpenCLDeviceSelection::initialSelection_fillsTheTableOnce()
{
#if defined(__ELF__)
    playDevices("One|Two|Three");
    VeskDeviceInfo::getInstance()->setCurrentOpenCLDeviceName("Three");
    const VeskOpenCLDeviceSelection selection(nullptr);
    QCOMPARE(clearCount, 1);
#else
    QSKIP("calls into Qt cannot be counted on this system");
#endif
}

void TestVeskOpenCLDeviceSelection::unknownName_keepsTheRowsAndEmptiesTheirCells_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("unknown") << "Gone";
    QTest::newRow("in another case") << "one";
    QTest::newRow("empty") << "";
}

void TestVeskOpenCLDeviceSelection::unknownName_keepsTheRowsAndEmptiesTheirCells()
{
    QFETCH(QString, name);
    playDevices("One|Two");
    VeskOpenCLDeviceSelection selection(nullptr);
    QVERIFY(QMetaObject::invokeMethod(&selection, "updateDeviceTable", Q_ARG(QString, name)));
    const QTableWidget &table = tableOf(selection);
    QCOMPARE(table.rowCount(), 13);
    for (int row = 0; row < 13; ++row)
        QVERIFY(!table.item(row, 0) && !table.item(row, 1));
    QCOMPARE(table.horizontalHeaderItem(0)->text(), QStringLiteral("Name"));
    QCOMPARE(table.horizontalHeaderItem(1)->text(), QStringLiteral("Value"));
}

void TestVeskOpenCLDeviceSelection::changedSelection_refillsAllRows_sameSelectionDoesNot()
{
    playDevices("One|Two", "0:0x1002=1|1:0x1002=2");
    VeskOpenCLDeviceSelection selection(nullptr);
    QTableWidget &table = tableOf(selection);
    table.item(5, 1)->setText("edited");

    comboOf(selection).setCurrentIndex(0);
    QCOMPARE(table.item(5, 1)->text(), QStringLiteral("edited"));

    comboOf(selection).setCurrentIndex(1);
    QCOMPARE(table.rowCount(), 13);
    QCOMPARE(valuesOf(selection).at(0), QStringLiteral("Two"));
    QCOMPARE(valuesOf(selection).at(4), QStringLiteral("2"));
    QVERIFY(!valuesOf(selection).contains("edited"));
    QCOMPARE(table.horizontalHeaderItem(1)->text(), QStringLiteral("Value"));
}

void TestVeskOpenCLDeviceSelection::noExtensions_givesAnEmptyCell()
{
    playDevices("One");
    QCOMPARE(valuesOf(VeskOpenCLDeviceSelection(nullptr)).at(12), QString());
}

void TestVeskOpenCLDeviceSelection::oneExtension_hasNoComma()
{
    qputenv("VESK_SCRIPT_EXTENSIONS", "cl_khr_fp64");
    playDevices("One");
    QCOMPARE(valuesOf(VeskOpenCLDeviceSelection(nullptr)).at(12), QStringLiteral("cl_khr_fp64"));
}

void TestVeskOpenCLDeviceSelection::severalExtensions_areJoinedWithCommas()
{
    qputenv("VESK_SCRIPT_EXTENSIONS", "cl_a  cl_b cl_c ");
    playDevices("One");
    QCOMPARE(valuesOf(VeskOpenCLDeviceSelection(nullptr)).at(12), QStringLiteral("cl_a,cl_b,cl_c"));
}

/// All of the cell's lines can be scrolled into view, and its tool tip has them once more.
void TestVeskOpenCLDeviceSelection::manyExtensions_canBeReadInFull()
{
    QByteArray text;
    for (int i = 0; i < 60; ++i)
        text += "cl_khr_extension_" + QByteArray::number(i) + ' ';
    qputenv("VESK_SCRIPT_EXTENSIONS", text);
    playDevices("One");
    VeskOpenCLDeviceSelection selection(nullptr);
    selection.show();
    QVERIFY(QTest::qWaitForWindowExposed(&selection));
    QTableWidget &table = tableOf(selection);
    const auto neededHeight = [&table] {
        const int textWidth = table.fontMetrics().horizontalAdvance(table.item(12, 1)->text());
        return textWidth / table.columnWidth(1) * table.fontMetrics().height();
    };
    QTRY_VERIFY(table.rowHeight(12) >= neededHeight());
    QVERIFY(table.rowHeight(12) > table.viewport()->height());
    QCOMPARE(table.verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(table.horizontalScrollBar()->maximum(), 0);
    table.verticalScrollBar()->setValue(table.verticalScrollBar()->maximum());
    QVERIFY(table.visualItemRect(table.item(12, 1)).bottom() <= table.viewport()->height());

    const int before = table.rowHeight(12);
    selection.resize(1200, 600);
    QTRY_VERIFY(table.rowHeight(12) < before);
    QVERIFY(table.rowHeight(12) >= static_cast<QAbstractItemView &>(table).sizeHintForRow(12));

    const QString tip = table.item(12, 1)->toolTip();
    QVERIFY(tip.contains(QStringLiteral("cl_khr_extension_58, cl_khr_extension_59")));
    QVERIFY(Qt::mightBeRichText(tip)); // only that breaks lines
    QCOMPARE(table.item(0, 1)->toolTip(), QString());
}

void TestVeskOpenCLDeviceSelection::imageSupport_absent_isSaid()
{
    qputenv("VESK_SCRIPT_IMAGE_SUPPORT", "0");
    playDevices("One");
    QCOMPARE(valuesOf(VeskOpenCLDeviceSelection(nullptr)).at(10), QStringLiteral("No Support"));
}

void TestVeskOpenCLDeviceSelection::noPlatform_showsEmptyListAndTwoHeaders_okStoresAnEmptyName()
{
    qunsetenv("VESK_SCRIPT_PLATFORM");
    VeskOpenCLDeviceSelection selection(nullptr);
    QCOMPARE(comboOf(selection).count(), 0);
    QCOMPARE(tableOf(selection).rowCount(), 0);
    QCOMPARE(tableOf(selection).horizontalHeaderItem(0)->text(), QStringLiteral("Name"));
    QCOMPARE(tableOf(selection).horizontalHeaderItem(1)->text(), QStringLiteral("Value"));
    QCOMPARE(selection.findChild<QLabel *>("openCLPlatformLabel")->text(),
             QStringLiteral("OpenCL Platform:\nOpenCL Version:"));

    QSettings(settingsFile(), QSettings::IniFormat).setValue("OpenCLDevice", "Before");
    QTest::mouseClick(selection.findChild<QPushButton *>("okButton"), Qt::LeftButton);
    QVERIFY(QSettings(settingsFile(), QSettings::IniFormat).contains("OpenCLDevice"));
    QCOMPARE(storedName(), QString());
}

void TestVeskOpenCLDeviceSelection::ok_storesTheChoiceAndCloses()
{
    playDevices("One|Two");
    QPointer<QWidget> content;
    QString nameWhenClosed;
    runDialog([&](VeskDialog &, VeskOpenCLDeviceSelection &selection) {
        content = &selection;
        comboOf(selection).setCurrentIndex(1);
        QCOMPARE(storedName(), QString());
        connect(&selection, &VeskOpenCLDeviceSelection::closed, &selection, [&nameWhenClosed] {
            nameWhenClosed = VeskDeviceInfo::getInstance()->getCurrentOpenCLDeviceName();
        });
        QTest::mouseClick(selection.findChild<QPushButton *>("okButton"), Qt::LeftButton);
    });
    QCOMPARE(nameWhenClosed, QStringLiteral("Two"));
    QCOMPARE(VeskDeviceInfo::getInstance()->getCurrentOpenCLDeviceName(), QStringLiteral("Two"));
    QCOMPARE(storedName(), QStringLiteral("Two"));
    QVERIFY(content.isNull());
}

void TestVeskOpenCLDeviceSelection::closingTheFrame_storesNothing()
{
    playDevices("One|Two");
    QPointer<QWidget> content;
    runDialog([&](VeskDialog &frame, VeskOpenCLDeviceSelection &selection) {
        content = &selection;
        comboOf(selection).setCurrentIndex(1);
        QTest::keyClick(&frame, Qt::Key_Escape);
    });
    QCOMPARE(VeskDeviceInfo::getInstance()->getCurrentOpenCLDeviceName(), QStringLiteral("One"));
    QCOMPARE(storedName(), QString());
    QVERIFY(content.isNull());
}

void TestVeskOpenCLDeviceSelection::frame_isAResizableDialogWithACloseButtonOnly()
{
    playDevices("One");
    runDialog([&](VeskDialog &frame, VeskOpenCLDeviceSelection &) {
        QCOMPARE(frame.titleBar()->buttons(), VeskTitleWidget::CloseButtonOnly);
        QVERIFY(frame.findChild<QSizeGrip *>());
        QVERIFY(frame.maximumWidth() > frame.minimumWidth());
        QCOMPARE(frame.windowType(), Qt::Dialog);
        QVERIFY(!frame.parentWidget());
    });
}

void TestVeskOpenCLDeviceSelection::largeFont_growsTheFrame()
{
    playDevices("Graphics One");
    QFont large = QApplication::font();
    large.setPixelSize(20);
    QApplication::setFont(large);
    runDialog([&](VeskDialog &frame, VeskOpenCLDeviceSelection &selection) {
        const QSize limit = frame.screen()->availableSize();
        const QTableWidget &table = tableOf(selection);
        const int valueWidth = table.viewport()->width() - table.columnWidth(0);
        QVERIFY(frame.width() > 502 && frame.width() <= limit.width());
        QVERIFY(valueWidth >= table.fontMetrics().horizontalAdvance("Graphics One"));
        const QStringList clipped = clippedTexts(frame);
        QVERIFY2(clipped.isEmpty(), qPrintable(clipped.join('\n')));
    });
}

void TestVeskOpenCLDeviceSelection::everyLanguage_translatesAndClipsNothing()
{
    playDevices("Graphics One");
    QStringList titles;
    for (const char *language : kLanguages) {
        QTranslator translator;
        QVERIFY(translator.load(QStringLiteral(":/veskhdr_%1.qm").arg(language)));
        QVERIFY(QCoreApplication::installTranslator(&translator));
        VeskOpenCLDeviceSelection selection(nullptr);
        selection.show();
        QVERIFY(QTest::qWaitForWindowExposed(&selection));
        QVERIFY(selection.windowTitle() != QStringLiteral("OpenCL Device Selection"));
        QVERIFY(tableOf(selection).item(12, 0)->text() !=
                QStringLiteral("OpenCL Device Extensions"));
        const QStringList clipped = clippedTexts(selection);
        QVERIFY2(clipped.isEmpty(), qPrintable(language + clipped.join('\n')));
    }
}

int main(int argc, char **argv)
{
    return runEachTestInItsOwnProcess<TestVeskOpenCLDeviceSelection>(argc, argv);
}
#include "tst_VeskOpenCLDeviceSelection.moc"
