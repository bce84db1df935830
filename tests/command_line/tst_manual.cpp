#include "ProgramRun.h"

#include <QFile>
#include <QRegularExpression>
#include <QtTest>

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Options that the help of a command lists, such as "--crop".
QStringList optionsOf(const QString &command)
{
    QStringList options;
    const QRegularExpression option(QStringLiteral("--[a-z][a-z-]*"));
    const QString help = QString::fromUtf8(runProgramIn({}, {command, "--help"}).output);
    for (auto match = option.globalMatch(help); match.hasNext();)
        options += match.next().captured();
    options.removeDuplicates();
    return options;
}

} // namespace

/// The manual page and the completions keep up with the program.
class TestManual : public QObject
{
    Q_OBJECT

private slots:
    void everyOption_standsInTheManualAndTheCompletions_data();
    void everyOption_standsInTheManualAndTheCompletions();
    void everyExitCode_standsInTheManual_data();
    void everyExitCode_standsInTheManual();
};

void TestManual::everyOption_standsInTheManualAndTheCompletions_data()
{
    QTest::addColumn<QString>("command");
    for (const char *command :
         {"merge", "align", "develop", "devices", "group", "batch", "inspect"})
        QTest::newRow(command) << command;
}

void TestManual::everyOption_standsInTheManualAndTheCompletions()
{
    QFETCH(const QString, command);
    const QByteArray manual =
        contentOf(QStringLiteral(SOURCE_FOLDER "/docs/man/veskhdr.1")).replace("\\-", "-");
    const QByteArray bash = contentOf(QStringLiteral(SOURCE_FOLDER "/completions/veskhdr"));
    const QByteArray zsh = contentOf(QStringLiteral(SOURCE_FOLDER "/completions/_veskhdr"));
    const QByteArray fish = contentOf(QStringLiteral(SOURCE_FOLDER "/completions/veskhdr.fish"));
    const QStringList options = optionsOf(command);
    QVERIFY(options.size() >= 2);
    for (const QString &option : options) {
        const QByteArray name = option.toLatin1();
        QVERIFY2(manual.contains(name), name + " in the manual");
        QVERIFY2(bash.contains(name), name + " in bash");
        QVERIFY2(zsh.contains(name), name + " in zsh");
        QVERIFY2(fish.contains("-l " + name.mid(2)), name + " in fish");
    }
}

void TestManual::everyExitCode_standsInTheManual_data()
{
    everyOption_standsInTheManualAndTheCompletions_data();
}

void TestManual::everyExitCode_standsInTheManual()
{
    QFETCH(const QString, command);
    const QByteArray manual = contentOf(QStringLiteral(SOURCE_FOLDER "/docs/man/veskhdr.1"));
    const QString help = QString::fromUtf8(runProgramIn({}, {command, "--help"}).output);
    const QRegularExpression code(QStringLiteral("\n +(\\d+)  "));
    int codes = 0;
    for (auto match = code.globalMatch(help); match.hasNext(); ++codes) {
        const QByteArray number = match.next().captured(1).toLatin1();
        QVERIFY2(manual.contains("\n.B " + number + '\n'), number);
    }
    QVERIFY(codes > 2);
}

QTEST_GUILESS_MAIN(TestManual)
#include "tst_manual.moc"
