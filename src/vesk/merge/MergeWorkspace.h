#pragma once

#include "FullMerge.h"
#include "MergePreviewer.h"
#include "MergeShotLoader.h"
#include "SharpMerge.h"

#include <ResultMark.h>

#include <QDialog>
#include <QTimer>

class BrushBar;
class BrushTool;
class MergeOptionsPanel;
class PreviewBar;
class QLabel;
class QProgressBar;
class QPushButton;
class ShotList;

/// The window in which a bracket becomes a picture: its shots, a preview that follows every option,
/// and the merge at full size. GUI thread.
class MergeWorkspace : public QDialog
{
    Q_OBJECT

public:
    /// folder: where the dialog that adds shots starts.
    MergeWorkspace(const QStringList &paths, const QString &folder, QWidget *parent = nullptr);
    ~MergeWorkspace() override;

    void addShots(const QStringList &paths);
    /// Another set; the options stay. Not while it merges.
    void replaceShots(const QStringList &paths);
    /// References are places among the shots that are here now.
    void setSettings(const MergeSettings &settings);
    /// Which bracket of the folder this is, from 1, and of how many; 0 for none.
    void setBracketPlace(int place, int count);
    bool isMerging() const { return full.isRunning(); }

    /// While the merge runs, only that is cancelled.
    void reject() override;

Q_SIGNALS:
    /// Wants replaceShots.
    void nextBracketWanted();
    /// referencePath: the shot whose metadata belong to the picture.
    void merged(const MergeResult &result, const QString &referencePath, const ResultMark &mark);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *makeShotColumn();
    QWidget *makePreviewColumn();
    QWidget *makeOptionColumn();
    void connectParts();
    void connectPreview();

    void chooseShots();
    void onSetChanged();
    void requestPreview();
    void showPreview(const MergePreviewResult &result);
    void showUnaligned(const MergePreviewResult &result);
    void placeBrush(const MergePreviewResult &result);
    void placeBrushOnSharp();
    void updateBrush();
    void showWhyThereIsNone(const QString &why);
    void showNotes(const QStringList &sentences);
    QString whyNoPreview(const QList<MergeShot> &shots) const;
    MergeSettings settings() const;
    void startMerge();
    void showProgress(const QString &what, double done);
    void finish(const MergeResult &result);
    void showMerging(bool isUnderWay);
    void showBefore(bool isBefore);
    void provideBefore();
    void askForShots();
    void chooseLook();
    void updateSharp();
    void onSharpReady(const SharpPicture &picture);
    bool hasRoomAhead() const;
    void showState();
    QStringList pathsOn() const;
    QStringList namesOn() const;
    QList<QImage> smallOn() const;
    void updateButtons();

    QString folder;
    ShotList *shots;
    MergePreview *preview;
    PreviewBar *bar;
    BrushBar *brushBar;
    BrushTool *brush;
    MergeOptionsPanel *options;
    QLabel *notes;
    QLabel *state;
    QProgressBar *progress;
    QPushButton *add;
    QPushButton *nextBracket;
    QPushButton *reference;
    QPushButton *mergeButton;
    QPushButton *closeButton;
    QTimer delay; // folds bursts of changes into one preview
    MergeShotLoader loader;
    MergePreviewer previewer;
    SharpMerge sharp;
    FullMerge full{sharp};
    QImage previewed; // without its look
    QString alignedText;
    QStringList underWay; // paths of the merge that runs
    MergeSettings asked;  // of the merge that runs
};
