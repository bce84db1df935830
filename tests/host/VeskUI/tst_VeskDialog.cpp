#include <VeskDialog.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSizeGrip>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

class TestDialog : public QObject
{
    Q_OBJECT

private slots:
    void content_becomesADirectChildAndNoWindow();
    void content_ownSizeAndMinimumSizeDecideTheFramesSize();
    void content_withTooSmallAMinimum_getsTheRoomItsTextsNeed();
    void content_isDeletedWithTheFrame();
    void content_deletedBefore_leavesAnEmptyFrame();
    void content_null_givesAnEmptyFrame();
    void title_followsTheContent();
    void closeButton_rejects();
    void escape_inTheContent_rejects();
    void accept_endsExec();
    void windowSystemClose_rejects();
    void show_true_raisesAndActivates();
    void show_false_leavesTheKeyboardWhereItIs();
    void content_hiddenOnItsOwn_leavesTheFrame();
    void reopened_frameKeepsItsPlace();
    void fixedSize_cannotBeResized();
    void resizable_hasASizeGripAtTheCorner();
    void maximizeButton_maximizesAndRestores();
    void staysOnTop_isAUtilityWindow();
    void twoFrames_shownOverEachOther_makeNoCircle();
    void noActiveWindow_staysAboveTheMainWindow();
};

namespace {

const auto kCloseOnly = VeskTitleWidget::CloseButtonOnly;

// What a tool hands over: a widget that asks to be a window of its own.
QWidget *panel()
{
    auto *widget = new QWidget;
    auto *column = new QVBoxLayout(widget);
    column->addWidget(new QLineEdit);
    widget->setWindowFlags(Qt::WindowFlags(0x4080B));
    return widget;
}

} // namespace

void TestDialog::content_becomesADirectChildAndNoWindow()
{
    QWidget *content = panel();
    VeskDialog frame(content, kCloseOnly, false, nullptr, false);
    QCOMPARE(content->parentWidget(), &frame);
    QVERIFY(!content->isWindow());
    frame.show(true);
    QVERIFY(content->isVisible());
    QVERIFY(content->geometry().top() >= frame.titleBar()->geometry().bottom());
    QCOMPARE(frame.contentWidget(), content);
}

void TestDialog::content_ownSizeAndMinimumSizeDecideTheFramesSize()
{
    auto *content = new QWidget;
    content->setMinimumSize(300, 250);
    content->resize(420, 380);
    VeskDialog frame(content, kCloseOnly, false, nullptr, false);
    frame.show(true);
    QCOMPARE(content->size(), QSize(420, 380));
    frame.resize(10, 10);
    QCOMPARE(content->size(), QSize(300, 250));
}

void TestDialog::content_withTooSmallAMinimum_getsTheRoomItsTextsNeed()
{
    auto *content = new QWidget;
    auto *column = new QVBoxLayout(content);
    auto *button = new QPushButton(QStringLiteral("A caption that is wider than the minimum"));
    auto *text = new QLabel(QStringLiteral("A text of several lines. ").repeated(20));
    text->setWordWrap(true);
    column->addWidget(text);
    column->addWidget(button);
    button->setMinimumWidth(10);
    content->setMinimumSize(40, 30);
    content->resize(50, 40);
    VeskDialog frame(content, kCloseOnly, false, nullptr, false);
    frame.show(true);
    frame.resize(1, 1);
    QVERIFY(button->width() >= button->sizeHint().width());
    QVERIFY(text->height() >= text->heightForWidth(text->width()));

    // A text that grows makes the frame grow.
    button->setText(button->text().repeated(3));
    QTRY_VERIFY(button->width() >= button->sizeHint().width());
}

void TestDialog::content_isDeletedWithTheFrame()
{
    const QPointer<QWidget> content = panel();
    {
        VeskDialog frame(content, kCloseOnly, false, nullptr, false);
    }
    QVERIFY(!content);
}

void TestDialog::content_deletedBefore_leavesAnEmptyFrame()
{
    QWidget *content = panel();
    VeskDialog frame(content, kCloseOnly, false, nullptr, false);
    frame.show(true);
    delete content;
    QVERIFY(!frame.contentWidget());
    frame.show(true);
    frame.reject();
    QVERIFY(!frame.isVisible());
}

void TestDialog::content_null_givesAnEmptyFrame()
{
    VeskDialog frame(nullptr, kCloseOnly, false, nullptr, false);
    frame.show(true);
    QVERIFY(frame.isVisible());
    QVERIFY(!frame.contentWidget());
}

void TestDialog::title_followsTheContent()
{
    QWidget *content = panel();
    content->setWindowTitle("Merge");
    VeskDialog frame(content, kCloseOnly, false, nullptr, false);
    QCOMPARE(frame.titleBar()->title(), QStringLiteral("Merge"));
    QCOMPARE(frame.windowTitle(), QStringLiteral("Merge"));
    content->setWindowTitle("Fusionner");
    QCOMPARE(frame.titleBar()->title(), QStringLiteral("Fusionner"));
    QCOMPARE(frame.windowTitle(), QStringLiteral("Fusionner"));
}

void TestDialog::closeButton_rejects()
{
    VeskDialog frame(panel(), kCloseOnly, false, nullptr, false);
    QSignalSpy rejected(&frame, &QDialog::rejected);
    frame.show(true);
    QTest::mouseClick(frame.findChild<QAbstractButton *>("closeButton"), Qt::LeftButton);
    QCOMPARE(rejected.count(), 1);
    QVERIFY(!frame.isVisible());
}

