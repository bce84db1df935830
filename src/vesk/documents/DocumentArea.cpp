#include "DocumentArea.h"
#include "DocumentPanes.h"
#include "picture_document.h"
#include "recovery_file.h"

#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskContextManager.h>

#include <QFileInfo>
#include <QTimer>

namespace {

VeskContextManager &manager()
{
    return *VeskContextManager::getInstance();
}

} // namespace

DocumentArea::DocumentArea(QWidget *startPage, QWidget *parent)
    : QStackedWidget(parent)
    , tabs(new DocumentPanes)
{
    addWidget(startPage);
    addWidget(tabs);
    connect(tabs, &DocumentPanes::documentChosen, this, &DocumentArea::makeCurrent);
    connect(tabs, &DocumentPanes::closeRequested, this, &DocumentArea::closeRequested);
    connect(tabs, &DocumentPanes::closeOthersRequested, this, &DocumentArea::closeOthersRequested);
    connect(&manager(), &VeskContextManager::contextAdded, this, &DocumentArea::onAdded);
    connect(&manager(), &VeskContextManager::contextRemoved, this, &DocumentArea::onRemoved);
    connect(&manager(), &VeskContextManager::currentContextChanged, this,
            &DocumentArea::onCurrentChanged);
    addBlank();
}

DocumentArea::~DocumentArea()
{
    manager().disconnect(this);
    tabs->disconnect(this);
    while (VeskContext *context = manager().contextAt(0)) {
        manager().removeContext(context);
        context->disconnect();
        delete context;
    }
}

VeskContext *DocumentArea::open(const QImage &picture, const QString &name, const QString &path)
{
    VeskContext *context = document::create(picture, name, path, this);
    manager().addContext(context);
    makeCurrent(context);
    return context;
}

void DocumentArea::close(VeskContext *document)
{
    document->setSaveAble(false);
    closing = document; // what is lost now, also edits that are still under way, is lost on purpose
    manager().removeContext(document);
    document->deleteLater();
}

void DocumentArea::makeCurrent(VeskContext *document)
{
    manager().setCurrentContext(manager().indexOfContext(document));
}

void DocumentArea::allowReplacing(VeskContext *document)
{
    expendable = document;
}

VeskContext *DocumentArea::currentDocument() const
{
    VeskContext *current = manager().getCurrentContext();
    return current == blank ? nullptr : current;
}

VeskCanvas *DocumentArea::currentCanvas() const
{
    const VeskContext *document = currentDocument();
    return document ? document->getCanvas() : nullptr;
}

QList<VeskContext *> DocumentArea::documents() const
{
    QList<VeskContext *> all;
    for (int index = 0; index < manager().count(); ++index) {
        if (manager().contextAt(index) != blank)
            all.append(manager().contextAt(index));
    }
    return all;
}

VeskContext *DocumentArea::documentOf(const QString &path) const
{
    const QFileInfo file(path);
    const QList<VeskContext *> all = documents();
    for (VeskContext *document : all) {
        if (!document->getFilePath().isEmpty() && QFileInfo(document->getFilePath()) == file)
            return document;
    }
    return nullptr;
}

/// A document that nobody sees, for tools to begin with. It never has unsaved changes.
void DocumentArea::addBlank()
{
    blank = document::create({}, {}, {}, this);
    blank->getCanvas()->hide();
    manager().addContext(blank);
    if (!manager().getCurrentContext())
        makeCurrent(blank);
}

void DocumentArea::onAdded(VeskContext *context)
{
    if (context == blank)
        return;
    tabs->add(context);
    const auto tell = [this, context] { Q_EMIT documentStateChanged(context); };
    connect(context, &VeskContext::fileNameChanged, this, tell);
    connect(context, &VeskContext::saveAbleChanged, this, tell);
    connect(context, &VeskContext::saveAbleChanged, this, [this, context] {
        if (context == expendable)
            expendable = nullptr;
    });
    connect(context, &VeskContext::canvasChanged, this, [this, context] {
        if (context == currentDocument())
            onCurrentChanged();
    });
    QTimer::singleShot(0, context, [this, context] { giveCanvasIfNone(context); });
}

void DocumentArea::onRemoved(VeskContext *context)
{
    context->disconnect(this);
    tabs->remove(context);
    if (context->isSaveAble() && context != expendable && context != closing)
        keepReplacedWork(context);
    if (context == blank)
        addBlank();
}

void DocumentArea::onCurrentChanged()
{
    VeskContext *document = currentDocument();
    if (!document && !documents().isEmpty()) { // the blank one is never in front of others
        makeCurrent(documents().constLast());
        return;
    }
    if (!manager().getCurrentContext() && blank) {
        makeCurrent(blank);
        return;
    }
    tabs->showDocument(document);
    setCurrentIndex(document ? 1 : 0);
    Q_EMIT currentDocumentChanged(document);
}

/// A tool may replace a document whose changes nobody has agreed to lose. They stay open, in a tab
/// of their own.
void DocumentArea::keepReplacedWork(VeskContext *context)
{
    const RecoveredDocument work = recovery::snapshot(*context);
    QTimer::singleShot(0, this, [=] { manager().addContext(recovery::restored(work, this)); });
}

void DocumentArea::giveCanvasIfNone(VeskContext *context)
{
    if (!context->getCanvas())
        document::addCanvas(*context, this);
}
