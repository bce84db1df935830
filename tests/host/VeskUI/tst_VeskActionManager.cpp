#include <VeskActionManager.h>

#include <QAction>
#include <QtTest>

#include <memory>

class TestActionManager : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void getInstance_sameName_isSameRegistry();
    void getInstance_otherName_isRegistryOfItsOwn();
    void standardActions_areThereFromTheStart_data();
    void standardActions_areThereFromTheStart();
    void getActionByName_unknownName_isNull();
    void setEnabled_byNumber_enablesAndDisables();
    void setEnabled_unknownNumber_changesNothing();
    void registerAction_newNumber_isFoundByNumberAndName();
    void registerAction_overStandardAction_replacesAndDeletesIt();
    void registerAction_sameNameOtherNumber_leavesTheOldNumberEmpty();
    void registerAction_sameActionAgain_keepsIt();
    void deletedAction_isNullAndCanBeEnabledWithoutHarm();
    void trigger_runsTheSlotOfTheEditor();

private:
    // A registry nobody else has used.
    VeskActionManager *registry = nullptr;
};

void TestActionManager::init()
{
    static int number = 0;
    registry = VeskActionManager::getInstance(QStringLiteral("test %1").arg(++number));
}

void TestActionManager::getInstance_sameName_isSameRegistry()
{
    QCOMPARE(VeskActionManager::getInstance(QString()), VeskActionManager::getInstance(QString()));
    QCOMPARE(VeskActionManager::getInstance(QString()), VeskActionManager::getInstance(""));
}

void TestActionManager::getInstance_otherName_isRegistryOfItsOwn()
{
    VeskActionManager *main = VeskActionManager::getInstance(QString());
    QVERIFY(registry != main);
    QVERIFY(registry->getActionByName("Save") != main->getActionByName("Save"));
}

void TestActionManager::standardActions_areThereFromTheStart_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("name");
    QTest::newRow("save") << 0 << "Save";
    QTest::newRow("save as") << 3 << "Save As";
    QTest::newRow("close") << 4 << "Close";
}

void TestActionManager::standardActions_areThereFromTheStart()
{
    QFETCH(int, id);
    QFETCH(QString, name);
    QAction *action = registry->getActionByName(name);
    QVERIFY(action);
    QCOMPARE(registry->getAction(id), action);
    QVERIFY(!action->isEnabled());
    QVERIFY(!action->text().isEmpty());
}

void TestActionManager::getActionByName_unknownName_isNull()
{
    QVERIFY(!registry->getActionByName("Develop"));
    QVERIFY(!registry->getActionByName(QString()));
    QVERIFY(!registry->getActionByName("save")); // names are case-sensitive
}

void TestActionManager::setEnabled_byNumber_enablesAndDisables()
{
    QAction *save = registry->getActionByName("Save");
    registry->setEnabled(0, true);
    QVERIFY(save->isEnabled());
    QVERIFY(!registry->getAction(3)->isEnabled());
    registry->setEnabled(0, false);
    QVERIFY(!save->isEnabled());
}

void TestActionManager::setEnabled_unknownNumber_changesNothing()
{
    registry->setEnabled(77, true);
    registry->setEnabled(-1, true);
    QVERIFY(!registry->getAction(77));
    QVERIFY(!registry->getAction(0)->isEnabled());
}

void TestActionManager::registerAction_newNumber_isFoundByNumberAndName()
{
    QAction action;
    registry->registerAction(9, "Rotate", &action);
    QCOMPARE(registry->getAction(9), &action);
    QCOMPARE(registry->getActionByName("Rotate"), &action);
}

void TestActionManager::registerAction_overStandardAction_replacesAndDeletesIt()
{
    const QPointer<QAction> standard = registry->getActionByName("Save");
    QAction mine;
    registry->registerAction(VeskActionManager::SaveAction, "Save", &mine);
    QCOMPARE(registry->getActionByName("Save"), &mine);
    QVERIFY(!standard);
}

void TestActionManager::registerAction_sameNameOtherNumber_leavesTheOldNumberEmpty()
{
    QAction first;
    QAction second;
    registry->registerAction(20, "Rotate", &first);
    registry->registerAction(21, "Rotate", &second);
    QVERIFY(!registry->getAction(20));
    QCOMPARE(registry->getActionByName("Rotate"), &second);
}

void TestActionManager::registerAction_sameActionAgain_keepsIt()
{
    const QPointer<QAction> save = registry->getActionByName("Save");
    registry->registerAction(VeskActionManager::SaveAction, "Store", save);
    QVERIFY(save);
    QCOMPARE(registry->getActionByName("Store"), save.data());
    QVERIFY(!registry->getActionByName("Save"));
}

void TestActionManager::deletedAction_isNullAndCanBeEnabledWithoutHarm()
{
    auto action = std::make_unique<QAction>();
    registry->registerAction(9, "Rotate", action.get());
    action.reset();
    QVERIFY(!registry->getActionByName("Rotate"));
    QVERIFY(!registry->getAction(9));
    registry->setEnabled(9, true);
    QAction next;
    registry->registerAction(9, "Rotate", &next);
    QCOMPARE(registry->getAction(9), &next);
}

void TestActionManager::trigger_runsTheSlotOfTheEditor()
{
    QAction *save = registry->getActionByName("Save");
    QSignalSpy triggered(save, &QAction::triggered);
    registry->setEnabled(VeskActionManager::SaveAction, true);
    save->trigger();
    QCOMPARE(triggered.count(), 1);
}

QTEST_MAIN(TestActionManager)
#include "tst_VeskActionManager.moc"
