#include "opencl_merge.h"

#include "VeskDeviceInfo.h"
#include "VeskEnDecodeTool.h"
#include "exposure_merge.h"
#include "lightness_definition.h"
#include "merge_weights.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <memory>
#include <random>
#include <vector>

int qInitResources_veskhdr();
int qCleanupResources_veskhdr();

/// Runs on the machine's own OpenCL device. The layer vesk_device_layer gives it a name that the
/// registry takes, and plays the devices that fail.
namespace {

using Pixels = std::vector<QRgb>;

constexpr int kBandPixels = 10485760;
constexpr QRgb kBlack = 0xFF000000;
constexpr quint32 kSeed = 20240229;

/// Pictures that repeat a few random pixels: what they merge to is known from those alone. The
/// period is a prime, so that a pixel from a wrong row, band or picture is not the right one.
constexpr size_t kPeriod = 65537;

struct Bracket
{
    int width;
    int height;
    std::vector<Pixels> pictures;
    Pixels merged;

    Bracket(int columns, int rows, int count);
    int count() const { return static_cast<int>(pictures.size()); }
    size_t size() const { return static_cast<size_t>(width) * static_cast<size_t>(height); }
};

Pixels mergeOnProcessor(std::vector<Pixels> &pictures, int width, int height)
{
    std::vector<QImage> images;
    images.reserve(pictures.size());
    for (Pixels &pixels : pictures)
        images.emplace_back(reinterpret_cast<uchar *>(pixels.data()), width, height,
                            QImage::Format_ARGB32);
    QList<QImage *> list;
    for (QImage &image : images)
        list << &image;
    const std::unique_ptr<QImage> merged(mergeExposures(list));
    const auto *first = reinterpret_cast<const QRgb *>(merged->constBits());
    return Pixels(first, first + width * height);
}

Pixels repeated(const Pixels &period, size_t size)
{
    Pixels pixels(size);
    for (size_t i = 0; i < size; i += period.size())
        std::copy_n(period.begin(), std::min(period.size(), size - i), pixels.begin() + i);
    return pixels;
}

std::vector<Pixels> randomPictures(size_t size, int count)
{
    QRandomGenerator random(kSeed);
    std::vector<Pixels> pictures(static_cast<size_t>(count), Pixels(size));
    for (Pixels &pixels : pictures)
        std::generate(pixels.begin(), pixels.end(), [&random] { return random.generate(); });
    return pictures;
}

Bracket::Bracket(int columns, int rows, int count)
    : width(columns)
    , height(rows)
{
    std::vector<Pixels> periods = randomPictures(kPeriod, count);
    merged = repeated(mergeOnProcessor(periods, kPeriod, 1), size());
    pictures.reserve(periods.size());
    for (const Pixels &period : periods)
        pictures.push_back(repeated(period, size()));
}

struct Merge
{
    Pixels result;
    quint64 ticks;
};

Merge mergeOnCurrentDevice(std::vector<Pixels> &pictures, int width, int height)
{
    std::vector<unsigned char *> in;
    in.reserve(pictures.size());
    for (Pixels &pixels : pictures)
        in.push_back(reinterpret_cast<unsigned char *>(pixels.data()));
    Merge merge{Pixels(pictures.at(0).size(), kBlack), 0};
    merge.ticks = simpleOCLHDR(reinterpret_cast<unsigned char *>(merge.result.data()), in.data(),
                               width, height, static_cast<int>(pictures.size()));
    return merge;
}

Pixels mergeOnCurrentDevice(Bracket &bracket)
{
    return mergeOnCurrentDevice(bracket.pictures, bracket.width, bracket.height).result;
}

/// Two bands of one row, and the empty one.
Bracket twoBands()
{
    return Bracket(kBandPixels / 4 + 1, 2, 2);
}

/// One pixel for each pair of a largest and a smallest channel, each place of the two among the
/// channels, and several values of the third.
Pixels allPairs()
{
    Pixels pixels;
    for (int largest = 0; largest < 256; ++largest) {
        for (int smallest = 0; smallest <= largest; ++smallest) {
            const int middle = (2 * largest + 3 * smallest) / 5;
            pixels.insert(pixels.end(),
                          {qRgb(largest, smallest, middle), qRgb(smallest, middle, largest),
                           qRgb(middle, largest, smallest), qRgb(largest, largest, smallest),
                           qRgb(smallest, largest, smallest)});
        }
    }
    return pixels;
}

QString address(const void *pointer)
{
    return QStringLiteral("0x") + QString::number(reinterpret_cast<quintptr>(pointer), 16);
}

void clearLayer()
{
    for (const char *name :
         {"VESK_LAYER_RECORD", "VESK_LAYER_FAIL", "VESK_LAYER_WRONG", "VESK_LAYER_POISON",
          "VESK_LAYER_DIVISION", "VESK_LAYER_BUSY", "VESK_LAYER_IDLE"})
        qunsetenv(name);
}

/// The calls that the layer saw during its life.
class CallRecord
{
public:
    CallRecord() { qputenv("VESK_LAYER_RECORD", QFile::encodeName(path())); }
    ~CallRecord() { qunsetenv("VESK_LAYER_RECORD"); }

