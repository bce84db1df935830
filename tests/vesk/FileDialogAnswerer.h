#pragma once

#include <QObject>
#include <QStringList>

class QFileDialog;

/// Answers Qt's own file dialogs, and the question for the JPEG quality, as long as it
/// lives. GUI thread.
class FileDialogAnswerer : public QObject
{
public:
    FileDialogAnswerer();

    /// The answers of the coming file dialogs; one without an answer is cancelled. Several files to
    /// open have "|" between them.
    void answerNextWith(const QString &path) { answers.append(path); }
    QString kind;    ///< beginning of the kind of file to choose; empty leaves it
    int quality = 0; ///< 0 takes what the dialog offers, -1 cancels

    /// What each file dialog offered as name.
    QStringList offered;
    int qualityQuestions = 0;
    QStringList qualityTexts; ///< what the last of these questions said

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void chooseKind(QFileDialog &dialog) const;

    QStringList answers;
};
