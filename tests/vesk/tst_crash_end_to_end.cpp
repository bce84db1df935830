// The program killed at work, and two of them at once: real processes, a real window, real files.

#include "EditorSession.h"
#include "TestPictures.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QTest>
#include <QTransform>

#include <functional>
#include <memory>

namespace {

const QString kRecovery = QStringLiteral("^Recovery");
const QString kReplace = QStringLiteral("^Replace the File");
const QString kClean = QStringLiteral("^a.png — Vesk$");
const QString kModified = QStringLiteral("^a.png\\* — Vesk$");

constexpr int kPatienceMs = 30000;

/// A turn to the right, that many times.
QImage turned(const QImage &picture, int times)
{
    return picture.transformed(QTransform().rotate(90.0 * times))
        .convertToFormat(QImage::Format_RGB32);
}

QImage load(const QString &path)
{
    return QImage(path).convertToFormat(QImage::Format_RGB32);
}

} // namespace

class TestCrashEndToEnd : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void killed_afterAnEdit_comesBack();
    void killed_inTheMiddleOfAWrite_comesBackWhole_data();
    void killed_inTheMiddleOfAWrite_comesBackWhole();
    void twoPrograms_takeNothingFromEachOther();
    void twoPrograms_oneDocument_theLaterSaveAsks();

