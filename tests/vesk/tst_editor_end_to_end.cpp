// The program as its user meets it: a real window, the mouse and the keyboard, real files.

#include "EditorSession.h"
#include "SmallDisk.h"
#include "TestPictures.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

namespace {

const QString kMerged = QStringLiteral("^Untitled Document\\* — Vesk$");
const QString kIndicator = QStringLiteral("^Please wait");
const QString kPanel = QStringLiteral("^Merge to HDR");
const QString kSaveAs = QStringLiteral("^Save As");
const QString kNotSaved = QStringLiteral("^Not Saved");
const QString kWorkspace = QStringLiteral("^Merge Exposures$");
const QString kUnsaved = QStringLiteral("^Unsaved Changes");

constexpr int kPatienceMs = 500; // a window that obeys a close is gone long before

/// What the command-line program makes of the same pictures.
QImage mergedByCommandLine(const QStringList &paths, const QString &output,
                           const QString &method = QStringLiteral("mean"))
{
    QProcess program;
    program.start(qEnvironmentVariable("VESK_BIN_DIR") + QStringLiteral("/veskhdr"),
                  QStringList{QStringLiteral("merge"), QStringLiteral("--method"), method} + paths +
                      QStringList{QStringLiteral("--force"), QStringLiteral("-o"), output});
    program.waitForFinished();
    return QImage(output).convertToFormat(QImage::Format_RGB32);
}

/// Opens the tool on the pictures that the film strip has selected, and presses OK.
void startMerge(EditorSession &editor, const QString &window)
{
    QVERIFY(editor.press(window, {QStringLiteral("ctrl+shift+h")}));
    QVERIFY(editor.waitForWindow(kPanel));
    QVERIFY(QTest::qWaitFor(
        [&] {
            // OK is enabled as soon as the tool has taken the pictures over.
            editor.click(kPanel, -50, 57);
            return !editor.hasWindow(kPanel);
        },
        30000));
}

void finishMerge(EditorSession &editor)
{
    const QString done = QStringLiteral("^loaded");
    QVERIFY(editor.waitForWindow(done));
    QVERIFY(editor.press(done, {QStringLiteral("Return")}));
    QVERIFY(editor.waitForWindow(kMerged));
}

/// From the pictures that the film strip has selected to the merged, unsaved document.
void merge(EditorSession &editor, const QString &window)
{
    startMerge(editor, window);
    if (!QTest::currentTestFailed())
        finishMerge(editor);
}

/// Answers the Save As dialog.
void chooseName(EditorSession &editor, const QString &path)
{
    QVERIFY(editor.waitForWindow(kSaveAs));
    QVERIFY(editor.press(kSaveAs, {QStringLiteral("ctrl+a")}));
    QVERIFY(editor.type(kSaveAs, path));
    QVERIFY(editor.press(kSaveAs, {QStringLiteral("Return")}));
    QVERIFY(editor.waitUntilGone(kSaveAs));
}

void saveMergedAs(EditorSession &editor, const QString &path)
{
    QVERIFY(editor.press(kMerged, {QStringLiteral("ctrl+s")}));
    chooseName(editor, path);
}

void quit(EditorSession &editor)
{
    QVERIFY(editor.press(QStringLiteral("Vesk$"), {QStringLiteral("ctrl+q")}));
    QCOMPARE(editor.exitCode(), 0);
}

QString windowOf(const QString &path)
{
    return QStringLiteral("^%1 — Vesk$").arg(QFileInfo(path).fileName());
}

} // namespace

class TestEditorEndToEnd : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void openFiveMergeSave_equalsTheCommandLine();
    void mergeExposures_byKeyboard_equalsTheCommandLine();
    void mergeExposures_cancelled_leavesTheDocumentsAlone();
    void indicatorClosedByTheWindowManager_waitsForTheWorker();
    void damagedFile_isNamedAndTheOthersOpen();
    void fullDisk_saveFailsThenSucceedsElsewhere();
    void readOnlyFolder_saveFailsThenSucceedsElsewhere();
    void quitWithUnsavedMerge_asksAndCancelKeepsIt();
    void versionWithoutDisplay_isAnswered();

private:
    void mergeBracket();
    void failToSaveIn(const QString &folder);
    void saveElsewhereAndQuit();

    std::unique_ptr<EditorSession> editor;
    std::unique_ptr<TestPictures> pictures;
    QStringList bracket;
    QImage expected;
};

void TestEditorEndToEnd::init()
{
    editor = std::make_unique<EditorSession>();
    const QString problem = editor->startDisplay();
    if (!problem.isEmpty())
        QSKIP(qPrintable(problem));
    pictures = std::make_unique<TestPictures>();
    bracket = pictures->addBracket(5);
    QTemporaryDir other;
    expected = mergedByCommandLine(bracket, other.filePath(QStringLiteral("expected.png")));
    QVERIFY(!expected.isNull());
}

