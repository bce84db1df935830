#include "MessageBoxAnswerer.h"

#include <QtTest>

/// The helper is trusted by many tests, so it has some of its own.
class TestMessageBoxAnswerer : public QObject
{
    Q_OBJECT

private slots:
    void staticBox_isRecordedAndClosed();
    void queuedAnswers_areGivenInOrder();
    void noAnswerQueued_pressesTheDefaultButton();
};

void TestMessageBoxAnswerer::staticBox_isRecordedAndClosed()
{
    MessageBoxAnswerer boxes;
    QMessageBox::about(nullptr, QStringLiteral("Alert"), QStringLiteral("used: 3 ms"));
    QCOMPARE(boxes.shown().size(), 1);
    const MessageBoxAnswerer::Box &box = boxes.shown().constFirst();
    QCOMPARE(box.title, QStringLiteral("Alert"));
    QCOMPARE(box.text, QStringLiteral("used: 3 ms"));
    QCOMPARE(box.buttonTexts, QStringList{QStringLiteral("OK")});
    QCOMPARE(box.answer, QMessageBox::Ok);
    QVERIFY(!box.hasParent);
}

void TestMessageBoxAnswerer::queuedAnswers_areGivenInOrder()
{
    MessageBoxAnswerer boxes;
    boxes.answerNextWith(QMessageBox::Cancel);
    boxes.answerNextWith(QMessageBox::Discard);
    for (const auto expected : {QMessageBox::Cancel, QMessageBox::Discard}) {
        QMessageBox box;
        box.setStandardButtons(QMessageBox::Save | QMessageBox::Cancel | QMessageBox::Discard);
        QCOMPARE(box.exec(), int(expected));
    }
    QCOMPARE(boxes.shown().size(), 2);
    QCOMPARE(boxes.shown().constFirst().buttonTexts.size(), 3);
    QCOMPARE(boxes.shown().constFirst().buttonTexts.constFirst(), QStringLiteral("Save"));
}

void TestMessageBoxAnswerer::noAnswerQueued_pressesTheDefaultButton()
{
    MessageBoxAnswerer boxes;
    QMessageBox box;
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::No);
    QCOMPARE(box.exec(), int(QMessageBox::No));
    QCOMPARE(boxes.shown().constFirst().defaultButton, QMessageBox::No);
}

QTEST_MAIN(TestMessageBoxAnswerer)
#include "tst_MessageBoxAnswerer.moc"
