#include "MergeWorkspace.h"
#include "BrushBar.h"
#include "BrushTool.h"
#include "MergeOptionsPanel.h"
#include "MergePreview.h"
#include "PreviewBar.h"
#include "ShotList.h"
#include "merge_texts.h"
#include "picture_document.h"

#include <automatic_look.h>
#include <free_memory.h>
#include <merge_memory.h>
#include <picture_kinds.h>
#include <screen_colours.h>

#include <DropTarget.h>

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace {

constexpr QSize kPreferredSize(1180, 700);
constexpr int kShotWidth = 280;
constexpr int kOptionWidth = 290;
constexpr int kDelayMs = 15;
constexpr int kProgressSteps = 1000;

QPushButton *button(const QString &text, const char *name)
{
    auto *made = new QPushButton(text);
    made->setObjectName(QLatin1String(name));
    made->setAutoDefault(false);
    return made;
}

QStringList filesAmong(QStringList paths)
{
    paths.removeIf([](const QString &path) { return !QFileInfo(path).isFile(); });
    return paths;
}

/// Of what the whole merge gives, as far as the small one tells.
QSize fullSizeOf(const MergePreviewResult &small, const MergeShot &shot)
{
    const double factor = double(shot.size.width()) / shot.small.width();
    const QSizeF size = QSizeF(small.picture.size()) * factor;
    return small.picture.size() == shot.small.size() ? shot.size : size.toSize();
}

} // namespace

MergeWorkspace::MergeWorkspace(const QStringList &paths, const QString &startFolder,
                               QWidget *parent)
    : QDialog(parent)
    , folder(startFolder)
    , shots(new ShotList)
    , preview(new MergePreview)
    , bar(new PreviewBar(preview))
    , brushBar(new BrushBar)
    , brush(new BrushTool(preview, brushBar, this))
    , options(new MergeOptionsPanel)
    , notes(new QLabel)
    , state(new QLabel)
    , progress(new QProgressBar)
    , add(button(tr("A&dd Shots…"), "addButton"))
    , nextBracket(button(tr("&Next Bracket"), "nextBracketButton"))
    , reference(button(tr("&Use as Reference"), "referenceButton"))
    , mergeButton(button(tr("&Merge"), "mergeButton"))
    , closeButton(button(tr("Close"), "closeButton"))
{
    setWindowTitle(tr("Merge Exposures"));
    auto *row = new QHBoxLayout(this);
    row->addWidget(makeShotColumn());
    row->addWidget(makePreviewColumn(), 1);
    row->addWidget(makeOptionColumn());
    resize(kPreferredSize.boundedTo(screen()->availableSize() * 0.95));
    mergeButton->setDefault(true);
    connectParts();
    showMerging(false);
    addShots(paths);
}

MergeWorkspace::~MergeWorkspace() = default;

// --- Building ---

QWidget *MergeWorkspace::makeShotColumn()
{
    auto *column = new QWidget;
    column->setFixedWidth(kShotWidth);
    shots->setObjectName(QStringLiteral("shotList"));
    notes->setObjectName(QStringLiteral("mergeNotes"));
    notes->setWordWrap(true);
    auto *label = new QLabel(tr("S&hots:"));
    label->setBuddy(shots);
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(shots, 1);
    layout->addWidget(notes);
    layout->addWidget(reference);
    layout->addWidget(add);
    layout->addWidget(nextBracket);
    nextBracket->setVisible(false);
    return column;
}

QWidget *MergeWorkspace::makePreviewColumn()
{
    auto *column = new QWidget;
    preview->setObjectName(QStringLiteral("mergePreview"));
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(preview, 1);
    layout->addWidget(bar);
    layout->addWidget(brushBar);
    return column;
}

QWidget *MergeWorkspace::makeOptionColumn()
{
    auto *column = new QWidget;
    column->setFixedWidth(kOptionWidth);
    state->setObjectName(QStringLiteral("mergeState"));
    progress->setObjectName(QStringLiteral("mergeProgress"));
    progress->setRange(0, kProgressSteps);
    progress->setTextVisible(false);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(closeButton);
    buttons->addWidget(mergeButton);
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(options, 1);
    layout->addWidget(state);
    layout->addWidget(progress);
    layout->addLayout(buttons);
    return column;
}