void TestEditorEndToEnd::cleanup()
{
    if (QTest::currentTestFailed())
        qWarning("%s", qPrintable(editor->output()));
    editor.reset();
    pictures.reset();
}

void TestEditorEndToEnd::openFiveMergeSave_equalsTheCommandLine()
{
    const QString start = QStringLiteral("^Vesk$");
    const QString open = QStringLiteral("^Open Pictures");
    QVERIFY(editor->launch({}));
    QVERIFY(editor->press(start, {QStringLiteral("ctrl+o")}));
    QVERIFY(editor->waitForWindow(open));
    QVERIFY(editor->type(open, QLatin1Char('"') + bracket.join(QLatin1String("\" \"")) +
                                   QLatin1Char('"')));
    QVERIFY(editor->press(open, {QStringLiteral("Return")}));
    QVERIFY(editor->waitForWindow(windowOf(bracket.constLast())));

    merge(*editor, windowOf(bracket.constLast()));
    if (QTest::currentTestFailed())
        return;
    const QString result = pictures->path(QStringLiteral("result.png"));
    saveMergedAs(*editor, result);
    if (QTest::currentTestFailed())
        return;
    QVERIFY(editor->waitForWindow(windowOf(result)));
    QCOMPARE(QImage(result).convertToFormat(QImage::Format_RGB32), expected);
    quit(*editor);
}

void TestEditorEndToEnd::mergeExposures_byKeyboard_equalsTheCommandLine()
{
    const QString fused = QStringLiteral("^s[0-9] merged\\* — Vesk$");
    QVERIFY(editor->launch(bracket));
    QVERIFY(editor->waitForWindow(windowOf(bracket.constLast())));
    QVERIFY(editor->press(windowOf(bracket.constLast()), {QStringLiteral("ctrl+m")}));
    QVERIFY(editor->waitForWindow(kWorkspace));
    // Merge is the default button, as soon as the shots are read.
    QVERIFY(QTest::qWaitFor(
        [&] {
            editor->press(kWorkspace, {QStringLiteral("Return")});
            return editor->hasWindow(fused);
        },
        30000));
    QVERIFY(editor->waitUntilGone(kWorkspace));
    QVERIFY(editor->press(fused, {QStringLiteral("ctrl+s")}));
    const QString result = pictures->path(QStringLiteral("result.png"));
    chooseName(*editor, result);
    if (QTest::currentTestFailed())
        return;
    QVERIFY(editor->waitForWindow(windowOf(result)));
    const QImage byCommandLine = mergedByCommandLine(
        bracket, pictures->path(QStringLiteral("expected.png")), QStringLiteral("fusion"));
    QVERIFY(byCommandLine != expected); // that is the mean
    QCOMPARE(QImage(result).convertToFormat(QImage::Format_RGB32), byCommandLine);
    quit(*editor);
}

void TestEditorEndToEnd::mergeExposures_cancelled_leavesTheDocumentsAlone()
{
    QVERIFY(editor->launch(bracket));
    QVERIFY(editor->waitForWindow(windowOf(bracket.constLast())));
    QVERIFY(editor->press(windowOf(bracket.constLast()), {QStringLiteral("ctrl+m")}));
    QVERIFY(editor->waitForWindow(kWorkspace));
    QVERIFY(editor->press(kWorkspace, {QStringLiteral("Escape")}));
    QVERIFY(editor->waitUntilGone(kWorkspace));
    quit(*editor); // nothing is asked: nothing has changed
}

/// The worker is held at the start of its merge until the indicator has been closed in vain.
void TestEditorEndToEnd::indicatorClosedByTheWindowManager_waitsForTheWorker()
{
    QFile hold(pictures->path(QStringLiteral("hold")));
    QVERIFY(hold.open(QIODevice::WriteOnly));
    editor->setVariable(QStringLiteral("OPENCL_LAYERS"), qEnvironmentVariable("VESK_DEVICE_LAYER"));
    editor->setVariable(QStringLiteral("VESK_LAYER_DEVICE_NAME"), QStringLiteral("Named"));
    editor->setVariable(QStringLiteral("VESK_LAYER_HOLD"), hold.fileName());
    QVERIFY(editor->launch(bracket));
    QVERIFY(editor->waitForWindow(windowOf(bracket.constLast())));
    startMerge(*editor, windowOf(bracket.constLast()));
    if (QTest::currentTestFailed())
        return;
    QVERIFY(editor->waitForWindow(kIndicator));
    QVERIFY(editor->askToClose(kIndicator));
    QVERIFY(editor->press(kIndicator, {QStringLiteral("Escape")}));
    const bool isGone =
        QTest::qWaitFor([this] { return !editor->hasWindow(kIndicator); }, kPatienceMs);
    QVERIFY(!isGone);
    QVERIFY(hold.remove());
    QVERIFY(editor->waitUntilGone(kIndicator));
    finishMerge(*editor);
    if (QTest::currentTestFailed())
        return;
    const QString result = pictures->path(QStringLiteral("result.png"));
    saveMergedAs(*editor, result);
    if (QTest::currentTestFailed())
        return;
    QVERIFY(editor->waitForWindow(windowOf(result)));
    QCOMPARE(QImage(result).convertToFormat(QImage::Format_RGB32), expected);
    quit(*editor);
}