void TestDialog::escape_inTheContent_rejects()
{
    VeskDialog frame(panel(), kCloseOnly, false, nullptr, false);
    QSignalSpy rejected(&frame, &QDialog::rejected);
    frame.show(true);
    QTest::keyClick(frame.findChild<QLineEdit *>(), Qt::Key_Escape);
    QCOMPARE(rejected.count(), 1);
    QVERIFY(!frame.isVisible());
}

void TestDialog::accept_endsExec()
{
    VeskDialog frame(panel(), kCloseOnly, false, nullptr, false);
    QTimer::singleShot(0, &frame, [&frame] {
        QVERIFY(frame.isModal());
        frame.accept();
    });
    QCOMPARE(frame.exec(), int(QDialog::Accepted));
}

void TestDialog::windowSystemClose_rejects()
{
    VeskDialog frame(panel(), kCloseOnly, false, nullptr, false);
    QTimer::singleShot(0, &frame, &QWidget::close);
    QCOMPARE(frame.exec(), int(QDialog::Rejected));
}

void TestDialog::show_true_raisesAndActivates()
{
    QWidget window;
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    VeskDialog frame(panel(), kCloseOnly, false, nullptr, false);
    frame.show(true);
    QVERIFY(QTest::qWaitForWindowActive(&frame));
}

void TestDialog::show_false_leavesTheKeyboardWhereItIs()
{
    QWidget window;
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    VeskDialog frame(panel(), kCloseOnly, false, nullptr, false);
    frame.show(false);
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    QVERIFY(frame.testAttribute(Qt::WA_ShowWithoutActivating));
    frame.show(true);
    QVERIFY(!frame.testAttribute(Qt::WA_ShowWithoutActivating));
}

void TestDialog::content_hiddenOnItsOwn_leavesTheFrame()
{
    QWidget *content = panel();
    VeskDialog frame(content, kCloseOnly, false, nullptr, false);
    frame.show(true);
    content->hide();
    QVERIFY(frame.isVisible());
    content->setVisible(true);
    QVERIFY(content->isVisible());
}

void TestDialog::reopened_frameKeepsItsPlace()
{
    VeskDialog frame(panel(), kCloseOnly, false, nullptr, false);
    frame.show(true);
    frame.move(40, 60);
    frame.hide();
    frame.show(true);
    QCOMPARE(frame.pos(), QPoint(40, 60));
}

void TestDialog::fixedSize_cannotBeResized()
{
    auto *content = new QWidget;
    auto *row = new QHBoxLayout(content);
    row->addWidget(new QLineEdit);
    VeskDialog frame(content, kCloseOnly, true, nullptr, false);
    frame.show(true);
    const QSize size = frame.size();
    frame.resize(size * 2);
    QCOMPARE(frame.size(), size);
    QVERIFY(!frame.findChild<QSizeGrip *>());
}

void TestDialog::resizable_hasASizeGripAtTheCorner()
{
    VeskDialog frame(panel(), kCloseOnly, false, nullptr, false);
    frame.show(true);
    frame.resize(420, 300);
    const auto *grip = frame.findChild<QSizeGrip *>();
    QVERIFY(grip->isVisible());
    QCOMPARE(grip->geometry().bottomRight(), frame.rect().bottomRight());
}

void TestDialog::maximizeButton_maximizesAndRestores()
{
    VeskDialog frame(panel(), VeskTitleWidget::MaximizeButton, false, nullptr, false);
    frame.show(true);
    auto *maximize = frame.findChild<QAbstractButton *>("maximizeButton");
    QTest::mouseClick(maximize, Qt::LeftButton);
    QVERIFY(frame.isMaximized());
    QTest::mouseClick(maximize, Qt::LeftButton);
    QVERIFY(!frame.isMaximized());
}

void TestDialog::staysOnTop_isAUtilityWindow()
{
    VeskDialog dialog(panel(), kCloseOnly, false, nullptr, false);
    VeskDialog utility(panel(), kCloseOnly, false, nullptr, true);
    QCOMPARE(dialog.windowType(), Qt::Dialog);
    QCOMPARE(utility.windowType(), Qt::Tool);
    QVERIFY(!utility.testAttribute(Qt::WA_QuitOnClose));

    QWidget editor;
    editor.show();
    QVERIFY(QTest::qWaitForWindowActive(&editor));
    utility.show(true);
    QCOMPARE(utility.windowHandle()->transientParent(), editor.windowHandle());
}

// Each is shown while the other is active; windows that are above each other hang Qt.
void TestDialog::twoFrames_shownOverEachOther_makeNoCircle()
{
    VeskDialog first(panel(), kCloseOnly, false, nullptr, true);
    VeskDialog second(panel(), kCloseOnly, false, nullptr, true);
    first.show(true);
    QVERIFY(QTest::qWaitForWindowActive(&first));
    second.show(true);
    QVERIFY(QTest::qWaitForWindowActive(&second));
    QCOMPARE(second.windowHandle()->transientParent(), first.windowHandle());
    first.hide();
    QApplication::setActiveWindow(&second);
    QCOMPARE(QApplication::activeWindow(), &second);
    first.show(true);
    QVERIFY(first.windowHandle()->transientParent() != second.windowHandle());
}

void TestDialog::noActiveWindow_staysAboveTheMainWindow()
{
    QWidget editor;
    editor.setAttribute(Qt::WA_ShowWithoutActivating);
    editor.setGeometry(100, 100, 500, 400);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    QApplication::setActiveWindow(nullptr);
    VeskDialog frame(panel(), kCloseOnly, false, nullptr, false);
    frame.show(true);
    QCOMPARE(frame.windowHandle()->transientParent(), editor.windowHandle());
    QVERIFY(editor.frameGeometry().contains(frame.geometry().center()));
}

QTEST_MAIN(TestDialog)
#include "tst_VeskDialog.moc"
