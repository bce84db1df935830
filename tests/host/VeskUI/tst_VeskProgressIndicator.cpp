#include <VeskProgressIndicator.h>

#include <QCloseEvent>
#include <QtTest>

#include <memory>
#include <thread>

namespace {

constexpr int kLimitMs = 10000;

// Ends a wait that would hang, so that the test fails instead of the whole program.
class HangGuard
{
public:
    HangGuard()
    {
        timer.setSingleShot(true);
        QObject::connect(&timer, &QTimer::timeout, [this] {
            hasFired = true;
            QApplication::exit();
            if (QWidget *modal = QApplication::activeModalWidget())
                QCoreApplication::postEvent(modal, new QCloseEvent);
        });
        timer.start(kLimitMs);
    }
    bool hasFired = false;

private:
    QTimer timer;
};

void postClose(VeskProgressIndicator &indicator)
{
    QCoreApplication::postEvent(&indicator, new QCloseEvent, 2147483647);
}

/// The close of the window's title bar, of Alt+F4, and of the task bar: it comes to the window as
/// an event from outside of the program. True when the window agreed.
bool closeByWindowSystem(VeskProgressIndicator &indicator)
{
    QCloseEvent event;
    QSpontaneKeyEvent::setSpontaneous(&event);
    return qApp->notify(indicator.windowHandle(), &event) && event.isAccepted();
}

} // namespace

class TestProgressIndicator : public QObject
{
    Q_OBJECT

private slots:
    void exec_closePostedByAnotherThreadMeanwhile_returns();
    void exec_closePostedBeforeTheLoop_returnsAtOnce();
    void exec_closeDeliveredBeforeTheLoop_returnsWithoutShowing();
    void exec_again_waitsForANewClose();
    void exec_userCannotEndTheWait_data();
    void exec_userCannotEndTheWait();
    void exec_hiddenByTheProgram_keepsWaiting();
    void exec_programAskedToQuit_keepsWaiting();
    void exec_isModalAndSized();
    void exec_endingWhileNoOtherWindowIsOpen_doesNotQuitTheProgram();
    void animation_runsOnlyWhileVisible();
    void paint_isTranslucentOutsideOfTheRingAndTurns();
    void destroyed_withAClosePending_isHarmless();
};

void TestProgressIndicator::exec_closePostedByAnotherThreadMeanwhile_returns()
{
    HangGuard guard;
    VeskProgressIndicator indicator(QSize(60, 60));
    indicator.startAnimation();
    std::thread worker;
    QTimer::singleShot(0, &indicator, [&] {
        QVERIFY(indicator.isVisible());
        worker = std::thread([&indicator] { postClose(indicator); });
    });
    indicator.exec();
    worker.join();
    QVERIFY(!guard.hasFired);
    QVERIFY(!indicator.isVisible());
}

void TestProgressIndicator::exec_closePostedBeforeTheLoop_returnsAtOnce()
{
    HangGuard guard;
    VeskProgressIndicator indicator(QSize(60, 60));
    indicator.startAnimation();
    std::thread worker([&indicator] { postClose(indicator); });
    worker.join();
    indicator.exec();
    QVERIFY(!guard.hasFired);
    QVERIFY(!indicator.isVisible());
}

void TestProgressIndicator::exec_closeDeliveredBeforeTheLoop_returnsWithoutShowing()
{
    HangGuard guard;
    VeskProgressIndicator indicator(QSize(60, 60));
    postClose(indicator);
    QCoreApplication::sendPostedEvents(&indicator);
    struct ShowCounter : QObject
    {
        int shows = 0;
        bool eventFilter(QObject *, QEvent *event) override
        {
            shows += event->type() == QEvent::Show;
            return false;
        }
    } counter;
    indicator.installEventFilter(&counter);
    indicator.exec();
    QVERIFY(!guard.hasFired);
    QCOMPARE(counter.shows, 0);
}

void TestProgressIndicator::exec_again_waitsForANewClose()
{
    HangGuard guard;
    VeskProgressIndicator indicator(QSize(60, 60));
    postClose(indicator);
    indicator.exec();
    bool hasWaited = false;
    QTimer::singleShot(0, &indicator, [&] {
        hasWaited = true;
        postClose(indicator);
    });
    indicator.exec();
    QVERIFY(hasWaited);
    QVERIFY(!guard.hasFired);
}

using UserAct = void (*)(VeskProgressIndicator &);
Q_DECLARE_METATYPE(UserAct)

void TestProgressIndicator::exec_userCannotEndTheWait_data()
{
    QTest::addColumn<UserAct>("act");
    QTest::newRow("escape") << UserAct(
        [](VeskProgressIndicator &indicator) { QTest::keyClick(&indicator, Qt::Key_Escape); });
    QTest::newRow("return") << UserAct(
        [](VeskProgressIndicator &indicator) { QTest::keyClick(&indicator, Qt::Key_Return); });
    QTest::newRow("window manager, also for Alt+F4") << UserAct(
        [](VeskProgressIndicator &indicator) { QVERIFY(!closeByWindowSystem(indicator)); });
    QTest::newRow("window") << UserAct(
        [](VeskProgressIndicator &indicator) { QVERIFY(!indicator.windowHandle()->close()); });
    QTest::newRow("widget") << UserAct(
        [](VeskProgressIndicator &indicator) { QVERIFY(!indicator.close()); });
    QTest::newRow("all windows") << UserAct(
        [](VeskProgressIndicator &) { QApplication::closeAllWindows(); });
    QTest::newRow("reject") << UserAct(
        [](VeskProgressIndicator &indicator) { indicator.reject(); });
    QTest::newRow("window manager, in a window made anew")
        << UserAct([](VeskProgressIndicator &indicator) {
               indicator.setWindowFlag(Qt::WindowStaysOnTopHint);
               indicator.show();
               QVERIFY(!closeByWindowSystem(indicator));
           });
}