void TestEditorEndToEnd::damagedFile_isNamedAndTheOthersOpen()
{
    const QString damaged = pictures->addDamaged(QStringLiteral("half.png"));
    QVERIFY(editor->launch({damaged, bracket.first()}));
    const QString box = QStringLiteral("^Not Opened");
    QVERIFY(editor->waitForWindow(box));
    QVERIFY(editor->hasWindow(windowOf(bracket.first())));
    // It blocks nothing: the next file opens behind it.
    QVERIFY(editor->press(windowOf(bracket.first()), {QStringLiteral("ctrl+w")}));
    QVERIFY(editor->waitForWindow(QStringLiteral("^Vesk$")));
    QVERIFY(editor->hasWindow(box));
    QVERIFY(editor->press(box, {QStringLiteral("Escape")}));
    QVERIFY(editor->waitUntilGone(box));
    quit(*editor);
}

void TestEditorEndToEnd::mergeBracket()
{
    QVERIFY(editor->launch(bracket));
    QVERIFY(editor->waitForWindow(windowOf(bracket.constLast())));
    merge(*editor, windowOf(bracket.constLast()));
}

void TestEditorEndToEnd::failToSaveIn(const QString &folder)
{
    saveMergedAs(*editor, folder + QStringLiteral("/result.png"));
    if (QTest::currentTestFailed())
        return;
    QVERIFY(editor->waitForWindow(kNotSaved));
    QVERIFY(editor->press(kNotSaved, {QStringLiteral("Escape")}));
    QVERIFY(editor->waitUntilGone(kNotSaved));
    QVERIFY(editor->hasWindow(kMerged));
}

void TestEditorEndToEnd::saveElsewhereAndQuit()
{
    const QString result = pictures->path(QStringLiteral("elsewhere.png"));
    saveMergedAs(*editor, result);
    if (QTest::currentTestFailed())
        return;
    QVERIFY(editor->waitForWindow(windowOf(result)));
    QCOMPARE(QImage(result).convertToFormat(QImage::Format_RGB32), expected);
    quit(*editor);
}

void TestEditorEndToEnd::fullDisk_saveFailsThenSucceedsElsewhere()
{
    const SmallDisk disk(QStringLiteral("size=8k"));
    if (!disk.isMounted())
        QSKIP("no disk can be mounted here");
    mergeBracket();
    if (QTest::currentTestFailed())
        return;
    failToSaveIn(disk.path());
    if (QTest::currentTestFailed())
        return;
    QVERIFY(QDir(disk.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    saveElsewhereAndQuit();
}

void TestEditorEndToEnd::readOnlyFolder_saveFailsThenSucceedsElsewhere()
{
    SmallDisk disk(QStringLiteral("size=1m"));
    if (!disk.makeReadOnly())
        QSKIP("no disk can be mounted here");
    mergeBracket();
    if (QTest::currentTestFailed())
        return;
    failToSaveIn(disk.path());
    if (QTest::currentTestFailed())
        return;
    saveElsewhereAndQuit();
}

void TestEditorEndToEnd::quitWithUnsavedMerge_asksAndCancelKeepsIt()
{
    mergeBracket();
    if (QTest::currentTestFailed())
        return;
    QVERIFY(editor->press(kMerged, {QStringLiteral("ctrl+q")}));
    QVERIFY(editor->waitForWindow(kUnsaved));
    QVERIFY(editor->press(kUnsaved, {QStringLiteral("Escape")}));
    QVERIFY(editor->waitUntilGone(kUnsaved));
    QVERIFY(editor->isRunning());

    QVERIFY(editor->press(kMerged, {QStringLiteral("ctrl+q")}));
    QVERIFY(editor->waitForWindow(kUnsaved));
    QVERIFY(editor->press(kUnsaved, {QStringLiteral("Return")})); // Save is the default
    const QString result = pictures->path(QStringLiteral("saved_on_quit.png"));
    chooseName(*editor, result);
    QCOMPARE(editor->exitCode(), 0);
    QCOMPARE(QImage(result).convertToFormat(QImage::Format_RGB32), expected);
}

void TestEditorEndToEnd::versionWithoutDisplay_isAnswered()
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    program.setProcessEnvironment(environment);
    program.start(qEnvironmentVariable("VESK_BIN_DIR") + QStringLiteral("/vesk"),
                  {QStringLiteral("--version")});
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(program.readAllStandardOutput(), QByteArray("vesk 1.0.0\n"));
}

QTEST_GUILESS_MAIN(TestEditorEndToEnd)
#include "tst_editor_end_to_end.moc"
