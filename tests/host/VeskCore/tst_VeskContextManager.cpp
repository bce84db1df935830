#include <VeskContext.h>
#include <VeskContextManager.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureHost.h>
#include <VeskPictureReader.h>
#include <VeskSelection.h>

#include <QtTest>

#include <memory>

namespace {

VeskContextManager *manager()
{
    return VeskContextManager::getInstance();
}

VeskContext *added()
{
    auto *const context = new VeskContext;
    manager()->addContext(context);
    return context;
}

/// A document of one layer with a selection, as the merge command builds it.
VeskContext *openDocument(QImage &picture)
{
    VeskContext *const context = added();
    manager()->setCurrentContext(manager()->indexOfContext(context));
    VeskPictureReader reader;
    auto *const layer = new VeskLayer(QStringLiteral("layer 0"));
    layer->setVeskPictureHost(reader.ReadImageToHost(picture));
    context->getLayerManager()->addLayer(layer, true);
    context->setSelection(new VeskSelection(nullptr, picture.width(), picture.height()));
    return context;
}

} // namespace

class TestVeskContextManager : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        while (VeskContext *const context = manager()->contextAt(0)) {
            manager()->removeContext(context);
            delete context;
        }
    }

    void getInstance_isAlwaysTheSame() { QCOMPARE(VeskContextManager::getInstance(), manager()); }

    void emptyManager_hasNoCurrent()
    {
        QCOMPARE(manager()->count(), 0);
        QCOMPARE(manager()->getCurrentContext(), nullptr);
        QCOMPARE(manager()->contextAt(0), nullptr);
        manager()->setCurrentContext(0);
        QCOMPARE(manager()->getCurrentContext(), nullptr);
    }

    void addContext_appendsWithoutMakingItCurrent()
    {
        QSignalSpy addedSpy(manager(), &VeskContextManager::contextAdded);
        VeskContext *const first = added();
        VeskContext *const second = added();
        QCOMPARE(manager()->count(), 2);
        QCOMPARE(manager()->indexOfContext(first), 0);
        QCOMPARE(manager()->indexOfContext(second), 1);
        QCOMPARE(manager()->getCurrentContext(), nullptr);
        QCOMPARE(addedSpy.count(), 2);
    }

    void addContext_nullOrTwice_isIgnored()
    {
        VeskContext *const context = added();
        manager()->addContext(context);
        manager()->addContext(nullptr);
        QCOMPARE(manager()->count(), 1);
    }

    void setCurrentContext_reportsChangesAndIgnoresOtherIndices()
    {
        VeskContext *const first = added();
        QSignalSpy current(manager(), &VeskContextManager::currentContextChanged);
        manager()->setCurrentContext(0);
        manager()->setCurrentContext(0);
        manager()->setCurrentContext(7);
        manager()->setCurrentContext(-2);
        QCOMPARE(manager()->getCurrentContext(), first);
        QCOMPARE(current.count(), 1);
        manager()->setCurrentContext(-1);
        QCOMPARE(manager()->getCurrentContext(), nullptr);
        QCOMPARE(current.count(), 2);
    }

    void removeContext_handsOwnershipBack()
    {
        QPointer<VeskContext> context = added();
        QSignalSpy removed(manager(), &VeskContextManager::contextRemoved);
        manager()->removeContext(context);
        QVERIFY(context);
        QCOMPARE(context->parent(), nullptr);
        QCOMPARE(manager()->indexOfContext(context), -1);
        QCOMPARE(removed.count(), 1);
        manager()->removeContext(context);
        QCOMPARE(removed.count(), 1);

        context->deleteLater();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(context.isNull());
    }

    void removeContext_ofTheCurrentOne_makesANeighbourCurrent_data()
    {
        QTest::addColumn<int>("current");
        QTest::addColumn<int>("removed");
        QTest::addColumn<int>("expected"); // index before the removal
        QTest::newRow("first of three") << 0 << 0 << 1;
        QTest::newRow("middle of three") << 1 << 1 << 2;
        QTest::newRow("last of three") << 2 << 2 << 1;
        QTest::newRow("another one than the current one") << 2 << 0 << 2;
    }
    void removeContext_ofTheCurrentOne_makesANeighbourCurrent()
    {
        QFETCH(int, current);
        QFETCH(int, removed);
        QFETCH(int, expected);
        const QList<VeskContext *> contexts{added(), added(), added()};
        manager()->setCurrentContext(current);
        manager()->removeContext(contexts.at(removed));
        QCOMPARE(manager()->getCurrentContext(), contexts.at(expected));
        delete contexts.at(removed);
    }

    void removeContext_ofTheOnlyOne_leavesNoCurrent()
    {
        const std::unique_ptr<VeskContext> context(added());
        manager()->setCurrentContext(0);
        QSignalSpy current(manager(), &VeskContextManager::currentContextChanged);
        manager()->removeContext(context.get());
        QCOMPARE(manager()->getCurrentContext(), nullptr);
        QCOMPARE(current.count(), 1);
    }

    void replacingTheCurrentDocument_keepsTheNewOneCurrent()
    {
        VeskContext *const old = added();
        manager()->setCurrentContext(0);
        VeskContext *const replacement = added();
        manager()->setCurrentContext(manager()->indexOfContext(replacement));
        manager()->removeContext(old);
        delete old;
        QCOMPARE(manager()->getCurrentContext(), replacement);
        QCOMPARE(manager()->count(), 1);
    }

    void contextDeletedElsewhere_leavesTheList()
    {
        VeskContext *const first = added();
        VeskContext *const second = added();
        manager()->setCurrentContext(0);
        delete first;
        QCOMPARE(manager()->count(), 1);
        QCOMPARE(manager()->getCurrentContext(), second);
    }

    void fiftyDocuments_openedAndClosed_leaveNothingBehind()
    {
        QImage picture(64, 48, QImage::Format_RGB32);
        picture.fill(Qt::gray);
        QList<QPointer<QObject>> parts;
        for (int i = 0; i < 50; ++i) {
            VeskContext *const context = openDocument(picture);
            parts << context << context->getLayerManager() << context->getSelection()
                  << context->getLayerManager()->layerAt(0);
            if (i % 2 == 0)
                continue;
            manager()->removeContext(context);
            context->deleteLater();
        }
        while (VeskContext *const context = manager()->contextAt(0)) {
            manager()->removeContext(context);
            context->deleteLater();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(parts.size(), 200);
        for (const QPointer<QObject> &part : qAsConst(parts))
            QVERIFY(part.isNull());
        QVERIFY2(picture.isDetached(), "somebody still holds the pixels");
    }
};

QTEST_GUILESS_MAIN(TestVeskContextManager)
#include "tst_VeskContextManager.moc"
