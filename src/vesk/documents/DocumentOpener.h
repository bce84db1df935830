#pragma once

#include "DocumentLoader.h"

#include <QPointer>
#include <QWidget>

class DocumentArea;

/// Opens files as documents: reads them beside the GUI thread, brings those that are open already
/// to the front, and reports all failures of a batch in one message that blocks nothing.
/// GUI thread.
class DocumentOpener : public QObject
{
    Q_OBJECT

public:
    /// documents and window (for the message) are borrowed.
    DocumentOpener(DocumentArea *documents, QWidget *window);

    /// Files become documents; of folders the last one is shown in the film strip.
    void open(const QStringList &paths);
    const DocumentLoader &loader() const { return reader; }

Q_SIGNALS:
    void folderRequested(const QString &path);
    void opened(const QString &path);
    void failed(const QString &path);
    /// The file holds the light of a scene, of which no document is made.
    void lightOpened(const LoadedPicture &light);
    /// Nothing is being opened any more. paths: what was asked for since it was last so and is open
    /// now, whether it was before or not.
    void finished(const QStringList &paths);

private:
    bool showOpen(const QString &path);
    void take(const LoadedPicture &picture);
    void finish(const QList<LoadedPicture> &failures);

    DocumentArea *documents;
    QPointer<QWidget> window;
    DocumentLoader reader;
    QStringList batch; // asked for and open, since the loader was last idle
};
