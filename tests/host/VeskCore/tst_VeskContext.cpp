#include <IVeskTool.h>
#include <VeskContext.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskSelection.h>

#include <QtTest>

#include <memory>

/// Stands for the canvas, whose class belongs to the library above.
class VeskCanvas
{
};

namespace {

class PlainTool : public IVeskTool
{
public:
    void active(VeskContext *) override { ++calls; }
    void disActive() override { ++calls; }
    void init() override { ++calls; }
    void release() override { ++calls; }

    int calls = 0;
};

} // namespace

class TestVeskContext : public QObject
{
    Q_OBJECT

private slots:
    void newContext_isEmptyAndSaved()
    {
        const VeskContext context;
        QVERIFY(context.getLayerManager());
        QCOMPARE(context.getLayerManager()->count(), 0);
        QCOMPARE(context.getCanvas(), nullptr);
        QCOMPARE(context.getCurrentTool(), nullptr);
        QCOMPARE(context.getSelection(), nullptr);
        QVERIFY(context.getFileName().isEmpty());
        QVERIFY(context.getFilePath().isEmpty());
        QVERIFY(!context.isSaveAble());
    }

    void setters_keepTheirValuesAndReportChangesOnce()
    {
        VeskContext context;
        QSignalSpy name(&context, &VeskContext::fileNameChanged);
        QSignalSpy saveAble(&context, &VeskContext::saveAbleChanged);
        for (int i = 0; i < 2; ++i) {
            context.setFileName(QStringLiteral("Untitled Document"));
            context.setFilePath(QStringLiteral("/a/b.png"));
            context.setSaveAble(true);
        }
        QCOMPARE(context.getFileName(), QStringLiteral("Untitled Document"));
        QCOMPARE(context.getFilePath(), QStringLiteral("/a/b.png"));
        QVERIFY(context.isSaveAble());
        QCOMPARE(name.count(), 1);
        QCOMPARE(saveAble.count(), 1);
        QCOMPARE(saveAble.first().first().toBool(), true);
    }

    void setCurrentTool_attachesAndDetachesWithoutCallingTheTool()
    {
        PlainTool tool;
        VeskContext context;
        QSignalSpy changed(&context, &VeskContext::currentToolChanged);
        context.setCurrentTool(&tool);
        QCOMPARE(context.getCurrentTool(), &tool);
        context.setCurrentTool(nullptr);
        QCOMPARE(context.getCurrentTool(), nullptr);
        QCOMPARE(tool.calls, 0);
        QCOMPARE(changed.count(), 2);
    }

    void toolDeletedByTheEditor_turnsNull()
    {
        VeskContext context;
        auto tool = std::make_unique<PlainTool>();
        context.setCurrentTool(tool.get());
        tool.reset();
        QCOMPARE(context.getCurrentTool(), nullptr);
    }

    void forgetCanvas_takesItOffEveryContextThatShowsIt()
    {
        VeskCanvas canvas;
        VeskCanvas otherCanvas;
        VeskContext oldContext;
        VeskContext newContext;
        VeskContext other;
        oldContext.setCanvas(&canvas);
        newContext.setCanvas(&canvas);
        other.setCanvas(&otherCanvas);
        QSignalSpy changed(&oldContext, &VeskContext::canvasChanged);
        {
            VeskContext gone;
            gone.setCanvas(&canvas);
        }

        VeskContext::forgetCanvas(&canvas);
        QCOMPARE(oldContext.getCanvas(), nullptr);
        QCOMPARE(newContext.getCanvas(), nullptr);
        QCOMPARE(other.getCanvas(), &otherCanvas);
        QCOMPARE(changed.count(), 1);
        VeskContext::forgetCanvas(nullptr);
    }

    void setSelection_ownsItAndDropsTheOld()
    {
        auto context = std::make_unique<VeskContext>();
        const QPointer<VeskSelection> first = new VeskSelection(nullptr, 3, 2);
        const QPointer<VeskSelection> second = new VeskSelection(nullptr, 3, 2);
        QSignalSpy changed(context.get(), &VeskContext::selectionChanged);
        context->setSelection(first);
        context->setSelection(first);
        QVERIFY(first);
        QCOMPARE(changed.count(), 1);
        context->setSelection(second);
        QVERIFY(first.isNull());
        QCOMPARE(context->getSelection(), second.data());
        context.reset();
        QVERIFY(second.isNull());
    }

    void setSelection_listenersOfTheChange_mayStillTouchTheOldOne()
    {
        VeskContext context;
        const QPointer<VeskSelection> first = new VeskSelection(nullptr, 3, 2);
        context.setSelection(first);
        bool firstWasThere = false;
        connect(&context, &VeskContext::selectionChanged, this,
                [&] { firstWasThere = !first.isNull(); });
        context.setSelection(nullptr);
        QVERIFY(firstWasThere);
        QVERIFY(first.isNull());
    }

    void selectionDeletedElsewhere_turnsNull()
    {
        VeskContext context;
        context.setSelection(new VeskSelection(nullptr, 3, 2));
        delete context.getSelection();
        QCOMPARE(context.getSelection(), nullptr);
    }

    void changeOfALayer_isReportedByTheContext()
    {
        VeskContext context;
        QSignalSpy changed(&context, &VeskContext::layersChanged);
        context.getLayerManager()->addLayer(new VeskLayer(QStringLiteral("layer 0")), true);
        context.getLayerManager()->layerAt(0)->setAlpha(0.5F);
        QCOMPARE(changed.count(), 2);
    }

    void deletingTheContext_deletesItsLayers()
    {
        auto context = std::make_unique<VeskContext>();
        const QPointer<VeskLayerBase> layer = new VeskLayer(QStringLiteral("layer 0"));
        context->getLayerManager()->addLayer(layer, true);
        context.reset();
        QVERIFY(layer.isNull());
    }
};

QTEST_GUILESS_MAIN(TestVeskContext)
#include "tst_VeskContext.moc"
