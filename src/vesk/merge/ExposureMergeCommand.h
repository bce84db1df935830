#pragma once

#include "MergeSettings.h"

#include <ResultMark.h>

#include <QObject>
#include <QPointer>

#include <optional>

class DocumentArea;
class EditorUiManager;
class FilmStrip;
class MergeWorkspace;
struct MergeResult;

/// The menu command "Merge Exposures": opens the workspace with what is selected, or with what the
/// selected picture was merged from, and the merged picture as a new document beside the others.
/// GUI thread.
class ExposureMergeCommand : public QObject
{
    Q_OBJECT

public:
    /// All are borrowed.
    ExposureMergeCommand(EditorUiManager *uiManager, DocumentArea *documents, FilmStrip *filmStrip,
                         QObject *parent = nullptr);
    ~ExposureMergeCommand() override;

    /// A workspace that is open gets the files that are selected, too.
    void activate();
    /// A workspace that is open gets the files that are selected in place of its own.
    void activateAnew();
    /// The same with these files, whatever is selected.
    void activateWith(const QStringList &paths);
    /// Null while it is closed.
    MergeWorkspace *workspace() const;

Q_SIGNALS:
    /// What was merged is the light of a scene, of which no document is made.
    void lightMerged(const QImage &light, const QString &referencePath, const ResultMark &mark);

private:
    /// A merged picture's shots and how it was made.
    struct Origin
    {
        QStringList paths;
        ResultMark mark;
    };

    std::optional<Origin> originOfSelected() const;
    static MergeSettings settingsOf(const Origin &origin);
    void show();
    void showNextBracket();
    void showBracketPlace();
    void open(const MergeResult &result, const QString &referencePath, const ResultMark &mark);

    EditorUiManager *uiManager;
    DocumentArea *documents;
    FilmStrip *filmStrip;
    QPointer<MergeWorkspace> shown;
};
