// A host of the "Merge to HDR" tool: one document, one canvas, and the pictures named on the
// command line.
#include <IVeskUIManager.h>
#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskContextManager.h>
#include <VeskToolHDR.h>

#include <QApplication>
#include <QDir>
#include <QTimer>

class UIManager : public IVeskUIManager
{
public:
    QList<QString> selectedFiles() const override { return QCoreApplication::arguments().mid(1); }
    QString currentDir() const override { return QDir::currentPath(); }
    void discardChanges() override {}
};

int main(int argc, char **argv)
{
    QApplication application(argc, argv);

    VeskCanvas canvas;
    auto *document = new VeskContext; // belongs to the manager, the merged picture will replace it
    document->setCanvas(&canvas);
    canvas.attachContext(document);
    VeskContextManager *documents = VeskContextManager::getInstance();
    documents->addContext(document);
    documents->setCurrentContext(documents->indexOfContext(document));
    canvas.show();

    UIManager uiManager;
    VeskToolHDR tool;
    tool.init();
    tool.active(document, &uiManager); // opens the panel with the selected files
    qInfo("%s %s took over %d pictures", qPrintable(tool.title()), qPrintable(tool.version()),
          tool.fileList().size());

    QTimer::singleShot(0, &application, &QApplication::quit); // leave this out to stay
    const int status = QApplication::exec();
    tool.clear(); // a tool does not delete the pictures that it still holds
    return status;
}
