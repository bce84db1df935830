#include <VeskUIController.h>

#include <QtTest>

class TestUIController : public QObject
{
    Q_OBJECT

private slots:
    void getInstance_twice_isTheSameObject();
    void getInstance_afterItsParentIsGone_makesANewOne();
    void notifyUI_reachesTheEditorAtOnceWithNameAndArguments();
    void notifyUI_withoutListener_hasNoEffect();
};

void TestUIController::getInstance_afterItsParentIsGone_makesANewOne()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<VeskUIController> first = VeskUIController::getInstance(parent.get());
    QCOMPARE(first->parent(), parent.get());
    parent.reset();
    QVERIFY(!first);
    QVERIFY(VeskUIController::getInstance(nullptr));
}

void TestUIController::getInstance_twice_isTheSameObject()
{
    // Runs first, and leaves no instance behind for the next test.
    QObject parent;
    VeskUIController *controller = VeskUIController::getInstance(&parent);
    QCOMPARE(VeskUIController::getInstance(nullptr), controller);
}

void TestUIController::notifyUI_reachesTheEditorAtOnceWithNameAndArguments()
{
    VeskUIController *controller = VeskUIController::getInstance(nullptr);
    QSignalSpy notified(controller, &VeskUIController::notified);
    controller->notifyUI("initHistogramWidget", {});
    controller->notifyUI("showPage", {QVariant(7), QVariant(QStringLiteral("raw"))});
    QCOMPARE(notified.count(), 2);
    QCOMPARE(notified.at(0).at(0).toString(), QStringLiteral("initHistogramWidget"));
    QVERIFY(notified.at(0).at(1).toList().isEmpty());
    QCOMPARE(notified.at(1).at(1).toList(),
             (QVariantList{QVariant(7), QVariant(QStringLiteral("raw"))}));
}

void TestUIController::notifyUI_withoutListener_hasNoEffect()
{
    VeskUIController::getInstance(nullptr)->notifyUI(QString(), {});
    QVERIFY(VeskUIController::getInstance(nullptr));
}

QTEST_MAIN(TestUIController)
#include "tst_VeskUIController.moc"