private:
    void writeSettings()
    {
        QVERIFY(QDir().mkpath(editor->dataFolder()));
        QFile file(editor->dataFolder() + QStringLiteral("/config.ini"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[editor]\nrecoverySeconds=1\n");
    }
    QStringList recoveryFiles(const QStringList &patterns) const
    {
        QStringList paths;
        QDirIterator all(editor->dataFolder() + QStringLiteral("/recovery"), patterns,
                         QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (all.hasNext())
            paths.append(all.next());
        return paths;
    }
    QStringList kept() const { return recoveryFiles({QStringLiteral("*.vesk-recovery")}); }
    /// Of a file that is not complete yet, some bytes are on the disk.
    bool isInTheMiddleOfAWrite() const
    {
        for (const QString &each : recoveryFiles({QStringLiteral("*")})) {
            const QFileInfo file(each);
            if (file.suffix() != QLatin1String("vesk-recovery") &&
                file.fileName() != QLatin1String("lock") && file.size() > 0)
                return true;
        }
        return false;
    }
    static bool waitFor(const std::function<bool()> &isSo)
    {
        return QTest::qWaitFor(isSo, kPatienceMs);
    }
    void openAndTurn(QSize size)
    {
        path = pictures->add(QStringLiteral("a.png"), size);
        original = load(path);
        QVERIFY(editor->launch({path}));
        QVERIFY(editor->waitForWindow(kClean));
        QVERIFY(editor->press(kClean, {QStringLiteral("ctrl+r")}));
        QVERIFY(editor->waitForWindow(kModified));
        QVERIFY(waitFor([this] { return !kept().isEmpty(); }));
    }
    void recoverAndSave()
    {
        QVERIFY(editor->launch({}));
        QVERIFY(editor->waitForWindow(kRecovery));
        QVERIFY(editor->press(kRecovery, {QStringLiteral("Return")}));
        QVERIFY(editor->waitForWindow(kModified));
        QVERIFY(editor->press(kModified, {QStringLiteral("ctrl+s")}));
        QVERIFY(editor->waitForWindow(kClean));
    }

    std::unique_ptr<EditorSession> editor;
    std::unique_ptr<TestPictures> pictures;
    QString path;
    QImage original;
};

void TestCrashEndToEnd::init()
{
    editor = std::make_unique<EditorSession>();
    const QString problem = editor->startDisplay();
    if (!problem.isEmpty())
        QSKIP(qPrintable(problem));
    pictures = std::make_unique<TestPictures>();
    writeSettings();
}

void TestCrashEndToEnd::cleanup()
{
    if (QTest::currentTestFailed())
        qWarning("%s", qPrintable(editor->output()));
    editor.reset();
    pictures.reset();
}

void TestCrashEndToEnd::killed_afterAnEdit_comesBack()
{
    openAndTurn({300, 200});
    editor->kill();
    QCOMPARE(load(path), original);
    recoverAndSave();
    QCOMPARE(load(path), turned(original, 1));
    QVERIFY(waitFor([this] { return kept().isEmpty(); }));
    QVERIFY(editor->press(kClean, {QStringLiteral("ctrl+q")}));
    QCOMPARE(editor->exitCode(), 0);
    QVERIFY(editor->launch({path})); // nothing is offered any more
    QVERIFY(editor->waitForWindow(kClean));
    QVERIFY(!editor->hasWindow(kRecovery));
}

void TestCrashEndToEnd::killed_inTheMiddleOfAWrite_comesBackWhole_data()
{
    QTest::addColumn<int>("laterMs");
    QTest::newRow("at its first bytes") << 0;
    QTest::newRow("a moment later") << 15;
    QTest::newRow("about its end") << 60;
}

void TestCrashEndToEnd::killed_inTheMiddleOfAWrite_comesBackWhole()
{
    QFETCH(const int, laterMs);
    openAndTurn({4000, 3000});
    QVERIFY(editor->press(kModified, {QStringLiteral("ctrl+r")}));
    QElapsedTimer patience;
    patience.start();
    while (!isInTheMiddleOfAWrite()) // as soon as it is seen: no waiting in between
        QVERIFY(patience.elapsed() < kPatienceMs);
    QTest::qWait(laterMs);
    editor->kill();
    QCOMPARE(kept().size(), 1);
    recoverAndSave();
    const QImage saved = load(path);
    QVERIFY(saved == turned(original, 1) || saved == turned(original, 2));
}

void TestCrashEndToEnd::twoPrograms_takeNothingFromEachOther()
{
    openAndTurn({300, 200});
    EditorSession second;
    second.join(*editor);
    const QString other = pictures->add(QStringLiteral("b.png"));
    QVERIFY(second.launch({other}));
    QVERIFY(second.waitForWindow(QStringLiteral("^b.png — Vesk$")));
    QVERIFY(!second.hasWindow(kRecovery));
    QVERIFY(second.press(QStringLiteral("^b.png — Vesk$"), {QStringLiteral("ctrl+r")}));
    QVERIFY(waitFor([this] { return kept().size() == 2; }));
    editor->kill();
    second.kill();
    QVERIFY(editor->launch({})); // both come back
    QVERIFY(editor->waitForWindow(kRecovery));
    QVERIFY(editor->press(kRecovery, {QStringLiteral("Return")}));
    QVERIFY(editor->waitUntilGone(kRecovery));
    QVERIFY(editor->waitForWindow(kModified)); // open in the first one, so it is in front again
    QVERIFY(editor->press(QStringLiteral("Vesk$"), {QStringLiteral("ctrl+q")}));
    QVERIFY(editor->waitForWindow(QStringLiteral("^Unsaved Changes")));
    QVERIFY(editor->press(QStringLiteral("^Unsaved Changes"), {QStringLiteral("Return")}));
    QCOMPARE(editor->exitCode(), 0);
    QCOMPARE(load(path), turned(original, 1));
    QCOMPARE(load(other).size(), QSize(32, 48));
}

void TestCrashEndToEnd::twoPrograms_oneDocument_theLaterSaveAsks()
{
    openAndTurn({300, 200});
    EditorSession second;
    second.join(*editor);
    QVERIFY(second.launch({path}));
    QVERIFY(second.waitForWindow(kClean));
    QVERIFY(second.press(kClean, {QStringLiteral("ctrl+r"), QStringLiteral("ctrl+r")}));
    QVERIFY(second.waitForWindow(kModified));
    QVERIFY(second.press(kModified, {QStringLiteral("ctrl+s")}));
    QVERIFY(second.waitForWindow(kClean));
    const QImage theirs = load(path);
    QVERIFY(theirs != original);
    QVERIFY(editor->press(kModified, {QStringLiteral("ctrl+s")}));
    QVERIFY(editor->waitForWindow(kReplace));
    QVERIFY(editor->press(kReplace, {QStringLiteral("Escape")}));
    QVERIFY(editor->waitUntilGone(kReplace));
    QCOMPARE(load(path), theirs);
    QVERIFY(editor->hasWindow(kModified));
}

QTEST_GUILESS_MAIN(TestCrashEndToEnd)
#include "tst_crash_end_to_end.moc"
