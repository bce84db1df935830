#include "ConverterAnswer.h"
#include "dng_writer.h"

#include <VeskRaw.h>

#include <QtTest>

#include <csignal>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int kWidth = 3;
constexpr int kHeight = 2;

QByteArray answer(qint32 width = kWidth, qint32 height = kHeight, quint32 failure = 0)
{
    ConverterAnswer header;
    header.width = width;
    header.height = height;
    header.failure = failure;
    return QByteArray(reinterpret_cast<const char *>(&header), sizeof header);
}

/// Of the picture that answer() announces: all white.
QByteArray rows()
{
    return QByteArray(4 * kWidth * kHeight, '\xff');
}

bool isRunning(qint64 pid)
{
    return ::kill(pid_t(pid), 0) == 0;
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kIsSanitized = true;
#else
constexpr bool kIsSanitized = false;
#endif

} // namespace

Q_DECLARE_METATYPE(VeskRaw::Failure)

/// The ways in which the program that converts can end. Shell scripts take its place; they find in
/// $answer, $rows and $pid files to read and write.
class TestConverterProcess : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(folder->isValid());
        write(QStringLiteral("answer"), answer());
        write(QStringLiteral("rows"), rows());
    }

    void cleanup()
    {
        VeskRaw::setConverterProgram(QString());
        VeskRaw::setTimeLimit(VeskRaw::kDefaultTimeLimitSeconds);
        VeskRaw::setMemoryLimit(0);
        VeskRaw::setPixelLimit(VeskRaw::kDefaultPixelLimit);
    }

    void wholeAnswer_isThePicture()
    {
        useScript("cat $answer $rows");
        const VeskRaw::Conversion conversion = VeskRaw::convert("any");
        QCOMPARE(conversion.failure, VeskRaw::Failure::None);
        QVERIFY(conversion.error.isEmpty());
        QImage white(kWidth, kHeight, QImage::Format_RGB32);
        white.fill(Qt::white);
        QCOMPARE(conversion.picture, white);
    }

    void program_thatEnds_isATypedFailure_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<VeskRaw::Failure>("failure");
        const auto row = [](const char *name, const QByteArray &script,
                            VeskRaw::Failure failure = VeskRaw::Failure::Ended) {
            QTest::newRow(name) << script << failure;
        };
        row("aborts", "kill -ABRT $$");
        row("is killed", "kill -KILL $$");
        row("crashes", "kill -SEGV $$");
        row("exits in silence", "exit 0");
        row("exits with an error", "exit 3");
        row("cannot be loaded", "exit 127", VeskRaw::Failure::CannotStart);
        row("gives half an answer", "head -c 7 $answer");
        row("gives rubbish", "head -c 100000 /dev/zero");
        row("gives rubbish for ever", "cat /dev/zero");
        row("gives half a picture", "cat $answer; head -c 13 $rows");
        row("is killed in the picture", "cat $answer; head -c 13 $rows; kill -KILL $$");
        row("gives more than a picture", "cat $answer $rows $rows");
        row("fails behind the picture", "cat $answer $rows; exit 3");
        row("is killed behind the picture", "cat $answer $rows; kill -KILL $$");
    }
    void program_thatEnds_isATypedFailure()
    {
        QFETCH(const QByteArray, script);
        QFETCH(const VeskRaw::Failure, failure);
        useScript(script);
        const VeskRaw::Conversion conversion = VeskRaw::convert("any");
        QCOMPARE(conversion.failure, failure);
        QVERIFY(conversion.picture.isNull());
        QVERIFY(!conversion.error.isEmpty());
    }

    void answer_thatMakesNoSense_isAFailure_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("no columns") << answer(0, 1);
        QTest::newRow("negative height") << answer(1, -1);
        QTest::newRow("far more pixels than allowed") << answer(1 << 30, 1 << 30);
        QTest::newRow("unknown failure") << answer(0, 0, 1000);
        QByteArray other = answer();
        other[0] = char(other[0] + 1);
        QTest::newRow("of another version") << other;
    }
    void answer_thatMakesNoSense_isAFailure()
    {
        QFETCH(const QByteArray, bytes);
        write(QStringLiteral("answer"), bytes);
        useScript("cat $answer; exec cat /dev/zero");
        const VeskRaw::Conversion conversion = VeskRaw::convert("any");
        QCOMPARE(conversion.failure, VeskRaw::Failure::Ended);
        QVERIFY(conversion.picture.isNull());
    }

    void failureOfTheProgram_isHandedOn_data()
    {
        QTest::addColumn<VeskRaw::Failure>("failure");
        QTest::newRow("no raw file") << VeskRaw::Failure::NotRaw;
        QTest::newRow("unreadable") << VeskRaw::Failure::Unreadable;
        QTest::newRow("damaged") << VeskRaw::Failure::Damaged;
        QTest::newRow("too large") << VeskRaw::Failure::TooLarge;
        QTest::newRow("memory") << VeskRaw::Failure::NoMemory;
        QTest::newRow("library") << VeskRaw::Failure::Library;
    }
    void failureOfTheProgram_isHandedOn()
    {
        QFETCH(const VeskRaw::Failure, failure);
        write(QStringLiteral("answer"), answer(0, 0, quint32(failure)));
        useScript("cat $answer");
        const VeskRaw::Conversion conversion = VeskRaw::convert("any");
        QCOMPARE(conversion.failure, failure);
        QVERIFY(!conversion.error.isEmpty());
        VeskRaw::getInstance()->activate("any", nullptr, false);
        QCOMPARE(VeskRaw::getInstance()->grabConvertedPicture(), nullptr);
        QCOMPARE(VeskRaw::getInstance()->lastFailure(), failure);
        QCOMPARE(VeskRaw::getInstance()->lastError(), conversion.error);
    }

    void program_thatCannotBeStarted_isSaidSo_data()
    {
        QTest::addColumn<QString>("program");
        QTest::newRow("missing") << "missing";
        QTest::newRow("folder") << ".";
        QTest::newRow("no program") << "answer";
    }
    void program_thatCannotBeStarted_isSaidSo()
    {
        QFETCH(const QString, program);
        VeskRaw::setConverterProgram(path(program));
        const VeskRaw::Conversion conversion = VeskRaw::convert("any");
        QCOMPARE(conversion.failure, VeskRaw::Failure::CannotStart);
        QVERIFY(!conversion.error.isEmpty());
    }

    void program_thatTakesTooLong_isEnded_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::newRow("before the answer") << QByteArray("exec sleep 1000");
        QTest::newRow("within the picture") << QByteArray("cat $answer; exec sleep 1000");
        QTest::newRow("behind the picture") << QByteArray("cat $answer $rows; exec sleep 1000");
        QTest::newRow("without output") << QByteArray("exec >&-; exec sleep 1000");
        QTest::newRow("behind its output")
            << QByteArray("cat $answer $rows; exec >&-; exec sleep 1000");
    }
    void program_thatTakesTooLong_isEnded()
    {
        QFETCH(const QByteArray, script);
        VeskRaw::setTimeLimit(1);
        useScript("echo $$ > $pid; " + script);
        QCOMPARE(VeskRaw::convert("any").failure, VeskRaw::Failure::TimedOut);
        QVERIFY(!isRunning(writtenPid()));
    }

    void cancel_endsTheProgramAtOnce()
    {
        useScript("echo $$ > $pid.new; mv $pid.new $pid; exec sleep 1000");
        std::atomic<bool> cancelled{false};
        std::thread user([&] {
            while (!QFile::exists(path("pid")))
                std::this_thread::yield();
            cancelled = true;
        });
        const VeskRaw::Conversion conversion = VeskRaw::convert("any", false, &cancelled);
        user.join();
        QCOMPARE(conversion.failure, VeskRaw::Failure::Cancelled);
        QVERIFY(!isRunning(writtenPid()));
    }

    void cancelledBeforehand_startsNoProgram()
    {
        useScript("echo $$ > $pid");
        const std::atomic<bool> cancelled{true};
        QCOMPARE(VeskRaw::convert("any", false, &cancelled).failure, VeskRaw::Failure::Cancelled);
        QVERIFY(!QFile::exists(path("pid")));
    }

    void hostThatTakesTheStatusOfItsChildren_getsThePicture()
    {
        const auto before = std::signal(SIGCHLD, SIG_IGN);
        const VeskRaw::Conversion conversion = VeskRaw::convert(rawFile({}));
        std::signal(SIGCHLD, before);
        QCOMPARE(conversion.failure, VeskRaw::Failure::None);
        QCOMPARE(conversion.picture.size(), QSize(64, 48));
    }

    void hostWithoutStandardInputAndOutput_getsThePicture()
    {
        const QString file = rawFile({});
        const int input = ::dup(STDIN_FILENO);
        const int output = ::dup(STDOUT_FILENO);
        ::close(STDIN_FILENO);
        ::close(STDOUT_FILENO);
        const VeskRaw::Conversion conversion = VeskRaw::convert(file);
        if (input >= 0)
            ::dup2(input, STDIN_FILENO);
        ::dup2(output, STDOUT_FILENO);
        ::close(input);
        ::close(output);
        QCOMPARE(conversion.failure, VeskRaw::Failure::None);
    }

    /// LibRaw's own threads throw where nobody catches when memory is short.
    void anyShortageOfMemory_isSaidSo()
    {
        if (kIsSanitized)
            QSKIP("a sanitizer's address space cannot be capped");
        DngRecipe recipe;
        recipe.width = 1500;
        recipe.height = 1000;
        const QString file = rawFile(recipe);
        constexpr qint64 kMegabyte = 1024 * 1024;
        int refused = 0;
        for (qint64 cap = 4; cap <= 4096; cap += cap < 256 ? 4 : 256) {
            VeskRaw::setMemoryLimit(cap * kMegabyte);
            const VeskRaw::Conversion conversion = VeskRaw::convert(file);
            if (conversion.failure == VeskRaw::Failure::None)
                break;
            QVERIFY2(conversion.failure == VeskRaw::Failure::NoMemory,
                     qPrintable(QStringLiteral("%1 MB: %2").arg(cap).arg(conversion.error)));
            ++refused;
        }
        QVERIFY(refused > 3);
        QVERIFY(!VeskRaw::convert(file).picture.isNull());
    }

    void noFilesAndProcesses_areLeft()
    {
        const auto openFiles = [] { return QDir("/proc/self/fd").entryList().size(); };
        if (!QFile::exists("/proc/self/fd"))
            QSKIP("this system does not list open files");
        useScript("cat $answer $rows; kill -KILL $$");
        VeskRaw::convert("any");
        const auto before = openFiles();
        for (int i = 0; i < 20; ++i)
            VeskRaw::convert("any");
        QCOMPARE(openFiles(), before);
        QCOMPARE(::waitpid(-1, nullptr, WNOHANG), pid_t(-1)); // no child at all
    }

private:
    QString path(const QString &name) const { return folder->filePath(name); }

    void write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(name));
    }

    QString rawFile(const DngRecipe &recipe) const
    {
        write(QStringLiteral("a.dng"), dngFile(recipe));
        return path(QStringLiteral("a.dng"));
    }

    void useScript(const QByteArray &script) const
    {
        QByteArray text = "#!/bin/sh\n";
        for (const char *name : {"answer", "rows", "pid"})
            text += QByteArray(name) + "='" + QFile::encodeName(path(name)) + "'\n";
        write(QStringLiteral("script"), text + script + '\n');
        QFile::setPermissions(path("script"), QFile::ReadOwner | QFile::ExeOwner);
        VeskRaw::setConverterProgram(path("script"));
    }

    qint64 writtenPid() const
    {
        QFile file(path("pid"));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("the program has not run");
        return file.readAll().trimmed().toLongLong();
    }

    std::unique_ptr<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(TestConverterProcess)
#include "tst_ConverterProcess.moc"
