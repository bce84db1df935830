#include "BatchWindow.h"
#include "BracketTable.h"

#include <DropTarget.h>
#include <MergeOptionsPanel.h>
#include <editor_settings.h>

#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <QUrl>

#include <algorithm>

namespace {

constexpr QSize kPreferredSize(980, 640);
constexpr int kOptionWidth = 300;
constexpr int kPerBracket = 100; // of the progress bar
/// In every language, so that a batch goes on after a change of language.
const QString kResults = QStringLiteral("merged");

using State = BracketBatch::State;

QPushButton *button(const QString &text, const char *name)
{
    auto *made = new QPushButton(text);
    made->setObjectName(QLatin1String(name));
    made->setAutoDefault(false);
    return made;
}

/// A line for a folder, and a button that chooses it.
QLayout *folderRow(QLineEdit *line, QPushButton *choose, const QString &title)
{
    QObject::connect(choose, &QPushButton::clicked, line, [line, title] {
        const QString path = QFileDialog::getExistingDirectory(line->window(), title, line->text());
        if (!path.isEmpty())
            line->setText(QDir::toNativeSeparators(path));
    });
    auto *row = new QHBoxLayout;
    row->addWidget(line, 1);
    row->addWidget(choose);
    return row;
}

} // namespace

BatchWindow::BatchWindow(const QString &folder, QWidget *parent)
    : QDialog(parent)
    , folders(new QWidget)
    , input(new QLineEdit(QDir::toNativeSeparators(folder)))
    , output(new QLineEdit(QDir::toNativeSeparators(QDir(folder).filePath(kResults))))
    , table(new BracketTable)
    , options(new MergeOptionsPanel)
    , format(new QComboBox)
    , progress(new QProgressBar)
    , said(new QLabel)
    , searchButton(new QToolButton)
    , startButton(button(tr("&Start"), "startButton"))
    , stopButton(button(tr("Sto&p"), "stopButton"))
    , openButton(button(tr("Show Resu&lts"), "openButton"))
    , closeButton(button(tr("Close"), "closeButton"))
    , batch(this)
{
    setWindowTitle(tr("Merge Brackets"));
    auto *row = new QHBoxLayout;
    row->addWidget(makeTable(), 1);
    row->addWidget(makeOptions());
    auto *column = new QVBoxLayout(this);
    fillFolders();
    column->addWidget(folders);
    column->addLayout(row, 1);
    QSizePolicy policy = progress->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    progress->setSizePolicy(policy);
    column->addWidget(progress);
    column->addWidget(makeButtons());
    resize(kPreferredSize.boundedTo(screen()->availableSize() * 0.95));
    connectParts();
    search();
}

BatchWindow::~BatchWindow() = default;

void BatchWindow::fillFolders()
{
    auto *form = new QFormLayout(folders);
    form->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const QString &text, QLineEdit *line, const char *name,
                         QPushButton *choose) {
        auto *label = new QLabel(text);
        label->setBuddy(line);
        line->setObjectName(QLatin1String(name));
        line->setAcceptDrops(false); // it would take a folder as text
        line->setAccessibleName(QString(text).remove(QLatin1Char('&')).remove(QLatin1Char(':')));
        form->addRow(label, folderRow(line, choose, line->accessibleName()));
    };
    add(tr("&Folder with shots:"), input, "inputLine", button(tr("Cho&ose…"), "inputButton"));
    add(tr("Folder for res&ults:"), output, "outputLine", button(tr("C&hoose…"), "outputButton"));
}

QWidget *BatchWindow::makeOptions()
{
    auto *box = new QWidget;
    box->setFixedWidth(kOptionWidth);
    options->setShots({});
    options->offerForManyPictures();
    options->setSettings(
        MergeSettings::fromMark(settings::batchMethod(), settings::batchOptions(), {}));
    format->setObjectName(QStringLiteral("formatBox"));
    format->addItem(QStringLiteral("JPEG"), QStringLiteral("jpg"));
    format->addItem(QStringLiteral("TIFF"), QStringLiteral("tif"));
    format->addItem(QStringLiteral("PNG"), QStringLiteral("png"));
    auto *label = new QLabel(tr("For&mat:"));
    label->setBuddy(format);
    auto *row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(format, 1);
    auto *column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(options);
    column->addLayout(row);
    column->addStretch();
    return box;
}

/// With the changes to the brackets below it.
QWidget *BatchWindow::makeTable()
{
    auto *box = new QWidget;
    auto *buttons = new QHBoxLayout;
    const QList<QAction *> edits = table->edits();
    for (QAction *edit : edits) {
        auto *tool = new QToolButton;
        tool->setDefaultAction(edit);
        buttons->addWidget(tool);
    }
    buttons->addStretch();
    auto *again = new QAction(tr("Fi&nd Again"), this);
    again->setObjectName(QStringLiteral("searchAction"));
    again->setShortcut(QKeySequence::Refresh);
    again->setToolTip(tr("Finds the brackets of the folder anew, without your changes"));
    connect(again, &QAction::triggered, this, [this] {
        settings::setBatchBrackets({});
        search();
    });
    searchButton->setDefaultAction(again);
    buttons->addWidget(searchButton);
    auto *column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(table, 1);
    column->addLayout(buttons);
    return box;
}

