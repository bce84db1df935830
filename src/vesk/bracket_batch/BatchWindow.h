#pragma once

#include "BracketBatch.h"

#include <FolderSurvey.h>

#include <QDialog>

class BracketTable;
class MergeOptionsPanel;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QToolButton;

/// The window that merges the brackets of a folder into another one. It remembers folders and
/// options. GUI thread.
class BatchWindow : public QDialog
{
    Q_OBJECT

public:
    /// folder: to begin with.
    explicit BatchWindow(const QString &folder, QWidget *parent = nullptr);
    ~BatchWindow() override;

    /// While it runs, only the batch is stopped.
    void reject() override;

private:
    void fillFolders();
    QWidget *makeOptions();
    QWidget *makeTable();
    QWidget *makeButtons();
    void connectParts();
    void search();
    void startOrPause();
    void take(int bracket, BracketBatch::State state, const QString &text);
    void showState();
    QString stateText(int count) const;
    void showReport();
    QString inputFolder() const;
    BatchChoices choices() const;

    QWidget *folders;
    QLineEdit *input;
    QLineEdit *output;
    BracketTable *table;
    MergeOptionsPanel *options;
    QComboBox *format;
    QProgressBar *progress;
    QLabel *said;
    QToolButton *searchButton;
    QPushButton *startButton;
    QPushButton *stopButton;
    QPushButton *openButton;
    QPushButton *closeButton;
    FolderSurvey survey;
    BracketBatch batch;
    bool isSearching = false;
};
