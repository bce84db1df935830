#include "EditorWindow.h"
#include "DocumentArea.h"
#include "EditorActions.h"
#include "FilmStrip.h"
#include "MainWindow.h"

#include <VeskActionManager.h>
#include <VeskFilterContainer.h>
#include <VeskGlobalSettings.h>

#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QTest>

EditorWindow::EditorWindow() = default;
EditorWindow::~EditorWindow() = default;

void EditorWindow::setUp()
{
    QFile::remove(VeskGlobalSettings::configFilePath());
    pictures = std::make_unique<TestPictures>();
    boxes = std::make_unique<MessageBoxAnswerer>();
    dialogs = std::make_unique<FileDialogAnswerer>();
    window = std::make_unique<MainWindow>();
    window->show();
    documents = window->findChild<DocumentArea *>();
    strip = window->findChild<FilmStrip *>();
}

void EditorWindow::tearDown()
{
    window.reset();
    dialogs.reset();
    boxes.reset();
    pictures.reset();
}

VeskContext *EditorWindow::current() const
{
    return documents->currentDocument();
}

QAction *EditorWindow::action(const QString &name) const
{
    return VeskActionManager::getInstance({})->getActionByName(name);
}

QAction *EditorWindow::mergeAction() const
{
    return window->findChild<EditorActions *>()->merge;
}

VeskFilterContainer *EditorWindow::panelFrame() const
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *candidate : windows) {
        if (auto *frame = qobject_cast<VeskFilterContainer *>(candidate))
            return frame;
    }
    return nullptr;
}

QPushButton *EditorWindow::panelButton(const char *name) const
{
    return panelFrame()->findChild<QPushButton *>(QLatin1String(name));
}

void EditorWindow::openAndWait(const QStringList &paths)
{
    const int before = documents->documents().size();
    window->openPaths(paths);
    QTRY_COMPARE(documents->documents().size(), before + paths.size());
}

void EditorWindow::mergeSelected()
{
    mergeAction()->trigger();
    QTRY_VERIFY(panelButton("okBtn")->isEnabled());
    QTest::mouseClick(panelButton("okBtn"), Qt::LeftButton);
}
