#include "MainWindow.h"
#include "editor_application.h"

#include <QCommandLineParser>

#include <cstring>

namespace {

const QString kMerge = QStringLiteral("merge");

void parse(QCommandLineParser &parser, const QCoreApplication &application)
{
    parser.setApplicationDescription(QCoreApplication::translate(
        "main", "A small photo editor that merges bracketed photographs."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption({kMerge, QCoreApplication::translate("main", "Merge these pictures.")});
    parser.addPositionalArgument(
        QStringLiteral("files"),
        QCoreApplication::translate("main", "Pictures to open, or a folder to show."),
        QStringLiteral("[files...]"));
    parser.process(application);
}

/// These are answered on the terminal, also where there is no display.
bool asksForText(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        for (const char *option : {"-h", "--help", "--help-all", "-v", "--version"}) {
            if (std::strcmp(argv[i], option) == 0)
                return true;
        }
    }
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    workspace::nameEditor();
    QCommandLineParser parser;
    if (asksForText(argc, argv)) {
        const QCoreApplication application(argc, argv);
        parse(parser, application); // ends the program
    }
    QApplication application(argc, argv);
    workspace::setUpEditor(application);
    parse(parser, application);
    MainWindow window;
    window.show();
    window.offerRecovery();
    if (parser.isSet(kMerge))
        window.mergePaths(parser.positionalArguments());
    else if (parser.positionalArguments().isEmpty())
        window.restoreSession();
    else
        window.openPaths(parser.positionalArguments());
    return QApplication::exec();
}
