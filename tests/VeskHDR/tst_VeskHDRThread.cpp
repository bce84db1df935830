#include "VeskHDRThread.h"

#include "VeskDeviceInfo.h"
#include "exposure_merge.h"
#include "mtb_alignment.h"

#include <QApplication>
#include <QCloseEvent>
#include <QColorSpace>
#include <QDialog>
#include <QImage>
#include <QProcess>
#include <QRandomGenerator>
#include <QtTest>

#include <atomic>
#include <climits>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <memory>
#include <vector>

#if defined(__SANITIZE_THREAD__)
#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>
#endif
#if defined(Q_OS_LINUX)
#include <fstream>
#include <sys/resource.h>
#include <unistd.h>
#endif

#if defined(Q_OS_LINUX)
/// The processor time that the worker is told instead of the true one: a picture deleted takes
/// kTicksPerPicture. So it shows between which steps the clock was read.
static std::atomic<const int *> deletionsAsTime{nullptr};
constexpr int kTicksPerPicture = 1000;

extern "C" Q_DECL_EXPORT std::clock_t clock() noexcept
{
    if (const int *deletions = deletionsAsTime)
        return *deletions * kTicksPerPicture;
    timespec used = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    return used.tv_sec * CLOCKS_PER_SEC + used.tv_nsec / (1000000000 / CLOCKS_PER_SEC);
}
#endif

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

#if defined(__SANITIZE_THREAD__)
// Qt is not built with the thread sanitizer, so the lock of its event queue is made
// visible here: what happens before an event is posted happens before it is received. Nothing that
// the worker does after the post is covered.
void QCoreApplication::postEvent(QObject *receiver, QEvent *event, int priority)
{
    using PostEvent = void (*)(QObject *, QEvent *, int);
    static const auto post = reinterpret_cast<PostEvent>(
        dlsym(RTLD_NEXT, "_ZN16QCoreApplication9postEventEP7QObjectP6QEventi"));
    __tsan_release(receiver);
    post(receiver, event, priority);
}
#endif

namespace {

#if defined(__SANITIZE_THREAD__)
void acquirePosted(QObject *receiver)
{
    __tsan_acquire(receiver);
}
#else
void acquirePosted(QObject *)
{
}
#endif

constexpr quint32 kSeed = 20240611;
constexpr const char *kChildVariable = "VESK_TEST_CHILD";

/// The dialog that the worker closes; remembers what reached it and in which order.
class ClosedDialog : public QDialog
{
public:
    bool event(QEvent *event) override
    {
        acquirePosted(this);
        if (event->type() == QEvent::Close || event->type() >= QEvent::User)
            received += event->type();
        return QDialog::event(event);
    }

    int closeEvents() const { return static_cast<int>(received.count(QEvent::Close)); }

    QList<int> received;
};

/// A picture that tells of its end.
class CountedImage : public QImage
{
public:
    CountedImage(const QImage &picture, int &deletions)
        : QImage(picture)
        , count(&deletions)
    {
    }
    ~CountedImage() override { ++*count; }

private:
    int *count;
};

/// The same texture at another exposure and offset, so that an alignment has something to find.
QImage exposure(QSize size, int exposurePercent, QPoint offset = {})
{
    QRandomGenerator random(kSeed);
    QImage texture(300, 300, QImage::Format_RGB32);
    for (int y = 0; y < texture.height(); ++y) {
        for (int x = 0; x < texture.width(); ++x)
            texture.setPixel(x, y, random.generate() | 0xFF000000U);
    }
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const QRgb rgb =
                texture.pixel((x + 30 + offset.x()) % 300, (y + 30 + offset.y()) % 300);
            picture.setPixel(x, y,
                             qRgb(qMin(255, qRed(rgb) * exposurePercent / 100),
                                  qMin(255, qGreen(rgb) * exposurePercent / 100),
                                  qMin(255, qBlue(rgb) * exposurePercent / 100)));
        }
    }
    return picture;
}

QList<QImage> bracket(QSize size = {140, 130})
{
    return {exposure(size, 100), exposure(size, 40, {1, 0}), exposure(size, 180, {0, 1})};
}

QList<QImage *> countedPictures(const QList<QImage> &pictures, int &deletions)
{
    QList<QImage *> list;
    for (const QImage &picture : pictures)
        list += new CountedImage(picture, deletions);
    return list;
}

