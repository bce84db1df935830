#pragma once

#include <QObject>
#include <QPointer>

class DocumentArea;
class EditorUiManager;
class MergeWorkspace;
struct ResultMark;

/// The menu command "Merge Exposures": opens the workspace with what is selected, and the merged
/// picture as a new document beside the others. GUI thread.
class ExposureMergeCommand : public QObject
{
    Q_OBJECT

public:
    /// Both are borrowed.
    ExposureMergeCommand(EditorUiManager *uiManager, DocumentArea *documents,
                         QObject *parent = nullptr);
    ~ExposureMergeCommand() override;

    /// A workspace that is open gets the files that are selected, too.
    void activate();
    /// Null while it is closed.
    MergeWorkspace *workspace() const;

private:
    void open(const QImage &picture, const QString &referencePath, const ResultMark &mark);

    EditorUiManager *uiManager;
    DocumentArea *documents;
    QPointer<MergeWorkspace> shown;
};
