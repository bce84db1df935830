#include "Room.h"
#include "SolidTree.h"
#include "noise.h"

#include <QtTest>

using namespace sample;

namespace {

constexpr int kRays = 4000;

/// A ray from a random place of the room into a random direction.
Ray randomRay(std::uint64_t index)
{
    const auto draw = [index](std::uint64_t k, float low, float high) {
        return mix(low, high, uniform(16 * index + k));
    };
    const Vector3 origin{draw(0, -2.9F, 2.9F), draw(1, 0.1F, 2.7F), draw(2, 0.1F, 6.5F)};
    const Vector3 direction{draw(3, -1.0F, 1.0F), draw(4, -1.0F, 1.0F), draw(5, -1.0F, 1.0F)};
    return {origin, normalized(direction)};
}

/// The definition: looks at every solid.
Hit plainNearestHit(const std::vector<Solid> &solids, const Ray &ray)
{
    Hit hit;
    for (size_t i = 0; i < solids.size(); ++i) {
        if (intersect(solids[i], ray, hit))
            hit.solid = static_cast<int>(i);
    }
    return hit;
}

} // namespace

class TestSolidTree : public QObject
{
    Q_OBJECT

private slots:
    void nearestHit_anyRay_isThatOfEverySolidTried();
    void isBlocked_anyRay_agreesWithTheNearestHit();
    void intersect_ballAhead_isHitAtItsNearSide();
    void intersect_boxFromInside_isHitAtItsFarSide();
    void intersect_tubeFromAbove_hasNoEnd();
    void intersect_coneFromAbove_hasAnEnd();
};

void TestSolidTree::nearestHit_anyRay_isThatOfEverySolidTried()
{
    const Room room = furnishedRoom();
    for (int i = 0; i < kRays; ++i) {
        const Ray ray = randomRay(static_cast<std::uint64_t>(i));
        const Hit expected = plainNearestHit(room.solids.solids(), ray);
        const Hit hit = room.solids.nearestHit(ray);
        QCOMPARE(hit.hasHit(), expected.hasHit());
        if (hit.hasHit())
            QCOMPARE(hit.distance, expected.distance);
    }
}

void TestSolidTree::isBlocked_anyRay_agreesWithTheNearestHit()
{
    const Room room = furnishedRoom();
    int blocked = 0;
    for (int i = 0; i < kRays; ++i) {
        const Ray ray = randomRay(static_cast<std::uint64_t>(i));
        constexpr float kDistance = 1.5F;
        const bool isBlocked = room.solids.isBlocked(ray, kDistance);
        QCOMPARE(isBlocked, room.solids.nearestHit(ray).distance < kDistance);
        blocked += isBlocked;
    }
    QVERIFY(blocked > kRays / 10);
    QVERIFY(blocked < kRays - kRays / 10);
}

void TestSolidTree::intersect_ballAhead_isHitAtItsNearSide()
{
    Solid ball;
    ball.shape = Shape::Ball;
    ball.center = {0.0F, 0.0F, -5.0F};
    ball.halfSize = {2.0F, 2.0F, 2.0F};
    Hit hit;
    QVERIFY(intersect(ball, {{0.0F, 0.0F, 0.0F}, {0.0F, 0.0F, -1.0F}}, hit));
    QCOMPARE(hit.distance, 3.0F);
    QCOMPARE(worldNormal(ball, hit.normal).z, 1.0F);
}

void TestSolidTree::intersect_boxFromInside_isHitAtItsFarSide()
{
    Solid box;
    box.halfSize = {1.0F, 2.0F, 3.0F};
    Hit hit;
    QVERIFY(intersect(box, {{0.5F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F}}, hit));
    QCOMPARE(hit.distance, 2.0F);
    QCOMPARE(worldNormal(box, hit.normal).y, 1.0F);
}

void TestSolidTree::intersect_tubeFromAbove_hasNoEnd()
{
    Solid tube;
    tube.shape = Shape::Tube;
    Hit hit;
    QVERIFY(!intersect(tube, {{0.1F, 5.0F, 0.2F}, {0.0F, -1.0F, 0.0F}}, hit));
}

void TestSolidTree::intersect_coneFromAbove_hasAnEnd()
{
    Solid cone;
    cone.shape = Shape::Cone;
    cone.topRadius = 0.5F;
    Hit hit;
    QVERIFY(intersect(cone, {{0.1F, 5.0F, 0.2F}, {0.0F, -1.0F, 0.0F}}, hit));
    QCOMPARE(hit.distance, 4.0F);
    QCOMPARE(worldNormal(cone, hit.normal).y, 1.0F);
}

QTEST_GUILESS_MAIN(TestSolidTree)
#include "tst_SolidTree.moc"
