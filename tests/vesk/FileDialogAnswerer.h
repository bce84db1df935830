#pragma once

#include <QObject>
#include <QStringList>

/// Answers Qt's own file dialogs, and the question for the JPEG quality, as long as it
/// lives. GUI thread.
class FileDialogAnswerer : public QObject
{
public:
    FileDialogAnswerer();

    /// The answers of the coming file dialogs; one without an answer is cancelled.
    void answerNextWith(const QString &path) { answers.append(path); }
    int quality = 0; ///< 0 takes what the dialog offers, -1 cancels

    /// What each file dialog offered as name.
    QStringList offered;
    int qualityQuestions = 0;
    QStringList qualityTexts; ///< what the last of these questions said

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QStringList answers;
};
