#pragma once

#include <QObject>
#include <QStringList>

#include <memory>

class DocumentArea;
class QLockFile;
class QWidget;
class RecoveryKeeper;

/// What goes over from one run of the program to the next: which files were open, and documents
/// whose changes were never saved. Of several programs at once, the session is that of the first.
/// GUI thread.
class SessionKeeper : public QObject
{
    Q_OBJECT

public:
    /// Both borrowed. window: where the question appears.
    SessionKeeper(DocumentArea *documents, QWidget *window);
    ~SessionKeeper() override;

    /// Asks whether to bring back what a program that did not end properly has left.
    void offerRecovery();
    /// Files that the program before had open last, and that are still there.
    QStringList lastFiles() const;
    /// Remembers what is open now: all the time, as nobody knows when a program ends.
    void remember();
    /// The program ends as the user wants: what is unsaved is lost on purpose, what was open stays
    /// remembered.
    void end();

Q_SIGNALS:
    /// For the status bar.
    void said(const QString &text);

private:
    DocumentArea *documents;
    QWidget *window;
    std::unique_ptr<QLockFile> lock; // of the program that the session belongs to
    bool isOwner = false;
    const QStringList last;
    std::unique_ptr<RecoveryKeeper> recovery;
    bool isEnding = false;
};