void MergeWorkspace::connectParts()
{
    delay.setSingleShot(true);
    delay.setInterval(kDelayMs);
    connect(&delay, &QTimer::timeout, this, &MergeWorkspace::requestPreview);
    const auto *drops = new DropTarget(this, [this](const QStringList &paths) -> QWidget * {
        return isMerging() || filesAmong(paths).isEmpty() ? nullptr : shots;
    });
    connect(drops, &DropTarget::dropped, this,
            [this](const QStringList &paths) { addShots(filesAmong(paths)); });
    connect(&loader, &MergeShotLoader::loaded, shots, &ShotList::setShot);
    connect(&loader, &MergeShotLoader::finished, this, &MergeWorkspace::onSetChanged);
    connect(shots, &ShotList::setChanged, this, &MergeWorkspace::onSetChanged);
    connect(shots, &QListWidget::currentRowChanged, this, &MergeWorkspace::updateButtons);
    connect(options, &MergeOptionsPanel::changed, this, &MergeWorkspace::onSetChanged);
    connect(add, &QPushButton::clicked, this, &MergeWorkspace::chooseShots);
    connect(nextBracket, &QPushButton::clicked, this, &MergeWorkspace::nextBracketWanted);
    connect(reference, &QPushButton::clicked, this, [this] {
        if (shots->isCurrentChosen())
            shots->chooseReferenceAutomatically();
        else
            shots->chooseCurrentAsReference();
    });
    connectPreview();
    connect(mergeButton, &QPushButton::clicked, this, &MergeWorkspace::startMerge);
    connect(closeButton, &QPushButton::clicked, this, &MergeWorkspace::reject);
    connect(&full, &FullMerge::progressed, this, &MergeWorkspace::showProgress);
    connect(&full, &FullMerge::finished, this, &MergeWorkspace::finish);
    qApp->installEventFilter(this);
}

void MergeWorkspace::connectPreview()
{
    connect(&previewer, &MergePreviewer::ready, this, &MergeWorkspace::showPreview);
    connect(&previewer, &MergePreviewer::shotsReady, this, [this](const QList<QImage> &aligned) {
        if (bar->isBlinking())
            bar->setShots(aligned, namesOn());
    });
    connect(preview, &MergePreview::sharpWantedChanged, this, &MergeWorkspace::updateSharp);
    connect(&sharp, &SharpMerge::ready, this, &MergeWorkspace::onSharpReady);
    connect(&sharp, &SharpMerge::failed, this, [this](const QString &problem) {
        if (!isMerging())
            state->setText(problem);
    });
    connect(brush, &BrushTool::changed, this, &MergeWorkspace::onSetChanged);
    connect(shots, &QListWidget::currentRowChanged, brush,
            [this](int row) { brush->chooseShot(shots->paths().value(row)); });
    connect(bar, &PreviewBar::beforeHeld, this, &MergeWorkspace::showBefore);
    connect(bar, &PreviewBar::splitToggled, this, &MergeWorkspace::provideBefore);
    connect(bar, &PreviewBar::shotsWanted, this, &MergeWorkspace::askForShots);
    connect(options, &MergeOptionsPanel::automaticLookWanted, this, &MergeWorkspace::chooseLook);
}

// --- Shots ---

void MergeWorkspace::addShots(const QStringList &paths)
{
    QStringList added;
    const QStringList held = shots->paths();
    for (const QString &path : paths) {
        const QString absolute = QFileInfo(path).absoluteFilePath();
        if (!held.contains(absolute) && !added.contains(absolute))
            added.append(absolute);
    }
    shots->addPaths(added);
    loader.load(added);
    onSetChanged();
}

void MergeWorkspace::replaceShots(const QStringList &paths)
{
    if (isMerging())
        return;
    loader.drop();
    sharp.cancel();
    shots->clearShots();
    brush->forget();
    showWhyThereIsNone({});
    addShots(paths);
}

void MergeWorkspace::setSettings(const MergeSettings &settings)
{
    options->setSettings(settings);
    brush->setStrokes(settings.strokes);
    shots->chooseReference(settings.options.reference);
}

void MergeWorkspace::setBracketPlace(int place, int count)
{
    nextBracket->setVisible(count > 0);
    nextBracket->setEnabled(place < count && !isMerging());
    setWindowTitle(place > 0 ? tr("Merge Exposures — bracket %1 of %2").arg(place).arg(count)
                             : tr("Merge Exposures"));
}

void MergeWorkspace::chooseShots()
{
    const QString filter = tr("Pictures") +
                           QStringLiteral(" (%1);;").arg(pictures::dialogPatterns()) +
                           tr("All files") + QStringLiteral(" (*)");
    addShots(QFileDialog::getOpenFileNames(this, tr("Add Shots"), folder, filter));
}

// --- Preview ---

QStringList MergeWorkspace::pathsOn() const
{
    QStringList paths;
    const QList<MergeShot> on = shots->shotsOn();
    for (const MergeShot &shot : on)
        paths.append(shot.path);
    return paths;
}