    QStringList calls() const
    {
        QFile file(path());
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QString::fromLatin1(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

private:
    QString path() const { return folder.filePath(QStringLiteral("calls")); }

    QTemporaryDir folder;
};

/// What a merge calls, one line each, in its order.
class ExpectedCalls
{
public:
    explicit ExpectedCalls(const Bracket &toMerge, const Pixels &result)
        : bracket(toMerge)
        , out(reinterpret_cast<const char *>(result.data()))
        , bandRows(kBandPixels / (bracket.width * bracket.count()))
    {
    }

    QStringList calls()
    {
        setUp();
        for (int band = 0; band <= bracket.height / bandRows; ++band)
            pass(band * bandRows, std::min(bandRows, bracket.height - band * bandRows));
        lines << QStringLiteral("clReleaseMemObject memory2")
              << QStringLiteral("clReleaseMemObject memory1")
              << QStringLiteral("clReleaseKernel kernel1")
              << QStringLiteral("clReleaseCommandQueue queue1")
              << QStringLiteral("clReleaseProgram program1")
              << QStringLiteral("clReleaseContext context1");
        return lines;
    }

private:
    void setUp()
    {
        const QString device = address(VeskDeviceInfo::getInstance()->getCurrentOpenCLDeviceID());
        const qint64 bandBytes = qint64(4) * bracket.width * bandRows;
        size_t length = 0;
        delete[] LoadProgSource(":/hdr.cl_", "", &length);
        lines << QStringLiteral("clCreateContext null 1 %1 null null = context1").arg(device)
              << QStringLiteral("clCreateCommandQueue context1 %1 0 = queue1").arg(device)
              << QStringLiteral("clCreateBuffer context1 %1 %2 null = memory1")
                     .arg(CL_MEM_READ_ONLY)
                     .arg(bracket.count() * bandBytes)
              << QStringLiteral("clCreateBuffer context1 %1 %2 null = memory2")
                     .arg(CL_MEM_WRITE_ONLY)
                     .arg(bandBytes)
              << QStringLiteral("clCreateProgramWithSource context1 1 %1 = program1").arg(length)
              << QStringLiteral("clBuildProgram program1 0 null null null null")
              << QStringLiteral("clCreateKernel program1 simpleHDRoclKerneluchar = kernel1");
    }

    void pass(int firstRow, int rows)
    {
        const qint64 offset = qint64(4) * bracket.width * firstRow;
        const qint64 bytes = qint64(4) * bracket.width * rows;
        write(1, 1, picture(0) + (rows > 0 ? offset : 0));
        for (int i = 0; i < bracket.count(); ++i)
            write(i * bytes, bytes, picture(i) + offset);
        lines << QStringLiteral("clSetKernelArg kernel1 0 8 memory2")
              << QStringLiteral("clSetKernelArg kernel1 1 8 memory1")
              << QStringLiteral("clSetKernelArg kernel1 2 4 %1").arg(bracket.width)
              << QStringLiteral("clSetKernelArg kernel1 3 4 %1").arg(rows)
              << QStringLiteral("clSetKernelArg kernel1 4 4 %1").arg(bracket.count())
              << QStringLiteral(
                     "clEnqueueNDRangeKernel queue1 kernel1 2 null %1x%2 128x1 0 null null")
                     .arg((bracket.width + 127) / 128 * 128)
                     .arg(bandRows)
              << QStringLiteral("clFinish queue1")
              << QStringLiteral("clEnqueueReadBuffer queue1 memory2 1 0 %1 %2 0 null null")
                     .arg(bytes)
                     .arg(address(out + offset));
    }

    void write(qint64 offset, qint64 size, const char *from)
    {
        lines << QStringLiteral("clEnqueueWriteBuffer queue1 memory1 1 %1 %2 %3 0 null null")
                     .arg(offset)
                     .arg(size)
                     .arg(address(from));
    }

    const char *picture(int index) const
    {
        return reinterpret_cast<const char *>(bracket.pictures[static_cast<size_t>(index)].data());
    }

    const Bracket &bracket;
    const char *out;
    int bandRows;
    QStringList lines;
};

} // namespace

class TestOpenCLMerge : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(qEnvironmentVariableIsSet("OPENCL_LAYERS"), "run by CTest, which sets the layer");
        qputenv("VESK_LAYER_DEVICE_NAME", "Test device");
        if (!VeskDeviceInfo::getInstance()->isOpenCLCapable())
            QSKIP("no OpenCL driver is installed");
        qInfo("random seed %u", kSeed);
    }

