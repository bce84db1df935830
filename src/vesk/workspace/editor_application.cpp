#include "editor_application.h"
#include "ThemeMenu.h"
#include "language_choice.h"

#include <VeskGlobalSettings.h>
#include <VeskRaw.h>

#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <csignal>

namespace {

/// Texts without a translation stay as they are.
void install(QApplication &application, const QString &catalogue, const QString &folder)
{
    auto *translator = new QTranslator(&application);
    if (translator->load(catalogue, folder))
        application.installTranslator(translator);
    else
        delete translator;
}

} // namespace

void workspace::nameEditor()
{
    QCoreApplication::setApplicationName(QStringLiteral("vesk"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VESK_VERSION));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Vesk"));
    QGuiApplication::setDesktopFileName(QStringLiteral("vesk"));
}

void workspace::setUpEditor(QApplication &application)
{
    // A file size limit is an ordinary error when saving, no reason to end with unsaved work.
    std::signal(SIGXFSZ, SIG_IGN);
    VeskRaw::setPixelLimit(VeskGlobalSettings::pixelLimit());
    ThemeMenu::applySettings();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/vesk/vesk.svg")));
    const QString language = language_choice::atStart(QLocale::system().uiLanguages());
    if (language.isEmpty())
        return;
    QLocale::setDefault(QLocale(language));
    install(application, QStringLiteral("qtbase_") + language,
            QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    install(application, QStringLiteral("vesk_") + language, QStringLiteral(":/vesk/i18n"));
}
