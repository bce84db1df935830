#include "about_box.h"

#include <QApplication>
#include <QIcon>
#include <QMessageBox>

namespace {

constexpr int kIconSide = 96;

struct AboutBox
{
    Q_DECLARE_TR_FUNCTIONS(AboutBox)
};

} // namespace

void workspace::showAboutBox(QWidget *window)
{
    QMessageBox box(window);
    box.setWindowTitle(AboutBox::tr("About Vesk"));
    box.setIconPixmap(QIcon(QStringLiteral(":/vesk/vesk.svg")).pixmap(kIconSide, kIconSide));
    box.setText(QStringLiteral("<h3>Vesk %1</h3>").arg(QCoreApplication::applicationVersion()));
    box.setInformativeText(
        AboutBox::tr("A small photo editor that merges bracketed photographs.") +
        QStringLiteral("<br><br>") +
        AboutBox::tr("Free software under the MIT licence. Built on Qt %1, LibRaw, libexif and "
                     "OpenCL.")
            .arg(QLatin1String(qVersion())));
    box.exec();
}
