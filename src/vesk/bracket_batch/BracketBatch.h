#pragma once

#include <BatchPlan.h>
#include <MergeProcess.h>
#include <MergeSettings.h>
#include <RemainingTime.h>

#include <QElapsedTimer>
#include <QObject>
#include <QThreadPool>

#include <memory>
#include <optional>
#include <vector>

/// How the brackets of a batch are merged, and where to.
struct BatchChoices
{
    QString folder;
    QString suffix = QStringLiteral("jpg");
    int quality = 95;
    MergeSettings settings; ///< without references: each bracket has others

    /// As 'veskhdr merge' takes them.
    QStringList words() const;
};

/// Merges brackets one after the other, each by a process of veskhdr: a damaged picture or a lack
/// of memory ends that one alone. What is done already and unchanged is left alone, so a batch that
/// was stopped, or ended with the editor, goes on where it was. GUI thread; files are read and
/// written beside it.
class BracketBatch : public QObject
{
    Q_OBJECT

public:
    enum class State { Waiting, Merging, Merged, DoneAlready, Failed, Stopped };

    explicit BracketBatch(QObject *parent = nullptr);
    /// Stops, and waits for that.
    ~BracketBatch() override;

    /// Not while it is running.
    void start(const std::vector<Bracket> &brackets, const BatchChoices &choices);
    /// The one under way is merged to its end, the next waits for goOn().
    void pause();
    void goOn();
    /// The one under way leaves nothing behind.
    void stop();
    bool isRunning() const { return running; }
    bool isPaused() const { return paused; }
    /// Milliseconds that the rest takes, judged by what is merged; nothing before that.
    std::optional<qint64> remaining() const;

Q_SIGNALS:
    /// text: why it failed, in words, or empty; result: path of the picture.
    void told(int bracket, BracketBatch::State state, const QString &text, const QString &result);
    /// 0..1 of the bracket under way.
    void progressed(int bracket, double fraction);
    void finished();

private:
    void plan(const std::vector<Bracket> &brackets);
    void next();
    bool settle(const BatchJob &job);
    void merge(const BatchJob &job);
    void takeEnd(const MergeProcess::End &end);
    void record(const BatchJob &job, qint64 milliseconds);
    void takeProgress(double fraction);
    void tell(State state, const QString &text = {});
    void end();

    BatchChoices choices;
    std::vector<BatchJob> jobs;
    size_t current = 0;
    bool running = false;
    bool paused = false;
    bool stopping = false;
    std::unique_ptr<MergeProcess> process;
    RemainingTime rest;  // in shots, less what is done of the bracket under way
    double fraction = 0; // done of it
    qint64 spent = 0;    // milliseconds that the others took
    QElapsedTimer timer; // of it
    QThreadPool files;   // one thread
};
