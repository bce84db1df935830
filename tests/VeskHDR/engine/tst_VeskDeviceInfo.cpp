#include "VeskDeviceInfo.h"

#include "VeskGlobalSettings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

/// The platforms are played by the layer vesk_scripted_platform; every test writes its script.
namespace {

/// A registry besides the one of the process: a new start of the editor.
class Registry : public VeskDeviceInfo
{
};

/// A platform with the given devices.
void script(const char *devices)
{
    qputenv("VESK_SCRIPT_PLATFORM", "Scripted");
    qputenv("VESK_SCRIPT_DEVICES", devices);
}

QStringList names(const VeskDeviceInfo &registry)
{
    QStringList result;
    for (const VeskDeviceInfo::OpenCLDevice &device : registry.getOpenCLDeviceList())
        result << device.name;
    return result;
}

QSettings::SettingsMap savedSettings()
{
    QSettings settings(VeskGlobalSettings::configFilePath(), QSettings::IniFormat);
    QSettings::SettingsMap map;
    for (const QString &key : settings.allKeys())
        map[key] = settings.value(key);
    return map;
}

void save(const QString &key, const QString &value)
{
    QSettings(VeskGlobalSettings::configFilePath(), QSettings::IniFormat).setValue(key, value);
}

const QString kKey = QStringLiteral("OpenCLDevice");

} // namespace

