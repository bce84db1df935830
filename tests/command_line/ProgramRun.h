#pragma once

#include <QByteArray>
#include <QProcess>
#include <QStringList>

/// How a run of veskhdr ended.
struct ProgramRun
{
    int exitCode = -1; ///< -1 when a signal ended it or it did not end in time
    QByteArray output;
    QByteArray errors;
};

/// The program, with conditions that QProcess has no setters for.
class Program : public QProcess
{
public:
    Program();

    qint64 largestFileBytes = -1;  ///< what the program may write into one file; -1: any number
    qint64 addressSpaceBytes = -1; ///< what the program may map; -1: any number
    int errorTerminal = -1;        ///< terminal to use as standard error; borrowed
    int outputTerminal = -1;       ///< terminal to use as standard output; borrowed
    bool isOutputClosed = false;   ///< standard output is no open file
    bool isOutputFull = false;     ///< nothing more can be written to standard output

    /// Starts it and waits for its end.
    ProgramRun run(const QStringList &arguments);

private:
    void setUpChild() const;
};

/// Runs veskhdr in this folder.
ProgramRun runProgramIn(const QString &folder, const QStringList &arguments);

/// The lines of a text without the line breaks; none when it is empty.
QList<QByteArray> linesOf(const QByteArray &text);
