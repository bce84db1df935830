#include "about_box.h"

#include <QCoreApplication>
#include <QIcon>
#include <QMessageBox>

namespace {

constexpr int kIconSide = 96;

QString tr(const char *text)
{
    return QCoreApplication::translate("AboutBox", text);
}

} // namespace

void showAboutBox(QWidget *window)
{
    QMessageBox box(window);
    box.setWindowTitle(tr(QT_TRANSLATE_NOOP("AboutBox", "About Vesk")));
    box.setIconPixmap(QIcon(QStringLiteral(":/vesk/vesk.svg")).pixmap(kIconSide, kIconSide));
    box.setText(QStringLiteral("<h3>Vesk %1</h3>").arg(QCoreApplication::applicationVersion()));
    box.setInformativeText(
        tr(QT_TRANSLATE_NOOP("AboutBox",
                             "A small photo editor that merges bracketed photographs.")) +
        QStringLiteral("<br><br>") +
        tr(QT_TRANSLATE_NOOP("AboutBox", "Free software under the MIT licence. Built on Qt %1, "
                                         "LibRaw, libexif and OpenCL."))
            .arg(QLatin1String(qVersion())));
    box.exec();
}