QStringList MergeWorkspace::namesOn() const
{
    QStringList names;
    const QStringList paths = pathsOn();
    for (const QString &path : paths)
        names.append(QFileInfo(path).fileName());
    return names;
}

QList<QImage> MergeWorkspace::smallOn() const
{
    QList<QImage> small;
    const QList<MergeShot> on = shots->shotsOn();
    for (const MergeShot &shot : on)
        small.append(shot.small);
    return small;
}

void MergeWorkspace::onSetChanged()
{
    options->setShots(namesOn());
    brush->setShots(pathsOn());
    updateButtons();
    preview->setLook(settings().options.adjustment);
    if (!sharp.keptFor(pathsOn(), settings()))
        preview->setSharp({});
    sharp.keepOnlyFor(pathsOn(), settings());
    delay.start();
}

/// The whole picture, as soon as somebody looks closely; and ahead of time where there is room for
/// it, so that nobody waits for the merge.
void MergeWorkspace::updateSharp()
{
    const bool isSmallEnough = settings().isLight(); // its own window shows it at full size
    if (isSmallEnough || isMerging() || !whyNoPreview(shots->shotsOn()).isEmpty())
        return;
    if (!preview->isSharpWanted()) {
        if (hasRoomAhead())
            sharp.ask(pathsOn(), settings(), SharpMerge::Need::Ahead);
    } else if (const std::optional<MergeResult> kept = sharp.keptFor(pathsOn(), settings())) {
        if (!preview->isSharp())
            preview->setSharp({kept->picture, kept->reference});
    } else {
        sharp.ask(pathsOn(), settings());
    }
    showState();
}

bool MergeWorkspace::hasRoomAhead() const
{
    constexpr qint64 kLeastShare = 4; // of the memory that is free
    const QList<MergeShot> on = shots->shotsOn();
    merge_memory::Needs needs;
    needs.size = on.first().size;
    needs.shots = int(on.size());
    needs.areDeep = true; // what they are is told by reading them
    return merge_memory::peakBytes(needs) <= free_memory::bytes() / kLeastShare;
}

void MergeWorkspace::onSharpReady(const SharpPicture &picture)
{
    if (isMerging())
        return;
    if (preview->isSharpWanted())
        preview->setSharp(picture);
    placeBrushOnSharp();
    showState();
}

MergeSettings MergeWorkspace::settings() const
{
    MergeSettings chosen = options->settings();
    if (chosen.isMean())
        return chosen;
    chosen.options.reference = shots->chosenReference();
    chosen.strokes = brush->strokes();
    const QList<MergeShot> on = shots->shotsOn();
    chosen.paintedOn = on.isEmpty() ? QSize() : on.first().size;
    return chosen;
}

QString MergeWorkspace::whyNoPreview(const QList<MergeShot> &on) const
{
    if (loader.isBusy())
        return merge_texts::reading();
    if (on.size() < 2)
        return tr("Add two or more shots of one scene, or drop them here.");
    for (const MergeShot &shot : on) {
        if (shot.size != on.first().size)
            return merge_texts::otherSize(shot.path, shot.size, on.first().path, on.first().size);
    }
    return {};
}

void MergeWorkspace::requestPreview()
{
    const QList<MergeShot> on = shots->shotsOn();
    const QString why = whyNoPreview(on);
    if (!why.isEmpty()) {
        showWhyThereIsNone(why);
        return;
    }
    previewer.request(smallOn(), settings());
}

void MergeWorkspace::showWhyThereIsNone(const QString &why)
{
    previewer.cancel();
    sharp.cancel();
    previewed = {};
    preview->setSharp({});
    preview->setAfter({});
    preview->setBefore({});
    preview->setText(why);
    bar->setUsable(false);
    updateBrush();
    showNotes({});
    alignedText.clear();
    showState();
}

void MergeWorkspace::showPreview(const MergePreviewResult &result)
{
    if (result.picture.isNull()) {
        showWhyThereIsNone(merge_texts::problem(result.error));
        return;
    }
    showUnaligned(result);
    previewed = result.merged;
    preview->setAfter(result.picture, fullSizeOf(result, shots->shotsOn().first()),
                      result.clipping);
    provideBefore();
    bar->setUsable(true);
    placeBrush(result);
    if (bar->isBlinking())
        askForShots();
    updateSharp();
    showState();
}

/// As far as a small picture tells where in the reference it begins.
void MergeWorkspace::placeBrush(const MergePreviewResult &result)
{
    const MergeShot shot = shots->shotsOn().first();
    const double factor = double(shot.size.width()) / shot.small.width();
    brush->setStart((QPointF(result.report.area.topLeft()) * factor).toPoint());
    brush->setMoved(result.ghosts);
    updateBrush();
    placeBrushOnSharp();
}

