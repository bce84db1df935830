#include <QLibrary>
#include <QtTest>

/// The library's host may link its classes and functions by name: none of them may be inline only
/// or hidden. The names are those of the Itanium C++ ABI.
class TestExportedNames : public QObject
{
    Q_OBJECT

private slots:
    void name_isExported_data();
    void name_isExported();
};

void TestExportedNames::name_isExported_data()
{
#if !defined(__GNUC__) || !defined(__LP64__)
    QSKIP("the names are those of another ABI");
#endif
    QTest::addColumn<QByteArray>("symbol");
    const auto add = [](const char *name, const char *symbol) {
        QTest::newRow(name) << QByteArray(symbol);
    };
    add("mergeExposures", "_Z14mergeExposuresRK5QListIP6QImageE");
    add("shiftQImage", "_Z11shiftQImagePK6QImageii");
    add("setbitmap", "_Z9setbitmap5QSize");
    add("sumimage", "_Z8sumimagePK6QImage");
    add("setThreshold", "_Z12setThresholdPK6QImageiiPS_S2_");
    add("getLum", "_Z6getLumPK6QImagePS_RSt6vectorIdSaIdEE");
    add("XORimages", "_Z9XORimagesPK6QImageS1_S1_S1_PS_");
    add("shiftimage", "_Z10shiftimagePK6QImageiiPS_");
    add("getExpShift", "_Z11getExpShiftPK6QImageiS1_iiiRiS2_");
    add("mtbalign", "_Z8mtbalignbPK6QImageS1_diiRiS2_");
    add("mtb_alignment", "_Z13mtb_alignmentbR5QListIP6QImageE");
    add("simpleOCLHDR", "_Z12simpleOCLHDRPhPS_iii");
    add("LoadProgSource", "_Z14LoadProgSourcePKcS0_Pm");
    add("qInitResources_veskhdr", "_Z22qInitResources_veskhdrv");
    add("qCleanupResources_veskhdr", "_Z25qCleanupResources_veskhdrv");
    add("VeskDeviceInfo::getInstance", "_ZN14VeskDeviceInfo11getInstanceEv");
    add("VeskDeviceInfo::getCPUInfo", "_ZN14VeskDeviceInfo10getCPUInfoEv");
    add("VeskDeviceInfo::getMemoryInfo", "_ZN14VeskDeviceInfo13getMemoryInfoEv");
    add("VeskDeviceInfo::getOpenCLPlatform", "_ZNK14VeskDeviceInfo17getOpenCLPlatformEv");
    add("VeskDeviceInfo::getOpenCLVersion", "_ZNK14VeskDeviceInfo16getOpenCLVersionEv");
    add("VeskDeviceInfo::isOpenCLCapable", "_ZNK14VeskDeviceInfo15isOpenCLCapableEv");
    add("VeskDeviceInfo::getOpenCLDeviceList", "_ZNK14VeskDeviceInfo19getOpenCLDeviceListEv");
    add("VeskDeviceInfo::setCurrentOpenCLDeviceName",
        "_ZN14VeskDeviceInfo26setCurrentOpenCLDeviceNameERK7QString");
    add("VeskDeviceInfo::getCurrentOpenCLDeviceName",
        "_ZN14VeskDeviceInfo26getCurrentOpenCLDeviceNameEv");
    add("VeskDeviceInfo::getCurrentOpenCLDeviceID",
        "_ZNK14VeskDeviceInfo24getCurrentOpenCLDeviceIDEv");
    add("VeskHDRThread", "_ZTV13VeskHDRThread");
    add("VeskHDRThread's meta-object", "_ZN13VeskHDRThread16staticMetaObjectE");
    add("VeskToolHDR", "_ZTV11VeskToolHDR");
    add("VeskToolHDR's constructor", "_ZN11VeskToolHDRC1EP7QObject");
    add("VeskToolHDR's meta-object", "_ZN11VeskToolHDR16staticMetaObjectE");
    add("VeskToolHDRWidget", "_ZTV17VeskToolHDRWidget");
    add("VeskToolHDRWidget's meta-object", "_ZN17VeskToolHDRWidget16staticMetaObjectE");
    add("VeskOpenCLDeviceSelection", "_ZTV25VeskOpenCLDeviceSelection");
    add("VeskOpenCLDeviceSelection::setDevice", "_ZN25VeskOpenCLDeviceSelection9setDeviceEv");
}

void TestExportedNames::name_isExported()
{
    QFETCH(QByteArray, symbol);
    QLibrary library(qEnvironmentVariable("VESK_LIB_DIR") + QStringLiteral("/libVeskHDR"), 1);
    QVERIFY2(library.load(), qPrintable(library.errorString()));
    QVERIFY(library.resolve(symbol.constData()));
}

QTEST_GUILESS_MAIN(TestExportedNames)
#include "tst_exported_names.moc"
