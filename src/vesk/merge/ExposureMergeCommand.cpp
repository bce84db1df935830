#include "ExposureMergeCommand.h"
#include "DocumentArea.h"
#include "EditorUiManager.h"
#include "FilmStrip.h"
#include "MergeWorkspace.h"
#include "picture_document.h"

#include <VeskContext.h>

#include <QDir>
#include <QFileInfo>

namespace {

/// Those that are left: beside the result, or in the folder above where it lies in one for results.
QStringList shotsOf(const ResultMark &mark, const QDir &folder)
{
    QStringList paths;
    for (const QString &name : mark.sources) {
        for (const char *place : {"%1", "../%1"}) {
            const QFileInfo file(folder, QString::fromLatin1(place).arg(name));
            if (!file.isFile())
                continue;
            paths += QDir::cleanPath(file.absoluteFilePath());
            break;
        }
    }
    return paths;
}

} // namespace

ExposureMergeCommand::ExposureMergeCommand(EditorUiManager *manager, DocumentArea *area,
                                           FilmStrip *strip, QObject *parent)
    : QObject(parent)
    , uiManager(manager)
    , documents(area)
    , filmStrip(strip)
{
}

ExposureMergeCommand::~ExposureMergeCommand()
{
    delete shown;
}

MergeWorkspace *ExposureMergeCommand::workspace() const
{
    return shown;
}

void ExposureMergeCommand::activate()
{
    if (shown && !shown->isMerging())
        shown->addShots(uiManager->selectedFiles());
    show();
}

void ExposureMergeCommand::activateAnew()
{
    if (shown && !shown->isMerging())
        shown->replaceShots(uiManager->selectedFiles());
    show();
}

void ExposureMergeCommand::activateWith(const QStringList &paths)
{
    show();
    if (!shown->isMerging())
        shown->replaceShots(paths);
}

void ExposureMergeCommand::show()
{
    if (!shown) {
        const std::optional<Origin> origin = originOfSelected();
        shown = new MergeWorkspace(origin ? origin->paths : uiManager->selectedFiles(),
                                   uiManager->currentDir(), uiManager->mainWindow());
        shown->setAttribute(Qt::WA_DeleteOnClose);
        connect(shown, &MergeWorkspace::merged, this, &ExposureMergeCommand::open);
        connect(shown, &MergeWorkspace::nextBracketWanted, this,
                &ExposureMergeCommand::showNextBracket);
        connect(filmStrip, &FilmStrip::bracketsChanged, shown, [this] { showBracketPlace(); });
        if (origin)
            shown->setSettings(settingsOf(*origin));
    }
    showBracketPlace();
    shown->show();
    shown->raise();
    shown->activateWindow();
}

/// Of the one picture that is selected, or of a document that has no file yet. Nothing for
/// photographs, and where fewer than two of the shots are left.
std::optional<ExposureMergeCommand::Origin> ExposureMergeCommand::originOfSelected() const
{
    const QStringList selected = uiManager->selectedFiles();
    if (selected.size() > 1)
        return std::nullopt;
    const VeskContext *current = documents->currentDocument();
    std::optional<ResultMark> mark = filmStrip->markOf(selected.value(0));
    QString beside = selected.value(0);
    if (!mark && current && current->getFilePath().isEmpty()) {
        mark = document::resultMark(*current);
        beside = document::metadataSource(*current);
    }
    if (!mark)
        return std::nullopt;
    const Origin origin{shotsOf(*mark, QFileInfo(beside).dir()), *mark};
    return origin.paths.size() > 1 ? std::optional(origin) : std::nullopt;
}

/// Strokes count shots, so all have to be here. The workspace orders shots by their paths.
MergeSettings ExposureMergeCommand::settingsOf(const Origin &origin)
{
    MergeSettings settings =
        MergeSettings::fromMark(origin.mark.method, origin.mark.options, origin.paths);
    if (origin.paths.size() != origin.mark.sources.size())
        settings.strokes.clear();
    QStringList ordered = origin.paths;
    ordered.sort();
    settings.followOrder(origin.paths, ordered);
    return settings;
}

void ExposureMergeCommand::showNextBracket()
{
    if (!filmStrip->stepBracket(1))
        return;
    shown->replaceShots(filmStrip->selectedPaths());
    showBracketPlace();
}

void ExposureMergeCommand::showBracketPlace()
{
    if (shown)
        shown->setBracketPlace(filmStrip->selectedBracket(), filmStrip->bracketCount());
}

void ExposureMergeCommand::open(const MergeResult &result, const QString &referencePath,
                                const ResultMark &mark)
{
    if (result.picture.format() == QImage::Format_RGBX32FPx4) {
        Q_EMIT lightMerged(result.picture, referencePath, mark);
        return;
    }
    //: The name of a merged picture; %1 is that of the shot it was made from.
    const QString name = tr("%1 merged").arg(QFileInfo(referencePath).completeBaseName());
    VeskContext *document = documents->open(result.picture, name, {});
    document::setMetadataSource(*document, referencePath);
    document::setResultMark(*document, mark);
    document::setCoveredArea(*document, result.covered);
    document->setSaveAble(true);
}