QList<QImage *> newPictures(const QList<QImage> &pictures)
{
    QList<QImage *> list;
    for (const QImage &picture : pictures)
        list += new QImage(picture);
    return list;
}

/// What the worker should make of these pictures, by the functions that it stands on.
QImage mergedByHand(const QList<QImage> &pictures, bool align)
{
    QList<QImage *> list = newPictures(pictures);
    if (align)
        mtb_alignment(false, list);
    const std::unique_ptr<QImage> merged(mergeExposures(list));
    qDeleteAll(list);
    return *merged;
}

void prepare(VeskHDRThread &worker, const QList<QImage *> &pictures, QDialog &dialog,
             bool useOpenCL, bool align)
{
    QImage *none = nullptr;
    worker.setParams(pictures, none, &dialog, useOpenCL, align);
}

/// Runs the worker to its end as the merge command does: in the dialog's modal loop.
void runBehind(QDialog &dialog, VeskHDRThread &worker)
{
    worker.start();
    dialog.exec();
    worker.wait();
    QCoreApplication::processEvents();
}

std::unique_ptr<QImage> resultOf(const VeskHDRThread &worker)
{
    QImage *result = nullptr;
    worker.getData(result);
    return std::unique_ptr<QImage>(result);
}

#if defined(Q_OS_LINUX)
/// Leaves the process so many bytes of address space beyond what it uses.
void limitMemory(rlim_t spareBytes)
{
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlim_t limit = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + spareBytes;
    const rlimit bounds = {limit, limit};
    setrlimit(RLIMIT_AS, &bounds);
}
#else
void limitMemory(quint64)
{
}
#endif

} // namespace

#define REQUIRE_DEVICE()                                                                           \
    if (!VeskDeviceInfo::getInstance()->isOpenCLCapable())                                         \
    QSKIP("there is no OpenCL device")

class TestVeskHDRThread : public QObject
{
    Q_OBJECT

private slots:
    void construction_withParent_leavesTheObjectWithoutOne();
    void construction_hasNoResultNoTimeAndNoFailure();
    void metaObject_isAThreadWithoutMembersOfItsOwn();
    void setParams_neverWritesTheResultReference();

    void run_emptyList_failsWithoutResultAndClosesOnce();
    void run_onePictureAligned_endsTheProcessInTheAssertion();
    void run_onePictureNotAligned_isMerged();
    void run_onProcessor_mergesAsTheEngineDoes_data();
    void run_onProcessor_mergesAsTheEngineDoes();
    void run_otherFormats_mergeLikeTheir32BitCopies_data();
    void run_otherFormats_mergeLikeTheir32BitCopies();
    void run_success_deletesEveryPictureAndKeepsTheResult();
    void run_result_hasTheProfileAndResolutionOfTheFirstPicture_data();
    void run_result_hasTheProfileAndResolutionOfTheFirstPicture();
    void run_time_countsTheAlignmentButNotTheDeleting_data();
    void run_time_countsTheAlignmentButNotTheDeleting();
    void run_allowedToReusePixels_givesTheSameResult();
    void run_borrowedPixels_areNotWritten_data();
    void run_borrowedPixels_areNotWritten();
    void run_differentSizesOnProcessor_failsKeepsPicturesAndClosesOnce_data();
    void run_differentSizesOnProcessor_failsKeepsPicturesAndClosesOnce();
    void run_missingPicture_failsAndKeepsTheOthers_data();
    void run_missingPicture_failsAndKeepsTheOthers();
    void run_memoryRunsOut_failsClosesOnceAndNamesWhatIsLeft_data();
    void run_memoryRunsOut_failsClosesOnceAndNamesWhatIsLeft();
    void run_onDevice_givesTheProcessorsPixels_data();
    void run_onDevice_givesTheProcessorsPixels();
    void run_onDevice_sharedPicturesAreNotWritten();
    void run_rowsWithPaddingOnDevice_mergeLikePackedOnes();
    void run_differentSizesOnDevice_areNotCheckedAndMergeInTheFirstOnesSize();
    void run_deviceThatFails_leavesOpaqueBlackAndCountsAsSuccess();
    void run_rowsWiderThanTheDevicesBand_leaveOpaqueBlack();
    void run_sixPicturesOnDevice_failAndAreKept();
    void run_closeEvent_overtakesEverythingPosted();
    void run_closeEvent_comesAfterTheResults();
    void run_failure_keepsTheResultOfSetParams();
};

