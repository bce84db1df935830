#include "LightCommand.h"
#include "LightWindow.h"

#include <DocumentArea.h>
#include <picture_document.h>

#include <VeskContext.h>

LightCommand::LightCommand(DocumentArea *area, QWidget *parentWindow)
    : documents(area)
    , window(parentWindow)
{
}

LightCommand::~LightCommand()
{
    for (const QPointer<LightWindow> &shown : std::as_const(windows))
        delete shown;
}

void LightCommand::show(const light_file::Light &light)
{
    windows.removeIf([](const QPointer<LightWindow> &shown) { return shown.isNull(); });
    for (const QPointer<LightWindow> &shown : std::as_const(windows)) {
        if (!light.path.isEmpty() && shown->light().path == light.path) {
            shown->raise();
            shown->activateWindow();
            return;
        }
    }
    auto *shown = new LightWindow(light, folder, window);
    shown->setAttribute(Qt::WA_DeleteOnClose);
    connect(shown, &LightWindow::developed, this,
            [this, light](const QImage &picture, const QString &options) {
                open(light, picture, options);
            });
    connect(shown, &LightWindow::saved, this, &LightCommand::saved);
    windows.append(shown);
    shown->show();
}

bool LightCommand::closeAll()
{
    const QList<QPointer<LightWindow>> all = windows;
    for (const QPointer<LightWindow> &shown : all) {
        if (shown && !shown->close())
            return false;
    }
    return true;
}

void LightCommand::open(const light_file::Light &light, const QImage &picture,
                        const QString &options)
{
    //: The name of a picture made from light; %1 is that of the light.
    VeskContext *document = documents->open(picture, tr("%1 developed").arg(light.name), {});
    document::setMetadataSource(*document, light.metadataSource);
    ResultMark mark = light.mark.value_or(ResultMark());
    if (!light.mark)
        mark = document::markOfMerge(QStringLiteral("develop"), {light.path}, options);
    else
        mark.options = (mark.options + QLatin1String(" develop ") + options).trimmed();
    document::setResultMark(*document, mark);
    document->setSaveAble(true);
}
