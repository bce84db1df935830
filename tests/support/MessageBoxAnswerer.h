#pragma once

#include <QList>
#include <QMessageBox>
#include <QObject>
#include <QStringList>

/// Answers the modal message boxes that a test provokes and remembers what each of them showed.
///
/// It works as long as it lives, on every QMessageBox of the process, static ones (about, question)
/// included. GUI thread only.
///
///     MessageBoxAnswerer boxes;
///     boxes.answerNextWith(QMessageBox::Discard);
///     tool.active(context, uiManager);
///     QCOMPARE(boxes.shown().size(), 1);
///     QCOMPARE(boxes.shown().first().title, QStringLiteral("Alert"));
class MessageBoxAnswerer : public QObject
{
public:
    struct Box
    {
        QString title;
        QString text;
        QMessageBox::StandardButtons standardButtons;
        QMessageBox::StandardButton defaultButton;
        /// "Save", "Cancel", ...: the texts in the order of the bits of standardButtons, no
        /// shortcut marks.
        QStringList buttonTexts;
        QMessageBox::StandardButton answer;
        bool hasParent;
    };

    MessageBoxAnswerer();

    /// The answers of the coming boxes, in order. A box without one gets its default button, or
    /// else its first one. A button that the box lacks counts as no answer.
    void answerNextWith(QMessageBox::StandardButton button);

    const QList<Box> &shown() const { return boxes; }
    void forget() { boxes.clear(); }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void answer(QMessageBox *box);
    QMessageBox::StandardButton takeAnswer(const QMessageBox &box);

    QList<QMessageBox::StandardButton> answers;
    QList<Box> boxes;
};
