#include <VeskTitleWidget.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>
#include <QtTest>

namespace {

QAbstractButton *button(const QWidget &bar, const char *name)
{
    return bar.findChild<QAbstractButton *>(QLatin1String(name));
}

void moveMouse(QWidget &widget, const QPoint &position, Qt::MouseButtons buttons)
{
    QMouseEvent move(QEvent::MouseMove, position, widget.mapToGlobal(position), Qt::NoButton,
                     buttons, Qt::NoModifier);
    QApplication::sendEvent(&widget, &move);
}

} // namespace

class TestTitleWidget : public QObject
{
    Q_OBJECT

private slots:
    void closeButton_isAlwaysThereAndTells_data();
    void closeButton_isAlwaysThereAndTells();
    void extraButtons_onlyWhenAskedFor();
    void longTitle_isCutWithAnEllipsisAndKeptInFull();
    void titleWithMarkup_isShownAsText();
    void drag_movesTheWindow();
    void smallMovement_isNoDrag();
    void rightButton_dragsNothing();
    void doubleClick_asksToMaximizeOnlyWithAButtonForIt();
    void paint_followsThePalette();
};

void TestTitleWidget::closeButton_isAlwaysThereAndTells_data()
{
    QTest::addColumn<int>("flag");
    QTest::newRow("close only") << int(VeskTitleWidget::CloseButtonOnly);
    QTest::newRow("minimize") << int(VeskTitleWidget::MinimizeButton);
    QTest::newRow("maximize") << int(VeskTitleWidget::MaximizeButton);
    QTest::newRow("both") << int(VeskTitleWidget::MinimizeAndMaximizeButtons);
}

void TestTitleWidget::closeButton_isAlwaysThereAndTells()
{
    QFETCH(int, flag);
    VeskTitleWidget bar(static_cast<VeskTitleWidget::TitleButtonFlag>(flag));
    QCOMPARE(int(bar.buttons()), flag);
    QSignalSpy closes(&bar, &VeskTitleWidget::closeRequested);
    QVERIFY(button(bar, "closeButton"));
    QTest::mouseClick(button(bar, "closeButton"), Qt::LeftButton);
    QCOMPARE(closes.count(), 1);
}

void TestTitleWidget::extraButtons_onlyWhenAskedFor()
{
    VeskTitleWidget plain;
    QVERIFY(!button(plain, "minimizeButton"));
    QVERIFY(!button(plain, "maximizeButton"));

    VeskTitleWidget full(VeskTitleWidget::MinimizeAndMaximizeButtons);
    QSignalSpy minimizes(&full, &VeskTitleWidget::minimizeRequested);
    QSignalSpy maximizes(&full, &VeskTitleWidget::maximizeRequested);
    QTest::mouseClick(button(full, "minimizeButton"), Qt::LeftButton);
    QTest::mouseClick(button(full, "maximizeButton"), Qt::LeftButton);
    QCOMPARE(minimizes.count(), 1);
    QCOMPARE(maximizes.count(), 1);
    QVERIFY(!button(full, "maximizeButton")->accessibleName().isEmpty());
}

void TestTitleWidget::longTitle_isCutWithAnEllipsisAndKeptInFull()
{
    VeskTitleWidget bar;
    bar.resize(200, bar.height());
    bar.show();
    const QString longTitle = QString(200, QLatin1Char('m'));
    bar.setTitle(longTitle);
    const auto *label = bar.findChild<QLabel *>();
    QCOMPARE(bar.title(), longTitle);
    QVERIFY(label->text().size() < longTitle.size());
    QVERIFY(label->text().endsWith(QChar(0x2026)));
    bar.setTitle("Short");
    QCOMPARE(label->text(), QStringLiteral("Short"));
}

void TestTitleWidget::titleWithMarkup_isShownAsText()
{
    VeskTitleWidget bar;
    bar.resize(400, bar.height());
    bar.show();
    bar.setTitle("<b>x</b>");
    QCOMPARE(bar.findChild<QLabel *>()->textFormat(), Qt::PlainText);
    QCOMPARE(bar.findChild<QLabel *>()->text(), QStringLiteral("<b>x</b>"));
}

// A window with a title bar on top, as in a frame.
struct Window : QWidget
{
    explicit Window(VeskTitleWidget::TitleButtonFlag flag = VeskTitleWidget::CloseButtonOnly)
        : bar(new VeskTitleWidget(flag))
    {
        auto *column = new QVBoxLayout(this);
        column->addWidget(bar);
        resize(300, 200);
        move(100, 100);
        show();
    }
    VeskTitleWidget *bar;
};

void TestTitleWidget::drag_movesTheWindow()
{
    Window window;
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QPoint start = window.pos();
    QTest::mousePress(window.bar, Qt::LeftButton, {}, QPoint(20, 10));
    moveMouse(*window.bar, QPoint(80, 40), Qt::LeftButton);
    QCOMPARE(window.pos() - start, QPoint(60, 30));
    moveMouse(*window.bar, QPoint(21, 10), Qt::LeftButton);
    QCOMPARE(window.pos() - start, QPoint(61, 30));
    QTest::mouseRelease(window.bar, Qt::LeftButton, {}, QPoint(20, 10));
    moveMouse(*window.bar, QPoint(90, 90), Qt::NoButton);
    QCOMPARE(window.pos() - start, QPoint(61, 30));
}

void TestTitleWidget::smallMovement_isNoDrag()
{
    Window window;
    const QPoint start = window.pos();
    QTest::mousePress(window.bar, Qt::LeftButton, {}, QPoint(20, 10));
    moveMouse(*window.bar, QPoint(21, 11), Qt::LeftButton);
    QCOMPARE(window.pos(), start);
}

void TestTitleWidget::rightButton_dragsNothing()
{
    Window window;
    const QPoint start = window.pos();
    QTest::mousePress(window.bar, Qt::RightButton, {}, QPoint(20, 10));
    moveMouse(*window.bar, QPoint(80, 60), Qt::RightButton);
    QCOMPARE(window.pos(), start);
}

void TestTitleWidget::doubleClick_asksToMaximizeOnlyWithAButtonForIt()
{
    VeskTitleWidget plain;
    QSignalSpy plainMaximizes(&plain, &VeskTitleWidget::maximizeRequested);
    QTest::mouseDClick(&plain, Qt::LeftButton);
    QCOMPARE(plainMaximizes.count(), 0);

    VeskTitleWidget full(VeskTitleWidget::MaximizeButton);
    QSignalSpy maximizes(&full, &VeskTitleWidget::maximizeRequested);
    QTest::mouseDClick(&full, Qt::LeftButton);
    QCOMPARE(maximizes.count(), 1);
}

void TestTitleWidget::paint_followsThePalette()
{
    VeskTitleWidget bar;
    bar.resize(300, bar.height());
    QPalette palette(Qt::white, QColor(0x20, 0x20, 0x20));
    palette.setColor(QPalette::WindowText, Qt::white);
    bar.setPalette(palette);
    QVERIFY(bar.grab().toImage().pixelColor(150, 4).lightness() < 80);
    palette.setColor(QPalette::Window, QColor(0xf0, 0xf0, 0xf0));
    palette.setColor(QPalette::WindowText, Qt::black);
    bar.setPalette(palette);
    QVERIFY(bar.grab().toImage().pixelColor(150, 4).lightness() > 180);
}

QTEST_MAIN(TestTitleWidget)
#include "tst_VeskTitleWidget.moc"