void TestVeskHDRThread::construction_withParent_leavesTheObjectWithoutOne()
{
    QObject parent;
    const VeskHDRThread worker(&parent);
    QVERIFY(!worker.parent());
    QVERIFY(parent.children().isEmpty());
}

void TestVeskHDRThread::construction_hasNoResultNoTimeAndNoFailure()
{
    const VeskHDRThread worker;
    QVERIFY(!worker.isFailed());
    QCOMPARE(worker.getTime(), quint64(0));
    QVERIFY(!resultOf(worker));
}

void TestVeskHDRThread::metaObject_isAThreadWithoutMembersOfItsOwn()
{
    const QMetaObject &meta = VeskHDRThread::staticMetaObject;
    QCOMPARE(meta.className(), "VeskHDRThread");
    QCOMPARE(meta.superClass(), &QThread::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void TestVeskHDRThread::setParams_neverWritesTheResultReference()
{
    QImage before(2, 2, QImage::Format_RGB32);
    QImage *result = &before;
    ClosedDialog dialog;
    VeskHDRThread worker;
    worker.setParams(newPictures(bracket()), result, &dialog, false, false);
    runBehind(dialog, worker);
    QCOMPARE(result, &before);
    const std::unique_ptr<QImage> merged = resultOf(worker);
    QVERIFY(merged && merged.get() != &before);
}

void TestVeskHDRThread::run_emptyList_failsWithoutResultAndClosesOnce()
{
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, {}, dialog, true, true);
    runBehind(dialog, worker);
    QVERIFY(worker.isFailed());
    QVERIFY(!resultOf(worker));
    QCOMPARE(worker.getTime(), quint64(0));
    QCOMPARE(dialog.closeEvents(), 1);
}

void TestVeskHDRThread::run_onePictureAligned_endsTheProcessInTheAssertion()
{
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(kChildVariable, "align one picture");
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), QStringList());
    QVERIFY(child.waitForFinished());
    const QByteArray report = child.readAllStandardError();
    QVERIFY2(report.contains("ImagePtrList.size()>=2"), report);
    QVERIFY2(report.contains("mtb_alignment"), report);
    QVERIFY(child.exitStatus() == QProcess::CrashExit || child.exitCode() != 0);
    QVERIFY(!child.readAllStandardOutput().contains("survived"));
}

void TestVeskHDRThread::run_onePictureNotAligned_isMerged()
{
    const QList<QImage> pictures = {exposure({31, 17}, 100)};
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, newPictures(pictures), dialog, false, false);
    runBehind(dialog, worker);
    QVERIFY(!worker.isFailed());
    QCOMPARE(*resultOf(worker), mergedByHand(pictures, false));
}

void TestVeskHDRThread::run_onProcessor_mergesAsTheEngineDoes_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("align");
    QTest::newRow("2 pictures") << 2 << false;
    QTest::newRow("2 pictures, aligned") << 2 << true;
    QTest::newRow("5 pictures, aligned") << 5 << true;
    QTest::newRow("6 pictures") << 6 << false;
}

void TestVeskHDRThread::run_onProcessor_mergesAsTheEngineDoes()
{
    QFETCH(int, count);
    QFETCH(bool, align);
    const QList<QImage> pictures = (bracket() + bracket()).mid(0, count);
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, newPictures(pictures), dialog, false, align);
    runBehind(dialog, worker);
    QVERIFY(!worker.isFailed());
    QVERIFY(worker.getTime() > 0);
    QCOMPARE(dialog.closeEvents(), 1);
    const std::unique_ptr<QImage> merged = resultOf(worker);
    QCOMPARE(merged->format(), QImage::Format_RGB32);
    QCOMPARE(*merged, mergedByHand(pictures, align));
    if (align)
        QVERIFY(*merged != mergedByHand(pictures, false));
}

