#include <VeskFilterContainer.h>

#include <QCheckBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

class TestFilterContainer : public QObject
{
    Q_OBJECT

private slots:
    void isModeless();
    void panelFlow_hidesBothAndShowsBothAgain();
    void closeButton_onlyHides();
    void enter_pressesNoButtonOfThePanel();
    void panelFlags_areDroppedInsideTheFrame();
};

void TestFilterContainer::isModeless()
{
    VeskFilterContainer frame(new QWidget, VeskTitleWidget::CloseButtonOnly, false, nullptr, true);
    QVERIFY(!frame.isModal());
    frame.show(true);
    QVERIFY(!QApplication::activeModalWidget());
}

// The way a tool uses its frame: it starts hidden, OK hides the panel's parent and then the panel,
// the next activation shows the panel and then the frame.
void TestFilterContainer::panelFlow_hidesBothAndShowsBothAgain()
{
    auto *panel = new QWidget;
    VeskFilterContainer frame(panel, static_cast<VeskTitleWidget::TitleButtonFlag>(0), false,
                              nullptr, true);
    frame.setVisible(false);
    for (int i = 0; i < 3; ++i) {
        panel->setVisible(true);
        frame.show(true);
        QVERIFY(panel->isVisible());
        QVERIFY(frame.isVisible());

        panel->parentWidget()->setVisible(false);
        panel->setVisible(false);
        QVERIFY(!frame.isVisible());
        QVERIFY(!panel->isVisible());
    }
}

void TestFilterContainer::closeButton_onlyHides()
{
    const QPointer<QWidget> panel = new QWidget;
    VeskFilterContainer frame(panel, VeskTitleWidget::CloseButtonOnly, false, nullptr, true);
    frame.show(true);
    QTest::mouseClick(frame.findChild<QAbstractButton *>("closeButton"), Qt::LeftButton);
    QVERIFY(!frame.isVisible());
    QVERIFY(panel);
    frame.show(true);
    QVERIFY(panel->isVisible());
}

void TestFilterContainer::enter_pressesNoButtonOfThePanel()
{
    auto *panel = new QWidget;
    auto *column = new QVBoxLayout(panel);
    auto *button = new QPushButton(panel);
    auto *box = new QCheckBox(panel);
    column->addWidget(button);
    column->addWidget(box);
    VeskFilterContainer frame(panel, VeskTitleWidget::CloseButtonOnly, false, nullptr, true);
    frame.show(true);
    QVERIFY(QTest::qWaitForWindowActive(&frame));
    box->setFocus();
    QSignalSpy clicked(button, &QPushButton::clicked);
    QTest::keyClick(box, Qt::Key_Return);
    QCOMPARE(clicked.count(), 0);
    QVERIFY(frame.isVisible());
}

void TestFilterContainer::panelFlags_areDroppedInsideTheFrame()
{
    auto *panel = new QWidget;
    panel->setWindowFlags(Qt::WindowFlags(0x4080B));
    VeskFilterContainer frame(panel, VeskTitleWidget::CloseButtonOnly, false, nullptr, true);
    frame.show(true);
    QVERIFY(!panel->isWindow());
    QCOMPARE(panel->parentWidget(), &frame);
    QVERIFY(!(panel->windowFlags() & Qt::WindowStaysOnTopHint));
}

QTEST_MAIN(TestFilterContainer)
#include "tst_VeskFilterContainer.moc"
