#include <IVeskTool.h>

#include <QtTest>

/// Stands for the editor's class of that name, which this library only names.
class VeskContext : public QObject
{
};

namespace {

class PlainTool : public IVeskTool
{
public:
    using IVeskTool::IVeskTool;

    void active(VeskContext *newContext) override { context = newContext; }
    void disActive() override {}
    void init() override {}
    void release() override {}

    using IVeskTool::activeFlag;
    using IVeskTool::context;
    using IVeskTool::registerEvent;
    using IVeskTool::toolIdentifier;
    using IVeskTool::toolKind;
    using IVeskTool::toolName;
    using IVeskTool::toolTitle;
    using IVeskTool::toolVersion;
};

} // namespace

class TestIVeskTool : public QObject
{
    Q_OBJECT

private slots:
    void newTool_isInactiveWithoutWidgetAndContext()
    {
        PlainTool tool;
        QVERIFY(!tool.isActive());
        QCOMPARE(tool.getWidget(), nullptr);
        QVERIFY(tool.context.isNull());
    }

    void event_anyEvent_returnsTrueUnhandled()
    {
        PlainTool tool;
        QEvent user(QEvent::User);
        user.ignore();
        QVERIFY(tool.event(&user));
        QVERIFY(!user.isAccepted());

        // The usual handling would forward a timer event to timerEvent and a deferred deletion to
        // the destructor.
        QEvent deferredDelete(QEvent::DeferredDelete);
        QVERIFY(tool.event(&deferredDelete));
    }

    void isActive_returnsTheFlag()
    {
        PlainTool tool;
        tool.activeFlag = true;
        QVERIFY(tool.isActive());
    }

    void eventRegistered_onlyForRegisteredNames()
    {
        PlainTool tool;
        QVERIFY(!tool.eventRegistered(QStringLiteral("zoom")));
        tool.registerEvent(QStringLiteral("zoom"));
        tool.registerEvent(QStringLiteral("zoom"));
        QVERIFY(tool.eventRegistered(QStringLiteral("zoom")));
        QVERIFY(!tool.eventRegistered(QStringLiteral("Zoom")));
    }

    void textProperties_readBackThroughTheirAccessors()
    {
        PlainTool tool;
        tool.toolName = QStringLiteral("name");
        tool.toolKind = QStringLiteral("kind");
        tool.toolIdentifier = QStringLiteral("identifier");
        tool.toolTitle = QStringLiteral("title");
        tool.toolVersion = QStringLiteral("version");
        QCOMPARE(tool.name(), QStringLiteral("name"));
        QCOMPARE(tool.kind(), QStringLiteral("kind"));
        QCOMPARE(tool.identifier(), QStringLiteral("identifier"));
        QCOMPARE(tool.title(), QStringLiteral("title"));
        QCOMPARE(tool.version(), QStringLiteral("version"));
    }

    void textProperties_standInTheirOrder()
    {
        const PlainTool tool;
        QVERIFY(&tool.toolName < &tool.toolKind);
        QVERIFY(&tool.toolKind < &tool.toolIdentifier);
        QVERIFY(&tool.toolIdentifier < &tool.toolTitle);
        QVERIFY(&tool.toolTitle < &tool.toolVersion);
    }

    void context_deletedByTheEditor_turnsNull()
    {
        PlainTool tool;
        auto context = std::make_unique<VeskContext>();
        tool.active(context.get());
        QCOMPARE(tool.context.data(), context.get());
        context.reset();
        QVERIFY(tool.context.isNull());
    }

    void parent_ownsTheTool()
    {
        auto parent = std::make_unique<QObject>();
        const QPointer<IVeskTool> tool = new PlainTool(parent.get());
        parent.reset();
        QVERIFY(tool.isNull());
    }
};

QTEST_GUILESS_MAIN(TestIVeskTool)
#include "tst_IVeskTool.moc"
