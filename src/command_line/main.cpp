#include "commands.h"
#include "console.h"
#include "file_names.h"
#include "interrupt_cleanup.h"
#include "library_messages.h"
#include "parallel_rows.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    console::keepClosedStreamsClosed();
    library_messages::silence();
    interrupt::install();
    parallel::setThreadLimit(qEnvironmentVariableIntValue("VESKHDR_THREADS"));
    // Before Qt sees them: it keeps no bytes that are not UTF-8, and file names may have some.
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words += file_names::fromBytes(argv[i]);
    const QCoreApplication application(argc, argv);
    return static_cast<int>(command_line::run(words));
}
