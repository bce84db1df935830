// Photographs the editor with a merged bracket, for the documentation:
//
//   editor_picture OUTPUT WORKSPACE_OUTPUT FOLDER
//
// merges what is in FOLDER as a user does: everything selected in the film strip, Merge to HDR, OK.
// Before that it opens the workspace of Merge Exposures, and photographs it, too.
// Keeps its settings where the environment says; scripts/make-editor-picture sets that.

#include "DocumentArea.h"
#include "EditorActions.h"
#include "FilmStrip.h"
#include "FilmStripModel.h"
#include "HistogramDock.h"
#include "HistogramView.h"
#include "MainWindow.h"
#include "MergePreview.h"
#include "MergeWorkspace.h"
#include "MessageBoxAnswerer.h"
#include "editor_application.h"

#include <VeskCanvas.h>
#include <VeskFilterContainer.h>

#include <QPushButton>
#include <QtTest>

namespace {

constexpr QSize kWindowSize(1200, 800);
constexpr QSize kWorkspaceSize(1100, 640);
constexpr int kPatienceMs = 60000;

QPushButton *okButton()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget *window : windows) {
        if (qobject_cast<const VeskFilterContainer *>(window))
            return window->findChild<QPushButton *>(QStringLiteral("okBtn"));
    }
    return nullptr;
}

bool hasAllThumbnails(const FilmStrip &strip)
{
    const auto *model = strip.findChild<FilmStripModel *>();
    for (int row = 0; row < model->rowCount(); ++row) {
        const QIcon icon = model->data(model->index(row), Qt::DecorationRole).value<QIcon>();
        if (icon.availableSizes().value(0) ==
            QSize(FilmStripModel::kThumbnailSide, FilmStripModel::kThumbnailSide))
            return false; // the empty sheet is square, the shots are not
    }
    return model->rowCount() > 0;
}

bool mergeAll(MainWindow &window, FilmStrip &strip)
{
    MessageBoxAnswerer boxes;
    strip.selectAll();
    window.findChild<EditorActions *>()->merge->trigger();
    QPushButton *ok = okButton();
    if (!ok || !QTest::qWaitFor([ok] { return ok->isEnabled(); }, kPatienceMs))
        return false;
    ok->click();
    return window.findChild<DocumentArea *>()->currentCanvas();
}

bool photographWorkspace(MainWindow &window, FilmStrip &strip, const QString &output)
{
    strip.selectAll();
    window.findChild<EditorActions *>()->mergeExposures->trigger();
    auto *workspace = window.findChild<MergeWorkspace *>();
    const auto *preview = workspace->findChild<MergePreview *>();
    workspace->resize(kWorkspaceSize);
    const bool isPreviewed =
        QTest::qWaitFor([preview] { return !preview->shown().isNull(); }, kPatienceMs);
    const bool isSaved = isPreviewed && workspace->grab().save(output);
    workspace->close();
    return isSaved;
}

} // namespace

int main(int argc, char **argv)
{
    workspace::nameEditor();
    QApplication application(argc, argv);
    workspace::setUpEditor(application);
    if (argc != 4)
        return 64;
    MainWindow window;
    window.resize(kWindowSize);
    window.show();
    window.openPaths({QString::fromLocal8Bit(argv[3])});
    auto &strip = *window.findChild<FilmStrip *>();
    auto &histogram = *window.findChild<HistogramDock *>();
    if (!QTest::qWaitFor([&] { return hasAllThumbnails(strip); }, kPatienceMs) ||
        !photographWorkspace(window, strip, QString::fromLocal8Bit(argv[2])) ||
        !mergeAll(window, strip))
        return 1;
    window.findChild<DocumentArea *>()->currentCanvas()->zoomToFit();
    const bool isCounted = QTest::qWaitFor(
        [&] { return histogram.view().histogram().red != decltype(VeskCanvas::Histogram::red){}; },
        kPatienceMs);
    QTest::qWait(1000); // the canvas makes its smooth copies between repaints and does not tell
    return isCounted && window.grab().save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
}
