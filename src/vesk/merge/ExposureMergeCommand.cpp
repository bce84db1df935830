#include "ExposureMergeCommand.h"
#include "DocumentArea.h"
#include "EditorUiManager.h"
#include "MergeWorkspace.h"
#include "picture_document.h"

#include <VeskContext.h>

#include <QFileInfo>

ExposureMergeCommand::ExposureMergeCommand(EditorUiManager *manager, DocumentArea *area,
                                           QObject *parent)
    : QObject(parent)
    , uiManager(manager)
    , documents(area)
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
    if (!shown) {
        shown = new MergeWorkspace(uiManager->selectedFiles(), uiManager->currentDir(),
                                   uiManager->mainWindow());
        shown->setAttribute(Qt::WA_DeleteOnClose);
        connect(shown, &MergeWorkspace::merged, this, &ExposureMergeCommand::open);
    } else if (!shown->isMerging()) {
        shown->addShots(uiManager->selectedFiles());
    }
    shown->show();
    shown->raise();
    shown->activateWindow();
}

void ExposureMergeCommand::open(const QImage &picture, const QString &referencePath,
                                const ResultMark &mark)
{
    //: The name of a merged picture; %1 is that of the shot it was made from.
    const QString name = tr("%1 merged").arg(QFileInfo(referencePath).completeBaseName());
    VeskContext *document = documents->open(picture, name, {});
    document::setMetadataSource(*document, referencePath);
    document::setResultMark(*document, mark);
    document->setSaveAble(true);
}
