#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QProcess>
#include <QStringList>

#include <vector>

/// One run of a program that merges, such as veskhdr itself: a damaged picture or a lack of memory
/// ends that process and no other, and its memory is given back. It ends, and cleans up, when the
/// process that started it ends. Use it from one thread, with an event loop.
class MergeProcess : public QObject
{
    Q_OBJECT

public:
    /// How it ended.
    struct End
    {
        int exitCode = -1; ///< -1: by a signal, or it could not be started
        int signal = 0;    ///< 0: by none
        QByteArray output; ///< standard output
        QByteArray errors; ///< standard error, without what it says of its progress
        qint64 milliseconds = 0;
    };

    /// words: with file names as file_names has them. threads: see VESKHDR_THREADS.
    MergeProcess(const QString &program, const QStringList &words, int threads,
                 QObject *parent = nullptr);
    ~MergeProcess() override;

    void start();
    /// Asks it to end soon. ended() is told as ever.
    void stop() { process.terminate(); }

Q_SIGNALS:
    /// 0..1 of the whole, as often as the program tells it; see VESKHDR_PROGRESS.
    void progressed(double fraction);
    /// Once for each start.
    void ended(const MergeProcess::End &end);

private:
    void setUpChild() const;
    void readErrors();
    void takeErrorLine(const QByteArray &line);
    void tellEnd(int exitCode, QProcess::ExitStatus status);

    QProcess process;
    // Made before the fork. QProcess knows no names that are not UTF-8.
    std::vector<QByteArray> words;
    std::vector<QByteArray> variables;
    std::vector<char *> argumentList;
    std::vector<char *> environment;
    const qint64 starter;
    QByteArray errors;
    QElapsedTimer timer;
};
