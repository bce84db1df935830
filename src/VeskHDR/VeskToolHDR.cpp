#include "VeskToolHDR.h"

#include "VeskHDRThread.h"
#include "VeskToolHDRWidget.h"
#include "merged_document.h"
#include "picture_reader.h"
#include "tool_translator.h"

#include <IVeskUIManager.h>
#include <VeskActionManager.h>
#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskContextManager.h>
#include <VeskFilterContainer.h>
#include <VeskProgressIndicator.h>
#include <VeskRaw.h>

#include <QAction>
#include <QEvent>
#include <QImage>
#include <QMessageBox>
#include <QPushButton>
#include <QScopedValueRollback>

namespace {

constexpr QSize kIndicatorSize(60, 60);

/// Keeps the indicator open until the worker closes it, whoever else asks before: the program that
/// closes all its windows, say.
class CloseGuard : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::Close || dynamic_cast<MergeCompletionEvent *>(event))
            return false;
        event->ignore();
        return true;
    }
};

/// False when the system has no thread to give: then nobody would close the indicator.
bool startWorker(QThread &worker)
{
    worker.start(QThread::InheritPriority);
    return worker.isRunning() || worker.isFinished();
}

void triggerSave()
{
    QAction *save =
        VeskActionManager::getInstance(QString())->getActionByName(QStringLiteral("Save"));
    if (!save)
        return;
    if (!save->isEnabled())
        save->setEnabled(true);
    save->activate(QAction::Trigger);
}

} // namespace

VeskToolHDR::VeskToolHDR(QObject *parent)
    : IVeskInsideTool(parent)
{
    tool_translator::install();
    toolIdentifier = QStringLiteral("773B3550-5841-4150-9986-60CA3C64F22F");
    toolName = QStringLiteral("HDR");
    toolKind = QStringLiteral("inside");
    toolTitle = QStringLiteral("HDR");
    toolVersion = QStringLiteral("1.0");
    parentObject = parent;
    panel = new VeskToolHDRWidget;
    panel->setTool(this);
    frame =
        new VeskFilterContainer(panel, VeskTitleWidget::TitleButtonFlag(0), false, nullptr, true);
    frame->setVisible(false);
    // Escape and the title bar's cross.
    connect(frame, &QDialog::rejected, this, &VeskToolHDR::dropPictures);
}

VeskToolHDR::~VeskToolHDR() = default;

void VeskToolHDR::disActive()
{
}

void VeskToolHDR::init()
{
}

void VeskToolHDR::release()
{
}

void VeskToolHDR::active(VeskContext *newContext, IVeskUIManager *manager)
{
    context = newContext;
    uiManager = manager;
    if (context && context->isSaveAble() && !settleUnsavedWork())
        return;
    if (panel)
        panel->setVisible(true);
    if (frame)
        frame->show(true);
    if (!letPanelAppear())
        return;
    if (uiManager)
        addFiles(uiManager->selectedFiles());
    refreshPanel();
}

/// So that it stands there while pictures are decoded. False when the tool is gone afterwards.
bool VeskToolHDR::letPanelAppear()
{
    const QPointer<VeskToolHDR> self(this);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    return self;
}

/// False when the user wants to stay with the document.
bool VeskToolHDR::settleUnsavedWork()
{
    const int answer = haveToSave(context);
    if (answer == QMessageBox::Discard && uiManager)
        uiManager->discardChanges();
    if (answer == QMessageBox::Save)
        triggerSave();
    return answer != QMessageBox::Cancel;
}

int VeskToolHDR::haveToSave(VeskContext *)
{
    QMessageBox question;
    question.setWindowTitle(tr("Alert"));
    question.setText(tr("This document has been modified. Save it?"));
    question.setStandardButtons(QMessageBox::Save | QMessageBox::Cancel | QMessageBox::Discard);
    question.setDefaultButton(QMessageBox::Save);
    question.button(QMessageBox::Save)->setText(tr("Save"));
    question.button(QMessageBox::Cancel)->setText(tr("Cancel"));
    question.button(QMessageBox::Discard)->setText(tr("Discard"));
    return question.exec();
}

void VeskToolHDR::setCuda(bool enabled)
{
    useOpenCL = enabled;
}

void VeskToolHDR::setAlignment(bool enabled)
{
    useAlignment = enabled;
}

QString VeskToolHDR::getDir() const
{
    return uiManager ? uiManager->currentDir() : QString();
}

bool VeskToolHDR::addFile(const QString &path)
{
    context = VeskContextManager::getInstance()->getCurrentContext();
    if (!context)
        return false;
    if (sources.size() >= kMaxPictures) {
        alert(tr("You can only add up to 5 pictures."));
        return false;
    }
    if (path.isEmpty())
        return true;
    std::unique_ptr<QImage> picture = readPicture(path);
    if (!picture || !hasCommonSize(*picture))
        return false;
    store(path, std::move(picture));
    refreshPanel();
    return true;
}