void MergeWorkspace::placeBrushOnSharp()
{
    if (const std::optional<MergeResult> kept = sharp.keptFor(pathsOn(), settings()))
        brush->setStart(kept->report.area.topLeft());
}

void MergeWorkspace::updateBrush()
{
    brush->setUsable(!isMerging() && !previewed.isNull() && !options->settings().isMean());
}

void MergeWorkspace::showUnaligned(const MergePreviewResult &result)
{
    const bool tells = settings().options.alignment == exposure::Alignment::Perspective;
    shots->showReport(result.report, tells);
    const QList<MergeShot> on = shots->shotsOn();
    QStringList sentences;
    int aligned = 0;
    for (int i = 0; i < on.size(); ++i) {
        const QString sentence =
            merge_texts::unaligned(on[i].path, result.report.transforms[size_t(i)]);
        aligned += sentence.isEmpty();
        if (!sentence.isEmpty())
            sentences.append(sentence);
    }
    showNotes(sentences);
    alignedText = tells ? tr("Aligned: %1 of %2").arg(aligned).arg(on.size()) : QString();
}

void MergeWorkspace::showState()
{
    if (isMerging())
        return;
    const bool isSharpening = preview->isSharpWanted() && sharp.isUnderWay();
    state->setText(isSharpening ? tr("Sharpening…") : alignedText);
}

void MergeWorkspace::showNotes(const QStringList &sentences)
{
    notes->setText(sentences.join(QLatin1Char('\n')));
    notes->setVisible(!sentences.isEmpty());
}

/// The reference as it was taken.
void MergeWorkspace::provideBefore()
{
    const QList<MergeShot> on = shots->shotsOn();
    const int place = shots->shownReference();
    preview->setBefore(place < 0 ? QImage() : screen_colours::shown(on[place].small));
}

void MergeWorkspace::showBefore(bool isBefore)
{
    preview->showBefore(isBefore);
}

void MergeWorkspace::askForShots()
{
    previewer.requestShots(smallOn(), settings());
}

void MergeWorkspace::chooseLook()
{
    if (!previewed.isNull())
        options->setLook(exposure::automaticLook(previewed));
}

/// B is held to look at the picture before, whichever control has the keyboard.
bool MergeWorkspace::eventFilter(QObject *watched, QEvent *event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    const auto *widget = qobject_cast<QWidget *>(watched);
    if (!isKey || !widget || widget->window() != this)
        return QDialog::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() != Qt::Key_B || key->modifiers() != Qt::NoModifier)
        return QDialog::eventFilter(watched, event);
    if (!key->isAutoRepeat())
        showBefore(event->type() == QEvent::KeyPress);
    return true;
}

// --- Merging ---

void MergeWorkspace::updateButtons()
{
    const QList<MergeShot> on = shots->shotsOn();
    mergeButton->setEnabled(!isMerging() && whyNoPreview(on).isEmpty());
    const bool isMean = options->settings().isMean();
    reference->setEnabled(!isMerging() && !isMean && shots->currentItem());
    reference->setText(shots->isCurrentChosen() ? tr("Choose Reference A&utomatically")
                                                : tr("&Use as Reference"));
}

void MergeWorkspace::startMerge()
{
    underWay = pathsOn();
    previewer.cancel();
    bar->stopBlinking();
    asked = settings();
    full.start(underWay, asked);
    showMerging(true);
}

void MergeWorkspace::showProgress(const QString &what, double done)
{
    state->setText(what);
    progress->setValue(qRound(done * kProgressSteps));
}

void MergeWorkspace::showMerging(bool isUnderWay)
{
    for (QWidget *part : QList<QWidget *>{shots, options, add, nextBracket, bar})
        part->setEnabled(!isUnderWay);
    updateBrush();
    progress->setVisible(isUnderWay);
    progress->setValue(0);
    closeButton->setText(isUnderWay ? tr("Cancel") : tr("Close"));
    updateButtons();
    if (isUnderWay) {
        state->setText(merge_texts::reading());
        closeButton->setFocus();
    } else {
        showState();
    }
}

void MergeWorkspace::reject()
{
    if (!isMerging()) {
        QDialog::reject();
        return;
    }
    full.cancel();
    showMerging(false);
    requestPreview();
}

void MergeWorkspace::finish(const MergeResult &result)
{
    showMerging(false);
    if (result.picture.isNull()) {
        QMessageBox::warning(this, tr("Not Merged"), result.problem);
        requestPreview();
        return;
    }
    Q_EMIT merged(result, underWay.value(result.report.reference),
                  document::markOfMerge(asked.methodWord(), underWay, asked.asOptions(underWay)));
    accept();
}
