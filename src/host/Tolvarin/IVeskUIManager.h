#pragma once

#include "tolvarin_export.h"

#include <QList>
#include <QString>

class QWidget;

/// What the editor's user interface offers to a tool. The editor implements it, owns it and keeps
/// it alive longer than its tools. GUI thread only. No operation may throw.
///
/// A tool calls selectedFiles, currentDir and discardChanges, all of them virtual.
///
/// The order of the virtual operations is part of the binary interface.
class TOLVARIN_EXPORT IVeskUIManager
{
public:
    virtual ~IVeskUIManager();

    /// Paths of the files that the user has selected in the editor, to be taken over by the tool
    /// on activation; may be empty.
    virtual QList<QString> selectedFiles() const = 0;
    /// The editor's window, to put dialogs over; null by default. Borrowed.
    virtual QWidget *mainWindow() const;
    /// Directory in which a file dialog should start.
    virtual QString currentDir() const = 0;
    /// Shows text in the editor's status line for that many milliseconds (0: until the next one).
    /// Does nothing by default.
    virtual void showStatusMessage(const QString &text, int milliseconds);
    /// Drops the unsaved state of the current document, as the user has agreed to lose it.
    virtual void discardChanges() = 0;
};