void TestVeskHDRThread::run_otherFormats_mergeLikeTheir32BitCopies_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("grey") << int(QImage::Format_Grayscale8);
    QTest::newRow("one bit") << int(QImage::Format_Mono);
    QTest::newRow("palette") << int(QImage::Format_Indexed8);
    QTest::newRow("16 bits per channel") << int(QImage::Format_RGBA64);
}

void TestVeskHDRThread::run_otherFormats_mergeLikeTheir32BitCopies()
{
    QFETCH(int, format);
    QList<QImage> pictures;
    QList<QImage> copies;
    for (const QImage &picture : bracket()) {
        pictures += picture.convertToFormat(QImage::Format(format));
        copies += pictures.constLast().convertToFormat(QImage::Format_ARGB32);
    }
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, newPictures(pictures), dialog, false, true);
    runBehind(dialog, worker);
    QVERIFY(!worker.isFailed());
    QCOMPARE(*resultOf(worker), mergedByHand(copies, true));
}

void TestVeskHDRThread::run_success_deletesEveryPictureAndKeepsTheResult()
{
    int deletions = 0;
    QList<QImage *> pictures;
    for (const QImage &picture : bracket())
        pictures += new CountedImage(picture, deletions);
    ClosedDialog dialog;
    std::unique_ptr<QImage> merged;
    {
        VeskHDRThread worker;
        prepare(worker, pictures, dialog, false, false);
        runBehind(dialog, worker);
        QCOMPARE(deletions, 3);
        QVERIFY(worker.remainingPictures().isEmpty());
        merged = resultOf(worker);
    }
    QCOMPARE(deletions, 3);
    QCOMPARE(*merged, mergedByHand(bracket(), false));
}

void TestVeskHDRThread::run_result_hasTheProfileAndResolutionOfTheFirstPicture_data()
{
    QTest::addColumn<bool>("useOpenCL");
    QTest::addColumn<bool>("align");
    QTest::newRow("processor") << false << false;
    QTest::newRow("processor, aligned") << false << true;
    QTest::newRow("OpenCL") << true << false;
    QTest::newRow("OpenCL, aligned") << true << true;
}

void TestVeskHDRThread::run_result_hasTheProfileAndResolutionOfTheFirstPicture()
{
    QFETCH(bool, useOpenCL);
    QFETCH(bool, align);
    constexpr int k300Dpi = 11811;
    QList<QImage> pictures = bracket();
    pictures[0].setColorSpace(QColorSpace::DisplayP3);
    pictures[0].setDotsPerMeterX(k300Dpi);
    pictures[0].setDotsPerMeterY(k300Dpi + 1);
    pictures[1].setColorSpace(QColorSpace::AdobeRgb);
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, newPictures(pictures), dialog, useOpenCL, align);
    runBehind(dialog, worker);
    const std::unique_ptr<QImage> merged = resultOf(worker);
    QVERIFY(merged);
    QCOMPARE(merged->colorSpace(), QColorSpace(QColorSpace::DisplayP3));
    QCOMPARE(merged->dotsPerMeterX(), k300Dpi);
    QCOMPARE(merged->dotsPerMeterY(), k300Dpi + 1);
}

void TestVeskHDRThread::run_time_countsTheAlignmentButNotTheDeleting_data()
{
    run_result_hasTheProfileAndResolutionOfTheFirstPicture_data();
}

void TestVeskHDRThread::run_time_countsTheAlignmentButNotTheDeleting()
{
#if !defined(Q_OS_LINUX)
    QSKIP("the clock cannot be replaced on this system");
#else
    QFETCH(bool, useOpenCL);
    QFETCH(bool, align);
    int deletions = 0;
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, countedPictures(bracket(), deletions), dialog, useOpenCL, align);
    deletionsAsTime = &deletions;
    runBehind(dialog, worker);
    deletionsAsTime = nullptr;
    delete resultOf(worker).release();
    QCOMPARE(deletions, 3);
    // The alignment deletes two pictures; all that is left goes after the last reading.
    QCOMPARE(worker.getTime(), quint64(align ? 2 * kTicksPerPicture : 0));
#endif
}

void TestVeskHDRThread::run_allowedToReusePixels_givesTheSameResult()
{
    QList<QImage *> pictures;
    for (const QImage &picture : bracket())
        pictures += new QImage(picture.copy());
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, pictures, dialog, false, true);
    worker.allowReuseOfPixels();
    runBehind(dialog, worker);
    QCOMPARE(*resultOf(worker), mergedByHand(bracket(), true));
}

