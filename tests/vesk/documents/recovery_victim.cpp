// A program to be killed: edits a document without end and keeps a recovery file of it.
//
//   recovery_victim ROOT DELAY_MS SIDE
//
// Prints "N" on a line before picture N is shown, "written" after each recovery file. Every pixel
// of picture N is N.

#include "DocumentArea.h"
#include "DocumentHistory.h"
#include "RecoveryKeeper.h"

#include <VeskContext.h>

#include <QApplication>
#include <QTimer>

#include <cstdio>

namespace {

void show(VeskContext &document, int number)
{
    std::printf("%d\n", number);
    std::fflush(stdout);
    const QImage before = document::layerPictures(document).constFirst();
    QImage after(before.size(), before.format());
    after.fill(QRgb(number) | 0xFF000000U);
    DocumentEdit edit;
    edit.text = QStringLiteral("Edit");
    edit.pictures = {after};
    edit.steps = std::make_shared<PictureSteps>(picture_step::ofChange(before, after));
    DocumentHistory::of(document).add(std::move(edit));
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc != 4)
        return 64;
    DocumentArea area(new QWidget);
    RecoveryKeeper keeper(&area, QString::fromLocal8Bit(argv[1]));
    keeper.setDelay(QByteArray(argv[2]).toInt());
    const int side = QByteArray(argv[3]).toInt();
    QImage first(side, side, QImage::Format_RGB32);
    first.fill(0xFF000000U);
    VeskContext *document = area.open(first, QStringLiteral("victim"), {});
    QObject::connect(&keeper, &RecoveryKeeper::written, [] {
        std::puts("written");
        std::fflush(stdout);
    });
    int number = 0;
    QTimer edits;
    QObject::connect(&edits, &QTimer::timeout, [&] { show(*document, ++number); });
    edits.start(10);
    return QApplication::exec();
}
