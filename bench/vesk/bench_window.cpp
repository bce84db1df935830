// For how long the editor's window does not answer, and how soon it shows what has changed:
//
//   bench_window [open] [look] [steps] [recovery]
//
// A timer of 5 ms runs in the window's event loop; the largest gap between its ticks is how long
// somebody would have waited. Opens a JPEG file of 100 megapixels; lets a look, a crop, a turn and
// a straightening act on pictures of 24, back and forth, until they are seen and until they are
// made; brings them back from recovery files. The least and the middle of several runs, as other
// programs may hold the processor; and processor time of the whole process. Runs what is named, or
// all. Needs a platform, offscreen is enough.

#include "AdjustDock.h"
#include "DocumentArea.h"
#include "DocumentHistory.h"
#include "EditMenu.h"
#include "LookPreview.h"
#include "MainWindow.h"
#include "PictureEditor.h"
#include "RecoveryKeeper.h"
#include "editor_application.h"
#include "picture_edits.h"
#include "picture_writer.h"
#include "recovery_file.h"

#include <VeskCanvas.h>
#include <VeskContext.h>

#include <QApplication>
#include <QColorSpace>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

namespace {

constexpr QSize kLarge(11600, 8700);
constexpr QSize kUsual(6000, 4000);
constexpr QSize kWindow(2200, 1420); // the canvas has 1920 x 1080 and a little more
constexpr int kDelayMs = RecoveryKeeper::kLongestDelayMs;
constexpr size_t kRuns = 5;
constexpr int kDragged = 40;
constexpr int kSettleMs = 1500;
constexpr int kPatienceMs = 60000;

QImage testPicture(QSize size, QImage::Format format = QImage::Format_RGB32)
{
    QImage made(size, QImage::Format_RGB32);
    for (int y = 0; y < made.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(made.scanLine(y));
        for (int x = 0; x < made.width(); ++x)
            row[x] = qRgb(40 + x * 180 / size.width(), 40 + y * 180 / size.height(), (x ^ y) & 255);
    }
    made = made.convertToFormat(format);
    made.setColorSpace(QColorSpace::SRgb);
    return made;
}

/// What the event loop does from now on.
class GapWatch
{
public:
    GapWatch()
    {
        wall.start();
        QObject::connect(&timer, &QTimer::timeout, [this] { tick(); });
        timer.setTimerType(Qt::PreciseTimer);
        timer.start(5);
    }
    void runUntil(const std::function<bool()> &isDone)
    {
        while (!isDone() && wall.elapsed() < kPatienceMs)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    void settle()
    {
        const qint64 end = wall.elapsed() + kSettleMs;
        runUntil([&] { return wall.elapsed() > end; });
        tick();
    }
    /// The most that the thread itself worked between two ticks, whoever else held the processor.
    double mostWorkMs() const { return mostWork; }
    double largestMs() const { return double(largest) / 1e6; }
    double wallMs() const { return double(wall.nsecsElapsed()) / 1e6; }
    double processorMs() const { return double(std::clock() - ticks) * 1e3 / CLOCKS_PER_SEC; }

private:
    void tick()
    {
        const qint64 now = wall.nsecsElapsed();
        largest = std::max(largest, now - last);
        last = now;
        const double worked = threadMs();
        mostWork = std::max(mostWork, worked - lastWork);
        lastWork = worked;
    }

    static double threadMs()
    {
        timespec spent;
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &spent);
        return double(spent.tv_sec) * 1e3 + double(spent.tv_nsec) / 1e6;
    }

    QElapsedTimer wall;
    QTimer timer;
    qint64 last = 0;
    qint64 largest = 0;
    double lastWork = threadMs();
    double mostWork = 0;
    const std::clock_t ticks = std::clock();
};

struct Sample
{
    double shown = 0;     ///< until it was on the screen, at the size of the screen
    double made = 0;      ///< until the document has it
    double gap = 0;       ///< longest time without an answer
    double work = 0;      ///< most processor time of the GUI thread without an answer
    double processor = 0; ///< of all threads, until then
};

void print(const char *what, std::vector<Sample> samples)
{
    const auto column = [&samples](double Sample::*member) {
        std::sort(samples.begin(), samples.end(),
                  [member](const Sample &a, const Sample &b) { return a.*member < b.*member; });
        return std::pair(samples.front().*member, samples[samples.size() / 2].*member);
    };
    const auto [shown, shownMiddle] = column(&Sample::shown);
    const auto [made, madeMiddle] = column(&Sample::made);
    const auto [gap, gapMiddle] = column(&Sample::gap);
    const double processor = column(&Sample::processor).first;
    const auto [work, workMiddle] = column(&Sample::work);
    std::printf("%-24s shown after %6.1f (%6.1f), made after %6.1f (%6.1f), processor %6.1f; "
                "window held %6.1f (%6.1f), working %6.1f (%6.1f)\n",
                what, shown, shownMiddle, made, madeMiddle, processor, gap, gapMiddle, work,
                workMiddle);
    std::fflush(stdout);
}

/// The window, with the document that it works on.
class Editor
{
public:
    Editor()
    {
        window.resize(kWindow);
        window.show();
        documents = window.findChild<DocumentArea *>();
        edit = window.findChild<EditMenu *>();
        edit->adjustDock()->show();
    }