void TestProgressIndicator::exec_userCannotEndTheWait()
{
    QFETCH(UserAct, act);
    HangGuard guard;
    VeskProgressIndicator indicator(QSize(60, 60));
    bool isWorkerDone = false;
    QTimer::singleShot(0, &indicator, [&] {
        act(indicator);
        QVERIFY(indicator.isVisible());
        // The worker needs two more turns of the loop; an early end would not let it have them.
        QTimer::singleShot(0, &indicator, [&] {
            QTimer::singleShot(0, &indicator, [&] {
                isWorkerDone = true;
                postClose(indicator);
            });
        });
    });
    indicator.exec();
    QVERIFY(isWorkerDone);
    QVERIFY(!guard.hasFired);
}

void TestProgressIndicator::exec_hiddenByTheProgram_keepsWaiting()
{
    HangGuard guard;
    VeskProgressIndicator indicator(QSize(60, 60));
    bool isWorkerDone = false;
    QTimer::singleShot(0, &indicator, [&] {
        indicator.hide();
        QTimer::singleShot(0, &indicator, [&] {
            isWorkerDone = true;
            postClose(indicator);
        });
    });
    indicator.exec();
    QVERIFY(isWorkerDone);
    QVERIFY(!guard.hasFired);
}

void TestProgressIndicator::exec_programAskedToQuit_keepsWaiting()
{
    HangGuard guard;
    VeskProgressIndicator indicator(QSize(60, 60));
    bool isWorkerDone = false;
    bool wasWaiting = false;
    // The application can be asked to quit only while it runs itself.
    QTimer::singleShot(0, &indicator, [&] {
        QTimer::singleShot(0, &indicator, [&] {
            QCoreApplication::quit();
            QTimer::singleShot(0, &indicator, [&] {
                wasWaiting = indicator.isVisible();
                isWorkerDone = true;
                postClose(indicator);
            });
        });
        indicator.exec();
        QVERIFY(isWorkerDone);
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    });
    QApplication::exec();
    QVERIFY(wasWaiting);
    QVERIFY(!guard.hasFired);
}

void TestProgressIndicator::exec_isModalAndSized()
{
    HangGuard guard;
    VeskProgressIndicator indicator(QSize(60, 60));
    QTimer::singleShot(0, &indicator, [&] {
        QCOMPARE(QApplication::activeModalWidget(), &indicator);
        QCOMPARE(indicator.size(), QSize(60, 60));
        QVERIFY(indicator.windowFlags() & Qt::FramelessWindowHint);
        postClose(indicator);
    });
    indicator.exec();
    QVERIFY(!guard.hasFired);
}

void TestProgressIndicator::exec_endingWhileNoOtherWindowIsOpen_doesNotQuitTheProgram()
{
    HangGuard guard;
    QSignalSpy lastClosed(qApp, &QGuiApplication::lastWindowClosed);
    VeskProgressIndicator indicator(QSize(60, 60));
    // The application looks for its last window only while it runs itself.
    QTimer::singleShot(0, &indicator, [&] {
        QTimer::singleShot(0, &indicator, [&] { postClose(indicator); });
        indicator.exec();
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    });
    QApplication::exec();
    QCOMPARE(lastClosed.count(), 0);
    QVERIFY(!guard.hasFired);
}

void TestProgressIndicator::animation_runsOnlyWhileVisible()
{
    VeskProgressIndicator indicator(QSize(60, 60));
    indicator.startAnimation();
    QVERIFY(!indicator.isAnimating());
    indicator.show();
    QVERIFY(indicator.isAnimating());
    indicator.hide();
    QVERIFY(!indicator.isAnimating());
    indicator.show();
    QVERIFY(indicator.isAnimating());
    indicator.stopAnimation();
    QVERIFY(!indicator.isAnimating());
}

void TestProgressIndicator::paint_isTranslucentOutsideOfTheRingAndTurns()
{
    VeskProgressIndicator indicator(QSize(60, 60));
    const auto picture = [&indicator] {
        QImage image(indicator.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        indicator.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image;
    };
    const QImage first = picture();
    QCOMPARE(first.pixelColor(0, 0).alpha(), 0);
    QVERIFY(first.pixelColor(30, 30).alpha() > 100);
    QTRY_VERIFY_WITH_TIMEOUT(picture() != first, kLimitMs);
}

void TestProgressIndicator::destroyed_withAClosePending_isHarmless()
{
    auto indicator = std::make_unique<VeskProgressIndicator>(QSize(60, 60));
    postClose(*indicator);
    indicator.reset();
    QCoreApplication::processEvents();
}

QTEST_MAIN(TestProgressIndicator)
#include "tst_VeskProgressIndicator.moc"
