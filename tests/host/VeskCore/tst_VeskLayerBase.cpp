#include <VeskLayerBase.h>

#include <QtTest>

#include <limits>

namespace {

class EmptyLayer : public VeskLayerBase
{
public:
    using VeskLayerBase::VeskLayerBase;

    QImage picture() const override { return {}; }
};

} // namespace

class TestVeskLayerBase : public QObject
{
    Q_OBJECT

private slots:
    void newLayer_isOpaqueAndVisible()
    {
        const EmptyLayer layer(QStringLiteral("layer 0"));
        QCOMPARE(layer.getName(), QStringLiteral("layer 0"));
        QCOMPARE(layer.getAlpha(), 1.0F);
        QVERIFY(layer.isVisible());
    }

    void setAlpha_movesValuesIntoBounds_data()
    {
        QTest::addColumn<float>("alpha");
        QTest::addColumn<float>("expected");
        QTest::newRow("inside") << 0.25F << 0.25F;
        QTest::newRow("below") << -3.0F << 0.0F;
        QTest::newRow("above") << 7.0F << 1.0F;
        QTest::newRow("not a number") << std::numeric_limits<float>::quiet_NaN() << 1.0F;
    }
    void setAlpha_movesValuesIntoBounds()
    {
        QFETCH(float, alpha);
        QFETCH(float, expected);
        EmptyLayer layer(QString{});
        layer.setAlpha(0.5F);
        layer.setAlpha(alpha);
        QCOMPARE(layer.getAlpha(), expected);
    }

    void changed_isSentOncePerRealChange()
    {
        EmptyLayer layer(QStringLiteral("a"));
        QSignalSpy changed(&layer, &VeskLayerBase::changed);
        layer.setName(QStringLiteral("a"));
        layer.setAlpha(1.0F);
        layer.setVisible(true);
        QCOMPARE(changed.count(), 0);
        layer.setName(QStringLiteral("b"));
        layer.setAlpha(0.5F);
        layer.setVisible(false);
        QCOMPARE(changed.count(), 3);
        QCOMPARE(layer.getName(), QStringLiteral("b"));
        QVERIFY(!layer.isVisible());
    }
};

QTEST_GUILESS_MAIN(TestVeskLayerBase)
#include "tst_VeskLayerBase.moc"
