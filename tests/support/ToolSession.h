#pragma once

#include <VeskToolHDR.h>

#include <IVeskUIManager.h>

#include <QImage>
#include <QPointer>
#include <QPushButton>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <memory>

class VeskCanvas;
class VeskFilterContainer;
class VeskToolHDRWidget;

/// The editor's side of a tool: answers from its fields and remembers what it was asked.
class FakeUIManager : public IVeskUIManager
{
public:
    QList<QString> selectedFiles() const override;
    QString currentDir() const override;
    void discardChanges() override;

    QList<QString> selected;
    QString directory;
    /// Told "selectedFiles", "currentDir" and "discardChanges".
    std::function<void(const QString &)> asked;
};

/// A tool in a small editor with one open document, and a folder for the pictures of a test. Takes
/// all of it down again. GUI thread.
class ToolSession
{
public:
    ToolSession();
    ~ToolSession();

    /// Writes a picture and returns its path. A seed gives its texture.
    QString writePicture(const QString &name, QSize size = {24, 16}, quint32 seed = 1) const;
    /// Names a.bmp, b.bmp, ... with seeds 1, 2, ...
    QStringList writePictures(int count, QSize size = {24, 16}) const;
    QString path(const QString &name) const;

    VeskToolHDRWidget *panel() const;
    VeskFilterContainer *frame() const;
    QPushButton *button(const char *name) const;

    std::unique_ptr<VeskToolHDR> tool;
    FakeUIManager uiManager;
    /// The open document, current at first, and its canvas.
    QPointer<VeskContext> document;
    std::unique_ptr<VeskCanvas> canvas;

private:
    QTemporaryDir folder;
    QPointer<VeskFilterContainer> toolFrame;
};
