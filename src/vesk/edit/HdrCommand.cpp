#include "HdrCommand.h"
#include "EditorUiManager.h"
#include "picture_document.h"

#include <VeskContext.h>
#include <VeskContextManager.h>
#include <VeskToolHDR.h>

#include <QFileInfo>
#include <QMessageBox>
#include <QWidget>

HdrCommand::HdrCommand(EditorUiManager *manager, QObject *parent)
    : QObject(parent)
    , uiManager(manager)
    , hdr(std::make_unique<VeskToolHDR>())
{
    hdr->init();
    connect(VeskContextManager::getInstance(), &VeskContextManager::contextAdded, this,
            &HdrCommand::nameMetadataSource);
}

HdrCommand::~HdrCommand()
{
    hdr->clear(); // the tool leaves pictures that it still has behind
    hdr->release();
    delete hdr->panelFrame(); // with the panel: the tool leaves both to the editor
}

void HdrCommand::activate()
{
    if (!isSelectionAgreed())
        return;
    uiManager->forgetDiscards();
    hdr->active(VeskContextManager::getInstance()->getCurrentContext(), uiManager);
}

/// The tool leaves out what is beyond its limit without a word.
bool HdrCommand::isSelectionAgreed() const
{
    const QStringList held = hdr->fileList();
    QStringList added;
    const QStringList selected = uiManager->selectedFiles();
    for (const QString &path : selected) {
        if (!held.contains(path))
            added.append(QFileInfo(path).fileName());
    }
    const int room = VeskToolHDR::kMaxPictures - held.size();
    if (added.size() <= room || room == 0) // a full set is what the tool itself speaks of
        return true;
    QMessageBox question(QMessageBox::Question, tr("Merge to HDR"),
                         tr("%1 pictures are selected, but at most %2 can be merged.")
                             .arg(held.size() + added.size())
                             .arg(VeskToolHDR::kMaxPictures),
                         QMessageBox::Ok | QMessageBox::Cancel, uiManager->mainWindow());
    question.setInformativeText(
        tr("Only these will be taken: %1").arg(added.mid(0, room).join(QStringLiteral(", "))));
    return question.exec() == QMessageBox::Ok;
}

/// What the tool opens while it merges is the merged picture, unless it has been read from a file:
/// the editor goes on opening files meanwhile.
void HdrCommand::nameMetadataSource(VeskContext *document)
{
    const QStringList files = hdr->filesInMerge();
    if (files.isEmpty() || !document->getFilePath().isEmpty())
        return;
    document::setMetadataSource(*document, files.first());
    document::setResultMark(*document, document::markOfMerge(QStringLiteral("mean"), files));
}
