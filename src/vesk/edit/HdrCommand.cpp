#include "HdrCommand.h"
#include "picture_document.h"

#include <VeskToolHDR.h>
#include <VeskContext.h>
#include <VeskContextManager.h>
#include <VeskFilterContainer.h>

#include <QApplication>
#include <QEvent>

namespace {

/// The frame around the tool's panel: the only one, as there is one tool of this kind.
QWidget *frameOfPanel()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        const auto *frame = qobject_cast<VeskFilterContainer *>(window);
        if (frame && frame->contentWidget() &&
            frame->contentWidget()->inherits("VeskToolHDRWidget"))
            return window;
    }
    return nullptr;
}

} // namespace

HdrCommand::HdrCommand(IVeskUIManager *manager, QObject *parent)
    : QObject(parent)
    , uiManager(manager)
    , hdr(std::make_unique<VeskToolHDR>())
    , frame(frameOfPanel())
{
    hdr->init();
    if (frame)
        frame->installEventFilter(this);
    connect(VeskContextManager::getInstance(), &VeskContextManager::contextAdded, this,
            &HdrCommand::nameMetadataSource);
}

HdrCommand::~HdrCommand()
{
    hdr->clear(); // the tool leaves pictures that it still has behind
    hdr->release();
    delete frame; // with the panel: the tool leaves both to the editor
}

void HdrCommand::activate()
{
    sources.clear();
    hdr->active(VeskContextManager::getInstance()->getCurrentContext(), uiManager);
}

/// The panel's OK hides the frame while the tool still has its pictures; Cancel drops them before.
bool HdrCommand::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == frame && event->type() == QEvent::Hide)
        sources = hdr->fileList();
    return QObject::eventFilter(watched, event);
}

/// The tool opens its result as a document without a file, after its set of pictures is empty.
void HdrCommand::nameMetadataSource(VeskContext *document)
{
    if (sources.isEmpty() || !document->getFilePath().isEmpty() || !hdr->fileList().isEmpty())
        return;
    document::setMetadataSource(*document, sources.first());
    sources.clear();
}
