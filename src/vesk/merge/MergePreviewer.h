#pragma once

#include "MergeSettings.h"

#include <QObject>
#include <QThreadPool>

#include <atomic>
#include <memory>

/// What a merge of small pictures gives.
struct MergePreviewResult
{
    QImage picture;  ///< in the screen's colours; null on error
    QImage clipping; ///< see clipping::marks
    QImage merged;   ///< without its look, and in its own colours
    QImage ghosts;   ///< see exposure::Outcome
    exposure::Report report;
    exposure::Error error = exposure::Error::None;
};

/// Merges small pictures beside the GUI thread for the preview. A new request ends the one under
/// way; only the last one is answered. The aligned shots are kept, and what the merge gave before
/// the look was applied, so that only what a change concerns is done anew; the answers are the same
/// as without that. GUI thread.
class MergePreviewer : public QObject
{
    Q_OBJECT

public:
    explicit MergePreviewer(QObject *parent = nullptr);
    ~MergePreviewer() override;

    /// shots: as the fusion reads them, of one size, in merge order.
    void request(const QList<QImage> &shots, const MergeSettings &settings);
    /// The shots in the screen's colours as the fusion lays them over one another; behind a request
    /// that is under way.
    void requestShots(const QList<QImage> &shots, const MergeSettings &settings);
    /// Drops what is under way.
    void cancel();

Q_SIGNALS:
    void ready(const MergePreviewResult &result);
    void shotsReady(const QList<QImage> &shots);

private:
    struct Request
    {
        QList<QImage> shots;
        MergeSettings settings;
        std::shared_ptr<std::atomic<bool>> cancelled;
    };

    /// The last merge without its look.
    struct Kept
    {
        QList<qint64> shots; ///< their cache keys
        MergeSettings settings;
        exposure::Outcome outcome;
    };

    /// How the last fusion has aligned its shots.
    struct Aligned
    {
        QList<qint64> shots; ///< cache keys of those that it was asked for
        exposure::Alignment alignment = exposure::Alignment::None;
        int chosenReference = exposure::kAutomatic;
        exposure::Report report; ///< without transforms until there was a fusion
        QList<QImage> pictures;  ///< in one space, laid over the reference; empty until needed
    };

    // On the worker's thread, with what only that uses.
    MergePreviewResult answer(const Request &request);
    const exposure::Outcome &mergedWithoutLook(const Request &request);
    exposure::Outcome fused(const Request &request, const exposure::Control &control);
    exposure::Outcome fusedFromAligned(const exposure::Options &options,
                                       const exposure::Control &control);
    void prepare(const Request &request);
    QList<QImage> shotsFor(const Request &request);
    bool isAlignedFor(const Request &request) const;
    bool layOver(const QList<QImage> &shots, const exposure::Control &control);

    Kept kept;
    Aligned aligned;

    QThreadPool worker; // one thread
    std::shared_ptr<std::atomic<bool>> current;
};
