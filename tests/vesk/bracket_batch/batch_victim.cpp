// A program to be killed: the editor's window that merges the brackets of a folder.
//
//   batch_victim FOLDER
//
// Starts the batch as soon as the brackets are found, and ends with it. Prints "merging" and
// "merged" on lines as the window tells of a bracket, and at the end what it says in sum.

#include "BatchWindow.h"
#include "BracketTable.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>

#include <cstdio>

namespace {

void print(const QString &line)
{
    std::puts(qPrintable(line));
    std::fflush(stdout);
}

void tell(BracketBatch::State state)
{
    if (state == BracketBatch::State::Merging)
        print(QStringLiteral("merging"));
    if (state == BracketBatch::State::Merged)
        print(QStringLiteral("merged"));
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc != 2)
        return 64;
    BatchWindow window(QString::fromLocal8Bit(argv[1]));
    window.show();
    const auto *batch = window.findChild<BracketBatch *>();
    QObject::connect(batch, &BracketBatch::told,
                     [](int, BracketBatch::State state) { tell(state); });
    QObject::connect(
        batch, &BracketBatch::finished, &window,
        [&] {
            print(window.findChild<QLabel *>(QStringLiteral("batchState"))->text());
            QApplication::exit(0);
        },
        Qt::QueuedConnection);
    const auto *table = window.findChild<BracketTable *>();
    auto *start = window.findChild<QPushButton *>(QStringLiteral("startButton"));
    QObject::connect(table, &BracketTable::chosenChanged, &window, [&] {
        if (!batch->isRunning() && !table->chosen().empty())
            start->click();
    });
    return QApplication::exec();
}
