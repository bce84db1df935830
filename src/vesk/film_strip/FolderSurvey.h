#pragma once

#include "PictureFolder.h"

#include <ResultMark.h>
#include <Shot.h>

#include <QHash>
#include <QStringList>
#include <QThreadPool>

#include <atomic>
#include <memory>
#include <optional>

/// What is known of a picture file beside its pixels.
struct PictureNote
{
    Shot shot;                      ///< as far as the camera told
    std::optional<ResultMark> mark; ///< of what was merged, and is no photograph
    int stars = 0;                  ///< 0..5
    int bracket = -1;               ///< place among the brackets; -1 for none
    std::optional<double> stops;    ///< against the middle of the bracket
};

/// What is known of the pictures of a folder.
struct FolderNotes
{
    QHash<QString, PictureNote> pictures; ///< by path
    QList<QStringList> brackets;          ///< paths in the order taken; the brackets by time
};

namespace survey {

/// Reads the headers of these files of the folder, and finds the brackets among them. Ends soon
/// after cancelled has become true, with something incomplete. Any thread.
FolderNotes of(const QString &folder, const QList<FolderEntry> &files,
               const std::atomic<bool> &cancelled);

} // namespace survey

/// Surveys folders beside the GUI thread, one at a time; a new one ends the one under way.
/// Destroying it waits for that. GUI thread.
class FolderSurvey : public QObject
{
    Q_OBJECT

public:
    explicit FolderSurvey(QObject *parent = nullptr);
    ~FolderSurvey() override;

    void start(const QString &folder, const QList<FolderEntry> &files);
    /// The same of all pictures that are there.
    void startFolder(const QString &folder);

Q_SIGNALS:
    /// Of the last start alone.
    void ready(const FolderNotes &notes);

private:
    void run(const QString &folder, const std::optional<QList<FolderEntry>> &files);

    QThreadPool worker; // one thread
    std::shared_ptr<std::atomic<bool>> current;
};