QWidget *BatchWindow::makeButtons()
{
    auto *box = new QWidget;
    auto *row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    said->setObjectName(QStringLiteral("batchState"));
    row->addWidget(said, 1);
    for (QPushButton *each : {openButton, stopButton, startButton, closeButton})
        row->addWidget(each);
    startButton->setDefault(true);
    return box;
}

void BatchWindow::connectParts()
{
    connect(input, &QLineEdit::textChanged, this, &BatchWindow::search);
    const auto *drops = new DropTarget(this, [this](const QStringList &paths) -> QWidget * {
        const bool isFolder = paths.size() == 1 && QFileInfo(paths.first()).isDir();
        return isFolder && !batch.isRunning() ? table : nullptr;
    });
    connect(drops, &DropTarget::dropped, this, [this](const QStringList &paths) {
        input->setText(QDir::toNativeSeparators(paths.first()));
    });
    connect(&survey, &FolderSurvey::ready, this, [this](const FolderNotes &notes) {
        isSearching = false;
        table->setNotes(notes);
        const QStringList arranged = settings::batchBrackets();
        if (arranged.value(0) == inputFolder())
            table->arrangeAs(arranged.mid(1));
        showState();
    });
    connect(table, &BracketTable::chosenChanged, this, &BatchWindow::showState);
    connect(startButton, &QPushButton::clicked, this, &BatchWindow::startOrPause);
    connect(stopButton, &QPushButton::clicked, &batch, &BracketBatch::stop);
    connect(openButton, &QPushButton::clicked, this,
            [this] { QDesktopServices::openUrl(QUrl::fromLocalFile(choices().folder)); });
    connect(closeButton, &QPushButton::clicked, this, &BatchWindow::reject);
    connect(&batch, &BracketBatch::told, this, &BatchWindow::take);
    connect(&batch, &BracketBatch::progressed, this, [this](int bracket, double fraction) {
        table->showProgress(bracket, fraction);
        const int parts = std::min(int(fraction * kPerBracket), kPerBracket - 1);
        progress->setValue(bracket * kPerBracket + parts);
        said->setText(stateText(progress->maximum() / kPerBracket));
    });
    connect(&batch, &BracketBatch::finished, this, &BatchWindow::showReport);
}

void BatchWindow::search()
{
    isSearching = QDir(inputFolder()).exists();
    table->setNotes({});
    if (isSearching)
        survey.startFolder(inputFolder());
    showState();
}

QString BatchWindow::inputFolder() const
{
    return QDir(QDir::fromNativeSeparators(input->text())).absolutePath();
}

BatchChoices BatchWindow::choices() const
{
    BatchChoices chosen;
    chosen.folder = QDir(QDir::fromNativeSeparators(output->text())).absolutePath();
    chosen.suffix = format->currentData().toString();
    chosen.quality = settings::jpegQuality();
    chosen.settings = options->settings();
    return chosen;
}

void BatchWindow::startOrPause()
{
    if (batch.isRunning() && batch.isPaused()) {
        batch.goOn();
    } else if (batch.isRunning()) {
        batch.pause();
    } else {
        const BatchChoices chosen = choices();
        settings::setBatch(chosen.settings.methodWord(), chosen.settings.asOptions({}));
        if (table->isEdited())
            settings::setBatchBrackets(QStringList(inputFolder()) + table->arrangementTexts());
        else if (settings::batchBrackets().value(0) == inputFolder())
            settings::setBatchBrackets({});
        table->resetStates();
        progress->setRange(0, int(table->chosen().size()) * kPerBracket);
        progress->setValue(0);
        batch.start(table->chosen(), chosen);
    }
    showState();
}

void BatchWindow::take(int bracket, State state, const QString &text)
{
    table->showState(bracket, state, text);
    if (state != State::Merging)
        progress->setValue((bracket + 1) * kPerBracket);
    showState();
}

void BatchWindow::showState()
{
    const int count = int(table->chosen().size());
    const bool isRunning = batch.isRunning();
    for (QWidget *part : QList<QWidget *>{folders, options, format})
        part->setEnabled(!isRunning);
    table->setEditable(!isRunning);
    progress->setVisible(isRunning);
    searchButton->defaultAction()->setEnabled(!isRunning);
    startButton->setEnabled(isRunning || count > 0);
    startButton->setText(!isRunning         ? tr("&Start")
                         : batch.isPaused() ? tr("Go O&n")
                                            : tr("Pau&se"));
    stopButton->setEnabled(isRunning);
    openButton->setEnabled(QDir(choices().folder).exists());
    said->setText(stateText(count));
}

QString BatchWindow::stateText(int count) const
{
    if (isSearching)
        return tr("Looking for brackets…");
    if (!batch.isRunning())
        return tr("%1 brackets to merge").arg(count);
    if (batch.isPaused())
        return tr("Paused");
    const int done = progress->value() / kPerBracket;
    if (const std::optional<qint64> left = batch.remaining())
        return tr("%1 of %2, about %3 left").arg(done).arg(count).arg(RemainingTime::text(*left));
    return tr("%1 of %2").arg(done).arg(count);
}

void BatchWindow::showReport()
{
    showState();
    said->setText(tr("%1 merged, %2 done already, %3 failed, %4 stopped")
                      .arg(table->count(State::Merged))
                      .arg(table->count(State::DoneAlready))
                      .arg(table->count(State::Failed))
                      .arg(table->count(State::Stopped)));
}

void BatchWindow::reject()
{
    if (batch.isRunning())
        batch.stop();
    else
        QDialog::reject();
}
