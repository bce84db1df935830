#include <IVeskUIManager.h>

#include <QtTest>

namespace {

class PlainManager : public IVeskUIManager
{
public:
    explicit PlainManager(bool *destroyedFlag = nullptr)
        : destroyed(destroyedFlag)
    {
    }
    ~PlainManager() override
    {
        if (destroyed)
            *destroyed = true;
    }

    QList<QString> selectedFiles() const override { return {QStringLiteral("/a.jpg")}; }
    QString currentDir() const override { return QStringLiteral("/pictures"); }
    void discardChanges() override { discarded = true; }

    bool discarded = false;

private:
    bool *destroyed;
};

} // namespace

class TestIVeskUIManager : public QObject
{
    Q_OBJECT

private slots:
    void optionalOperations_haveHarmlessDefaults()
    {
        PlainManager manager;
        IVeskUIManager &asInterface = manager;
        QCOMPARE(asInterface.mainWindow(), nullptr);
        asInterface.showStatusMessage(QStringLiteral("text"), 0);
        QVERIFY(!manager.discarded);
    }

    void requiredOperations_reachTheEditor()
    {
        PlainManager manager;
        IVeskUIManager &asInterface = manager;
        QCOMPARE(asInterface.selectedFiles(), QList<QString>{QStringLiteral("/a.jpg")});
        QCOMPARE(asInterface.currentDir(), QStringLiteral("/pictures"));
        asInterface.discardChanges();
        QVERIFY(manager.discarded);
    }

    void deletingThroughTheInterface_destroysTheWholeManager()
    {
        bool destroyed = false;
        std::unique_ptr<IVeskUIManager> manager = std::make_unique<PlainManager>(&destroyed);
        manager.reset();
        QVERIFY(destroyed);
    }
};

QTEST_GUILESS_MAIN(TestIVeskUIManager)
#include "tst_IVeskUIManager.moc"
