#pragma once

#include "veskhdr_export.h"

#include "IVeskInsideTool.h"

#include <QList>
#include <QMap>
#include <QPointer>
#include <QSize>
#include <QString>

#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QImage;
class QWidget;
QT_END_NAMESPACE
class IVeskUIManager;
class VeskContext;
class VeskFilterContainer;
class VeskToolHDRWidget;

/// The "Merge to HDR" tool: its identity, its panel in an editor frame, the set of source pictures,
/// and the merge command that replaces the current document by the merged picture.
///
/// Source set: up to five pictures of one size, ordered by file path. Merging takes them from the
/// set; pictures that are dropped without a merge stay valid until the set is next filled.
/// Owner: the editor's parent object, or whoever created it. The panel, the frame and the
/// translator live as long as the editor; pictures still held are not deleted with the tool.
/// Thread: GUI only. Errors are shown to the user in modal boxes.
class VESKHDR_EXPORT VeskToolHDR : public IVeskInsideTool
{
    Q_OBJECT

public:
    /// What the set holds at most.
    static constexpr int kMaxPictures = 5;

    /// Installs the tool's translation and creates the panel and its frame, hidden.
    explicit VeskToolHDR(QObject *parent = nullptr);
    ~VeskToolHDR() override;

    void disActive() override;
    void init() override;
    void release() override;
    using IVeskInsideTool::active;
    /// Offers to save the context's unsaved work, then shows the panel and takes over the files
    /// that the editor has selected; does neither when the user cancels. Both are borrowed.
    void active(VeskContext *context, IVeskUIManager *manager) override;

    /// Asks whether to save. Returns the QMessageBox::StandardButton that was pressed.
    int haveToSave(VeskContext *context);
    /// Merge on the current OpenCL device (the initial choice) or on the processor.
    void setCuda(bool enabled);
    /// Align the pictures before the merge (the initial choice) or not.
    void setAlignment(bool enabled);
    /// The directory in which file choosers start.
    QString getDir() const;

    /// Decodes a file (raw ones through the editor's converter) and adds it to the set. A file that
    /// the set already holds is replaced. Returns false when it was not added, after telling the
    /// user why; an empty path is no error.
    bool addFile(const QString &path);
    /// Adds one file after another until the set is full. Returns false when it is.
    bool addFiles(const QList<QString> &paths);
    /// Deletes the picture that was added under this path, if any.
    void removeFile(const QString &path);
    /// Drops all pictures. The panel is not refreshed.
    void clear();
    /// The pictures in path order, borrowed.
    QList<QImage *> imageList() const;
    /// The paths in ascending order, as they were added.
    QList<QString> fileList() const;
    /// The files of the merge under way in ascending order; empty while apply does not run. They
    /// are known to the end of apply, when the set is empty already and the new document opens.
    QList<QString> filesInMerge() const { return merging; }
    /// Paths and pictures in path order, borrowed; changes with the set.
    const QMap<QString, QImage *> &sourcePictures() const;

    /// The frame around the panel, made by the constructor: it stays the editor's to delete. Null
    /// once that has happened.
    QWidget *panelFrame() const;

    /// Merges the pictures while a modal indicator keeps the user waiting, empties the set, and
    /// opens the result as a new document in place of the current one. The set must not be
    /// changed meanwhile.
    void apply();

private:
    bool settleUnsavedWork();
    QImage convertRaw(const QString &path);
    std::unique_ptr<QImage> readPicture(const QString &path);
    bool hasCommonSize(const QImage &picture);
    void store(const QString &path, std::unique_ptr<QImage> picture);
    void forget(const QList<QImage *> &pictures);
    bool letPanelAppear();
    void refreshPanel();
    void dropPictures();
    static void alert(const QString &text);

    QSize referenceSize;
    QMap<QString, QImage *> sources;
    QList<QString> merging;
    QPointer<VeskToolHDRWidget> panel;
    QPointer<VeskFilterContainer> frame;
    QObject *parentObject = nullptr;
    IVeskUIManager *uiManager = nullptr;
    bool useOpenCL = true;
    bool useAlignment = true;
    std::vector<std::unique_ptr<QImage>> forgotten;
};