class TestVeskDeviceInfo : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(qEnvironmentVariableIsSet("OPENCL_LAYERS"), "run by CTest, which sets the layer");
    }

    void init()
    {
        for (const char *name :
             {"VESK_SCRIPT_PLATFORM", "VESK_SCRIPT_DEVICES", "VESK_SCRIPT_EXTENSIONS",
              "VESK_SCRIPT_IMAGE_SUPPORT", "VESK_SCRIPT_FAIL", "VESK_SCRIPT_RECORD"})
            qunsetenv(name);
        QSettings(VeskGlobalSettings::configFilePath(), QSettings::IniFormat).clear();
    }

    void noPlatform_everythingIsEmpty()
    {
        Registry registry;
        QCOMPARE(registry.getOpenCLPlatform(), QString());
        QCOMPARE(registry.getOpenCLVersion(), QString());
        verifyNoDevice(registry);
    }

    void platformWithoutDevices_namesThePlatformAndNoDevice()
    {
        script("");
        Registry registry;
        QCOMPARE(registry.getOpenCLPlatform(), QStringLiteral("Scripted"));
        QCOMPARE(registry.getOpenCLVersion(), QStringLiteral("OpenCL 1.2 scripted"));
        verifyNoDevice(registry);
    }

    void noDevice_savedNameIsIgnoredAndKeptInTheFile()
    {
        save(kKey, QStringLiteral("GPU A"));
        Registry registry;
        verifyNoDevice(registry);
        QCOMPARE(savedSettings().value(kKey).toString(), QStringLiteral("GPU A"));
    }

    void cutOffName_endsTheList_data()
    {
        QTest::addColumn<QByteArray>("devices");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("second, in capitals")
            << QByteArray("GPU A|INTEL HD|GPU B") << QStringList{QStringLiteral("GPU A")};
        QTest::newRow("second, in mixed case, inside a word")
            << QByteArray("GPU A|The MyIntelGPU|GPU B") << QStringList{QStringLiteral("GPU A")};
        QTest::newRow("first, others follow")
            << QByteArray("intel one|GPU A|GPU B") << QStringList();
        QTest::newRow("last") << QByteArray("GPU A|GPU B|Intel")
                              << QStringList{QStringLiteral("GPU A"), QStringLiteral("GPU B")};
        QTest::newRow("none") << QByteArray("GPU A|inte l|GPU B")
                              << QStringList{QStringLiteral("GPU A"), QStringLiteral("inte l"),
                                             QStringLiteral("GPU B")};
    }

    void cutOffName_endsTheList()
    {
        QFETCH(QByteArray, devices);
        QFETCH(QStringList, expected);
        script(devices);
        Registry registry;
        QCOMPARE(names(registry), expected);
        QCOMPARE(registry.isOpenCLCapable(), !expected.isEmpty());
    }

    void moreThanEightDevices_listHasTheFirstEight_data()
    {
        QTest::addColumn<int>("count");
        for (int count : {7, 8, 9, 16})
            QTest::addRow("%d devices", count) << count;
    }

    void moreThanEightDevices_listHasTheFirstEight()
    {
        QFETCH(int, count);
        QStringList devices;
        for (int i = 0; i < count; ++i)
            devices << QStringLiteral("GPU %1").arg(i);
        script(qPrintable(devices.join(QLatin1Char('|'))));
        Registry registry;
        QCOMPARE(names(registry), QStringList(devices.mid(0, 8)));
    }

    void facts_areTheDevicesOwn()
    {
        script("GPU A|GPU B");
        qputenv("VESK_SCRIPT_EXTENSIONS", "cl_one cl_two");
        Registry registry;
        const QList<VeskDeviceInfo::OpenCLDevice> devices = registry.getOpenCLDeviceList();
        QCOMPARE(devices.size(), 2);
        for (int i = 0; i < 2; ++i) {
            const VeskDeviceInfo::OpenCLDevice &device = devices[i];
            const cl_uint base = 1000U * static_cast<cl_uint>(i);
            QVERIFY(device.id);
            QCOMPARE(device.vendor, QString::number(base + CL_DEVICE_VENDOR));
            QCOMPARE(device.driverVersion, QString::number(base + CL_DRIVER_VERSION));
            QCOMPARE(device.computeUnits, base + CL_DEVICE_MAX_COMPUTE_UNITS);
            QCOMPARE(device.maxClockFrequency, base + CL_DEVICE_MAX_CLOCK_FREQUENCY);
            QCOMPARE(device.localMemSize, cl_ulong(base + CL_DEVICE_LOCAL_MEM_SIZE));
            QCOMPARE(device.globalMemSize, cl_ulong(base + CL_DEVICE_GLOBAL_MEM_SIZE));
            QCOMPARE(device.globalCacheSize, cl_ulong(base + CL_DEVICE_GLOBAL_MEM_CACHE_SIZE));
            QCOMPARE(device.globalCacheLineSize, base + CL_DEVICE_GLOBAL_MEM_CACHELINE_SIZE);
            QCOMPARE(device.globalCacheType, base + CL_DEVICE_GLOBAL_MEM_CACHE_TYPE);
            QCOMPARE(device.imageSupport, true);
            QCOMPARE(device.type, cl_device_type(base + CL_DEVICE_TYPE));
            QCOMPARE(device.extensions,
                     (QStringList{QStringLiteral("cl_one"), QStringLiteral("cl_two")}));
        }
        QVERIFY(devices[0].id != devices[1].id);
    }

    void extensions_haveNoEmptyEntries_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QStringList>("expected");
        const QStringList both{QStringLiteral("cl_a"), QStringLiteral("cl_b")};
        QTest::newRow("two blanks between") << QByteArray("cl_a  cl_b") << both;
        QTest::newRow("blank at the end") << QByteArray("cl_a cl_b ") << both;
        QTest::newRow("blanks only") << QByteArray("   ") << QStringList();
        QTest::newRow("longer than the buffer") << QByteArray(5000, 'x') << QStringList();
        QTest::newRow("as long as the buffer, without a zero")
            << QByteArray(4096, 'x') << QStringList{QString(4096, QLatin1Char('x'))};
    }

    void extensions_haveNoEmptyEntries()
    {
        QFETCH(QByteArray, text);
        QFETCH(QStringList, expected);
        script("GPU A");
        qputenv("VESK_SCRIPT_EXTENSIONS", text);
        Registry registry;
        QCOMPARE(registry.getOpenCLDeviceList().first().extensions, expected);
    }

    void imageSupport_isTrueForOneOnly_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<bool>("expected");
        QTest::newRow("0") << QByteArray("0") << false;
        QTest::newRow("1") << QByteArray("1") << true;
        QTest::newRow("2") << QByteArray("2") << false;
        QTest::newRow("all bits") << QByteArray("4294967295") << false;
    }

    void imageSupport_isTrueForOneOnly()
    {
        QFETCH(QByteArray, answer);
        QFETCH(bool, expected);
        script("GPU A");
        qputenv("VESK_SCRIPT_IMAGE_SUPPORT", answer);
        Registry registry;
        QCOMPARE(registry.getOpenCLDeviceList().first().imageSupport, expected);
    }

    void failingQueries_leaveEmptyTextsAndZeros()
    {
        script("GPU A|GPU B");
        qputenv("VESK_SCRIPT_FAIL", "queries");
        Registry registry;
        QCOMPARE(registry.getOpenCLPlatform(), QString());
        const QList<VeskDeviceInfo::OpenCLDevice> devices = registry.getOpenCLDeviceList();
        QCOMPARE(devices.size(), 2);
        const VeskDeviceInfo::OpenCLDevice &device = devices.first();
        QVERIFY(device.id);
        QCOMPARE(device.name + device.vendor + device.driverVersion, QString());
        QCOMPARE(device.computeUnits + device.maxClockFrequency + device.globalCacheLineSize +
                     device.globalCacheType,
                 0U);
        QCOMPARE(device.localMemSize + device.globalMemSize + device.globalCacheSize + device.type,
                 cl_ulong(0));
        QCOMPARE(device.imageSupport, false);
        QVERIFY(device.extensions.isEmpty());
        QCOMPARE(registry.getCurrentOpenCLDeviceID(), nullptr);
    }

    void failingFetchOfTheHandles_leavesNoDevice()
    {
        script("GPU A|GPU B");
        qputenv("VESK_SCRIPT_FAIL", "ids");
        Registry registry;
        verifyNoDevice(registry);
    }

    void enumeration_asksInItsOrderAndSizes()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("calls"));
        QStringList devices;
        for (int i = 0; i < 9; ++i)
            devices << (i == 1 ? QStringLiteral("Intel") : QStringLiteral("GPU %1").arg(i));
        script(qPrintable(devices.join(QLatin1Char('|'))));
        qputenv("VESK_SCRIPT_RECORD", QFile::encodeName(path));
        Registry registry;

        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QList<QByteArray> calls = file.readAll().trimmed().split('\n');
        const auto query = [](const char *call, cl_uint info, int size) {
            return QByteArray("clGet") + call + "Info " + QByteArray::number(info, 16) + ' ' +
                   QByteArray::number(size, 16) + " * -";
        };
        const QList<QByteArray> expected{
            "clGetPlatformIDs 1 0 * -",
            query("Platform", CL_PLATFORM_NAME, 4096),
            query("Platform", CL_PLATFORM_VERSION, 4096),
            "clGetDeviceIDs ffffffff 0 - *",
            "clGetDeviceIDs ffffffff 8 * *",
            query("Device", CL_DEVICE_NAME, 4096),
            query("Device", CL_DEVICE_VENDOR, 4096),
            query("Device", CL_DRIVER_VERSION, 4096),
            query("Device", CL_DEVICE_MAX_COMPUTE_UNITS, 4),
            query("Device", CL_DEVICE_MAX_CLOCK_FREQUENCY, 4),
            query("Device", CL_DEVICE_LOCAL_MEM_SIZE, 8),
            query("Device", CL_DEVICE_GLOBAL_MEM_SIZE, 8),
            query("Device", CL_DEVICE_GLOBAL_MEM_CACHE_SIZE, 8),
            query("Device", CL_DEVICE_GLOBAL_MEM_CACHELINE_SIZE, 4),
            query("Device", CL_DEVICE_GLOBAL_MEM_CACHE_TYPE, 4),
            query("Device", CL_DEVICE_IMAGE_SUPPORT, 4),
            query("Device", CL_DEVICE_TYPE, 8),
            query("Device", CL_DEVICE_EXTENSIONS, 4096),
            query("Device", CL_DEVICE_NAME, 4096), // the one that ends the list
        };
        QCOMPARE(calls, expected);
    }

    void noSavedKey_firstDeviceIsCurrentAndNothingIsWritten()
    {
        script("GPU A|GPU B");
        Registry registry;
        verifyCurrent(registry, 0);
        QVERIFY(savedSettings().isEmpty());
    }

    void deviceWithoutAName_isNotCurrentBeforeItIsChosen_data()
    {
        QTest::addColumn<QByteArray>("saved");
        QTest::newRow("no key") << QByteArray();
        QTest::newRow("empty name") << QByteArray("");
    }

    void deviceWithoutAName_isNotCurrentBeforeItIsChosen()
    {
        QFETCH(QByteArray, saved);
        if (!saved.isNull())
            save(kKey, QString());
        script("A||C");
        Registry registry;
        QCOMPARE(names(registry),
                 (QStringList{QStringLiteral("A"), QString(), QStringLiteral("C")}));
        verifyCurrent(registry, 0);
    }

    void savedEmptyName_firstDeviceIsCurrent()
    {
        save(kKey, QString());
        script("GPU A|GPU B");
        Registry registry;
        verifyCurrent(registry, 0);
        QCOMPARE(savedSettings().value(kKey).toString(), QString());
    }

    void savedName_makesThatDeviceCurrent()
    {
        save(kKey, QStringLiteral("GPU B"));
        script("GPU A|GPU B");
        Registry registry;
        verifyCurrent(registry, 1);
    }

    void savedNameOfAbsentDevice_firstDeviceIsCurrentAndTheFileStays_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("another name") << QStringLiteral("GPU C");
        QTest::newRow("another case") << QStringLiteral("gpu b");
    }

    void savedNameOfAbsentDevice_firstDeviceIsCurrentAndTheFileStays()
    {
        QFETCH(QString, name);
        save(kKey, name);
        script("GPU A|GPU B");
        Registry registry;
        verifyCurrent(registry, 0);
        QCOMPARE(savedSettings().value(kKey).toString(), name);
    }

    void setCurrent_isSavedAndKeepsOtherKeys()
    {
        save(QStringLiteral("language"), QStringLiteral("de_DE"));
        script("GPU A|GPU, B");
        Registry registry;
        registry.setCurrentOpenCLDeviceName(QStringLiteral("GPU, B"));
        verifyCurrent(registry, 1);
        QCOMPARE(savedSettings(),
                 (QSettings::SettingsMap{{kKey, QStringLiteral("GPU, B")},
                                         {QStringLiteral("language"), QStringLiteral("de_DE")}}));
        QVERIFY(QFileInfo::exists(VeskGlobalSettings::configFilePath()));
        Registry next;
        verifyCurrent(next, 1);
    }

    void setCurrentToUnknownName_isSavedAndHasNeitherNameNorHandle()
    {
        script("GPU A|GPU B");
        Registry registry;
        registry.setCurrentOpenCLDeviceName(QStringLiteral("GPU C"));
        QCOMPARE(registry.getCurrentOpenCLDeviceName(), QString());
        QCOMPARE(registry.getCurrentOpenCLDeviceID(), nullptr);
        QCOMPARE(savedSettings().value(kKey).toString(), QStringLiteral("GPU C"));
    }

    void setCurrentToEmpty_handleIsNullUntilTheNameWasAskedFor()
    {
        script("GPU A|GPU B");
        Registry registry;
        registry.setCurrentOpenCLDeviceName(QString());
        QCOMPARE(registry.getCurrentOpenCLDeviceID(), nullptr);
        QCOMPARE(registry.getCurrentOpenCLDeviceName(), QStringLiteral("GPU A"));
        QCOMPARE(registry.getCurrentOpenCLDeviceID(), registry.getOpenCLDeviceList().first().id);
        QCOMPARE(savedSettings().value(kKey).toString(), QString());
    }

    void twoDevicesOfOneName_handleIsTheFirstOnes()
    {
        script("GPU A|GPU B|GPU B");
        Registry registry;
        registry.setCurrentOpenCLDeviceName(QStringLiteral("GPU B"));
        QCOMPARE(registry.getCurrentOpenCLDeviceID(), registry.getOpenCLDeviceList().at(1).id);
    }

    void getInstance_isOneThatNeverEnumeratesAgain()
    {
        script("GPU A");
        VeskDeviceInfo *registry = VeskDeviceInfo::getInstance();
        script("GPU A|GPU B");
        QCOMPARE(VeskDeviceInfo::getInstance(), registry);
        QCOMPARE(names(*registry), QStringList{QStringLiteral("GPU A")});
    }

private:
    static void verifyNoDevice(VeskDeviceInfo &registry)
    {
        QVERIFY(registry.getOpenCLDeviceList().isEmpty());
        QCOMPARE(registry.isOpenCLCapable(), false);
        QVERIFY(registry.getCurrentOpenCLDeviceName().isNull());
        QCOMPARE(registry.getCurrentOpenCLDeviceID(), nullptr);
    }

    static void verifyCurrent(VeskDeviceInfo &registry, int index)
    {
        const VeskDeviceInfo::OpenCLDevice device = registry.getOpenCLDeviceList().at(index);
        QCOMPARE(registry.getCurrentOpenCLDeviceID(), device.id);
        QCOMPARE(registry.getCurrentOpenCLDeviceName(), device.name);
    }
};

QTEST_GUILESS_MAIN(TestVeskDeviceInfo)
#include "tst_VeskDeviceInfo.moc"
