#include "FileDialogAnswerer.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QSpinBox>
#include <QTimer>

FileDialogAnswerer::FileDialogAnswerer()
{
    QCoreApplication::instance()->installEventFilter(this);
}

void FileDialogAnswerer::chooseKind(QFileDialog &dialog) const
{
    const QStringList filters = dialog.nameFilters();
    for (const QString &filter : filters) {
        if (kind.isEmpty() || !filter.startsWith(kind))
            continue;
        dialog.selectNameFilter(filter);
        Q_EMIT dialog.filterSelected(filter);
    }
}

bool FileDialogAnswerer::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Show)
        return false;
    if (auto *dialog = qobject_cast<QFileDialog *>(watched)) {
        // Its modal loop runs only after this event.
        QTimer::singleShot(0, dialog, [this, dialog] {
            auto *name = dialog->findChild<QLineEdit *>();
            offered.append(dialog->directory().filePath(name->text()));
            if (answers.isEmpty()) {
                dialog->reject();
                return;
            }
            if (dialog->acceptMode() == QFileDialog::AcceptOpen) {
                const QStringList paths = answers.takeFirst().split(QLatin1Char('|'));
                dialog->setDirectory(QFileInfo(paths.constFirst()).path());
                for (const QString &path : paths)
                    dialog->selectFile(path);
                static_cast<QDialog *>(dialog)->done(QDialog::Accepted);
                return;
            }
            chooseKind(*dialog);
            name->selectAll();
            name->insert(answers.takeFirst());
            // What the dialog has chosen itself goes before what is typed.
            dialog->findChild<QListView *>(QStringLiteral("listView"))->clearSelection();
            static_cast<QDialog *>(dialog)->accept();
        });
    } else if (watched->inherits("JpegQualityDialog")) {
        auto *question = static_cast<QDialog *>(watched);
        ++qualityQuestions;
        qualityTexts.clear();
        const QList<QLabel *> labels = question->findChildren<QLabel *>();
        for (const QLabel *label : labels)
            qualityTexts.append(label->text());
        QTimer::singleShot(0, question, [this, question] {
            if (quality > 0)
                question->findChild<QSpinBox *>()->setValue(quality);
            question->done(quality < 0 ? QDialog::Rejected : QDialog::Accepted);
        });
    }
    return false;
}