    void init()
    {
        clearLayer();
        VeskDeviceInfo::getInstance()->setCurrentOpenCLDeviceName(QStringLiteral("Test device"));
    }

    void cleanupTestCase() { clearLayer(); }

    void anyShape_equalsTheProcessor_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("count");
        for (int count = 1; count <= 5; ++count) {
            for (int width : {1048576, 1000001}) {
                const int bandRows = kBandPixels / (width * count);
                QTest::addRow("%d of width %d, one band", count, width)
                    << width << bandRows << count;
                QTest::addRow("%d of width %d, one band and a row", count, width)
                    << width << bandRows + 1 << count;
                QTest::addRow("%d of width %d, less than a band", count, width)
                    << width << bandRows - 1 << count;
            }
            QTest::addRow("%d small ones", count) << 641 << 7 << count;
        }
        QTest::newRow("3 of width 127") << 127 << 5 << 3;
        QTest::newRow("3 of width 128") << 128 << 5 << 3;
        QTest::newRow("3 of width 129") << 129 << 5 << 3;
        QTest::newRow("3 of three bands and two rows") << 699050 << 17 << 3;
        QTest::newRow("2 of the greatest width") << kBandPixels / 2 << 2 << 2;
    }

    void anyShape_equalsTheProcessor()
    {
        QFETCH(int, width);
        QFETCH(int, height);
        QFETCH(int, count);
        Bracket bracket(width, height, count);
        QVERIFY(mergeOnCurrentDevice(bracket) == bracket.merged);
    }

    void allPairs_equalTheProcessor_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QByteArray>("divisionError");
        for (int count = 1; count <= 5; ++count)
            QTest::addRow("%d pictures", count) << count << QByteArray();
        for (const char *error : {"-2", "-1", "1", "2"})
            for (int count : {1, 3})
                QTest::addRow("%d pictures, quotients off by %s units", count, error)
                    << count << QByteArray(error);
    }

    void allPairs_equalTheProcessor()
    {
        QFETCH(int, count);
        QFETCH(QByteArray, divisionError);
        if (!divisionError.isEmpty())
            qputenv("VESK_LAYER_DIVISION", divisionError);
        std::vector<Pixels> pictures(static_cast<size_t>(count), allPairs());
        std::mt19937 random(kSeed);
        for (size_t i = 1; i < pictures.size(); ++i)
            std::shuffle(pictures[i].begin(), pictures[i].end(), random);
        const int width = static_cast<int>(pictures[0].size()) / 10;
        const Pixels expected = mergeOnProcessor(pictures, width, 10);
        QVERIFY(mergeOnCurrentDevice(pictures, width, 10).result == expected);
    }

    /// The program has the weights of the machine that built it. They are those of every C library
    /// whose exponential function is correctly rounded for the few arguments there are.
    void storedWeights_areTheCorrectlyRoundedOnes()
    {
        for (QRgb color : allPairs()) {
            const float distance = static_cast<float>(lightnessDefinition(color)) - 0.5F;
            const auto exponent = static_cast<long double>(-distance * distance);
            QVERIFY(weights::of(color) == static_cast<float>(std::exp(exponent)));
        }
    }

    void merge_makesItsCallsInOrder_data()
    {
        QTest::addColumn<int>("height");
        QTest::newRow("two bands and three rows") << 25;
        QTest::newRow("two bands, the last pass has no row") << 22;
        QTest::newRow("less than a band") << 1;
    }

    void merge_makesItsCallsInOrder()
    {
        QFETCH(int, height);
        Bracket bracket(300000, height, 3);
        const CallRecord record;
        const Pixels result = mergeOnCurrentDevice(bracket);
        QCOMPARE(record.calls(), ExpectedCalls(bracket, result).calls());
        QVERIFY(result == bracket.merged);
    }

    void nothingToMerge_makesNoCallAndLeavesTheResult_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("count");
        QTest::newRow("no column") << 0 << 1 << 2;
        QTest::newRow("no row") << 1 << 0 << 2;
        QTest::newRow("no picture") << 1 << 1 << 0;
        QTest::newRow("negative width") << -1 << 1 << 2;
        QTest::newRow("row too wide for a band, five pictures") << 2097153 << 1 << 5;
        QTest::newRow("row too wide for a band, one picture") << kBandPixels + 1 << 1 << 1;
        QTest::newRow("product past 32 bits") << 1073741825 << 1 << 4;
    }

    void nothingToMerge_makesNoCallAndLeavesTheResult()
    {
        QFETCH(int, width);
        QFETCH(int, height);
        QFETCH(int, count);
        const CallRecord record;
        unsigned char pixel[] = {1, 2, 3, 4};
        unsigned char *in[] = {pixel, pixel, pixel, pixel, pixel};
        unsigned char out[] = {5, 6, 7, 8};
        QCOMPARE(simpleOCLHDR(out, in, width, height, count), quint64(0));
        QCOMPARE(QByteArray(reinterpret_cast<char *>(out), 4), QByteArray("\5\6\7\10"));
        QCOMPARE(record.calls(), QStringList());
    }

    void everyCallFailingInTurn_rowsAreMergedOrBlack_data()
    {
        QTest::addColumn<QByteArray>("suffix");
        QTest::newRow("that call alone") << QByteArray();
        QTest::newRow("and all after it, as on a lost device") << QByteArray("+");
    }

    void everyCallFailingInTurn_rowsAreMergedOrBlack()
    {
        QFETCH(QByteArray, suffix);
        Bracket bracket(640, 3, 2);
        const CallRecord record;
        mergeOnCurrentDevice(bracket);
        const QStringList calls = record.calls();
        QVERIFY(calls.size() == 24);
        qputenv("VESK_LAYER_POISON", "1");
        for (int call = 1; call <= calls.size(); ++call) {
            qputenv("VESK_LAYER_FAIL", QByteArray::number(call) + suffix);
            const Pixels result = mergeOnCurrentDevice(bracket);
            for (int row = 0; row < bracket.height; ++row)
                QVERIFY2(isMergedOrBlack(bracket, result, row),
                         qPrintable(QStringLiteral("row %1, failing call %2: %3")
                                        .arg(row)
                                        .arg(call)
                                        .arg(calls.at(call - 1))));
        }
    }

    void failingCall_makesTheRowsBlack_data()
    {
        QTest::addColumn<QByteArray>("call");
        QTest::addColumn<bool>("firstRowIsBlack");
        QTest::addColumn<bool>("secondRowIsBlack");
        const auto add = [](const char *call, bool first, bool second) {
            QTest::newRow(call) << QByteArray(call) << first << second;
        };
        add("clCreateContext", true, true);
        add("clCreateCommandQueue", true, true);
        add("clCreateBuffer:1", true, true);
        add("clCreateBuffer:2", true, true);
        add("clCreateBuffer", true, true);
        add("clCreateProgramWithSource", true, true);
        add("clBuildProgram", true, true);
        add("clCreateKernel", true, true);
        add("clEnqueueNDRangeKernel:1", true, false);
        add("clEnqueueNDRangeKernel:2", false, true);
        add("clEnqueueNDRangeKernel:3", false, false); // has no row
        add("clFinish:2", false, true);
        add("clEnqueueReadBuffer:1", true, false);
        add("clEnqueueWriteBuffer:1", false, false); // the single byte, overwritten at once
        add("clEnqueueWriteBuffer:2", true, false);  // the first picture's first row
        add("clEnqueueWriteBuffer:4", false, false); // the single byte again
        add("clEnqueueWriteBuffer:5", false, true);  // the first picture's second row
        add("clReleaseContext", false, false);
        add("20+", false, true); // the device is lost in the second pass
    }

    void failingCall_makesTheRowsBlack()
    {
        QFETCH(QByteArray, call);
        QFETCH(bool, firstRowIsBlack);
        QFETCH(bool, secondRowIsBlack);
        Bracket bracket = twoBands();
        qputenv("VESK_LAYER_POISON", "1");
        qputenv("VESK_LAYER_FAIL", call);
        const Pixels result = mergeOnCurrentDevice(bracket);
        QCOMPARE(isBlack(bracket, result, 0), firstRowIsBlack);
        QCOMPARE(isBlack(bracket, result, 1), secondRowIsBlack);
        QVERIFY(isMergedOrBlack(bracket, result, 0));
        QVERIFY(isMergedOrBlack(bracket, result, 1));
    }

    void failingCall_skipsNoOtherCallOfThePass()
    {
        Bracket bracket = twoBands();
        qputenv("VESK_LAYER_FAIL", "clEnqueueNDRangeKernel:1");
        const CallRecord record;
        const Pixels result = mergeOnCurrentDevice(bracket);
        QCOMPARE(record.calls(), ExpectedCalls(bracket, result).calls());
    }

    void singleByteThatCannotBeWritten_isNoFailure()
    {
        Bracket bracket = twoBands();
        qputenv("VESK_LAYER_FAIL", "clEnqueueWriteBuffer:1");
        QVERIFY(mergeOnCurrentDevice(bracket) == bracket.merged);
    }

    /// What is read back decides: memory that the program did not write is not opaque.
    void deviceThatOnlySaysItRan_leavesBlack()
    {
        Bracket bracket = twoBands();
        qputenv("VESK_LAYER_POISON", "1");
        qputenv("VESK_LAYER_IDLE", "1");
        const Pixels result = mergeOnCurrentDevice(bracket);
        QVERIFY(isBlack(bracket, result, 0) && isBlack(bracket, result, 1));
        std::vector<unsigned char *> in;
        for (Pixels &pixels : bracket.pictures)
            in.push_back(reinterpret_cast<unsigned char *>(pixels.data()));
        Pixels out(bracket.size(), kBlack);
        const cl_device_id device = VeskDeviceInfo::getInstance()->getCurrentOpenCLDeviceID();
        QVERIFY(!opencl::mergeWords(device, reinterpret_cast<unsigned char *>(out.data()),
                                    in.data(), bracket.width, bracket.height, bracket.count())
                     .isComplete);
    }

    void noCurrentDevice_makesItsCallsAndLeavesBlack()
    {
        VeskDeviceInfo::getInstance()->setCurrentOpenCLDeviceName(QString());
        Bracket bracket = twoBands();
        const CallRecord record;
        const Pixels result = mergeOnCurrentDevice(bracket);
        QVERIFY(isBlack(bracket, result, 0) && isBlack(bracket, result, 1));
        QCOMPARE(record.calls().value(0),
                 QStringLiteral("clCreateContext null 1 null null null = null"));
        QCOMPARE(record.calls().filter(QStringLiteral("clEnqueueReadBuffer")).size(), 3);
        QCOMPARE(record.calls().filter(QStringLiteral("clRelease")), QStringList());
    }

    void unreadableProgram_leavesBlack()
    {
        Bracket bracket = twoBands();
        qCleanupResources_veskhdr();
        const Pixels result = mergeOnCurrentDevice(bracket);
        qInitResources_veskhdr();
        QVERIFY(isBlack(bracket, result, 0) && isBlack(bracket, result, 1));
    }

    void wrongDevice_isWhatTheLayerCanPlay()
    {
        Bracket bracket = twoBands();
        qputenv("VESK_LAYER_WRONG", "1");
        QVERIFY(mergeOnCurrentDevice(bracket) != bracket.merged);
    }

    void ticks_leaveOutTheBuilding()
    {
        std::vector<Pixels> pictures = randomPictures(640, 2);
        qputenv("VESK_LAYER_BUSY", "clCreateKernel");
        const std::clock_t start = std::clock();
        const quint64 ticks = mergeOnCurrentDevice(pictures, 640, 1).ticks;
        const auto all = static_cast<quint64>(std::clock() - start);
        QVERIFY(all - ticks >= kBusyTicks);
    }

    void ticks_countTheRelease()
    {
        std::vector<Pixels> pictures = randomPictures(640, 2);
        qputenv("VESK_LAYER_BUSY", "clReleaseContext");
        QVERIFY(mergeOnCurrentDevice(pictures, 640, 1).ticks >= kBusyTicks);
    }

    void mergeWords_tellsWhetherEveryRowIsMerged()
    {
        std::vector<Pixels> pictures = randomPictures(640, 1);
        auto *in = reinterpret_cast<unsigned char *>(pictures[0].data());
        Pixels result(640, kBlack);
        auto *out = reinterpret_cast<unsigned char *>(result.data());
        const cl_device_id device = VeskDeviceInfo::getInstance()->getCurrentOpenCLDeviceID();
        QVERIFY(opencl::mergeWords(device, out, &in, 64, 10, 1).isComplete);
        QVERIFY(!opencl::mergeWords(nullptr, out, &in, 64, 10, 1).isComplete);
        QVERIFY(!opencl::mergeWords(device, out, &in, 0, 10, 1).isComplete);
        qputenv("VESK_LAYER_FAIL", "clFinish");
        QVERIFY(!opencl::mergeWords(device, out, &in, 64, 10, 1).isComplete);
    }

    void loadProgSource_givesTheKernel()
    {
        size_t length = 0;
        const std::unique_ptr<char[]> text(LoadProgSource(":/hdr.cl_", "", &length));
        QVERIFY(text);
        const QByteArray program(text.get(), static_cast<int>(length));
        QVERIFY(program.contains("__kernel void simpleHDRoclKerneluchar("));
        QVERIFY(!program.contains("#include"));
        QVERIFY(!program.contains('\0'));
        QVERIFY(program.endsWith("}\n"));
    }

    void loadProgSource_deciphersToLatin1()
    {
        QString key;
        VeskEnDecodeTool::VeskGetMM(key);
        QByteArray cipherText;
        QVERIFY(VeskEnDecodeTool::DES_Encrypt(QStringLiteral("caf\u00e9"), key, cipherText));
        QCOMPARE(load(cipherText), QByteArray("caf\xe9"));
        cipherText.chop(1);
        QCOMPARE(load(cipherText), QByteArray());
    }

    void loadProgSource_damagedFile_givesAnEmptyTextThatADriverCanRead()
    {
        QTemporaryFile file;
        QVERIFY(file.open() && file.write("no cipher text") > 0 && file.flush());
        size_t length = 42;
        const std::unique_ptr<char[]> text(
            LoadProgSource(QFile::encodeName(file.fileName()).constData(), "", &length));
        QVERIFY(text);
        QCOMPARE(length, size_t(0));
        QCOMPARE(text[0], '\0'); // where a driver looks for the end
    }

    void loadProgSource_missingFile_givesNullAndKeepsTheLength()
    {
        size_t length = 42;
        QVERIFY(!LoadProgSource(":/there_is_none.cl_", "", &length));
        QCOMPARE(length, size_t(42));
    }

private:
    static constexpr quint64 kBusyTicks = CLOCKS_PER_SEC / 20;

    static QByteArray load(const QByteArray &cipherText)
    {
        QTemporaryFile file;
        if (!file.open() || file.write(cipherText) != cipherText.size() || !file.flush())
            return "cannot write the file";
        size_t length = 0;
        const std::unique_ptr<char[]> text(
            LoadProgSource(QFile::encodeName(file.fileName()).constData(), "ignored", &length));
        return QByteArray(text.get(), static_cast<int>(length));
    }

    static bool isRow(const Bracket &bracket, const Pixels &result, int row, const Pixels &expected)
    {
        const auto first = row * bracket.width;
        return std::equal(result.begin() + first, result.begin() + first + bracket.width,
                          expected.begin() + first);
    }

    static bool isBlack(const Bracket &bracket, const Pixels &result, int row)
    {
        return isRow(bracket, result, row, Pixels(bracket.size(), kBlack));
    }

    static bool isMergedOrBlack(const Bracket &bracket, const Pixels &result, int row)
    {
        return isBlack(bracket, result, row) || isRow(bracket, result, row, bracket.merged);
    }
};

QTEST_GUILESS_MAIN(TestOpenCLMerge)
#include "tst_opencl_merge.moc"
