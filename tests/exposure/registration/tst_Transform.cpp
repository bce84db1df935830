#include "Transform.h"

#include <QtTest>

using namespace registration;

namespace {

const Matrix kBent{1.01, 0.02, 5.5, -0.03, 0.99, -7.25, 1e-5, -2e-5, 1};

double distance(QPointF a, QPointF b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

} // namespace

class tst_Transform : public QObject
{
    Q_OBJECT

private slots:
    void inverse_leadsBack();
    void inverse_ofNothing_isTheIdentity();
    void product_appliesTheSecondFirst();
    void matrixFromCorners_takesCornersThere();
    void matrixFromCorners_onALine_isTheIdentity();
    void wholeShift_isToldFromOthers();
    void names_areGiven();
};

void tst_Transform::inverse_leadsBack()
{
    for (QPointF p : {QPointF(0, 0), QPointF(3000, 17), QPointF(-5, 999)})
        QVERIFY(distance(mapped(inverse(kBent), mapped(kBent, p)), p) < 1e-6);
    QCOMPARE(inverse(kBent)[8], 1.0);
}

void tst_Transform::inverse_ofNothing_isTheIdentity()
{
    QCOMPARE(inverse(Matrix{}), identityMatrix());
}

void tst_Transform::product_appliesTheSecondFirst()
{
    const QPointF p(123, 45);
    const Matrix both = product(kBent, shiftMatrix(10, -3));
    QVERIFY(distance(mapped(both, p), mapped(kBent, p + QPointF(10, -3))) < 1e-9);
}

void tst_Transform::matrixFromCorners_takesCornersThere()
{
    const QSize size(800, 600);
    std::array<QPointF, 4> to;
    for (size_t i = 0; i < 4; ++i)
        to[i] = mapped(kBent, corners(size)[i]);
    QVERIFY(cornerDistance(matrixFromCorners(corners(size), to), kBent, size) < 1e-6);
}

void tst_Transform::matrixFromCorners_onALine_isTheIdentity()
{
    QCOMPARE(matrixFromCorners(corners({1, 1}), corners({1, 1})), identityMatrix());
}

void tst_Transform::wholeShift_isToldFromOthers()
{
    QVERIFY(isWholeShift(identityMatrix()));
    QVERIFY(isWholeShift(shiftMatrix(-3, 8)));
    QVERIFY(!isWholeShift(shiftMatrix(-3, 8.01)));
    QVERIFY(!isWholeShift(kBent));
}

void tst_Transform::names_areGiven()
{
    QCOMPARE(kindName(Kind::Perspective), QStringLiteral("perspective"));
    QCOMPARE(kindName(Kind::Unaligned), QStringLiteral("unaligned"));
    QVERIFY(reasonText(Reason::None).isEmpty());
    for (Reason reason : {Reason::TooSmall, Reason::NoDetail, Reason::NoMatch})
        QVERIFY(!reasonText(reason).isEmpty());
}

QTEST_GUILESS_MAIN(tst_Transform)
#include "tst_Transform.moc"