void TestVeskHDRThread::run_borrowedPixels_areNotWritten_data()
{
    run_result_hasTheProfileAndResolutionOfTheFirstPicture_data();
}

void TestVeskHDRThread::run_borrowedPixels_areNotWritten()
{
    QFETCH(bool, useOpenCL);
    QFETCH(bool, align);
    QList<QImage> memory;
    QList<QImage *> borrowing;
    for (const QImage &picture : bracket()) {
        memory += picture.copy();
        QImage &own = memory.last();
        borrowing +=
            new QImage(own.bits(), own.width(), own.height(), own.bytesPerLine(), own.format());
    }
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, borrowing, dialog, useOpenCL, align);
    runBehind(dialog, worker);
    delete resultOf(worker).release();
    QCOMPARE(memory, bracket());
}

void TestVeskHDRThread::run_differentSizesOnProcessor_failsKeepsPicturesAndClosesOnce_data()
{
    QTest::addColumn<bool>("align");
    QTest::newRow("not aligned") << false;
    QTest::newRow("aligned") << true;
}

void TestVeskHDRThread::run_differentSizesOnProcessor_failsKeepsPicturesAndClosesOnce()
{
    QFETCH(bool, align);
    int deletions = 0;
    const QList<QImage *> pictures = {new CountedImage(exposure({20, 10}, 100), deletions),
                                      new CountedImage(exposure({20, 11}, 100), deletions)};
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, pictures, dialog, false, align);
    runBehind(dialog, worker);
    QVERIFY(worker.isFailed());
    QCOMPARE(deletions, 0);
    QCOMPARE(dialog.closeEvents(), 1);
    QVERIFY(!resultOf(worker));
    QCOMPARE(worker.remainingPictures(), pictures);
    qDeleteAll(pictures);
}

void TestVeskHDRThread::run_missingPicture_failsAndKeepsTheOthers_data()
{
    QTest::addColumn<bool>("useOpenCL");
    QTest::addColumn<bool>("isNullPointer");
    QTest::newRow("null pointer, processor") << false << true;
    QTest::newRow("null image, processor") << false << false;
    QTest::newRow("null pointer, OpenCL") << true << true;
    QTest::newRow("null image, OpenCL") << true << false;
}

void TestVeskHDRThread::run_missingPicture_failsAndKeepsTheOthers()
{
    QFETCH(bool, useOpenCL);
    QFETCH(bool, isNullPointer);
    int deletions = 0;
    const QList<QImage *> pictures = {new CountedImage(exposure({20, 10}, 100), deletions),
                                      isNullPointer ? nullptr : new QImage};
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, pictures, dialog, useOpenCL, true);
    runBehind(dialog, worker);
    QVERIFY(worker.isFailed());
    QCOMPARE(deletions, 0);
    QCOMPARE(dialog.closeEvents(), 1);
    qDeleteAll(worker.remainingPictures());
}

void TestVeskHDRThread::run_memoryRunsOut_failsClosesOnceAndNamesWhatIsLeft_data()
{
    QTest::addColumn<QString>("child");
    QTest::newRow("in the merge") << "merge without memory";
    QTest::newRow("in the alignment") << "align without memory";
}

void TestVeskHDRThread::run_memoryRunsOut_failsClosesOnceAndNamesWhatIsLeft()
{
#if !defined(Q_OS_LINUX)
    QSKIP("the test cannot limit the memory of a process on this system");
#endif
    if (kSanitized)
        QSKIP("a sanitizer needs more address space than the test leaves");
    QFETCH(QString, child);
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(kChildVariable, child);
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), QStringList());
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardOutput().trimmed(),
             QByteArray("failed 1, closed 1, left 2, deleted 0"));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
}

void TestVeskHDRThread::run_onDevice_givesTheProcessorsPixels_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("align");
    QTest::addColumn<int>("format");
    QTest::newRow("1 picture") << 1 << false << int(QImage::Format_RGB32);
    QTest::newRow("3 pictures, aligned") << 3 << true << int(QImage::Format_RGB32);
    QTest::newRow("5 pictures, aligned") << 5 << true << int(QImage::Format_ARGB32);
    QTest::newRow("grey") << 3 << false << int(QImage::Format_Grayscale8);
    QTest::newRow("one bit, aligned") << 3 << true << int(QImage::Format_Mono);
    QTest::newRow("16 bits per channel") << 3 << false << int(QImage::Format_RGBA64);
}

