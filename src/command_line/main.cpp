#include "commands.h"
#include "console.h"
#include "interrupt_cleanup.h"
#include "library_messages.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    console::keepClosedStreamsClosed();
    silenceImageLibraries();
    interrupt::install();
    const QCoreApplication application(argc, argv);
    return static_cast<int>(runProgram(QCoreApplication::arguments().mid(1)));
}
