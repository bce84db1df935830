#include "ToolSession.h"

#include <VeskToolHDRWidget.h>

#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskContextManager.h>
#include <VeskFilterContainer.h>

#include <QApplication>
#include <QRandomGenerator>

namespace {

void openDocument(VeskContext *document)
{
    VeskContextManager *documents = VeskContextManager::getInstance();
    documents->addContext(document);
    documents->setCurrentContext(documents->indexOfContext(document));
}

void closeAllDocuments()
{
    VeskContextManager *documents = VeskContextManager::getInstance();
    while (VeskContext *document = documents->contextAt(0)) {
        documents->removeContext(document);
        delete document;
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QList<VeskFilterContainer *> frames()
{
    QList<VeskFilterContainer *> found;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (auto *frame = qobject_cast<VeskFilterContainer *>(window))
            found += frame;
    }
    return found;
}

} // namespace

QList<QString> FakeUIManager::selectedFiles() const
{
    if (asked)
        asked(QStringLiteral("selectedFiles"));
    return selected;
}

QString FakeUIManager::currentDir() const
{
    if (asked)
        asked(QStringLiteral("currentDir"));
    return directory;
}

void FakeUIManager::discardChanges()
{
    if (asked)
        asked(QStringLiteral("discardChanges"));
}

ToolSession::ToolSession()
    : tool(std::make_unique<VeskToolHDR>(nullptr))
    , document(new VeskContext(nullptr))
    , canvas(std::make_unique<VeskCanvas>())
{
    Q_ASSERT(frames().size() == 1);
    toolFrame = frames().constFirst();
    document->setCanvas(canvas.get());
    canvas->attachContext(document);
    openDocument(document);
}

ToolSession::~ToolSession()
{
    tool->clear();
    tool.reset();
    qDeleteAll(frames()); // those of the test's own tools as well
    closeAllDocuments();
}

QString ToolSession::writePicture(const QString &name, QSize size, quint32 seed) const
{
    QImage picture(size, QImage::Format_RGB32);
    QRandomGenerator random(seed);
    for (int y = 0; y < picture.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            row[x] = random.generate() | 0xFF000000U;
    }
    if (!picture.save(path(name)))
        qFatal("cannot write %s", qPrintable(path(name)));
    return path(name);
}

QStringList ToolSession::writePictures(int count, QSize size) const
{
    QStringList paths;
    for (int i = 0; i < count; ++i)
        paths += writePicture(QChar(QLatin1Char('a').unicode() + i) + QStringLiteral(".bmp"), size,
                              static_cast<quint32>(i + 1));
    return paths;
}

QString ToolSession::path(const QString &name) const
{
    return folder.filePath(name);
}

VeskToolHDRWidget *ToolSession::panel() const
{
    return toolFrame->findChild<VeskToolHDRWidget *>();
}

VeskFilterContainer *ToolSession::frame() const
{
    return toolFrame;
}

QPushButton *ToolSession::button(const char *name) const
{
    return toolFrame->findChild<QPushButton *>(QLatin1String(name));
}
