#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

class VeskContext;
struct SaveTarget;

/// Brings documents into files, and asks before unsaved changes are lost. It never destroys a file:
/// the old one stays until the new one is complete. Problems are shown to the user, and the
/// document stays modified. GUI thread.
class DocumentSaver : public QObject
{
    Q_OBJECT

public:
    /// window: where dialogs appear.
    explicit DocumentSaver(QWidget *window);

    /// Saves to the document's own file, or asks for one when there is none that can be written.
    /// Asks before what another program wrote there meanwhile, or a gain map, is lost.
    /// Returns whether the document is saved now.
    bool save(VeskContext *document);
    bool saveAs(VeskContext *document);
    /// Asks what to do with unsaved changes, and does it. False when the document must stay open.
    bool settleUnsavedChanges(VeskContext *document);
    /// The same for several at once, in one question: save all, discard all, or cancel.
    bool settleUnsavedChanges(const QList<VeskContext *> &documents);

    /// Where Save As starts for a document without a file.
    void setFolder(const QString &path) { folder = path; }

Q_SIGNALS:
    void saved(const QString &path);

private:
    enum class Outcome { Saved, Failed, SaveElsewhere };

    Outcome write(VeskContext &document, const SaveTarget &target);
    Outcome agreeToReplace(const VeskContext &document);
    Outcome askToReplace(const QString &text, const QString &consequence);
    bool refuseNothingVisible(const VeskContext &document);
    Outcome reportFailure(const QString &path, const QString &reason);
    QString suggestedPath(const VeskContext &document) const;

    QPointer<QWidget> window;
    QString folder;
};
