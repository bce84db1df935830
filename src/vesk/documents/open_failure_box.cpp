#include "open_failure_box.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>

namespace {

constexpr int kNamed = 8; // what fits on the screen; the rest is in the details

struct OpenFailureBox
{
    Q_DECLARE_TR_FUNCTIONS(OpenFailureBox)
};

QString shortLine(const LoadedPicture &failure)
{
    //: A file, and why it could not be opened.
    return OpenFailureBox::tr("“%1”: %2").arg(QFileInfo(failure.path).fileName(), failure.problem);
}

QString fullLine(const LoadedPicture &failure)
{
    return QDir::toNativeSeparators(failure.path) + QStringLiteral(": ") + failure.problem;
}

} // namespace

void document::showOpenFailures(const QList<LoadedPicture> &failures, QWidget *window)
{
    QStringList lines;
    QStringList details;
    for (const LoadedPicture &failure : failures) {
        if (lines.size() < kNamed)
            lines.append(shortLine(failure));
        details.append(fullLine(failure));
    }
    if (failures.size() > kNamed)
        lines.append(QStringLiteral("…"));
    const QString text =
        failures.size() == 1
            ? OpenFailureBox::tr("This file could not be opened:")
            : OpenFailureBox::tr("%n files could not be opened:", nullptr, failures.size());
    auto *box = new QMessageBox(QMessageBox::Warning, OpenFailureBox::tr("Not Opened"), text,
                                QMessageBox::Ok, window);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(lines.join(QLatin1Char('\n')));
    box->setDetailedText(details.join(QLatin1Char('\n')));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->show();
}
