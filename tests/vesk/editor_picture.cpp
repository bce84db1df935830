// Photographs the editor with a merged bracket, for the documentation:
//
//   editor_picture FOLDER EDITOR WORKSPACE SPLIT STRIP BATCH
//
// merges the first bracket in FOLDER as a user does: Next Bracket, Return, Merge. On the way it
// photographs the workspace, the same with its split line at 100 %, the film strip, and the window
// that merges all brackets.
// Keeps its settings where the environment says; scripts/make-editor-picture sets that.

#include "BatchWindow.h"
#include "BracketTable.h"
#include "DocumentArea.h"
#include "EditorActions.h"
#include "FilmStrip.h"
#include "FilmStripModel.h"
#include "HistogramDock.h"
#include "HistogramView.h"
#include "MainWindow.h"
#include "MergePreview.h"
#include "MergeWorkspace.h"
#include "editor_application.h"

#include <VeskCanvas.h>

#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

namespace {

constexpr QSize kWindowSize(1200, 800);
constexpr QSize kWorkspaceSize(1100, 640);
constexpr QSize kBatchSize(960, 560);
constexpr int kPatienceMs = 60000;
constexpr int kSettleMs = 1500;
const QString kFolder = QStringLiteral("/home/anna/Pictures/Window");

bool save(QWidget &widget, const char *output)
{
    return widget.grab().save(QString::fromLocal8Bit(output));
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

bool mergeFirstBracket(MainWindow &window, FilmStrip &strip, char **outputs)
{
    strip.stepBracket(1);
    QTest::keyClick(&strip, Qt::Key_Return);
    auto *workspace = window.findChild<MergeWorkspace *>();
    auto *preview = workspace->findChild<MergePreview *>();
    workspace->resize(kWorkspaceSize);
    if (!QTest::qWaitFor([preview] { return !preview->shown().isNull(); }, kPatienceMs))
        return false;
    workspace->findChild<QPushButton *>(QStringLiteral("autoButton"))->click();
    QTest::qWait(kSettleMs); // the look follows, and nobody tells
    if (!save(*workspace, outputs[0]))
        return false;
    workspace->findChild<QPushButton *>(QStringLiteral("splitButton"))->click();
    preview->zoomTo(1);
    const auto isSharp = [preview] { return !preview->sharpRegion().after.isNull(); };
    if (!QTest::qWaitFor(isSharp, kPatienceMs) || !save(*workspace, outputs[1]))
        return false;
    workspace->findChild<QPushButton *>(QStringLiteral("mergeButton"))->click();
    const auto *documents = window.findChild<DocumentArea *>();
    return QTest::qWaitFor([&] { return documents->currentCanvas() != nullptr; }, kPatienceMs);
}

bool photographBatch(MainWindow &window, FilmStrip &strip, const char *output)
{
    window.findChild<EditorActions *>()->mergeBrackets->trigger();
    auto *batch = window.findChild<BatchWindow *>();
    batch->resize(kBatchSize);
    auto *table = batch->findChild<BracketTable *>();
    if (!QTest::qWaitFor([&] { return table->topLevelItemCount() == strip.bracketCount(); },
                         kPatienceMs))
        return false;
    table->topLevelItem(0)->setExpanded(true);
    for (int i : {1, 2}) // as if they were to be joined
        table->topLevelItem(i)->setSelected(true);
    // The folder's name is another one with every run.
    batch->findChild<QLineEdit *>(QStringLiteral("inputLine"))->blockSignals(true);
    batch->findChild<QLineEdit *>(QStringLiteral("inputLine"))->setText(kFolder);
    batch->findChild<QLineEdit *>(QStringLiteral("outputLine"))
        ->setText(kFolder + QStringLiteral("/merged"));
    const bool isSaved = save(*batch, output);
    batch->close();
    return isSaved;
}

} // namespace

int main(int argc, char **argv)
{
    workspace::nameEditor();
    QApplication application(argc, argv);
    workspace::setUpEditor(application);
    if (argc != 7)
        return 64;
    MainWindow window;
    window.resize(kWindowSize);
    window.show();
    window.openPaths({QString::fromLocal8Bit(argv[1])});
    auto &strip = *window.findChild<FilmStrip *>();
    auto &histogram = *window.findChild<HistogramDock *>();
    if (!QTest::qWaitFor([&] { return hasAllThumbnails(strip); }, kPatienceMs) ||
        !QTest::qWaitFor([&] { return strip.bracketCount() > 0; }, kPatienceMs) ||
        !mergeFirstBracket(window, strip, argv + 3) || !photographBatch(window, strip, argv[6]))
        return 1;
    window.findChild<DocumentArea *>()->currentCanvas()->zoomToFit();
    const bool isCounted = QTest::qWaitFor(
        [&] { return histogram.view().histogram().red != decltype(VeskCanvas::Histogram::red){}; },
        kPatienceMs);
    QTest::qWait(1000); // the canvas makes its smooth copies between repaints and does not tell
    strip.stepBracket(1);
    return isCounted && save(window, argv[2]) && save(strip, argv[5]) ? 0 : 1;
}