void TestVeskHDRThread::run_onDevice_givesTheProcessorsPixels()
{
    REQUIRE_DEVICE();
    QFETCH(int, count);
    QFETCH(bool, align);
    QFETCH(int, format);
    QList<QImage> pictures;
    for (const QImage &picture : (bracket() + bracket()).mid(0, count))
        pictures += picture.convertToFormat(QImage::Format(format));
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, newPictures(pictures), dialog, true, align);
    runBehind(dialog, worker);
    QVERIFY(!worker.isFailed());
    QVERIFY(worker.getTime() > 0);
    QCOMPARE(dialog.closeEvents(), 1);
    const std::unique_ptr<QImage> merged = resultOf(worker);
    QCOMPARE(merged->format(), QImage::Format_RGB32);
    QCOMPARE(*merged, mergedByHand(pictures, align));
}

void TestVeskHDRThread::run_onDevice_sharedPicturesAreNotWritten()
{
    REQUIRE_DEVICE();
    const QList<QImage> pictures = bracket();
    QList<QImage> untouched;
    for (const QImage &picture : pictures)
        untouched += picture.copy();
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, newPictures(pictures), dialog, true, false); // shares the pixels
    runBehind(dialog, worker);
    QCOMPARE(*resultOf(worker), mergedByHand(untouched, false));
    QCOMPARE(pictures, untouched);
}

void TestVeskHDRThread::run_rowsWithPaddingOnDevice_mergeLikePackedOnes()
{
    REQUIRE_DEVICE();
    const QSize size(37, 21);
    const int stride = 40;
    std::vector<std::vector<QRgb>> memory;
    QList<QImage> pictures;
    for (const QImage &picture : bracket(size)) {
        memory.emplace_back(size_t(stride) * size.height(), 0x12345678U);
        for (int y = 0; y < size.height(); ++y)
            memcpy(memory.back().data() + y * stride, picture.constScanLine(y), size.width() * 4U);
        pictures += QImage(reinterpret_cast<uchar *>(memory.back().data()), size.width(),
                           size.height(), stride * 4, QImage::Format_RGB32);
    }
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, newPictures(pictures), dialog, true, false);
    runBehind(dialog, worker);
    QCOMPARE(*resultOf(worker), mergedByHand(pictures, false));
}

void TestVeskHDRThread::run_differentSizesOnDevice_areNotCheckedAndMergeInTheFirstOnesSize()
{
    const QSize size(40, 30);
    const QList<QImage> pictures = {exposure(size, 100), exposure({50, 20}, 40),
                                    exposure({30, 40}, 180)};
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, newPictures(pictures), dialog, true, false);
    runBehind(dialog, worker);
    QVERIFY(!worker.isFailed());
    QVERIFY(worker.remainingPictures().isEmpty());
    const std::unique_ptr<QImage> merged = resultOf(worker);
    QVERIFY(merged);
    QCOMPARE(merged->size(), size);
    REQUIRE_DEVICE();
    QList<QImage> fitted;
    for (const QImage &picture : pictures) {
        QImage fit(size, QImage::Format_ARGB32);
        fit.fill(Qt::transparent);
        for (int y = 0; y < qMin(size.height(), picture.height()); ++y) {
            for (int x = 0; x < qMin(size.width(), picture.width()); ++x)
                fit.setPixel(x, y, picture.pixel(x, y));
        }
        fitted += fit;
    }
    QCOMPARE(*merged, mergedByHand(fitted, false));
}

void TestVeskHDRThread::run_deviceThatFails_leavesOpaqueBlackAndCountsAsSuccess()
{
    VeskDeviceInfo *devices = VeskDeviceInfo::getInstance();
    const QString device = devices->getCurrentOpenCLDeviceName();
    devices->setCurrentOpenCLDeviceName(QStringLiteral("no such device"));
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, newPictures(bracket()), dialog, true, false);
    runBehind(dialog, worker);
    devices->setCurrentOpenCLDeviceName(device);
    QVERIFY(!worker.isFailed());
    QVERIFY(worker.remainingPictures().isEmpty());
    QImage black(bracket().constFirst().size(), QImage::Format_RGB32);
    black.fill(Qt::black);
    QCOMPARE(*resultOf(worker), black);
}