/// Null when the user cancelled or the conversion failed; then the canvas timer stays stopped.
QImage VeskToolHDR::convertRaw(const QString &path)
{
    // The conversion may run windows of its own, and the document may go away under them.
    const QPointer<VeskCanvas> canvas = context->getCanvas();
    if (canvas)
        canvas->stopCanvasTimer();
    VeskRaw *converter = VeskRaw::getInstance();
    converter->activate(path, panel, false);
    std::unique_ptr<QImage> picture(converter->grabConvertedPicture());
    if (picture)
        *picture = picture->copy(); // the merge writes to it: the memory must be the tool's own
    if (!picture || picture->isNull())
        return {};
    if (canvas) {
        canvas->resetCanvas();
        canvas->startCanvasTimer(0);
    }
    return *picture;
}

/// Null after telling the user that the file is no picture, or too large a one. Of a raw file that
/// gives none nothing is said.
std::unique_ptr<QImage> VeskToolHDR::readPicture(const QString &path)
{
    bool isRaw = false;
    const auto convert = [&](const QString &raw, const ReadOptions &) {
        isRaw = true;
        return DecodedPicture{convertRaw(raw), DecodeError::None, {}};
    };
    const DecodedPicture read = picture::read(path, {}, convert);
    if (!read.image.isNull())
        return std::make_unique<QImage>(read.image);
    if (isRaw)
        return nullptr;
    const bool isValid = read.error == DecodeError::TooLarge || read.error == DecodeError::NoMemory;
    alert(isValid ? path + QStringLiteral(": ") + read.reason
                  : tr("%1 is not a valid image!").arg(path));
    return nullptr;
}

/// The first picture of an empty set decides; another size is refused in front of the user.
bool VeskToolHDR::hasCommonSize(const QImage &picture)
{
    if (referenceSize == QSize())
        referenceSize = picture.size();
    if (picture.size() == referenceSize)
        return true;
    alert(tr("Pictures shall be in same size."));
    return false;
}

void VeskToolHDR::store(const QString &path, std::unique_ptr<QImage> picture)
{
    forgotten.clear();
    QImage *&held = sources[path];
    if (held)
        forgotten.emplace_back(held);
    held = picture.release();
}

bool VeskToolHDR::addFiles(const QList<QString> &paths)
{
    for (const QString &path : paths) {
        addFile(path);
        if (panel)
            panel->repaint(); // one thumbnail after the other
        if (sources.size() >= kMaxPictures)
            return false;
    }
    return true;
}

void VeskToolHDR::removeFile(const QString &path)
{
    delete sources.take(path);
    if (sources.isEmpty())
        referenceSize = QSize();
    refreshPanel();
}

void VeskToolHDR::clear()
{
    forget(sources.values());
}

/// Empties the set. These are the pictures that nobody has deleted, and who forgets them last
/// releases them.
void VeskToolHDR::forget(const QList<QImage *> &pictures)
{
    for (QImage *picture : pictures)
        forgotten.emplace_back(picture);
    sources.clear();
    referenceSize = QSize();
}

QList<QImage *> VeskToolHDR::imageList() const
{
    return sources.values();
}

QList<QString> VeskToolHDR::fileList() const
{
    return sources.keys();
}

const QMap<QString, QImage *> &VeskToolHDR::sourcePictures() const
{
    return sources;
}

/// The frame has been closed without the panel's buttons: that is Cancel, too.
void VeskToolHDR::dropPictures()
{
    clear();
    if (panel)
        panel->hide();
}

QWidget *VeskToolHDR::panelFrame() const
{
    return frame;
}

void VeskToolHDR::apply()
{
    const QScopedValueRollback<QList<QString>> filesOfThisMerge(merging, fileList());
    VeskProgressIndicator indicator(kIndicatorSize, nullptr);
    indicator.startAnimation();
    CloseGuard guard;
    indicator.installEventFilter(&guard);
    VeskHDRThread worker(nullptr);
    QImage *none = nullptr;
    worker.setParams(imageList(), none, &indicator, useOpenCL, useAlignment);
    worker.allowReuseOfPixels();
    const bool isStarted = startWorker(worker);
    if (isStarted) {
        indicator.exec();
        worker.wait(); // it may still be returning from the post that closed the indicator
    }

    forget(worker.remainingPictures());
    refreshPanel();
    if (!isStarted || worker.isFailed()) {
        alert(tr("HDR merge failed! Pictures shall be in same size."));
        return;
    }
    QMessageBox::about(nullptr, QStringLiteral("loaded"), tr("used: %1 ms").arg(worker.getTime()));
    QImage *merged = nullptr;
    worker.getData(merged);
    merged_document::replace(context, std::unique_ptr<QImage>(merged),
                             tr("layer") + QStringLiteral(" 0"));
    clear();
}

/// The frame may have gone with the editor's other windows, and the panel with it.
void VeskToolHDR::refreshPanel()
{
    if (panel)
        panel->updateState();
}

void VeskToolHDR::alert(const QString &text)
{
    QMessageBox::about(nullptr, tr("Alert"), text);
}
