#pragma once

#include "MergeSettings.h"

#include <QObject>
#include <QThreadPool>

#include <atomic>
#include <memory>

/// What a merge of small pictures gives.
struct MergePreviewResult
{
    QImage picture; ///< in the screen's colours; null on error
    exposure::Report report;
    exposure::Error error = exposure::Error::None;
};

/// Merges small pictures beside the GUI thread for the preview. A new request ends the one under
/// way; only the last one is answered. What the merge gave before the look was applied is kept, so
/// that a change of the look alone takes a moment. GUI thread.
class MergePreviewer : public QObject
{
    Q_OBJECT

public:
    explicit MergePreviewer(QObject *parent = nullptr);
    ~MergePreviewer() override;

    /// shots: as the fusion reads them, of one size, in merge order.
    void request(const QList<QImage> &shots, const MergeSettings &settings);
    /// Drops what is under way.
    void cancel();

Q_SIGNALS:
    void ready(const MergePreviewResult &result);

private:
    struct Request
    {
        QList<QImage> shots;
        MergeSettings settings;
        std::shared_ptr<std::atomic<bool>> cancelled;
    };

    /// Of the worker alone: the last merge without its look.
    struct Kept
    {
        QList<qint64> shots; ///< their cache keys
        MergeSettings settings;
        exposure::Outcome outcome;
    };

    MergePreviewResult answer(const Request &request);
    const exposure::Outcome &mergedWithoutLook(const Request &request);

    QThreadPool worker; // one thread
    std::shared_ptr<std::atomic<bool>> current;
    Kept kept;
};