void TestVeskHDRThread::run_rowsWiderThanTheDevicesBand_leaveOpaqueBlack()
{
    QImage wide(2097153, 1, QImage::Format_RGB32);
    wide.fill(Qt::white);
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, newPictures({wide, wide, wide, wide, wide}), dialog, true, false);
    runBehind(dialog, worker);
    QVERIFY(!worker.isFailed());
    wide.fill(Qt::black);
    QCOMPARE(*resultOf(worker), wide);
}

void TestVeskHDRThread::run_sixPicturesOnDevice_failAndAreKept()
{
    const QList<QImage *> pictures = newPictures(bracket() + bracket());
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, pictures, dialog, true, true);
    runBehind(dialog, worker);
    QVERIFY(worker.isFailed());
    QCOMPARE(worker.remainingPictures(), pictures);
    QCOMPARE(dialog.closeEvents(), 1);
    qDeleteAll(pictures);
}

void TestVeskHDRThread::run_closeEvent_overtakesEverythingPosted()
{
    ClosedDialog dialog;
    const auto user = [](int offset) { return new QEvent(QEvent::Type(QEvent::User + offset)); };
    QCoreApplication::postEvent(&dialog, user(1), INT_MAX - 1);
    VeskHDRThread worker;
    prepare(worker, {}, dialog, false, false);
    worker.start();
    QVERIFY(worker.wait(10000));
    QCoreApplication::postEvent(&dialog, user(2), INT_MAX - 1);
    QCoreApplication::sendPostedEvents(&dialog);
    const QList<int> order = {QEvent::Close, QEvent::User + 1, QEvent::User + 2};
    QCOMPARE(dialog.received, order);
}

void TestVeskHDRThread::run_closeEvent_comesAfterTheResults()
{
    VeskHDRThread worker;
    ClosedDialog dialog;
    bool wasMerged = false;
    connect(&dialog, &QDialog::finished, &dialog, [&worker, &wasMerged] {
        QImage *result = nullptr;
        worker.getData(result);
        wasMerged = result && worker.getTime() > 0 && worker.remainingPictures().isEmpty();
    });
    prepare(worker, newPictures(bracket()), dialog, false, true);
    runBehind(dialog, worker);
    QVERIFY(wasMerged);
    resultOf(worker);
}

void TestVeskHDRThread::run_failure_keepsTheResultOfSetParams()
{
    QImage before(2, 2, QImage::Format_RGB32);
    QImage *result = &before;
    ClosedDialog dialog;
    VeskHDRThread worker;
    worker.setParams({}, result, &dialog, false, false);
    runBehind(dialog, worker);
    QImage *after = nullptr;
    worker.getData(after);
    QCOMPARE(after, &before);
}

/// What the test starts in a process of its own, because it ends or starves that process.
static int runAsChild(const QByteArray &task)
{
    const bool starve = task.endsWith("without memory");
    const bool align = task.startsWith("align");
    const QSize size = starve ? QSize(2500, 2500) : QSize(20, 10);
    int deletions = 0;
    QImage grey(size, QImage::Format_RGB32);
    grey.fill(Qt::gray);
    QList<QImage *> pictures = {new CountedImage(grey, deletions)};
    if (starve)
        pictures += new CountedImage(grey.copy(), deletions);
    ClosedDialog dialog;
    VeskHDRThread worker;
    prepare(worker, pictures, dialog, false, align);
    if (starve)
        limitMemory(20 * 1024 * 1024);
    runBehind(dialog, worker);
    if (!starve)
        std::puts("survived");
    else
        std::printf("failed %d, closed %d, left %d, deleted %d\n", worker.isFailed(),
                    dialog.closeEvents(), int(worker.remainingPictures().size()), deletions);
    qDeleteAll(worker.remainingPictures());
    return 0;
}

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    if (qEnvironmentVariableIsSet(kChildVariable))
        return runAsChild(qgetenv(kChildVariable));
    TestVeskHDRThread test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_VeskHDRThread.moc"
