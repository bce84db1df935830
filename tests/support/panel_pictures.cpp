// Photographs the panel with pictures in it and the device dialog, for the user guide:
//
//   panel_pictures LANGUAGE FOLDER PICTURE...
//
// writes FOLDER/panel-LANGUAGE.png and FOLDER/device-dialog-LANGUAGE.png. LANGUAGE is a locale that
// the tool speaks, or anything else for English. Keeps its settings where the environment says, and
// shows the OpenCL devices of the environment; scripts/make-panel-pictures sets both.

#include "ToolSession.h"

#include <VeskToolHDRWidget.h>

#include <VeskContext.h>
#include <VeskFilterContainer.h>

#include <QApplication>
#include <QFileInfo>
#include <QListWidget>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>
#include <QtTest>

namespace {

void chooseLanguage(const QString &language)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
    QSettings(folder + QStringLiteral("/config.ini"), QSettings::IniFormat)
        .setValue(QStringLiteral("language"), language);
}

bool photograph(QWidget &window, const QString &file)
{
    // Nothing that depends on where the mouse or the keyboard happens to be.
    if (QWidget *focused = window.focusWidget()) {
        focused->clearFocus();
    }
    if (!QTest::qWaitForWindowExposed(&window)) {
        return false;
    }
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window) && window.grab().save(file);
}

bool photographPanel(const ToolSession &session, const QString &file)
{
    auto *list = session.panel()->findChild<QListWidget *>(QStringLiteral("fileList"));
    list->setCurrentRow(0);
    return photograph(*session.frame(), file);
}

bool photographDialog(const ToolSession &session, const QString &file)
{
    bool isTaken = false;
    QTimer::singleShot(0, qApp, [&] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        isTaken = photograph(*dialog, file);
        dialog->reject();
    });
    session.button("deviceButton")->click();
    return isTaken;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QStringList arguments = app.arguments().mid(1);
    if (arguments.size() < 3) {
        qCritical("usage: panel_pictures LANGUAGE FOLDER PICTURE...");
        return 64;
    }
    const QString language = arguments.takeFirst();
    const QString folder = arguments.takeFirst();

    chooseLanguage(language);
    ToolSession session;
    session.uiManager.selected = arguments;
    session.tool->active(session.document, &session.uiManager);
    const QString name = QStringLiteral("%1/%2-%3.png").arg(folder);
    return photographPanel(session, name.arg(QStringLiteral("panel"), language)) &&
                   photographDialog(session, name.arg(QStringLiteral("device-dialog"), language))
               ? 0
               : 1;
}