    VeskContext *open(const QImage &first)
    {
        VeskContext *document = documents->open(first, QStringLiteral("picture"), {});
        GapWatch().settle();
        return document;
    }

    /// Until the canvas has painted the change, and until the document has it.
    Sample act(const std::function<void()> &act)
    {
        VeskContext *document = documents->currentDocument();
        VeskCanvas *canvas = documents->currentCanvas();
        const int before = DocumentHistory::of(*document).revision();
        const auto isMade = [&] { return DocumentHistory::of(*document).revision() != before; };
        GapWatch watch;
        Sample sample;
        QTimer::singleShot(0, act);
        watch.runUntil([&] { return canvas->preview() || isMade(); });
        canvas->repaint();
        sample.shown = watch.wallMs();
        watch.runUntil(isMade);
        sample.made = watch.wallMs();
        sample.processor = watch.processorMs();
        watch.settle();
        sample.gap = watch.largestMs();
        sample.work = watch.mostWorkMs();
        return sample;
    }

    MainWindow window;
    DocumentArea *documents;
    EditMenu *edit;
};

void measureOpening(const QString &path)
{
    WriteOptions options;
    options.quality = 92;
    picture::write(testPicture(kLarge), path, PictureFormat::Jpeg, options);
    std::vector<Sample> samples;
    for (size_t run = 0; run < kRuns; ++run) {
        Editor editor;
        GapWatch().settle();
        GapWatch watch;
        Sample sample;
        QTimer::singleShot(0, [&] { editor.window.openPaths({path}); });
        watch.runUntil([&] { return editor.documents->currentDocument() != nullptr; });
        sample.shown = watch.wallMs();
        sample.processor = watch.processorMs();
        watch.settle();
        sample.gap = watch.largestMs();
        sample.work = watch.mostWorkMs();
        samples.push_back(sample);
    }
    print("open, JPEG, 100 megapixels", samples);
}

/// What is done already, back and forth.
void measureSteps(const char *what, Editor &editor)
{
    std::vector<Sample> backs;
    std::vector<Sample> forths;
    for (size_t run = 0; run < kRuns; ++run) {
        backs.push_back(editor.act([&] { editor.edit->undo->trigger(); }));
        forths.push_back(editor.act([&] { editor.edit->redo->trigger(); }));
    }
    print(qPrintable(QStringLiteral("undo, %1").arg(QLatin1String(what))), backs);
    print(qPrintable(QStringLiteral("redo, %1").arg(QLatin1String(what))), forths);
}

/// The same of a change that is made, too; each time anew.
void measureChange(const char *what, Editor &editor, const std::function<void()> &change)
{
    std::vector<Sample> changes = {editor.act(change)};
    while (changes.size() < kRuns) {
        editor.act([&] { editor.edit->undo->trigger(); });
        changes.push_back(editor.act(change));
    }
    print(what, changes);
    measureSteps(what, editor);
}

/// All of the picture but a strip.
void changeMost(VeskContext &document)
{
    const QImage before = document::layerPictures(document).constFirst();
    QImage after = before;
    for (int y = 0; y < after.height() - 200; ++y)
        std::transform(after.constScanLine(y), after.constScanLine(y) + after.bytesPerLine(),
                       after.scanLine(y), [](uchar value) { return uchar(value ^ 1); });
    DocumentEdit change;
    change.text = QStringLiteral("Edit");
    change.pictures = {after};
    change.steps = std::make_shared<PictureSteps>(picture_step::ofChange(before, after));
    DocumentHistory::of(document).add(std::move(change));
}

/// Until the look is on the screen.
Sample showLook(Editor &editor, const exposure::Look &look)
{
    AdjustDock *dock = editor.edit->adjustDock();
    bool isReady = false;
    const auto connection =
        QObject::connect(dock->preview(), &LookPreview::ready, [&isReady] { isReady = true; });
    GapWatch watch;
    Sample sample;
    QTimer::singleShot(0, [&] { dock->setLook(look); });
    watch.runUntil([&] { return isReady; });
    editor.documents->currentCanvas()->repaint();
    sample.shown = watch.wallMs();
    sample.processor = watch.processorMs();
    sample.gap = watch.largestMs();
    sample.work = watch.mostWorkMs();
    QObject::disconnect(connection);
    return sample;
}

/// A change from rest, and then one after the other as a slider is dragged.
void measureLook(Editor &editor)
{
    exposure::Look look;
    look.shadows = 0.3;
    std::vector<Sample> firsts;
    for (size_t run = 0; run < kRuns; ++run) {
        look.exposure = 0.2 + 0.1 * double(run);
        firsts.push_back(showLook(editor, look));
        GapWatch().settle(); // the document has it by then
    }
    print("look, from rest", firsts);
    std::vector<Sample> others;
    for (int change = 0; change < kDragged; ++change) {
        look.exposure = 0.02 * change;
        others.push_back(showLook(editor, look));
    }
    print("look, dragged", others);
    GapWatch().settle();
}

void measureLooks(const char *depth, QImage::Format format)
{
    std::printf("\nLooks on 24 megapixels, %s\n", depth);
    Editor editor;
    VeskContext *document = editor.open(testPicture(kUsual, format));
    measureLook(editor);
    editor.documents->close(document);
}

void measureEdits(const char *depth, QImage::Format format)
{
    std::printf("\nSteps on 24 megapixels, %s\n", depth);
    Editor editor;
    VeskContext *document = editor.open(testPicture(kUsual, format));
    auto *maker = editor.window.findChild<PictureEditor *>();
    measureChange("look", editor, [&] {
        exposure::Look look;
        look.contrast = 0.3;
        editor.edit->adjustDock()->setLook(look);
    });
    changeMost(*document);
    GapWatch().settle();
    measureSteps("nearly all of it", editor);
    measureChange("turn", editor, [&] { editor.edit->rotateLeft->trigger(); });
    measureChange("straighten", editor, [&] {
        maker->start(*document, edits::straighten(document::layerPictures(*document), 3));
    });
    editor.act([&] { editor.edit->undo->trigger(); });
    measureChange("crop", editor, [&] {
        maker->start(*document,
                     edits::crop(document::layerPictures(*document), {500, 500, 2800, 4000}));
    });
    editor.documents->close(document);
}

RecoveredDocument recoverable(QSize size, QImage::Format format)
{
    RecoveredDocument kept;
    kept.name = QStringLiteral("picture");
    kept.layers.append({testPicture(size, format), QStringLiteral("layer"), 1.0F, true});
    return kept;
}

/// The work of all threads and of the kernel for this process.
void measureRecoveryWrite(const char *what, const RecoveredDocument &kept, const QString &path)
{
    std::vector<double> processor;
    for (size_t run = 0; run < kRuns; ++run) {
        const GapWatch watch;
        if (!recovery::write(kept, path).isEmpty())
            return;
        processor.push_back(watch.processorMs());
    }
    std::sort(processor.begin(), processor.end());
    const double middle = processor[processor.size() / 2];
    std::printf("%-24s processor %6.1f (%6.1f): %.2f %% of a core with a change in every %d s\n",
                what, processor.front(), middle, middle / kDelayMs * 100, kDelayMs / 1000);
    std::fflush(stdout);
}

void measureRecovery()
{
    std::printf("\nRecovery files\n");
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file"));
    const RecoveredDocument usual = recoverable(kUsual, QImage::Format_RGB32);
    measureRecoveryWrite("write, 24 MP, 8 bits", usual, path);
    measureRecoveryWrite("write, 24 MP, 16 bits", recoverable(kUsual, QImage::Format_RGBX64), path);
    measureRecoveryWrite("write, 100 MP, 8 bits", recoverable(kLarge, QImage::Format_RGB32), path);
    std::vector<Sample> reads;
    for (size_t run = 0; run < kRuns; ++run) {
        recovery::write(usual, path);
        Editor editor;
        auto *keeper = editor.window.findChild<RecoveryKeeper *>();
        GapWatch().settle();
        GapWatch watch;
        Sample sample;
        QTimer::singleShot(0, [&] { keeper->recover({path}); });
        watch.runUntil([&] { return editor.documents->currentDocument() != nullptr; });
        sample.shown = watch.wallMs();
        sample.processor = watch.processorMs();
        watch.settle();
        sample.gap = watch.largestMs();
        sample.work = watch.mostWorkMs();
        reads.push_back(sample);
        keeper->forgetAll();
    }
    print("read at the start", reads);
}

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir home; // neither settings nor recovery files of the user's
    for (const char *name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
        qputenv(name, home.path().toLocal8Bit());
    workspace::nameEditor();
    QApplication application(argc, argv);
    workspace::setUpEditor(application);
    std::printf("Milliseconds: the least of %zu runs (the middle one)\n", kRuns);
    const QStringList named = QCoreApplication::arguments().mid(1);
    const auto isAsked = [&named](const char *what) {
        return named.isEmpty() || named.contains(QLatin1String(what));
    };
    if (isAsked("open"))
        measureOpening(home.filePath(QStringLiteral("large.jpg")));
    for (const auto &[depth, format] :
         {std::pair("8 bits", QImage::Format_RGB32), std::pair("16 bits", QImage::Format_RGBX64)}) {
        if (isAsked("look"))
            measureLooks(depth, format);
        if (isAsked("steps"))
            measureEdits(depth, format);
    }
    if (isAsked("recovery"))
        measureRecovery();
    return 0;
}
