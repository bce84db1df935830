#include "ProgramRun.h"

#include <QtTest>

class TestCommands : public QObject
{
    Q_OBJECT

private slots:
    void help_ofTheProgram_listsTheCommands()
    {
        const ProgramRun help = runProgramIn({}, {"--help"});
        QCOMPARE(help.exitCode, 0);
        QCOMPARE(help.errors, QByteArray());
        QVERIFY(help.output.contains("\n  merge "));
    }

    void help_ofACommand_listsOptionsAndExitCodes()
    {
        const ProgramRun help = runProgramIn({}, {"merge", "--help"});
        QCOMPARE(help.exitCode, 0);
        for (const char *word : {"--output", "--no-align", "--keep-order", "--crop", "--quality",
                                 "--force", "--json", "--verbose", "\n  73  "})
            QVERIFY2(help.output.contains(word), word);
    }

    void help_afterDoubleDash_isAFileName()
    {
        const ProgramRun run = runProgramIn({}, {"merge", "-o", "out.png", "--", "--help"});
        QCOMPARE(run.exitCode, 64);
        QVERIFY(run.errors.startsWith("veskhdr: --help: "));
    }

    void version_isPrinted()
    {
        const ProgramRun version = runProgramIn({}, {"--version"});
        QCOMPARE(version.exitCode, 0);
        QCOMPARE(version.output, QByteArray("veskhdr " VESK_VERSION "\n"));
    }

    void helpAndVersion_haveShortForms()
    {
        const QByteArray help = runProgramIn({}, {"--help"}).output;
        QCOMPARE(runProgramIn({}, {"-h"}).output, help);
        QCOMPARE(runProgramIn({}, {"help"}).output, help);
        QCOMPARE(runProgramIn({}, {"help", "merge"}).output,
                 runProgramIn({}, {"merge", "--help"}).output);
        QCOMPARE(runProgramIn({}, {"help", "melt"}).exitCode, 64);
        QCOMPARE(runProgramIn({}, {"-v"}).output, runProgramIn({}, {"--version"}).output);
    }

    void standardOutput_full_isAnError_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("help") << QStringList{"--help"};
        QTest::newRow("version") << QStringList{"--version"};
        QTest::newRow("devices") << QStringList{"devices", "--json"};
    }

    void standardOutput_full_isAnError()
    {
        QFETCH(const QStringList, arguments);
        for (const bool isClosed : {false, true}) {
            Program program;
            program.isOutputFull = !isClosed;
            program.isOutputClosed = isClosed;
            const ProgramRun run = program.run(arguments);
            QCOMPARE(run.exitCode, 74);
            QVERIFY2(run.errors.startsWith("veskhdr: standard output cannot be written: "),
                     run.errors);
        }
    }

    void noCommand_isAnError()
    {
        const ProgramRun run = runProgramIn({}, {});
        QCOMPARE(run.exitCode, 64);
        QCOMPARE(linesOf(run.errors).size(), 1);
        QCOMPARE(run.output, QByteArray());
    }

    void unknownCommand_isNamed()
    {
        const ProgramRun run = runProgramIn({}, {"melt"});
        QCOMPARE(run.exitCode, 64);
        QVERIFY(run.errors.startsWith("veskhdr: melt: "));
    }

    void noDisplay_isNeeded()
    {
        Program program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(name);
        program.setProcessEnvironment(environment);
        QCOMPARE(program.run({"--version"}).exitCode, 0);
    }
};

QTEST_GUILESS_MAIN(TestCommands)
#include "tst_veskhdr_commands.moc"
