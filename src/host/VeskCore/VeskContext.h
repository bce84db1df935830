#pragma once

#include "veskcore_export.h"

#include <QObject>
#include <QPointer>
#include <QString>

class IVeskTool;
class VeskCanvas;
class VeskLayerManager;
class VeskSelection;

/// One open document: its layers, selection, name and whether it has unsaved changes, with the
/// canvas that shows it and the tool at work on it. GUI thread.
///
/// Owns its layer manager and its selection. Borrows the canvas, which belongs to the editor's
/// window, and the tool, which belongs to the editor; both pointers turn null when their object
/// goes away.
///
/// A tool calls the constructor, getCurrentTool, setCurrentTool, getCanvas, setCanvas,
/// getLayerManager, setSelection, setFileName, isSaveAble and setSaveAble.
class VESKCORE_EXPORT VeskContext : public QObject
{
    Q_OBJECT

public:
    explicit VeskContext(QObject *parent = nullptr);
    ~VeskContext() override;

    /// The tool attached to the document, null for none.
    IVeskTool *getCurrentTool() const;
    /// Attaches tool (borrowed), or detaches with null. Calls no operation of either tool.
    void setCurrentTool(IVeskTool *tool);

    VeskCanvas *getCanvas() const;
    void setCanvas(VeskCanvas *canvas);
    /// Takes canvas off every document that still points at it. The canvas's destructor calls it.
    static void forgetCanvas(const VeskCanvas *canvas);

    /// Never null; lives as long as the context.
    VeskLayerManager *getLayerManager() const;

    /// Null until one is set.
    VeskSelection *getSelection() const;
    /// Takes ownership of selection (null for none) and deletes the one it held before.
    void setSelection(VeskSelection *selection);

    /// Name shown to the user.
    QString getFileName() const { return fileName; }
    void setFileName(const QString &name);

    /// File that the document was read from or last saved to; empty for an untitled document.
    QString getFilePath() const { return filePath; }
    void setFilePath(const QString &path);

    /// Whether the document has unsaved changes.
    bool isSaveAble() const;
    void setSaveAble(bool saveAble);

Q_SIGNALS:
    void currentToolChanged(IVeskTool *tool);
    void canvasChanged(VeskCanvas *canvas);
    void selectionChanged(VeskSelection *selection);
    void fileNameChanged(const QString &name);
    void saveAbleChanged(bool saveAble);
    /// A layer has come, gone or changed.
    void layersChanged();

private:
    VeskLayerManager *layerManager;
    QPointer<VeskSelection> selection;
    QPointer<IVeskTool> currentTool;
    VeskCanvas *canvas = nullptr;
    QString fileName;
    QString filePath;
    bool saveAble = false;
};
