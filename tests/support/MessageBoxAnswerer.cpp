#include "MessageBoxAnswerer.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QEvent>
#include <QPushButton>
#include <QTimer>

#include <algorithm>

namespace {

QList<QAbstractButton *> buttonsByStandardBit(const QMessageBox &box)
{
    QList<QAbstractButton *> buttons = box.buttons();
    std::sort(buttons.begin(), buttons.end(),
              [&box](QAbstractButton *left, QAbstractButton *right) {
                  return box.standardButton(left) < box.standardButton(right);
              });
    return buttons;
}

QMessageBox::StandardButton defaultButtonOf(const QMessageBox &box)
{
    return box.defaultButton() ? box.standardButton(box.defaultButton()) : QMessageBox::NoButton;
}

} // namespace

MessageBoxAnswerer::MessageBoxAnswerer()
{
    QCoreApplication::instance()->installEventFilter(this);
}

void MessageBoxAnswerer::answerNextWith(QMessageBox::StandardButton button)
{
    answers += button;
}

bool MessageBoxAnswerer::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show) {
        if (auto *box = qobject_cast<QMessageBox *>(watched)) {
            // Buttons are complete and the modal loop runs only after this event.
            QTimer::singleShot(0, box, [this, box] { answer(box); });
        }
    }
    return QObject::eventFilter(watched, event);
}

void MessageBoxAnswerer::answer(QMessageBox *box)
{
    QStringList texts;
    for (const QAbstractButton *button : buttonsByStandardBit(*box)) {
        texts += button->text().remove(QLatin1Char('&'));
    }
    const QMessageBox::StandardButton button = takeAnswer(*box);
    boxes += Box{box->windowTitle(),
                 box->text(),
                 box->standardButtons(),
                 defaultButtonOf(*box),
                 texts,
                 button,
                 box->parentWidget() != nullptr};
    box->button(button)->click();
}

QMessageBox::StandardButton MessageBoxAnswerer::takeAnswer(const QMessageBox &box)
{
    const QMessageBox::StandardButton wanted =
        answers.isEmpty() ? QMessageBox::NoButton : answers.takeFirst();
    if (box.button(wanted)) {
        return wanted;
    }
    const QMessageBox::StandardButton standard = defaultButtonOf(box);
    return standard != QMessageBox::NoButton ? standard
                                             : box.standardButton(box.buttons().constFirst());
}
